#include "settings/dlgConfigAvz.h"

#include "settings/OpcionesAvanzadas.h"
#include "value/Channels.h"
#include "value/Convert.h"

namespace celdora {

namespace {

// The joining text may not hold the separator of the XML's fields; only a
// typed one is refused, a pasted text is taken as it is.
constexpr int kBarra = 124;

}  // namespace

dlgConfigAvz::dlgConfigAvz() : Dialogo("dlgConfigAvz", "Configuración avanzada") {
    btnOK.Default(true);
    btnCancel.Cancel(true);
    chkConcatNotasPartida.Click = [this] { ctrlCadenaUnion.Enabled(chkConcatNotasPartida.Value() == 1); };
    ctrlCadenaUnion.KeyPress = [](int& keyAscii) {
        if (keyAscii == kBarra) keyAscii = 0;
    };
    btnOK.Click = [this] { btnOK_Click(); };
    btnCancel.Click = [this] { Unload(); };
}

void dlgConfigAvz::Form_Load() {
    OpcionesAvanzadas& v = VariablesAvanzadas();
    ResumeNext([&] { chkConcatNotasPartida.Value(CInt(Variant(v.concatNotasPartida))); });
    ResumeNext([&] { ctrlCadenaUnion.Text(v.cadenaUnion); });
    ResumeNext([&] {
        if (chkConcatNotasPartida.Value() != 1) ctrlCadenaUnion.Enabled(false);
    });
    ResumeNext([&] { chkAddendaTiendaroC.Value(CInt(Variant(v.addendaTiendaron))); });
    ResumeNext([&] { chkSerieLote.Value(CInt(Variant(v.serieLote))); });
}

void dlgConfigAvz::Form_Unload() { oAcc = nullptr; }

void dlgConfigAvz::btnOK_Click() {
    OpcionesAvanzadas& v = VariablesAvanzadas();
    ResumeNext([&] { v.concatNotasPartida = chkConcatNotasPartida.Value(); });
    ResumeNext([&] { v.cadenaUnion = ctrlCadenaUnion.Text(); });
    ResumeNext([&] { v.addendaTiendaron = chkAddendaTiendaroC.Value(); });
    ResumeNext([&] { v.serieLote = chkSerieLote.Value(); });
    Aceptado = true;
    Unload();
}

}  // namespace celdora
