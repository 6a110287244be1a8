#include "platform/console/OrdenesConsola.h"

#include <optional>
#include <ostream>
#include <utility>
#include <vector>

#include "forms/Controles.h"
#include "platform/console/DibujoConsola.h"
#include "value/Convert.h"
#include "value/Fault.h"
#include "value/Text.h"

namespace celdora::platform::consola {

using forms::Control;
using forms::TipoControl;

namespace {

// A typed line: the order's word, the control's name and the rest as typed.
struct Linea {
    std::string orden;
    std::string control;
    std::string resto;
};

struct Contexto {
    forms::Dialogo& dialogo;
    std::ostream& out;
    const char* uso = "";
    Pedido pedido = Pedido::Nada;
};

// The first word of a text and what follows it, without the blanks between.
std::pair<std::string, std::string> PrimeraPalabra(const std::string& texto) {
    const std::string limpio = LTrim(texto);
    const std::size_t blanco = limpio.find(' ');
    if (blanco == std::string::npos) return {limpio, ""};
    return {limpio.substr(0, blanco), LTrim(limpio.substr(blanco + 1))};
}

Linea Partir(const std::string& texto) {
    auto [orden, despues] = PrimeraPalabra(texto);
    auto [control, resto] = PrimeraPalabra(despues);
    return {LCase(orden), control, resto};
}

std::string Q(const std::string& texto) { return "«" + texto + "»"; }

void Falla(Contexto& c, const std::string& texto) { c.out << "Error: " << texto << '\n'; }

// --- Finding what the person means -----------------------------------------

// Whether a person can act on the control now; says why not.
bool Alcanzable(Contexto& c, const Control& control) {
    if (!Mostrado(control)) {
        Falla(c, Q(control.Nombre()) + " no se ve ahora (está oculto o en otra página).");
        return false;
    }
    if (!control.Accesible()) {
        Falla(c, Q(control.Nombre()) + " está inhabilitado.");
        return false;
    }
    return true;
}

Control* Alcanzar(Contexto& c, const Linea& linea) {
    if (linea.control.empty()) {
        Falla(c, "falta el nombre del control: " + std::string(c.uso) + ".");
        return nullptr;
    }
    Control* control = c.dialogo.Buscar(linea.control);
    if (control == nullptr) {
        Falla(c, "no hay ningún control " + Q(linea.control) + " en " + Q(c.dialogo.Caption()) +
                     "; ver muestra los controles con su nombre.");
        return nullptr;
    }
    return Alcanzable(c, *control) ? control : nullptr;
}

// Gives the control the focus as a click would; false when a handler of
// the focus closed the dialog meanwhile.
bool Enfocar(Contexto& c, Control& control) {
    control.SetFocus();
    return c.dialogo.Visible();
}

bool EsNumero(const std::string& texto) {
    if (texto.empty() || texto.size() > 6) return false;
    for (char caracter : texto) {
        if (caracter < '0' || caracter > '9') return false;
    }
    return true;
}

// The index (from 0) of the element a person named by its number (from 1)
// or by its text.
std::optional<int> Indice(Contexto& c, const Control& control, const std::string& argumento,
                          const std::vector<std::string>& textos) {
    const std::string nombrado = SinComillas(Trim(argumento));
    const int cuantos = static_cast<int>(textos.size());
    if (nombrado.empty() && cuantos > 0) {
        Falla(c, "falta el número del elemento de " + Q(control.Nombre()) + " (de 1 a " + std::to_string(cuantos) +
                     ", o su texto).");
        return std::nullopt;
    }
    if (EsNumero(nombrado)) {
        const int numero = std::stoi(nombrado);
        if (numero >= 1 && numero <= cuantos) return numero - 1;
    }
    for (int i = 0; i < cuantos; ++i) {
        if (EqualText(textos[static_cast<std::size_t>(i)], nombrado)) return i;
    }
    if (cuantos == 0) {
        Falla(c, Q(control.Nombre()) + " no tiene elementos.");
    } else {
        const std::string todos = cuantos > kListaLarga ? "; ver " + control.Nombre() + " los muestra todos" : "";
        Falla(c, Q(control.Nombre()) + " no tiene el elemento " + Q(nombrado) + " (elija de 1 a " +
                     std::to_string(cuantos) + ", o su texto" + todos + ").");
    }
    return std::nullopt;
}

std::vector<std::string> TextosLista(const forms::ListaBase& lista) {
    std::vector<std::string> textos;
    for (const forms::ItemLista& item : lista.Items()) textos.push_back(item.text);
    return textos;
}

std::vector<std::string> TextosVista(const forms::ListView& vista) {
    std::vector<std::string> textos;
    for (int i = 0; i < vista.Count(); ++i) textos.push_back(vista.Item(i).text);
    return textos;
}

std::vector<std::string> TextosPaginas(const forms::TabControl& pestanas) {
    std::vector<std::string> textos;
    for (const std::string& pagina : pestanas.Paginas()) textos.push_back(SinAcceso(pagina));
    return textos;
}

std::vector<std::string> TextosLugares(const std::vector<host::Lugar>& lugares) {
    std::vector<std::string> textos;
    for (const host::Lugar& lugar : lugares) textos.push_back(lugar.Nombre);
    return textos;
}

// One level of places of an address control, as a person names it.
struct NivelLugar {
    std::vector<std::string> palabras;
    const std::vector<host::Lugar>& (forms::AddressControl::*lugares)() const;
    bool (forms::AddressControl::*elegir)(int);
    bool (forms::AddressControl::*agregar)(const std::string&);
    bool forms::AddressControl::*permitido;
    const char* cual;
};

const std::vector<NivelLugar>& NivelesLugar() {
    using D = forms::AddressControl;
    static const std::vector<NivelLugar> niveles{
        {{"pais", "país"}, &D::Paises, &D::ElegirPais, &D::AgregarPais, &D::canaddcountry, "países"},
        {{"estado"}, &D::Estados, &D::ElegirEstado, &D::AgregarEstado, &D::canaddstate, "estados"},
        {{"ciudad"}, &D::Ciudades, &D::ElegirCiudad, &D::AgregarCiudad, &D::canaddcity, "ciudades"},
    };
    return niveles;
}

// The level that the first word of the text names, with the rest; without
// one, the city and the whole text.
std::pair<const NivelLugar*, std::string> SepararNivel(const std::string& texto) {
    const auto [palabra, resto] = PrimeraPalabra(texto);
    for (const NivelLugar& nivel : NivelesLugar()) {
        for (const std::string& nombre : nivel.palabras) {
            if (LCase(palabra) == nombre) return {&nivel, resto};
        }
    }
    return {&NivelesLugar().back(), texto};
}

// An element and, at the end, "si" or "no": "2 si" gives "2" and true.
std::pair<std::string, std::optional<bool>> SepararSiNo(const std::string& texto) {
    const std::string limpio = Trim(texto);
    const std::size_t blanco = limpio.rfind(' ');
    const std::string ultima = LCase(blanco == std::string::npos ? limpio : limpio.substr(blanco + 1));
    const std::string antes = blanco == std::string::npos ? "" : Trim(limpio.substr(0, blanco));
    if (ultima == "si" || ultima == "sí" || ultima == "s") return {antes, true};
    if (ultima == "no" || ultima == "n") return {antes, false};
    return {limpio, std::nullopt};
}

// --- escribir ----------------------------------------------------------------

void EscribirTexto(Contexto& c, Control& control, const std::string& tecleado) {
    auto& texto = dynamic_cast<forms::TextBox&>(control);
    // In a memo "\n" stands for the Enter key.
    const std::string escrito = texto.Tipo() == TipoControl::Memo ? Replace(tecleado, "\\n", "\r\n") : tecleado;
    if (!texto.Escribir(escrito)) Falla(c, Q(texto.Nombre()) + " no admite escribir.");
}

void EscribirCombo(Contexto& c, Control& control, const std::string& tecleado) {
    if (!dynamic_cast<forms::ComboBox&>(control).Escribir(tecleado)) Falla(c, Q(control.Nombre()) + " no admite escribir.");
}

void EscribirNumero(Contexto& c, Control& control, const std::string& tecleado) {
    auto& numero = dynamic_cast<forms::NumberField&>(control);
    std::string queda;
    for (std::size_t i = 1; i <= Len(tecleado); ++i) {
        const int codigo = KeyCodeFromChar(Mid(tecleado, i, 1));
        const int tecla = codigo == 0 ? 0 : numero.Tecla(codigo);
        if (tecla != 0) queda += CharFromKeyCode(tecla);
    }
    queda = Trim(queda);
    if (!queda.empty() && !IsNumericText(queda)) {
        Falla(c, Q(queda) + " no es un número.");
        return;
    }
    const double valor = queda.empty() ? 0.0 : CDbl(queda);
    if (valor < numero.Min() || valor > numero.Max()) {
        Falla(c, Q(numero.Nombre()) + " admite de " + CStr(numero.Min()) + " a " + CStr(numero.Max()) + ".");
        return;
    }
    numero.Value(valor);
}

void EscribirFecha(Contexto& c, Control& control, const std::string& tecleado) {
    std::optional<Date> leida;
    try {
        leida = CDate(Variant(Trim(tecleado)));
    } catch (const Fault&) {
        Falla(c, Q(tecleado) + " no es una fecha (dd/mm/aaaa).");
        return;
    }
    dynamic_cast<forms::DateField&>(control).Value(*leida);
}

struct CampoDireccion {
    std::vector<std::string> palabras;
    void (*escribir)(forms::AddressControl&, const std::string&);
};

const std::vector<CampoDireccion>& CamposDireccion() {
    using forms::AddressControl;
    static const std::vector<CampoDireccion> campos{
        {{"calle"}, [](AddressControl& d, const std::string& t) { d.Separada(t, d.NumeroExterior(), d.NumeroInterior()); }},
        {{"exterior"}, [](AddressControl& d, const std::string& t) { d.Separada(d.Calle(), t, d.NumeroInterior()); }},
        {{"interior"}, [](AddressControl& d, const std::string& t) { d.Separada(d.Calle(), d.NumeroExterior(), t); }},
        {{"direccion", "dirección"}, [](AddressControl& d, const std::string& t) { d.address(t); }},
        {{"colonia"}, [](AddressControl& d, const std::string& t) { d.colony(t); }},
        {{"cp"}, [](AddressControl& d, const std::string& t) { d.codep(t); }},
        {{"telefono", "teléfono"}, [](AddressControl& d, const std::string& t) { d.phone(t); }},
        {{"notas"}, [](AddressControl& d, const std::string& t) { d.notes(t); }},
    };
    return campos;
}

void EscribirDireccion(Contexto& c, Control& control, const std::string& tecleado) {
    auto& direccion = dynamic_cast<forms::AddressControl&>(control);
    const auto [campo, texto] = PrimeraPalabra(tecleado);
    for (const CampoDireccion& conocido : CamposDireccion()) {
        for (const std::string& palabra : conocido.palabras) {
            if (LCase(campo) == palabra) {
                conocido.escribir(direccion, SinComillas(texto));
                return;
            }
        }
    }
    Falla(c, "en " + Q(direccion.Nombre()) +
                 " se escribe: calle, exterior, interior, direccion, colonia, cp, telefono o notas y el texto.");
}

using Escritor = void (*)(Contexto&, Control&, const std::string&);

// How text is typed into a control of this kind; null when it takes none.
Escritor EscritorDe(const Control& control) {
    switch (control.Tipo()) {
        case TipoControl::TextBox:
        case TipoControl::Memo: return EscribirTexto;
        case TipoControl::ComboBox:
            if (dynamic_cast<const forms::ComboBox&>(control).Style() == forms::ComboBox::Estilo::Editable) {
                return EscribirCombo;
            }
            return nullptr;
        case TipoControl::NumberField: return EscribirNumero;
        case TipoControl::DateField: return EscribirFecha;
        case TipoControl::AddressControl: return EscribirDireccion;
        default: return nullptr;
    }
}

void Escribir(Contexto& c, const Linea& linea) {
    Control* control = Alcanzar(c, linea);
    if (control == nullptr) return;
    const Escritor escritor = EscritorDe(*control);
    if (escritor == nullptr) {
        const bool combo = control->Tipo() == TipoControl::ComboBox;
        Falla(c, Q(control->Nombre()) + " (" + NombreTipo(control->Tipo()) + ") no admite escribir" +
                     (combo ? "; elija de su lista: elegir " + control->Nombre() + " N." : "."));
        return;
    }
    if (SoloLectura(*control)) {
        Falla(c, Q(control->Nombre()) + " es de solo lectura.");
        return;
    }
    // An address reads its field's word before the text.
    const bool direccion = control->Tipo() == TipoControl::AddressControl;
    if (Enfocar(c, *control)) escritor(c, *control, direccion ? linea.resto : SinComillas(linea.resto));
}

// --- elegir, pagina, doble -------------------------------------------------

void ElegirPagina(Contexto& c, forms::TabControl& pestanas, const std::string& argumento) {
    const auto indice = Indice(c, pestanas, argumento, TextosPaginas(pestanas));
    if (!indice) return;
    if (!pestanas.PaginaHabilitada(*indice)) {
        Falla(c, "la página " + Q(TextosPaginas(pestanas)[static_cast<std::size_t>(*indice)]) + " de " +
                     Q(pestanas.Nombre()) + " no está disponible ahora.");
        return;
    }
    if (!pestanas.ClickPagina(*indice)) Falla(c, Q(pestanas.Nombre()) + " no cambió de página.");
}

void ElegirEn(Contexto& c, Control& control, const std::string& argumento) {
    switch (control.Tipo()) {
        case TipoControl::ComboBox:
        case TipoControl::ListBox: {
            auto& lista = dynamic_cast<forms::ListaBase&>(control);
            const auto indice = Indice(c, lista, argumento, TextosLista(lista));
            if (indice && Enfocar(c, lista)) lista.ListIndex(*indice);
            return;
        }
        case TipoControl::ListView: {
            auto& vista = dynamic_cast<forms::ListView&>(control);
            const auto indice = Indice(c, vista, argumento, TextosVista(vista));
            if (indice && Enfocar(c, vista)) vista.ClickItem(*indice);
            return;
        }
        case TipoControl::TabControl: ElegirPagina(c, dynamic_cast<forms::TabControl&>(control), argumento); return;
        case TipoControl::AddressControl: {
            auto& direccion = dynamic_cast<forms::AddressControl&>(control);
            const auto [nivel, lugar] = SepararNivel(argumento);
            const auto indice = Indice(c, direccion, lugar, TextosLugares((direccion.*nivel->lugares)()));
            if (indice && Enfocar(c, direccion)) (direccion.*nivel->elegir)(*indice);
            return;
        }
        default: Falla(c, Q(control.Nombre()) + " (" + NombreTipo(control.Tipo()) + ") no tiene elementos que elegir.");
    }
}

void Elegir(Contexto& c, const Linea& linea) {
    Control* control = Alcanzar(c, linea);
    if (control == nullptr) return;
    if (SoloLectura(*control)) {
        Falla(c, Q(control->Nombre()) + " es de solo lectura.");
        return;
    }
    ElegirEn(c, *control, linea.resto);
}

void Pagina(Contexto& c, const Linea& linea) {
    Control* control = Alcanzar(c, linea);
    if (control == nullptr) return;
    auto* pestanas = dynamic_cast<forms::TabControl*>(control);
    if (pestanas == nullptr) {
        Falla(c, Q(control->Nombre()) + " no tiene páginas.");
        return;
    }
    ElegirPagina(c, *pestanas, linea.resto);
}

void Doble(Contexto& c, const Linea& linea) {
    Control* control = Alcanzar(c, linea);
    if (control == nullptr) return;
    if (auto* lista = dynamic_cast<forms::ListBox*>(control)) {
        const auto indice = Indice(c, *lista, linea.resto, TextosLista(*lista));
        if (!indice || !Enfocar(c, *lista)) return;
        // The first click selects the entry, the second opens it.
        lista->ListIndex(*indice);
        if (c.dialogo.Visible() && lista->DblClick) lista->DblClick();
        return;
    }
    auto* vista = dynamic_cast<forms::ListView*>(control);
    if (vista == nullptr) {
        Falla(c, "el doble clic es para las filas de una vista o las entradas de una lista; " +
                     Q(control->Nombre()) + " no lo es.");
        return;
    }
    const auto indice = Indice(c, *vista, linea.resto, TextosVista(*vista));
    if (!indice || !Enfocar(c, *vista)) return;
    // The first click selects the row, the second opens it.
    vista->ClickItem(*indice);
    if (c.dialogo.Visible() && vista->DblClick) vista->DblClick(*indice);
}

// --- agregar -------------------------------------------------------------------

void Agregar(Contexto& c, const Linea& linea) {
    Control* control = Alcanzar(c, linea);
    if (control == nullptr) return;
    auto* direccion = dynamic_cast<forms::AddressControl*>(control);
    if (direccion == nullptr) {
        Falla(c, Q(control->Nombre()) + " (" + NombreTipo(control->Tipo()) + ") no admite agregar.");
        return;
    }
    const auto [nivel, nombre] = SepararNivel(linea.resto);
    if (nombre == linea.resto) {
        Falla(c, "en " + Q(direccion->Nombre()) + " se agrega: pais, estado o ciudad y el nombre.");
        return;
    }
    if (!(direccion->*nivel->permitido)) {
        Falla(c, Q(direccion->Nombre()) + " no permite agregar " + nivel->cual + ".");
        return;
    }
    // A name in quotes is taken without them, as escribir takes a text.
    const std::string lugar = SinComillas(nombre);
    if (Trim(lugar).empty()) {
        Falla(c, "falta el nombre.");
        return;
    }
    if (direccion->pais() < 1 && nivel != &NivelesLugar().front()) {
        Falla(c, "elija antes el país.");
        return;
    }
    if (Enfocar(c, *direccion)) (direccion->*nivel->agregar)(lugar);
}

// --- marcar, pulsar, intro, esc ----------------------------------------------

void MarcarFila(Contexto& c, Control& control, const std::string& elemento, std::optional<bool> marcada) {
    if (auto* vista = dynamic_cast<forms::ListView*>(&control)) {
        if (!vista->Checkboxes()) {
            Falla(c, Q(vista->Nombre()) + " no tiene casillas.");
            return;
        }
        const auto indice = Indice(c, *vista, elemento, TextosVista(*vista));
        if (indice && Enfocar(c, *vista)) vista->MarcarItem(*indice, marcada.value_or(!vista->Item(*indice).checked));
        return;
    }
    auto& lista = dynamic_cast<forms::ListBox&>(control);
    if (!lista.Casillas()) {
        Falla(c, Q(lista.Nombre()) + " no tiene casillas; use elegir.");
        return;
    }
    const auto indice = Indice(c, lista, elemento, TextosLista(lista));
    if (indice && Enfocar(c, lista)) lista.Selected(*indice, marcada.value_or(!lista.Selected(*indice)));
}

void Marcar(Contexto& c, const Linea& linea) {
    Control* control = Alcanzar(c, linea);
    if (control == nullptr) return;
    const auto [elemento, marcada] = SepararSiNo(linea.resto);
    switch (control->Tipo()) {
        case TipoControl::CheckBox: {
            auto& casilla = dynamic_cast<forms::CheckBox&>(*control);
            if (!Enfocar(c, casilla)) return;
            if (marcada) {
                casilla.Value(*marcada ? 1 : 0);
            } else {
                casilla.Pulsar();
            }
            return;
        }
        case TipoControl::OptionButton:
            if (marcada == false) {
                Falla(c, "una opción se apaga eligiendo otra de su grupo.");
            } else if (Enfocar(c, *control)) {
                dynamic_cast<forms::OptionButton&>(*control).Pulsar();
            }
            return;
        case TipoControl::ListView:
        case TipoControl::ListBox: MarcarFila(c, *control, elemento, marcada); return;
        default: Falla(c, Q(control->Nombre()) + " (" + NombreTipo(control->Tipo()) + ") no tiene casillas.");
    }
}

void Pulsar(Contexto& c, const Linea& linea) {
    Control* control = Alcanzar(c, linea);
    if (control == nullptr) return;
    if (auto* boton = dynamic_cast<forms::CommandButton*>(control)) {
        boton->Pulsar();
    } else if (auto* casilla = dynamic_cast<forms::CheckBox*>(control)) {
        if (Enfocar(c, *casilla)) casilla->Pulsar();
    } else if (auto* opcion = dynamic_cast<forms::OptionButton*>(control)) {
        if (Enfocar(c, *opcion)) opcion->Pulsar();
    } else if (auto* texto = dynamic_cast<forms::TextBox*>(control)) {
        // A click on a field: some fields open their picker this way.
        texto->Pulsar();
    } else {
        Falla(c, Q(control->Nombre()) + " (" + NombreTipo(control->Tipo()) + ") no se pulsa.");
    }
}

// The button that a key presses: Enter the default one, Escape the cancel one.
void PulsarTecla(Contexto& c, bool cancelar) {
    for (const auto& control : c.dialogo.Controles()) {
        auto* boton = dynamic_cast<forms::CommandButton*>(control.get());
        if (boton == nullptr || (cancelar ? !boton->Cancel() : !boton->Default())) continue;
        if (Alcanzable(c, *boton)) boton->Pulsar();
        return;
    }
    Falla(c, cancelar ? "no hay botón de cancelar." : "no hay botón predeterminado.");
}

void Intro(Contexto& c, const Linea&) { PulsarTecla(c, false); }

void Esc(Contexto& c, const Linea&) { PulsarTecla(c, true); }

// --- ver, cerrar, ayuda --------------------------------------------------------

// The whole dialog, or one control with every entry of its list.
void Ver(Contexto& c, const Linea& linea) {
    if (linea.control.empty()) {
        c.pedido = Pedido::VerTodo;
        return;
    }
    const Control* control = c.dialogo.Buscar(linea.control);
    if (control == nullptr || !Mostrado(*control)) {
        Alcanzar(c, linea);
        return;
    }
    DibujarControl(*control, c.out, 1, true);
}

void Cerrar(Contexto& c, const Linea&) {
    c.dialogo.Cerrar();
    if (c.dialogo.Visible()) c.out << Q(c.dialogo.Caption()) << " no se cerró.\n";
}

void MostrarAyuda(Contexto& c, const Linea&) { Ayuda(c.out); }

struct Orden {
    std::vector<std::string> palabras;  // the first is the order's name
    const char* uso;
    const char* explicacion;
    void (*accion)(Contexto&, const Linea&);
};

const std::vector<Orden>& Ordenes() {
    static const std::vector<Orden> ordenes{
        {{"escribir", "escribe", "teclear"}, "escribir CONTROL TEXTO",
         "teclea el texto en un campo de texto, número o fecha (dd/mm/aaaa) o en un combo editable;\n"
         "entre comillas guarda sus blancos (\"a b\"), y \"\" es el texto vacío;\n"
         "en un memo \\n es un salto de línea; en una dirección: escribir CONTROL CAMPO TEXTO\n"
         "con CAMPO calle, exterior, interior, direccion, colonia, cp, telefono o notas",
         Escribir},
        {{"elegir", "elige", "seleccionar"}, "elegir CONTROL N",
         "elige el elemento N de un combo o lista, la fila N de una vista,\n"
         "la página N de unas pestañas o, en una dirección, el lugar N:\n"
         "elegir CONTROL pais|estado|ciudad N (sin nivel, la ciudad)",
         Elegir},
        {{"agregar", "agrega"}, "agregar CONTROL NIVEL NOMBRE",
         "agrega a una dirección un país, un estado del país elegido o una ciudad\n"
         "(NIVEL pais, estado o ciudad) y lo elige, donde la dirección lo permite",
         Agregar},
        {{"marcar", "marca"}, "marcar CONTROL [N] [si|no]",
         "marca o desmarca una casilla, o la casilla de la fila N de una vista o lista;\n"
         "sin si ni no la cambia",
         Marcar},
        {{"pulsar", "pulsa", "clic"}, "pulsar CONTROL", "pulsa un botón, una casilla, una opción o un campo", Pulsar},
        {{"doble", "dobleclic"}, "doble CONTROL N", "doble clic en la fila N de una vista", Doble},
        {{"pagina", "página", "pestaña"}, "pagina CONTROL N", "muestra la página N de unas pestañas", Pagina},
        {{"intro", "enter"}, "intro", "pulsa el botón predeterminado", Intro},
        {{"esc", "escape"}, "esc", "pulsa el botón de cancelar", Esc},
        {{"ver", "mostrar"}, "ver [CONTROL]",
         "muestra otra vez el diálogo completo, o el control con todos sus elementos", Ver},
        {{"cerrar", "salir"}, "cerrar", "cierra la ventana, como su X", Cerrar},
        {{"ayuda", "?"}, "ayuda", "muestra estas órdenes", MostrarAyuda},
    };
    return ordenes;
}

const Orden* BuscarOrden(const std::string& palabra) {
    for (const Orden& orden : Ordenes()) {
        for (const std::string& alias : orden.palabras) {
            if (alias == palabra) return &orden;
        }
    }
    return nullptr;
}

}  // namespace

Pedido EjecutarOrden(forms::Dialogo& dialogo, const std::string& texto, std::ostream& out) {
    Contexto contexto{dialogo, out};
    const Linea linea = Partir(texto);
    if (linea.orden.empty() || linea.orden[0] == '#') return Pedido::Nada;
    const Orden* orden = BuscarOrden(linea.orden);
    if (orden == nullptr) {
        std::string nombres;
        for (const Orden& conocida : Ordenes()) nombres += (nombres.empty() ? "" : ", ") + conocida.palabras.front();
        Falla(contexto, "no conozco la orden " + Q(linea.orden) + "; las órdenes son " + nombres +
                            " (ayuda las explica).");
        return Pedido::Nada;
    }
    contexto.uso = orden->uso;
    orden->accion(contexto, linea);
    return contexto.pedido;
}

void Ayuda(std::ostream& out) {
    constexpr std::size_t kAncho = 30;
    const std::string sangria(kAncho + 2, ' ');
    out << "Órdenes (CONTROL es el nombre del control, sin importar mayúsculas;\n"
           "N es el número del elemento, desde 1, o su texto):\n";
    for (const Orden& orden : Ordenes()) {
        out << "  " << orden.uso << std::string(kAncho - Len(orden.uso), ' ')
            << Replace(orden.explicacion, "\n", "\n" + sangria) << '\n';
        if (orden.palabras.size() > 1) {
            std::string alias;
            for (std::size_t i = 1; i < orden.palabras.size(); ++i) alias += (i > 1 ? ", " : "") + orden.palabras[i];
            out << sangria << "(también: " << alias << ")\n";
        }
    }
    out << "Las líneas vacías y las que empiezan con # no hacen nada.\n";
}

std::string SinComillas(const std::string& texto) {
    const std::string limpio = RTrim(texto);
    if (limpio.size() >= 2 && limpio.front() == '"' && limpio.back() == '"') return limpio.substr(1, limpio.size() - 2);
    return texto;
}

}  // namespace celdora::platform::consola
