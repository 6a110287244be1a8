#pragma once

// What the report's tests share: the demo company bound to a facade whose
// data object notes its transactions, a platform whose user interface also
// notes what the progress window showed, a folder for the files, and the
// user's ways through the generation dialog.

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "forms/Controles.h"
#include "platform/desktop/PlataformaEscritorio.h"
#include "rules/frmPB.h"
#include "tests/support/CarpetaTemporal.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/DataObjectsAnotados.h"
#include "tests/support/FixedClock.h"
#include "tests/support/ScriptedUi.h"
#include "tests/support/TestPlatform.h"
#include "value/Convert.h"

namespace celdora::testing {

using Textos = std::vector<std::string>;

// The scripted user interface, which also notes the progress window: its
// title when it is shown, then each new command text.
class UiConProgreso : public ScriptedUi {
public:
    Textos progreso;
    // Runs as each box comes up, before it is answered.
    std::function<void()> alMostrarCaja;

    host::Respuesta MsgBox(const std::string& text, host::Botones buttons, host::Icono icon,
                           const std::string& title) override {
        if (alMostrarCaja) alMostrarCaja();
        return ScriptedUi::MsgBox(text, buttons, icon, title);
    }

    void Show(forms::Dialogo& dialogo) override {
        ScriptedUi::Show(dialogo);
        if (auto* forma = dynamic_cast<frmPB*>(&dialogo)) progreso.push_back("título: " + forma->lbltitle.Caption());
    }
    void DoEvents() override {
        ScriptedUi::DoEvents();
        const auto& forma = mdlMain::frmProgress();
        if (forma && (progreso.empty() || progreso.back() != forma->lblcmd.Caption())) {
            progreso.push_back(forma->lblcmd.Caption());
        }
    }
};

inline std::string LeerArchivo(const std::filesystem::path& ruta) {
    std::ifstream in(ruta, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class InformeFixture : public ::testing::Test {
protected:
    UiConProgreso ui;
    FixedClock reloj{FechaDePrueba()};
    platform::PlataformaEscritorio plataforma{ui, reloj};
    platform::PlataformaInstalada instalada{plataforma};
    CompanyDatabase db{CompanyDatabase::Datos::Demo};
    std::shared_ptr<DataObjectsAnotados> dataObjects = std::make_shared<DataObjectsAnotados>(db.dataObjects);
    cAcction acc;
    CarpetaTemporal carpeta;

    void SetUp() override {
        mdlMain::SoltarObjetosCompartidos();
        acc.SetDataObjects(dataObjects, nullptr);
        db.sentencias->clear();
    }
    void TearDown() override { mdlMain::SoltarObjetosCompartidos(); }

    bool Generar(std::int16_t mes, std::int16_t anio, bool bloquear = true) {
        return acc.GenerarInformeMensual(mes, anio, bloquear);
    }
    // The user presses a button of the next generation dialog shown.
    void AlGenerar(const std::string& boton) {
        ui.AlMostrar("dlgInforme", [boton](forms::Dialogo& d) { d.Ver<forms::CommandButton>(boton).Pulsar(); });
    }
    void Aceptar() { AlGenerar("btnOK"); }
    void Cancelar() { AlGenerar("btnCancelar"); }

    const Textos& Sentencias() const { return *db.sentencias; }
    std::string Texto(const std::string& sql) {
        const Variant valor = db.Valor(sql);
        return valor.IsNull() ? "Null" : CStr(valor);
    }
    std::string Linea(int sysPk) { return Texto("SELECT uf_Datos FROM ut_CFDBitacora WHERE Sys_PK=" + std::to_string(sysPk)); }
    // uf_Reportado of the log rows 1 to 8, as one text.
    std::string Reportados() {
        return Texto("SELECT group_concat(uf_Reportado, '') FROM (SELECT uf_Reportado FROM ut_CFDBitacora ORDER BY "
                     "Sys_PK)");
    }
    // Every stored report as "Sys_PK month/year name", in key order.
    std::string Informes() {
        return Texto("SELECT group_concat(x, '; ') FROM (SELECT Sys_PK || ' ' || uf_Mes || '/' || uf_Anio || ' ' || "
                     "uf_Nombre AS x FROM ut_CFDInforme ORDER BY Sys_PK)");
    }
    std::string Contenido(int mes, int anio) {
        return Texto("SELECT uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=" + std::to_string(mes) +
                     " AND uf_Anio=" + std::to_string(anio));
    }
};

// The demo's October report as stored: log lines 1 and 2.
inline const std::string kOctubre =
    "|XAXX010101000|A|1|201012345|05/10/2026 10:15:00|1160.00|160.00|1|I||||\r\n"
    "|CIN960904FQ2|A|2|201012345|12/10/2026 16:40:00|2421.00|216.00|1|I|26 47 3807 6001234|02/10/2026|240 Nuevo "
    "Laredo|";

}  // namespace celdora::testing
