#include "platform/console/DibujoConsola.h"

#include <algorithm>
#include <cmath>
#include <ostream>

#include "forms/Controles.h"
#include "value/Convert.h"
#include "value/Format.h"
#include "value/Text.h"

namespace celdora::platform::consola {

using forms::Control;
using forms::TipoControl;

namespace {

// Containers placed inside containers deeper than this are taken as a loop.
constexpr int kProfundidadMaxima = 16;
constexpr int kVecinos = 2;

bool Larga(const forms::ListaBase& lista) { return lista.ListCount() > kListaLarga; }

// "(42 de 66)" for a long list, nothing for a short one.
std::string Lugar(const forms::ListaBase& lista) {
    if (!Larga(lista)) return "";
    const std::string total = std::to_string(lista.ListCount());
    if (lista.ListIndex() < 0) return " (" + total + " elementos)";
    return " (" + std::to_string(lista.ListIndex() + 1) + " de " + total + ")";
}

std::string Sangria(int nivel) { return std::string(static_cast<std::size_t>(nivel) * 2, ' '); }

std::string Numero(std::size_t n) { return std::to_string(n); }

std::string Marca(bool elegido) { return elegido ? "> " : "  "; }

std::string Casilla(bool marcada) { return marcada ? "[x]" : "[ ]"; }

std::string Cantidad(std::size_t n, const char* una, const char* varias) {
    return n == 1 ? "1 " + std::string(una) : Numero(n) + " " + varias;
}

// A caption used as the label of a field, without the colon that usually
// closes it.
std::string Etiqueta(const std::string& caption) {
    std::string etiqueta = Trim(SinAcceso(caption));
    // The value follows a colon of its own: a caption's closing colon or
    // full stop (not an ellipsis) would stand before it.
    const bool punto = etiqueta.size() >= 2 && etiqueta.back() == '.' && etiqueta[etiqueta.size() - 2] != '.';
    if (!etiqueta.empty() && (etiqueta.back() == ':' || punto)) etiqueta.pop_back();
    return etiqueta;
}

// A text on one line: line breaks read "\n", as they are typed.
std::string EnUnaLinea(const std::string& texto) { return Replace(Replace(texto, "\r\n", "\n"), "\n", "\\n"); }

std::string Entrecomillado(const std::string& texto) { return "\"" + EnUnaLinea(texto) + "\""; }

// Columns padded to their widest cell, counted in characters; each row
// behind its selection mark.
struct Tabla {
    std::vector<std::string> cabecera;
    std::vector<bool> aLaDerecha;
    std::vector<std::vector<std::string>> filas;
    std::vector<bool> elegidas;
};

std::string Rellenar(const std::string& texto, std::size_t ancho, bool aLaDerecha) {
    const std::size_t largo = Len(texto);
    const std::string relleno(ancho > largo ? ancho - largo : 0, ' ');
    return aLaDerecha ? relleno + texto : texto + relleno;
}

std::string Renglon(const std::vector<std::string>& celdas, const Tabla& tabla, const std::vector<std::size_t>& anchos) {
    std::string renglon;
    for (std::size_t i = 0; i < anchos.size(); ++i) {
        if (i > 0) renglon += "  ";
        renglon += Rellenar(i < celdas.size() ? celdas[i] : "", anchos[i], tabla.aLaDerecha[i]);
    }
    return RTrim(renglon);
}

std::vector<std::string> Renglones(const Tabla& tabla) {
    std::vector<std::size_t> anchos(tabla.cabecera.size(), 0);
    for (std::size_t i = 0; i < anchos.size(); ++i) anchos[i] = Len(tabla.cabecera[i]);
    for (const auto& fila : tabla.filas) {
        for (std::size_t i = 0; i < fila.size() && i < anchos.size(); ++i) anchos[i] = std::max(anchos[i], Len(fila[i]));
    }
    std::vector<std::string> renglones;
    renglones.push_back(RTrim("  " + Renglon(tabla.cabecera, tabla, anchos)));
    for (std::size_t f = 0; f < tabla.filas.size(); ++f) {
        renglones.push_back(Marca(tabla.elegidas[f]) + Renglon(tabla.filas[f], tabla, anchos));
    }
    return renglones;
}

// --- Values, one kind each -------------------------------------------------

std::string ValorTexto(const forms::TextBox& texto) {
    if (texto.PasswordChar().empty()) return Entrecomillado(texto.Text());
    std::string oculto;
    for (std::size_t i = 0; i < Len(texto.Text()); ++i) oculto += texto.PasswordChar();
    return oculto;
}

std::string ValorCombo(const forms::ComboBox& combo) {
    if (combo.Style() == forms::ComboBox::Estilo::Editable) return Entrecomillado(combo.Text()) + Lugar(combo);
    return (combo.ListIndex() < 0 ? "(nada elegido)" : combo.Text()) + Lugar(combo);
}

std::string ValorCasilla(const forms::CheckBox& casilla) {
    const char* marca = casilla.Value() == 1 ? "[x] " : casilla.Value() == 2 ? "[-] " : "[ ] ";
    return marca + SinAcceso(casilla.Caption());
}

// A button without a caption is known by the key that presses it, as its
// picture tells in a window: a cross closes, a tick accepts.
std::string ValorBoton(const forms::CommandButton& boton) {
    std::string texto = SinAcceso(boton.Caption());
    if (texto.empty()) texto = boton.Cancel() ? "×" : boton.Default() ? "✓" : "";
    std::string valor = "[" + texto + "]";
    if (boton.Default()) valor += " (Intro)";
    if (boton.Cancel()) valor += " (Esc)";
    return valor;
}

std::string ValorPestanas(const forms::TabControl& pestanas) {
    std::string valor;
    for (std::size_t i = 0; i < pestanas.Paginas().size(); ++i) {
        if (i > 0) valor += " | ";
        if (static_cast<int>(i) == pestanas.SelectedItem()) valor += ">";
        valor += Numero(i + 1) + " " + SinAcceso(pestanas.Paginas()[i]);
        if (!pestanas.PaginaHabilitada(static_cast<int>(i))) valor += " (no disponible)";
    }
    return valor;
}

std::string ValorImagen(const forms::PictureBox& imagen) {
    if (!imagen.Picture()) return "(sin imagen)";
    const std::string formato = imagen.Picture()->Formato();
    return (formato.empty() ? "imagen" : formato) + ", " + Numero(imagen.Picture()->Datos().size()) + " bytes";
}

std::string ValorBarra(const forms::ProgressBar& barra) {
    const int porcentaje = Porcentaje(barra);
    const auto llenas = static_cast<std::size_t>(porcentaje / 10);
    return "[" + std::string(llenas, '=') + std::string(10 - llenas, ' ') + "] " + std::to_string(porcentaje) +
           "% (" + std::to_string(barra.Value()) + " en " + std::to_string(barra.Min()) + ".." +
           std::to_string(barra.Max()) + ")";
}

std::string ValorLista(const forms::ListBox& lista) {
    const std::string cantidad = Cantidad(static_cast<std::size_t>(lista.ListCount()), "elemento", "elementos");
    if (lista.ListIndex() < 0) return cantidad;
    return cantidad + ", elegido " + Numero(static_cast<std::size_t>(lista.ListIndex()) + 1);
}

// The name of the chosen place among those offered; its key when it is not
// offered, ninguno when none is chosen.
std::string NombreLugar(const std::vector<host::Lugar>& lugares, std::int32_t elegido, const char* ninguno) {
    if (elegido < 1) return ninguno;
    for (const host::Lugar& lugar : lugares) {
        if (lugar.Sys_PK == elegido) return lugar.Nombre;
    }
    return std::to_string(elegido);
}

std::string NombreLugar(const forms::AddressControl& direccion) {
    return NombreLugar(direccion.Ciudades(), direccion.ciudad(), "(ninguna)");
}

// The places of one level on one line, numbered, the chosen one marked.
std::string FilaLugares(const char* nivel, const std::vector<host::Lugar>& lugares, std::int32_t elegido) {
    std::string fila = nivel;
    for (std::size_t i = 0; i < lugares.size(); ++i) {
        fila += (i == 0 ? " " : " | ") + std::string(lugares[i].Sys_PK == elegido ? ">" : "") + Numero(i + 1) +
                " " + lugares[i].Nombre;
    }
    return lugares.empty() ? fila + " (ninguno)" : fila;
}

std::string ValorDireccion(const forms::AddressControl& direccion) {
    std::string calle = direccion.Calle();
    if (!direccion.NumeroExterior().empty()) calle += " " + direccion.NumeroExterior();
    if (!direccion.NumeroInterior().empty()) calle += " int. " + direccion.NumeroInterior();
    return Trim(calle).empty() ? "(sin domicilio)" : Trim(calle) + ", " + NombreLugar(direccion);
}

// --- Rows, one kind each ---------------------------------------------------

// The items, numbered from 1; conCasillas is the list box when its items
// carry check boxes. Of a long list, unless entera, the chosen item (or the
// first) and its neighbours, and a line that says how to see the rest.
std::vector<std::string> FilasLista(const forms::ListaBase& lista, const forms::ListBox* conCasillas, bool entera) {
    int desde = 0;
    int hasta = lista.ListCount();
    if (!entera && Larga(lista)) {
        desde = std::clamp(lista.ListIndex() - kVecinos, 0, hasta - (2 * kVecinos + 1));
        hasta = desde + 2 * kVecinos + 1;
    }
    std::vector<std::string> filas;
    for (int i = desde; i < hasta; ++i) {
        std::string fila = Marca(i == lista.ListIndex()) + Numero(static_cast<std::size_t>(i) + 1) + "  ";
        if (conCasillas != nullptr) fila += Casilla(conCasillas->Selected(i)) + " ";
        filas.push_back(fila + lista.List(i));
    }
    if (hasta - desde < lista.ListCount()) filas.push_back("  ... ver " + lista.Nombre() + " los muestra todos");
    return filas;
}

std::vector<std::string> FilasVista(const forms::ListView& vista) {
    if (vista.Count() == 0) return {};
    std::size_t columnas = std::max<std::size_t>(vista.Columnas().size(), 1);
    for (int i = 0; i < vista.Count(); ++i) columnas = std::max(columnas, vista.Item(i).subItems.size() + 1);

    Tabla tabla;
    tabla.cabecera.push_back("#");
    tabla.aLaDerecha.push_back(true);
    if (vista.Checkboxes()) {
        tabla.cabecera.push_back("");
        tabla.aLaDerecha.push_back(false);
    }
    for (std::size_t c = 0; c < columnas; ++c) {
        tabla.cabecera.push_back(c < vista.Columnas().size() ? vista.Columnas()[c].text : "");
        tabla.aLaDerecha.push_back(false);
    }
    for (int i = 0; i < vista.Count(); ++i) {
        const forms::ItemVista& item = vista.Item(i);
        std::vector<std::string> celdas{Numero(static_cast<std::size_t>(i) + 1)};
        if (vista.Checkboxes()) celdas.push_back(Casilla(item.checked));
        celdas.push_back(item.text);
        celdas.insert(celdas.end(), item.subItems.begin(), item.subItems.end());
        tabla.filas.push_back(celdas);
        tabla.elegidas.push_back(i == vista.SelectedItem());
    }
    return Renglones(tabla);
}

// Numbers of a numeric column read with two decimals and thousands
// separators when any of them has cents; whole numbers (folios, counts)
// read as they are.
std::string FormatoNumerico(const forms::Grid& grid, int columna) {
    for (int f = 0; f < grid.RowCount(); ++f) {
        const Variant& celda = grid.Celda(f, columna);
        if (celda.IsNumeric() && CDbl(celda) != std::floor(CDbl(celda))) return "#,##0.00";
    }
    return "0";
}

std::string TextoCelda(const Variant& celda, const std::string& formato) {
    if (celda.IsNull() || celda.IsEmpty()) return "";
    return EnUnaLinea(formato.empty() ? CStr(celda) : Format(celda, formato));
}

std::vector<std::string> FilasGrid(const forms::Grid& grid) {
    Tabla tabla;
    tabla.cabecera.push_back("#");
    tabla.aLaDerecha.push_back(true);
    std::vector<std::string> formatos;
    for (std::size_t c = 0; c < grid.Columnas().size(); ++c) {
        const forms::ColumnaGrid& columna = grid.Columnas()[c];
        tabla.cabecera.push_back(columna.caption.empty() ? columna.nombre : columna.caption);
        tabla.aLaDerecha.push_back(columna.numerica);
        formatos.push_back(columna.numerica ? FormatoNumerico(grid, static_cast<int>(c)) : "");
    }
    for (int f = 0; f < grid.RowCount(); ++f) {
        std::vector<std::string> celdas{Numero(static_cast<std::size_t>(f) + 1)};
        for (std::size_t c = 0; c < formatos.size(); ++c) {
            celdas.push_back(TextoCelda(grid.Celda(f, static_cast<int>(c)), formatos[c]));
        }
        tabla.filas.push_back(celdas);
        tabla.elegidas.push_back(false);
    }
    return Renglones(tabla);
}

std::vector<std::string> FilasDireccion(const forms::AddressControl& direccion) {
    std::vector<std::string> filas;
    if (direccion.direccionSeparada() || direccion.address().rfind("||", 0) == 0) {
        filas.push_back("calle: " + direccion.Calle() + "  exterior: " + direccion.NumeroExterior() +
                        "  interior: " + direccion.NumeroInterior());
    } else {
        filas.push_back("dirección: " + direccion.address());
    }
    filas.push_back(
        RTrim("colonia: " + direccion.colony() + "  cp: " + direccion.codep() + "  teléfono: " + direccion.phone()));
    if (!direccion.notes().empty()) filas.push_back("notas: " + EnUnaLinea(direccion.notes()));
    filas.push_back("país: " + NombreLugar(direccion.Paises(), direccion.pais(), "(ninguno)") +
                    "  estado: " + NombreLugar(direccion.Estados(), direccion.estado(), "(ninguno)") +
                    "  ciudad: " + NombreLugar(direccion));
    if (!direccion.Fuente()) return filas;
    filas.push_back(FilaLugares("países:", direccion.Paises(), direccion.pais()));
    if (direccion.pais() < 1) return filas;
    filas.push_back(FilaLugares("estados:", direccion.Estados(), direccion.estado()));
    filas.push_back(FilaLugares("ciudades:", direccion.Ciudades(), direccion.ciudad()));
    return filas;
}

// Kinds whose caption is part of their value rather than a label beside it.
bool CaptionEnElValor(TipoControl tipo) {
    switch (tipo) {
        case TipoControl::Label:
        case TipoControl::CheckBox:
        case TipoControl::OptionButton:
        case TipoControl::CommandButton:
        case TipoControl::Frame: return true;
        default: return false;
    }
}

void DibujarEn(const Control& control, std::ostream& out, int nivel, bool entero) {
    if (!Mostrado(control) || nivel > kProfundidadMaxima) return;
    out << Sangria(nivel) << Cabecera(control) << '\n';
    for (const std::string& fila : Filas(control, entero)) out << Sangria(nivel + 2) << fila << '\n';
    for (const Control* hijo : Hijos(control)) DibujarEn(*hijo, out, nivel + 1, entero);
}

}  // namespace

std::string NombreTipo(TipoControl tipo) {
    switch (tipo) {
        case TipoControl::Label: return "etiqueta";
        case TipoControl::TextBox: return "texto";
        case TipoControl::Memo: return "memo";
        case TipoControl::NumberField: return "número";
        case TipoControl::DateField: return "fecha";
        case TipoControl::ComboBox: return "combo";
        case TipoControl::ListBox: return "lista";
        case TipoControl::ListView: return "vista";
        case TipoControl::CheckBox: return "casilla";
        case TipoControl::OptionButton: return "opción";
        case TipoControl::CommandButton: return "botón";
        case TipoControl::Frame: return "marco";
        case TipoControl::TabControl: return "pestañas";
        case TipoControl::PictureBox: return "imagen";
        case TipoControl::ProgressBar: return "barra";
        case TipoControl::Grid: return "tabla";
        case TipoControl::AddressControl: return "dirección";
        case TipoControl::CommonDialog: return "selector de archivos";
    }
    return "control";
}

std::string SinAcceso(const std::string& caption) {
    std::string texto;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] != '&') {
            texto += caption[i];
        } else if (i + 1 < caption.size() && caption[i + 1] == '&') {
            texto += '&';
            ++i;
        }
    }
    return texto;
}

