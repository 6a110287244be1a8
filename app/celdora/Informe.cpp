#include "app/celdora/Informe.h"

#include <charconv>
#include <optional>
#include <ostream>
#include <string>

#include "app/celdora/Enlace.h"
#include "app/celdora/UiGuiada.h"
#include "core/mdlMain.h"
#include "host/Platform.h"
#include "platform/console/ConsolaUi.h"
#include "platform/desktop/PlataformaEscritorio.h"
#include "report/FormatoInforme.h"
#include "report/dlgExportarInforme.h"
#include "report/dlgInforme.h"
#include "value/Text.h"

namespace celdora::app {

namespace {

constexpr int kPrimerAnio = 1985;
constexpr int kUltimoAnio = 2050;

struct OpcionesInforme {
    std::string accion;
    std::optional<int> mes;
    std::optional<int> anio;
    std::optional<std::string> carpeta;
    platform::ConsolaUi::RespuestaFija respuesta = platform::ConsolaUi::RespuestaFija::Ninguna;
};

int Numero(const std::string& opcion, const std::string& texto, int desde, int hasta) {
    int valor = 0;
    const char* fin = texto.data() + texto.size();
    auto [resto, error] = std::from_chars(texto.data(), fin, valor);
    if (texto.empty() || error != std::errc() || resto != fin || valor < desde || valor > hasta) {
        throw ErrorDeUso{opcion + " espera un número de " + std::to_string(desde) + " a " + std::to_string(hasta) +
                         ": \"" + texto + "\""};
    }
    return valor;
}

// The action, then --mes, --anio and --carpeta with their values (also as
// --opcion=valor), and --si or --no, which may also stand before the command.
OpcionesInforme LeerOpcionesInforme(const Opciones& globales) {
    OpcionesInforme o;
    o.respuesta = globales.respuesta;
    const auto& args = globales.argumentos;
    if (args.empty()) throw ErrorDeUso{"falta la acción: celdora informe generar|ver"};
    o.accion = args.front();
    if (o.accion != "generar" && o.accion != "ver") throw ErrorDeUso{"acción desconocida: informe " + o.accion};
    for (std::size_t i = 1; i < args.size(); ++i) {
        std::string nombre = args[i];
        std::optional<std::string> valor;
        if (const auto igual = nombre.find('='); igual != std::string::npos) {
            valor = nombre.substr(igual + 1);
            nombre.resize(igual);
        }
        if (nombre == "--console" || nombre == "--consola") continue;  // the tool's choice of interface
        if (nombre == "--si" || nombre == "--no") {
            if (valor) throw ErrorDeUso{nombre + " no lleva valor"};
            if (o.accion == "ver") throw ErrorDeUso{"en informe ver, " + nombre + " va antes de la orden"};
            o.respuesta = nombre == "--si" ? platform::ConsolaUi::RespuestaFija::Si
                                           : platform::ConsolaUi::RespuestaFija::No;
            continue;
        }
        if (nombre != "--mes" && nombre != "--anio" && nombre != "--carpeta") {
            throw ErrorDeUso{"opción desconocida: " + args[i]};
        }
        if (!valor) {
            if (i + 1 == args.size()) throw ErrorDeUso{"falta el valor de " + nombre};
            valor = args[++i];
        }
        if (nombre == "--mes") o.mes = Numero(nombre, *valor, 1, 12);
        if (nombre == "--anio") o.anio = Numero(nombre, *valor, kPrimerAnio, kUltimoAnio);
        if (nombre == "--carpeta") o.carpeta = *valor;
    }
    if (o.accion == "generar" && (!o.mes || !o.anio || !o.carpeta)) {
        throw ErrorDeUso{"informe generar necesita --mes, --anio y --carpeta"};
    }
    if (o.accion == "ver" && o.carpeta) throw ErrorDeUso{"informe ver no lleva --carpeta"};
    return o;
}

// The file the report goes to, named as the generation names it.
std::string RutaDelArchivo(cAcction& accion, const OpcionesInforme& o) {
    const std::string rfc = Trim(Deref(accion.GlobalVar).LeerTexto("NVCA101", ""));
    return mdlMain::Utilerias().AgregarDiagonal(*o.carpeta) + informe::NombreInforme(rfc, *o.mes, *o.anio) + ".txt";
}

void Seleccionar(dlgExportarInforme& dialogo, const OpcionesInforme& o, std::ostream& out) {
    if (o.anio) dialogo.cmbAnio.Text(std::to_string(*o.anio));
    if (!o.mes) return;
    for (int i = 0; i < dialogo.lvw.Count(); ++i) {
        if (dialogo.lvw.SubItem(i, 3) == std::to_string(*o.mes)) {
            dialogo.lvw.ClickItem(i);
            return;
        }
    }
    out << "No hay informe del mes " << *o.mes << ".\n";
}

int Generar(cAcction& accion, UiGuiada& ui, const OpcionesInforme& o, std::ostream& out) {
    int vez = 0;
    ui.Carpeta(*o.carpeta);
    // The user accepts once; a dialog that comes back after a failure is
    // cancelled, since the tool would only give the same answers again.
    ui.AlMostrar("dlgInforme", [&](forms::Dialogo& d) {
        auto& dialogo = dynamic_cast<dlgInforme&>(d);
        if (vez++ == 0) {
            out << "  " << dialogo.cmbmes.Text() << " " << dialogo.cmbAnio.Text() << ": Aceptar\n";
            dialogo.btnOK.Pulsar();
        }
        if (dialogo.Visible()) {
            out << "  Cancelar\n";
            dialogo.btnCancelar.Pulsar();
        }
    });
    auto mes = static_cast<std::int16_t>(*o.mes);
    auto anio = static_cast<std::int16_t>(*o.anio);
    bool bloquear = true;
    if (!accion.GenerarInformeMensual(mes, anio, bloquear)) {
        out << "No se generó el informe.\n";
        return 1;
    }
    out << "Informe generado: " << RutaDelArchivo(accion, o) << "\n";
    return 0;
}

// The browser on the terminal, as VerInformesMensuales opens it; the year
// and month asked are selected when it first shows, and then the person (or
// a script on the input) works in it.
int Ver(cAcction& accion, UiGuiada& ui, host::UiServices& terminal, const OpcionesInforme& o, std::ostream& out) {
    int vez = 0;
    ui.AlMostrar("dlgExportarInforme", [&](forms::Dialogo& d) {
        auto& dialogo = dynamic_cast<dlgExportarInforme&>(d);
        if (vez++ == 0) Seleccionar(dialogo, o, out);
        terminal.ShowModal(dialogo);
    });
    bool regenerar = true;
    bool eliminar = true;
    accion.VerInformesMensuales(regenerar, eliminar);
    return 0;
}

}  // namespace

int Informe(const Opciones& opciones, std::ostream& out) {
    const OpcionesInforme o = LeerOpcionesInforme(opciones);
    const Fachada fachada = EnlazarFachada(opciones);

    // Generating runs on the terminal, which --si or --no may answer, since
    // the tool answers the dialog itself; the browser shows in the interface
    // the tool chose (Qt, or the terminal). The tool acts for the user on top.
    platform::ConsolaUi consola(o.respuesta);
    host::UiServices& debajo = o.accion == "generar" ? consola : host::CurrentPlatform().Ui();
    UiGuiada ui(debajo, out);
    platform::PlataformaEscritorio plataforma(ui, host::CurrentPlatform().Reloj());
    platform::PlataformaInstalada instalada(plataforma);
    mdlMain::SoltarObjetosCompartidos();

    const int codigo =
        o.accion == "generar" ? Generar(*fachada.accion, ui, o, out) : Ver(*fachada.accion, ui, debajo, o, out);
    mdlMain::SoltarObjetosCompartidos();
    return codigo;
}

}  // namespace celdora::app
