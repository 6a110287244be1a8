#pragma once

// The control models. Setting a value from code raises the same event as a
// person would: a check box's or option button's value and a list's index
// raise Click, a text raises Change. The handlers of the system rely on that
// (a flag such as `cargando` exists to ignore the events its own loading
// raises). Each event fires only when the value really changes.
//
// Methods named after what a person does (Pulsar, Escribir, ClickItem,
// MarcarItem) are what renderers call; they refuse when the control cannot be
// reached (disabled, hidden, locked).

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/Control.h"
#include "host/HostObjects.h"
#include "host/UiServices.h"
#include "value/Date.h"
#include "value/Variant.h"

namespace celdora::forms {

class Label : public Control {
public:
    Label(Dialogo& dialogo, std::string nombre, std::string caption = "");
};

// A one-line text field. Its caption is the label beside it.
class TextBox : public Control {
public:
    TextBox(Dialogo& dialogo, std::string nombre, std::string caption = "", std::string text = "");

    const std::string& Text() const { return text_; }
    // A text longer than MaxLength is cut to it, as the platform does.
    void Text(const std::string& value);
    bool Locked() const { return locked_; }
    void Locked(bool value);
    // 0 means no limit; counted in characters.
    int MaxLength() const { return maxLength_; }
    void MaxLength(int value);
    // A character shown in place of each typed one; empty shows the text.
    const std::string& PasswordChar() const { return passwordChar_; }
    void PasswordChar(const std::string& value);

    // A person replacing the text by typing: the text is emptied and each
    // character goes through KeyPress. False when the field can't be typed in.
    bool Escribir(const std::string& texto);
    // A person clicking the field: it takes the focus and Click runs (some
    // path fields open their picker this way), when the field can be reached.
    bool Pulsar();

    std::function<void()> Change;
    std::function<void()> Click;

protected:
    TextBox(Dialogo& dialogo, std::string nombre, TipoControl tipo, std::string caption);

private:
    std::string text_;
    bool locked_ = false;
    int maxLength_ = 0;
    std::string passwordChar_;
};

// A text field of several lines.
class Memo : public TextBox {
public:
    Memo(Dialogo& dialogo, std::string nombre, std::string caption = "");
};

// A number field: value, decimals shown, display format, bounds, and a spare
// button beside it that a dialog may hide.
class NumberField : public Control {
public:
    NumberField(Dialogo& dialogo, std::string nombre, std::string caption = "");

    double Value() const { return value_; }
    void Value(double value);
    int Decimals() const { return decimals_; }
    void Decimals(int value);
    // The format the value is shown in when the field is read-only, such as
    // "$ #,#.##"; empty shows it with Decimals.
    const std::string& Format() const { return format_; }
    void Format(const std::string& value);
    double Max() const { return max_; }
    void Max(double value);
    double Min() const { return min_; }
    void Min(double value);
    bool Locked() const { return locked_; }
    void Locked(bool value);
    bool ButtonVisible() const { return buttonVisible_; }
    void ButtonVisible(bool value);
    // The value as the field shows it.
    std::string TextoMostrado() const;

    std::function<void()> Change;

private:
    double value_ = 0;
    int decimals_ = 0;
    std::string format_;
    double max_ = 999999999999.0;
    double min_ = -999999999999.0;
    bool locked_ = false;
    bool buttonVisible_ = true;
};

class DateField : public Control {
public:
    DateField(Dialogo& dialogo, std::string nombre, std::string caption = "");

    Date Value() const { return value_; }
    void Value(Date value);
    bool Locked() const { return locked_; }
    void Locked(bool value);

    std::function<void()> Change;

private:
    Date value_{};
    bool locked_ = false;
};

struct ItemLista {
    std::string text;
    std::int32_t itemData = 0;
};

// The items and the list index shared by combo and list boxes.
class ListaBase : public Control {
public:
    using Control::Control;

    const std::vector<ItemLista>& Items() const { return items_; }
    int ListCount() const { return static_cast<int>(items_.size()); }
    const std::string& List(int index) const;
    // Adds at the end, or before the item at index.
    void AddItem(const std::string& text, int index = -1);
    void RemoveItem(int index);
    // Empties the list; the index goes to -1 without an event.
    virtual void Clear();
    std::int32_t ItemData(int index) const;
    void ItemData(int index, std::int32_t value);
    // -1 when nothing is selected. Setting it to another item raises Click;
    // an index outside the list raises fault 380.
    int ListIndex() const { return listIndex_; }
    void ListIndex(int value);
    // The index of the first item with this text, -1 when none has it.
    int Buscar(const std::string& text) const;

