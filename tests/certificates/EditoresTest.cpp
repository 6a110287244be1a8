// The certificate, folio range and blocks by certificate editors on the demo
// company. Certificate 1 seals ranges in use, 3 is free and has no PFX; PFX
// files are built from the public test certificates. Ranges 1 and 2 are in
// use and hold blocks 1 (Factura A) and 2; range 3 is free and holds none;
// blocks 6 (Factura E, links Null) and 7 (Nota de cargo G, links 0) are free;
// certificate 2 holds blocks 3 (Factura F) and 4 (Nota de Cargo D).

#include <gtest/gtest.h>

#include <filesystem>

#include "certificates/dlgRangoFolios.h"
#include "certificates/dlgcertificado.h"
#include "certificates/frmBlockXCer.h"
#include "core/mdlMain.h"
#include "tests/support/CarpetaTemporal.h"
#include "tests/support/FachadaDemo.h"

namespace celdora {
namespace {

namespace fs = std::filesystem;
using host::Icono;
using testing::Textos;

// The editors opened through the facade, a script run in each, and the
// statements that wrote meanwhile.
class Editores : public testing::FachadaDemo {
protected:
    std::size_t desde = 0;

    // The next showing of the dialog runs the script; it is then cancelled if still up.
    template <class Dialogo>
    void AlAbrir(const std::string& clase, std::function<void(Dialogo&)> guion) {
        platform.ui.AlMostrar(clase, [guion](forms::Dialogo& d) {
            guion(dynamic_cast<Dialogo&>(d));
            if (d.Visible()) d.Ver<forms::CommandButton>("btnCancel").Pulsar();
        });
        desde = db.sentencias->size();
    }
    Textos Escritas() const {
        Textos escritas(db.sentencias->begin() + static_cast<std::ptrdiff_t>(desde), db.sentencias->end());
        std::erase_if(escritas, [](const auto& s) { return !s.starts_with("INSERT") && !s.starts_with("UPDATE"); });
        return escritas;
    }
};

const std::string k20 = "30001000000500003416";
const std::string kTitulo = "Facturación Electrónica";

class Certificado : public Editores {
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
};

struct Caso {
    std::string numero, cer, mensaje, foco;
};
class ValidacionDeCertificado : public Certificado, public ::testing::WithParamInterface<Caso> {};

// Only digits can be typed, 20 at most; then the 20 are required.
TEST_P(ValidacionDeCertificado, StopsAtTheFirstFailureWithItsFocusAndWritesNothing) {
    const Caso& c = GetParam();
    EXPECT_EQ(Abrir(0, [&](dlgcertificado& d) {
        Llenar(d, c.numero, c.cer, "k", "p", "p");
        d.btnOK.Pulsar();
        EXPECT_EQ(d.Foco()->Nombre(), c.foco);
    }), Variant::Long(0));
    UnaCaja(c.mensaje, Icono::Informacion);
    EXPECT_EQ(Escritas(), Textos{});
}

INSTANTIATE_TEST_SUITE_P(EnOrden, ValidacionDeCertificado, ::testing::Values(
    Caso{k20.substr(1), "c", "Número de certificado incorrecto (longitud requerida 20 caracteres).",
         "txtNumCertificado"},
    Caso{"3000a1000 000-0500003416", "", "Indique el certificado para sello digital", "txtCertificado"}));

// CFD: the certificate's path is optional, the PFX part hidden and never
// asked for. Other kinds ask, and a No saves the row without PFX; the key is
// read back by number.
TEST_F(Certificado, ANewRowIsWrittenAndItsKeyReadBackByNumberThePFXAskedForBeyondCFD) {
    const std::string kUbicacion = "Ubicación del certificado de sello digital";
    for (int tipo : {1, 2}) {
        acc.GlobalVar->GuardarNumero("NVCA300xa", tipo);
        if (tipo == 2) platform.ui.Responder(host::Respuesta::No);
        const std::string numero = std::to_string(tipo) + k20.substr(1);
        EXPECT_EQ(Abrir(0, [&](dlgcertificado& d) {
            EXPECT_EQ(d.txtCertificado.Caption(), tipo == 1 ? kUbicacion + " (opcional):" : kUbicacion);
            EXPECT_EQ(d.txtPFX.Visible() && d.cmdGenerarPFX.Visible(), tipo == 2);
            Llenar(d, numero, tipo == 1 ? "" : "c", "k", "12345678a", "12345678a");
            d.btnOK.Pulsar();
        }), Variant::Long(3 + tipo));
        EXPECT_EQ(Escritas(), (Textos{"INSERT INTO ut_CFDInfo (uf_noCertificado,uf_Certificado,uf_LlavePrivada,"
                                      "uf_PFX,uf_Clave) VALUES (?,?,?,?,?)"}));
        EXPECT_EQ(db.sentencias->back(), "SELECT Sys_PK FROM ut_CFDInfo WHERE uf_noCertificado='" + numero + "'");
    }
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    platform.ui.ExpectCaja(0, "Aún no ha indicado el archivo PFX para cancelaciones. ¿Desea usar los archivos "
                              "indicados en este formulario para crear el archivo PFX?",
                           Icono::Ninguno, kTitulo, host::Botones::SiNo);
}

// A changed row goes back through a recordset; the null uf_PFX loads as
// empty. The password is enciphered again only when both fields were retyped;
// retyping only the first can't match the cipher in the second.
TEST_F(Certificado, AChangedRowKeepsThePasswordByteForByteUnlessItWasRetyped) {
    const std::string cifrada = mdlMain::CifrarTexto("12345678a");
    db.Ejecutar("UPDATE ut_CFDInfo SET uf_Clave='" + cifrada + "'");
    const std::string kUpdate = "UPDATE ut_CFDInfo SET uf_noCertificado=?,uf_Certificado=?,uf_LlavePrivada=?,uf_PFX=?";
    Textos filas;
    for (const std::string claves : {"", "nueva nueva", "nueva"}) {
        platform.ui.Responder(host::Respuesta::No);
        const Variant aceptado = Abrir(3, [&](dlgcertificado& d) {
            d.txtCertificado.Text("otro.cer");
            if (!claves.empty()) d.txtPWD.Text("nueva"), d.txtPWD2.Text(claves.size() > 5 ? "nueva" : cifrada);
            d.btnOK.Pulsar();
        });
        for (const std::string& escrita : Escritas()) filas.push_back(escrita);
        const std::string clave = Texto("SELECT uf_Clave FROM ut_CFDInfo WHERE Sys_PK=3");
        filas.push_back(CStr(aceptado) + " " + Texto("SELECT uf_Certificado || '|' || ifnull(uf_PFX, 'Null') FROM "
                                                     "ut_CFDInfo WHERE Sys_PK=3") +
                        " " + (clave == cifrada ? "igual" : mdlMain::DescifrarTexto(clave)));
    }
    EXPECT_EQ(filas, (Textos{kUpdate + " WHERE Sys_PK=?", "True otro.cer| igual", kUpdate + ",uf_Clave=? WHERE Sys_PK=?",
                             "True otro.cer| nueva", "False otro.cer| nueva"}));
    platform.ui.ExpectCaja(2, "La contraseña no coincide.", Icono::Informacion);
}

// Beside the certificate, from the stored password deciphered (the tool
// refuses any other); a second press stops at it. Off the check box the
// target is asked for, and a cancelled save dialog says nothing.
TEST_F(Certificado, ThePFXIsBuiltBesideTheCertificateFromTheStoredPasswordAndNeverReplaced) {
    const std::string cer = carpeta / "sello.cer";
    fs::copy_file(fs::path(CELDORA_SAT_CSD_DIR) / "csd-EKU9003173C9.cer", cer);
    fs::copy_file(fs::path(CELDORA_SAT_CSD_DIR) / "csd-EKU9003173C9.key", carpeta.ruta() / "sello.key");
    db.Ejecutar("UPDATE ut_CFDInfo SET uf_Certificado='" + cer + "', uf_LlavePrivada='" + (carpeta / "sello.key") +
                "', uf_Clave='" + mdlMain::CifrarTexto("12345678a") + "' WHERE Sys_PK=3");
    platform.ui.Elegir(std::nullopt);
    Abrir(3, [&](dlgcertificado& d) {
        d.chkPFX.Pulsar();
        d.cmdGenerarPFX.Pulsar();
        d.cmdGenerarPFX.Pulsar();
        d.chkPFX.Pulsar();
        d.cmdGenerarPFX.Pulsar();
    });
    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    platform.ui.ExpectCaja(0, "Archivo creado correctamente en " + (carpeta / "sello.pfx"), Icono::Ninguno, kTitulo);
    platform.ui.ExpectCaja(1, "Ya existe un archivo con el mismo nombre en la ubicación indicada", Icono::Informacion,
                           kTitulo);
}

class Rango : public Editores {
protected:
    Variant Abrir(std::int32_t clave, std::function<void(dlgRangoFolios&)> guion) {
        AlAbrir<dlgRangoFolios>("dlgRangoFolios", std::move(guion));
        return clave < 1 ? Variant::Long(acc.AgregarAprobacionFolios()) : Variant(acc.ModificarAprobacionFolios(clave));
    }
    // For a block named, all blocks are listed first.
    static void Llenar(dlgRangoFolios& d, const std::string& serie, double inicial, double final, double anio,
                       const std::string& block) {
        if (!block.empty()) d.btnBlock.Pulsar();
        d.txtSerie.Text(serie);
        d.eNumFInicial.Value(inicial);
        d.eNumFFinal.Value(final);
        d.eNumNoAprobacion.Value(777);
        d.eNumAnioAprobacion.Value(anio);
        d.cmbCertificado.ListIndex(0);
        if (!block.empty()) d.cmbBlock.Text(block);
    }
};

struct CasoRango {
    std::string serie;
    double anio;
    std::string block, mensaje, foco;
};
class ValidacionDeRango : public Rango, public ::testing::WithParamInterface<CasoRango> {};

TEST_P(ValidacionDeRango, StopsAtTheFirstFailureWithItsFocusAndWritesNothing) {
    const CasoRango& c = GetParam();
    EXPECT_EQ(Abrir(0, [&](dlgRangoFolios& d) {
        Llenar(d, c.serie, 1, 9, c.anio, c.block);
        d.btnOK.Pulsar();
        EXPECT_EQ(d.Foco()->Nombre(), c.foco);
    }), Variant::Long(0));
    UnaCaja(c.mensaje, Icono::Informacion);
    EXPECT_EQ(Escritas(), Textos{});
}

const std::string kE = "Factura -E";
INSTANTIATE_TEST_SUITE_P(EnOrden, ValidacionDeRango, ::testing::Values(
    CasoRango{"E", 0, kE, "Año de aprobación incorrecto.", "eNumAnioAprobacion"},
    CasoRango{"E", 210, kE, "Año de aprobación incorrecto. El formato debe ser de 4 digitos", "eNumAnioAprobacion"},
    CasoRango{"B", 2010, "Factura -A", "La serie del rango de folios fiscales debe de conicidir con la serie "
                                       "asignada al block de documentos del sistema.", "txtSerie"}));

// The series takes capital letters only. Taking range 1's block asks: No
// keeps the dialog open and writes nothing; Yes saves, and the new row notes
// range 1. A last folio below the first is kept.
TEST_F(Rango, TakingTheBlockOfAnotherRangeAsksAndOnYesNotesTheFormerRange) {
    platform.ui.Responder(host::Respuesta::No);
    platform.ui.Responder(host::Respuesta::Si);
    Textos vistos;
    EXPECT_EQ(Abrir(0, [&](dlgRangoFolios& d) {
        d.txtSerie.Escribir("a1ñ-b");
        vistos.push_back(d.txtSerie.Text());
        Llenar(d, "A", 100, 50, 2026, "Factura -A");
        d.btnOK.Pulsar();
        vistos.push_back(d.Foco()->Nombre() + " " + std::to_string(Escritas().size()));
        d.btnOK.Pulsar();
    }), Variant::Long(4));
    EXPECT_EQ(vistos, (Textos{"AÑB", "cmbBlock 0"}));
    EXPECT_EQ(Escritas(), (Textos{"INSERT INTO ut_CFDFolio (uf_Serie,uf_FolioInicial,uf_FolioFinal,uf_noAprobacion,"
                                  "uf_anoAprobacion,uf_CFDInfo) VALUES (?,?,?,?,?,?)",
                                  "UPDATE BlockDocumentos SET Fiscal=1,uf_CFDFolio=4 WHERE Sys_PK=1",
                                  "UPDATE ut_CFDFolio SET uf_CFDFolioAnterior=1 WHERE Sys_PK=4"}));
    EXPECT_EQ(Texto("SELECT uf_FolioInicial || ',' || uf_FolioFinal FROM ut_CFDFolio WHERE Sys_PK=4"), "100,50");
    platform.ui.ExpectPregunta(1, "El block seleccionado pertenece a otro rango de folios fiscales. Si asigna el mismo "
                                  "block el rango anterior ya no se usara para genearación de folios ¿Esta seguro que "
                                  "desea continuar?");
}

// An empty series passes with any block; the block left behind is freed. A
// range in use shows its row with everything but Cancel disabled.
TEST_F(Rango, AChangedRangeIsUpdatedAndMovesItsBlockWhileARangeInUseStaysLocked) {
    db.Ejecutar("UPDATE BlockDocumentos SET uf_CFDFolio=3, Fiscal=1 WHERE Sys_PK=6");
    EXPECT_EQ(Abrir(3, [&](dlgRangoFolios& d) {
        d.eNumFFinal.Value(300);
        d.cmbBlock.Text("Nota de cargo -G");
        d.btnOK.Pulsar();
    }), Variant(true));
    EXPECT_EQ(Escritas(), (Textos{"UPDATE ut_CFDFolio SET uf_Serie='',uf_FolioInicial=1,uf_FolioFinal=300,"
                                  "uf_noAprobacion=34567,uf_anoAprobacion=2012, uf_CFDinfo=1 WHERE Sys_PK=3",
                                  "UPDATE BlockDocumentos SET Fiscal=1,uf_CFDFolio=3 WHERE Sys_PK=7",
                                  "UPDATE BlockDocumentos SET uf_CFDFolio=NULL,Fiscal=0 WHERE Sys_PK=6"}));
    Textos vivos;
    EXPECT_EQ(Abrir(1, [&](dlgRangoFolios& d) {
        for (const auto& control : d.Controles())
            if (control->Enabled()) vivos.push_back(control->Nombre());
    }), Variant(false));
    EXPECT_EQ(vivos, (Textos{"tab", "btnCancel"}));
}

// Blocks by certificate 2: its own blocks and the free ones, checked or not.
// Every item is written in list order, NULL for unchecked ones (even where 0
// stood: block 7), with no transaction, and the dialog closes. Certificate 3,
// once no block is free, has an empty list: nothing is written and it closes.
TEST_F(Editores, BlocksByCertificateAreWrittenInListOrderWithNullForUncheckedOnes) {
    Textos vistos;
    for (std::int32_t clave : {2, 3}) {
        frmBlockXCer d;
        d.setObjects(acc);
        std::string numero = "N" + std::to_string(clave);
        d.setCer(clave, numero);
        vistos.push_back(d.lblCertificado.Caption());
        for (int i = 0; i < d.lvw.Count(); ++i)
            vistos.push_back(d.lvw.Item(i).key + " " + d.lvw.Item(i).text + (d.lvw.Item(i).checked ? " [x]" : " [ ]"));
        AlAbrir<frmBlockXCer>("frmBlockXCer", [](frmBlockXCer& f) {
            // Item 0 unchecked, item 2 checked.
            for (int i : {0, 2}) if (i < f.lvw.Count()) f.lvw.MarcarItem(i, i == 2);
            f.btnGuardar.Pulsar();
        });
        d.ShowModal();
        EXPECT_FALSE(d.Cargado());
        for (const std::string& escrita : Escritas()) vistos.push_back(escrita);
        db.Ejecutar("UPDATE BlockDocumentos SET uf_CFDI_Info=2 WHERE Sys_PK IN (3,6,7)");
    }
    EXPECT_EQ(vistos, (Textos{"N2", "pk3 Factura Serie: F [x]", "pk4 Nota de Cargo Serie: D [x]",
                              "pk6 Factura Serie: E [ ]", "pk7 Nota de Cargo Serie: G [ ]",
                              "UPDATE BlockDocumentos SET uf_CFDI_Info=NULL WHERE Sys_PK=3",
                              "UPDATE BlockDocumentos SET uf_CFDI_Info=2 WHERE Sys_PK=4",
                              "UPDATE BlockDocumentos SET uf_CFDI_Info=2 WHERE Sys_PK=6",
                              "UPDATE BlockDocumentos SET uf_CFDI_Info=NULL WHERE Sys_PK=7", "N3"}));
    EXPECT_EQ(dataObjects->llamadas, Textos{});
}

}  // namespace
}  // namespace celdora
