// The comprobante kind of the company and of one document's block, the
// host's document numbers, and the words of kinds and format types in
// format file names. The documents are the demo company's (see the schema's
// key map); the answers for each of them are asserted on every engine by the
// behaviour suite.

#include "core/mdlMain.h"
#include "tests/support/FachadaDemo.h"

namespace celdora {
namespace {

using TiposDeComprobante = testing::FachadaDemo;

TEST_F(TiposDeComprobante, TheCompanysKindAndDecimalsAreTheStoredSettingsKindTwoWhenNeverChosenAndOneWithoutSettings) {
    ASSERT_TRUE(acc.GlobalVar->GuardarNumero("NVCA300xa", 4));
    ASSERT_TRUE(acc.GlobalVar->GuardarNumero("NVCA328x", 3));
    EXPECT_EQ(acc.TipoComprobanteAGenerar(), cCFDI_CBB);
    EXPECT_EQ(acc.NumeroDecimalesXML(), 3);

    testing::CompanyDatabase vacia;
    cAcction otra;
    otra.SetDataObjects(vacia.dataObjects, nullptr);
    EXPECT_EQ(otra.TipoComprobanteAGenerar(), cCFDI);
    cAcction sinEnlace;
    EXPECT_EQ(sinEnlace.TipoComprobanteAGenerarInt(), 2);
    EXPECT_TRUE(sinEnlace.GlobalVar) << "created on first use";
    // Without a settings component the kind is 1 and the decimals 2.
    platform.Quitar(host::progid::GlobalVar);
    cAcction sinComponente;
    EXPECT_EQ(sinComponente.TipoComprobanteAGenerar(), cCFD);
    EXPECT_EQ(sinComponente.NumeroDecimalesXML(), 2);
    EXPECT_TRUE(SinCajas());
}

// Each kind of block is asserted on every engine by the behaviour suite.
TEST_F(TiposDeComprobante, TheBlockOfADocumentIsReadThroughTheDataObjectAndACertificateWinsOverACBBRange) {
    EXPECT_EQ(acc.BlockVentaCFDI_CBB(8), 3) << "block C, CBB range 1";
    db.Ejecutar("UPDATE BlockDocumentos SET uf_CFDI_Info=7 WHERE Sys_PK=5");
    EXPECT_EQ(acc.BlockVentaCFDI_CBB(8), 2);
    // Bound by connection alone they answer 0; a facade whose ADOCnn was
    // dropped still answers.
    cAcction conConexion;
    conConexion.setObjects(db.cnn, nullptr);
    EXPECT_EQ(conConexion.BlockVentaCFDI_CBB(6), 0);
    acc.ADOCnn.reset();
    EXPECT_EQ(acc.BlockCXC_CFDI_CBB(3), 3) << "block H, CBB range 2";
    EXPECT_TRUE(SinCajas());
}

TEST_F(TiposDeComprobante, TipoDocumentoReadsADOCnnAndShowsAFailureButNotAClosedConnection) {
    db.Ejecutar("INSERT INTO Venta (Sys_PK, IFolio, Documento) VALUES (40, 0, NULL)");
    cAcction conConexion;
    conConexion.setObjects(db.cnn, nullptr);
    EXPECT_EQ(conConexion.TipoDocumento(1), 4);
    EXPECT_EQ(conConexion.TipoDocumento_CXC(3), 17);
    EXPECT_EQ(conConexion.TipoDocumento(40), 0);
    UnaCaja("Error 94 (Invalid use of Null)");
    db.cnn->Close();
    EXPECT_EQ(conConexion.TipoDocumento(1), 0);
    EXPECT_EQ(platform.ui.Cajas().size(), 1u);
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