    std::function<void()> Click;

protected:
    virtual void AlSeleccionar() {}
    void Indice(int value) { listIndex_ = value; }
    void ComprobarIndice(int index) const;

private:
    std::vector<ItemLista> items_;
    int listIndex_ = -1;
};

// A combo box: list-only (its text is always an item's) or editable.
class ComboBox : public ListaBase {
public:
    enum class Estilo { Editable, SoloLista };
    ComboBox(Dialogo& dialogo, std::string nombre, Estilo estilo, std::string caption = "");

    Estilo Style() const { return estilo_; }
    const std::string& Text() const { return text_; }
    // List-only: selects the item with this text (Click); a text that is no
    // item raises fault 383. Editable: sets the text (Change) and the index
    // of the item that has it, or -1.
    void Text(const std::string& value);
    void Clear() override;
    bool Locked() const { return locked_; }
    void Locked(bool value);

    // A person typing into an editable combo.
    bool Escribir(const std::string& texto);

    std::function<void()> Change;

protected:
    void AlSeleccionar() override;

private:
    Estilo estilo_;
    std::string text_;
    bool locked_ = false;
};

// A list box, plain or with a check box on each item.
class ListBox : public ListaBase {
public:
    ListBox(Dialogo& dialogo, std::string nombre, bool casillas = false, std::string caption = "");

    bool Casillas() const { return casillas_; }
    // With check boxes: whether the item is checked. Setting it from code
    // raises ItemCheck, as for a person.
    bool Selected(int index) const;
    void Selected(int index, bool value);
    void Clear() override;

    std::function<void(int index)> ItemCheck;
    // A person double-clicking an entry, after the first click selected it.
    std::function<void()> DblClick;

private:
    bool casillas_;
    std::vector<bool> seleccionados_;
};

struct ColumnaVista {
    std::string text;
    int width = 0;  // in characters; 0 lets the renderer choose
};

struct ItemVista {
    std::string key;
    std::string text;
    std::vector<std::string> subItems;  // columns 1 onwards
    std::string tag;
    bool checked = false;
};

// A list view in report mode: column headers and items with key, text,
// sub-items, tag, check box and one selected item.
class ListView : public Control {
public:
    ListView(Dialogo& dialogo, std::string nombre, std::string caption = "");

    const std::vector<ColumnaVista>& Columnas() const { return columnas_; }
    void AgregarColumna(const std::string& text, int width = 0);
    bool Checkboxes() const { return checkboxes_; }
    void Checkboxes(bool value);
    bool FullRowSelect() const { return true; }

    int Count() const { return static_cast<int>(items_.size()); }
    const ItemVista& Item(int index) const;  // from 0
    // Adds an item; a key already present raises fault 35602. Gives its index.
    int Add(const std::string& key, const std::string& text);
    // Column 1 onwards; the item grows the sub-items it needs.
    void SubItem(int index, int columna, const std::string& text);
    const std::string& SubItem(int index, int columna) const;
    void ItemTag(int index, const std::string& tag);
    // From code: no event, as on the platform.
    void Checked(int index, bool value);
    void Clear();
    void Remove(int index);
    // The index of the item with this key, -1 when none.
    int BuscarClave(const std::string& key) const;

    // -1 when no item is selected.
    int SelectedItem() const { return seleccionado_; }
    // Selecting from code raises no event.
    void SelectedItem(int index);

    // A person clicking an item: it becomes the selected one and ItemClick runs.
    bool ClickItem(int index);
    // A person ticking an item's check box: it changes and ItemCheck runs.
    bool MarcarItem(int index, bool checked);

    std::function<void(int index)> ItemClick;
    std::function<void(int index)> ItemCheck;
    std::function<void(int index)> DblClick;

private:
    void ComprobarItem(int index) const;

    std::vector<ColumnaVista> columnas_;
    std::vector<ItemVista> items_;
    bool checkboxes_ = false;
    int seleccionado_ = -1;
};

// A check box: 0 unchecked, 1 checked, 2 grey.
class CheckBox : public Control {
public:
    CheckBox(Dialogo& dialogo, std::string nombre, std::string caption = "", int value = 0);

    int Value() const { return value_; }
    void Value(int value);
    // A person clicking it: unchecked becomes checked and anything else unchecked.
    bool Pulsar();

