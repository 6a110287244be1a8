// The system's behaviour on every kind of connection it runs on, written once
// and run on each: SQLite in memory, a MariaDB server through its own client,
// and the same server through ODBC. Each test gets a fresh demo company (see
// the key map in schema/README.md) and a facade bound to it as a host binds
// it, with its data object and catalogue.
//
// The monthly report selects a month's log lines with Year() and Month()
// and writes the report inside a transaction, and each engine shows below
// that it does both alike.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "forms/Controles.h"
#include "platform/common/Catalogo.h"
#include "platform/common/DataObjectsMotor.h"
#include "platform/common/Usuario.h"
#include "rules/cFolioOrigen.h"
#include "rules/cRegimenFical.h"
#include "tests/cbb/EditorCBB.h"
#include "tests/integration/Conexiones.h"
#include "tests/support/CarpetaTemporal.h"
#include "tests/support/DataObjectsAnotados.h"
#include "tests/support/TestPlatform.h"
#include "value/Convert.h"
#include "value/Format.h"
#include "value/Text.h"

namespace celdora {
namespace {

using host::Icono;
using host::Respuesta;
using integracion::Empresa;
using testing::DataObjectsAnotados;
using Textos = std::vector<std::string>;
using PorClave = std::map<long, std::string>;

const std::string kUuid3 = "6F1A2B3C-4D5E-4F60-8172-93A4B5C6D7E8";
const std::string kSondaMySql = "Select UUID() as GUID;";

class Conducta : public ::testing::TestWithParam<std::string> {
protected:
    testing::TestPlatform platform;
    std::unique_ptr<Empresa> empresa;
    // The host's data object, and the same one as the facade sees it, which
    // notes each transaction call it passes on.
    std::shared_ptr<platform::DataObjectsMotor> datos;
    std::shared_ptr<DataObjectsAnotados> dataObjects;
    std::unique_ptr<cAcction> acc;

    void SetUp() override {
        const std::string motivo = Empresa::PorQueNoDisponible(GetParam());
        if (!motivo.empty()) GTEST_SKIP() << motivo;
        try {
            empresa = Empresa::Crear(GetParam());
        } catch (const Fault& fault) {
            FAIL() << "could not make the demo company on " << GetParam() << ": " << ErrorText(fault);
        }
        datos = std::make_shared<platform::DataObjectsMotor>(empresa->cnn);
        dataObjects = std::make_shared<DataObjectsAnotados>(datos);
        acc = Enlazar();
        empresa->sentencias->clear();
        mdlMain::SoltarObjetosCompartidos();
    }

    void TearDown() override {
        acc.reset();
        empresa.reset();
        mdlMain::SoltarObjetosCompartidos();
    }

    // A facade bound to the company as the host binds it.
    std::unique_ptr<cAcction> Enlazar() {
        auto facade = std::make_unique<cAcction>();
        facade->SetDataObjects(dataObjects, std::make_shared<platform::CatalogoPaises>(empresa->cnn));
        return facade;
    }

    const Textos& Sentencias() const { return *empresa->sentencias; }

    // Each row's key with the text of one of its fields ("Null" for Null),
    // whatever order the server gives the rows in.
    PorClave Filas(const std::string& sql, const std::string& campo) {
        PorClave filas;
        auto recordset = mdlMain::AbrirConsulta(acc->ADOCnn, sql);
        if (!recordset) {
            ADD_FAILURE() << "did not open: " << sql;
            return filas;
        }
        for (; !recordset->Eof(); recordset->movenext()) {
            const Variant valor = recordset->Fields(campo).Value();
            filas[CLng(recordset->Fields("Sys_PK").Value())] = valor.IsNull() ? "Null" : CStr(valor);
        }
        recordset->Close();
        return filas;
    }

