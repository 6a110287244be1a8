// The folio range editor's save and the blocks by certificate on every kind
// of connection: the range and the move of its block are one transaction,
// committed or rolled back whole; the blocks are written one by one.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "certificates/dlgRangoFolios.h"
#include "certificates/frmBlockXCer.h"
#include "core/cAcction.h"
#include "platform/common/DataObjectsMotor.h"
#include "tests/integration/Conexiones.h"
#include "tests/support/DataObjectsAnotados.h"
#include "tests/support/TestPlatform.h"
#include "value/Convert.h"

namespace celdora {
namespace {

using integracion::Empresa;
using Textos = std::vector<std::string>;

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
    // A new range of series A that takes block 1 from range 1.
    std::int32_t RangoConElBlockDelRango1() {
        platform.ui.Responder(host::Respuesta::Si);
        platform.ui.AlMostrar("dlgRangoFolios", [](forms::Dialogo& d) {
            auto& rango = dynamic_cast<dlgRangoFolios&>(d);
            rango.btnBlock.Pulsar();
            rango.txtSerie.Text("A");
            rango.eNumFInicial.Value(1001);
            rango.eNumFFinal.Value(2000);
            rango.eNumNoAprobacion.Value(99);
            rango.eNumAnioAprobacion.Value(2026);
            rango.cmbCertificado.ListIndex(0);
            rango.cmbBlock.Text("Factura -A");
            rango.btnOK.Pulsar();
            if (rango.Visible()) rango.btnCancel.Pulsar();
        });
        return acc.AgregarAprobacionFolios();
    }
};

// Then the blocks by certificate, written one by one without a transaction.
TEST_P(CertificadosConducta, ARangeThatTakesABlockCommitsTheRangeAndTheMoveTogether) {
    EXPECT_EQ(RangoConElBlockDelRango1(), 4);
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar"}));
    EXPECT_EQ(empresa->Contar("BlockDocumentos WHERE Sys_PK=1 AND uf_CFDFolio=4 AND Fiscal=1"), 1);
    EXPECT_EQ(empresa->Contar("ut_CFDFolio WHERE Sys_PK=4 AND uf_CFDFolioAnterior=1"), 1);

    frmBlockXCer blocks;
    blocks.setObjects(acc);
    std::int32_t clave = 3;
    std::string numero = "30001000000500003456";
    blocks.setCer(clave, numero);
    ASSERT_EQ(blocks.lvw.Count(), 2);
    blocks.lvw.MarcarItem(blocks.lvw.BuscarClave("pk7"), true);
    EXPECT_TRUE(blocks.GuardarBlocks());
    EXPECT_EQ(dataObjects->llamadas.size(), 2u);
    EXPECT_EQ(empresa->Contar("BlockDocumentos WHERE (Sys_PK=7 AND uf_CFDI_Info=3) OR (Sys_PK=6 AND uf_CFDI_Info IS NULL)"), 2);
}

// The former range can't be noted on the new row, so the insert and the move
// of the block are undone with it.
TEST_P(CertificadosConducta, AFailureAfterTheInsertRollsTheRangeAndTheBlockBack) {
    empresa->Ejecutar("ALTER TABLE ut_CFDFolio DROP COLUMN uf_CFDFolioAnterior");
    EXPECT_EQ(RangoConElBlockDelRango1(), 0);
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Revertir"}));
    EXPECT_EQ(empresa->Contar("BlockDocumentos WHERE Sys_PK=1 AND uf_CFDFolio=1 AND Fiscal=1"), 1);
    EXPECT_EQ(empresa->Contar("ut_CFDFolio"), 3);
    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    EXPECT_EQ(platform.ui.Cajas()[1].icono, host::Icono::Exclamacion);
}

std::string NombreDelTipo(const ::testing::TestParamInfo<std::string>& info) {
    std::string nombre;
    for (char c : info.param) nombre += c == '-' ? '_' : c;
    return nombre;
}

INSTANTIATE_TEST_SUITE_P(Motores, CertificadosConducta, ::testing::ValuesIn(Empresa::Tipos()), NombreDelTipo);

}  // namespace
}  // namespace celdora
