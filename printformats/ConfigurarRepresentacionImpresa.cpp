// The facade's two print format members: each opens its dialog on the
// company settings and the repository folder, reloads the settings when the
// user accepted, and answers whether they did.

#include "core/cAcction.h"
#include "printformats/dlgImpresion.h"

namespace celdora {

bool cAcction::ConfigurarRepresentacionImpresa() {
    dlgImpresion dialogo(impresion::kImpresionCFD);
    dialogo.GlobalVar = GlobalVar;
    dialogo.rutaInicial = impresion::RutaInicial(AppRepositoryPath);
    dialogo.oAcc = this;
    dialogo.ShowModal();
    if (dialogo.Aceptado) LoadGlobalVar();
    return dialogo.Aceptado;
}

// Nothing of the CBB form depends on the comprobante kind, so it is not
// handed the facade.
bool cAcction::ConfigurarRepresentacionImpresaCBB() {
    dlgImpresion dialogo(impresion::kImpresionCBB);
    dialogo.GlobalVar = GlobalVar;
    dialogo.rutaInicial = impresion::RutaInicial(AppRepositoryPath);
    dialogo.ShowModal();
    if (dialogo.Aceptado) LoadGlobalVar();
    return dialogo.Aceptado;
}

}  // namespace celdora