    std::string Texto(const std::string& sql) {
        const Variant valor = empresa->Valor(sql);
        return valor.IsNull() ? "Null" : CStr(valor);
    }
    PorClave Reportados() { return Filas("SELECT Sys_PK,uf_Reportado FROM ut_CFDBitacora", "uf_Reportado"); }

};

// --- The dialect probe and the statements that differ by dialect -------------

// Certificate 2 has no folio range and seals the CFDI comprobantes 3 and 7:
// the limit form goes straight to the comprobantes.
TEST_P(Conducta, PosibleModificarCertificadoRunsTheLimitFormDirectlyWithoutARange) {
    EXPECT_FALSE(acc->PosibleModificarCertificado(2));
    EXPECT_EQ(Sentencias(),
              (Textos{"SELECT ut_CFDInfo.Sys_PK FROM ut_CFDFolio INNER JOIN ut_CFDInfo ON "
                      "ut_CFDFolio.uf_CFDInfo=ut_CFDInfo.Sys_PK WHERE ut_CFDInfo.Sys_PK=2",
                      kSondaMySql,
                      "SELECT ut_CFD.Sys_PK FROM ut_CFD INNER JOIN ut_CFDInfo ON ut_CFD.uf_CFDI_Info=ut_CFDInfo.Sys_PK "
                      "WHERE ut_CFDInfo.Sys_PK=2 LIMIT 1"}));
}

TEST_P(Conducta, AsignarTiposImpuestoIssuesBothFormsAndOnlyTheOneArgumentPairWorks) {
    // GIVEN row 1 with an empty and a Null name, row 2 with both names set
    empresa->Ejecutar("INSERT INTO CfgImpuesto (Sys_PK, uf_TipoI1, uf_TipoI3) VALUES (2, 'VAT', 'Otro')");
    empresa->sentencias->clear();

    EXPECT_FALSE(acc->asignarTiposImpuesto());

    const Textos unArgumento{"UPDATE CfgImpuesto SET uf_TipoI1='IVA' WHERE isnull(uf_TipoI1) OR uf_TipoI1=''",
                             "UPDATE CfgImpuesto SET uf_TipoI3='IEPS' WHERE isnull(uf_TipoI3) OR uf_TipoI3=''"};
    const Textos dosArgumentos{"UPDATE CfgImpuesto SET uf_TipoI1='IVA' WHERE isnull(uf_TipoI1,'')=''",
                               "UPDATE CfgImpuesto SET uf_TipoI3='IEPS' WHERE isnull(uf_TipoI3,'')=''"};
    EXPECT_EQ(Sentencias(), (Textos{unArgumento[0], unArgumento[1], dosArgumentos[0], dosArgumentos[1]}));
    EXPECT_EQ(Filas("SELECT Sys_PK, uf_TipoI1 FROM CfgImpuesto", "uf_TipoI1"), (PorClave{{1, "IVA"}, {2, "VAT"}}));

    // Which pair the engine understands, each statement on its own.
    for (const auto& s : unArgumento) EXPECT_TRUE(acc->ProbarConsulta(s, acc->ADOCnn)) << s;
    for (const auto& s : dosArgumentos) EXPECT_FALSE(acc->ProbarConsulta(s, acc->ADOCnn)) << s;
}

// --- Document rules on the demo company ---------------------------------------

// One member call of the facade and what it answers (a bool as 1 or 0).
struct Respuesta1 {
    const char* llamada;
    std::function<double(cAcction&)> llamar;
    double esperado;
};
#define CELDORA_LLAMADA(llamada, esperado) Respuesta1{#llamada, [](cAcction& a) -> double { return a.llamada; }, esperado}

// The questions about one document of the demo company: they read Null and
// 0 links, numbers the engine types its own way, and rates the engine divides.
TEST_P(Conducta, EachDocumentQuestionAnswersAlikeOnEveryEngine) {
    const Respuesta1 respuestas[] = {
        CELDORA_LLAMADA(TipoComprobanteAGenerar(), cCFDI), CELDORA_LLAMADA(NumeroDecimalesXML(), 2),
        CELDORA_LLAMADA(ExisteCFD(1), 1), CELDORA_LLAMADA(ExisteCFD(5), 0),  // a sale without comprobante
        CELDORA_LLAMADA(DocumentoAprobadoParaCFD(1), 1),      // block A, range 1
        CELDORA_LLAMADA(DocumentoAprobadoParaCFD(6), 0),      // block F, uf_CFDFolio Null
        CELDORA_LLAMADA(DocumentoAprobadoParaCFD_CXC(5), 0),  // block G, uf_CFDFolio 0
        CELDORA_LLAMADA(DocumentoAprobadoParaCFDI(6), 1),     // block F, certificate 2
        CELDORA_LLAMADA(DocumentoAprobadoParaCFDI(8), 0),     // block C, a CBB range only
        CELDORA_LLAMADA(DocumentoAprobadoParaCFDI_CXC(6), 0), // no folio
        CELDORA_LLAMADA(BlockVentaCFDI_CBB(6), 2), CELDORA_LLAMADA(BlockVentaCFDI_CBB(8), 3),
        CELDORA_LLAMADA(BlockVentaCFDI_CBB(1), 0), CELDORA_LLAMADA(BlockCXC_CFDI_CBB(5), 0),  // block G, links 0
        CELDORA_LLAMADA(TipoDocumento(1), 4), CELDORA_LLAMADA(TipoDocumento_CXC(1), 5),
        CELDORA_LLAMADA(TipoDocumento(999), 0),
        CELDORA_LLAMADA(PorcentajeIVATrasladadoEnVentaFinanciada(1), 16),
        CELDORA_LLAMADA(PorcentajeIVATrasladadoEnVentaFinanciada(8), 0),   // only 0 %
        CELDORA_LLAMADA(PorcentajeIVATrasladadoEnVentaFinanciada(6), -1),  // no lines
        CELDORA_LLAMADA(FolioAprobadoCBB(8), 1),      // C-1
        CELDORA_LLAMADA(FolioAprobadoCBB_CXC(3), 1),  // H-100, the last folio
        // The refusals, each with its box below.
        CELDORA_LLAMADA(FolioAprobadoCBB(11), 0), CELDORA_LLAMADA(FolioAprobadoCBB_CXC(4), 0),
        CELDORA_LLAMADA(FolioAprobadoCBB(1), 0),  // block A has no CBB range
    };
    for (const auto& r : respuestas) EXPECT_EQ(r.llamar(*acc), r.esperado) << r.llamada;
    const std::string fuera = "El Folio del documento no se encuentra dentro de un rango de folios v";
    ASSERT_EQ(platform.ui.Cajas().size(), 3u);
    platform.ui.ExpectCaja(0, fuera + "álido para CBB", Icono::Exclamacion);
    platform.ui.ExpectCaja(1, fuera + "alido para CBB", Icono::Exclamacion);
    platform.ui.ExpectCaja(2, "No existe ningun rango de folios para CBB relacionado al block de este documento",
                           Icono::Exclamacion);
}

// Saving a setting twice with the same value still saves: the store updates
// a key in place and inserts only when no row matched, which the server must
// count as matched. A facade bound afterwards reads what was saved.
TEST_P(Conducta, SettingsSavedTwiceAreOneRowAndAFacadeBoundAfterwardsReadsThem) {
    for (int vez = 0; vez < 2; ++vez) {
        ASSERT_TRUE(acc->GlobalVar->GuardarNumero("NVCA300xa", 4));
        ASSERT_TRUE(acc->GlobalVar->GuardarTexto("NVCA317x", "12;70"));
    }
    EXPECT_EQ(empresa->Contar("gv_Configuracion WHERE Clave IN ('NVCA300xa', 'NVCA317x')"), 2);
    auto otra = Enlazar();
    EXPECT_TRUE(otra->PermitirAcceso("NVCA317x", std::make_shared<platform::UsuarioConGrupos>(std::vector{12})));
}

// The dates and amounts come back in the engine's own types.
TEST_P(Conducta, TheOriginFolioOfACfdAndOfACfdi) {
    cFolioOrigen cfd, cfdi;
    EXPECT_EQ(cfd.cargarInformacion_CFD(1, empresa->cnn), Variant(true));
    EXPECT_EQ(cfdi.cargarInformacion_CFDI(6, empresa->cnn), Variant(true));
    for (const auto& [origen, folio, serie, fecha, monto] :
         {std::tuple{&cfd, std::string("1"), "A", "2026-10-05 10:15:00", Currency{11600000}},
          std::tuple{&cfdi, kUuid3, "F", "2026-10-20 09:05:00", Currency{16240000}}}) {
        EXPECT_EQ(origen->FolioFiscalOrig, folio);
        EXPECT_EQ(origen->SerieFolioFiscalOrig, serie);
        EXPECT_EQ(Format(Variant(origen->FechaFolioFiscalOrig), "yyyy-MM-dd HH:mm:ss"), fecha);
        EXPECT_EQ(origen->MontoFolioFiscalOrig, monto);
    }
}

TEST_P(Conducta, TextsWithAccentsComeBackWhole) {
    auto regimenes = acc->RegimenesFicalesCol();
    Textos textos;  // each regime and its notes, the first one's Null
    for (int i = 1; i <= regimenes->Count(); ++i) {
        auto regimen = std::dynamic_pointer_cast<cRegimenFical>(regimenes->Item(i).AsObject());
        ASSERT_TRUE(regimen);
        textos.insert(textos.end(), {regimen->Regimen, regimen->Notas});
    }
    EXPECT_EQ(textos, (Textos{"Personas Morales con Fines no Lucrativos", "", "Régimen General de Ley Personas Morales",
                              "Título II de la Ley del ISR"}));
}

// --- Guards of certificates, folio ranges and CBB ranges ----------------------

TEST_P(Conducta, EliminarAprobacionFoliosFreesItsBlocksAndDeletesInOneTransaction) {
    // GIVEN range 3, without comprobantes, ties block 6 as fiscal
    empresa->Ejecutar("UPDATE BlockDocumentos SET uf_CFDFolio=3, Fiscal=1 WHERE Sys_PK=6");
    empresa->sentencias->clear();

    EXPECT_TRUE(acc->EliminarAprobacionFolios(3, /*boAsk=*/false));

    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar"}));
    ASSERT_GE(Sentencias().size(), 2u);
    EXPECT_EQ(Textos(Sentencias().end() - 2, Sentencias().end()),
              (Textos{"UPDATE BlockDocumentos SET uf_CFDFolio=NULL,Fiscal=0 WHERE uf_CFDFolio=3",
                      "DELETE FROM ut_CFDFolio WHERE Sys_PK=3"}));
    EXPECT_EQ(empresa->Contar("BlockDocumentos WHERE Sys_PK=6 AND uf_CFDFolio IS NULL AND Fiscal=0"), 1);
}

// --- Cancellation and log state -------------------------------------------------

// GIVEN the host holds a transaction of its own, THEN the facade begins and
// ends nothing, the rows are gone inside the host's transaction, and the
// host's rollback brings both back.
TEST_P(Conducta, CancelarCFDWithoutATransactionOfItsOwnLeavesTheOutcomeToTheCaller) {
    ASSERT_TRUE(CBool(datos->IniciarTransaccion()));
    platform.ui.Responder(Respuesta::Si);
    EXPECT_TRUE(acc->CancelarCFD(5, true, /*WithTrans=*/false));
    EXPECT_TRUE(dataObjects->llamadas.empty());
    EXPECT_EQ(empresa->Contar("ut_CFD WHERE Sys_PK=5") + empresa->Contar("ut_CFDBitacora WHERE uf_CFD=5"), 0);
    ASSERT_TRUE(CBool(datos->RevertirTransaccion(0)));
    EXPECT_EQ(empresa->Contar("ut_CFD WHERE Sys_PK=5") + empresa->Contar("ut_CFDBitacora WHERE uf_CFD=5"), 2);
}

TEST_P(Conducta, MarcarCFDIsCanceladoMarksByUuidAndTheAcknowledgementIsKeptWhole) {
    EXPECT_TRUE(acc->MarcarCFDIsCancelado(kUuid3));
    EXPECT_EQ(Sentencias(), (Textos{"UPDATE ut_CFD SET uf_CanceladoSAT=1 WHERE uf_FolioSAT='" + kUuid3 + "'"}));
    EXPECT_EQ(empresa->Contar("ut_CFD WHERE uf_CanceladoSAT=1 AND Sys_PK=3"), 1);

    // An acknowledgement far longer than any sized column, with accents.
    std::string acuse = "<Acuse Estatus=\"201\" Mensaje=\"Cancelación aceptada\">";
    while (acuse.size() < 100000) acuse += "<Folio UUID=\"" + kUuid3 + "\" EstatusUUID=\"201\"/>";
    acuse += "</Acuse>";
    EXPECT_TRUE(acc->guardar_ack_cancelacion(acuse, 3));
    EXPECT_EQ(Texto("SELECT uf_ackCancelacion_SAT FROM ut_CFD WHERE Sys_PK=3"), acuse);
}

// --- The monthly report ------------------------------------------------------

// The report's lines are compared in order of their text: no clause fixes
// the order the engine gives the rows in.
TEST_P(Conducta, AMonthlyReportIsGeneratedAndDeletedInTransactionsOfItsOwn) {
    testing::CarpetaTemporal carpeta;
    platform.ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) { d.Ver<forms::CommandButton>("btnOK").Pulsar(); });
    platform.ui.Elegir(carpeta.ruta().string());
    std::int16_t mes = 11, anio = 2026;
    bool bloquear = true, conTransaccion = true, preguntar = true;
    EXPECT_TRUE(acc->GenerarInformeMensual(mes, anio, bloquear));

