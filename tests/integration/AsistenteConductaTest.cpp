// The setup wizard run from its first page to Finalizar on every kind of
// connection, for a company not yet set up that moves to CFDI: a new seal
// certificate from SAT's test files (with its PFX), a block for it, the
// issuer, the fiscal address, a regime, the print formats the page offers,
// the mail account and the stamping account. Then every key and row it left
// is read back from the database, and no other key may have changed.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>

#include "certificates/dlgcertificado.h"
#include "certificates/frmBlockXCer.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "platform/common/Catalogo.h"
#include "platform/common/DataObjectsMotor.h"
#include "tests/integration/Conexiones.h"
#include "tests/support/ConfiguracionPrivada.h"
#include "tests/support/TestPlatform.h"
#include "value/Convert.h"
#include "wizard/dlgAsistenteConfig.h"

namespace celdora {
namespace {

using integracion::Empresa;
using Claves = std::map<std::string, std::string>;
using Textos = std::vector<std::string>;

const std::string kCsd = std::string(CELDORA_SAT_CSD_DIR) + "/csd-CACX7605101P8";

class AsistenteConducta : public ::testing::TestWithParam<std::string> {
protected:
    testing::ConfiguracionPrivada configuracion;
    testing::CarpetaTemporal repositorio;
    testing::TestPlatform platform;
    std::unique_ptr<Empresa> empresa;
    cAcction acc;