    std::function<void()> Click;

private:
    int value_;
};

// An option button. Buttons of one group (by default, those in the same
// container) exclude each other: turning one on turns the others off, and
// only the one turned on raises Click.
class OptionButton : public Control {
public:
    OptionButton(Dialogo& dialogo, std::string nombre, std::string caption = "", bool value = false);

    bool Value() const { return value_; }
    void Value(bool value);
    // The group's name; empty means the container.
    std::string Grupo() const;
    void Grupo(const std::string& value);
    bool Pulsar();

    std::function<void()> Click;

private:
    void Apagar();

    bool value_;
    std::string grupo_;
};

class CommandButton : public Control {
public:
    // What the picture of a button with a picture shows, beside its caption;
    // a renderer draws it with a picture of its own for that meaning.
    enum class Imagen { Ninguna, Configuracion, Documento, Equipo, Asistente };

    CommandButton(Dialogo& dialogo, std::string nombre, std::string caption);

    Imagen Dibujo() const { return dibujo_; }
    void Dibujo(Imagen value);

    // The button a key Enter presses, and the one Escape presses.
    bool Default() const { return default_; }
    void Default(bool value);
    bool Cancel() const { return cancel_; }
    void Cancel(bool value);

    // A person pressing it: Click runs when the button can be reached.
    bool Pulsar();

    std::function<void()> Click;

private:
    bool default_ = false;
    bool cancel_ = false;
    Imagen dibujo_ = Imagen::Ninguna;
};

// A frame: a caption around the controls placed in it.
class Frame : public Control {
public:
    Frame(Dialogo& dialogo, std::string nombre, std::string caption = "");
};

// A tab control: pages by caption, one selected; controls are placed on its
// pages. Selecting another page raises Click.
class TabControl : public Control {
public:
    TabControl(Dialogo& dialogo, std::string nombre, std::vector<std::string> paginas);

    const std::vector<std::string>& Paginas() const { return paginas_; }
    void AgregarPagina(const std::string& caption);
    int SelectedItem() const { return seleccionada_; }
    void SelectedItem(int index);
    // A page out of use stays in its place but a person cannot open it;
    // code may still select it.
    bool PaginaHabilitada(int index) const;
    void PaginaHabilitada(int index, bool value);
    bool ClickPagina(int index);

    std::function<void()> Click;

private:
    std::vector<std::string> paginas_;
    std::vector<int> fueraDeUso_;
    int seleccionada_ = 0;
};

class PictureBox : public Control {
public:
    PictureBox(Dialogo& dialogo, std::string nombre, std::string caption = "");

    const std::shared_ptr<host::Picture>& Picture() const { return picture_; }
    void Picture(std::shared_ptr<host::Picture> value);

private:
    std::shared_ptr<host::Picture> picture_;
};

class ProgressBar : public Control {
public:
    ProgressBar(Dialogo& dialogo, std::string nombre);

    int Min() const { return min_; }
    int Max() const { return max_; }
    // Sets both bounds; the value is brought inside them.
    void Limites(int min, int max);
    int Value() const { return value_; }
    // A value outside the bounds raises fault 380.
    void Value(int value);

private:
    int min_ = 0;
    int max_ = 100;
    int value_ = 0;
};

struct ColumnaGrid {
    std::string nombre;
    std::string caption;
    bool numerica = false;
};

// A read-only grid fed by an in-memory dataset: columns found by name without
// regard to case, rows appended and cleared.
class Grid : public Control {
public:
    Grid(Dialogo& dialogo, std::string nombre, std::vector<ColumnaGrid> columnas);

    const std::vector<ColumnaGrid>& Columnas() const { return columnas_; }
    // The column's index; an unknown name raises fault 9.
    int Columna(const std::string& nombre) const;
    int RowCount() const { return static_cast<int>(filas_.size()); }
    // Appends an empty row and gives its index.
    int Append();
    // A cell by column name. A text that can't be read as the number a
    // numeric column needs leaves the cell empty (Empty).
    void Valor(int fila, const std::string& columna, const Variant& valor);
    const Variant& Valor(int fila, const std::string& columna) const;
    const Variant& Celda(int fila, int columna) const;
    void Clear();

private:
    std::vector<ColumnaGrid> columnas_;
    std::vector<std::vector<Variant>> filas_;
};

// The host's address control. The street, exterior and interior numbers
// travel in one text that begins with "||": "||street|exterior|interior".
// It offers the countries, states and cities of the host's source of places
// (the catalogue's nvlands) and, where canadd* allows, adds new ones there.
class AddressControl : public Control {
public:
    AddressControl(Dialogo& dialogo, std::string nombre);

