// The PFX file that cancellations need, built from the certificate, private
// key and password on the certificate editor's form. The PFX tool does the
// work; the sealing component only has to be installed. Nothing is written
// to the database: the path reaches the row when the user accepts the form.

#include "certificates/dlgcertificado.h"
#include "core/Mensajes.h"
#include "core/mdlMain.h"
#include "host/Components.h"
#include "host/Platform.h"
#include "value/Channels.h"
#include "value/Text.h"

namespace celdora {

namespace {

using host::Icono;

constexpr const char* kTitulo = "Facturación Electrónica";

void Puntero(host::Puntero puntero) { host::CurrentPlatform().Ui().MousePointer(puntero); }

}  // namespace

std::string dlgcertificado::DestinoPFX() {
    if (chkPFX.Value() == 1) {
        auto& utilerias = mdlMain::Utilerias();
        return utilerias.AgregarDiagonal(utilerias.CarpetaDeRuta(txtCertificado.Text())) +
               utilerias.NombreSinExtension(txtCertificado.Text()) + ".pfx";
    }
    cdlg.CancelError = true;
    cdlg.Filter = "Archivo pfx *.pfx|*.pfx";
    cdlg.FileName = "";
    if (Trap([&] { cdlg.ShowSave(); })) return "";
    return Trim(cdlg.FileName);
}

// A stored password is shown enciphered; while the field still shows it, the
// clear password is the stored one deciphered.
std::string dlgcertificado::ClaveEnClaro() {
    if (clave_ >= 1 && !claveOriginal_.empty() && txtPWD.Text() == claveMostrada_) {
        return mdlMain::DescifrarTexto(claveOriginal_);
    }
    return txtPWD.Text();
}

void dlgcertificado::GenerarPFX() {
    auto fault = Trap([&] {
        if (!Validar()) return;
        std::string destino = DestinoPFX();
        if (destino.empty()) return;
        // An existing file is never replaced.
        if (mdlMain::Utilerias().ExisteArchivo(destino)) {
            core::Caja("Ya existe un archivo con el mismo nombre en la ubicación indicada", Icono::Informacion,
                       kTitulo);
            return;
        }
        if (!host::CurrentPlatform().CrearObjeto(host::progid::Sellora)) {
            core::Caja("Error al crear objeto Sellora.cProccess. Asegurese de que el componente está instalado",
                       Icono::Exclamacion, kTitulo);
            return;
        }
        std::string clave = ClaveEnClaro();
        auto herramienta = host::Crear<host::cTools>(host::progid::Trasvel);
        if (!herramienta) {
            core::Caja("Error al crear objeto Trasvel.cTools", Icono::Exclamacion, "Error");
            return;
        }
        Puntero(host::Puntero::Reloj);
        if (!herramienta->createPFXfile(destino, txtCertificado.Text(), txtPrivateKey.Text(), clave)) {
            Puntero(host::Puntero::Normal);
            // The folder named is the certificate's, even for a target the
            // user picked elsewhere.
            core::Caja("(Err: " + herramienta->lastErr() +
                           ") No se pudo crear el archivo. Asegurese que la contraseña es correcta y que tenga "
                           "permisos de escritura en la ubicación: " +
                           mdlMain::Utilerias().CarpetaDeRuta(txtCertificado.Text()),
                       Icono::Exclamacion, kTitulo);
            return;
        }
        Puntero(host::Puntero::Normal);
        txtPFX.Text(destino);
        core::Caja("Archivo creado correctamente en " + destino, Icono::Ninguno, kTitulo);
    });
    if (fault) {
        ResumeNext([] { Puntero(host::Puntero::Normal); });
        core::Caja(ErrorText(*fault), Icono::Exclamacion, kTitulo);
    }
}

}  // namespace celdora
