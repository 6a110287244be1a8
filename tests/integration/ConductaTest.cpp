// The system's behaviour on every kind of connection it runs on, written once
// and run on each: SQLite in memory, a MariaDB server through its own client,
// and the same server through ODBC. Each test gets a fresh demo company (see
// the key map in schema/README.md) and a facade bound to it as a host binds
// it, with its data object and catalogue. Where an engine answers otherwise
// than the others, the test names the difference from Peculiaridades and
// says why.
//
// The monthly report selects a month's log lines with Year() and Month()
// and writes the report inside a transaction, and each engine shows below
// that it does both alike. The setup wizard joins this suite when it lands;
// until then its count of stamped comprobantes runs below as the statements
// the wizard issues.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <functional>
#include <iterator>
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
#include "tests/integration/Conexiones.h"
#include "tests/support/CarpetaTemporal.h"
#include "tests/support/DataObjectsAnotados.h"
#include "tests/support/FallaDe.h"
#include "tests/support/TestPlatform.h"
#include "value/Convert.h"
#include "value/Date.h"
#include "value/Format.h"
#include "value/Text.h"

namespace celdora {
namespace {

using host::Icono;
using host::Respuesta;
using integracion::Empresa;
using integracion::Peculiaridades;
using testing::DataObjectsAnotados;
using testing::TestPlatform;
using Textos = std::vector<std::string>;
using PorClave = std::map<long, std::string>;

const std::string kUuid3 = "6F1A2B3C-4D5E-4F60-8172-93A4B5C6D7E8";
const std::string kUuid7 = "A1B2C3D4-E5F6-4A7B-8C9D-0E1F2A3B4C5D";
const std::string kSondaMySql = "Select UUID() as GUID;";
const std::string kOtroDialecto = "the engine speaks another dialect than MySQL: these are the MySQL forms";

class Conducta : public ::testing::TestWithParam<std::string> {
protected:
    TestPlatform platform;
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

    const Peculiaridades& Q() const { return empresa->peculiaridades; }
    const Textos& Sentencias() const { return *empresa->sentencias; }
    Textos Ultimas(std::size_t cuantas) const {
        const auto& todas = Sentencias();
        if (todas.size() < cuantas) return todas;
        return Textos(todas.end() - static_cast<std::ptrdiff_t>(cuantas), todas.end());
    }

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

    // The monthly report of a month of 2026, its dialog accepted (and the
    // next one cancelled, if asked) and the folder chosen.
    bool GenerarInforme(std::int16_t mes, const std::string& carpeta, bool luegoCancelar = false) {
        platform.ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) { d.Ver<forms::CommandButton>("btnOK").Pulsar(); });
        if (luegoCancelar)
            platform.ui.AlMostrar("dlgInforme",
                                  [](forms::Dialogo& d) { d.Ver<forms::CommandButton>("btnCancelar").Pulsar(); });
        platform.ui.Elegir(carpeta);
        std::int16_t anio = 2026;
        bool bloquear = true;
        return acc->GenerarInformeMensual(mes, anio, bloquear);
    }
};

// --- The dialect probe and the statements that differ by dialect -------------

TEST_P(Conducta, DatabasetypeFindsMySqlWithOneProbeEachTime) {
    if (!Q().dialectoMySql) GTEST_SKIP() << kOtroDialecto;
    EXPECT_EQ(acc->databasetype(acc->ADOCnn), 2);
    EXPECT_EQ(Sentencias(), (Textos{kSondaMySql}));
    // Nothing is cached: the next call probes again.
    EXPECT_EQ(acc->databasetype(acc->ADOCnn), 2);
    EXPECT_EQ(Sentencias(), (Textos{kSondaMySql, kSondaMySql}));
}

