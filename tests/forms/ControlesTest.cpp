// The platform's event rules on the control models: a value set from code
// raises the handler a person's action would, once per real change; key
// handlers may change or discard the key; what a person cannot reach refuses.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "tests/support/FallaDe.h"
#include "value/Convert.h"

namespace celdora::forms {
namespace {

using testing::FallaDe;

// A dialog with one control of each kind that raises events, and a log of
// the events in the order they came.
class Muestra : public Dialogo {
public:
    Muestra() : Dialogo("dlgMuestra", "Muestra") {
        txt.Change = [this] { eventos.push_back("txt.Change " + txt.Text()); };
        chk.Click = [this] { eventos.push_back("chk.Click " + std::to_string(chk.Value())); };
        optA.Click = [this] { eventos.push_back("optA.Click"); };
        optB.Click = [this] { eventos.push_back("optB.Click"); };
        cmb.Click = [this] { eventos.push_back("cmb.Click " + cmb.Text()); };
        cmbLibre.Change = [this] { eventos.push_back("cmbLibre.Change " + cmbLibre.Text()); };
        lst.ItemCheck = [this](int i) { eventos.push_back("lst.ItemCheck " + std::to_string(i)); };
        lvw.ItemClick = [this](int i) { eventos.push_back("lvw.ItemClick " + std::to_string(i)); };
        lvw.ItemCheck = [this](int i) { eventos.push_back("lvw.ItemCheck " + std::to_string(i)); };
        tab.Click = [this] { eventos.push_back("tab.Click " + std::to_string(tab.SelectedItem())); };
        btn.Click = [this] { eventos.push_back("btn.Click"); };
        num.Change = [this] { eventos.push_back("num.Change"); };
    }

    std::vector<std::string> eventos;

