// The certificate editor on the demo company: certificate 1 (no PFX path)
// seals ranges in use, 3 is free. PFX files are built from the public test
// certificates.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "certificates/dlgcertificado.h"
#include "core/mdlMain.h"
#include "tests/certificates/Editores.h"
#include "tests/support/CarpetaTemporal.h"

namespace celdora {
namespace {

namespace fs = std::filesystem;
using host::Icono;
using testing::Textos;

const std::string k20 = "30001000000500003416";
const std::string kTitulo = "Facturación Electrónica";

class Certificado : public testing::Editores {
protected:
    testing::CarpetaTemporal carpeta;

    Variant Abrir(std::int32_t clave, std::function<void(dlgcertificado&)> guion) {
        AlAbrir<dlgcertificado>("dlgcertificado", std::move(guion));
        return clave < 1 ? Variant::Long(acc.AgregarCertificado()) : Variant(acc.ModificarCertificado(clave));
    }
    static void Llenar(dlgcertificado& d, const std::string& numero, const std::string& cer, const std::string& key,
                       const std::string& clave, const std::string& clave2) {
        d.txtNumCertificado.Escribir(numero);
        d.txtCertificado.Text(cer);
        d.txtPrivateKey.Text(key);
        d.txtPWD.Text(clave);
        d.txtPWD2.Text(clave2);
    }
    // The test certificate and a key as sello.cer and sello.key in the test's folder.
    std::string Copiar(const std::string& llave) {
        fs::copy_file(fs::path(CELDORA_SAT_CSD_DIR) / "csd-EKU9003173C9.cer", carpeta.ruta() / "sello.cer");
        fs::copy_file(fs::path(CELDORA_SAT_CSD_DIR) / llave, carpeta.ruta() / "sello.key");
        return carpeta / "sello.cer";
    }
};

struct Caso {
    std::string numero, cer, llave, clave, clave2, mensaje, foco;
};
class ValidacionDeCertificado : public Certificado, public ::testing::WithParamInterface<Caso> {};

// Only digits can be typed, 20 at most.
TEST_P(ValidacionDeCertificado, StopsAtTheFirstFailureWithItsFocusAndWritesNothing) {
    const Caso& c = GetParam();
    std::string foco;
    EXPECT_EQ(Abrir(0, [&](dlgcertificado& d) {
        Llenar(d, c.numero, c.cer, c.llave, c.clave, c.clave2);
        d.btnOK.Pulsar();
        foco = Foco(d);
    }), Variant::Long(0));
    UnaCaja(c.mensaje, Icono::Informacion);
    EXPECT_EQ(foco, c.foco);
    EXPECT_EQ(Escritas(), Textos{});
}

INSTANTIATE_TEST_SUITE_P(EnOrden, ValidacionDeCertificado, ::testing::Values(
    Caso{" -x", "c", "k", "p", "p", "Indique el número de certificado de sello digital.", "txtNumCertificado"},
    Caso{k20.substr(1), "c", "k", "p", "p", "Número de certificado incorrecto (longitud requerida 20 caracteres).",
         "txtNumCertificado"},
    Caso{"3000a1000 000-0500003416", "", "k", "p", "p", "Indique el certificado para sello digital", "txtCertificado"},
    Caso{k20, "c", "", "p", "p", "Indique la llave privada para sello digital", "txtPrivateKey"},
    Caso{k20, "c", "k", "", "p", "Indique la contraseña correspondiente a la llave privada.", "txtPWD"},
    Caso{k20, "c", "k", "p", "", "Escriba nuevamente la contraseña.", "txtPWD2"},
    Caso{k20, "c", "k", "p", "q", "La contraseña no coincide.", "txtPWD2"}));

// CFD: the certificate's path is optional, the PFX part hidden and never
// asked for. Other kinds ask, and a No saves the row without PFX.
TEST_F(Certificado, ANewRowIsWrittenAndItsKeyReadBackByNumberThePFXAskedForBeyondCFD) {
    for (int tipo : {1, 2}) {
        acc.GlobalVar->GuardarNumero("NVCA300xa", tipo);
        if (tipo == 2) platform.ui.Responder(host::Respuesta::No);
        const std::string numero = std::to_string(tipo) + k20.substr(1);
        Textos visto;
        const Variant clave = Abrir(0, [&](dlgcertificado& d) {
            visto = {d.txtCertificado.Caption(), d.txtPFX.Visible() && d.cmdGenerarPFX.Visible() ? "pfx" : ""};
            Llenar(d, numero, tipo == 1 ? "" : "c", "k", "12345678a", "12345678a");
            d.btnOK.Pulsar();
        });
        const Textos esperado = tipo == 1 ? Textos{"Ubicación del certificado de sello digital (opcional):", ""}
                                          : Textos{"Ubicación del certificado de sello digital", "pfx"};
        EXPECT_EQ(visto, esperado);
        EXPECT_EQ(clave, Variant::Long(3 + tipo));
        EXPECT_EQ(Escritas(), (Textos{"INSERT INTO ut_CFDInfo (uf_noCertificado,uf_Certificado,uf_LlavePrivada,"
                                      "uf_PFX,uf_Clave) VALUES (?,?,?,?,?)"}));
        EXPECT_EQ(db.sentencias->back(), "SELECT Sys_PK FROM ut_CFDInfo WHERE uf_noCertificado='" + numero + "'");
        EXPECT_EQ(mdlMain::DescifrarTexto(Texto("SELECT uf_Clave FROM ut_CFDInfo WHERE Sys_PK=" + CStr(clave))),
                  "12345678a");
    }
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    platform.ui.ExpectCaja(0, "Aún no ha indicado el archivo PFX para cancelaciones. ¿Desea usar los archivos "
                              "indicados en este formulario para crear el archivo PFX?",
                           Icono::Ninguno, kTitulo, host::Botones::SiNo);
}

// A changed row goes back through a recordset that reads its key apart. The
// password is enciphered again only when both fields were retyped; retyping
// only the first can't match the cipher in the second.
TEST_F(Certificado, AChangedRowKeepsThePasswordByteForByteUnlessItWasRetyped) {
    const std::string cifrada = mdlMain::CifrarTexto("12345678a");
    db.Ejecutar("UPDATE ut_CFDInfo SET uf_Clave='" + cifrada + "'");
    Textos filas, sentencias;
    for (const std::string claves : {"", "nueva nueva", "nueva"}) {
        platform.ui.Responder(host::Respuesta::No);
        const Variant aceptado = Abrir(3, [&](dlgcertificado& d) {
            d.txtCertificado.Text("otro.cer");
            if (!claves.empty()) d.txtPWD.Text("nueva"), d.txtPWD2.Text(claves.size() > 5 ? "nueva" : cifrada);
            d.btnOK.Pulsar();
        });
        if (claves.empty()) sentencias.assign(db.sentencias->begin() + desde + 4, db.sentencias->end());
        for (const std::string& escrita : Escritas()) sentencias.push_back(escrita);
        const std::string clave = Texto("SELECT uf_Clave FROM ut_CFDInfo WHERE Sys_PK=3");
        filas.push_back(CStr(aceptado) + " " + Texto("SELECT uf_Certificado || '|' || ifnull(uf_PFX, 'Null') FROM "
                                                     "ut_CFDInfo WHERE Sys_PK=3") +
                        " " + (clave == cifrada ? "igual" : mdlMain::DescifrarTexto(clave)));
    }
    EXPECT_EQ(filas, (Textos{"True otro.cer| igual", "True otro.cer| nueva", "False otro.cer| nueva"}));
    const std::string kUpdate = "UPDATE ut_CFDInfo SET uf_noCertificado=?,uf_Certificado=?,uf_LlavePrivada=?,uf_PFX=?";
    EXPECT_EQ(sentencias, (Textos{"Select uf_noCertificado,uf_Certificado,uf_LLavePrivada,uf_PFX, uf_clave FROM "
                                  "ut_CFDInfo WHERE Sys_PK=3", "SELECT Sys_PK FROM ut_CFDInfo WHERE Sys_PK=3",
                                  kUpdate + " WHERE Sys_PK=?", kUpdate + " WHERE Sys_PK=?",
                                  kUpdate + ",uf_Clave=? WHERE Sys_PK=?"}));
    platform.ui.ExpectCaja(2, "La contraseña no coincide.", Icono::Informacion);
    // A certificate in use keeps its number; a key below 1 is refused.
    Abrir(1, [](dlgcertificado& d) { EXPECT_FALSE(d.txtNumCertificado.Enabled()); });
    EXPECT_FALSE(acc.ModificarCertificado(-1));
    platform.ui.ExpectCaja(3, "Clave incorrecta.", Icono::Exclamacion);
}

// Beside the certificate, from the stored password deciphered: the PFX opens
// with openssl and holds the certificate; a second press stops at it.
TEST_F(Certificado, ThePFXIsBuiltBesideTheCertificateFromTheStoredPasswordAndNeverReplaced) {
    const std::string cer = Copiar("csd-EKU9003173C9.key");
    db.Ejecutar("UPDATE ut_CFDInfo SET uf_Certificado='" + cer + "', uf_LlavePrivada='" + (carpeta / "sello.key") +
                "', uf_Clave='" + mdlMain::CifrarTexto("12345678a") + "' WHERE Sys_PK=3");
    const std::string pfx = carpeta / "sello.pfx";
    Abrir(3, [&](dlgcertificado& d) {
        d.chkPFX.Pulsar();
        d.cmdGenerarPFX.Pulsar();
        EXPECT_EQ(d.txtPFX.Text(), pfx);
        d.cmdGenerarPFX.Pulsar();
    });
    platform.ui.ExpectCaja(0, "Archivo creado correctamente en " + pfx, Icono::Ninguno, kTitulo);
    platform.ui.ExpectCaja(1, "Ya existe un archivo con el mismo nombre en la ubicación indicada", Icono::Informacion,
                           kTitulo);
    EXPECT_EQ(platform.ui.Punteros(), (std::vector<host::Puntero>{host::Puntero::Reloj, host::Puntero::Normal}));
    ASSERT_EQ(std::system(("openssl pkcs12 -in '" + pfx + "' -passin pass:12345678a -nokeys | openssl x509 -noout "
                           "-serial > '" + (carpeta / "serie") + "'").c_str()), 0);
    std::string linea;
    std::ifstream leido(carpeta / "serie");
    std::getline(leido, linea);
    EXPECT_EQ(linea, "serial=3330303031303030303030353030303033343136");
}

// Another identity's key and a wrong password fail in the tool; a missing
// component has its own message; a cancelled save dialog says nothing.
struct Fallo {
    std::string llave, clave, quitar, mensaje, titulo = kTitulo;
};
const std::string kNoSePudo = ") No se pudo crear el archivo. Asegurese que la contraseña es correcta y que tenga "
                              "permisos de escritura en la ubicación: ";
class FalloPFX : public Certificado, public ::testing::WithParamInterface<Fallo> {};

TEST_P(FalloPFX, EndsWithItsMessageAndLeavesNoFile) {
    const Fallo& f = GetParam();
    const std::string cer = Copiar(f.llave);
    platform.Quitar(f.quitar);
    platform.ui.Elegir(f.quitar == "-" ? std::nullopt : std::optional(carpeta / "elegido.pfx"));
    Abrir(0, [&](dlgcertificado& d) {
        Llenar(d, k20, cer, carpeta / "sello.key", f.clave, f.clave);
        d.cmdGenerarPFX.Pulsar();
        EXPECT_EQ(d.txtPFX.Text(), "");
    });
    EXPECT_FALSE(fs::exists(carpeta / "elegido.pfx"));
    ASSERT_EQ(platform.ui.Cajas().size(), f.mensaje.empty() ? 0u : 1u);
    if (f.mensaje.empty()) return;
    const std::string texto = platform.ui.Cajas()[0].texto;
    EXPECT_EQ(texto.rfind(f.mensaje, 0), 0u) << texto;
    // The folder named is the certificate's.
    EXPECT_TRUE(f.mensaje != "(Err: " || texto.ends_with(kNoSePudo + mdlMain::Utilerias().CarpetaDeRuta(cer)));
    platform.ui.ExpectCaja(0, texto, Icono::Exclamacion, f.titulo);
}

INSTANTIATE_TEST_SUITE_P(Casos, FalloPFX, ::testing::Values(
    Fallo{"csd-CACX7605101P8.key", "12345678a", "", "(Err: "}, Fallo{"csd-EKU9003173C9.key", "otra", "", "(Err: "},
    Fallo{"csd-EKU9003173C9.key", "12345678a", "-", ""},
    Fallo{"csd-EKU9003173C9.key", "12345678a", host::progid::Sellora,
          "Error al crear objeto Sellora.cProccess. Asegurese de que el componente está instalado"},
    Fallo{"csd-EKU9003173C9.key", "12345678a", host::progid::Trasvel, "Error al crear objeto Trasvel.cTools",
          "Error"}));

}  // namespace
}  // namespace celdora
