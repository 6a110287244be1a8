#include "forms/Controles.h"

#include <algorithm>
#include <optional>

#include "forms/Dialogo.h"
#include "host/Platform.h"
#include "value/Convert.h"
#include "value/Format.h"
#include "value/Text.h"

namespace celdora::forms {

namespace {

// The platform's fault when a list-only combo is given a text it lacks.
Fault TextIsReadOnly() { return {383, "'Text' property is read-only"}; }
Fault KeyNotUnique() { return {35602, "Key is not unique in collection"}; }

}  // namespace

// --- Label ------------------------------------------------------------------

Label::Label(Dialogo& dialogo, std::string nombre, std::string caption)
    : Control(dialogo, std::move(nombre), TipoControl::Label) {
    Caption(caption);
}

// --- TextBox ----------------------------------------------------------------

TextBox::TextBox(Dialogo& dialogo, std::string nombre, std::string caption, std::string text)
    : TextBox(dialogo, std::move(nombre), TipoControl::TextBox, std::move(caption)) {
    text_ = std::move(text);
}

TextBox::TextBox(Dialogo& dialogo, std::string nombre, TipoControl tipo, std::string caption)
    : Control(dialogo, std::move(nombre), tipo) {
    Caption(caption);
}

void TextBox::Text(const std::string& value) {
    std::string nuevo = maxLength_ > 0 && Len(value) > static_cast<std::size_t>(maxLength_)
                            ? Left(value, static_cast<std::size_t>(maxLength_))
                            : value;
    if (nuevo == text_) return;
    text_ = std::move(nuevo);
    Cambio();
    if (Change) Change();
}

void TextBox::Locked(bool value) { Fijar(locked_, value); }

void TextBox::MaxLength(int value) { Fijar(maxLength_, value); }

void TextBox::PasswordChar(const std::string& value) { Fijar(passwordChar_, value); }

bool TextBox::Escribir(const std::string& texto) {
    if (!Accesible() || locked_) return false;
    Text("");
    const std::size_t largo = Len(texto);
    for (std::size_t i = 1; i <= largo; ++i) {
        const std::string caracter = Mid(texto, i, 1);
        const int codigo = KeyCodeFromChar(caracter);
        const int queda = codigo == 0 ? 0 : Tecla(codigo);
        std::string escrito = codigo == 0 ? caracter : (queda == 0 ? "" : CharFromKeyCode(queda));
        if (escrito.empty()) continue;
        if (maxLength_ > 0 && Len(text_) >= static_cast<std::size_t>(maxLength_)) break;
        Text(text_ + escrito);
    }
    return true;
}

bool TextBox::Pulsar() {
    if (!Accesible()) return false;
    SetFocus();
    if (Click) Click();
    return true;
}

Memo::Memo(Dialogo& dialogo, std::string nombre, std::string caption)
    : TextBox(dialogo, std::move(nombre), TipoControl::Memo, std::move(caption)) {}

// --- NumberField ------------------------------------------------------------

NumberField::NumberField(Dialogo& dialogo, std::string nombre, std::string caption)
    : Control(dialogo, std::move(nombre), TipoControl::NumberField) {
    Caption(caption);
}

void NumberField::Value(double value) {
    if (Fijar(value_, value) && Change) Change();
}

void NumberField::Decimals(int value) { Fijar(decimals_, value); }

void NumberField::Format(const std::string& value) { Fijar(format_, value); }

void NumberField::Max(double value) { Fijar(max_, value); }

void NumberField::Min(double value) { Fijar(min_, value); }

void NumberField::Locked(bool value) { Fijar(locked_, value); }

void NumberField::ButtonVisible(bool value) { Fijar(buttonVisible_, value); }

std::string NumberField::TextoMostrado() const {
    if (!format_.empty()) return celdora::Format(value_, format_);
    std::string formato = "0";
    if (decimals_ > 0) formato += "." + std::string(static_cast<std::size_t>(decimals_), '0');
    return celdora::Format(value_, formato);
}

// --- DateField --------------------------------------------------------------

DateField::DateField(Dialogo& dialogo, std::string nombre, std::string caption)
    : Control(dialogo, std::move(nombre), TipoControl::DateField) {
    Caption(caption);
}

void DateField::Value(Date value) {
    if (value.serial == value_.serial) return;
    value_ = value;
    Cambio();
    if (Change) Change();
}

void DateField::Locked(bool value) { Fijar(locked_, value); }

// --- Lists ------------------------------------------------------------------

const std::string& ListaBase::List(int index) const {
    ComprobarIndice(index);
    return items_[static_cast<std::size_t>(index)].text;
}

void ListaBase::AddItem(const std::string& text, int index) {
    if (index < 0 || index >= ListCount()) {
        items_.push_back({text, 0});
    } else {
        items_.insert(items_.begin() + index, {text, 0});
        if (listIndex_ >= index) ++listIndex_;
    }
    Cambio();
}

void ListaBase::RemoveItem(int index) {
    ComprobarIndice(index);
    items_.erase(items_.begin() + index);
    if (listIndex_ == index) {
        listIndex_ = -1;
    } else if (listIndex_ > index) {
        --listIndex_;
    }
    Cambio();
}

void ListaBase::Clear() {
    items_.clear();
    listIndex_ = -1;
    Cambio();
}

std::int32_t ListaBase::ItemData(int index) const {
    ComprobarIndice(index);
    return items_[static_cast<std::size_t>(index)].itemData;
}

void ListaBase::ItemData(int index, std::int32_t value) {
    ComprobarIndice(index);
    items_[static_cast<std::size_t>(index)].itemData = value;
}

void ListaBase::ListIndex(int value) {
    if (value < -1 || value >= ListCount()) throw InvalidPropertyValue();
    if (value == listIndex_) return;
    listIndex_ = value;
    AlSeleccionar();
    Cambio();
    if (Click) Click();
}

int ListaBase::Buscar(const std::string& text) const {
    for (std::size_t i = 0; i < items_.size(); ++i) {
        if (items_[i].text == text) return static_cast<int>(i);
    }
    return -1;
}

void ListaBase::ComprobarIndice(int index) const {
    if (index < 0 || index >= ListCount()) throw InvalidPropertyValue();
}

ComboBox::ComboBox(Dialogo& dialogo, std::string nombre, Estilo estilo, std::string caption)
    : ListaBase(dialogo, std::move(nombre), TipoControl::ComboBox), estilo_(estilo) {
    Caption(caption);
}

void ComboBox::AlSeleccionar() { text_ = ListIndex() < 0 ? "" : List(ListIndex()); }

void ComboBox::Text(const std::string& value) {
    const int indice = Buscar(value);
    if (estilo_ == Estilo::SoloLista) {
        if (indice < 0) throw TextIsReadOnly();
        ListIndex(indice);
        return;
    }
    if (value == text_) return;
    text_ = value;
    Indice(indice);
    Cambio();
    if (Change) Change();
}

void ComboBox::Clear() {
    if (estilo_ == Estilo::SoloLista) text_.clear();
    ListaBase::Clear();
}

void ComboBox::Locked(bool value) { Fijar(locked_, value); }

bool ComboBox::Escribir(const std::string& texto) {
    if (!Accesible() || locked_ || estilo_ == Estilo::SoloLista) return false;
    Text(texto);
    return true;
}

ListBox::ListBox(Dialogo& dialogo, std::string nombre, bool casillas, std::string caption)
    : ListaBase(dialogo, std::move(nombre), TipoControl::ListBox), casillas_(casillas) {
    Caption(caption);
}

bool ListBox::Selected(int index) const {
    ComprobarIndice(index);
    return static_cast<std::size_t>(index) < seleccionados_.size() && seleccionados_[static_cast<std::size_t>(index)];
}

void ListBox::Selected(int index, bool value) {
    ComprobarIndice(index);
    if (seleccionados_.size() < Items().size()) seleccionados_.resize(Items().size(), false);
    if (seleccionados_[static_cast<std::size_t>(index)] == value) return;
    seleccionados_[static_cast<std::size_t>(index)] = value;
    Cambio();
    if (casillas_ && ItemCheck) ItemCheck(index);
}

void ListBox::Clear() {
    seleccionados_.clear();
    ListaBase::Clear();
}

// --- ListView ---------------------------------------------------------------

ListView::ListView(Dialogo& dialogo, std::string nombre, std::string caption)
    : Control(dialogo, std::move(nombre), TipoControl::ListView) {
    Caption(caption);
}

void ListView::AgregarColumna(const std::string& text, int width) {
    columnas_.push_back({text, width});
    Cambio();
}

void ListView::Checkboxes(bool value) { Fijar(checkboxes_, value); }

const ItemVista& ListView::Item(int index) const {
    ComprobarItem(index);
    return items_[static_cast<std::size_t>(index)];
}

int ListView::Add(const std::string& key, const std::string& text) {
    if (!key.empty() && BuscarClave(key) >= 0) throw KeyNotUnique();
    items_.push_back({key, text, {}, "", false});
    Cambio();
    return Count() - 1;
}

void ListView::SubItem(int index, int columna, const std::string& text) {
    ComprobarItem(index);
    if (columna < 1) throw InvalidPropertyValue();
    auto& subItems = items_[static_cast<std::size_t>(index)].subItems;
    if (subItems.size() < static_cast<std::size_t>(columna)) subItems.resize(static_cast<std::size_t>(columna));
    subItems[static_cast<std::size_t>(columna - 1)] = text;
    Cambio();
}

const std::string& ListView::SubItem(int index, int columna) const {
    static const std::string vacio;
    ComprobarItem(index);
    const auto& subItems = items_[static_cast<std::size_t>(index)].subItems;
    if (columna < 1 || static_cast<std::size_t>(columna) > subItems.size()) return vacio;
    return subItems[static_cast<std::size_t>(columna - 1)];
}

void ListView::ItemTag(int index, const std::string& tag) {
    ComprobarItem(index);
    items_[static_cast<std::size_t>(index)].tag = tag;
}

void ListView::Checked(int index, bool value) {
    ComprobarItem(index);
    items_[static_cast<std::size_t>(index)].checked = value;
    Cambio();
}

void ListView::Clear() {
    items_.clear();
    seleccionado_ = -1;
    Cambio();
}

void ListView::Remove(int index) {
    ComprobarItem(index);
    items_.erase(items_.begin() + index);
    if (seleccionado_ == index) {
        seleccionado_ = -1;
    } else if (seleccionado_ > index) {
        --seleccionado_;
    }
    Cambio();
}

int ListView::BuscarClave(const std::string& key) const {
    for (std::size_t i = 0; i < items_.size(); ++i) {
        if (items_[i].key == key) return static_cast<int>(i);
    }
    return -1;
}

void ListView::SelectedItem(int index) {
    if (index != -1) ComprobarItem(index);
    seleccionado_ = index;
    Cambio();
}

bool ListView::ClickItem(int index) {
    if (!Accesible() || index < 0 || index >= Count()) return false;
    SelectedItem(index);
    if (ItemClick) ItemClick(index);
    return true;
}

bool ListView::MarcarItem(int index, bool checked) {
    if (!Accesible() || !checkboxes_ || index < 0 || index >= Count()) return false;
    Checked(index, checked);
    if (ItemCheck) ItemCheck(index);
    return true;
}

void ListView::ComprobarItem(int index) const {
    if (index < 0 || index >= Count()) throw InvalidPropertyValue();
}

// --- CheckBox, OptionButton, CommandButton ----------------------------------

CheckBox::CheckBox(Dialogo& dialogo, std::string nombre, std::string caption, int value)
    : Control(dialogo, std::move(nombre), TipoControl::CheckBox), value_(value) {
    Caption(caption);
}

void CheckBox::Value(int value) {
    if (value < 0 || value > 2) throw InvalidPropertyValue();
    if (value == value_) return;
    value_ = value;
    Cambio();
    if (Click) Click();
}

bool CheckBox::Pulsar() {
    if (!Accesible()) return false;
    Value(value_ == 0 ? 1 : 0);
    return true;
}

OptionButton::OptionButton(Dialogo& dialogo, std::string nombre, std::string caption, bool value)
    : Control(dialogo, std::move(nombre), TipoControl::OptionButton), value_(value) {
    Caption(caption);
}

std::string OptionButton::Grupo() const { return grupo_.empty() ? Contenedor() : grupo_; }

void OptionButton::Grupo(const std::string& value) { grupo_ = value; }

void OptionButton::Value(bool value) {
    if (value == value_) return;
    if (value) {
        for (const auto& control : Padre().Controles()) {
            auto* otro = dynamic_cast<OptionButton*>(control.get());
            if (otro != nullptr && otro != this && EqualText(otro->Grupo(), Grupo())) otro->Apagar();
        }
    }
    value_ = value;
    Cambio();
    if (value_ && Click) Click();
}

void OptionButton::Apagar() {
    if (!value_) return;
    value_ = false;
    Cambio();
}

bool OptionButton::Pulsar() {
    if (!Accesible()) return false;
    Value(true);
    return true;
}

CommandButton::CommandButton(Dialogo& dialogo, std::string nombre, std::string caption)
    : Control(dialogo, std::move(nombre), TipoControl::CommandButton) {
    Caption(caption);
}

void CommandButton::Default(bool value) { Fijar(default_, value); }

void CommandButton::Cancel(bool value) { Fijar(cancel_, value); }

void CommandButton::Dibujo(Imagen value) { Fijar(dibujo_, value); }

bool CommandButton::Pulsar() {
    if (!Accesible()) return false;
    SetFocus();
    if (Click) Click();
    return true;
}

// --- Frame, TabControl, PictureBox, ProgressBar -----------------------------

Frame::Frame(Dialogo& dialogo, std::string nombre, std::string caption)
    : Control(dialogo, std::move(nombre), TipoControl::Frame) {
    Caption(caption);
}

TabControl::TabControl(Dialogo& dialogo, std::string nombre, std::vector<std::string> paginas)
    : Control(dialogo, std::move(nombre), TipoControl::TabControl), paginas_(std::move(paginas)) {}

void TabControl::AgregarPagina(const std::string& caption) {
    paginas_.push_back(caption);
    Cambio();
}

void TabControl::SelectedItem(int index) {
    if (index < 0 || index >= static_cast<int>(paginas_.size())) throw InvalidPropertyValue();
    if (index == seleccionada_) return;
    seleccionada_ = index;
    Cambio();
    if (Click) Click();
}

bool TabControl::PaginaHabilitada(int index) const {
    return std::find(fueraDeUso_.begin(), fueraDeUso_.end(), index) == fueraDeUso_.end();
}

void TabControl::PaginaHabilitada(int index, bool value) {
    if (index < 0 || index >= static_cast<int>(paginas_.size())) throw InvalidPropertyValue();
    if (PaginaHabilitada(index) == value) return;
    if (value) {
        std::erase(fueraDeUso_, index);
    } else {
        fueraDeUso_.push_back(index);
    }
    Cambio();
}

bool TabControl::ClickPagina(int index) {
    if (!Accesible() || index < 0 || index >= static_cast<int>(paginas_.size())) return false;
    if (!PaginaHabilitada(index)) return false;
    SelectedItem(index);
    return true;
}

PictureBox::PictureBox(Dialogo& dialogo, std::string nombre, std::string caption)
    : Control(dialogo, std::move(nombre), TipoControl::PictureBox) {
    Caption(caption);
}

void PictureBox::Picture(std::shared_ptr<host::Picture> value) { Fijar(picture_, value); }

ProgressBar::ProgressBar(Dialogo& dialogo, std::string nombre)
    : Control(dialogo, std::move(nombre), TipoControl::ProgressBar) {}

void ProgressBar::Limites(int min, int max) {
    if (max <= min) throw InvalidPropertyValue();
    min_ = min;
    max_ = max;
    if (value_ < min_) value_ = min_;
    if (value_ > max_) value_ = max_;
    Cambio();
}

void ProgressBar::Value(int value) {
    if (value < min_ || value > max_) throw InvalidPropertyValue();
    if (value == value_) return;
    value_ = value;
    Cambio();
}

// --- Grid -------------------------------------------------------------------

Grid::Grid(Dialogo& dialogo, std::string nombre, std::vector<ColumnaGrid> columnas)
    : Control(dialogo, std::move(nombre), TipoControl::Grid), columnas_(std::move(columnas)) {}

int Grid::Columna(const std::string& nombre) const {
    for (std::size_t i = 0; i < columnas_.size(); ++i) {
        if (EqualText(columnas_[i].nombre, nombre)) return static_cast<int>(i);
    }
    throw SubscriptOutOfRange();
}

int Grid::Append() {
    filas_.emplace_back(columnas_.size());
    Cambio();
    return RowCount() - 1;
}

void Grid::Valor(int fila, const std::string& columna, const Variant& valor) {
    if (fila < 0 || fila >= RowCount()) throw SubscriptOutOfRange();
    const int indice = Columna(columna);
    Variant celda = valor;
    if (columnas_[static_cast<std::size_t>(indice)].numerica) {
        try {
            celda = CDbl(valor);
        } catch (const Fault&) {
            celda = Variant();
        }
    }
    filas_[static_cast<std::size_t>(fila)][static_cast<std::size_t>(indice)] = std::move(celda);
    Cambio();
}

const Variant& Grid::Valor(int fila, const std::string& columna) const { return Celda(fila, Columna(columna)); }

const Variant& Grid::Celda(int fila, int columna) const {
    if (fila < 0 || fila >= RowCount() || columna < 0 || columna >= static_cast<int>(columnas_.size())) {
        throw SubscriptOutOfRange();
    }
    return filas_[static_cast<std::size_t>(fila)][static_cast<std::size_t>(columna)];
}

void Grid::Clear() {
    filas_.clear();
    Cambio();
}

// --- AddressControl ---------------------------------------------------------

AddressControl::AddressControl(Dialogo& dialogo, std::string nombre)
    : Control(dialogo, std::move(nombre), TipoControl::AddressControl) {}

void AddressControl::Cambiado() {
    Cambio();
    if (Change) Change();
}

void AddressControl::address(const std::string& value) {
    if (Fijar(address_, value) && Change) Change();
}

void AddressControl::colony(const std::string& value) {
    if (Fijar(colony_, value) && Change) Change();
}

void AddressControl::phone(const std::string& value) {
    if (Fijar(phone_, value) && Change) Change();
}

void AddressControl::notes(const std::string& value) {
    if (Fijar(notes_, value) && Change) Change();
}

void AddressControl::codep(const std::string& value) {
    if (Fijar(codep_, value) && Change) Change();
}

namespace {

// A list the source of places gives; a source that fails offers nothing.
std::vector<host::Lugar> Lista(const std::function<std::vector<host::Lugar>()>& leer) {
    try {
        return leer();
    } catch (const Fault&) {
        return {};
    }
}

}  // namespace

void AddressControl::Releer() {
    estados_.clear();
    ciudades_.clear();
    if (!lugares_ || pais_ < 1) return;
    estados_ = Lista([this] { return lugares_->Estados(pais_); });
    ciudades_ = Lista([this] {
        return estado_ >= 1 ? lugares_->CiudadesDeEstado(estado_) : lugares_->CiudadesDePais(pais_);
    });
}

void AddressControl::ciudad(std::int32_t value) {
    if (value == ciudad_) return;
    ciudad_ = value;
    if (lugares_ && value >= 1) {
        std::optional<host::UbicacionCiudad> ubicacion;
        try {
            ubicacion = lugares_->UbicarCiudad(value);
        } catch (const Fault&) {
        }
        if (ubicacion) {
            pais_ = ubicacion->pais;
            estado_ = ubicacion->estado;
        }
    }
    Releer();
    Cambiado();
}

void AddressControl::pais(std::int32_t value) {
    if (value == pais_) return;
    pais_ = value;
    estado_ = 0;
    Releer();
    Cambiado();
}

void AddressControl::titulo(const std::string& value) { Fijar(titulo_, value); }

void AddressControl::direccionSeparada(bool value) { Fijar(direccionSeparada_, value); }

namespace {

// Element n of the street text cut at each "|"; "" when it has fewer.
std::string Elemento(const std::string& address, std::size_t n) {
    const auto partes = Split(address, "|");
    return n < partes.size() ? partes[n] : "";
}

}  // namespace

std::string AddressControl::Calle() const {
    return address_.rfind("||", 0) == 0 ? Elemento(address_, 2) : address_;
}

std::string AddressControl::NumeroExterior() const {
    return address_.rfind("||", 0) == 0 ? Elemento(address_, 3) : "";
}

std::string AddressControl::NumeroInterior() const {
    return address_.rfind("||", 0) == 0 ? Elemento(address_, 4) : "";
}

void AddressControl::Separada(const std::string& calle, const std::string& exterior, const std::string& interior) {
    address("||" + calle + "|" + exterior + "|" + interior);
}

void AddressControl::conectar(const std::shared_ptr<Object>& fuente) {
    fuente_ = fuente;
    lugares_ = std::dynamic_pointer_cast<host::FuenteLugares>(fuente);
    paises_ = lugares_ ? Lista([this] { return lugares_->Paises(); }) : std::vector<host::Lugar>{};
    Releer();
    Cambio();
}

void AddressControl::limpiar() {
    address_.clear();
    colony_.clear();
    phone_.clear();
    notes_.clear();
    codep_.clear();
    ciudad_ = -1;
    pais_ = 0;
    estado_ = 0;
    Releer();
    Cambiado();
}

void AddressControl::ElegirPaisClave(std::int32_t clave) {
    if (clave == pais_) return;
    pais_ = clave;
    estado_ = 0;
    ciudad_ = -1;
    Releer();
    Cambiado();
}

void AddressControl::ElegirEstadoClave(std::int32_t clave) {
    if (clave == estado_) return;
    estado_ = clave;
    ciudad_ = -1;
    Releer();
    Cambiado();
}

namespace {

bool EnLista(const std::vector<host::Lugar>& lista, int indice) {
    return indice >= 0 && indice < static_cast<int>(lista.size());
}

}  // namespace

bool AddressControl::ElegirPais(int indice) {
    if (!Accesible() || !EnLista(paises_, indice)) return false;
    ElegirPaisClave(paises_[static_cast<std::size_t>(indice)].Sys_PK);
    return true;
}

bool AddressControl::ElegirEstado(int indice) {
    if (!Accesible() || !EnLista(estados_, indice)) return false;
    ElegirEstadoClave(estados_[static_cast<std::size_t>(indice)].Sys_PK);
    return true;
}

bool AddressControl::ElegirCiudad(int indice) {
    if (!Accesible() || !EnLista(ciudades_, indice)) return false;
    ciudad(ciudades_[static_cast<std::size_t>(indice)].Sys_PK);
    return true;
}

bool AddressControl::Agregar(bool permitido, const std::string& nombre, const std::string& que,
                             const std::function<std::int32_t(const std::string&)>& alta,
                             const std::function<void(std::int32_t)>& elegir) {
    const std::string limpio = Trim(nombre);
    if (!permitido || !lugares_ || !Accesible() || limpio.empty()) return false;
    std::int32_t clave = 0;
    try {
        clave = alta(limpio);
    } catch (const Fault& falla) {
        host::CurrentPlatform().Ui().MsgBox("No se pudo agregar " + que + " \"" + limpio + "\": " + falla.description,
                                            host::Botones::Aceptar, host::Icono::Exclamacion, titulo_);
        return false;
    }
    elegir(clave);
    return true;
}

bool AddressControl::AgregarPais(const std::string& nombre) {
    return Agregar(
        canaddcountry, nombre, "el país", [this](const std::string& n) { return lugares_->AgregarPais(n); },
        [this](std::int32_t clave) {
            paises_ = Lista([this] { return lugares_->Paises(); });
            ElegirPaisClave(clave);
        });
}

bool AddressControl::AgregarEstado(const std::string& nombre) {
    return Agregar(
        canaddstate && pais_ >= 1, nombre, "el estado",
        [this](const std::string& n) { return lugares_->AgregarEstado(pais_, n); },
        [this](std::int32_t clave) { ElegirEstadoClave(clave); });
}

bool AddressControl::AgregarCiudad(const std::string& nombre) {
    return Agregar(
        canaddcity && pais_ >= 1, nombre, "la ciudad",
        [this](const std::string& n) { return lugares_->AgregarCiudad(pais_, estado_, n); },
        [this](std::int32_t clave) { ciudad(clave); });
}

// --- CommonDialog -----------------------------------------------------------

CommonDialog::CommonDialog(Dialogo& dialogo, std::string nombre)
    : Control(dialogo, std::move(nombre), TipoControl::CommonDialog) {
    Visible(false);
}

namespace {

void Elegir(CommonDialog& dialogo, bool guardar) {
    host::FileDialogRequest pedido{dialogo.Filter, dialogo.FileName, dialogo.DialogTitle, dialogo.InitDir};
    auto& ui = host::CurrentPlatform().Ui();
    const auto ruta = guardar ? ui.ShowSave(pedido) : ui.ShowOpen(pedido);
    if (!ruta) {
        if (dialogo.CancelError) throw CancelSelected();
        return;
    }
    dialogo.FileName = *ruta;
}

}  // namespace

void CommonDialog::ShowOpen() { Elegir(*this, false); }

void CommonDialog::ShowSave() { Elegir(*this, true); }

}  // namespace celdora::forms