    void SetUp() override {
        const std::string motivo = Empresa::PorQueNoDisponible(GetParam());
        if (!motivo.empty()) GTEST_SKIP() << motivo;
        empresa = Empresa::Crear(GetParam());
        // No issuer yet, another kind and other decimals; the keys the
        // wizard never writes hold values of their own.
        empresa->Ejecutar("DELETE FROM gv_Configuracion WHERE Clave IN ('NVCA100','NVCA101','NVCA102b')");
        empresa->Ejecutar("UPDATE gv_Configuracion SET Numero=3 WHERE Clave='NVCA300xa'");
        empresa->Ejecutar("UPDATE gv_Configuracion SET Numero=6 WHERE Clave='NVCA328x'");
        empresa->Ejecutar("INSERT INTO gv_Configuracion (Clave, Numero, Texto) VALUES ('NVCA300x',-1,NULL),"
                          "('NVCA400x',1,NULL),('NVCA401x',NULL,'-'),('NVCA402x',1,NULL),('NVCA403x',1,NULL),"
                          "('NVCA326xb',NULL,'7;12')");
        mdlMain::SoltarObjetosCompartidos();
        acc.SetDataObjects(std::make_shared<platform::DataObjectsMotor>(empresa->cnn),
                           std::make_shared<platform::CatalogoPaises>(empresa->cnn));
        acc.ApplicationName = "Tiendaro";
        acc.AppRepositoryPath = repositorio.ruta().string();
        std::filesystem::create_directory(repositorio.ruta() / "CFDI");
        std::ofstream(repositorio / "CFDI/PAC.inf") << "pac.primero.cMain\r\npac.segundo.cMain\r\n";
    }
    // Each row's fields joined by "|", a Null as "-".
    Textos Filas(const std::string& sql) {
        Textos filas;
        for (const auto& fila : empresa->cnn->motor().Ejecutar(sql).filas) {
            std::string texto;
            for (const Variant& campo : fila) texto += "|" + (campo.IsNull() ? "-" : CStr(campo));
            filas.push_back(texto.substr(1));
        }
        return filas;
    }
    // Every company key with its "number|text".
    Claves LeerClaves() {
        Claves claves;
        for (const std::string& fila : Filas("SELECT Clave, Numero, Texto FROM gv_Configuracion")) {
            claves[fila.substr(0, fila.find('|'))] = fila.substr(fila.find('|') + 1);
        }
        return claves;
    }
};

void Guion(testing::ScriptedUi& ui, const std::string& pfx, std::vector<int>& paginas) {
    ui.AlMostrar("dlgcertificado", [](forms::Dialogo& dialogo) {
        auto& d = dynamic_cast<dlgcertificado&>(dialogo);
        d.txtNumCertificado.Text("30001000000500003316");
        d.txtCertificado.Text(kCsd + ".cer");
        d.txtPrivateKey.Text(kCsd + ".key");
        d.txtPWD.Text("12345678a");
        d.txtPWD2.Text("12345678a");
        d.btnOK.Pulsar();
    });
    ui.Responder(host::Respuesta::Si);  // the PFX is built from the form
    ui.Elegir(pfx);
    ui.AlMostrar("frmBlockXCer", [](forms::Dialogo& dialogo) {
        auto& b = dynamic_cast<frmBlockXCer&>(dialogo);
        b.lvw.MarcarItem(b.lvw.BuscarClave("pk6"), true);
        b.btnGuardar.Pulsar();
    });
    ui.AlMostrar("dlgAsistenteConfig", [&paginas](forms::Dialogo& dialogo) {
        auto& d = dynamic_cast<dlgAsistenteConfig&>(dialogo);
        const auto siguiente = [&] {
            d.btnSiguiente.Pulsar();
            paginas.push_back(d.TabControl.SelectedItem());
        };
        siguiente();
        d.emisor.txtNombreEmisor.Text("XOCHILT CASAS CHAVEZ");
        d.emisor.txtRFCEmisor.Text(" CACX7605101P8 ");
        d.regimenes.lstRegimen.ListIndex(d.regimenes.lstRegimen.Buscar("Personas Morales con Fines no Lucrativos"));
        d.regimenes.cmdQuitarRegimen.Pulsar();
        d.regimenes.cmbRegimen.Text("Régimen de Incorporación Fiscal");
        d.regimenes.cmdAgregarRegimen.Pulsar();
        siguiente();
        d.emisor.eDir.ciudad(2);
        d.emisor.eDir.Separada("Av. Constitución", "2050", "Piso 3");
        d.emisor.eDir.codep(" 64000 ");
        d.emisor.eDir.colony("Obispado");
        d.emisor.eDir.phone("81 8348 0000");
        d.expedicion.chkUsarDomFisComoDomExp.Pulsar();
        siguiente();
        d.optCFDI.Pulsar();
        siguiente();
        d.general.btnAddCer.Pulsar();
        d.general.lstCer.ListIndex(d.general.lstCer.Buscar("30001000000500003316"));
        d.general.btnEditarBlockCFDI.Pulsar();
        d.general.ChkCFDauto.Value(0);
        siguiente();
        siguiente();  // the formats as offered
        d.correo.txtMail.Text("facturas@casas.example");
        d.correo.txtP1.Text("Correo#1");
        d.correo.txtP2.Text("Correo#1");
        siguiente();
        d.cuenta.cmbPAC.ListIndex(1);
        d.cuenta.txtUsuario.Text("casas");
        d.cuenta.txtSucursal.Text("Obispado");
        d.cuenta.txtPWD.Text("Timbre#2026");
        d.cuenta.txtPWDRep.Text("Timbre#2026");
        d.btnFinalizar.Pulsar();
    });
}

TEST_P(AsistenteConducta, ACompanyMovedToCfdiKeepsWhatEachPageHeldAndNothingElse) {
    const Claves antes = LeerClaves();
    const std::string pfx = repositorio / "CACX7605101P8.pfx";
    std::vector<int> paginas;
    Guion(platform.ui, pfx, paginas);
    acc.AsistenteConfiguracion();

    EXPECT_EQ(paginas, (std::vector<int>{1, 2, 3, 4, 6, 7, 8}));
    EXPECT_EQ(platform.ui.Registro(),
              (Textos{"dialogo: dlgAsistenteConfig", "dialogo: dlgcertificado",
                      "caja: Aún no ha indicado el archivo PFX para cancelaciones. ¿Desea usar los archivos indicados "
                      "en este formulario para crear el archivo PFX?",
                      "caja: Archivo creado correctamente en " + pfx, "dialogo: frmBlockXCer",
                      "caja: ¡El asistente ha finalizado correctamente!\r\nEn el panel de control podrá configurar "
                      "opciones adicionales de facturación electrónica."}));

    // The keys that changed, the mail password deciphered.
    Claves cambios;
    for (const auto& [clave, valor] : LeerClaves()) {
        if (antes.count(clave) == 0 || antes.at(clave) != valor) cambios[clave] = valor;
    }
    EXPECT_NE(cambios["NVCA312x"], "-|Correo#1");
    cambios["NVCA312x"] = "-|" + acc.DecryptString(cambios["NVCA312x"].substr(2));
    const std::string ventas = "-|" + repositorio / "Reports/Ventas/cfdi/";
    const std::string cxc = "-|" + repositorio / "Reports/Cuentas por cobrar/cfdi/";
    EXPECT_EQ(cambios, (Claves{{"NVCA300xa", "2|-"}, {"NVCA100", "-|XOCHILT CASAS CHAVEZ"},
                               {"NVCA101", "-|CACX7605101P8"}, {"NVCA102b", "-|5"}, {"NVCA327x", "0|-"},
                               {"NVCA328x", "2|-"}, {"NVCB01121", "1|-"},
                               {"NVCA304x", "-|facturas@casas.example"}, {"NVCA305x", "-|"},
                               {"NVCA306x", "-|Factura Electrónica $Referencia$"}, {"NVCA307x", "-|"},
                               {"NVCA308x", "-|"}, {"NVCA309x", "-|"}, {"NVCA310x", "-|0"}, {"NVCA311x", "-|"},
                               {"NVCA312x", "-|Correo#1"}, {"NVCA313x", "-|60"}, {"NVCA314x", "-|80"},
                               {"NVCA315x", "-|0"}, {"CFDImp001", "3|-"}, {"CFDImp002", ventas + "Factura cfdi.txf"},
                               {"NVCA303x", ventas + "Factura cfdi.txf"}, {"CFDImp003", "3|-"}, {"CFDImp004", "1|-"},
                               {"CFDImp005", "3|-"}, {"CFDImp006", ventas + "Nota de credito cfdi.txf"},
                               {"CFDImp007", cxc + "Nota de credito cxc cfdi.txf"},
                               {"CFDImp008", cxc + "Nota de cargo cfdi.txf"}, {"CFDImp009", "1|-"},
                               {"CFDImp010", cxc + "Factura parcialidad cfdi.txf"},
                               {"CFDImp011", cxc + "Factura anticipo cfdi.txf"}}));

    // The certificate with its key's password enciphered, and the PFX built.
    const Textos certificado = Filas("SELECT Sys_PK, uf_Certificado, uf_LlavePrivada, uf_PFX, uf_Clave FROM ut_CFDInfo "
                                     "WHERE uf_noCertificado='30001000000500003316'");
    ASSERT_EQ(certificado.size(), 1u);
    const std::string cifrada = certificado[0].substr(certificado[0].rfind('|') + 1);
    EXPECT_EQ(certificado[0], "4|" + kCsd + ".cer|" + kCsd + ".key|" + pfx + "|" + cifrada);
    EXPECT_EQ(acc.DecryptString(cifrada), "12345678a");
    EXPECT_TRUE(std::filesystem::exists(pfx));
    // Block 6 given to it; block 7, the other one the list offered, freed.
    EXPECT_EQ(Filas("SELECT Sys_PK, uf_CFDI_Info FROM BlockDocumentos ORDER BY Sys_PK"),
              (Textos{"1|-", "2|-", "3|2", "4|2", "5|-", "6|4", "7|-", "8|-", "9|-"}));
    EXPECT_EQ(Filas("SELECT ICiudad, Direccion, CodPos, Colonia, Telefono, Notas FROM Domicilio WHERE Sys_PK=5"),
              (Textos{"2|||Av. Constitución|2050|Piso 3|64000|Obispado|81 8348 0000|"}));
    EXPECT_EQ(Filas("SELECT Sys_PK, Regimen FROM RegimenEmisor ORDER BY Sys_PK"),
              (Textos{"1|Régimen General de Ley Personas Morales", "3|Régimen de Incorporación Fiscal"}));
    EXPECT_EQ(Filas("SELECT Sys_PK, uf_DomicilioCFD, uf_ExpedicionCXC FROM CConsumo ORDER BY Sys_PK"),
              (Textos{"1|-|0", "2|-|0", "3|-|0"}));

    // The stamping account in the machine's store, read from its file anew;
    // its password is kept as the MD5 digest of what was typed.
    mdlMain::SoltarObjetosCompartidos();
    Textos cuenta;
    for (const char* clave : {"FE_Timbrar", "Fe_Timbre001", "Fe_Timbre002", "Fe_Timbre003", "Fe_Timbre004"})
        cuenta.push_back(acc.StrConfiguracionLocal(clave, "(nada)"));
    EXPECT_EQ(cuenta, (Textos{"1", "pac.segundo.cMain", "casas", "Obispado", "d2896481f83fcd9433cd4fc8f39fc108"}));
}

INSTANTIATE_TEST_SUITE_P(Motores, AsistenteConducta, ::testing::ValuesIn(Empresa::Tipos()),
                         integracion::NombreDelTipo());

}  // namespace
}  // namespace celdora
