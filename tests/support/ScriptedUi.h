#pragma once

// A user interface service for tests: answers are queued up front, and every
// box and picker the system shows is logged with its text, icon, title and
// buttons, so that a test can say exactly what the user saw.

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "forms/Dialogo.h"
#include "host/UiServices.h"

namespace celdora::testing {

struct Caja {
    std::string texto;
    host::Botones botones;
    host::Icono icono;
    std::string titulo;
    host::Respuesta respuesta;
};

struct Seleccion {
    std::string tipo;  // "abrir", "guardar" or "carpeta"
    std::string filtro;
    std::string nombre;
    std::string titulo;
    std::optional<std::string> respuesta;
    std::string carpeta;  // the folder the picker opened in
};

// What a test does while a dialog is shown modally: fill, click, answer.
using GuionDialogo = std::function<void(forms::Dialogo&)>;

class ScriptedUi : public host::UiServices {
public:
    // The next modal showing of a dialog of this class runs this script. A
    // dialog shown with no script queued is a test failure, and so is a
    // script that leaves its dialog up: it must hide it, or close it as a
    // person would (Cerrar).
    void AlMostrar(const std::string& clase, GuionDialogo guion) {
        guiones_.push_back({clase, std::move(guion)});
    }
    // Everything the user saw, in order: "caja: TEXT" for a box,
    // "dialogo: CLASS" for a modal dialog, "ventana: CLASS" for one shown
    // without waiting.
    const std::vector<std::string>& Registro() const { return registro_; }

    // Answers taken in order. A question (Yes/No) with no queued answer is a
    // test failure: the test did not expect it. A box with only OK needs none.
    void Responder(host::Respuesta respuesta) { respuestas_.push_back(respuesta); }
    // The next file or folder picker answers this path; nothing = cancelled.
    void Elegir(std::optional<std::string> ruta) { rutas_.push_back(std::move(ruta)); }

    const std::vector<Caja>& Cajas() const { return cajas_; }
    // Checks box number indice (from 0): its text, icon, title and buttons.
    void ExpectCaja(std::size_t indice, const std::string& texto, host::Icono icono, const std::string& titulo = "",
                    host::Botones botones = host::Botones::Aceptar) const;
    // A Yes/No question without a title of its own.
    void ExpectPregunta(std::size_t indice, const std::string& texto) const {
        ExpectCaja(indice, texto, host::Icono::Pregunta, "", host::Botones::SiNo);
    }
    const std::vector<Seleccion>& Selecciones() const { return selecciones_; }
    const std::vector<std::string>& Portapapeles() const { return portapapeles_; }
    std::vector<host::Puntero> Punteros() const { return punteros_; }
    int VueltasDelBucle() const { return vueltas_; }
    // Answers queued and never taken.
    std::size_t RespuestasPendientes() const { return respuestas_.size() + rutas_.size() + guiones_.size(); }

    host::Respuesta MsgBox(const std::string& text, host::Botones buttons, host::Icono icon,
                           const std::string& title) override;
    std::optional<std::string> ShowOpen(const host::FileDialogRequest& request) override;
    std::optional<std::string> ShowSave(const host::FileDialogRequest& request) override;
    std::optional<std::string> BrowseForFolder(const std::string& title, const std::string& root) override;
    void ClipboardClear() override;
    void ClipboardSetText(const std::string& text) override;
    void MousePointer(host::Puntero pointer) override {
        punteros_.push_back(pointer);
        puntero_ = pointer;
    }
    host::Puntero MousePointerActual() const override { return puntero_; }
    void DoEvents() override { ++vueltas_; }
    std::shared_ptr<host::Picture> LoadPicture(const std::string& path) override;
    void ShowModal(forms::Dialogo& dialogo) override;
    void Show(forms::Dialogo& dialogo) override;

private:
    struct Guion {
        std::string clase;
        GuionDialogo accion;
    };

    std::optional<std::string> TomarRuta(const char* tipo, const host::FileDialogRequest& request);

    std::deque<host::Respuesta> respuestas_;
    std::deque<std::optional<std::string>> rutas_;
    std::vector<Caja> cajas_;
    std::vector<Seleccion> selecciones_;
    std::vector<std::string> portapapeles_;
    std::vector<host::Puntero> punteros_;
    int vueltas_ = 0;
    host::Puntero puntero_ = host::Puntero::Normal;
    std::deque<Guion> guiones_;
    std::vector<std::string> registro_;
};

}  // namespace celdora::testing
