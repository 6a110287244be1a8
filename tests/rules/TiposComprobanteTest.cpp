// The comprobante kind of the company and of one document's block, the
// host's document numbers, and the words of kinds and format types in
// format file names. The documents are the demo company's (see the schema's
// key map).

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

using testing::CompanyDatabase;
using testing::TestPlatform;

// A settings object that is installed but fails on every call.
class GlobalVarQueFalla : public host::GlobalVar {
public:
    static Fault Falla() { return Fault{3709, "The connection cannot be used to perform this operation."}; }
    double LeerNumero(const std::string&, double) override { throw Falla(); }
    std::string LeerTexto(const std::string&, const std::string&) override { throw Falla(); }
    void Conectar(std::shared_ptr<host::Connection>) override { throw Falla(); }
    bool GuardarNumero(const std::string&, double) override { throw Falla(); }
    bool GuardarTexto(const std::string&, const std::string&) override { throw Falla(); }
};

class TiposDeComprobante : public ::testing::Test {
protected:
    TestPlatform platform;
    CompanyDatabase db{CompanyDatabase::Datos::Demo};
    cAcction facade;

    void SetUp() override { facade.SetDataObjects(db.dataObjects, nullptr); }
};

TEST_F(TiposDeComprobante, TheCompanysKindAndDecimalsAreTheStoredSettings) {
    ASSERT_TRUE(facade.GlobalVar->GuardarNumero("NVCA300xa", 4));
    ASSERT_TRUE(facade.GlobalVar->GuardarNumero("NVCA328x", 3));
    EXPECT_EQ(facade.TipoComprobanteAGenerar(), cCFDI_CBB);
    EXPECT_EQ(facade.TipoComprobanteAGenerarInt(), 4);
    EXPECT_EQ(facade.NumeroDecimalesXML(), 3);
}

TEST_F(TiposDeComprobante, ACompanyThatNeverChoseHasKindTwo) {
    CompanyDatabase vacia;
    cAcction otra;
    otra.SetDataObjects(vacia.dataObjects, nullptr);
    EXPECT_EQ(otra.TipoComprobanteAGenerar(), cCFDI);

    cAcction sinEnlace;
    EXPECT_EQ(sinEnlace.TipoComprobanteAGenerarInt(), 2);
    EXPECT_TRUE(sinEnlace.GlobalVar) << "created on first use";
}

TEST_F(TiposDeComprobante, AFailingOrMissingSettingsObjectLeavesKindOneAndTwoDecimals) {
    platform.plataforma.Fabrica().Registrar(host::progid::GlobalVar, [] {
        return std::static_pointer_cast<Object>(std::make_shared<GlobalVarQueFalla>());
    });
    cAcction falla;
    falla.SetDataObjects(db.dataObjects, nullptr);
    EXPECT_EQ(falla.TipoComprobanteAGenerar(), cCFD);
    EXPECT_EQ(falla.TipoComprobanteAGenerarInt(), 1);
    EXPECT_EQ(falla.NumeroDecimalesXML(), 2);

    platform.Quitar(host::progid::GlobalVar);
    cAcction sinComponente;
    EXPECT_EQ(sinComponente.TipoComprobanteAGenerar(), cCFD);
    EXPECT_EQ(sinComponente.NumeroDecimalesXML(), 2);
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(TiposDeComprobante, TheBlockOfADocumentDecidesBetweenCFDIAndCBB) {
    EXPECT_EQ(facade.BlockVentaCFDI_CBB(6), 2) << "block F, certificate 2";
    EXPECT_EQ(facade.BlockVentaCFDI_CBB(8), 3) << "block C, CBB range 1";
    EXPECT_EQ(facade.BlockVentaCFDI_CBB(1), 0) << "block A, a folio range only";
    EXPECT_EQ(facade.BlockVentaCFDI_CBB(14), 0) << "no folio, no row";
    EXPECT_EQ(facade.BlockCXC_CFDI_CBB(2), 2) << "block D, certificate 2";
    EXPECT_EQ(facade.BlockCXC_CFDI_CBB(3), 3) << "block H, CBB range 2";
    EXPECT_EQ(facade.BlockCXC_CFDI_CBB(5), 0) << "block G, links 0";

    db.Ejecutar("UPDATE BlockDocumentos SET uf_CFDI_Info=7 WHERE Sys_PK=5");
    EXPECT_EQ(facade.BlockVentaCFDI_CBB(8), 2) << "a certificate and a CBB range count as CFDI";
}

TEST_F(TiposDeComprobante, TheBlockQuestionsGoThroughTheDataObjectsConnection) {
    cAcction conConexion;
    conConexion.setObjects(db.cnn, nullptr);
    EXPECT_EQ(conConexion.BlockVentaCFDI_CBB(6), 0);
    EXPECT_EQ(conConexion.BlockCXC_CFDI_CBB(3), 0);

    facade.ADOCnn.reset();
    EXPECT_EQ(facade.BlockVentaCFDI_CBB(6), 2);
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(TiposDeComprobante, TipoDocumentoGivesTheHostsDocumentNumberThroughADOCnn) {
    cAcction conConexion;
    conConexion.setObjects(db.cnn, nullptr);
    EXPECT_EQ(conConexion.TipoDocumento(1), 4);
    EXPECT_EQ(conConexion.TipoDocumento(13), 2);
    EXPECT_EQ(conConexion.TipoDocumento_CXC(1), 5);
    EXPECT_EQ(conConexion.TipoDocumento_CXC(3), 17);
    EXPECT_EQ(conConexion.TipoDocumento(999), 0);

    db.cnn->Close();
    EXPECT_EQ(conConexion.TipoDocumento(1), 0);
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(TiposDeComprobante, ADocumentNumberThatCannotBeReadShowsTheFailureBoxAndGivesZero) {
    db.Ejecutar("INSERT INTO Venta (Sys_PK, IFolio, Documento) VALUES (40, 0, NULL)");
    db.Ejecutar("INSERT INTO DCXC (Sys_PK, IFolio, Documento) VALUES (40, 0, NULL)");

    EXPECT_EQ(facade.TipoDocumento(40), 0);
    EXPECT_EQ(facade.TipoDocumento_CXC(40), 0);

    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    for (const auto& caja : platform.ui.Cajas()) {
        EXPECT_EQ(caja.texto, "Error 94 (Invalid use of Null)");
        EXPECT_EQ(caja.icono, host::Icono::Exclamacion);
        EXPECT_EQ(caja.titulo, "");
    }
}

TEST(NombresDeFormato, NombreFormatoJoinsBaseKindAndExtensionExceptForTheStrip) {
    EXPECT_EQ(mdlMain::nombreFormato("Factura ", 1, 1), "Factura cfd.xpd");
    EXPECT_EQ(mdlMain::nombreFormato("Factura ", 2, 3), "Factura cfdi.txf");
    EXPECT_EQ(mdlMain::nombreFormato("Nota de credito cxc ", 3, 1), "Nota de credito cxc cbb.xpd");
    EXPECT_EQ(mdlMain::nombreFormato("Factura ", 4, 7), "Factura cfdi");
    EXPECT_EQ(mdlMain::nombreFormato("Factura ", 5, 1), "Factura .xpd") << "plain paper has no word";
    EXPECT_EQ(mdlMain::extensionFormato(2), ".js");
    EXPECT_EQ(mdlMain::nombreFormato("Factura ", 1, 2), "");
}

}  // namespace
}  // namespace celdora
