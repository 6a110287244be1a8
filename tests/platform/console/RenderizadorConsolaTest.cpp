#include "platform/console/RenderizadorConsola.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "platform/console/ConsolaUi.h"
#include "platform/desktop/PlataformaEscritorio.h"
#include "tests/support/FixedClock.h"
#include "value/Text.h"

namespace celdora::platform {
namespace {

using host::Botones;
using host::Icono;
using host::Respuesta;
namespace f = forms;

host::UiServices& Ui() { return host::CurrentPlatform().Ui(); }

// A customer editor: a field that refuses digits, a password, a list-only
// combo, a check box that enables a field, options in a frame, a number and
// a date, a hidden field, and OK / Cancel buttons.
class DlgCliente : public f::Dialogo {
public:
    DlgCliente() : Dialogo("dlgCliente", "Datos del cliente") {
        txtNombre.KeyPress = [](int& tecla) {
            if (tecla >= '0' && tecla <= '9') tecla = 0;
        };
        txtPWD.PasswordChar("*");
        cmbFP.AddItem("PAGO EN UNA SOLA EXHIBICIÓN");
        cmbFP.AddItem("CRÉDITO");
        cmbFP.ListIndex(0);
        cmbFP.Click = [this] { ++clicsFormaPago; };
        txtSucursal.Enabled(false);
        chkTimbrar.Click = [this] { txtSucursal.Enabled(chkTimbrar.Value() == 1); };
        optCorreo.Colocar("fraEnvio");
        optPapel.Colocar("fraEnvio");
        eNumLimite.Decimals(2);
        eNumLimite.Value(1500);
        eDtAlta.Value(DateSerial(2026, 11, 22));
        txtClave.Visible(false);
        btnOK.Default(true);
        btnOK.Click = [this] { Guardar(); };
        btnCancelar.Cancel(true);
        btnCancelar.Click = [this] { Hide(); };
    }

    f::Label& lblAviso = Agregar<f::Label>("lblAviso", "Capture los datos del cliente.");
    f::TextBox& txtNombre = Agregar<f::TextBox>("txtNombre", "Nombre:");
    f::TextBox& txtPWD = Agregar<f::TextBox>("txtPWD", "Contraseña", "abc");
    f::ComboBox& cmbFP = Agregar<f::ComboBox>("cmbFP", f::ComboBox::Estilo::SoloLista, "Forma de pago");
    f::CheckBox& chkTimbrar = Agregar<f::CheckBox>("chkTimbrar", "&Timbrar");
    f::TextBox& txtSucursal = Agregar<f::TextBox>("txtSucursal", "Sucursal");
    f::Frame& fraEnvio = Agregar<f::Frame>("fraEnvio", "Envío");
    f::OptionButton& optCorreo = Agregar<f::OptionButton>("optCorreo", "Por correo", true);
    f::OptionButton& optPapel = Agregar<f::OptionButton>("optPapel", "En papel");
    f::NumberField& eNumLimite = Agregar<f::NumberField>("eNumLimite", "Límite de crédito");
    f::DateField& eDtAlta = Agregar<f::DateField>("eDtAlta", "Alta");
    f::TextBox& txtClave = Agregar<f::TextBox>("txtClave", "Clave");
    f::CommandButton& btnOK = Agregar<f::CommandButton>("btnOK", "&Aceptar");
    f::CommandButton& btnCancelar = Agregar<f::CommandButton>("btnCancelar", "&Cancelar");

