// The facade's binding, lifetime and data members.

#include "core/cAcction.h"

#include <gtest/gtest.h>

#include <tuple>

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

using testing::Dialecto;
using testing::MotorDeOtroDialecto;

class Facade : public ::testing::Test {
protected:
    testing::TestPlatform platform;
    testing::CompanyDatabase db{testing::CompanyDatabase::Datos::Demo};
    std::shared_ptr<host::Catalogo> catalogo = std::make_shared<platform::CatalogoPaises>(db.cnn);
};

// Bound with a data object and a catalogue the facade is set while the
// connection is open; a connection alone leaves it unset.
TEST_F(Facade, SetDataObjectsBindsTheConnectionLoadsTheSettingsAndIsSetNeedsACatalogue) {
    cAcction facade, sinCatalogo;
    facade.SetDataObjects(db.dataObjects, catalogo);
    sinCatalogo.SetDataObjects(db.dataObjects, nullptr);
    EXPECT_EQ(facade.ADOCnn, db.dataObjects->ADOCnn());
    EXPECT_TRUE(facade.isSet());
    EXPECT_FALSE(sinCatalogo.isSet());
    EXPECT_EQ(facade.GlobalVar->LeerTexto("NVCA101", ""), "EKU9003173C9");
    EXPECT_EQ(CLng(facade.ValorCampo("SELECT uf_IVenta FROM ut_CFD WHERE Sys_PK=5", "uf_IVenta")), 3);
    EXPECT_TRUE(facade.ValorCampo("SELECT x FROM no_such_table", "x").IsEmpty());
    EXPECT_TRUE(platform.ui.Cajas().empty());
    db.cnn->Close();
    EXPECT_FALSE(facade.isSet());
}

TEST_F(Facade, SetObjectsAloneLeavesTheFacadeUnsetAndValorCampoShowsWhy) {
    cAcction facade;
    facade.setObjects(db.cnn, catalogo);
    EXPECT_FALSE(facade.isSet());
    EXPECT_TRUE(facade.ValorCampo("SELECT Sys_PK FROM ut_CFD", "Sys_PK").IsEmpty());
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    platform.ui.ExpectCaja(0, "Error 91 (Object variable or With block variable not set) in procedure getFieldValue "
                              "of Módulo de clase cAcction", host::Icono::Ninguno);
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
    }
    ASSERT_EQ(espia->conexiones.size(), 2u);
    ASSERT_TRUE(espia->conexiones[1]);
    EXPECT_NE(espia->conexiones[1], db.dataObjects->ADOCnn());
    EXPECT_EQ(espia->conexiones[1]->State(), host::adStateClosed);
}

// Each dialect, its number and how many probes it takes to find it; nothing
// is cached, so a second call probes again.
TEST_F(Facade, DatabasetypeProbesEachDialectInTurnAndRemembersNothing) {
    cAcction facade;
    const std::vector<std::string> sondas{"Select UUID() as GUID;", "SELECT NEWID() as sGUID;",
                                          "Select cbool(-1) as Valor;"};
    const std::tuple<Dialecto, int, int> casos[] = {
        {Dialecto::MySql, 2, 1}, {Dialecto::SqlServer, 3, 2}, {Dialecto::Access, 1, 3}, {Dialecto::Ninguno, 0, 3}};
    for (const auto& [dialecto, tipo, probadas] : casos) {
        auto motor = std::make_unique<MotorDeOtroDialecto>(db.cnn->motor(), dialecto);
        auto& dadas = motor->sentencias;
        auto conexion = std::make_shared<platform::ConexionMotor>(std::move(motor));
        EXPECT_EQ(facade.databasetype(conexion), tipo);
        EXPECT_EQ(facade.databasetype(conexion), tipo);
        EXPECT_EQ(dadas.size(), 2u * probadas);
        EXPECT_EQ(std::vector<std::string>(dadas.begin(), dadas.begin() + probadas),
                  std::vector<std::string>(sondas.begin(), sondas.begin() + probadas));
    }
}

TEST(FacadeText, ReplaceMacrosComparesExactlyAndReplacesEveryOccurrence) {
    cAcction facade;
    EXPECT_EQ(facade.ReplaceMacros("$Referencia$ y $referencia$ y $Referencia$", "$Referencia$", "F-12"),
              "F-12 y $referencia$ y F-12");
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

}  // namespace
}  // namespace celdora