    const std::string& address() const { return address_; }
    void address(const std::string& value);
    const std::string& colony() const { return colony_; }
    void colony(const std::string& value);
    const std::string& phone() const { return phone_; }
    void phone(const std::string& value);
    const std::string& notes() const { return notes_; }
    void notes(const std::string& value);
    const std::string& codep() const { return codep_; }
    void codep(const std::string& value);
    // The city's Sys_PK, negative when none is chosen. Setting a city the
    // source knows also sets its country and state.
    std::int32_t ciudad() const { return ciudad_; }
    void ciudad(std::int32_t value);
    // The country's Sys_PK, below 1 when none is chosen. Setting it from code
    // changes the country alone.
    std::int32_t pais() const { return pais_; }
    void pais(std::int32_t value);
    // The state's Sys_PK, 0 when none is chosen.
    std::int32_t estado() const { return estado_; }
    const std::string& titulo() const { return titulo_; }
    void titulo(const std::string& value);
    bool direccionSeparada() const { return direccionSeparada_; }
    void direccionSeparada(bool value);
    bool canaddcountry = true;
    bool canaddstate = true;
    bool canaddcity = true;

    // The street and numbers apart, as a person enters them when
    // direccionSeparada is on; they make up `address`.
    std::string Calle() const;
    std::string NumeroExterior() const;
    std::string NumeroInterior() const;
    void Separada(const std::string& calle, const std::string& exterior, const std::string& interior);

    // Gives the control the host's source of places (the catalogue's
    // nvlands). Another object, or null, leaves it with no places to offer.
    void conectar(const std::shared_ptr<Object>& fuente);
    const std::shared_ptr<Object>& Fuente() const { return fuente_; }
    // Empties every field; no city, state or country.
    void limpiar();

    // What it offers now: every country, the states of the chosen country,
    // and the cities of the chosen state or, with none, of the chosen
    // country. A source that fails to read offers nothing.
    const std::vector<host::Lugar>& Paises() const { return paises_; }
    const std::vector<host::Lugar>& Estados() const { return estados_; }
    const std::vector<host::Lugar>& Ciudades() const { return ciudades_; }

    // A person choosing one of the places offered, by its position. A new
    // country lets go of the state and city; a new state lets go of the
    // city. False when the control can't be reached or there is no such
    // place.
    bool ElegirPais(int indice);
    bool ElegirEstado(int indice);
    bool ElegirCiudad(int indice);
    // A person adding a place and choosing it: a country; a state of the
    // chosen country; a city of the chosen state or country. False, with
    // nothing written, when canadd* forbids it, the control can't be
    // reached, the name is blank or there is no country to add it to. A
    // failure of the source is shown in a box and answers false.
    bool AgregarPais(const std::string& nombre);
    bool AgregarEstado(const std::string& nombre);
    bool AgregarCiudad(const std::string& nombre);

    std::function<void()> Change;

private:
    void Cambiado();
    // Reads again what the source offers for the present choice.
    void Releer();
    bool Agregar(bool permitido, const std::string& nombre, const std::string& que,
                 const std::function<std::int32_t(const std::string&)>& alta,
                 const std::function<void(std::int32_t)>& elegir);
    void ElegirPaisClave(std::int32_t clave);
    void ElegirEstadoClave(std::int32_t clave);

    std::string address_;
    std::string colony_;
    std::string phone_;
    std::string notes_;
    std::string codep_;
    std::int32_t ciudad_ = -1;
    std::int32_t pais_ = 0;
    std::int32_t estado_ = 0;
    std::string titulo_;
    bool direccionSeparada_ = false;
    std::shared_ptr<Object> fuente_;
    std::shared_ptr<host::FuenteLugares> lugares_;
    std::vector<host::Lugar> paises_;
    std::vector<host::Lugar> estados_;
    std::vector<host::Lugar> ciudades_;
};

// The common file dialog: no window of its own in the dialog; it shows the
// platform's open or save picker.
class CommonDialog : public Control {
public:
    CommonDialog(Dialogo& dialogo, std::string nombre);

    std::string FileName;
    std::string Filter;
    std::string DialogTitle;
    // The folder the picker opens in.
    std::string InitDir;
    // When set, a cancelled picker raises fault 32755.
    bool CancelError = false;

    void ShowOpen();
    void ShowSave();
};

}  // namespace celdora::forms