TEST_P(Conducta, PosibleModificarCertificadoRunsTheLimitFormsThroughARangeOrDirectly) {
    if (!Q().dialectoMySql) GTEST_SKIP() << kOtroDialecto;
    const std::string conRango =
        "SELECT ut_CFD.Sys_PK FROM ut_CFD INNER JOIN (ut_CFDFolio INNER JOIN ut_CFDInfo ON "
        "ut_CFDFolio.uf_CFDInfo=ut_CFDInfo.Sys_PK) ON ut_CFD.uf_CFDFolio=ut_CFDFolio.Sys_PK WHERE ut_CFDInfo.Sys_PK=";
    const std::string directo =
        "SELECT ut_CFD.Sys_PK FROM ut_CFD INNER JOIN ut_CFDInfo ON ut_CFD.uf_CFDI_Info=ut_CFDInfo.Sys_PK WHERE "
        "ut_CFDInfo.Sys_PK=";
    const std::string buscaRango =
        "SELECT ut_CFDInfo.Sys_PK FROM ut_CFDFolio INNER JOIN ut_CFDInfo ON ut_CFDFolio.uf_CFDInfo=ut_CFDInfo.Sys_PK "
        "WHERE ut_CFDInfo.Sys_PK=";

    // Certificate 1 seals folio ranges 1 to 3, and ranges 1 and 2 have
    // comprobantes; certificate 2 has no range and seals the CFDI comprobantes
    // 3 and 7; certificate 3 is used by nothing, then seals range 3, which has
    // no comprobante.
    const std::tuple<int, const char*, bool, Textos> casos[] = {
        {1, "", false, {buscaRango + "1", kSondaMySql, conRango + "1 LIMIT 1"}},
        {2, "", false, {buscaRango + "2", kSondaMySql, directo + "2 LIMIT 1"}},
        {3, "", true, {buscaRango + "3", kSondaMySql, directo + "3 LIMIT 1"}},
        {3, "UPDATE ut_CFDFolio SET uf_CFDInfo=3 WHERE Sys_PK=3", true,
         {buscaRango + "3", kSondaMySql, conRango + "3 LIMIT 1"}}};
    for (const auto& [certificado, antes, posible, sentencias] : casos) {
        if (*antes) empresa->Ejecutar(antes);
        empresa->sentencias->clear();
        EXPECT_EQ(acc->PosibleModificarCertificado(certificado), posible) << certificado;
        EXPECT_EQ(Sentencias(), sentencias) << certificado;
    }
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_P(Conducta, TheFreeBlockListsOfTheEditorsRunWithTheirMySqlFilters) {
    if (!Q().dialectoMySql) GTEST_SKIP() << kOtroDialecto;
    const std::string documentos = "(BlockDocumentos.Documento=4 OR BlockDocumentos.Documento=5 OR "
                                   "BlockDocumentos.Documento=17) ";

    const std::tuple<std::string, const char*, PorClave> listas[] = {
        // The folio range editor: no block of a CFDI certificate (3, 4) or of
        // a CBB range (5, 9); the blocks of ranges stay, with their range.
        {"SELECT BlockDocumentos.Sys_PK,BlockDocumentos.Documento,BlockDocumentos.Serie AS "
         "Serie,BlockDocumentos.uf_CFDFolio FROM ut_FoliosCBB RIGHT JOIN BlockDocumentos ON "
         "ut_FoliosCBB.uf_BlockDoc=BlockDocumentos.Sys_PK WHERE " + documentos +
             " AND (ISNULL(BlockDocumentos.uf_CFDI_Info) OR BlockDocumentos.uf_CFDI_Info=0) AND "
             "(ISNULL(ut_FoliosCBB.uf_BlockDoc) OR ut_FoliosCBB.uf_BlockDoc=0)",
         "uf_CFDFolio", {{1, "1"}, {2, "2"}, {6, "Null"}, {7, "0"}}},
        // The CBB range editor: only blocks tied neither to a folio range nor
        // to a certificate; those of CBB ranges stay.
        {"SELECT Sys_PK, Serie, Documento FROM BlockDocumentos WHERE (Documento=4 OR Documento=5 OR Documento=17)  "
         "AND (ISNULL(uf_CFDFolio) OR uf_CFDFolio=0) AND (ISNULL(uf_CFDI_INFO) OR uf_CFDI_INFO=0)",
         "Serie", {{5, "C"}, {6, "E"}, {7, "G"}, {9, "H"}}},
        // Blocks by certificate 2: its own blocks and the free ones.
        {"SELECT BlockDocumentos.Sys_PK,BlockDocumentos.Serie,cDocumentos.Const AS "
         "Descripcion,BlockDocumentos.uf_CFDI_Info FROM ut_FoliosCBB RIGHT JOIN (BlockDocumentos INNER JOIN "
         "cDocumentos ON BlockDocumentos.Documento=cDocumentos.ID) ON ut_FoliosCBB.uf_BlockDoc=BlockDocumentos.Sys_PK "
         "WHERE " + documentos +
             " AND (BlockDocumentos.uf_CFDI_Info=2 OR ISNULL(BlockDocumentos.uf_CFDI_Info) OR "
             "BlockDocumentos.uf_CFDI_Info=0) AND (ISNULL(BlockDocumentos.uf_CFDFolio) OR "
             "BlockDocumentos.uf_CFDFolio=0) AND (ISNULL(ut_FoliosCBB.uf_BlockDoc) OR ut_FoliosCBB.uf_BlockDoc=0)",
         "Descripcion", {{3, "Factura"}, {4, "Nota de Cargo"}, {6, "Factura"}, {7, "Nota de Cargo"}}}};
    for (const auto& [sql, campo, filas] : listas) EXPECT_EQ(Filas(sql, campo), filas) << sql;
}

TEST_P(Conducta, AsignarTiposImpuestoIssuesBothFormsAndOnlyTheOneArgumentPairWorks) {
    if (!Q().dialectoMySql) GTEST_SKIP() << kOtroDialecto;
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
    EXPECT_EQ(Filas("SELECT Sys_PK, uf_TipoI3 FROM CfgImpuesto", "uf_TipoI3"), (PorClave{{1, "IEPS"}, {2, "Otro"}}));
    EXPECT_TRUE(platform.ui.Cajas().empty());

    // Which pair the engine understands, each statement on its own.
    for (const auto& s : unArgumento) EXPECT_TRUE(acc->ProbarConsulta(s, acc->ADOCnn)) << s;
    for (const auto& s : dosArgumentos) EXPECT_FALSE(acc->ProbarConsulta(s, acc->ADOCnn)) << s;
}

TEST_P(Conducta, TheSchemaUpgradeAddsTheApprovalDateWhicheverFormTheEngineTakes) {
    const std::string conColumn = "ALTER TABLE ut_FoliosCBB ADD COLUMN uf_FechaAprobacion DATETIME;";
    const std::string sinColumn = "ALTER TABLE ut_FoliosCBB ADD uf_FechaAprobacion DATETIME;";
    const std::string leerFecha = "SELECT Sys_PK, uf_FechaAprobacion FROM ut_FoliosCBB";
    // GIVEN the CBB ranges of a database from before the approval date
    empresa->Ejecutar("ALTER TABLE ut_FoliosCBB DROP COLUMN uf_FechaAprobacion");
    ASSERT_EQ(mdlMain::AbrirConsulta(acc->ADOCnn, leerFecha), nullptr);

    // WHEN the upgrade runs both forms in order, errors ignored, THEN the
    // first adds the column and the second fails because it is there. Every
    // engine here takes both forms: SQLite too accepts ADD without COLUMN.
    EXPECT_TRUE(acc->ProbarConsulta(conColumn, acc->ADOCnn));
    EXPECT_FALSE(acc->ProbarConsulta(sinColumn, acc->ADOCnn));
    EXPECT_EQ(Filas(leerFecha, "uf_FechaAprobacion"), (PorClave{{1, "Null"}, {2, "Null"}}));

    // The upgraded column holds a date as a date.
    empresa->Ejecutar("UPDATE ut_FoliosCBB SET uf_FechaAprobacion='2011-03-15 00:00:00' WHERE Sys_PK=1");
    EXPECT_EQ(Format(empresa->Valor("SELECT uf_FechaAprobacion FROM ut_FoliosCBB WHERE Sys_PK=1"),
                     "yyyy-MM-dd HH:mm:ss"),
              "2011-03-15 00:00:00");

    // The form without COLUMN alone upgrades as well, and fails once done.
    empresa->Ejecutar("ALTER TABLE ut_FoliosCBB DROP COLUMN uf_FechaAprobacion");
    EXPECT_TRUE(acc->ProbarConsulta(sinColumn, acc->ADOCnn));
    EXPECT_FALSE(acc->ProbarConsulta(conColumn, acc->ADOCnn));
    EXPECT_NE(mdlMain::AbrirConsulta(acc->ADOCnn, leerFecha), nullptr);
}

TEST_P(Conducta, TheWizardsCountOfStampedComprobantesOpensInItsFirstForm) {
    if (!Q().dialectoMySql) GTEST_SKIP() << kOtroDialecto;
    const std::string primera =
        "SELECT Count(Sys_PK) AS Total FROM ut_CFD WHERE uf_Tipo=3 AND (NOT isnull(uf_XMLCFDI))";
    const std::string segunda =
        "SELECT Count(Sys_PK) AS Total FROM ut_CFD WHERE uf_Tipo=3 AND (NOT isnull(uf_XMLCFDI,'')='')";
    // GIVEN beside the two stamped comprobantes of the demo, a stamped one
    // without its XML and a sealed one with an XML
    empresa->Ejecutar("INSERT INTO ut_CFD (uf_IVenta, uf_IDCXC, uf_Tipo, uf_XMLCFDI) VALUES (0, 0, 3, NULL)");
    empresa->Ejecutar("INSERT INTO ut_CFD (uf_IVenta, uf_IDCXC, uf_Tipo, uf_XMLCFDI) VALUES (0, 0, 1, '<xml/>')");

    EXPECT_EQ(CLng(mdlMain::LeerValorConsulta(acc->ADOCnn, primera, "Total")), 2);
    // The wizard would try the second form only if the first did not open;
    // on this dialect it does not open.
    EXPECT_EQ(mdlMain::AbrirConsulta(acc->ADOCnn, segunda), nullptr);
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
        CELDORA_LLAMADA(ExisteCFD_CXC(1), 1), CELDORA_LLAMADA(ExisteCFD_CXC(2), 0),
        CELDORA_LLAMADA(DocumentoAprobadoParaCFD(1), 1),      // block A, range 1
        CELDORA_LLAMADA(DocumentoAprobadoParaCFD(6), 0),      // block F, uf_CFDFolio Null
        CELDORA_LLAMADA(DocumentoAprobadoParaCFD_CXC(1), 1),  // block B, range 2
        CELDORA_LLAMADA(DocumentoAprobadoParaCFD_CXC(5), 0),  // block G, uf_CFDFolio 0
        CELDORA_LLAMADA(DocumentoAprobadoParaCFDI(6), 1),     // block F, certificate 2
        CELDORA_LLAMADA(DocumentoAprobadoParaCFDI(8), 0),     // block C, a CBB range only
        CELDORA_LLAMADA(DocumentoAprobadoParaCFDI_CXC(2), 1), // block D, certificate 2
        CELDORA_LLAMADA(DocumentoAprobadoParaCFDI_CXC(6), 0), // no folio
        CELDORA_LLAMADA(BlockVentaCFDI_CBB(6), 2), CELDORA_LLAMADA(BlockVentaCFDI_CBB(8), 3),
        CELDORA_LLAMADA(BlockVentaCFDI_CBB(1), 0), CELDORA_LLAMADA(BlockVentaCFDI_CBB(14), 0),
        CELDORA_LLAMADA(BlockCXC_CFDI_CBB(2), 2), CELDORA_LLAMADA(BlockCXC_CFDI_CBB(3), 3),
        CELDORA_LLAMADA(BlockCXC_CFDI_CBB(5), 0),  // block G, links 0
        CELDORA_LLAMADA(TipoDocumento(1), 4), CELDORA_LLAMADA(TipoDocumento(13), 2),  // a Pedido
        CELDORA_LLAMADA(TipoDocumento_CXC(1), 5), CELDORA_LLAMADA(TipoDocumento_CXC(3), 17),
        CELDORA_LLAMADA(TipoDocumento(999), 0),
        CELDORA_LLAMADA(PorcentajeIVATrasladadoEnVentaFinanciada(1), 16),
        CELDORA_LLAMADA(PorcentajeIVATrasladadoEnVentaFinanciada(2), 16),  // 0 % and 16 %
        CELDORA_LLAMADA(PorcentajeIVATrasladadoEnVentaFinanciada(8), 0),   // only 0 %
        CELDORA_LLAMADA(PorcentajeIVATrasladadoEnVentaFinanciada(6), -1),  // no lines
        CELDORA_LLAMADA(FolioAprobadoCBB(8), 1), CELDORA_LLAMADA(FolioAprobadoCBB(10), 1),  // C-1 and C-500
        CELDORA_LLAMADA(FolioAprobadoCBB_CXC(3), 1),  // H-100, the last folio
        // The refusals, each with its box below.
        CELDORA_LLAMADA(FolioAprobadoCBB(11), 0), CELDORA_LLAMADA(FolioAprobadoCBB_CXC(4), 0),
        CELDORA_LLAMADA(FolioAprobadoCBB(1), 0),  // block A has no CBB range
    };
    for (const auto& r : respuestas) EXPECT_EQ(r.llamar(*acc), r.esperado) << r.llamada;
    EXPECT_EQ(acc->LastErrorDescript, "");
    const std::string fuera = "El Folio del documento no se encuentra dentro de un rango de folios v";
    ASSERT_EQ(platform.ui.Cajas().size(), 3u);
    platform.ui.ExpectCaja(0, fuera + "álido para CBB", Icono::Exclamacion);
    platform.ui.ExpectCaja(1, fuera + "alido para CBB", Icono::Exclamacion);
    platform.ui.ExpectCaja(2, "No existe ningun rango de folios para CBB relacionado al block de este documento",
                           Icono::Exclamacion);

    EXPECT_EQ(acc->PorcentajeIVATrasladadoEnVentaFinanciada(5), -1.0) << "16 % and 11 %";
    EXPECT_EQ(acc->LastErrorDescript,
              "No es posible continuar debido a que la venta contiene productos con tasas diferentes mayor que cero "
              "de IVA trasladado.");
}