    int clicsFormaPago = 0;
    int consultasDeCierre = 0;
    bool dejarCerrar = true;

protected:
    bool Form_QueryUnload() override {
        ++consultasDeCierre;
        return dejarCerrar;
    }

private:
    void Guardar() {
        if (Trim(txtNombre.Text()).empty()) {
            Ui().MsgBox("Falta el nombre del cliente.", Botones::Aceptar, Icono::Exclamacion, "");
            txtNombre.SetFocus();
            return;
        }
        if (Ui().MsgBox("¿Guardar a " + txtNombre.Text() + "?", Botones::SiNo, Icono::Pregunta, "") == Respuesta::No) {
            return;
        }
        Aceptado = true;
        Hide();
    }
};

// Tabs, a list view with check boxes, a grid with amounts, an address.
class DlgFolios : public f::Dialogo {
public:
    DlgFolios() : Dialogo("dlgFolios", "Folios aprobados") {
        txtSerie.Colocar("tabs", 0);
        dom.Colocar("tabs", 0);
        dom.conectar({{3, "Puebla", 1}, {4, "Toluca", 1}});
        dom.Separada("Reforma", "10", "B");
        dom.ciudad(3);
        lvwRangos.Colocar("tabs", 1);
        lvwRangos.Checkboxes(true);
        lvwRangos.AgregarColumna("Serie");
        lvwRangos.AgregarColumna("Desde");
        lvwRangos.AgregarColumna("Hasta");
        Fila("A", "1", "100");
        Fila("B", "101", "250");
        lvwRangos.Checked(0, true);
        lvwRangos.SelectedItem(0);
        lvwRangos.ItemCheck = [this](int i) { registro += "check " + std::to_string(i) + ";"; };
        lvwRangos.ItemClick = [this](int i) { registro += "click " + std::to_string(i) + ";"; };
        lvwRangos.DblClick = [this](int i) { registro += "doble " + std::to_string(i) + ";"; };
        grdTotales.Colocar("tabs", 1);
        grdTotales.Valor(grdTotales.Append(), "serie", "A");
        grdTotales.Valor(0, "importe", 1160.5);
        grdTotales.Valor(grdTotales.Append(), "serie", "B");
        grdTotales.Valor(1, "importe", 200);
        pb.Value(50);
        tabs.Click = [this] { registro += "pagina " + std::to_string(tabs.SelectedItem()) + ";"; };
    }

    f::TabControl& tabs = Agregar<f::TabControl>("tabs", std::vector<std::string>{"&General", "Rangos"});
    f::TextBox& txtSerie = Agregar<f::TextBox>("txtSerie", "Serie", "A");
    f::AddressControl& dom = Agregar<f::AddressControl>("dom");
    f::ListView& lvwRangos = Agregar<f::ListView>("lvwRangos", "Rangos aprobados");
    f::Grid& grdTotales = Agregar<f::Grid>(
        "grdTotales", std::vector<f::ColumnaGrid>{{"serie", "Serie", false}, {"importe", "Importe", true}});
    f::ProgressBar& pb = Agregar<f::ProgressBar>("pb");
    f::CommandButton& btnCerrar = Agregar<f::CommandButton>("btnCerrar", "Cerrar");

    std::string registro;

private:
    void Fila(const std::string& serie, const std::string& desde, const std::string& hasta) {
        const int i = lvwRangos.Add("k" + serie, serie);
        lvwRangos.SubItem(i, 1, desde);
        lvwRangos.SubItem(i, 2, hasta);
    }
};

// A list of customers that opens the editor, and a button that hides the
// dialog and shows it modally again once.
class DlgClientes : public f::Dialogo {
public:
    DlgClientes() : Dialogo("dlgClientes", "Clientes") {
        lvwClientes.ItemClick = [this](int i) { lblElegido.Caption(lvwClientes.Item(i).text); };
        btnNuevo.Click = [this] {
            DlgCliente editor;
            editor.ShowModal();
            if (editor.Aceptado) lvwClientes.Add("", editor.txtNombre.Text());
        };
        btnOtraVez.Click = [this] {
            Hide();
            if (++vueltas < 2) ShowModal();
        };
    }

