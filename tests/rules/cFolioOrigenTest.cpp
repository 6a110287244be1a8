// The origin folio of a sale on the demo company: sale 1 has CFD comprobante
// 1 on folio range 1 (series A), sale 6 has CFDI comprobante 3 with its UUID
// in block F and no folio range, sale 5 has no comprobante.

#include "rules/cFolioOrigen.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/common/FallasAdo.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/TestPlatform.h"
#include "value/Convert.h"
#include "value/Format.h"

namespace celdora {
namespace {

using testing::CompanyDatabase;
using testing::TestPlatform;

constexpr const char* kUuidVenta6 = "6F1A2B3C-4D5E-4F60-8172-93A4B5C6D7E8";

Currency Pesos(std::int64_t diezmilesimos) { return Currency{diezmilesimos}; }

std::string Momento(Date fecha) { return Format(Variant(fecha), "yyyy-MM-dd HH:mm:ss"); }

// A recordset that opens nothing: its State stays closed whatever it is told.
class RecordsetQueNoAbre : public host::Recordset {
public:
    void activeconnection(std::shared_ptr<host::Connection> connection) override { connection_ = connection; }
    std::shared_ptr<host::Connection> activeconnection() const override { return connection_; }
    void Source(const std::string& statement) override { source_ = statement; }
    std::string Source() const override { return source_; }
    void CursorLocation(int location) override { location_ = location; }
    int CursorLocation() const override { return location_; }
    void Open() override {}
    void Open(const std::string&, std::shared_ptr<host::Connection>, int, int) override {}
    int State() const override { return host::adStateClosed; }
    bool Eof() const override { throw platform::ObjetoCerrado(); }
    bool Bof() const override { throw platform::ObjetoCerrado(); }
    int FieldCount() const override { throw platform::ObjetoCerrado(); }
    host::Field& Fields(const std::string&) override { throw platform::ObjetoCerrado(); }
    host::Field& Fields(int) override { throw platform::ObjetoCerrado(); }
    void movenext() override { throw platform::ObjetoCerrado(); }
    void Update() override { throw platform::ObjetoCerrado(); }
    void Close() override { throw platform::ObjetoCerrado(); }

private:
    std::shared_ptr<host::Connection> connection_;
    std::string source_;
    int location_ = 2;
};

class FolioOrigen : public ::testing::Test {
protected:
    TestPlatform platform;
    CompanyDatabase db{CompanyDatabase::Datos::Demo};
    cFolioOrigen folio;
};

TEST_F(FolioOrigen, CfdGivesTheHostFolioTheSeriesOfTheRangeTheDateAndTheTotal) {
    EXPECT_EQ(folio.cargarInformacion_CFD(1, db.cnn), Variant(true));
    EXPECT_EQ(folio.FolioFiscalOrig, "1");
    EXPECT_EQ(folio.SerieFolioFiscalOrig, "A");
    EXPECT_EQ(Momento(folio.FechaFolioFiscalOrig), "2026-10-05 10:15:00");
    EXPECT_EQ(folio.MontoFolioFiscalOrig, Pesos(11600000));
    EXPECT_EQ(folio.lastError, "");
}

TEST_F(FolioOrigen, CfdiGivesTheUuidAndTheSeriesOfTheBlock) {
    EXPECT_EQ(folio.cargarInformacion_CFDI(6, db.cnn), Variant(true));
    EXPECT_EQ(folio.FolioFiscalOrig, kUuidVenta6);
    EXPECT_EQ(folio.SerieFolioFiscalOrig, "F");
    EXPECT_EQ(Momento(folio.FechaFolioFiscalOrig), "2026-10-20 09:05:00");
    EXPECT_EQ(folio.MontoFolioFiscalOrig, Pesos(16240000));  // 1500 - 100 + 224
}

TEST_F(FolioOrigen, CfdOfAStampedSaleHasTheHostFolioAndNoSeries) {
    // The folio range comes from a left join, and sale 6 has none.
    EXPECT_EQ(folio.cargarInformacion_CFD(6, db.cnn), Variant(true));
    EXPECT_EQ(folio.FolioFiscalOrig, "1");
    EXPECT_EQ(folio.SerieFolioFiscalOrig, "");
}

TEST_F(FolioOrigen, CfdiOfASaleWithoutUuidFailsButKeepsDateAndAmount) {
    EXPECT_EQ(folio.cargarInformacion_CFDI(1, db.cnn), Variant(false));
    EXPECT_EQ(folio.lastError, "No se pudo obtener el folio fiscal de la venta origen.");
    EXPECT_EQ(Momento(folio.FechaFolioFiscalOrig), "2026-10-05 10:15:00");
    EXPECT_EQ(folio.MontoFolioFiscalOrig, Pesos(11600000));
}

TEST_F(FolioOrigen, ASaleWithoutComprobanteIsNotFound) {
    EXPECT_EQ(folio.cargarInformacion_CFD(5, db.cnn), Variant(false));
    EXPECT_EQ(folio.lastError, "No se encontró el registro CFD/CFDI relacionado a la venta origen.");
}

TEST_F(FolioOrigen, ARecordsetThatDoesNotOpenIsADatabaseError) {
    platform.plataforma.Fabrica().Registrar(host::progid::Recordset,
                                            [] { return std::make_shared<RecordsetQueNoAbre>(); });
    EXPECT_EQ(folio.cargarInformacion_CFD(1, db.cnn), Variant(false));
    EXPECT_EQ(folio.lastError, "Error al consultar base de datos.");
}

TEST_F(FolioOrigen, FaultsEndInTheTrapTextAndALaterSuccessClearsIt) {
    db.cnn->Close();
    EXPECT_EQ(folio.cargarInformacion_CFD(1, db.cnn), Variant(false));
    EXPECT_EQ(folio.lastError,
              ErrorTextIn(platform::ObjetoCerrado(), "cargarInformacion of Módulo de clase cFolioOrigen"));

    CompanyDatabase otra{CompanyDatabase::Datos::Demo};
    EXPECT_EQ(folio.cargarInformacion_CFD(1, otra.cnn), Variant(true));
    EXPECT_EQ(folio.lastError, "");
}

TEST_F(FolioOrigen, AMissingRecordsetComponentEndsInTheTrap) {
    platform.Quitar(host::progid::Recordset);
    EXPECT_EQ(folio.cargarInformacion_CFDI(6, db.cnn), Variant(false));
    EXPECT_EQ(folio.lastError,
              "Error 429 (ActiveX component can't create object) in procedure cargarInformacion of Módulo de clase "
              "cFolioOrigen");
}

TEST_F(FolioOrigen, ANullAmountEndsInTheTrapAfterTheDateWasSet) {
    db.Ejecutar("UPDATE Venta SET Impuesto2=NULL WHERE Sys_PK=1");
    EXPECT_EQ(folio.cargarInformacion_CFD(1, db.cnn), Variant(false));
    EXPECT_EQ(folio.lastError, ErrorTextIn(InvalidUseOfNull(), "cargarInformacion of Módulo de clase cFolioOrigen"));
    EXPECT_EQ(Momento(folio.FechaFolioFiscalOrig), "2026-10-05 10:15:00");
    EXPECT_EQ(folio.FolioFiscalOrig, "");
}

TEST_F(FolioOrigen, TheAmountIsRoundedToFourDecimalsHalfToEven) {
    db.Ejecutar("UPDATE Venta SET Subtotal=10.00005, Impuesto1=0 WHERE Sys_PK=1");
    ASSERT_EQ(folio.cargarInformacion_CFD(1, db.cnn), Variant(true));
    EXPECT_EQ(folio.MontoFolioFiscalOrig, Pesos(100000));

    db.Ejecutar("UPDATE Venta SET Subtotal=10.00015 WHERE Sys_PK=1");
    ASSERT_EQ(folio.cargarInformacion_CFD(1, db.cnn), Variant(true));
    EXPECT_EQ(folio.MontoFolioFiscalOrig, Pesos(100002));
}

}  // namespace
}  // namespace celdora
