// The comprobante kind of the company and of one document's block, the
// host's document numbers, and the words of kinds and format types in format
// file names. The documents are the demo company's (see the schema's key
// map); most answers for each of them are asserted on every engine by the
// behaviour suite.

#include <vector>

#include "core/mdlMain.h"
#include "tests/support/FachadaDemo.h"

namespace celdora {
namespace {

using TiposDeComprobante = testing::FachadaDemo;

TEST_F(TiposDeComprobante, TheCompanysKindAndDecimalsAreTheStoredSettingsOrOneAndTwoWithoutSettings) {
    ASSERT_TRUE(acc.GlobalVar->GuardarNumero("NVCA300xa", 4));
    ASSERT_TRUE(acc.GlobalVar->GuardarNumero("NVCA328x", 3));
    EXPECT_EQ(acc.TipoComprobanteAGenerar(), cCFDI_CBB);
    EXPECT_EQ(acc.NumeroDecimalesXML(), 3);

    // Without a settings component the kind is 1 and the decimals 2.
    platform.Quitar(host::progid::GlobalVar);
    cAcction sinComponente;
    EXPECT_EQ(sinComponente.TipoComprobanteAGenerar(), cCFD);
    EXPECT_EQ(sinComponente.NumeroDecimalesXML(), 2);
    EXPECT_TRUE(SinCajas());
}

// Each kind of block (block C of sale 8 has CBB range 1) is asserted on every
// engine by the behaviour suite.
TEST_F(TiposDeComprobante, TheBlockOfADocumentIsReadThroughTheDataObjectAndACertificateWinsOverACBBRange) {
    db.Ejecutar("UPDATE BlockDocumentos SET uf_CFDI_Info=7 WHERE Sys_PK=5");
    EXPECT_EQ(acc.BlockVentaCFDI_CBB(8), 2);
    // A facade whose ADOCnn was dropped still answers.
    acc.ADOCnn.reset();
    EXPECT_EQ(acc.BlockCXC_CFDI_CBB(3), 3) << "block H, CBB range 2";
    EXPECT_TRUE(SinCajas());
}

TEST_F(TiposDeComprobante, TipoDocumentoReadsADOCnnAndShowsAFailureButNotAClosedConnection) {
    db.Ejecutar("INSERT INTO Venta (Sys_PK, IFolio, Documento) VALUES (40, 0, NULL)");
    cAcction conConexion;
    conConexion.setObjects(db.cnn, nullptr);
    EXPECT_EQ(conConexion.TipoDocumento(40), 0);
    UnaCaja("Error 94 (Invalid use of Null)");
    db.cnn->Close();
    EXPECT_EQ(conConexion.TipoDocumento(1), 0);
    EXPECT_EQ(platform.ui.Cajas().size(), 1u);
}

// The receivables' questions and the last folio of a sale's CBB range (C-500),
// which the behaviour suite asks only of other documents.
TEST_F(TiposDeComprobante, TheReceivablesQuestionsAndTheLastFolioOfASalesRangeAnswerTrue) {
    EXPECT_EQ((std::vector<bool>{acc.ExisteCFD_CXC(1), acc.DocumentoAprobadoParaCFD_CXC(1),
                                 acc.DocumentoAprobadoParaCFDI_CXC(2), acc.FolioAprobadoCBB(10)}),
              std::vector<bool>(4, true));
    EXPECT_TRUE(SinCajas());
}

TEST(NombresDeFormato, NombreFormatoJoinsBaseKindAndExtensionExceptForTheStrip) {
    EXPECT_EQ(mdlMain::nombreFormato("Factura ", 1, 1), "Factura cfd.xpd");
    EXPECT_EQ(mdlMain::nombreFormato("Factura ", 4, 7), "Factura cfdi");
    EXPECT_EQ(mdlMain::nombreFormato("Factura ", 5, 1), "Factura .xpd") << "plain paper has no word";
    EXPECT_EQ(mdlMain::extensionFormato(2), ".js");
    EXPECT_EQ(mdlMain::nombreFormato("Factura ", 1, 2), "");
}

}  // namespace
}  // namespace celdora