bool Mostrado(const Control& control) {
    const Control* actual = &control;
    for (int profundidad = 0; profundidad < kProfundidadMaxima; ++profundidad) {
        if (!actual->Visible()) return false;
        if (actual->Contenedor().empty()) return true;
        const Control* contenedor = actual->Padre().Buscar(actual->Contenedor());
        if (contenedor == nullptr || contenedor == actual) return true;
        const auto* pestanas = dynamic_cast<const forms::TabControl*>(contenedor);
        if (pestanas != nullptr && pestanas->SelectedItem() != actual->Pagina()) return false;
        actual = contenedor;
    }
    return false;
}

std::vector<Control*> Hijos(const Control& contenedor) {
    std::vector<Control*> hijos;
    for (const auto& control : contenedor.Padre().Controles()) {
        if (control.get() != &contenedor && EqualText(control->Contenedor(), contenedor.Nombre())) {
            hijos.push_back(control.get());
        }
    }
    return hijos;
}

bool EsContenedor(const Control& control) { return !Hijos(control).empty(); }

bool SoloLectura(const Control& control) {
    if (const auto* texto = dynamic_cast<const forms::TextBox*>(&control)) return texto->Locked();
    if (const auto* numero = dynamic_cast<const forms::NumberField*>(&control)) return numero->Locked();
    if (const auto* fecha = dynamic_cast<const forms::DateField*>(&control)) return fecha->Locked();
    if (const auto* combo = dynamic_cast<const forms::ComboBox*>(&control)) return combo->Locked();
    return false;
}

