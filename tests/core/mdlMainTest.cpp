#include "core/mdlMain.h"

#include <gtest/gtest.h>

#include "tests/support/CompanyFixture.h"
#include "tests/support/TestPlatform.h"
#include "value/Convert.h"

namespace celdora {
namespace {

class DataRoutines : public ::testing::Test {
protected:
    testing::TestPlatform platform;
    testing::CompanyDatabase db;

    void SetUp() override {
        db.Ejecutar("INSERT INTO ut_CFDInfo (Sys_PK, uf_noCertificado, uf_Certificado) "
                    "VALUES (7, '30001000000500003416', NULL), (8, '30001000000400002443', NULL)");
    }
};

TEST_F(DataRoutines, AbrirConsultaGivesAnOpenRecordsetEvenWithoutRowsAndNoneInSilenceForWhatCannotBeOpened) {
    auto rs = mdlMain::AbrirConsulta(db.cnn, "SELECT Sys_PK FROM ut_CFDInfo WHERE Sys_PK=99");
    ASSERT_TRUE(rs);
    EXPECT_EQ(rs->State(), host::adStateOpen);
    EXPECT_TRUE(rs->Eof() && rs->Bof());
    rs->Close();
    // A statement without rows leaves the recordset closed, which is none too.
    for (const char* sql : {"SELECT nothing FROM no_such_table", "SELEC Sys_PK FROM ut_CFDInfo",
                            "UPDATE ut_CFDInfo SET uf_PFX='' WHERE Sys_PK=7"})
        EXPECT_FALSE(mdlMain::AbrirConsulta(db.cnn, sql)) << sql;
    EXPECT_TRUE(platform.ui.Cajas().empty());
    platform.Quitar(host::progid::Recordset);
    EXPECT_FALSE(mdlMain::AbrirConsulta(db.cnn, "SELECT Sys_PK FROM ut_CFDInfo"));
}

// The named field or, with no name, the first; Empty for no rows, Null,
// failures and unknown fields.
TEST_F(DataRoutines, LeerValorConsultaReadsTheNamedFieldOrTheFirstOne) {
    const struct {
        std::string sql, campo;
        Variant valor;
    } casos[] = {
        {"SELECT Sys_PK, uf_noCertificado FROM ut_CFDInfo WHERE Sys_PK=7", "uf_NOCERTIFICADO",
         Variant("30001000000500003416")},
        {"SELECT Sys_PK, uf_noCertificado FROM ut_CFDInfo WHERE Sys_PK=8", "", Variant::Long(8)},
        {"SELECT Sys_PK FROM ut_CFDInfo WHERE Sys_PK=99", "Sys_PK", Variant()},
        {"SELECT uf_Certificado FROM ut_CFDInfo WHERE Sys_PK=7", "uf_Certificado", Variant()},
        {"SELECT x FROM no_such_table", "x", Variant()},
        {"SELECT Sys_PK FROM ut_CFDInfo", "no_such_field", Variant()},
    };
    for (const auto& caso : casos) {
        const Variant leido = mdlMain::LeerValorConsulta(db.cnn, caso.sql, caso.campo);
        EXPECT_EQ(leido.Type(), caso.valor.Type()) << caso.sql;
        EXPECT_EQ(CStr(leido), CStr(caso.valor)) << caso.sql;
    }
}

TEST_F(DataRoutines, ExisteRegistroAnswersTrueWhenItCannotTellWhereAbrirConsultaGivesNone) {
    EXPECT_TRUE(mdlMain::ExisteRegistro(db.cnn, "ut_CFDInfo", 7, "Sys_PK"));
    EXPECT_FALSE(mdlMain::ExisteRegistro(db.cnn, "ut_CFDInfo", 9, "Sys_PK"));
    // The guards built on it refuse a delete when they cannot tell.
    EXPECT_TRUE(mdlMain::ExisteRegistro(db.cnn, "no_such_table", 1, "Sys_PK"));
    EXPECT_TRUE(mdlMain::ExisteRegistro(db.cnn, "ut_CFDInfo", 1, "no_such_column"));
    db.cnn->Close();
    EXPECT_TRUE(mdlMain::ExisteRegistro(db.cnn, "ut_CFDInfo", 9, "Sys_PK"));
    EXPECT_FALSE(mdlMain::AbrirConsulta(db.cnn, "SELECT Sys_PK FROM ut_CFDInfo"));
}

TEST_F(DataRoutines, TextoYNumeroCampoTurnNullIntoEmptyAndZero) {
    db.Ejecutar("INSERT INTO ut_CFDFolio (Sys_PK, uf_Serie, uf_FolioInicial, uf_FolioFinal, uf_noAprobacion, "
                "uf_anoAprobacion, uf_CFDInfo) VALUES (3, NULL, 1, 500, 12345, 2010, 7)");
    auto rs = mdlMain::AbrirConsulta(db.cnn, "SELECT * FROM ut_CFDFolio WHERE Sys_PK=3");
    ASSERT_TRUE(rs);
    EXPECT_EQ(mdlMain::TextoCampo(*rs, "uf_Serie"), "");
    EXPECT_EQ(mdlMain::TextoCampo(*rs, "uf_FolioFinal"), "500");
    EXPECT_EQ(mdlMain::NumeroCampo(*rs, "uf_CFDFolioAnterior"), 0.0);
    EXPECT_EQ(mdlMain::NumeroCampo(*rs, "uf_noAprobacion"), 12345.0);
    // Unlike the routines above these two let a fault through to their caller.
    EXPECT_THROW(mdlMain::TextoCampo(*rs, "no_such_field"), Fault);
    rs->Close();
}

}  // namespace
}  // namespace celdora
