#include "core/Dialogos.h"

#include <functional>
#include <map>

#include "cbb/dlgConfigFoliosCBB.h"
#include "cbb/dlgEmisor.h"
#include "cbb/dlgRangoFoliosCBB.h"
#include "certificates/dlgRangoFolios.h"
#include "certificates/dlgcertificado.h"
#include "certificates/frmBlockXCer.h"
#include "certificates/frmPFX.h"
#include "configdialog/dlgConfig.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "report/dlgExportarInforme.h"
#include "printformats/dlgImpresion.h"
#include "report/dlgInforme.h"
#include "rules/dlgAddress.h"
#include "rules/dlgFormaFacturacionHordana.h"
#include "rules/dlgFormaPago.h"
#include "rules/frmPB.h"
#include "rules/frmSaveAs.h"
#include "settings/dlgConfigAvz.h"
#include "settings/dlgLocal.h"
#include "settings/dlgMainConfig.h"
#include "value/Text.h"
#include "wizard/dlgAsistenteConfig.h"

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

// The CBB dialogs that take the facade before they load.
template <class T>
Fabrica ConDataObjects() {
    return [](cAcction& accion) {
        auto dialogo = std::make_unique<T>();
        dialogo->SetDataObjects(accion);
        return dialogo;
    };
}

// The print format dialogs as their members open them: on the company
// settings and the repository folder (its closing backslash dropped), the
// CFD family also with the facade for the comprobante kind.
std::unique_ptr<forms::Dialogo> Impresion(cAcction& accion, const impresion::VarianteImpresion& variante) {
    auto dialogo = std::make_unique<dlgImpresion>(variante);
    dialogo->GlobalVar = accion.GlobalVar;
    dialogo->rutaInicial = impresion::RutaInicial(accion.AppRepositoryPath);
    if (variante.tira) dialogo->oAcc = &accion;
    return dialogo;
}

// The dialogs of the machine's settings, handed the facade as their opener
// does.
template <class T>
Fabrica ConFachada() {
    return [](cAcction& accion) {
        auto dialogo = std::make_unique<T>();
        dialogo->oAcc = &accion;
        return dialogo;
    };
}

// The certificate and folio range editors as their add commands open them,
// for a new row.
template <class Editor>
std::unique_ptr<forms::Dialogo> EditorNuevo(cAcction& accion) {
    auto dialogo = std::make_unique<Editor>();
    dialogo->setObjects(accion);
    return dialogo;
}

// The blocks of the certificate with the lowest key, since the dialog needs
// one; with no certificate the list stays empty.
std::unique_ptr<forms::Dialogo> BlocksDelPrimerCertificado(cAcction& accion) {
    auto dialogo = std::make_unique<frmBlockXCer>();
    dialogo->setObjects(accion);
    auto recordset = mdlMain::AbrirConsulta(accion.ADOCnn, "SELECT Sys_PK, uf_noCertificado FROM ut_CFDInfo ORDER BY Sys_PK");
    if (recordset && !recordset->Eof()) {
        std::int32_t clave = static_cast<std::int32_t>(mdlMain::NumeroCampo(*recordset, "Sys_PK"));
        std::string numero = mdlMain::TextoCampo(*recordset, "uf_noCertificado");
        dialogo->setCer(clave, numero);
    }
    if (recordset) recordset->Close();
    return dialogo;
}

// The main configuration dialog as Configuracion opens it: loaded whole.
std::unique_ptr<forms::Dialogo> Configuracion(cAcction& accion) {
    auto dialogo = std::make_unique<dlgConfig>();
    dialogo->setObjects(&accion);
    dialogo->init();
    return dialogo;
}

// The setup wizard as AsistenteConfiguracion opens it: loaded whole.
std::unique_ptr<forms::Dialogo> Asistente(cAcction& accion) {
    auto dialogo = std::make_unique<dlgAsistenteConfig>();
    dialogo->setObjects(&accion);
    dialogo->rutaInicial = impresion::RutaInicial(accion.AppRepositoryPath);
    dialogo->init();
    return dialogo;
}

const std::map<std::string, Fabrica>& Fabricas() {
    static const std::map<std::string, Fabrica> fabricas = {
        {"dlgAddress", Simple<dlgAddress>()},
        {"dlgAsistenteConfig", Asistente},
        {"dlgcertificado", EditorNuevo<dlgcertificado>},
        {"dlgConfig", Configuracion},
        {"dlgConfigAvz", ConFachada<dlgConfigAvz>()},
        {"dlgConfigFoliosCBB", RangoCBBNuevo},
        {"dlgEmisor", ConDataObjects<dlgEmisor>()},
        {"dlgRangoFoliosCBB", ConDataObjects<dlgRangoFoliosCBB>()},
        {"dlgRangoFolios", EditorNuevo<dlgRangoFolios>},
        {"dlgExportarInforme", NavegadorDeInformes},
        {"dlgFormaFacturacionHordana", Simple<dlgFormaFacturacionHordana>()},
        {"dlgFormaPago", Simple<dlgFormaPago>()},
        {"dlgImpresion", [](cAcction& accion) { return Impresion(accion, impresion::kImpresionCFD); }},
        {"dlgImpresionCBB", [](cAcction& accion) { return Impresion(accion, impresion::kImpresionCBB); }},
        {"dlgInforme", GeneracionDeInforme},
        {"dlgLocal", ConFachada<dlgLocal>()},
        {"dlgMainConfig", ConFachada<dlgMainConfig>()},
        {"frmBlockXCer", BlocksDelPrimerCertificado},
        {"frmPB", Simple<frmPB>()},
        {"frmPFX", Simple<frmPFX>()},
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