std::string Valor(const Control& control) {
    switch (control.Tipo()) {
        case TipoControl::Label:
        case TipoControl::Frame: return EnUnaLinea(SinAcceso(control.Caption()));
        case TipoControl::TextBox:
        case TipoControl::Memo: return ValorTexto(dynamic_cast<const forms::TextBox&>(control));
        case TipoControl::NumberField: return dynamic_cast<const forms::NumberField&>(control).TextoMostrado();
        case TipoControl::DateField:
            return Format(Variant(dynamic_cast<const forms::DateField&>(control).Value()), "dd/mm/yyyy");
        case TipoControl::ComboBox: return ValorCombo(dynamic_cast<const forms::ComboBox&>(control));
        case TipoControl::ListBox: return ValorLista(dynamic_cast<const forms::ListBox&>(control));
        case TipoControl::ListView: {
            const auto& vista = dynamic_cast<const forms::ListView&>(control);
            return vista.Count() == 0 ? "vacía" : Cantidad(static_cast<std::size_t>(vista.Count()), "fila", "filas");
        }
        case TipoControl::CheckBox: return ValorCasilla(dynamic_cast<const forms::CheckBox&>(control));
        case TipoControl::OptionButton:
            return (dynamic_cast<const forms::OptionButton&>(control).Value() ? "(o) " : "( ) ") +
                   SinAcceso(control.Caption());
        case TipoControl::CommandButton: return ValorBoton(dynamic_cast<const forms::CommandButton&>(control));
        case TipoControl::TabControl: return ValorPestanas(dynamic_cast<const forms::TabControl&>(control));
        case TipoControl::PictureBox: return ValorImagen(dynamic_cast<const forms::PictureBox&>(control));
        case TipoControl::ProgressBar: return ValorBarra(dynamic_cast<const forms::ProgressBar&>(control));
        case TipoControl::Grid: {
            const auto& grid = dynamic_cast<const forms::Grid&>(control);
            return grid.RowCount() == 0 ? "vacía" : Cantidad(static_cast<std::size_t>(grid.RowCount()), "fila", "filas");
        }
        case TipoControl::AddressControl: return ValorDireccion(dynamic_cast<const forms::AddressControl&>(control));
        case TipoControl::CommonDialog: break;
    }
    return "";
}

