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
#include <iterator>
#include <map>
#include <memory>
#include <string>
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
#include "value/Date.h"
#include "value/Format.h"
#include "value/Text.h"

namespace celdora {
namespace {

using host::Botones;
using host::Icono;
using host::Respuesta;
using integracion::Empresa;
using integracion::Peculiaridades;
using testing::DataObjectsAnotados;
using testing::TestPlatform;
using Textos = std::vector<std::string>;

const std::string kUuid3 = "6F1A2B3C-4D5E-4F60-8172-93A4B5C6D7E8";
const std::string kUuid7 = "A1B2C3D4-E5F6-4A7B-8C9D-0E1F2A3B4C5D";
const std::string kSondaMySql = "Select UUID() as GUID;";
const std::string kPreguntaEliminar = "¿Está seguro que desea eliminar el elemento indicado?";
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
    }

    void TearDown() override {
        acc.reset();
        empresa.reset();
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
    std::map<long, std::string> Filas(const std::string& sql, const std::string& campo) {
        std::map<long, std::string> filas;
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
    std::string Linea(int sysPk) {
        return Texto("SELECT uf_Datos FROM ut_CFDBitacora WHERE Sys_PK=" + std::to_string(sysPk));
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

    // Certificate 1 seals folio ranges 1 to 3, and ranges 1 and 2 have comprobantes.
    EXPECT_FALSE(acc->PosibleModificarCertificado(1));
    EXPECT_EQ(Sentencias(), (Textos{buscaRango + "1", kSondaMySql, conRango + "1 LIMIT 1"}));

    // Certificate 2 has no range and seals the CFDI comprobantes 3 and 7.
    empresa->sentencias->clear();
    EXPECT_FALSE(acc->PosibleModificarCertificado(2));
    EXPECT_EQ(Sentencias(), (Textos{buscaRango + "2", kSondaMySql, directo + "2 LIMIT 1"}));

    // Certificate 3 is used by nothing, then seals range 3, which has no comprobante.
    empresa->sentencias->clear();
    EXPECT_TRUE(acc->PosibleModificarCertificado(3));
    EXPECT_EQ(Ultimas(1), (Textos{directo + "3 LIMIT 1"}));
    empresa->Ejecutar("UPDATE ut_CFDFolio SET uf_CFDInfo=3 WHERE Sys_PK=3");
    empresa->sentencias->clear();
    EXPECT_TRUE(acc->PosibleModificarCertificado(3));
    EXPECT_EQ(Ultimas(1), (Textos{conRango + "3 LIMIT 1"}));
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_P(Conducta, TheFreeBlockListsOfTheEditorsRunWithTheirMySqlFilters) {
    if (!Q().dialectoMySql) GTEST_SKIP() << kOtroDialecto;
    const std::string documentos = "(BlockDocumentos.Documento=4 OR BlockDocumentos.Documento=5 OR "
                                   "BlockDocumentos.Documento=17) ";

    // The folio range editor: no block of a CFDI certificate (3, 4) or of a
    // CBB range (5, 9); the blocks of ranges stay, with their range.
    const auto rangoDeFolios =
        Filas("SELECT BlockDocumentos.Sys_PK,BlockDocumentos.Documento,BlockDocumentos.Serie AS "
              "Serie,BlockDocumentos.uf_CFDFolio FROM ut_FoliosCBB RIGHT JOIN BlockDocumentos ON "
              "ut_FoliosCBB.uf_BlockDoc=BlockDocumentos.Sys_PK WHERE " +
                  documentos +
                  " AND (ISNULL(BlockDocumentos.uf_CFDI_Info) OR BlockDocumentos.uf_CFDI_Info=0) AND "
                  "(ISNULL(ut_FoliosCBB.uf_BlockDoc) OR ut_FoliosCBB.uf_BlockDoc=0)",
              "uf_CFDFolio");
    EXPECT_EQ(rangoDeFolios, (std::map<long, std::string>{{1, "1"}, {2, "2"}, {6, "Null"}, {7, "0"}}));

    // The CBB range editor: only blocks tied neither to a folio range nor to
    // a certificate; those of CBB ranges stay.
    const auto rangoCbb = Filas("SELECT Sys_PK, Serie, Documento FROM BlockDocumentos WHERE (Documento=4 OR "
                                "Documento=5 OR Documento=17)  AND (ISNULL(uf_CFDFolio) OR uf_CFDFolio=0) AND "
                                "(ISNULL(uf_CFDI_INFO) OR uf_CFDI_INFO=0)",
                                "Serie");
    EXPECT_EQ(rangoCbb, (std::map<long, std::string>{{5, "C"}, {6, "E"}, {7, "G"}, {9, "H"}}));

    // Blocks by certificate 2: its own blocks and the free ones.
    const auto porCertificado =
        Filas("SELECT BlockDocumentos.Sys_PK,BlockDocumentos.Serie,cDocumentos.Const AS "
              "Descripcion,BlockDocumentos.uf_CFDI_Info FROM ut_FoliosCBB RIGHT JOIN (BlockDocumentos INNER JOIN "
              "cDocumentos ON BlockDocumentos.Documento=cDocumentos.ID) ON "
              "ut_FoliosCBB.uf_BlockDoc=BlockDocumentos.Sys_PK WHERE " +
                  documentos +
                  " AND (BlockDocumentos.uf_CFDI_Info=2 OR ISNULL(BlockDocumentos.uf_CFDI_Info) OR "
                  "BlockDocumentos.uf_CFDI_Info=0) AND (ISNULL(BlockDocumentos.uf_CFDFolio) OR "
                  "BlockDocumentos.uf_CFDFolio=0) AND (ISNULL(ut_FoliosCBB.uf_BlockDoc) OR "
                  "ut_FoliosCBB.uf_BlockDoc=0)",
              "Descripcion");
    EXPECT_EQ(porCertificado, (std::map<long, std::string>{
                                  {3, "Factura"}, {4, "Nota de Cargo"}, {6, "Factura"}, {7, "Nota de Cargo"}}));
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
    EXPECT_EQ(Texto("SELECT uf_TipoI1 FROM CfgImpuesto WHERE Sys_PK=1"), "IVA");
    EXPECT_EQ(Texto("SELECT uf_TipoI3 FROM CfgImpuesto WHERE Sys_PK=1"), "IEPS");
    EXPECT_EQ(Texto("SELECT uf_TipoI1 FROM CfgImpuesto WHERE Sys_PK=2"), "VAT");
    EXPECT_EQ(Texto("SELECT uf_TipoI3 FROM CfgImpuesto WHERE Sys_PK=2"), "Otro");
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
    EXPECT_EQ(Filas(leerFecha, "uf_FechaAprobacion"), (std::map<long, std::string>{{1, "Null"}, {2, "Null"}}));

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

    auto cuenta = mdlMain::AbrirConsulta(acc->ADOCnn, primera);
    ASSERT_NE(cuenta, nullptr);
    EXPECT_EQ(CLng(cuenta->Fields("Total").Value()), 2);
    cuenta->Close();
    // The wizard would try the second form only if the first did not open;
    // on this dialect it does not open.
    EXPECT_EQ(mdlMain::AbrirConsulta(acc->ADOCnn, segunda), nullptr);
}

// --- Document rules on the demo company ---------------------------------------

TEST_P(Conducta, TheComprobanteKindAndDecimalsAreTheCompanysStoredSettings) {
    EXPECT_EQ(acc->TipoComprobanteAGenerar(), cCFDI);
    EXPECT_EQ(acc->NumeroDecimalesXML(), 2);

    // Saving a setting twice with the same value still saves: the store
    // updates a key in place and inserts only when no row matched.
    ASSERT_TRUE(acc->GlobalVar->GuardarNumero("NVCA300xa", 4));
    ASSERT_TRUE(acc->GlobalVar->GuardarNumero("NVCA300xa", 4));
    EXPECT_EQ(empresa->Contar("gv_Configuracion WHERE Clave='NVCA300xa'"), 1);

    // A facade bound afterwards reads the setting from the database.
    auto otra = Enlazar();
    EXPECT_EQ(otra->TipoComprobanteAGenerar(), cCFDI_CBB);
    EXPECT_EQ(otra->TipoComprobanteAGenerarInt(), 4);
}

TEST_P(Conducta, ExistenceAndApprovalOfSalesAndReceivables) {
    EXPECT_TRUE(acc->ExisteCFD(1));
    EXPECT_FALSE(acc->ExisteCFD(5)) << "a sale without comprobante";
    EXPECT_TRUE(acc->ExisteCFD_CXC(1));
    EXPECT_FALSE(acc->ExisteCFD_CXC(2));

    EXPECT_TRUE(acc->DocumentoAprobadoParaCFD(1)) << "block A, range 1";
    EXPECT_FALSE(acc->DocumentoAprobadoParaCFD(6)) << "block F, uf_CFDFolio Null";
    EXPECT_TRUE(acc->DocumentoAprobadoParaCFD_CXC(1)) << "block B, range 2";
    EXPECT_FALSE(acc->DocumentoAprobadoParaCFD_CXC(5)) << "block G, uf_CFDFolio 0";
    EXPECT_TRUE(acc->DocumentoAprobadoParaCFDI(6)) << "block F, certificate 2";
    EXPECT_FALSE(acc->DocumentoAprobadoParaCFDI(8)) << "block C, a CBB range only";
    EXPECT_TRUE(acc->DocumentoAprobadoParaCFDI_CXC(2)) << "block D, certificate 2";
    EXPECT_FALSE(acc->DocumentoAprobadoParaCFDI_CXC(6)) << "no folio";
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_P(Conducta, FolioAprobadoCBBTakesBothBoundsAndSaysWhyItRefuses) {
    EXPECT_TRUE(acc->FolioAprobadoCBB(8)) << "C-1, the first folio";
    EXPECT_TRUE(acc->FolioAprobadoCBB(10)) << "C-500, the last folio";
    EXPECT_TRUE(acc->FolioAprobadoCBB_CXC(3)) << "H-100, the last folio";
    EXPECT_TRUE(platform.ui.Cajas().empty());

    EXPECT_FALSE(acc->FolioAprobadoCBB(11)) << "C-501";
    EXPECT_FALSE(acc->FolioAprobadoCBB_CXC(4)) << "H-101";
    EXPECT_FALSE(acc->FolioAprobadoCBB(1)) << "block A has no CBB range";
    ASSERT_EQ(platform.ui.Cajas().size(), 3u);
    platform.ui.ExpectCaja(0, "El Folio del documento no se encuentra dentro de un rango de folios válido para CBB",
               Icono::Exclamacion);
    platform.ui.ExpectCaja(1, "El Folio del documento no se encuentra dentro de un rango de folios valido para CBB",
               Icono::Exclamacion);
    platform.ui.ExpectCaja(2, "No existe ningun rango de folios para CBB relacionado al block de este documento",
               Icono::Exclamacion);
}

TEST_P(Conducta, TheBlockAndTheHostsNumberTellTheKindOfADocument) {
    EXPECT_EQ(acc->BlockVentaCFDI_CBB(6), 2) << "block F, certificate 2";
    EXPECT_EQ(acc->BlockVentaCFDI_CBB(8), 3) << "block C, CBB range 1";
    EXPECT_EQ(acc->BlockVentaCFDI_CBB(1), 0) << "block A, a folio range only";
    EXPECT_EQ(acc->BlockVentaCFDI_CBB(14), 0) << "no folio";
    EXPECT_EQ(acc->BlockCXC_CFDI_CBB(2), 2) << "block D, certificate 2";
    EXPECT_EQ(acc->BlockCXC_CFDI_CBB(3), 3) << "block H, CBB range 2";
    EXPECT_EQ(acc->BlockCXC_CFDI_CBB(5), 0) << "block G, links 0";

    EXPECT_EQ(acc->TipoDocumento(1), 4);
    EXPECT_EQ(acc->TipoDocumento(13), 2) << "a Pedido";
    EXPECT_EQ(acc->TipoDocumento_CXC(1), 5);
    EXPECT_EQ(acc->TipoDocumento_CXC(3), 17);
    EXPECT_EQ(acc->TipoDocumento(999), 0);
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_P(Conducta, PermitirAccesoComparesTheUsersGroupsWithTheStoredList) {
    // The demo lets groups 1 and 3 take the first permission.
    auto ventas = std::make_shared<platform::UsuarioConGrupos>(std::vector<std::int32_t>{3, 7});
    auto auditoria = std::make_shared<platform::UsuarioConGrupos>(std::vector<std::int32_t>{7, 12});
    EXPECT_TRUE(acc->PermitirAcceso("NVCA316x", ventas));
    EXPECT_EQ(ventas->VecesCargado(), 1);
    EXPECT_FALSE(acc->PermitirAcceso("NVCA316x", auditoria));
    EXPECT_TRUE(acc->PermitirAcceso("NVCA317x", auditoria)) << "a key never saved allows everyone";

    // A list saved now (twice, as a settings page saves every key) is what a
    // facade bound afterwards reads.
    ASSERT_TRUE(acc->GlobalVar->GuardarTexto("NVCA317x", "12;70"));
    ASSERT_TRUE(acc->GlobalVar->GuardarTexto("NVCA317x", "12;70"));
    auto otra = Enlazar();
    EXPECT_TRUE(otra->PermitirAcceso("NVCA317x", auditoria));
    EXPECT_FALSE(otra->PermitirAcceso("NVCA317x", ventas));

    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    platform.ui.ExpectCaja(0, "Permiso denegado.", Icono::Critico, "Tiendaro");
    platform.ui.ExpectCaja(1, "Permiso denegado.", Icono::Critico, "Tiendaro");
}

TEST_P(Conducta, PorcentajeIVALetsZeroMixWithOneRateAndRefusesTwo) {
    EXPECT_EQ(acc->PorcentajeIVATrasladadoEnVentaFinanciada(1), 16.0);
    EXPECT_EQ(acc->PorcentajeIVATrasladadoEnVentaFinanciada(2), 16.0) << "0 % and 16 %";
    EXPECT_EQ(acc->PorcentajeIVATrasladadoEnVentaFinanciada(8), 0.0) << "only 0 %";
    EXPECT_EQ(acc->PorcentajeIVATrasladadoEnVentaFinanciada(6), -1.0) << "no lines";
    EXPECT_EQ(acc->LastErrorDescript, "");

    EXPECT_EQ(acc->PorcentajeIVATrasladadoEnVentaFinanciada(5), -1.0) << "16 % and 11 %";
    EXPECT_EQ(acc->LastErrorDescript,
              "No es posible continuar debido a que la venta contiene productos con tasas diferentes mayor que cero "
              "de IVA trasladado.");
}

TEST_P(Conducta, TheOriginFolioOfACfdAndOfACfdi) {
    cFolioOrigen cfd;
    EXPECT_EQ(cfd.cargarInformacion_CFD(1, empresa->cnn), Variant(true));
    EXPECT_EQ(cfd.FolioFiscalOrig, "1");
    EXPECT_EQ(cfd.SerieFolioFiscalOrig, "A");
    EXPECT_EQ(Format(Variant(cfd.FechaFolioFiscalOrig), "yyyy-MM-dd HH:mm:ss"), "2026-10-05 10:15:00");
    EXPECT_EQ(cfd.MontoFolioFiscalOrig, Currency{11600000});
    EXPECT_EQ(cfd.lastError, "");

    cFolioOrigen cfdi;
    EXPECT_EQ(cfdi.cargarInformacion_CFDI(6, empresa->cnn), Variant(true));
    EXPECT_EQ(cfdi.FolioFiscalOrig, kUuid3);
    EXPECT_EQ(cfdi.SerieFolioFiscalOrig, "F");
    EXPECT_EQ(Format(Variant(cfdi.FechaFolioFiscalOrig), "yyyy-MM-dd HH:mm:ss"), "2026-10-20 09:05:00");
    EXPECT_EQ(cfdi.MontoFolioFiscalOrig, Currency{16240000});
}

TEST_P(Conducta, TextsWithAccentsComeBackWhole) {
    auto regimenes = acc->RegimenesFicalesCol();
    ASSERT_EQ(regimenes->Count(), 2);
    auto primero = std::dynamic_pointer_cast<cRegimenFical>(regimenes->Item(1).AsObject());
    auto segundo = std::dynamic_pointer_cast<cRegimenFical>(regimenes->Item(2).AsObject());
    ASSERT_TRUE(primero && segundo);
    EXPECT_EQ(primero->Regimen, "Personas Morales con Fines no Lucrativos");
    EXPECT_EQ(primero->Notas, "") << "Null notes";
    EXPECT_EQ(segundo->Regimen, "Régimen General de Ley Personas Morales");
    EXPECT_EQ(segundo->Notas, "Título II de la Ley del ISR");
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

    // A range with comprobantes is refused before any question.
    EXPECT_FALSE(acc->EliminarAprobacionFolios(1));
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    platform.ui.ExpectCaja(0,
               "No se puede eliminar el elemento porque ya existen Facturas electrónicas generadas con el rango de "
               "folios seleccionado.",
               Icono::Exclamacion);
    EXPECT_EQ(dataObjects->llamadas.size(), 2u);
    EXPECT_EQ(empresa->Contar("ut_CFDFolio WHERE Sys_PK=1"), 1);
}

TEST_P(Conducta, EliminarCertificadoRefusesWhileComprobantesOrARangeUseIt) {
    EXPECT_FALSE(acc->EliminarCertificado(1, false));
    empresa->Ejecutar("UPDATE ut_CFDFolio SET uf_CFDInfo=3 WHERE Sys_PK=3");
    EXPECT_FALSE(acc->EliminarCertificado(3, false));
    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    platform.ui.ExpectCaja(0,
               "No se puede eliminar el elemento porque ya existen Facturas electrónicas generadas con este "
               "registro.",
               Icono::Exclamacion);
    platform.ui.ExpectCaja(1, "No se puede eliminar el elemento. Primero elimine el número de aprobación del rango de folios.",
               Icono::Exclamacion);

    // Once unused it is deleted after a Yes, without a transaction.
    empresa->Ejecutar("UPDATE ut_CFDFolio SET uf_CFDInfo=1 WHERE Sys_PK=3");
    platform.ui.Responder(Respuesta::No);
    platform.ui.Responder(Respuesta::Si);
    EXPECT_FALSE(acc->EliminarCertificado(3));
    EXPECT_EQ(empresa->Contar("ut_CFDInfo WHERE Sys_PK=3"), 1);
    EXPECT_TRUE(acc->EliminarCertificado(3));
    EXPECT_EQ(Ultimas(1), (Textos{"DELETE FROM ut_CFDInfo WHERE Sys_PK=3"}));
    EXPECT_EQ(empresa->Contar("ut_CFDInfo WHERE Sys_PK=3"), 0);
    EXPECT_EQ(empresa->Contar("ut_CFDInfo"), 2);
    platform.ui.ExpectPregunta(2, kPreguntaEliminar);
    platform.ui.ExpectPregunta(3, kPreguntaEliminar);
    EXPECT_TRUE(dataObjects->llamadas.empty());
}

TEST_P(Conducta, EliminarFoliosCBBAlwaysAsksAndDeletesOnYes) {
    platform.ui.Responder(Respuesta::No);
    EXPECT_FALSE(acc->EliminarFoliosCBB(1));
    EXPECT_EQ(empresa->Contar("ut_FoliosCBB WHERE Sys_PK=1"), 1);

    platform.ui.Responder(Respuesta::Si);
    EXPECT_TRUE(acc->EliminarFoliosCBB(1));
    EXPECT_EQ(Ultimas(1), (Textos{"DELETE FROM ut_FoliosCBB WHERE Sys_PK=1"}));
    EXPECT_EQ(empresa->Contar("ut_FoliosCBB"), 1);
    platform.ui.ExpectPregunta(0, kPreguntaEliminar);
    platform.ui.ExpectPregunta(1, kPreguntaEliminar);
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

TEST_P(Conducta, CancelarCFDWithoutATransactionOfItsOwnLeavesTheOutcomeToTheCaller) {
    // GIVEN the host holds a transaction of its own
    ASSERT_TRUE(CBool(datos->IniciarTransaccion()));
    platform.ui.Responder(Respuesta::Si);

    EXPECT_TRUE(acc->CancelarCFD(5, true, /*WithTrans=*/false));

    // THEN the facade began and ended nothing, and the rows are gone inside
    // the host's transaction; the host's rollback brings both back.
    EXPECT_TRUE(dataObjects->llamadas.empty());
    EXPECT_EQ(empresa->Contar("ut_CFD WHERE Sys_PK=5"), 0);
    EXPECT_EQ(empresa->Contar("ut_CFDBitacora WHERE uf_CFD=5"), 0);
    ASSERT_TRUE(CBool(datos->RevertirTransaccion(0)));
    EXPECT_EQ(empresa->Contar("ut_CFD WHERE Sys_PK=5"), 1);
    EXPECT_EQ(empresa->Contar("ut_CFDBitacora WHERE uf_CFD=5"), 1);

    // And the host's commit keeps the deletes.
    ASSERT_TRUE(CBool(datos->IniciarTransaccion()));
    platform.ui.Responder(Respuesta::Si);
    EXPECT_TRUE(acc->CancelarCFD(5, true, false));
    ASSERT_TRUE(CBool(datos->ConfirmarTransaccion(0)));
    EXPECT_FALSE(CBool(datos->RevertirTransaccion(0))) << "no transaction is left open";
    EXPECT_EQ(empresa->Contar("ut_CFD WHERE Sys_PK=5"), 0);
    EXPECT_EQ(empresa->Contar("ut_CFDBitacora WHERE uf_CFD=5"), 0);
    EXPECT_TRUE(dataObjects->llamadas.empty());
}

TEST_P(Conducta, CambiarEstadoEnBitacoraRewritesTheStateFieldOfTheLogLine) {
    EXPECT_TRUE(acc->CambiarEstadoEnBitacora(3, 99));
    const std::string cancelada = "|LOPJ7009128T5|A|3|201012345|03/11/2026 11:20:00|3480.00|480.00|0|I||||";
    EXPECT_EQ(Ultimas(1), (Textos{"UPDATE ut_CFDBitacora SET uf_Datos='" + cancelada + "' WHERE Sys_PK=5"}));
    EXPECT_EQ(Linea(5), cancelada);

    EXPECT_TRUE(acc->CambiarEstadoEnBitacora(4, 3)) << "its line held 0";
    EXPECT_EQ(Linea(6), "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|1|I||||");

    EXPECT_TRUE(acc->CambiarEstadoEnBitacoraCXC(1, 99));
    EXPECT_EQ(Linea(8), "|CIN960904FQ2|B|1|201123456|18/11/2026 10:30:00|580.00|80.00|0|E||||");
    EXPECT_EQ(Linea(1), "|XAXX010101000|A|1|201012345|05/10/2026 10:15:00|1160.00|160.00|1|I||||");
    EXPECT_EQ(acc->LastErrorDescript, "");
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
    mdlMain::SoltarObjetosCompartidos();
    platform.ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) { d.Ver<forms::CommandButton>("btnOK").Pulsar(); });
    platform.ui.Elegir(carpeta.ruta().string());
    std::int16_t mes = 11;
    std::int16_t anio = 2026;
    bool bloquear = true;

    EXPECT_TRUE(acc->GenerarInformeMensual(mes, anio, bloquear));

    const std::string contenido = Texto("SELECT uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=11 AND uf_Anio=2026");
    ExpectLineasDeNoviembre(contenido);
    std::ifstream archivo(carpeta.ruta() / "1EKU9003173C9112026.txt", std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(archivo), {}), contenido);
    const std::map<long, std::string> generados = {{1, "1"}, {2, "1"}, {3, "0"}, {4, "0"},
                                                   {5, "1"}, {6, "1"}, {7, "0"}, {8, "1"}};
    EXPECT_EQ(Filas("SELECT Sys_PK,uf_Reportado FROM ut_CFDBitacora", "uf_Reportado"), generados);
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar"}));

    platform.ui.Responder(Respuesta::Si);
    bool conTransaccion = true;
    bool preguntar = true;
    EXPECT_TRUE(acc->EliminarInformeMensual(mes, anio, conTransaccion, preguntar));

    EXPECT_EQ(empresa->Contar("ut_CFDInforme WHERE uf_Mes=11 AND uf_Anio=2026"), 0);
    const std::map<long, std::string> eliminados = {{1, "1"}, {2, "1"}, {3, "0"}, {4, "0"},
                                                    {5, "0"}, {6, "0"}, {7, "0"}, {8, "0"}};
    EXPECT_EQ(Filas("SELECT Sys_PK,uf_Reportado FROM ut_CFDBitacora", "uf_Reportado"), eliminados);
    EXPECT_EQ(Linea(6), "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|0|I||||");
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar", "Iniciar", "Confirmar"}));
    mdlMain::SoltarObjetosCompartidos();
}

TEST_P(Conducta, ARegenerationWhoseFileCannotBeWrittenLeavesTheFormerReport) {
    testing::CarpetaTemporal carpeta;
    mdlMain::SoltarObjetosCompartidos();
    // A folder that is a file: not even root writes in it.
    const auto noEsCarpeta = carpeta.ruta() / "archivo";
    std::ofstream(noEsCarpeta) << "x";
    const std::string antes = Texto("SELECT uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=10 AND uf_Anio=2026");
    platform.ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) { d.Ver<forms::CommandButton>("btnOK").Pulsar(); });
    platform.ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) { d.Ver<forms::CommandButton>("btnCancelar").Pulsar(); });
    platform.ui.Responder(Respuesta::Si);
    platform.ui.Elegir(noEsCarpeta.string());
    std::int16_t mes = 10;
    std::int16_t anio = 2026;
    bool bloquear = true;

