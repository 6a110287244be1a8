#include "platform/console/ConsolaUi.h"

#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <vector>

#include "platform/common/Picture.h"
#include "platform/console/OrdenesConsola.h"
#include "value/Text.h"

namespace celdora::platform {

using host::Botones;
using host::Icono;
using host::Respuesta;

namespace {

namespace fs = std::filesystem;

const char* PalabraIcono(Icono icon) {
    switch (icon) {
        case Icono::Critico: return "Crítico";
        case Icono::Pregunta: return "Pregunta";
        case Icono::Exclamacion: return "Advertencia";
        case Icono::Informacion: return "Información";
        case Icono::Ninguno: break;
    }
    return "Mensaje";
}

const char* NombreRespuesta(Respuesta answer) {
    switch (answer) {
        case Respuesta::Aceptar: return "Aceptar";
        case Respuesta::Cancelar: return "Cancelar";
        case Respuesta::Si: return "Sí";
        case Respuesta::No: return "No";
    }
    return "";
}

struct Opcion {
    std::vector<std::string> palabras;
    Respuesta respuesta;
};

struct Pregunta {
    const char* indicacion;
    const char* explicacion;
    std::vector<Opcion> opciones;
    Respuesta sinEntrada;
    Respuesta siFija;
    Respuesta noFija;
};

const Opcion kSi{{"s", "si", "sí", "y", "yes"}, Respuesta::Si};
const Opcion kNo{{"n", "no"}, Respuesta::No};
const Opcion kAceptar{{"a", "aceptar"}, Respuesta::Aceptar};
const Opcion kCancelar{{"c", "cancelar"}, Respuesta::Cancelar};

std::optional<Pregunta> PreguntaDe(Botones buttons) {
    switch (buttons) {
        case Botones::SiNo:
            return Pregunta{"(s/n) ", "responda s (sí) o n (no).", {kSi, kNo}, Respuesta::No, Respuesta::Si,
                            Respuesta::No};
        case Botones::SiNoCancelar:
            return Pregunta{"(s/n/c) ", "responda s (sí), n (no) o c (cancelar).", {kSi, kNo, kCancelar},
                            Respuesta::Cancelar, Respuesta::Si, Respuesta::No};
        case Botones::AceptarCancelar:
            return Pregunta{"(a/c) ", "responda a (aceptar) o c (cancelar).", {kAceptar, kCancelar},
                            Respuesta::Cancelar, Respuesta::Aceptar, Respuesta::Cancelar};
        case Botones::Aceptar:
            break;
    }
    return std::nullopt;
}

std::optional<Respuesta> Interpretar(const Pregunta& pregunta, const std::string& line) {
    const std::string word = LCase(Trim(line));
    for (const Opcion& opcion : pregunta.opciones) {
        for (const std::string& palabra : opcion.palabras) {
            if (word == palabra) return opcion.respuesta;
        }
    }
    return std::nullopt;
}

// The frame of a box or a picker: its head, the lines inside, its foot.
void Cabeza(std::ostream& out, const std::string& que, const std::string& title) {
    out << "┌─ [" << que << "]" << (title.empty() ? "" : " " + title) << '\n';
}

void Dentro(std::ostream& out, const std::string& text) {
    for (const std::string& line : Split(Replace(text, "\r\n", "\n"), "\n")) out << "│ " << line << '\n';
}

void Pie(std::ostream& out, const std::string& text) { out << "└─ " << text << '\n'; }

std::string Q(const std::string& text) { return "«" + text + "»"; }

// What each picker accepts, as the desktop's pickers do.
std::string ArchivoExistente(const std::string& ruta) {
    return fs::is_regular_file(ruta) ? "" : "no existe el archivo " + Q(ruta) + "; escriba la ruta de un archivo.";
}

std::string ArchivoNuevo(const std::string& ruta) {
    const fs::path carpeta = fs::path(ruta).parent_path();
    if (fs::is_directory(ruta)) return Q(ruta) + " es una carpeta; escriba la ruta de un archivo.";
    if (!carpeta.empty() && !fs::is_directory(carpeta)) {
        return "no existe la carpeta " + Q(carpeta.string()) + "; escriba la ruta de un archivo en una que exista.";
    }
    return "";
}

std::string CarpetaExistente(const std::string& ruta) {
    return fs::is_directory(ruta) ? "" : "no existe la carpeta " + Q(ruta) + "; escriba la ruta de una carpeta.";
}

// The terminal shows what is typed only when both ends are a terminal.
bool EsTerminal() { return isatty(STDIN_FILENO) == 1 && isatty(STDOUT_FILENO) == 1; }

}  // namespace

ConsolaUi::ConsolaUi(std::istream& in, std::ostream& out, RespuestaFija respuesta, bool eco)
    : in_(in), out_(out), respuesta_(respuesta), eco_(eco), renderizador_([this] { return LeerLinea(); }, out) {}

ConsolaUi::ConsolaUi(RespuestaFija respuesta) : ConsolaUi(std::cin, std::cout, respuesta, !EsTerminal()) {}

Respuesta ConsolaUi::MsgBox(const std::string& text, Botones buttons, Icono icon, const std::string& title) {
    renderizador_.Vaciar();
    Cabeza(out_, PalabraIcono(icon), title);
    Dentro(out_, text);

    const std::optional<Pregunta> pregunta = PreguntaDe(buttons);
    if (!pregunta) {
        Pie(out_, "Aceptar");
        return Respuesta::Aceptar;
    }
    if (respuesta_ != RespuestaFija::Ninguna) {
        const Respuesta answer = respuesta_ == RespuestaFija::Si ? pregunta->siFija : pregunta->noFija;
        Pie(out_, NombreRespuesta(answer) + std::string(" (respuesta fija)"));
        return answer;
    }
    while (true) {
        out_ << "│ " << pregunta->indicacion << std::flush;
        const std::optional<std::string> line = LeerLinea();
        if (!line) {
            Pie(out_, NombreRespuesta(pregunta->sinEntrada) + std::string(" (sin entrada)"));
            return pregunta->sinEntrada;
        }
        if (const std::optional<Respuesta> answer = Interpretar(*pregunta, *line)) {
            Pie(out_, NombreRespuesta(*answer));
            return *answer;
        }
        out_ << "│ No entiendo " << Q(Trim(*line)) << ": " << pregunta->explicacion << '\n';
    }
}

std::optional<std::string> ConsolaUi::ShowOpen(const host::FileDialogRequest& request) {
    std::vector<std::string> detalles;
    if (!request.filter.empty()) detalles.push_back("Tipos: " + request.filter);
    if (!request.fileName.empty()) detalles.push_back("Nombre inicial: " + request.fileName);
    if (!request.initDir.empty()) detalles.push_back("Carpeta: " + request.initDir);
    Cabeza(out_, "Abrir archivo", request.title);
    return PedirRuta("Ruta del archivo", detalles, ArchivoExistente);
}

std::optional<std::string> ConsolaUi::ShowSave(const host::FileDialogRequest& request) {
    std::vector<std::string> detalles;
    if (!request.filter.empty()) detalles.push_back("Tipos: " + request.filter);
    if (!request.fileName.empty()) detalles.push_back("Nombre sugerido: " + request.fileName);
    Cabeza(out_, "Guardar archivo", request.title);
    return PedirRuta("Ruta del archivo", detalles, ArchivoNuevo);
}

std::optional<std::string> ConsolaUi::BrowseForFolder(const std::string& title, const std::string& root) {
    Cabeza(out_, "Elegir carpeta", title);
    return PedirRuta("Ruta de la carpeta", root.empty() ? std::vector<std::string>{} : std::vector{"Desde: " + root},
                     CarpetaExistente);
}

void ConsolaUi::ClipboardClear() { portapapeles_.clear(); }

void ConsolaUi::ClipboardSetText(const std::string& text) {
    portapapeles_ = text;
    out_ << "(Texto copiado al portapapeles: " << Len(text) << " caracteres)\n";
}

void ConsolaUi::MousePointer(host::Puntero pointer) { puntero_ = pointer; }

void ConsolaUi::DoEvents() {
    renderizador_.Vaciar();
    out_.flush();
}

std::shared_ptr<host::Picture> ConsolaUi::LoadPicture(const std::string& path) { return CargarImagen(path); }

void ConsolaUi::ShowModal(forms::Dialogo& dialogo) { renderizador_.Modal(dialogo); }

void ConsolaUi::Show(forms::Dialogo& dialogo) { renderizador_.Ventana(dialogo); }

// Every read follows a prompt, whose line ends here when nothing else ends it.
std::optional<std::string> ConsolaUi::LeerLinea() {
    std::string line;
    if (!std::getline(in_, line)) {
        out_ << '\n';
        return std::nullopt;
    }
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (eco_) out_ << line << '\n';
    return line;
}

std::optional<std::string> ConsolaUi::PedirRuta(const std::string& cabecera, const std::vector<std::string>& detalles,
                                                const std::function<std::string(const std::string&)>& valida) {
    for (const std::string& detalle : detalles) Dentro(out_, detalle);
    while (true) {
        out_ << "│ " << cabecera << " (línea vacía para cancelar): " << std::flush;
        const std::optional<std::string> line = LeerLinea();
        const std::string ruta = line ? consola::SinComillas(Trim(*line)) : "";
        if (ruta.empty()) {
            Pie(out_, line ? "Cancelado" : "Cancelado (sin entrada)");
            return std::nullopt;
        }
        const std::string queja = valida(ruta);
        if (queja.empty()) {
            Pie(out_, ruta);
            return ruta;
        }
        Dentro(out_, queja);
    }
}

}  // namespace celdora::platform