    Textos lineas = Split(Texto("SELECT uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=11 AND uf_Anio=2026"), "\r\n");
    std::sort(lineas.begin(), lineas.end());
    EXPECT_EQ(lineas, (Textos{"|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|0|I||||",
                              "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|1|I||||",
                              "|CIN960904FQ2|B|1|201123456|18/11/2026 10:30:00|580.00|80.00|1|E||||",
                              "|LOPJ7009128T5|A|3|201012345|03/11/2026 11:20:00|3480.00|480.00|1|I||||"}));
    EXPECT_EQ(Reportados(), (PorClave{{1, "1"}, {2, "1"}, {3, "0"}, {4, "0"}, {5, "1"}, {6, "1"}, {7, "0"}, {8, "1"}}));

    platform.ui.Responder(Respuesta::Si);
    EXPECT_TRUE(acc->EliminarInformeMensual(mes, anio, conTransaccion, preguntar));
    EXPECT_EQ(empresa->Contar("ut_CFDInforme WHERE uf_Mes=11 AND uf_Anio=2026"), 0);
    EXPECT_EQ(Reportados(), (PorClave{{1, "1"}, {2, "1"}, {3, "0"}, {4, "0"}, {5, "0"}, {6, "0"}, {7, "0"}, {8, "0"}}));
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar", "Iniciar", "Confirmar"}));
}