// Saving a setting twice with the same value still saves: the store updates
// a key in place and inserts only when no row matched, which the server must
// count as matched. A facade bound afterwards reads what was saved.
TEST_P(Conducta, SettingsSavedTwiceAreOneRowAndAFacadeBoundAfterwardsReadsThem) {
    // The demo lets groups 1 and 3 take the first permission.
    auto ventas = std::make_shared<platform::UsuarioConGrupos>(std::vector<std::int32_t>{3, 7});
    auto auditoria = std::make_shared<platform::UsuarioConGrupos>(std::vector<std::int32_t>{7, 12});
    EXPECT_TRUE(acc->PermitirAcceso("NVCA316x", ventas));
    EXPECT_EQ(ventas->VecesCargado(), 1);
    EXPECT_FALSE(acc->PermitirAcceso("NVCA316x", auditoria));
    EXPECT_TRUE(acc->PermitirAcceso("NVCA317x", auditoria)) << "a key never saved allows everyone";

    for (int vez = 0; vez < 2; ++vez) {
        ASSERT_TRUE(acc->GlobalVar->GuardarNumero("NVCA300xa", 4));
        ASSERT_TRUE(acc->GlobalVar->GuardarTexto("NVCA317x", "12;70"));
    }
    EXPECT_EQ(empresa->Contar("gv_Configuracion WHERE Clave IN ('NVCA300xa', 'NVCA317x')"), 2);
    auto otra = Enlazar();
    EXPECT_EQ(otra->TipoComprobanteAGenerar(), cCFDI_CBB);
    EXPECT_EQ(otra->TipoComprobanteAGenerarInt(), 4);
    EXPECT_TRUE(otra->PermitirAcceso("NVCA317x", auditoria));
    EXPECT_FALSE(otra->PermitirAcceso("NVCA317x", ventas));

    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    platform.ui.ExpectCaja(0, "Permiso denegado.", Icono::Critico, "Tiendaro");
    platform.ui.ExpectCaja(1, "Permiso denegado.", Icono::Critico, "Tiendaro");
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
        EXPECT_EQ(origen->lastError, "");
    }
}