std::string Cabecera(const Control& control) {
    std::string cabecera = control.Nombre() + " (" + NombreTipo(control.Tipo()) + ")";
    std::string etiqueta = CaptionEnElValor(control.Tipo()) ? "" : Etiqueta(control.Caption());
    if (etiqueta.empty() && control.Tipo() == TipoControl::AddressControl) {
        etiqueta = Etiqueta(dynamic_cast<const forms::AddressControl&>(control).titulo());
    }
    if (!etiqueta.empty()) cabecera += " " + etiqueta;
    cabecera = RTrim(cabecera + ": " + Valor(control));
    if (!control.Enabled()) cabecera += " (inhabilitado)";
    if (SoloLectura(control)) cabecera += " (solo lectura)";
    return cabecera;
}

int Porcentaje(const forms::ProgressBar& barra) {
    const long recorrido = static_cast<long>(barra.Max()) - barra.Min();
    const long avance = static_cast<long>(barra.Value()) - barra.Min();
    return recorrido > 0 ? static_cast<int>(std::clamp(avance * 100 / recorrido, 0L, 100L)) : 0;
}

std::vector<std::string> Filas(const Control& control, bool entero) {
    switch (control.Tipo()) {
        case TipoControl::ComboBox: return FilasLista(dynamic_cast<const forms::ListaBase&>(control), nullptr, entero);
        case TipoControl::ListBox: {
            const auto& lista = dynamic_cast<const forms::ListBox&>(control);
            return FilasLista(lista, lista.Casillas() ? &lista : nullptr, entero);
        }
        case TipoControl::ListView: return FilasVista(dynamic_cast<const forms::ListView&>(control));
        case TipoControl::Grid: return FilasGrid(dynamic_cast<const forms::Grid&>(control));
        case TipoControl::AddressControl: return FilasDireccion(dynamic_cast<const forms::AddressControl&>(control));
        default: return {};
    }
}

void DibujarDialogo(const forms::Dialogo& dialogo, std::ostream& out) {
    out << "== " << dialogo.Caption() << " ==\n";
    for (const auto& control : dialogo.Controles()) {
        const Control* contenedor = control->Contenedor().empty() ? nullptr : dialogo.Buscar(control->Contenedor());
        if (contenedor == nullptr || contenedor == control.get()) DibujarEn(*control, out, 1, false);
    }
}

void DibujarControl(const Control& control, std::ostream& out, int nivel, bool entero) {
    DibujarEn(control, out, nivel, entero);
}

}  // namespace celdora::platform::consola
