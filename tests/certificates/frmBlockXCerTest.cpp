// Blocks by certificate on the demo company: certificate 2 holds blocks 3
// (Factura F) and 4 (Nota de Cargo D); blocks 6 (E, links Null) and 7 (G,
// links 0) are free; the others belong to folio or CBB ranges.

#include <gtest/gtest.h>

#include "certificates/frmBlockXCer.h"
#include "tests/support/FachadaDemo.h"

namespace celdora {
namespace {

using testing::Textos;

class BlocksPorCertificado : public testing::FachadaDemo {
protected:
    // Shows the blocks of the certificate, runs the script in the dialog and
    // gives the items as "text [x]" and the statements issued while it was up.
    Textos Mostrar(std::int32_t clave, std::function<void(frmBlockXCer&)> guion, Textos& escritas) {
        frmBlockXCer dialogo;
        dialogo.Load();
        dialogo.setObjects(acc);
        std::string numero = "NUM" + std::to_string(clave);
        dialogo.setCer(clave, numero);
        EXPECT_EQ(dialogo.lblCertificado.Caption(), numero);
        Textos items;
        for (int i = 0; i < dialogo.lvw.Count(); ++i) {
            const auto& item = dialogo.lvw.Item(i);
            items.push_back(item.key + " " + item.text + (item.checked ? " [x]" : " [ ]"));
        }
        const std::size_t desde = db.sentencias->size();
        platform.ui.AlMostrar("frmBlockXCer", [guion](forms::Dialogo& d) { guion(dynamic_cast<frmBlockXCer&>(d)); });
        dialogo.ShowModal();
        EXPECT_FALSE(dialogo.Cargado()) << "saving or closing unloads the form";
        escritas.assign(db.sentencias->begin() + static_cast<long>(desde), db.sentencias->end());
        return items;
    }
};

TEST_F(BlocksPorCertificado, EveryItemIsWrittenInListOrderWithNullForUncheckedOnesAndNoTransaction) {
    Textos escritas;
    EXPECT_EQ(Mostrar(2,
                      [](frmBlockXCer& d) {
                          d.lvw.MarcarItem(0, false);
                          d.lvw.MarcarItem(2, true);
                          d.btnGuardar.Pulsar();
                      },
                      escritas),
              (Textos{"pk3 Factura Serie: F [x]", "pk4 Nota de Cargo Serie: D [x]", "pk6 Factura Serie: E [ ]",
                      "pk7 Nota de Cargo Serie: G [ ]"}));
    EXPECT_EQ(escritas, (Textos{"UPDATE BlockDocumentos SET uf_CFDI_Info=NULL WHERE Sys_PK=3",
                                "UPDATE BlockDocumentos SET uf_CFDI_Info=2 WHERE Sys_PK=4",
                                "UPDATE BlockDocumentos SET uf_CFDI_Info=2 WHERE Sys_PK=6",
                                "UPDATE BlockDocumentos SET uf_CFDI_Info=NULL WHERE Sys_PK=7"}));
    EXPECT_EQ(dataObjects->llamadas, Textos{});
    EXPECT_TRUE(SinCajas());
}

TEST_F(BlocksPorCertificado, FreeBlocksShowUncheckedAndSavingSetsNullEvenWhereZeroStood) {
    Textos escritas;
    EXPECT_EQ(Mostrar(3, [](frmBlockXCer& d) { d.btnGuardar.Pulsar(); }, escritas),
              (Textos{"pk6 Factura Serie: E [ ]", "pk7 Nota de Cargo Serie: G [ ]"}));
    EXPECT_EQ(escritas, (Textos{"UPDATE BlockDocumentos SET uf_CFDI_Info=NULL WHERE Sys_PK=6",
                                "UPDATE BlockDocumentos SET uf_CFDI_Info=NULL WHERE Sys_PK=7"}));
    EXPECT_EQ(CStr(db.Valor("SELECT ifnull(uf_CFDI_Info, 'Null') FROM BlockDocumentos WHERE Sys_PK=7")), "Null");

    db.Ejecutar("UPDATE BlockDocumentos SET uf_CFDI_Info=2 WHERE Sys_PK IN (6,7)");
    EXPECT_EQ(Mostrar(3, [](frmBlockXCer& d) { d.btnGuardar.Pulsar(); }, escritas), Textos{});
    EXPECT_EQ(escritas, Textos{});
    EXPECT_EQ(Mostrar(2, [](frmBlockXCer& d) { d.btnCerrar.Pulsar(); }, escritas).size(), 4u);
    EXPECT_EQ(escritas, Textos{});
}

}  // namespace
}  // namespace celdora
