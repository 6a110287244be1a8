#include "tests/support/ScriptedUi.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/common/Picture.h"
#include "value/Text.h"

namespace celdora::testing {

host::Respuesta ScriptedUi::MsgBox(const std::string& text, host::Botones buttons, host::Icono icon,
                                   const std::string& title) {
    host::Respuesta respuesta = host::Respuesta::Aceptar;
    if (!respuestas_.empty()) {
        respuesta = respuestas_.front();
        respuestas_.pop_front();
    } else if (buttons != host::Botones::Aceptar) {
        ADD_FAILURE() << "A question nobody expected: \"" << text << "\"";
        respuesta = host::Respuesta::Cancelar;
    }
    cajas_.push_back({text, buttons, icon, title, respuesta});
    registro_.push_back("caja: " + text);
    return respuesta;
}

void ScriptedUi::ExpectCaja(std::size_t indice, const std::string& texto, host::Icono icono,
                            const std::string& titulo, host::Botones botones) const {
    ASSERT_GT(cajas_.size(), indice) << "no box number " << indice;
    const Caja& caja = cajas_[indice];
    EXPECT_EQ(caja.texto, texto);
    EXPECT_EQ(caja.icono, icono);
    EXPECT_EQ(caja.titulo, titulo);
    EXPECT_EQ(caja.botones, botones);
}

std::optional<std::string> ScriptedUi::TomarRuta(const char* tipo, const host::FileDialogRequest& request) {
    std::optional<std::string> ruta;
    if (rutas_.empty()) {
        ADD_FAILURE() << "A " << tipo << " dialog nobody expected (filter \"" << request.filter << "\")";
    } else {
        ruta = rutas_.front();
        rutas_.pop_front();
    }
    selecciones_.push_back({tipo, request.filter, request.fileName, request.title, ruta, request.initDir});
    return ruta;
}

std::optional<std::string> ScriptedUi::ShowOpen(const host::FileDialogRequest& request) {
    return TomarRuta("abrir", request);
}

std::optional<std::string> ScriptedUi::ShowSave(const host::FileDialogRequest& request) {
    return TomarRuta("guardar", request);
}

std::optional<std::string> ScriptedUi::BrowseForFolder(const std::string& title, const std::string& root) {
    return TomarRuta("carpeta", {"", root, title});
}

void ScriptedUi::ClipboardClear() { portapapeles_.push_back(""); }

void ScriptedUi::ClipboardSetText(const std::string& text) { portapapeles_.push_back(text); }

std::shared_ptr<host::Picture> ScriptedUi::LoadPicture(const std::string& path) {
    return platform::CargarImagen(path);
}

void ScriptedUi::ShowModal(forms::Dialogo& dialogo) {
    registro_.push_back("dialogo: " + dialogo.Clase());
    auto guion = std::find_if(guiones_.begin(), guiones_.end(),
                              [&](const Guion& g) { return EqualText(g.clase, dialogo.Clase()); });
    if (guion == guiones_.end()) {
        ADD_FAILURE() << "A dialog nobody expected: " << dialogo.Clase() << " \"" << dialogo.Caption() << "\"";
        dialogo.Cerrar();
        return;
    }
    GuionDialogo accion = std::move(guion->accion);
    guiones_.erase(guion);
    accion(dialogo);
    if (dialogo.Visible()) {
        ADD_FAILURE() << "The script left " << dialogo.Clase() << " open";
        dialogo.Cerrar();
    }
}

void ScriptedUi::Show(forms::Dialogo& dialogo) {
    registro_.push_back("ventana: " + dialogo.Clase());
}

}  // namespace celdora::testing
