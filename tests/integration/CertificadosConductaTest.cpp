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
    // The links of blocks 1, 6 and 7 as "range/fiscal/certificate", and the
    // number of ranges with the former range of the new one.
    std::string Enlaces() {
        std::string enlaces;
        for (int block : {1, 6, 7}) {
            const std::string donde = " FROM BlockDocumentos WHERE Sys_PK=" + std::to_string(block);
            enlaces += CStr(empresa->Valor("SELECT COALESCE(uf_CFDFolio, 'N')" + donde)) + "/" +
                       CStr(empresa->Valor("SELECT Fiscal" + donde)) + " ";
        }
        const Variant anterior = empresa->Valor("SELECT uf_CFDFolioAnterior FROM ut_CFDFolio WHERE Sys_PK=4");
        return enlaces + std::to_string(empresa->Contar("ut_CFDFolio")) + ":" +
               (anterior.IsNull() ? "N" : CStr(anterior));
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

TEST_P(CertificadosConducta, ARangeThatTakesABlockCommitsTheRangeAndTheMoveTogether) {
    EXPECT_EQ(RangoConElBlockDelRango1(), 4);
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar"}));
    EXPECT_EQ(Enlaces(), "4/1 N/0 0/0 4:1");
}

// The former range can't be noted on the new row, so the insert and the move
// of the block are undone with it.
TEST_P(CertificadosConducta, AFailureAfterTheInsertRollsTheRangeAndTheBlockBack) {
    empresa->Ejecutar("ALTER TABLE ut_CFDFolio DROP COLUMN uf_CFDFolioAnterior");
    EXPECT_EQ(RangoConElBlockDelRango1(), 0);
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Revertir"}));
    EXPECT_EQ(CStr(empresa->Valor("SELECT uf_CFDFolio FROM BlockDocumentos WHERE Sys_PK=1")), "1");
    EXPECT_EQ(empresa->Contar("ut_CFDFolio"), 3);
    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    EXPECT_EQ(platform.ui.Cajas()[1].icono, host::Icono::Exclamacion);
}

TEST_P(CertificadosConducta, BlocksGivenToACertificateAreWrittenOneByOne) {
    frmBlockXCer blocks;
    blocks.Load();
    blocks.setObjects(acc);
    std::int32_t clave = 3;
    std::string numero = "30001000000500003456";
    blocks.setCer(clave, numero);
    ASSERT_EQ(blocks.lvw.Count(), 2);
    blocks.lvw.MarcarItem(blocks.lvw.BuscarClave("pk7"), true);
    EXPECT_TRUE(blocks.GuardarBlocks());
    EXPECT_EQ(dataObjects->llamadas, Textos{});
    EXPECT_EQ(empresa->Contar("BlockDocumentos WHERE uf_CFDI_Info=3 AND Sys_PK=7"), 1);
    EXPECT_EQ(empresa->Contar("BlockDocumentos WHERE uf_CFDI_Info IS NULL AND Sys_PK=6"), 1);
}

std::string NombreDelTipo(const ::testing::TestParamInfo<std::string>& info) {
    std::string nombre;
    for (char c : info.param) nombre += c == '-' ? '_' : c;
    return nombre;
}

INSTANTIATE_TEST_SUITE_P(Motores, CertificadosConducta, ::testing::ValuesIn(Empresa::Tipos()), NombreDelTipo);

}  // namespace
}  // namespace celdora