    TextBox& txt = Agregar<TextBox>("txt", "Texto:");
    CheckBox& chk = Agregar<CheckBox>("chk", "Casilla");
    OptionButton& optA = Agregar<OptionButton>("optA", "A", true);
    OptionButton& optB = Agregar<OptionButton>("optB", "B");
    Frame& fra = Agregar<Frame>("fra", "Otro grupo");
    OptionButton& optC = Agregar<OptionButton>("optC", "C", true);
    ComboBox& cmb = Agregar<ComboBox>("cmb", ComboBox::Estilo::SoloLista);
    ComboBox& cmbLibre = Agregar<ComboBox>("cmbLibre", ComboBox::Estilo::Editable);
    ListBox& lst = Agregar<ListBox>("lst", true);
    ListView& lvw = Agregar<ListView>("lvw");
    TabControl& tab = Agregar<TabControl>("tab", std::vector<std::string>{"Uno", "Dos"});
    NumberField& num = Agregar<NumberField>("num");
    CommandButton& btn = Agregar<CommandButton>("btn", "&Aceptar");
};

TEST(EventosDeControles, ValuesSetFromCodeRaiseTheirHandlersOncePerChange) {
    Muestra d;
    d.txt.Text("uno");
    d.txt.Text("uno");
    d.chk.Value(1);
    d.chk.Value(1);
    d.chk.Value(0);
    d.num.Value(2.5);
    d.num.Value(2.5);
    EXPECT_EQ(d.eventos, (std::vector<std::string>{"txt.Change uno", "chk.Click 1", "chk.Click 0", "num.Change"}));
}

TEST(EventosDeControles, OptionButtonsOfAGroupExcludeEachOtherAndOnlyTheNewOneClicks) {
    Muestra d;
    d.optC.Colocar("fra");
    d.optB.Value(true);
    EXPECT_FALSE(d.optA.Value());
    EXPECT_TRUE(d.optB.Value());
    // A button in another container is another group.
    EXPECT_TRUE(d.optC.Value());
    d.optB.Value(true);
    d.optA.Pulsar();
    EXPECT_EQ(d.eventos, (std::vector<std::string>{"optB.Click", "optA.Click"}));
    EXPECT_FALSE(d.optB.Value());
}

TEST(EventosDeControles, ListIndexRaisesClickAndListOnlyComboRefusesForeignText) {
    Muestra d;
    d.cmb.AddItem("Enero");
    d.cmb.AddItem("Febrero");
    d.cmb.ItemData(1, 2);
    d.cmb.ListIndex(1);
    EXPECT_EQ(d.cmb.Text(), "Febrero");
    d.cmb.Text("Enero");
    EXPECT_EQ(d.cmb.ListIndex(), 0);
    EXPECT_EQ(FallaDe([&] { d.cmb.Text("Marzo"); }).number, 383);
    EXPECT_EQ(FallaDe([&] { d.cmb.ListIndex(2); }).number, 380);
    d.cmb.Clear();
    EXPECT_EQ(d.cmb.ListIndex(), -1);
    EXPECT_EQ(d.cmb.Text(), "");
    EXPECT_EQ(d.eventos, (std::vector<std::string>{"cmb.Click Febrero", "cmb.Click Enero"}));
}

TEST(EventosDeControles, EditableComboTextRaisesChangeAndFindsItsItem) {
    Muestra d;
    d.cmbLibre.AddItem("PZA");
    d.cmbLibre.Text("PZA");
    EXPECT_EQ(d.cmbLibre.ListIndex(), 0);
    d.cmbLibre.Text("KG");
    EXPECT_EQ(d.cmbLibre.ListIndex(), -1);
    EXPECT_EQ(d.eventos, (std::vector<std::string>{"cmbLibre.Change PZA", "cmbLibre.Change KG"}));
}

TEST(EventosDeControles, ListViewRaisesItsEventsOnlyForAPersonsActions) {
    Muestra d;
    d.lvw.Checkboxes(true);
    d.lvw.AgregarColumna("Nombre");
    d.lvw.AgregarColumna("Mes");
    d.lvw.Add("k1", "uno");
    const int segundo = d.lvw.Add("k2", "dos");
    d.lvw.SubItem(segundo, 2, "Octubre");
    EXPECT_EQ(d.lvw.SubItem(segundo, 1), "");
    EXPECT_EQ(d.lvw.SubItem(segundo, 2), "Octubre");
    EXPECT_EQ(FallaDe([&] { d.lvw.Add("k1", "otra vez"); }).number, 35602);
    // From code: no event.
    d.lvw.Checked(0, true);
    d.lvw.SelectedItem(0);
    EXPECT_TRUE(d.eventos.empty());
    d.lvw.ClickItem(1);
    d.lvw.MarcarItem(0, false);
    EXPECT_EQ(d.lvw.SelectedItem(), 1);
    EXPECT_FALSE(d.lvw.Item(0).checked);
    EXPECT_EQ(d.eventos, (std::vector<std::string>{"lvw.ItemClick 1", "lvw.ItemCheck 0"}));
    d.lvw.Clear();
    EXPECT_EQ(d.lvw.SelectedItem(), -1);
}

TEST(EventosDeControles, ListBoxChecksAndTabPagesRaiseTheirEvents) {
    Muestra d;
    d.lst.AddItem("a");
    d.lst.AddItem("b");
    d.lst.Selected(1, true);
    d.lst.Selected(1, true);
    d.tab.SelectedItem(1);
    d.tab.ClickPagina(1);
    EXPECT_EQ(d.eventos, (std::vector<std::string>{"lst.ItemCheck 1", "tab.Click 1"}));
}

TEST(EventosDeControles, KeyHandlersChangeOrDiscardTypedCharacters) {
    Muestra d;
    // Digits only, and lower case letters turned to capitals.
    d.txt.KeyPress = [](int& key) {
        if (key >= 'a' && key <= 'z') key -= 32;
        else if (key < '0' || key > '9') key = 0;
    };
    d.txt.MaxLength(4);
    ASSERT_TRUE(d.txt.Escribir("1-2b34"));
    EXPECT_EQ(d.txt.Text(), "12B3");
}

TEST(EventosDeControles, TextFromCodeIsCutToMaxLengthCountingCharacters) {
    Muestra d;
    d.txt.MaxLength(3);
    d.txt.Text("ÑAÑO");
    EXPECT_EQ(d.txt.Text(), "ÑAÑ");
}

TEST(EventosDeControles, WhatAPersonCannotReachRefusesTheirActions) {
    Muestra d;
    d.btn.Enabled(false);
    EXPECT_FALSE(d.btn.Pulsar());
    d.txt.Locked(true);
    EXPECT_FALSE(d.txt.Escribir("x"));
    // A control inside a disabled frame can't be reached either.
    d.chk.Colocar("fra");
    d.fra.Enabled(false);
    EXPECT_FALSE(d.chk.Pulsar());
    EXPECT_TRUE(d.eventos.empty());
    // Code still sets what a person can't.
    d.txt.Text("y");
    EXPECT_EQ(d.txt.Text(), "y");
}

TEST(ControlesDeDatos, GridFindsColumnsWithoutRegardToCaseAndKeepsNumbersAsNumbers) {
    Muestra d;
    Grid grid(d, "dxGrid", {{"id", "Id", true}, {"IVATrasladado", "IVA", true}, {"serie", "Serie", false}});
    const int fila = grid.Append();
    grid.Valor(fila, "IVAtrasladado", Variant(std::string("160.00")));
    grid.Valor(fila, "serie", Variant(std::string("A")));
    grid.Valor(fila, "id", Variant(std::string("x")));
    EXPECT_DOUBLE_EQ(CDbl(grid.Valor(fila, "ivatrasladado")), 160.0);
    EXPECT_TRUE(grid.Valor(fila, "id").IsEmpty());
    EXPECT_EQ(FallaDe([&] { (void)grid.Columna("total"); }).number, 9);
    grid.Clear();
    EXPECT_EQ(grid.RowCount(), 0);
}

TEST(ControlesDeDatos, ProgressBarRefusesValuesOutsideItsBounds) {
    Muestra d;
    ProgressBar pb(d, "pb");
    pb.Limites(0, 10);
    pb.Value(10);
    EXPECT_EQ(FallaDe([&] { pb.Value(11); }).number, 380);
    pb.Limites(0, 5);
    EXPECT_EQ(pb.Value(), 5);
}

TEST(ControlesDeDatos, AddressControlKeepsStreetAndNumbersInOneBarredText) {
    Muestra d;
    AddressControl dir(d, "eDir");
    dir.conectar({{7, "Mérida", 1}});
    dir.Separada("Calle 60", "491", "A");
    EXPECT_EQ(dir.address(), "||Calle 60|491|A");
    EXPECT_EQ(dir.Calle(), "Calle 60");
    EXPECT_EQ(dir.NumeroInterior(), "A");
    dir.ciudad(7);
    EXPECT_EQ(dir.pais(), 1);
    dir.limpiar();
    EXPECT_EQ(dir.address(), "");
    EXPECT_LT(dir.ciudad(), 0);
    EXPECT_LT(dir.pais(), 1);
}

}  // namespace
}  // namespace celdora::forms
