// The platform's event rules on the control models: a value set from code
// raises the handler a person's action would, once per real change; key
// handlers may change or discard the key; what a person cannot reach refuses.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "tests/support/FallaDe.h"

namespace celdora::forms {
namespace {

using testing::FallaDe;
using Eventos = std::vector<std::string>;

// A dialog with one control of each kind that raises events, and a log of
// the events in the order they came.
class EventosDeControles : public ::testing::Test, public Dialogo {
protected:
    EventosDeControles() : Dialogo("dlgMuestra", "Muestra") {
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

    Eventos eventos;
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

TEST_F(EventosDeControles, ValuesSetFromCodeRaiseTheirHandlersOncePerChange) {
    for (const char* texto : {"uno", "uno"}) txt.Text(texto);
    for (int valor : {1, 1, 0}) chk.Value(valor);
    for (double valor : {2.5, 2.5}) num.Value(valor);
    for (const char* item : {"a", "b"}) lst.AddItem(item);
    for (int vez = 0; vez < 2; ++vez) lst.Selected(1, true);
    tab.SelectedItem(1);
    tab.ClickPagina(1);
    EXPECT_EQ(eventos, (Eventos{"txt.Change uno", "chk.Click 1", "chk.Click 0", "num.Change", "lst.ItemCheck 1",
                                "tab.Click 1"}));
}

TEST_F(EventosDeControles, OptionButtonsOfAGroupExcludeEachOtherAndOnlyTheNewOneClicks) {
    // A button in another container is another group.
    optC.Colocar("fra");
    optB.Value(true);
    EXPECT_EQ((std::vector<bool>{optA.Value(), optB.Value(), optC.Value()}), (std::vector<bool>{false, true, true}));
    optB.Value(true);
    optA.Pulsar();
    EXPECT_EQ(eventos, (Eventos{"optB.Click", "optA.Click"}));
    EXPECT_FALSE(optB.Value());
}

TEST_F(EventosDeControles, ListIndexRaisesClickAndOnlyAnEditableComboTakesForeignText) {
    cmb.AddItem("Enero");
    cmb.AddItem("Febrero");
    cmb.ListIndex(1);
    EXPECT_EQ(cmb.Text(), "Febrero");
    cmb.Text("Enero");
    EXPECT_EQ(cmb.ListIndex(), 0);
    EXPECT_EQ(FallaDe([&] { cmb.Text("Marzo"); }).number, 383);
    EXPECT_EQ(FallaDe([&] { cmb.ListIndex(2); }).number, 380);
    cmb.Clear();
    EXPECT_EQ(cmb.ListIndex(), -1);
    EXPECT_EQ(cmb.Text(), "");
    cmbLibre.AddItem("PZA");
    cmbLibre.Text("PZA");
    EXPECT_EQ(cmbLibre.ListIndex(), 0);
    cmbLibre.Text("KG");
    EXPECT_EQ(cmbLibre.ListIndex(), -1);
    EXPECT_EQ(eventos,
              (Eventos{"cmb.Click Febrero", "cmb.Click Enero", "cmbLibre.Change PZA", "cmbLibre.Change KG"}));
}

TEST_F(EventosDeControles, ListViewRaisesItsEventsOnlyForAPersonsActions) {
    lvw.Checkboxes(true);
    lvw.AgregarColumna("Nombre");
    lvw.AgregarColumna("Mes");
    lvw.Add("k1", "uno");
    lvw.SubItem(lvw.Add("k2", "dos"), 2, "Octubre");
    EXPECT_EQ((Eventos{lvw.SubItem(1, 1), lvw.SubItem(1, 2)}), (Eventos{"", "Octubre"}));
    EXPECT_EQ(FallaDe([&] { lvw.Add("k1", "otra vez"); }).number, 35602);
    // From code: no event.
    lvw.Checked(0, true);
    lvw.SelectedItem(0);
    EXPECT_TRUE(eventos.empty());
    lvw.ClickItem(1);
    lvw.MarcarItem(0, false);
    EXPECT_EQ(lvw.SelectedItem(), 1);
    EXPECT_FALSE(lvw.Item(0).checked);
    EXPECT_EQ(eventos, (Eventos{"lvw.ItemClick 1", "lvw.ItemCheck 0"}));
}

TEST_F(EventosDeControles, TypedTextGoesThroughTheKeyHandlerAndTextFromCodeIsCutToMaxLength) {
    // Digits only, and lower case letters turned to capitals.
    txt.KeyPress = [](int& key) {
        if (key >= 'a' && key <= 'z') key -= 32;
        else if (key < '0' || key > '9') key = 0;
    };
    txt.MaxLength(4);
    ASSERT_TRUE(txt.Escribir("1-2b34"));
    EXPECT_EQ(txt.Text(), "12B3");
    // Counting characters, not bytes.
    txt.MaxLength(3);
    txt.Text("ÑAÑO");
    EXPECT_EQ(txt.Text(), "ÑAÑ");
}

TEST_F(EventosDeControles, WhatAPersonCannotReachRefusesTheirActions) {
    btn.Enabled(false);
    EXPECT_FALSE(btn.Pulsar());
    txt.Locked(true);
    EXPECT_FALSE(txt.Escribir("x"));
    // A control inside a disabled frame can't be reached either.
    chk.Colocar("fra");
    fra.Enabled(false);
    EXPECT_FALSE(chk.Pulsar());
    EXPECT_TRUE(eventos.empty());
    // Code still sets what a person can't.
    txt.Text("y");
    EXPECT_EQ(txt.Text(), "y");
}

TEST_F(EventosDeControles, DataControlsKeepTheirValuesAsTheSystemReadsThem) {
    // A grid has only the columns it was given.
    Grid grid(*this, "dxGrid", {{"id", "Id", true}});
    EXPECT_EQ(FallaDe([&] { (void)grid.Columna("total"); }).number, 9);

    // The progress bar refuses values outside its bounds.
    ProgressBar pb(*this, "pb");
    pb.Limites(0, 10);
    pb.Value(10);
    EXPECT_EQ(FallaDe([&] { pb.Value(11); }).number, 380);
    pb.Limites(0, 5);
    EXPECT_EQ(pb.Value(), 5);

    // The address control keeps street and numbers in one barred text.
    AddressControl dir(*this, "eDir");
    dir.Separada("Calle 60", "491", "A");
    EXPECT_EQ((Eventos{dir.address(), dir.Calle(), dir.NumeroInterior()}), (Eventos{"||Calle 60|491|A", "Calle 60", "A"}));
}

}  // namespace
}  // namespace celdora::forms
