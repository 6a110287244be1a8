// The origin folio of a sale on the demo company: sale 1 has CFD comprobante
// 1 on folio range 1 (series A), sale 6 has CFDI comprobante 3 with its UUID
// in block F and no folio range, sale 5 has no comprobante.

#include "rules/cFolioOrigen.h"

#include "platform/common/FallasAdo.h"
#include "platform/common/RecordsetCliente.h"
#include "tests/support/FachadaDemo.h"
#include "value/Format.h"

namespace celdora {
namespace {

// A recordset that opens nothing: its State stays closed whatever it is told.
class RecordsetQueNoAbre : public platform::RecordsetCliente {
public:
    void Open() override {}
    void Open(const std::string&, std::shared_ptr<host::Connection>, int, int) override {}
};

const std::string kTrampa = " in procedure cargarInformacion of Módulo de clase cFolioOrigen";
const std::string kUuidVenta6 = "6F1A2B3C-4D5E-4F60-8172-93A4B5C6D7E8";

class FolioOrigen : public testing::FachadaDemo {
protected:
    // What a load of a sale into a new object left: the answer, folio,
    // series, moment, amount and error.
    std::string Carga(bool cfdi, int venta, std::shared_ptr<host::Connection> cnn = nullptr) {
        if (!cnn) cnn = db.cnn;
        cFolioOrigen folio;
        const Variant hecho = cfdi ? folio.cargarInformacion_CFDI(venta, cnn) : folio.cargarInformacion_CFD(venta, cnn);
        return CStr(hecho) + "|" + folio.FolioFiscalOrig + "|" + folio.SerieFolioFiscalOrig + "|" +
               Format(Variant(folio.FechaFolioFiscalOrig), "yyyy-MM-dd HH:mm:ss") + "|" +
               std::to_string(folio.MontoFolioFiscalOrig.scaled) + "|" + folio.lastError;
    }
};

// The loads that succeed for sale 1 (CFD) and sale 6 (CFDI) are asserted on
// every engine by the behaviour suite.
TEST_F(FolioOrigen, ALoadGivesTheFolioSeriesDateAndTotalOfTheSaleOrWhyNot) {
    // CFD: the series of the range from a left join; CFDI: a failure that keeps date and amount.
    EXPECT_EQ(Carga(false, 6), "True|1||2026-10-20 09:05:00|16240000|");
    EXPECT_EQ(Carga(true, 1), "False||A|2026-10-05 10:15:00|11600000|No se pudo obtener el folio fiscal de la venta origen.");
    EXPECT_EQ(Carga(false, 5), "False|||1899-12-30 00:00:00|0|No se encontró el registro CFD/CFDI relacionado a la venta origen.");
    // Amounts are rounded to four decimals half to even.
    db.Ejecutar("UPDATE Venta SET Subtotal=10.00005, Impuesto1=0 WHERE Sys_PK=1");
    EXPECT_EQ(Carga(false, 1), "True|1|A|2026-10-05 10:15:00|100000|");
    db.Ejecutar("UPDATE Venta SET Subtotal=10.00015 WHERE Sys_PK=1");
    EXPECT_EQ(Carga(false, 1), "True|1|A|2026-10-05 10:15:00|100002|");
}

TEST_F(FolioOrigen, AFailureEndsInTheTrapOrTheQueryErrorAndALaterSuccessClearsIt) {
    cFolioOrigen folio;
    db.Ejecutar("UPDATE Venta SET Impuesto2=NULL WHERE Sys_PK=6");  // a Null amount, read after the date
    EXPECT_EQ(Carga(false, 6), "False|||2026-10-20 09:05:00|0|" + ErrorText(InvalidUseOfNull()) + kTrampa);
    EXPECT_EQ(folio.cargarInformacion_CFD(6, db.cnn), Variant(false));
    EXPECT_EQ(folio.cargarInformacion_CFD(1, db.cnn), Variant(true));
    EXPECT_EQ(folio.lastError, "");

    platform.plataforma.Fabrica().Registrar(host::progid::Recordset,
                                            [] { return std::make_shared<RecordsetQueNoAbre>(); });
    EXPECT_EQ(Carga(false, 1), "False|||1899-12-30 00:00:00|0|Error al consultar base de datos.");
    platform.Quitar(host::progid::Recordset);
    EXPECT_EQ(Carga(true, 6), "False|||1899-12-30 00:00:00|0|Error 429 (ActiveX component can't create object)" + kTrampa);
}

}  // namespace
}  // namespace celdora
