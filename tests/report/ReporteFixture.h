#pragma once

// What the report's tests share: the demo company bound to a facade whose
// data object notes its transactions, a platform whose user interface also
// notes what the progress window showed, a folder for the files, the user's
// ways through the generation dialog, and what a scenario leaves behind.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

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

// The demo's stored reports, and its log rows' marks: rows 1 and 2 reported.
inline const std::string kInformesDemo = "1 9/2026 1EKU9003173C9092026; 2 10/2026 1EKU9003173C9102026";
inline const std::string kReportadosDemo = "11000000";
// The demo's October report as stored: log lines 1 and 2.
inline const std::string kOctubre =
    "|XAXX010101000|A|1|201012345|05/10/2026 10:15:00|1160.00|160.00|1|I||||\r\n"
    "|CIN960904FQ2|A|2|201012345|12/10/2026 16:40:00|2421.00|216.00|1|I|26 47 3807 6001234|02/10/2026|240 Nuevo "
    "Laredo|";
inline const std::string kSobreescribirOctubre =
    "Ya existe un informe del mes y año indicado generado el 2026-11-02. ¿Desea volver a generarlo y sobreescribir "
    "el actual?";
inline const std::string kPreguntaEliminar = "¿Está seguro que desea eliminar el informe mensual seleccionado.?";

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

    bool Generar(std::int16_t mes, std::int16_t anio = 2026, bool bloquear = true) {
        return acc.GenerarInformeMensual(mes, anio, bloquear);
    }
    // The user cancels the next generation dialog shown, or accepts it and picks the folder.
    void Cancelar() {
        ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) { d.Ver<forms::CommandButton>("btnCancelar").Pulsar(); });
    }
    void Aceptar(std::optional<std::string> ruta) {
        ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) { d.Ver<forms::CommandButton>("btnOK").Pulsar(); });
        ui.Elegir(std::move(ruta));
    }
    void Aceptar() { Aceptar(carpeta.ruta().string()); }
    // The user accepts, finds the dialog still up and cancels it.
    void AceptarYCancelar() {
        ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) {
            d.Ver<forms::CommandButton>("btnOK").Pulsar();
            EXPECT_TRUE(d.Visible());
            d.Ver<forms::CommandButton>("btnCancelar").Pulsar();
        });
    }
    // The table becomes a view of its rows: they read, but cannot be written.
    void SoloLectura(const std::string& tabla) {
        db.Ejecutar("ALTER TABLE " + tabla + " RENAME TO " + tabla + "_filas");
        db.Ejecutar("CREATE VIEW " + tabla + " AS SELECT * FROM " + tabla + "_filas");
    }

    const Textos& Sentencias() const { return *db.sentencias; }
    std::string Texto(const std::string& sql) {
        const Variant valor = db.Valor(sql);
        return valor.IsNull() ? "Null" : CStr(valor);
    }
    std::string Linea(int pk) {
        return Texto("SELECT uf_Datos FROM ut_CFDBitacora WHERE Sys_PK=" + std::to_string(pk));
    }
    std::string Datos() { return Texto("SELECT group_concat(uf_Datos, '~') FROM ut_CFDBitacora"); }
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
    std::string Contenido(int mes, int anio = 2026) {
        return Texto("SELECT uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=" + std::to_string(mes) +
                     " AND uf_Anio=" + std::to_string(anio));
    }
    // Each box as the user saw it: "i", "!", "?" or "x" for an information,
    // exclamation, question or critical icon, "sn" for Yes/No buttons
    // (nothing for OK alone), the title in brackets when it has one, a blank
    // and the text. Then the transaction calls, the log rows' marks and the
    // stored reports, as a scenario left them.
    Textos Estado() {
        Textos estado;
        for (const auto& caja : ui.Cajas()) {
            const int icono = static_cast<int>(caja.icono);
            std::string vista = icono == 16 ? "x" : icono == 32 ? "?" : icono == 48 ? "!" : icono == 64 ? "i" : "-";
            if (caja.botones != host::Botones::Aceptar) {
                vista += caja.botones == host::Botones::SiNo ? "sn" : std::to_string(static_cast<int>(caja.botones));
            }
            estado.push_back(vista + (caja.titulo.empty() ? "" : "[" + caja.titulo + "]") + " " + caja.texto);
        }
        std::string llamadas = "llamadas:";
        for (const auto& llamada : dataObjects->llamadas) llamadas += " " + llamada;
        estado.insert(estado.end(), {llamadas, Reportados(), Informes()});
        return estado;
    }
};

}  // namespace celdora::testing
