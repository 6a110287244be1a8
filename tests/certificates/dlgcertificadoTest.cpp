// The certificate editor on the demo company: certificate 1 has no PFX path
// and seals the CFD ranges, 2 seals CFDI comprobantes, 3 is free. The PFX is
// built from the public test certificates in shared/testdata.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "certificates/dlgcertificado.h"
#include "core/mdlMain.h"
#include "tests/support/CarpetaTemporal.h"
#include "tests/support/FachadaDemo.h"

namespace celdora {
namespace {

namespace fs = std::filesystem;
using host::Icono;
using host::Respuesta;
using testing::Textos;

const fs::path kDatos = CELDORA_SAT_CSD_DIR;
const std::string kNumero = "30001000000500003416";
const std::string kPreguntaPFX =
    "Aún no ha indicado el archivo PFX para cancelaciones. ¿Desea usar los archivos indicados en este formulario "
    "para crear el archivo PFX?";
const std::string kNoSePudo =
    ") No se pudo crear el archivo. Asegurese que la contraseña es correcta y que tenga permisos de escritura en "
    "la ubicación: ";

class Certificado : public testing::FachadaDemo {
protected:
    testing::CarpetaTemporal carpeta;
    std::size_t desde = 0;

    void Tipo(int tipo) { acc.GlobalVar->GuardarNumero("NVCA300xa", tipo); }
    // Opens the editor (a new row, or the row `clave`) and runs the script in it.
    Variant Abrir(std::int32_t clave, std::function<void(dlgcertificado&)> guion) {
        platform.ui.AlMostrar("dlgcertificado", [guion](forms::Dialogo& d) {
            auto& dialogo = dynamic_cast<dlgcertificado&>(d);
            guion(dialogo);
            if (dialogo.Visible()) dialogo.btnCancel.Pulsar();
        });
        desde = db.sentencias->size();
        return clave < 1 ? Variant::Long(acc.AgregarCertificado()) : Variant(acc.ModificarCertificado(clave));
    }
    // The statements that wrote, since the editor opened.
    Textos Escritas() const {
        Textos escritas;
        for (std::size_t i = desde; i < db.sentencias->size(); ++i) {
            const std::string& s = (*db.sentencias)[i];
            if (s.rfind("INSERT", 0) == 0 || s.rfind("UPDATE", 0) == 0) escritas.push_back(s);
        }
        return escritas;
    }
    static void Llenar(dlgcertificado& d, const std::string& numero, const std::string& clave) {
        d.txtNumCertificado.Escribir(numero);
        d.txtCertificado.Text((kDatos / "csd-EKU9003173C9.cer").string());
        d.txtPrivateKey.Text((kDatos / "csd-EKU9003173C9.key").string());
        d.txtPWD.Text(clave);
        d.txtPWD2.Text(clave);
    }
    // The test certificate and a key copied into the test's folder as sello.cer and sello.key.
    std::string Copiar(const std::string& llave = "csd-EKU9003173C9.key") {
        fs::copy_file(kDatos / "csd-EKU9003173C9.cer", carpeta.ruta() / "sello.cer");
        fs::copy_file(kDatos / llave, carpeta.ruta() / "sello.key");
        return carpeta / "sello.cer";
    }
};

struct Caso {
    std::string numero, certificado, llave, clave, clave2, mensaje, foco;
};

class ValidacionDeCertificado : public Certificado, public ::testing::WithParamInterface<Caso> {};

TEST_P(ValidacionDeCertificado, StopsAtTheFirstFailureWithItsFocusAndWritesNothing) {
    const Caso& c = GetParam();
    std::string foco;
    EXPECT_EQ(Abrir(0,
                    [&](dlgcertificado& d) {
                        d.txtNumCertificado.Escribir(c.numero);
                        d.txtCertificado.Text(c.certificado);
                        d.txtPrivateKey.Text(c.llave);
                        d.txtPWD.Text(c.clave);
                        d.txtPWD2.Text(c.clave2);
                        d.btnOK.Pulsar();
                        foco = d.Foco()->Nombre();
                    }),
              Variant::Long(0));
    UnaCaja(c.mensaje, Icono::Informacion);
    EXPECT_EQ(foco, c.foco);
    EXPECT_EQ(Escritas(), Textos{});
}

const std::string k20 = "30001000000500003416";
INSTANTIATE_TEST_SUITE_P(
    EnOrden, ValidacionDeCertificado,
    ::testing::Values(
        Caso{" -x", "c", "k", "p", "p", "Indique el número de certificado de sello digital.", "txtNumCertificado"},
        Caso{"3000100000050000341", "c", "k", "p", "p",
             "Número de certificado incorrecto (longitud requerida 20 caracteres).", "txtNumCertificado"},
        Caso{"3000a1000 000-0500003416", "", "k", "p", "p", "Indique el certificado para sello digital",
             "txtCertificado"},
        Caso{k20, "c", "", "p", "p", "Indique la llave privada para sello digital", "txtPrivateKey"},
        Caso{k20, "c", "k", "", "p", "Indique la contraseña correspondiente a la llave privada.", "txtPWD"},
        Caso{k20, "c", "k", "p", "", "Escriba nuevamente la contraseña.", "txtPWD2"},
        Caso{k20, "c", "k", "p", "q", "La contraseña no coincide.", "txtPWD2"}));

// For CFD the certificate's path is optional and no PFX is asked for; every
// other kind asks, and a No saves the row without PFX.
TEST_F(Certificado, ANewRowIsWrittenThenItsKeyReadBackByNumberAndThePFXQuestionComesOnlyBeyondCFD) {
    for (int tipo : {1, 2}) {
        Tipo(tipo);
        if (tipo == 2) platform.ui.Responder(Respuesta::No);
        bool pfxVisible = false;
        const Variant clave = Abrir(0, [&](dlgcertificado& d) {
            EXPECT_EQ(d.txtCertificado.Caption(), tipo == 1 ? "Ubicación del certificado de sello digital (opcional):"
                                                            : "Ubicación del certificado de sello digital");
            pfxVisible = d.txtPFX.Visible() && d.cmdGenerarPFX.Visible();
            Llenar(d, std::to_string(tipo) + kNumero.substr(1), "12345678a");
            if (tipo == 1) d.txtCertificado.Text("");
            d.btnOK.Pulsar();
        });
        EXPECT_EQ(pfxVisible, tipo != 1);
        EXPECT_EQ(clave, Variant::Long(3 + tipo));
        EXPECT_EQ(Escritas(), (Textos{"INSERT INTO ut_CFDInfo (uf_noCertificado,uf_Certificado,uf_LlavePrivada,uf_PFX,"
                                      "uf_Clave) VALUES (?,?,?,?,?)"}));
        EXPECT_EQ(db.sentencias->back(),
                  "SELECT Sys_PK FROM ut_CFDInfo WHERE uf_noCertificado='" + std::to_string(tipo) + kNumero.substr(1) + "'");
        EXPECT_EQ(mdlMain::DescifrarTexto(Texto("SELECT uf_Clave FROM ut_CFDInfo WHERE Sys_PK=" + CStr(clave))),
                  "12345678a");
    }
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    platform.ui.ExpectCaja(0, kPreguntaPFX, Icono::Ninguno, "Facturación Electrónica", host::Botones::SiNo);
}

// The password stands enciphered in both fields, so retyping only the first
// one can't match; a null PFX path loads as an empty field.
TEST_F(Certificado, ALoadedRowShowsThePasswordEncipheredAndLocksTheNumberOfACertificateInUse) {
    const std::string cifrada = mdlMain::CifrarTexto("12345678a");
    db.Ejecutar("UPDATE ut_CFDInfo SET uf_Clave='" + cifrada + "'");
    Textos vistos;
    for (std::int32_t clave : {1, 3}) {
        EXPECT_EQ(Abrir(clave,
                        [&](dlgcertificado& d) {
                            vistos.push_back(d.txtNumCertificado.Text() + (d.txtNumCertificado.Enabled() ? "" : " x") +
                                             " [" + d.txtPFX.Text() + "] " + d.txtPWD.Text() + " " + d.txtPWD2.Text());
                            d.txtPWD.Text("nueva");
                            d.btnOK.Pulsar();
                        }),
                  Variant(false));
        EXPECT_EQ(Escritas(), Textos{});
    }
    EXPECT_EQ(vistos, (Textos{"30001000000400002443 x [] " + cifrada + " " + cifrada,
                              "30001000000500003456 [] " + cifrada + " " + cifrada}));
    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    platform.ui.ExpectCaja(1, "La contraseña no coincide.", Icono::Informacion);
}

TEST_F(Certificado, AKeyBelowOneOpensNothing) {
    EXPECT_FALSE(acc.ModificarCertificado(-1));
    UnaCaja("Clave incorrecta.");
    EXPECT_EQ(platform.ui.Registro(), (Textos{"caja: Clave incorrecta."}));
}

// The PFX beside the certificate, from the stored password deciphered, opens
// with openssl and holds the certificate; a second press stops at it.
TEST_F(Certificado, ThePFXIsBuiltBesideTheCertificateFromTheStoredPasswordAndNeverReplaced) {
    const std::string cer = Copiar();
    db.Ejecutar("UPDATE ut_CFDInfo SET uf_Certificado='" + cer + "', uf_LlavePrivada='" + (carpeta / "sello.key") +
                "', uf_Clave='" + mdlMain::CifrarTexto("12345678a") + "' WHERE Sys_PK=3");
    std::string pfx;
    Abrir(3, [&](dlgcertificado& d) {
        d.chkPFX.Pulsar();
        d.cmdGenerarPFX.Pulsar();
        pfx = d.txtPFX.Text();
        d.cmdGenerarPFX.Pulsar();
    });
    EXPECT_EQ(pfx, carpeta / "sello.pfx");
    platform.ui.ExpectCaja(0, "Archivo creado correctamente en " + pfx, Icono::Ninguno, "Facturación Electrónica");
    platform.ui.ExpectCaja(1, "Ya existe un archivo con el mismo nombre en la ubicación indicada",
                           Icono::Informacion, "Facturación Electrónica");
    EXPECT_EQ(platform.ui.Punteros(), (std::vector<host::Puntero>{host::Puntero::Reloj, host::Puntero::Normal}));
    const std::string serie = carpeta / "serie.txt";
    ASSERT_EQ(std::system(("openssl pkcs12 -in '" + pfx + "' -passin pass:12345678a -nokeys | openssl x509 -noout "
                           "-serial > '" + serie + "'").c_str()),
              0);
    std::ifstream leido(serie);
    std::string linea;
    std::getline(leido, linea);
    EXPECT_EQ(linea, "serial=3330303031303030303030353030303033343136");
}

struct Fallo {
    std::string llave, clave, quitar, mensaje;
    Icono icono;
    std::string titulo;
};

class FalloPFX : public Certificado, public ::testing::WithParamInterface<Fallo> {};

TEST_P(FalloPFX, EndsWithItsMessageAndLeavesNoFile) {
    const Fallo& f = GetParam();
    const std::string cer = Copiar(f.llave);
    if (!f.quitar.empty()) platform.Quitar(f.quitar);
    platform.ui.Elegir(carpeta / "elegido.pfx");
    std::string pfx = "?";
    Abrir(0, [&](dlgcertificado& d) {
        Llenar(d, kNumero, f.clave);
        d.txtCertificado.Text(cer);
        d.txtPrivateKey.Text(carpeta / "sello.key");
        d.cmdGenerarPFX.Pulsar();
        pfx = d.txtPFX.Text();
    });
    EXPECT_EQ(pfx, "");
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    const std::string texto = platform.ui.Cajas()[0].texto;
    EXPECT_EQ(texto.rfind(f.mensaje, 0), 0u) << texto;
    // The tool's own error text stands between "(Err: " and the folder.
    const std::string final = kNoSePudo + mdlMain::Utilerias().CarpetaDeRuta(cer);
    if (f.quitar.empty()) {
        EXPECT_EQ(texto.substr(texto.size() - final.size()), final);
    }
    platform.ui.ExpectCaja(0, texto, f.icono, f.titulo);
    EXPECT_FALSE(fs::exists(carpeta / "elegido.pfx"));
    EXPECT_EQ(Escritas(), Textos{});
}

INSTANTIATE_TEST_SUITE_P(
    Casos, FalloPFX,
    ::testing::Values(Fallo{"csd-CACX7605101P8.key", "12345678a", "", "(Err: ", Icono::Exclamacion,
                            "Facturación Electrónica"},
                      Fallo{"csd-EKU9003173C9.key", "otra", "", "(Err: ", Icono::Exclamacion, "Facturación Electrónica"},
                      Fallo{"csd-EKU9003173C9.key", "12345678a", host::progid::Sellora,
                            "Error al crear objeto Sellora.cProccess. Asegurese de que el componente está instalado",
                            Icono::Exclamacion, "Facturación Electrónica"},
                      Fallo{"csd-EKU9003173C9.key", "12345678a", host::progid::Trasvel,
                            "Error al crear objeto Trasvel.cTools", Icono::Exclamacion, "Error"}));

TEST_F(Certificado, ACancelledSaveDialogAndACancelledBrowseSayNothingAndChangeNothing) {
    platform.ui.Elegir(std::nullopt);
    platform.ui.Elegir(std::nullopt);
    platform.ui.Elegir(carpeta / "a.key");
    Abrir(0, [&](dlgcertificado& d) {
        Llenar(d, kNumero, "12345678a");
        d.cmdGenerarPFX.Pulsar();
        d.cmdBuscarCertificado.Pulsar();
        d.txtPrivateKey.Text("");
        d.txtPrivateKey.Pulsar();
        EXPECT_EQ(d.txtCertificado.Text(), (kDatos / "csd-EKU9003173C9.cer").string());
        EXPECT_EQ(d.txtPrivateKey.Text(), carpeta / "a.key");
    });
    EXPECT_TRUE(SinCajas());
    ASSERT_EQ(platform.ui.Selecciones().size(), 3u);
    EXPECT_EQ(platform.ui.Selecciones()[0].filtro, "Archivo pfx *.pfx|*.pfx");
    EXPECT_EQ(platform.ui.Selecciones()[1].filtro, "Certificado *.cer|*.cer");
    EXPECT_EQ(platform.ui.Selecciones()[2].filtro, "Llave del sello digital *.key|*.key");
}

}  // namespace
}  // namespace celdora