    f::ListView& lvwClientes = Agregar<f::ListView>("lvwClientes", "Clientes");
    f::Label& lblElegido = Agregar<f::Label>("lblElegido");
    f::CommandButton& btnNuevo = Agregar<f::CommandButton>("btnNuevo", "&Nuevo");
    f::CommandButton& btnOtraVez = Agregar<f::CommandButton>("btnOtraVez", "Otra vez");
    int vueltas = 0;
};

class FrmPB : public f::Dialogo {
public:
    FrmPB() : Dialogo("frmPB", "Progreso") {}
    f::Label& lbltitle = Agregar<f::Label>("lbltitle", "Procesando...");
    f::Label& lblcmd = Agregar<f::Label>("lblcmd", "Ejecutando comando...");
    f::ProgressBar& pb = Agregar<f::ProgressBar>("pb");
};

// A terminal whose keyboard is a script, installed as the platform's user
// interface.
struct Terminal {
    explicit Terminal(const std::string& teclado) : in(teclado), ui(in, out) {}
    std::string Resto() { return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()}; }
    // Whether the output has this line, the prompts before it aside.
    ::testing::AssertionResult Muestra(const std::string& linea) const {
        std::istringstream lineas(out.str());
        for (std::string leida; std::getline(lineas, leida);) {
            while (leida.rfind("> ", 0) == 0) leida.erase(0, 2);
            if (leida == linea) return ::testing::AssertionSuccess();
        }
        return ::testing::AssertionFailure() << "no line \"" << linea << "\" in:\n" << out.str();
    }

