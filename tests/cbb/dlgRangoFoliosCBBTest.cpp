// The CBB range list and the CBB issuer on the demo company (schema/README.md):
// ranges 1 (approval 9876, folios 1 to 500, block 5 Factura C) and 2 (4321,
// 1 to 100, block 9 Nota de Cargo H); fiscal address 1.

#include <gtest/gtest.h>

#include "cbb/dlgEmisor.h"
#include "cbb/dlgRangoFoliosCBB.h"
#include "core/Dialogos.h"
#include "tests/support/AjustesGrabados.h"
#include "tests/support/FachadaDemo.h"
#include "value/Text.h"

namespace celdora {
namespace {

using testing::Textos;


class CBB : public testing::FachadaDemo {
protected:
    std::shared_ptr<testing::GlobalVarGrabado> ajustes = std::make_shared<testing::GlobalVarGrabado>();
    void SetUp() override {
        FachadaDemo::SetUp();
        acc.GlobalVar = ajustes;
        for (auto [clave, valor] : {std::pair{"NVCA100", "EKU SA"}, {"NVCA101", "EKU"}, {"NVCA300xa", "3"}})
            ajustes->Poner(clave, valor);
    }
};

// Each item as "text|sub-items|key|tag".
Textos Items(const forms::ListView& l) {
    Textos items;
    for (int i = 0; i < l.Count(); ++i)
        items.push_back(l.Item(i).text + "|" + l.SubItem(i, 1) + "|" + l.SubItem(i, 2) + "|" + l.SubItem(i, 3) + "|" +
                        l.Item(i).key + "|" + l.Item(i).tag);
    return items;
}

// Ranges of a credit note block, of another kind of document and of a
// deleted block; the issuer's button, which opens the issuer, only for a
// company on CBB; edit and delete need a selection; closing always reminds.
TEST_F(CBB, TheListShowsRangesWithALiveBlockByKindAndClosingAlwaysReminds) {
    db.Ejecutar("INSERT INTO ut_FoliosCBB (uf_FolioInicial,uf_FolioFinal,uf_BlockDoc,uf_NumAprobacion) VALUES "
                "(1,9,2,11),(1,9,8,12),(1,9,99,13)");
    const Textos rangos{"9876|1|500|Factura - C|pk1|1", "4321|1|100|Nota de Cargo - H|pk2|2",
                        "11|1|9|Nota de Crédito - B|pk3|3", "12|1|9||pk4|4"};
    for (int i = 0; i < 2; ++i) platform.ui.AlMostrar("dlgEmisor", [](forms::Dialogo& d) { d.Hide(); });
    for (const char* tipo : {"2", "3", ""}) {
        if (*tipo) ajustes->Poner("NVCA300xa", tipo); else db.Ejecutar("DELETE FROM ut_FoliosCBB");
        platform.ui.AlMostrar("dlgRangoFoliosCBB", [&](forms::Dialogo& d) {
            auto& r = dynamic_cast<dlgRangoFoliosCBB&>(d);
            EXPECT_EQ(r.btnEmisor.Visible(), std::string(tipo) != "2");
            EXPECT_EQ(Items(r.lvwFoliosCBB), *tipo ? rangos : Textos{});
            r.btnEditCer.Pulsar();
            r.btnDelCer.Pulsar();
            r.btnEmisor.Pulsar();
            r.btnCancel.Pulsar();
        });
        acc.RangoFoliosCBB();
    }
    EXPECT_EQ(db.sentencias->back(), "SELECT ut_FoliosCBB.Sys_PK, ut_FoliosCBB.uf_FolioInicial AS FolioInicial, "
                                     "ut_FoliosCBB.uf_FolioFinal AS FolioFinal, BlockDocumentos.Documento AS Doc, "
                                     "BlockDocumentos.Serie,ut_FoliosCBB.uf_NumAprobacion FROM ut_FoliosCBB INNER "
                                     "JOIN BlockDocumentos ON ut_FoliosCBB.uf_BlockDoc=BlockDocumentos.Sys_PK");
    EXPECT_EQ(platform.ui.Registro().size(), 14u);
    for (int i : {0, 3, 6}) {
        platform.ui.ExpectCaja(i + 1, "Seleccione un elemento de la lista.", host::Icono::Informacion);
        platform.ui.ExpectCaja(i + 2, "Favor de reiniciar la conexión del sistema después de realizar algún cambio.",
                               host::Icono::Informacion);
    }
    dlgRangoFoliosCBB().lista.cargarLista();
    platform.ui.ExpectCaja(9, "Error: (91) Object variable or With block variable not set", host::Icono::Exclamacion);
}

// Name and RFC (blanks at the ends do not count), and the box; the address
// is not checked and its postal code goes in as typed. "91": without the
// address component the save's trap ends it.
struct Emisor { std::string nombre, rfc, caja; };
class GuardarEmisor : public CBB, public ::testing::WithParamInterface<Emisor> {};

TEST_P(GuardarEmisor, OnlyTheRfcsLengthIsCheckedAndAFirstSaveInsertsTheAddress) {
    if (GetParam().nombre == "91") platform.Quitar(host::progid::objDomicilio);
    platform.ui.AlMostrar("dlgEmisor", [](forms::Dialogo& d) {
        auto& e = dynamic_cast<dlgEmisor&>(d).emisor;
        EXPECT_EQ(e.eDir.address() + e.eDir.titulo() + e.txtNombreEmisor.Text(), "EKU SA");
        e.txtNombreEmisor.Text(GetParam().nombre);
        e.txtRFCEmisor.Text(GetParam().rfc);
        e.eDir.codep(" 1 ");
        dynamic_cast<dlgEmisor&>(d).btnOK.Pulsar();
        if (d.Visible()) dynamic_cast<dlgEmisor&>(d).btnCancel.Pulsar();
    });
    auto dialogo = dialogos::Crear("dlgEmisor", acc);
    dialogo->ShowModal();
    const bool guardado = GetParam().caja.empty();
    EXPECT_EQ(dialogo->Aceptado, guardado);
    if (!guardado) UnaCaja(GetParam().caja, GetParam().nombre == "91" ? host::Icono::Exclamacion : host::Icono::Informacion);
    const Textos claves{"NVCA102b=5", "NVCA100=N", "NVCA101=" + Trim(GetParam().rfc)};
    EXPECT_EQ(ajustes->escrituras, guardado ? claves : Textos{});
    EXPECT_EQ(db.Contar("Domicilio WHERE Sys_PK=5 AND CodPos=' 1 '"), guardado ? 1 : 0);
}

const std::string kRFC = "RFC incorrecto. Mínimo 12 caracteres y máximo 13.";
INSTANTIATE_TEST_SUITE_P(
    , GuardarEmisor,
    ::testing::Values(Emisor{" ", "EKU9003173C9", "Falta el nombre del emisor"}, Emisor{"N", "  ", "Falta el RFC del emisor"},
                      Emisor{"N", "EKU9003173C", kRFC}, Emisor{"N", "XEKU9003173C99", kRFC}, Emisor{"N", " EKU9003173C9 ", ""},
                      Emisor{"N", "XEKU9003173C9", ""},
                      Emisor{"91", "XEKU9003173C9", "Error 91 (Object variable or With block variable not set) in "
                                                     "procedure save of Formulario dlgEmisor"}));

}  // namespace
}  // namespace celdora
