// The facade's binding, lifetime and data members.

#include "core/cAcction.h"

#include <gtest/gtest.h>

#include <tuple>

#include "core/mdlMain.h"
#include "platform/common/Catalogo.h"
#include "platform/common/ConexionMotor.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/MotorDeOtroDialecto.h"
#include "tests/support/TestPlatform.h"
#include "value/Convert.h"
#include "value/Format.h"
#include "value/Regional.h"

namespace celdora {
namespace {

using testing::CompanyDatabase;
using testing::Dialecto;
using testing::MotorDeOtroDialecto;
using testing::TestPlatform;

class Facade : public ::testing::Test {
protected:
    TestPlatform platform;
    CompanyDatabase db{CompanyDatabase::Datos::Demo};
    std::shared_ptr<host::Catalogo> catalogo = std::make_shared<platform::CatalogoPaises>(db.cnn);
};

TEST_F(Facade, SetDataObjectsBindsTheConnectionOfTheDataObjectAndLoadsTheSettings) {
    cAcction facade;
    facade.SetDataObjects(db.dataObjects, catalogo);
    EXPECT_EQ(facade.ADOCnn, db.dataObjects->ADOCnn());
    EXPECT_TRUE(facade.isSet());
    ASSERT_TRUE(facade.GlobalVar);
    EXPECT_EQ(facade.GlobalVar->LeerTexto("NVCA101", ""), "EKU9003173C9");
}

TEST_F(Facade, SetObjectsAloneLeavesTheFacadeUnsetAndValorCampoShowsWhy) {
    cAcction facade;
    facade.setObjects(db.cnn, catalogo);
    EXPECT_EQ(facade.ADOCnn->State(), host::adStateOpen);
    EXPECT_FALSE(facade.isSet());

    Variant value = facade.ValorCampo("SELECT Sys_PK FROM ut_CFD", "Sys_PK");
    EXPECT_TRUE(value.IsEmpty());
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    const auto& caja = platform.ui.Cajas()[0];
    EXPECT_EQ(caja.texto, "Error 91 (Object variable or With block variable not set) in procedure getFieldValue "
                          "of Módulo de clase cAcction");
    EXPECT_EQ(caja.icono, host::Icono::Ninguno);
    EXPECT_EQ(caja.titulo, "");
}

TEST_F(Facade, IsSetNeedsAnOpenConnectionAndACatalogue) {
    cAcction sinCatalogo;
    sinCatalogo.SetDataObjects(db.dataObjects, nullptr);
    EXPECT_FALSE(sinCatalogo.isSet());

    cAcction facade;
    facade.SetDataObjects(db.dataObjects, catalogo);
    db.cnn->Close();
    EXPECT_FALSE(facade.isSet());
}

TEST_F(Facade, ValorCampoReadsThroughTheDataObject) {
    cAcction facade;
    facade.SetDataObjects(db.dataObjects, catalogo);
    EXPECT_EQ(CLng(facade.ValorCampo("SELECT uf_IVenta FROM ut_CFD WHERE Sys_PK=5", "uf_IVenta")), 3);
    EXPECT_TRUE(facade.ValorCampo("SELECT x FROM no_such_table", "x").IsEmpty());
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

// A settings store that only records the connections it is handed.
class GlobalVarEspia : public host::GlobalVar {
public:
    std::vector<std::shared_ptr<host::Connection>> conexiones;
    double LeerNumero(const std::string&, double defaultValue) override { return defaultValue; }
    std::string LeerTexto(const std::string&, const std::string& defaultValue) override { return defaultValue; }
    void Conectar(std::shared_ptr<host::Connection> connection) override { conexiones.push_back(connection); }
    bool GuardarNumero(const std::string&, double) override { return true; }
    bool GuardarTexto(const std::string&, const std::string&) override { return true; }
};

TEST_F(Facade, EndingHandsTheSettingsANewUnopenedConnection) {
    auto espia = std::make_shared<GlobalVarEspia>();
    platform.plataforma.Fabrica().Registrar(host::progid::GlobalVar, [espia] { return espia; });
    {
        cAcction facade;
        facade.SetDataObjects(db.dataObjects, catalogo);
        ASSERT_EQ(espia->conexiones.size(), 1u);
        EXPECT_EQ(espia->conexiones[0], db.dataObjects->ADOCnn());
    }
    ASSERT_EQ(espia->conexiones.size(), 2u);
    ASSERT_TRUE(espia->conexiones[1]);
    EXPECT_NE(espia->conexiones[1], db.dataObjects->ADOCnn());
    EXPECT_EQ(espia->conexiones[1]->State(), host::adStateClosed);
}

TEST_F(Facade, EndingSwallowsAFailureOfTheSettings) {
    platform.Quitar(host::progid::Connection);
    platform.Quitar(host::progid::GlobalVar);
    EXPECT_NO_THROW({ cAcction facade; });
}

TEST_F(Facade, DatabasetypeProbesEachDialectInTurnAndRemembersNothing) {
    cAcction facade;
    db.sentencias->clear();
    EXPECT_EQ(facade.databasetype(db.cnn), 2);
    EXPECT_EQ(*db.sentencias, std::vector<std::string>{"Select UUID() as GUID;"});
    const std::vector<std::string> sondas{"Select UUID() as GUID;", "SELECT NEWID() as sGUID;",
                                          "Select cbool(-1) as Valor;"};
    // The dialect, its number and how many probes it takes to find it.
    const std::tuple<Dialecto, int, int> casos[] = {
        {Dialecto::MySql, 2, 1}, {Dialecto::SqlServer, 3, 2}, {Dialecto::Access, 1, 3}, {Dialecto::Ninguno, 0, 3}};
    for (int vez = 0; vez < 2; ++vez) {  // nothing is cached: a second call probes again
        for (const auto& [dialecto, tipo, probadas] : casos) {
            auto motor = std::make_unique<MotorDeOtroDialecto>(db.cnn->motor(), dialecto);
            auto& dadas = motor->sentencias;
            auto conexion = std::make_shared<platform::ConexionMotor>(std::move(motor));
            EXPECT_EQ(facade.databasetype(conexion), tipo);
            EXPECT_EQ(dadas, std::vector<std::string>(sondas.begin(), sondas.begin() + probadas));
        }
    }
    // A closed or missing connection is no dialect.
    EXPECT_EQ(facade.databasetype(nullptr), 0);
    db.cnn->Close();
    EXPECT_EQ(facade.databasetype(db.cnn), 0);
}

TEST(FacadeText, ReplaceMacrosComparesExactlyAndReplacesEveryOccurrence) {
    cAcction facade;
    EXPECT_EQ(facade.ReplaceMacros("$Referencia$ y $referencia$ y $Referencia$", "$Referencia$", "F-12"),
              "F-12 y $referencia$ y F-12");
    EXPECT_EQ(facade.ReplaceMacros("sin cambios", "", "x"), "sin cambios");
}

// The date of one and the time of the other; on a month-first machine days
// up to twelve swap with the month, and day 13, which cannot be a month,
// keeps its day and month.
TEST(FacadeDates, ObtenerFechaHoraJoinsTheDateOfOneAndTheTimeOfTheOther) {
    cAcction facade;
    const auto junta = [&](Date fecha, Date hora) {
        return Format(Variant(facade.ObtenerFechaHora(fecha, hora)), "yyyy-MM-dd HH:mm:ss");
    };
    const Date hora{DateSerial(2001, 1, 1).serial + TimeSerial(7, 8, 9).serial};
    EXPECT_EQ(junta(Date{DateSerial(2012, 3, 5).serial + TimeSerial(23, 59, 0).serial}, hora), "2012-03-05 07:08:09");
    ScopedRegional mesPrimero({'.', ',', DateOrder::MonthFirst});
    EXPECT_EQ(junta(DateSerial(2012, 3, 5), TimeSerial(7, 8, 9)), "2012-05-03 07:08:09");
    EXPECT_EQ(junta(DateSerial(2012, 3, 13), TimeSerial(7, 8, 9)), "2012-03-13 07:08:09");
}

TEST_F(Facade, EnteroCampoTurnsNullIntoZero) {
    cAcction facade;
    auto rs = mdlMain::AbrirConsulta(db.cnn, "SELECT uf_CFDFolio, uf_CFDI_Info FROM BlockDocumentos WHERE Sys_PK=6");
    ASSERT_TRUE(rs);
    EXPECT_EQ(facade.EnteroCampo(*rs, "uf_CFDFolio"), 0);
    rs->Close();
}

}  // namespace
}  // namespace celdora