    EXPECT_FALSE(acc->GenerarInformeMensual(mes, anio, bloquear));

    platform.ui.ExpectCaja(1, "Error al guardar archivo " + noEsCarpeta.string() + "/1EKU9003173C9102026.txt",
               Icono::Exclamacion);
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Revertir"}));
    EXPECT_EQ(Texto("SELECT Sys_PK FROM ut_CFDInforme WHERE uf_Mes=10 AND uf_Anio=2026"), "2");
    EXPECT_EQ(Texto("SELECT uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=10 AND uf_Anio=2026"), antes);
    EXPECT_EQ(empresa->Contar("ut_CFDBitacora WHERE uf_Reportado=1"), 2);
    EXPECT_EQ(empresa->Contar("ut_CFDBitacora WHERE uf_Reportado=1 AND Sys_PK IN (1,2)"), 2);
    mdlMain::SoltarObjetosCompartidos();
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

std::string NombreDelTipo(const ::testing::TestParamInfo<std::string>& info) {
    std::string nombre;
    for (char c : info.param) nombre += c == '-' ? '_' : c;
    return nombre;
}

INSTANTIATE_TEST_SUITE_P(Motores, Conducta, ::testing::ValuesIn(Empresa::Tipos()), NombreDelTipo);

}  // namespace
}  // namespace celdora
