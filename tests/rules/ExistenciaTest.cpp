// The existence and approval questions about one sale or receivable of the
// demo company (see the schema's key map): the messages of the CBB folio
// check and the silence of all the others.

#include <gtest/gtest.h>

#include <string>

#include "core/cAcction.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

using testing::CompanyDatabase;
using testing::TestPlatform;

class Existencia : public ::testing::Test {
protected:
    TestPlatform platform;
    CompanyDatabase db{CompanyDatabase::Datos::Demo};
    cAcction facade;

    void SetUp() override { facade.setObjects(db.cnn, nullptr); }

    // One exclamation box without a title, with that text.
    void EsperarCaja(const std::string& texto) {
        ASSERT_EQ(platform.ui.Cajas().size(), 1u);
        EXPECT_EQ(platform.ui.Cajas()[0].texto, texto);
        EXPECT_EQ(platform.ui.Cajas()[0].icono, host::Icono::Exclamacion);
        EXPECT_EQ(platform.ui.Cajas()[0].titulo, "");
    }
};

TEST_F(Existencia, ExisteCFDFindsTheComprobanteOfASaleOrAReceivableOnADOCnn) {
    EXPECT_TRUE(facade.ExisteCFD(1));
    EXPECT_FALSE(facade.ExisteCFD(5)) << "a sale without a comprobante row";
    EXPECT_TRUE(facade.ExisteCFD_CXC(1));
    EXPECT_FALSE(facade.ExisteCFD_CXC(2));
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(Existencia, DocumentoAprobadoAsksWhetherTheBlockHasAFolioRangeOrACertificate) {
    EXPECT_TRUE(facade.DocumentoAprobadoParaCFD(1)) << "block A, range 1";
    EXPECT_FALSE(facade.DocumentoAprobadoParaCFD(6)) << "block F, uf_CFDFolio Null";
    EXPECT_TRUE(facade.DocumentoAprobadoParaCFD_CXC(1)) << "block B, range 2";
    EXPECT_FALSE(facade.DocumentoAprobadoParaCFD_CXC(5)) << "block G, uf_CFDFolio 0";
    EXPECT_TRUE(facade.DocumentoAprobadoParaCFDI(6)) << "block F, certificate 2";
    EXPECT_FALSE(facade.DocumentoAprobadoParaCFDI(8)) << "block C, a CBB range only";
    EXPECT_TRUE(facade.DocumentoAprobadoParaCFDI_CXC(2)) << "block D, certificate 2";
    EXPECT_FALSE(facade.DocumentoAprobadoParaCFDI_CXC(6)) << "no folio";
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(Existencia, AFolioOnEitherBoundOfTheCBBRangeIsApproved) {
    EXPECT_TRUE(facade.FolioAprobadoCBB(8)) << "C-1, the first folio";
    EXPECT_TRUE(facade.FolioAprobadoCBB(10)) << "C-500, the last folio";
    EXPECT_TRUE(facade.FolioAprobadoCBB_CXC(3)) << "H-100, the last folio";
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(Existencia, ASaleFolioOnePastTheRangeIsRefusedWithTheAccentedText) {
    EXPECT_FALSE(facade.FolioAprobadoCBB(11));
    EsperarCaja("El Folio del documento no se encuentra dentro de un rango de folios válido para CBB");
}

TEST_F(Existencia, AReceivableFolioOnePastTheRangeIsRefusedWithTheUnaccentedText) {
    EXPECT_FALSE(facade.FolioAprobadoCBB_CXC(4));
    EsperarCaja("El Folio del documento no se encuentra dentro de un rango de folios valido para CBB");
}

TEST_F(Existencia, ADocumentWhoseBlockHasNoCBBRangeIsRefusedWithItsText) {
    EXPECT_FALSE(facade.FolioAprobadoCBB(1));
    EsperarCaja("No existe ningun rango de folios para CBB relacionado al block de este documento");
}

TEST_F(Existencia, OnAClosedConnectionEveryQuestionAnswersFalseInSilence) {
    db.cnn->Close();
    EXPECT_FALSE(facade.ExisteCFD(1));
    EXPECT_FALSE(facade.ExisteCFD_CXC(1));
    EXPECT_FALSE(facade.DocumentoAprobadoParaCFD(1));
    EXPECT_FALSE(facade.FolioAprobadoCBB(11));
    EXPECT_FALSE(facade.FolioAprobadoCBB_CXC(6));
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

}  // namespace
}  // namespace celdora
