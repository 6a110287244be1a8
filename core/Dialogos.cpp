#include "core/Dialogos.h"

#include <functional>
#include <map>

#include "cbb/dlgConfigFoliosCBB.h"
#include "core/cAcction.h"
#include "report/dlgExportarInforme.h"
#include "report/dlgInforme.h"
#include "rules/dlgAddress.h"
#include "rules/dlgFormaFacturacionHordana.h"
#include "rules/dlgFormaPago.h"
#include "rules/frmPB.h"
#include "rules/frmSaveAs.h"
#include "value/Text.h"

namespace celdora::dialogos {

namespace {

using Fabrica = std::function<std::unique_ptr<forms::Dialogo>(cAcction&)>;

template <class T>
Fabrica Simple() {
    return [](cAcction&) { return std::make_unique<T>(); };
}

// The report dialogs as their members open them: the generation on today's
// month, the browser with both actions allowed.
std::unique_ptr<forms::Dialogo> GeneracionDeInforme(cAcction& accion) {
    auto dialogo = std::make_unique<dlgInforme>();
    dialogo->setObjects(accion);
    dialogo->load(-1, -1);
    return dialogo;
}

std::unique_ptr<forms::Dialogo> NavegadorDeInformes(cAcction& accion) {
    auto dialogo = std::make_unique<dlgExportarInforme>();
    dialogo->Load();
    dialogo->setObjects(accion);
    dialogo->btnRegenerar.Tag("1");
    dialogo->btnEliminar.Tag("1");
    return dialogo;
}

// The CBB range editor as AgregarFoliosCBB opens it: a new range.
std::unique_ptr<forms::Dialogo> RangoCBBNuevo(cAcction& accion) {
    auto dialogo = std::make_unique<dlgConfigFoliosCBB>();
    dialogo->SetDataObjects(accion);
    dialogo->Load();
    dialogo->btnQuitarIMG.Enabled(false);
    return dialogo;
}

const std::map<std::string, Fabrica>& Fabricas() {
    static const std::map<std::string, Fabrica> fabricas = {
        {"dlgAddress", Simple<dlgAddress>()},
        {"dlgConfigFoliosCBB", RangoCBBNuevo},
        {"dlgExportarInforme", NavegadorDeInformes},
        {"dlgFormaFacturacionHordana", Simple<dlgFormaFacturacionHordana>()},
        {"dlgFormaPago", Simple<dlgFormaPago>()},
        {"dlgInforme", GeneracionDeInforme},
        {"frmPB", Simple<frmPB>()},
        {"frmSaveAs", Simple<frmSaveAs>()},
    };
    return fabricas;
}

}  // namespace

std::vector<std::string> Nombres() {
    std::vector<std::string> nombres;
    for (const auto& [nombre, fabrica] : Fabricas()) nombres.push_back(nombre);
    return nombres;
}

std::unique_ptr<forms::Dialogo> Crear(const std::string& nombre, cAcction& accion) {
    for (const auto& [clase, fabrica] : Fabricas()) {
        if (EqualText(clase, nombre)) return fabrica(accion);
    }
    return nullptr;
}

}  // namespace celdora::dialogos
