// The CBB range list and the CBB issuer on the demo company (schema/README.md):
// ranges 1 (approval 9876, folios 1 to 500, block 5 Factura C) and 2 (4321,
// 1 to 100, block 9 Nota de Cargo H); fiscal address 1.

#include <gtest/gtest.h>

#include <algorithm>

#include "cbb/dlgEmisor.h"
#include "cbb/dlgRangoFoliosCBB.h"
#include "core/Dialogos.h"
#include "tests/support/AjustesGrabados.h"
#include "tests/support/FachadaDemo.h"
#include "value/Text.h"

namespace celdora {
namespace {

using host::Icono;
using testing::Textos;

const std::string kCierre = "Favor de reiniciar la conexión del sistema después de realizar algún cambio.";
const std::string kSeleccione = "Seleccione un elemento de la lista.";

class CBB : public testing::FachadaDemo {
protected:
    std::shared_ptr<testing::GlobalVarGrabado> ajustes = std::make_shared<testing::GlobalVarGrabado>();
    void SetUp() override {
        FachadaDemo::SetUp();
        acc.GlobalVar = ajustes;
        for (auto [clave, valor] : {std::pair{"NVCA100", "EKU SA"}, {"NVCA101", "EKU9003173C9"}, {"NVCA102b", "1"}})
            ajustes->Poner(clave, valor);
    }
    // The list shown while the script runs, one "text|sub-items|key|tag" per item.
    void Lista(std::function<void(dlgRangoFoliosCBB&)> guion) {
        platform.ui.AlMostrar("dlgRangoFoliosCBB", [guion](forms::Dialogo& d) {
            guion(dynamic_cast<dlgRangoFoliosCBB&>(d));
            if (d.Visible()) dynamic_cast<dlgRangoFoliosCBB&>(d).btnCancel.Pulsar();
        });
        acc.RangoFoliosCBB();
    }
    static Textos Items(const forms::ListView& lista) {
        Textos items;
        for (int i = 0; i < lista.Count(); ++i) {
            const auto& item = lista.Item(i);
            items.push_back(item.text + "|" + lista.SubItem(i, 1) + "|" + lista.SubItem(i, 2) + "|" +
                            lista.SubItem(i, 3) + "|" + item.key + "|" + item.tag);
        }
        return items;
    }
};

// A range of a credit note block, one of another kind of document, and one
// whose block is gone; the issuer's button only for a company on CBB.
TEST_F(CBB, TheListShowsRangesWithALiveBlockByKindAndClosingAlwaysReminds) {
    db.Ejecutar("INSERT INTO ut_FoliosCBB (uf_FolioInicial,uf_FolioFinal,uf_BlockDoc,uf_NumAprobacion) VALUES "
                "(1,9,2,11),(1,9,8,12),(1,9,99,13)");
    for (const char* tipo : {"2", "3"}) {
        ajustes->Poner("NVCA300xa", tipo);
        Lista([&](dlgRangoFoliosCBB& d) {
            EXPECT_EQ(d.btnEmisor.Visible(), std::string(tipo) == "3");
            EXPECT_EQ(Items(d.lvwFoliosCBB),
                      (Textos{"9876|1|500|Factura - C|pk1|1", "4321|1|100|Nota de Cargo - H|pk2|2",
                              "11|1|9|Nota de Crédito - B|pk3|3", "12|1|9||pk4|4"}));
        });
    }
    EXPECT_EQ(db.Contar("ut_FoliosCBB"), 5);
    EXPECT_EQ(platform.ui.Registro(), (Textos{"dialogo: dlgRangoFoliosCBB", "caja: " + kCierre,
                                              "dialogo: dlgRangoFoliosCBB", "caja: " + kCierre}));
    platform.ui.ExpectCaja(1, kCierre, Icono::Informacion);
}

// Edit and delete need a selection; a cancelled editor leaves the list
// unread, a delete answered Yes reads it again; the other two buttons open
// their dialogs.
TEST_F(CBB, TheButtonsWorkOnTheSelectedRangeAndRefreshOnlyWhenTheCommandSucceeds) {
    const std::string lista = "SELECT ut_FoliosCBB.Sys_PK, ut_FoliosCBB.uf_FolioInicial AS FolioInicial, "
                              "ut_FoliosCBB.uf_FolioFinal AS FolioFinal, BlockDocumentos.Documento AS Doc, "
                              "BlockDocumentos.Serie,ut_FoliosCBB.uf_NumAprobacion FROM ut_FoliosCBB INNER JOIN "
                              "BlockDocumentos ON ut_FoliosCBB.uf_BlockDoc=BlockDocumentos.Sys_PK";
    platform.ui.AlMostrar("dlgConfigFoliosCBB", [](forms::Dialogo& d) { d.Hide(); });
    platform.ui.AlMostrar("dlgEmisor", [](forms::Dialogo& d) { d.Hide(); });
    platform.ui.AlMostrar("dlgImpresionCBB", [](forms::Dialogo& d) { d.Hide(); });
    ajustes->Poner("NVCA300xa", "3");
    Lista([&](dlgRangoFoliosCBB& d) {
        d.btnEditCer.Pulsar();
        d.btnDelCer.Pulsar();
        d.lvwFoliosCBB.SelectedItem(1);
        d.btnEditCer.Pulsar();
        EXPECT_EQ(std::count(db.sentencias->begin(), db.sentencias->end(), lista), 1);
        platform.ui.Responder(host::Respuesta::Si);
        d.btnDelCer.Pulsar();
        EXPECT_EQ(db.sentencias->back(), lista);
        EXPECT_EQ(Items(d.lvwFoliosCBB), Textos{"9876|1|500|Factura - C|pk1|1"});
        d.btnEmisor.Pulsar();
        d.btnImpresion.Pulsar();
    });
    EXPECT_EQ(Textos(platform.ui.Registro().begin() + 1, platform.ui.Registro().end() - 1),
              (Textos{"caja: " + kSeleccione, "caja: " + kSeleccione, "dialogo: dlgConfigFoliosCBB",
                      "caja: " + platform.ui.Cajas().at(2).texto, "dialogo: dlgEmisor", "dialogo: dlgImpresionCBB"}));
    EXPECT_EQ(db.Valor("SELECT Sys_PK FROM ut_FoliosCBB WHERE Sys_PK=2").IsNull(), true);
    dlgRangoFoliosCBB sinFachada;
    sinFachada.lista.cargarLista();
    platform.ui.ExpectCaja(4, "Error: (91) Object variable or With block variable not set", Icono::Exclamacion);
}

// Name, RFC (blanks at the ends do not count), and the box; the postal code
// goes in as typed, the address is not checked.
struct Emisor { std::string nombre, rfc, caja; };
class GuardarEmisor : public CBB, public ::testing::WithParamInterface<Emisor> {};

TEST_P(GuardarEmisor, OnlyTheRfcsLengthIsCheckedAndTheAddressIsStoredAsItStands) {
    ajustes->valores_.erase("NVCA102B");
    platform.ui.AlMostrar("dlgEmisor", [](forms::Dialogo& d) {
        auto& e = dynamic_cast<dlgEmisor&>(d);
        EXPECT_EQ(e.emisor.eDir.address() + e.emisor.eDir.titulo() + e.emisor.txtNombreEmisor.Text(), "EKU SA");
        e.emisor.txtNombreEmisor.Text(GetParam().nombre);
        e.emisor.txtRFCEmisor.Text(GetParam().rfc);
        e.emisor.eDir.address("Calle");
        e.emisor.eDir.codep(" 1 ");
        e.btnOK.Pulsar();
        if (e.Visible()) e.btnCancel.Pulsar();
    });
    auto dialogo = dialogos::Crear("dlgEmisor", acc);
    dialogo->ShowModal();
    const bool guardado = GetParam().caja.empty();
    EXPECT_EQ(dialogo->Aceptado, guardado);
    if (!guardado) UnaCaja(GetParam().caja, Icono::Informacion);
    const Textos claves{"NVCA102b=5", "NVCA100=N", "NVCA101=" + Trim(GetParam().rfc)};
    EXPECT_EQ(ajustes->escrituras, guardado ? claves : Textos{});
    EXPECT_EQ(db.Contar("Domicilio WHERE Direccion='Calle' AND CodPos=' 1 '"), guardado ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(
    , GuardarEmisor,
    ::testing::Values(Emisor{" ", "EKU9003173C9", "Falta el nombre del emisor"}, Emisor{"N", "  ", "Falta el RFC del emisor"},
                      Emisor{"N", "EKU9003173C", "RFC incorrecto. Mínimo 12 caracteres y máximo 13."},
                      Emisor{"N", "XEKU9003173C99", "RFC incorrecto. Mínimo 12 caracteres y máximo 13."},
                      Emisor{"N", " EKU9003173C9 ", ""}, Emisor{"N", "XEKU9003173C9", ""}));

// Without the address component the load says so and the save's trap ends it.
TEST_F(CBB, AFaultInTheSaveIsToldWithTheDialogsProcedureAndWritesNothing) {
    platform.Quitar(host::progid::objDomicilio);
    platform.ui.AlMostrar("dlgEmisor", [](forms::Dialogo& d) {
        dynamic_cast<dlgEmisor&>(d).btnOK.Pulsar();
        dynamic_cast<dlgEmisor&>(d).btnCancel.Pulsar();
    });
    dialogos::Crear("dlgEmisor", acc)->ShowModal();
    platform.ui.ExpectCaja(0, "Error al cargar domicilio fiscal de emisor.", Icono::Exclamacion);
    platform.ui.ExpectCaja(1, "Error 91 (Object variable or With block variable not set) in procedure save of "
                              "Formulario dlgEmisor", Icono::Exclamacion);
    EXPECT_TRUE(ajustes->escrituras.empty());
}

}  // namespace
}  // namespace celdora
