// Blocks by certificate on the demo company: certificate 2 holds blocks 3
// (Factura F) and 4 (Nota de Cargo D); blocks 6 (links Null) and 7 (links 0)
// are free; the others belong to folio or CBB ranges.

#include <gtest/gtest.h>

#include "certificates/frmBlockXCer.h"
#include "tests/certificates/Editores.h"

namespace celdora {
namespace {

using testing::Textos;

class BlocksPorCertificado : public testing::Editores {
protected:
    // The number shown and the items as "key text [x]"; then btnGuardar after
    // the checks changed, and the dialog must be gone.
    Textos Guardar(std::int32_t clave, std::vector<std::pair<int, bool>> marcas = {}) {
        frmBlockXCer d;
        d.setObjects(acc);
        std::string numero = "N" + std::to_string(clave);
        d.setCer(clave, numero);
        Textos items{d.lblCertificado.Caption()};
        for (int i = 0; i < d.lvw.Count(); ++i)
            items.push_back(d.lvw.Item(i).key + " " + d.lvw.Item(i).text + (d.lvw.Item(i).checked ? " [x]" : " [ ]"));
        AlAbrir<frmBlockXCer>("frmBlockXCer", [marcas](frmBlockXCer& d) {
            for (auto [item, marcado] : marcas) d.lvw.MarcarItem(item, marcado);
            d.btnGuardar.Pulsar();
        });
        d.ShowModal();
        EXPECT_FALSE(d.Cargado());
        return items;
    }
};

TEST_F(BlocksPorCertificado, EveryItemIsWrittenInListOrderWithNullForUncheckedOnesAndNoTransaction) {
    EXPECT_EQ(Guardar(2, {{0, false}, {2, true}}),
              (Textos{"N2", "pk3 Factura Serie: F [x]", "pk4 Nota de Cargo Serie: D [x]", "pk6 Factura Serie: E [ ]",
                      "pk7 Nota de Cargo Serie: G [ ]"}));
    EXPECT_EQ(Escritas(), (Textos{"UPDATE BlockDocumentos SET uf_CFDI_Info=NULL WHERE Sys_PK=3",
                                  "UPDATE BlockDocumentos SET uf_CFDI_Info=2 WHERE Sys_PK=4",
                                  "UPDATE BlockDocumentos SET uf_CFDI_Info=2 WHERE Sys_PK=6",
                                  "UPDATE BlockDocumentos SET uf_CFDI_Info=NULL WHERE Sys_PK=7"}));
    EXPECT_EQ(dataObjects->llamadas, Textos{});
    // Saving sets NULL even where 0 stood; an empty list writes nothing and closes.
    EXPECT_EQ(Texto("SELECT ifnull(uf_CFDI_Info, 'Null') FROM BlockDocumentos WHERE Sys_PK=7"), "Null");
    db.Ejecutar("UPDATE BlockDocumentos SET uf_CFDI_Info=2 WHERE Sys_PK IN (3,6,7)");
    EXPECT_EQ(Guardar(3), Textos{"N3"});
    EXPECT_EQ(Escritas(), Textos{});
}

}  // namespace
}  // namespace celdora
