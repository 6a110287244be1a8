// The folio range editor's save on every kind of connection: the range and
// the move of its block are one transaction, committed or rolled back whole.

#include <gtest/gtest.h>


#include "certificates/dlgRangoFolios.h"
#include "core/cAcction.h"
#include "platform/common/DataObjectsMotor.h"
#include "tests/integration/Conexiones.h"
#include "tests/support/DataObjectsAnotados.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

using integracion::Empresa;

class CertificadosConducta : public ::testing::TestWithParam<std::string> {
protected:
    testing::TestPlatform platform;
    std::unique_ptr<Empresa> empresa;
    std::shared_ptr<testing::DataObjectsAnotados> dataObjects;
    cAcction acc;

    void SetUp() override {
        const std::string motivo = Empresa::PorQueNoDisponible(GetParam());
        if (!motivo.empty()) GTEST_SKIP() << motivo;
        empresa = Empresa::Crear(GetParam());
        dataObjects = std::make_shared<testing::DataObjectsAnotados>(
            std::make_shared<platform::DataObjectsMotor>(empresa->cnn));
        acc.SetDataObjects(dataObjects, nullptr);
    }
    // A new range of series A that takes block 1 from the range that holds it.
    std::int32_t RangoConElBlockDeOtro() {
        platform.ui.Responder(host::Respuesta::Si);
        platform.ui.AlMostrar("dlgRangoFolios", [](forms::Dialogo& d) {
            auto& rango = dynamic_cast<dlgRangoFolios&>(d);
            rango.btnBlock.Pulsar();
            rango.txtSerie.Text("A");
            for (auto* numero : {&rango.eNumFInicial, &rango.eNumFFinal, &rango.eNumNoAprobacion}) numero->Value(99);
            rango.eNumAnioAprobacion.Value(2026);
            rango.cmbCertificado.ListIndex(0);
            rango.cmbBlock.Text("Factura -A");
            rango.btnOK.Pulsar();
            if (rango.Visible()) rango.btnCancel.Pulsar();
        });
        return acc.AgregarAprobacionFolios();
    }
};

// A range that takes block 1 from range 1 commits with the move of the block;
// a second one can't note its former range, so its insert and move are rolled
// back whole.
TEST_P(CertificadosConducta, ARangeAndTheMoveOfItsBlockCommitOrRollBackTogether) {
    EXPECT_EQ(RangoConElBlockDeOtro(), 4);
    empresa->Ejecutar("ALTER TABLE ut_CFDFolio DROP COLUMN uf_CFDFolioAnterior");
    EXPECT_EQ(RangoConElBlockDeOtro(), 0);
    EXPECT_EQ(dataObjects->llamadas, (std::vector<std::string>{"Iniciar", "Confirmar", "Iniciar", "Revertir"}));
    EXPECT_EQ(empresa->Contar("BlockDocumentos WHERE Sys_PK=1 AND uf_CFDFolio=4 AND Fiscal=1"), 1);
    EXPECT_EQ(empresa->Contar("ut_CFDFolio"), 4);
}

INSTANTIATE_TEST_SUITE_P(Motores, CertificadosConducta, ::testing::ValuesIn(Empresa::Tipos()),
                         integracion::NombreDelTipo());

}  // namespace
}  // namespace celdora
