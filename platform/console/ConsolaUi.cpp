#include "platform/console/ConsolaUi.h"

#include <iostream>
#include <vector>

#include "platform/common/Picture.h"
#include "value/Text.h"

namespace celdora::platform {

using host::Botones;
using host::Icono;
using host::Respuesta;

namespace {

const char* PalabraIcono(Icono icon) {
    switch (icon) {
        case Icono::Critico: return "[Crítico]";
        case Icono::Pregunta: return "[Pregunta]";
        case Icono::Exclamacion: return "[Exclamación]";
        case Icono::Informacion: return "[Información]";
        case Icono::Ninguno: break;
    }
    return "";
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
            return Pregunta{"(s/n) ", {kSi, kNo}, Respuesta::No, Respuesta::Si, Respuesta::No};
        case Botones::SiNoCancelar:
            return Pregunta{"(s/n/c) ", {kSi, kNo, kCancelar}, Respuesta::Cancelar, Respuesta::Si, Respuesta::No};
        case Botones::AceptarCancelar:
            return Pregunta{"(a/c) ", {kAceptar, kCancelar}, Respuesta::Cancelar, Respuesta::Aceptar,
                            Respuesta::Cancelar};
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

}  // namespace

ConsolaUi::ConsolaUi(std::istream& in, std::ostream& out, RespuestaFija respuesta)
    : in_(in), out_(out), respuesta_(respuesta), renderizador_([this] { return LeerLinea(); }, out) {}

ConsolaUi::ConsolaUi(RespuestaFija respuesta) : ConsolaUi(std::cin, std::cout, respuesta) {}

Respuesta ConsolaUi::MsgBox(const std::string& text, Botones buttons, Icono icon, const std::string& title) {
    renderizador_.Vaciar();
    if (!title.empty()) out_ << title << '\n';
    const std::string icono = PalabraIcono(icon);
    out_ << (icono.empty() ? icono : icono + ' ') << text << '\n';

    const std::optional<Pregunta> pregunta = PreguntaDe(buttons);
    if (!pregunta) return Respuesta::Aceptar;

    if (respuesta_ != RespuestaFija::Ninguna) {
        const Respuesta answer = respuesta_ == RespuestaFija::Si ? pregunta->siFija : pregunta->noFija;
        out_ << pregunta->indicacion << NombreRespuesta(answer) << " (respuesta fija)\n";
        return answer;
    }
    while (true) {
        out_ << pregunta->indicacion << std::flush;
        const std::optional<std::string> line = LeerLinea();
        if (!line) {
            out_ << "\nSin entrada: " << NombreRespuesta(pregunta->sinEntrada) << '\n';
            return pregunta->sinEntrada;
        }
        if (const std::optional<Respuesta> answer = Interpretar(*pregunta, *line)) return *answer;
    }
}

std::optional<std::string> ConsolaUi::ShowOpen(const host::FileDialogRequest& request) {
    std::string detalles;
    if (!request.filter.empty()) detalles += "Tipos: " + request.filter + '\n';
    if (!request.fileName.empty()) detalles += "Nombre inicial: " + request.fileName + '\n';
    if (!request.initDir.empty()) detalles += "Carpeta: " + request.initDir + '\n';
    return PedirRuta(request.title.empty() ? "Abrir" : request.title, detalles);
}

std::optional<std::string> ConsolaUi::ShowSave(const host::FileDialogRequest& request) {
    std::string detalles;
    if (!request.filter.empty()) detalles += "Tipos: " + request.filter + '\n';
    if (!request.fileName.empty()) detalles += "Nombre sugerido: " + request.fileName + '\n';
    return PedirRuta(request.title.empty() ? "Guardar como..." : request.title, detalles);
}

std::optional<std::string> ConsolaUi::BrowseForFolder(const std::string& title, const std::string& root) {
    return PedirRuta(title.empty() ? "Carpeta" : title, root.empty() ? std::string{} : "Desde: " + root + '\n');
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

std::optional<std::string> ConsolaUi::LeerLinea() {
    std::string line;
    if (!std::getline(in_, line)) return std::nullopt;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return line;
}

std::optional<std::string> ConsolaUi::PedirRuta(const std::string& title, const std::string& detalles) {
    out_ << title << '\n' << detalles << "Ruta (línea vacía para cancelar): " << std::flush;
    const std::optional<std::string> line = LeerLinea();
    if (!line) {
        out_ << "\nSin entrada: cancelado\n";
        return std::nullopt;
    }
    if (Trim(*line).empty()) return std::nullopt;
    return line;
}

}  // namespace celdora::platform