// The demo company as each engine loads it: tables found whatever the
// capitals the system spells them with, the dialect's date functions, the
// report's line breaks, the settings, and columns that refuse what they
// cannot hold.
TEST_P(Conducta, TheDemoCompanyAnswersTheStatementsTheRulesRestOn) {
    auto bitacora = mdlMain::AbrirConsulta(acc->ADOCnn, "SELECT uf_Datos FROM Ut_CFDBitacora");
    ASSERT_TRUE(bitacora);
    int lineas = 0;
    for (; !bitacora->Eof(); bitacora->movenext(), ++lineas) {
        const std::string datos = mdlMain::TextoCampo(*bitacora, "uf_Datos");
        EXPECT_EQ(std::count(datos.begin(), datos.end(), '|'), 13) << datos;
    }
    EXPECT_EQ(lineas, 8);
    EXPECT_EQ(empresa->Contar("ut_CFDFOlio"), 3);
    EXPECT_EQ(empresa->Contar("DCxC"), 6);
    EXPECT_EQ(empresa->Contar("CCOnsumo"), 3);
    EXPECT_EQ(empresa->Contar("Ciudad WHERE Nombre='(desconocido)'"), 1);
    EXPECT_EQ(CLng(mdlMain::LeerValorConsulta(acc->ADOCnn, "SELECT Count(Sys_PK) AS n FROM ut_CFD WHERE "
                                                         "Year(uf_FechaHora)=2026 AND Month(uf_FechaHora)=11", "n")),
              4);
    EXPECT_EQ(Texto("SELECT GroupID FROM UserGroup WHERE Sys_PK=12"), "Auditoría");
    EXPECT_EQ(acc->GlobalVar->LeerTexto("NVCA101", ""), "EKU9003173C9");
    EXPECT_EQ(acc->GlobalVar->LeerNumero("NVCA300xa", 0), 2.0);
    // The October report keeps its lines apart with CR LF and nothing after the last.
    const std::string informe = Texto("SELECT uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=10");
    EXPECT_NE(informe.find("|\r\n|"), std::string::npos);
    EXPECT_NE(informe.back(), '\n');

    for (const auto& [columna, valor] : {std::pair{"uf_noCertificado", std::string(21, '1')},
                                          std::pair{"uf_Certificado", std::string(4097, 'c')}}) {
        const Fault falla = testing::FallaDe([&] {
            empresa->cnn->motor().Ejecutar(std::string("UPDATE ut_CFDInfo SET ") + columna + "=? WHERE Sys_PK=1",
                                           {valor});
        });
        EXPECT_NE(falla.number, 0) << columna;
    }
    EXPECT_EQ(Texto("SELECT uf_noCertificado FROM ut_CFDInfo WHERE Sys_PK=1").size(), 20u);
}