    std::istringstream in;
    std::ostringstream out;
    ConsolaUi ui;
    testing::FixedClock reloj{DateSerial(2026, 11, 22)};
    PlataformaEscritorio plataforma{ui, reloj};
    PlataformaInstalada instalada{plataforma};
};

TEST(RenderizadorConsolaDibujo, PrintsTheCaptionAndEachControlInOrderUnderItsFrame) {
    Terminal t("");
    DlgCliente dlg;
    dlg.ShowModal();

    const std::string esperado =
        "== Datos del cliente ==\n"
        "  lblAviso (etiqueta): Capture los datos del cliente.\n"
        "  txtNombre (texto) Nombre: \"\"\n"
        "  txtPWD (texto) Contraseña: ***\n"
        "  cmbFP (combo) Forma de pago: PAGO EN UNA SOLA EXHIBICIÓN\n"
        "      > 1  PAGO EN UNA SOLA EXHIBICIÓN\n"
        "        2  CRÉDITO\n"
        "  chkTimbrar (casilla): [ ] Timbrar\n"
        "  txtSucursal (texto) Sucursal: \"\" (inhabilitado)\n"
        "  fraEnvio (marco): Envío\n"
        "    optCorreo (opción): (o) Por correo\n"
        "    optPapel (opción): ( ) En papel\n"
        "  eNumLimite (número) Límite de crédito: 1500.00\n"
        "  eDtAlta (fecha) Alta: 22/11/2026\n"
        "  btnOK (botón): [Aceptar] (Intro)\n"
        "  btnCancelar (botón): [Cancelar] (Esc)\n"
        "Escriba ayuda para ver las órdenes.\n";
    EXPECT_EQ(t.out.str().substr(0, esperado.size()), esperado) << t.out.str();
    EXPECT_EQ(t.out.str().find("txtClave"), std::string::npos) << "a hidden control is not shown";
}

TEST(RenderizadorConsolaDibujo, ShowsTheSelectedPageOnlyAndTablesWithTheirRows) {
    Terminal t("marcar lvwRangos 1\npagina tabs rangos\n");
    DlgFolios dlg;
    dlg.ShowModal();

    EXPECT_TRUE(t.Muestra("  tabs (pestañas): >1 General | 2 Rangos"));
    EXPECT_TRUE(t.Muestra("    txtSerie (texto) Serie: \"A\""));
    EXPECT_TRUE(t.Muestra("    dom (dirección): Reforma 10 int. B, Puebla"));
    EXPECT_TRUE(t.Muestra("        calle: Reforma  exterior: 10  interior: B"));
    EXPECT_TRUE(t.Muestra("        ciudad: Puebla  país: 1"));
    EXPECT_TRUE(t.Muestra("        > 1  Puebla"));
    EXPECT_TRUE(t.Muestra("  pb (barra): [=====     ] 50% (50 en 0..100)"));
    EXPECT_TRUE(t.Muestra("Error: «lvwRangos» no se ve ahora (está oculto o en otra página)."))
        << "a control on a page not shown can't be reached";

    // Changing the page draws the dialog again, with the other page.
    EXPECT_EQ(dlg.registro, "pagina 1;");
    EXPECT_TRUE(t.Muestra("  tabs (pestañas): 1 General | >2 Rangos"));
    EXPECT_TRUE(t.Muestra("    lvwRangos (vista) Rangos aprobados: 2 filas"));
    EXPECT_TRUE(t.Muestra("          #       Serie  Desde  Hasta"));
    EXPECT_TRUE(t.Muestra("        > 1  [x]  A      1      100"));
    EXPECT_TRUE(t.Muestra("          2  [ ]  B      101    250"));
    EXPECT_TRUE(t.Muestra("    grdTotales (tabla): 2 filas"));
    EXPECT_TRUE(t.Muestra("          #  Serie   Importe"));
    EXPECT_TRUE(t.Muestra("          1  A      1,160.50"));
    EXPECT_TRUE(t.Muestra("          2  B        200.00"));
}

TEST(RenderizadorConsolaOrdenes, TypingGoesThroughKeyPressAndPrintsTheFieldAgain) {
    Terminal t(
        "escribir TXTNOMBRE An4a  Ruiz\n"
        "escribir eNumLimite 2,500.5\n"
        "escribir eDtAlta 2026-12-01\n"
        "escribir txtNombre\n");
    DlgCliente dlg;
    dlg.ShowModal();

    EXPECT_TRUE(t.Muestra("  txtNombre (texto) Nombre: \"Ana  Ruiz\"")) << "the digit was discarded by KeyPress";
    EXPECT_TRUE(t.Muestra("  eNumLimite (número) Límite de crédito: 2500.50"));
    EXPECT_TRUE(t.Muestra("  eDtAlta (fecha) Alta: 01/12/2026"));
    EXPECT_EQ(dlg.txtNombre.Text(), "") << "typing nothing empties the field";
    EXPECT_EQ(dlg.eNumLimite.Value(), 2500.5);

    Terminal d("escribir dom calle Juárez\nescribir dom colonia Centro\nelegir dom toluca\nescribir dom piso 3\n");
    DlgFolios folios;
    folios.ShowModal();
    EXPECT_EQ(folios.dom.address(), "||Juárez|10|B") << "the numbers stay";
    EXPECT_EQ(folios.dom.colony(), "Centro");
    EXPECT_EQ(folios.dom.ciudad(), 4);
    EXPECT_TRUE(d.Muestra("  dom (dirección): Juárez 10 int. B, Toluca"));
    EXPECT_TRUE(d.Muestra("Error: en «dom» se escribe: calle, exterior, interior, direccion, colonia, cp, telefono "
                          "o notas y el texto."));
}

TEST(RenderizadorConsolaOrdenes, ChoosingAndCheckingActThroughTheHandlers) {
    Terminal t(
        "elegir cmbFP crédito\n"
        "pulsar optPapel\n"
        "marcar chkTimbrar si\n"
        "escribir txtSucursal Centro\n");
    DlgCliente dlg;
    dlg.ShowModal();

    EXPECT_EQ(dlg.cmbFP.ListIndex(), 1);
    EXPECT_EQ(dlg.clicsFormaPago, 1);
    EXPECT_TRUE(t.Muestra("  cmbFP (combo) Forma de pago: CRÉDITO"));
    EXPECT_TRUE(t.Muestra("      > 2  CRÉDITO"));
    EXPECT_TRUE(t.Muestra("  optCorreo (opción): ( ) Por correo")) << "the option turned off is printed too";
    EXPECT_TRUE(t.Muestra("  optPapel (opción): (o) En papel"));
    EXPECT_TRUE(t.Muestra("  txtSucursal (texto) Sucursal: \"\"")) << "enabled by the check box's Click";
    EXPECT_EQ(dlg.txtSucursal.Text(), "Centro");

    Terminal v("marcar lvwRangos 2\nmarcar lvwRangos b no\ndoble lvwRangos 2\n");
    DlgFolios folios;
    folios.tabs.SelectedItem(1);
    folios.registro.clear();
    folios.ShowModal();
    EXPECT_EQ(folios.registro, "check 1;check 1;click 1;doble 1;");
    EXPECT_FALSE(folios.lvwRangos.Item(1).checked);
    EXPECT_EQ(folios.lvwRangos.SelectedItem(), 1);
}

TEST(RenderizadorConsolaOrdenes, RefusesWhatAPersonCouldNotDoAndKeepsReading) {
    Terminal t(
        "bailar\n"
        "pulsar btnNada\n"
        "escribir txtSucursal Centro\n"
        "escribir txtClave 1\n"
        "escribir cmbFP hola\n"
        "elegir cmbFP 3\n"
        "pulsar lblAviso\n"
        "escribir eNumLimite doce\n"
        "# a comment\n"
        "\n"
        "ayuda\n"
        "esc\n");
    DlgCliente dlg;
    dlg.ShowModal();

    EXPECT_TRUE(t.Muestra("Error: no conozco la orden «bailar»; escriba ayuda para ver las órdenes."));
    EXPECT_TRUE(t.Muestra("Error: no hay ningún control «btnNada» en «Datos del cliente»."));
    EXPECT_TRUE(t.Muestra("Error: «txtSucursal» está inhabilitado."));
    EXPECT_TRUE(t.Muestra("Error: «txtClave» no se ve ahora (está oculto o en otra página)."));
    EXPECT_TRUE(t.Muestra("Error: «cmbFP» (combo) no admite escribir; elija de su lista: elegir cmbFP N."));
    EXPECT_TRUE(t.Muestra("Error: «cmbFP» no tiene el elemento «3» (elija de 1 a 2)."));
    EXPECT_TRUE(t.Muestra("Error: «lblAviso» (etiqueta) no se pulsa."));
    EXPECT_TRUE(t.Muestra("Error: «doce» no es un número."));
    EXPECT_TRUE(t.Muestra("  escribir CONTROL TEXTO      teclea el texto en un campo de texto, número o fecha "
                          "(dd/mm/aaaa) o en un combo editable;"));
    EXPECT_TRUE(t.Muestra("                              (también: escribe, teclear)"));
    EXPECT_EQ(dlg.txtSucursal.Text(), "");
    EXPECT_EQ(dlg.cmbFP.ListIndex(), 0);
    EXPECT_EQ(dlg.eNumLimite.Value(), 1500);
    EXPECT_FALSE(dlg.Visible()) << "esc pressed the cancel button, which hides";
    EXPECT_TRUE(t.Muestra("Se cerró «Datos del cliente»."));
}

TEST(RenderizadorConsolaOrdenes, ABoxRaisedByAHandlerIsAnsweredFromTheSameInput) {
    Terminal t(
        "pulsar btnOK\n"
        "escribir txtNombre Ana\n"
        "intro\n"
        "n\n"
        "pulsar btnok\n"
        "s\n"
        "ver\n");
    DlgCliente dlg;
    dlg.ShowModal();

    const std::string out = t.out.str();
    EXPECT_NE(out.find("[Exclamación] Falta el nombre del cliente.\n"), std::string::npos) << out;
    EXPECT_NE(out.find("[Pregunta] ¿Guardar a Ana?\n(s/n) "), std::string::npos) << out;
    EXPECT_TRUE(dlg.Aceptado);
    EXPECT_FALSE(dlg.Visible()) << "the handler that hides ends the loop";
    EXPECT_EQ(t.Resto(), "ver\n") << "nothing is read after the dialog went away";
}

TEST(RenderizadorConsolaOrdenes, EndOfInputClosesTheWindowAsItsXWould) {
    Terminal t("escribir txtNombre Ana\n");
    DlgCliente dlg;
    dlg.ShowModal();
    EXPECT_TRUE(t.Muestra("Fin de la entrada: se cierra la ventana."));
    EXPECT_EQ(dlg.consultasDeCierre, 1);
    EXPECT_FALSE(dlg.Cargado());
    EXPECT_FALSE(dlg.Aceptado);

    Terminal u("cerrar\n");
    DlgCliente terco;
    terco.dejarCerrar = false;
    terco.ShowModal();
    EXPECT_TRUE(u.Muestra("«Datos del cliente» no se cerró."));
    EXPECT_TRUE(u.Muestra("«Datos del cliente» no se dejó cerrar; se oculta."));
    EXPECT_EQ(terco.consultasDeCierre, 2) << "once for cerrar, once at the end of the input";
    EXPECT_FALSE(terco.Visible());
    EXPECT_TRUE(terco.Cargado());
}

TEST(RenderizadorConsolaOrdenes, EachNestedModalShowingRunsItsOwnLoop) {
    Terminal t(
        "pulsar btnNuevo\n"
        "escribir txtNombre Ana\n"
        "intro\n"
        "s\n"
        "pulsar btnOtraVez\n"
        "elegir lvwClientes ana\n"
        "pulsar btnOtraVez\n"
        "pulsar btnNuevo\n");
    DlgClientes dlg;
    dlg.ShowModal();

    ASSERT_EQ(dlg.lvwClientes.Count(), 1);
    EXPECT_EQ(dlg.lvwClientes.Item(0).text, "Ana");
    EXPECT_EQ(dlg.lblElegido.Caption(), "Ana") << "the dialog shown again took the order";
    EXPECT_EQ(dlg.vueltas, 2);
    EXPECT_EQ(t.Resto(), "pulsar btnNuevo\n");

    // The list is drawn first, then the editor, then the list again with
    // the new row, then once more when it is shown again.
    const std::string out = t.out.str();
    const auto editor = out.find("== Datos del cliente ==");
    const auto cerrado = out.find("Se cerró «Datos del cliente».");
    const auto vuelta = out.find("== Clientes ==", cerrado);
    ASSERT_NE(vuelta, std::string::npos) << out;
    EXPECT_LT(out.find("== Clientes =="), editor);
    EXPECT_NE(out.find("\n        1  Ana\n", vuelta), std::string::npos) << out;
    EXPECT_NE(out.find("== Clientes ==", vuelta + 1), std::string::npos) << out;
    EXPECT_TRUE(t.Muestra("  lblElegido (etiqueta): Ana"));
    const auto cierre = out.find("Se cerró «Clientes».");
    EXPECT_EQ(out.find("Se cerró «Clientes».", cierre + 1), std::string::npos) << "said once: " << out;
}

TEST(RenderizadorConsolaVentana, PrintsProgressOnEachTurnOfTheLoopUntilUnloaded) {
    Terminal t("");
    FrmPB frm;
    frm.Show();
    frm.lblcmd.Caption("Leyendo ventas");
    frm.pb.Value(50);
    t.ui.DoEvents();
    t.ui.DoEvents();
    frm.pb.Value(100);
    t.ui.MsgBox("Listo.", Botones::Aceptar, Icono::Informacion, "");
    frm.Unload();
    frm.pb.Value(0);
    t.ui.DoEvents();

    EXPECT_EQ(t.out.str(),
              "== Progreso ==\n"
              "  lbltitle (etiqueta): Procesando...\n"
              "  lblcmd (etiqueta): Ejecutando comando...\n"
              "  pb (barra): [          ] 0% (0 en 0..100)\n"
              "lblcmd: Leyendo ventas | pb: [=====     ] 50% (50 en 0..100)\n"
              "pb: [==========] 100% (100 en 0..100)\n"
              "[Información] Listo.\n"
              "Se cerró «Progreso».\n");
}

TEST(RenderizadorConsolaVentana, ADialogDestroyedWhileShownIsNoLongerWatched) {
    Terminal t("");
    {
        auto frm = std::make_unique<FrmPB>();
        frm->Show();
        frm->lblcmd.Caption("Escribiendo");
    }
    t.ui.DoEvents();
    EXPECT_TRUE(t.Muestra("lblcmd: Escribiendo"));
    EXPECT_TRUE(t.Muestra("Se cerró «Progreso»."));
}

}  // namespace
}  // namespace celdora::platform
