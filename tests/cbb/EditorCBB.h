#pragma once

// What the CBB editor's tests share: the two code images kept beside them (a
// JPEG and a 24-bit BMP of a few kB), the temporary folder where the editor
// leaves "tmpimage.jpg", and a user who fills in a new range.

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "cbb/dlgConfigFoliosCBB.h"
#include "tests/support/CarpetaTemporal.h"
#include "tests/support/ScriptedUi.h"

namespace celdora::testing {

inline const std::string kCbbJpeg = std::string(CELDORA_DATOS_CBB) + "/cbb.jpg";
inline const std::string kCbbBmp = std::string(CELDORA_DATOS_CBB) + "/cbb.bmp";

inline Bytes LeerBytes(const std::string& ruta) {
    std::ifstream in(ruta, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline dlgConfigFoliosCBB& Editor(forms::Dialogo& d) { return dynamic_cast<dlgConfigFoliosCBB&>(d); }

// The system's temporary folder (TMPDIR) is a folder of the test's own while
// this lives.
struct TemporalPrivado {
    CarpetaTemporal carpeta;
    TemporalPrivado() { ::setenv("TMPDIR", carpeta.ruta().c_str(), 1); }
    ~TemporalPrivado() { ::unsetenv("TMPDIR"); }
};

// The next editor shown gets a range typed in (approval 55 of 2012-05-04),
// its image chosen by a click on the path (none: not clicked), OK, and
// Cancel if it stays up.
inline void Capturar(ScriptedUi& ui, int block, double inicial, double final, const std::string& serie = "",
                     const std::string& imagen = kCbbJpeg) {
    if (!imagen.empty()) ui.Elegir(imagen);
    ui.AlMostrar("dlgConfigFoliosCBB", [=](forms::Dialogo& d) {
        auto& dlg = Editor(d);
        dlg.eNumNAprobacion.Value(55);
        dlg.eDtFechaAprobacion.Value(DateSerial(2012, 5, 4));
        dlg.eNumFInicial.Value(inicial);
        dlg.eNumFFinal.Value(final);
        dlg.etxtSerie.Text(serie);
        for (int i = 0; i < dlg.cmbBlock.ListCount(); ++i)
            if (dlg.cmbBlock.ItemData(i) == block) dlg.cmbBlock.ListIndex(i);
        if (!imagen.empty()) dlg.txtCBB.Pulsar();
        dlg.btnOK.Pulsar();
        if (dlg.Visible()) dlg.btnCancel.Pulsar();
    });
}

}  // namespace celdora::testing