// A CBB range's code image, a JPEG and a BMP, saved from its file through the
// editor and loaded back into it byte for byte.
TEST_P(Conducta, ACBBImageFileComesBackFromItsRangesRowByteForByte) {
    testing::TemporalPrivado temporal;
    for (const auto& [pk, ruta] : {std::pair{3, testing::kCbbJpeg}, {4, testing::kCbbBmp}}) {
        testing::Capturar(platform.ui, 6, 100.0 * pk, 100.0 * pk + 99, "", ruta);
        ASSERT_TRUE(acc->AgregarFoliosCBB()) << ruta;
        platform.ui.AlMostrar("dlgConfigFoliosCBB", [&](forms::Dialogo& d) {
            EXPECT_EQ(testing::Editor(d).pctCBB.Picture()->Formato(), pk == 3 ? "jpeg" : "bmp");
            testing::Editor(d).btnCancel.Pulsar();
        });
        EXPECT_FALSE(acc->ModificarFoliosCBB(pk));
        EXPECT_EQ(testing::LeerBytes(temporal.carpeta / "tmpimage.jpg"), testing::LeerBytes(ruta));
    }
}

INSTANTIATE_TEST_SUITE_P(Motores, Conducta, ::testing::ValuesIn(Empresa::Tipos()),
                         integracion::NombreDelTipo());

}  // namespace
}  // namespace celdora
