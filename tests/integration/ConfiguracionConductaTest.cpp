// The main configuration dialog's saves on every kind of connection: the
// fiscal address row and its key, a consumption centre's address saved by its
// own button, the regimes removed and added, the permissions, and the switch
// to the fiscal address as the only expedition address, which clears the
// centres' addresses.

#include <gtest/gtest.h>

#include "configdialog/dlgConfig.h"
#include "core/cAcction.h"
#include "platform/common/Catalogo.h"
#include "platform/common/DataObjectsMotor.h"
#include "tests/integration/Conexiones.h"
#include "tests/support/TestPlatform.h"
#include "value/Convert.h"

namespace celdora {
namespace {

using integracion::Empresa;

class ConfiguracionConducta : public ::testing::TestWithParam<std::string> {
protected:
    testing::TestPlatform platform;
    std::unique_ptr<Empresa> empresa;
    cAcction acc;

    void SetUp() override {
        const std::string motivo = Empresa::PorQueNoDisponible(GetParam());
        if (!motivo.empty()) GTEST_SKIP() << motivo;
        empresa = Empresa::Crear(GetParam());
        acc.SetDataObjects(std::make_shared<platform::DataObjectsMotor>(empresa->cnn),
                          std::make_shared<platform::CatalogoPaises>(empresa->cnn));
    }
    std::string Texto(const std::string& sql) {
        const Variant v = empresa->Valor(sql);
        return v.IsNull() ? "(nulo)" : CStr(v);
    }
};

TEST_P(ConfiguracionConducta, TheDialogsSavesReachTheirRows) {
    platform.ui.AlMostrar("dlgConfig", [](forms::Dialogo& d) {
        auto& c = dynamic_cast<dlgConfig&>(d);
        c.general.lstCer.ListIndex(c.general.lstCer.Buscar("30001000000500003416"));
        c.emisor.eDir.Separada("Av. Paseo de la Reforma", "510", "");
        c.emisor.eDir.codep(" 06600 ");
        c.expedicion.eDirCC.colony("Centro Histórico");
        c.expedicion.btnSaveDomCC.Pulsar();
        c.regimenes.lstRegimen.ListIndex(c.regimenes.lstRegimen.Buscar("Personas Morales con Fines no Lucrativos"));
        c.regimenes.cmdQuitarRegimen.Pulsar();
        c.regimenes.cmbRegimen.Text("Régimen de Incorporación Fiscal");
        c.regimenes.cmdAgregarRegimen.Pulsar();
        c.permisos.cmbGrupo.ListIndex(c.permisos.cmbGrupo.Buscar("Cobranza"));
        c.Ver<forms::CheckBox>("chkPermiso(0)").Pulsar();
        c.permisos.btnGuardarPermisos.Pulsar();
        c.expedicion.chkUsarDomFisComoDomExp.Pulsar();
        c.btnOK.Pulsar();
        EXPECT_TRUE(c.Aceptado);
    });
    acc.Configuracion();
    EXPECT_EQ(platform.ui.Registro(),
              (std::vector<std::string>{"dialogo: dlgConfig", "caja: Domicilio guardado correctamente.",
                                        "caja: Permisos guardados correctamente."}));
    EXPECT_EQ(Texto("SELECT Direccion FROM Domicilio WHERE Sys_PK=1") + Texto("SELECT CodPos FROM Domicilio WHERE Sys_PK=1"),
              "||Av. Paseo de la Reforma|510|06600");
    EXPECT_EQ(Texto("SELECT Texto FROM gv_Configuracion WHERE Clave='NVCA102b'"), "1");
    EXPECT_EQ(Texto("SELECT Colonia FROM Domicilio WHERE Sys_PK=2"), "Centro Histórico");
    EXPECT_EQ(empresa->Contar("CConsumo WHERE uf_DomicilioCFD IS NULL AND uf_ExpedicionCXC=0"), 3);
    EXPECT_EQ(empresa->Contar("Domicilio"), 4);
    EXPECT_EQ(empresa->Contar("RegimenEmisor WHERE Sys_PK=2"), 0);
    EXPECT_EQ(empresa->Contar("RegimenEmisor WHERE Regimen='Régimen de Incorporación Fiscal'"), 1);
    EXPECT_EQ(Texto("SELECT Texto FROM gv_Configuracion WHERE Clave='NVCA316x'"), "1;3;7");
    EXPECT_EQ(Texto("SELECT Numero FROM gv_Configuracion WHERE Clave='NVCB01121'"), "1");
}

INSTANTIATE_TEST_SUITE_P(Motores, ConfiguracionConducta, ::testing::ValuesIn(Empresa::Tipos()),
                         integracion::NombreDelTipo());

}  // namespace
}  // namespace celdora