TEST_P(Conducta, TextsWithAccentsComeBackWhole) {
    auto regimenes = acc->RegimenesFicalesCol();
    ASSERT_EQ(regimenes->Count(), 2);
    const std::pair<const char*, const char*> esperados[] = {
        {"Personas Morales con Fines no Lucrativos", ""},  // Null notes
        {"Régimen General de Ley Personas Morales", "Título II de la Ley del ISR"}};
    for (int i = 0; i < 2; ++i) {
        auto regimen = std::dynamic_pointer_cast<cRegimenFical>(regimenes->Item(i + 1).AsObject());
        ASSERT_TRUE(regimen);
        EXPECT_EQ(regimen->Regimen, esperados[i].first);
        EXPECT_EQ(regimen->Notas, esperados[i].second);
    }
}

// --- Guards of certificates, folio ranges and CBB ranges ----------------------

TEST_P(Conducta, EliminarAprobacionFoliosFreesItsBlocksAndDeletesInOneTransaction) {
    // GIVEN range 3, without comprobantes, ties block 6 as fiscal
    empresa->Ejecutar("UPDATE BlockDocumentos SET uf_CFDFolio=3, Fiscal=1 WHERE Sys_PK=6");
    empresa->sentencias->clear();

    EXPECT_TRUE(acc->EliminarAprobacionFolios(3, /*boAsk=*/false));

    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar"}));
    EXPECT_EQ(Ultimas(2), (Textos{"UPDATE BlockDocumentos SET uf_CFDFolio=NULL,Fiscal=0 WHERE uf_CFDFolio=3",
                                  "DELETE FROM ut_CFDFolio WHERE Sys_PK=3"}));
    EXPECT_EQ(empresa->Contar("ut_CFDFolio WHERE Sys_PK=3"), 0);
    EXPECT_EQ(empresa->Contar("BlockDocumentos WHERE Sys_PK=6 AND uf_CFDFolio IS NULL AND Fiscal=0"), 1);
    EXPECT_EQ(empresa->Contar("BlockDocumentos WHERE Sys_PK=1 AND uf_CFDFolio=1 AND Fiscal=1"), 1);
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

// --- Cancellation and log state -------------------------------------------------

TEST_P(Conducta, CancelarCFDDeletesTheLogLineThenTheComprobanteInItsOwnTransaction) {
    platform.ui.Responder(Respuesta::Si);

    EXPECT_TRUE(acc->CancelarCFD(5));

    platform.ui.ExpectPregunta(0, "¿Está seguro que desea eliminar el elemento seleccionado?");
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar"}));
    EXPECT_EQ(Ultimas(2), (Textos{"DELETE FROM ut_CFDBitacora WHERE uf_CFD=5", "DELETE FROM ut_CFD WHERE Sys_PK=5"}));
    EXPECT_EQ(empresa->Contar("ut_CFD"), 7);
    EXPECT_EQ(empresa->Contar("ut_CFDBitacora"), 7);
    EXPECT_EQ(acc->LastErrorDescript, "");
}

// GIVEN the host holds a transaction of its own, THEN the facade begins and
// ends nothing, the rows are gone inside the host's transaction, and the
// host's rollback brings both back while its commit keeps the deletes.
TEST_P(Conducta, CancelarCFDWithoutATransactionOfItsOwnLeavesTheOutcomeToTheCaller) {
    for (const bool confirmar : {false, true}) {
        ASSERT_TRUE(CBool(datos->IniciarTransaccion()));
        platform.ui.Responder(Respuesta::Si);
        EXPECT_TRUE(acc->CancelarCFD(5, true, /*WithTrans=*/false));
        EXPECT_TRUE(dataObjects->llamadas.empty());
        EXPECT_EQ(empresa->Contar("ut_CFD WHERE Sys_PK=5"), 0);
        EXPECT_EQ(empresa->Contar("ut_CFDBitacora WHERE uf_CFD=5"), 0);
        ASSERT_TRUE(CBool(confirmar ? datos->ConfirmarTransaccion(0) : datos->RevertirTransaccion(0)));
        EXPECT_FALSE(CBool(datos->RevertirTransaccion(0))) << "no transaction is left open";
        EXPECT_EQ(empresa->Contar("ut_CFD WHERE Sys_PK=5"), confirmar ? 0 : 1);
        EXPECT_EQ(empresa->Contar("ut_CFDBitacora WHERE uf_CFD=5"), confirmar ? 0 : 1);
    }
}

TEST_P(Conducta, MarcarCFDIsCanceladoMarksByUuidAndTheAcknowledgementIsKeptWhole) {
    EXPECT_TRUE(acc->MarcarCFDIsCancelado(kUuid3 + ",sin-fila"));
    EXPECT_EQ(Sentencias(), (Textos{"UPDATE ut_CFD SET uf_CanceladoSAT=1 WHERE uf_FolioSAT='" + kUuid3 + "'",
                                    "UPDATE ut_CFD SET uf_CanceladoSAT=1 WHERE uf_FolioSAT='sin-fila'"}));
    EXPECT_EQ(empresa->Contar("ut_CFD WHERE uf_CanceladoSAT=1"), 1);
    EXPECT_EQ(empresa->Contar("ut_CFD WHERE uf_CanceladoSAT=1 AND Sys_PK=3"), 1);

    // An acknowledgement far longer than any sized column, with accents.
    std::string acuse = "<Acuse Estatus=\"201\" Mensaje=\"Cancelación aceptada\">";
    while (acuse.size() < 100000) acuse += "<Folio UUID=\"" + kUuid3 + "\" EstatusUUID=\"201\"/>";
    acuse += "</Acuse>";
    EXPECT_TRUE(acc->guardar_ack_cancelacion(acuse, 3));
    EXPECT_EQ(Texto("SELECT uf_ackCancelacion_SAT FROM ut_CFD WHERE Sys_PK=3"), acuse);
    EXPECT_TRUE(acc->guardar_ack_cancelacion("acuse", 99)) << "no such comprobante, still true";
    EXPECT_EQ(empresa->Contar("ut_CFD WHERE uf_ackCancelacion_SAT IS NOT NULL"), 1);
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_P(Conducta, AUuidInOtherCapitalsFindsItsComprobanteOnlyWhereTextIgnoresCase) {
    std::string minusculas;
    for (char c : kUuid7) minusculas += (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;

    EXPECT_TRUE(acc->MarcarCFDIsCancelado(minusculas));

    // textoSinDistinguirMayusculas: the comparison is the engine's, so the
    // same call marks comprobante 7 on MariaDB and nothing on SQLite.
    EXPECT_EQ(empresa->Contar("ut_CFD WHERE uf_CanceladoSAT=1 AND Sys_PK=7"),
              Q().textoSinDistinguirMayusculas ? 1 : 0);
    EXPECT_EQ(empresa->Contar("ut_CFD WHERE uf_CanceladoSAT=1 AND Sys_PK<>7"), 0);
}

// --- The monthly report ------------------------------------------------------

// The report's lines in the order the engine gave the rows, which no clause
// fixes: compared in order of their text, with the cancelled comprobante's
// two lines checked for being together, in force first.
void ExpectLineasDeNoviembre(const std::string& contenido) {
    const std::string vigente = "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|1|I||||";
    const std::string cancelada = "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|0|I||||";
    Textos lineas = Split(contenido, "\r\n");
    const auto enVigor = std::find(lineas.begin(), lineas.end(), vigente);
    ASSERT_NE(enVigor, lineas.end()) << contenido;
    ASSERT_NE(enVigor + 1, lineas.end()) << contenido;
    EXPECT_EQ(*(enVigor + 1), cancelada) << contenido;
    std::sort(lineas.begin(), lineas.end());
    EXPECT_EQ(lineas, (Textos{"|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|0|I||||", vigente,
                              "|CIN960904FQ2|B|1|201123456|18/11/2026 10:30:00|580.00|80.00|1|E||||",
                              "|LOPJ7009128T5|A|3|201012345|03/11/2026 11:20:00|3480.00|480.00|1|I||||"}));
}

TEST_P(Conducta, AMonthlyReportIsGeneratedAndDeletedInTransactionsOfItsOwn) {
    testing::CarpetaTemporal carpeta;
    EXPECT_TRUE(GenerarInforme(11, carpeta.ruta().string()));

    const std::string contenido = Texto("SELECT uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=11 AND uf_Anio=2026");
    ExpectLineasDeNoviembre(contenido);
    std::ifstream archivo(carpeta.ruta() / "1EKU9003173C9112026.txt", std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(archivo), {}), contenido);
    EXPECT_EQ(Reportados(), (PorClave{{1, "1"}, {2, "1"}, {3, "0"}, {4, "0"}, {5, "1"}, {6, "1"}, {7, "0"}, {8, "1"}}));
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar"}));

    platform.ui.Responder(Respuesta::Si);
    std::int16_t mes = 11, anio = 2026;
    bool conTransaccion = true, preguntar = true;
    EXPECT_TRUE(acc->EliminarInformeMensual(mes, anio, conTransaccion, preguntar));

    EXPECT_EQ(empresa->Contar("ut_CFDInforme WHERE uf_Mes=11 AND uf_Anio=2026"), 0);
    EXPECT_EQ(Reportados(), (PorClave{{1, "1"}, {2, "1"}, {3, "0"}, {4, "0"}, {5, "0"}, {6, "0"}, {7, "0"}, {8, "0"}}));
    EXPECT_EQ(Texto("SELECT uf_Datos FROM ut_CFDBitacora WHERE Sys_PK=6"),
              "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|0|I||||");
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar", "Iniciar", "Confirmar"}));
}

TEST_P(Conducta, ARegenerationWhoseFileCannotBeWrittenLeavesTheFormerReport) {
    testing::CarpetaTemporal carpeta;
    // A folder that is a file: not even root writes in it.
    const auto noEsCarpeta = carpeta.ruta() / "archivo";
    std::ofstream(noEsCarpeta) << "x";
    const std::string antes = Texto("SELECT uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=10 AND uf_Anio=2026");
    platform.ui.Responder(Respuesta::Si);

    EXPECT_FALSE(GenerarInforme(10, noEsCarpeta.string(), /*luegoCancelar=*/true));

    platform.ui.ExpectCaja(1, "Error al guardar archivo " + noEsCarpeta.string() + "/1EKU9003173C9102026.txt",
                           Icono::Exclamacion);
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Revertir"}));
    EXPECT_EQ(Texto("SELECT Sys_PK FROM ut_CFDInforme WHERE uf_Mes=10 AND uf_Anio=2026"), "2");
    EXPECT_EQ(Texto("SELECT uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=10 AND uf_Anio=2026"), antes);
    EXPECT_EQ(Reportados(), (PorClave{{1, "1"}, {2, "1"}, {3, "0"}, {4, "0"}, {5, "0"}, {6, "0"}, {7, "0"}, {8, "0"}}));
}

std::string NombreDelTipo(const ::testing::TestParamInfo<std::string>& info) {
    std::string nombre;
    for (char c : info.param) nombre += c == '-' ? '_' : c;
    return nombre;
}

INSTANTIATE_TEST_SUITE_P(Motores, Conducta, ::testing::ValuesIn(Empresa::Tipos()), NombreDelTipo);

}  // namespace
}  // namespace celdora
