#include "platform/console/RenderizadorConsola.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <regex>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "platform/console/ConsolaUi.h"
#include "platform/common/Catalogo.h"
#include "platform/desktop/PlataformaEscritorio.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/FixedClock.h"
#include "value/Date.h"

namespace celdora::platform {
namespace {

using host::Botones;
using host::Icono;
using host::Respuesta;
using ::testing::EndsWith;
using ::testing::IsSupersetOf;
using ::testing::StartsWith;
using Lineas = std::vector<std::string>;
// Orders and what the terminal prints after each one.
using Pasos = std::vector<std::pair<std::string, std::string>>;
namespace f = forms;

host::UiServices& Ui() { return host::CurrentPlatform().Ui(); }

// A customer editor: a field that refuses digits, a password, a list-only
// combo, a long one, a check box that enables a field, options in a frame, a number and
// a date, a hidden field, and OK / Cancel buttons.
class DlgCliente : public f::Dialogo {
public:
    DlgCliente() : Dialogo("dlgCliente", "Datos del cliente") {
        txtNombre.KeyPress = [](int& tecla) { tecla = tecla >= '0' && tecla <= '9' ? 0 : tecla; };
        cmbFP.AddItem("PAGO EN UNA SOLA EXHIBICIÓN");
        cmbFP.AddItem("CRÉDITO");
        cmbFP.ListIndex(0);
        for (int anio = 2000; anio < 2030; ++anio) cmbAnio.AddItem(std::to_string(anio));
        cmbAnio.ListIndex(26);
        txtSucursal.Enabled(false);
        txtSucursal.Click = [this] { ++clicsSucursal; };
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
    f::ComboBox& cmbFP = Agregar<f::ComboBox>("cmbFP", f::ComboBox::Estilo::SoloLista, "Forma de pago");
    f::ComboBox& cmbAnio = Agregar<f::ComboBox>("cmbAnio", f::ComboBox::Estilo::SoloLista, "Año");
    f::CheckBox& chkTimbrar = Agregar<f::CheckBox>("chkTimbrar", "&Timbrar");
    f::TextBox& txtSucursal = Agregar<f::TextBox>("txtSucursal", "Sucursal");
    f::Frame& fraEnvio = Agregar<f::Frame>("fraEnvio", "Envío");
    f::OptionButton& optCorreo = Agregar<f::OptionButton>("optCorreo", "Por correo", true);
    f::OptionButton& optPapel = Agregar<f::OptionButton>("optPapel", "En papel");
    f::NumberField& eNumLimite = Agregar<f::NumberField>("eNumLimite", "Límite de crédito.");
    f::DateField& eDtAlta = Agregar<f::DateField>("eDtAlta", "Alta");
    f::TextBox& txtClave = Agregar<f::TextBox>("txtClave", "Clave");
    f::CommandButton& btnOK = Agregar<f::CommandButton>("btnOK", "&Aceptar");
    f::CommandButton& btnCancelar = Agregar<f::CommandButton>("btnCancelar", "&Cancelar");

    int clicsSucursal = 0;
    bool dejarCerrar = true;

protected:
    bool Form_QueryUnload() override { return dejarCerrar; }

private:
    void Guardar() {
        if (txtNombre.Text().empty()) {
            Ui().MsgBox("Falta el nombre del cliente.", Botones::Aceptar, Icono::Exclamacion, "");
        } else if (Ui().MsgBox("¿Guardar a " + txtNombre.Text() + "?", Botones::SiNo, Icono::Pregunta, "") ==
                   Respuesta::Si) {
            Aceptado = true;
            Hide();
        }
    }
};

// How the editor is drawn when it is shown.
const std::string kDibujoCliente =
    "== Datos del cliente ==\n"
    "  lblAviso (etiqueta): Capture los datos del cliente.\n"
    "  txtNombre (texto) Nombre: \"\"\n"
    "  cmbFP (combo) Forma de pago: PAGO EN UNA SOLA EXHIBICIÓN\n"
    "      > 1  PAGO EN UNA SOLA EXHIBICIÓN\n"
    "        2  CRÉDITO\n"
    "  cmbAnio (combo) Año: 2026 (27 de 30)\n"
    "        25  2024\n"
    "        26  2025\n"
    "      > 27  2026\n"
    "        28  2027\n"
    "        29  2028\n"
    "        ... ver cmbAnio los muestra todos\n"
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

// Tabs, a list view with check boxes, a grid with amounts, an address.
class DlgFolios : public f::Dialogo {
public:
    DlgFolios() : Dialogo("dlgFolios", "Folios aprobados") {
        txtSerie.Colocar("tabs", 0);
        dom.Colocar("tabs", 0);
        dom.conectar(CatalogoPaises(empresa.cnn).nvlands());
        dom.Separada("Reforma", "10", "B");
        dom.ciudad(2);
        lvwRangos.Colocar("tabs", 1);
        lvwRangos.Checkboxes(true);
        for (const char* columna : {"Serie", "Desde", "Hasta"}) lvwRangos.AgregarColumna(columna);
        for (const auto& [serie, desde, hasta] : {std::tuple{"A", "1", "100"}, std::tuple{"B", "101", "250"}}) {
            const int i = lvwRangos.Add(std::string("k") + serie, serie);
            lvwRangos.SubItem(i, 1, desde);
            lvwRangos.SubItem(i, 2, hasta);
        }
        lvwRangos.Checked(0, true);
        lvwRangos.SelectedItem(0);
        lvwRangos.ItemCheck = [this](int i) { registro += "check " + std::to_string(i) + ";"; };
        lvwRangos.ItemClick = [this](int i) { registro += "click " + std::to_string(i) + ";"; };
        lvwRangos.DblClick = [this](int i) { registro += "doble " + std::to_string(i) + ";"; };
        grdTotales.Colocar("tabs", 1);
        grdTotales.Valor(grdTotales.Append(), "serie", "A");
        grdTotales.Valor(0, "importe", 1160.5);
        tabs.Click = [this] { registro += "pagina " + std::to_string(tabs.SelectedItem()) + ";"; };
    }

    testing::CompanyDatabase empresa{testing::CompanyDatabase::Datos::Demo};
    f::TabControl& tabs = Agregar<f::TabControl>("tabs", std::vector<std::string>{"&General", "Rangos"});
    f::TextBox& txtSerie = Agregar<f::TextBox>("txtSerie", "Serie", "A");
    f::AddressControl& dom = Agregar<f::AddressControl>("dom");
    f::ListView& lvwRangos = Agregar<f::ListView>("lvwRangos", "Rangos aprobados");
    f::Grid& grdTotales = Agregar<f::Grid>(
        "grdTotales", std::vector<f::ColumnaGrid>{{"serie", "Serie", false}, {"importe", "Importe", true}});
    std::string registro;
};

// A list of customers that opens the editor, and a button that hides the
// dialog and shows it modally again once.
class DlgClientes : public f::Dialogo {
public:
    DlgClientes() : Dialogo("dlgClientes", "Clientes") {
        btnNuevo.Click = [this] {
            DlgCliente editor;
            editor.ShowModal();
            if (editor.Aceptado) lvwClientes.Add("", editor.txtNombre.Text());
        };
    }

    f::ListView& lvwClientes = Agregar<f::ListView>("lvwClientes", "Clientes");
    f::CommandButton& btnNuevo = Agregar<f::CommandButton>("btnNuevo", "&Nuevo");
};

// A terminal whose keyboard is a script, installed as the platform's user
// interface.
struct Terminal {
    explicit Terminal(const std::string& teclado) : in(teclado), ui(in, out) {}
    std::string Resto() { return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()}; }
    // The lines of the output, the prompts before them aside.
    Lineas Limpias() const {
        std::istringstream lineas(out.str());
        Lineas limpias;
        for (std::string leida; std::getline(lineas, leida);) {
            while (leida.rfind("> ", 0) == 0) leida.erase(0, 2);
            limpias.push_back(leida);
        }
        return limpias;
    }
    // Those that match the pattern, in order.
    Lineas Con(const std::string& patron) const {
        Lineas halladas = Limpias();
        std::erase_if(halladas, [&](const std::string& linea) { return !std::regex_match(linea, std::regex(patron)); });
        return halladas;
    }

    std::istringstream in;
    std::ostringstream out;
    ConsolaUi ui;
    testing::FixedClock reloj{DateSerial(2026, 11, 22)};
    PlataformaEscritorio plataforma{ui, reloj};
    PlataformaInstalada instalada{plataforma};
};

// A dialog shown modally on a terminal that reads this script.
template <class Dlg>
struct Guion : Terminal {
    explicit Guion(const std::string& teclado, const std::function<void(Dlg&)>& antes = {}) : Terminal(teclado) {
        if (antes) antes(dlg);
        dlg.ShowModal();
    }
    Dlg dlg;
};

// The script that types these orders and what the terminal prints for them:
// after the prompt, the order's first line as read, then what follows.
std::pair<std::string, std::string> Guionar(const Pasos& pasos) {
    std::pair<std::string, std::string> guion;
    for (const auto& [orden, salida] : pasos) {
        guion.first += orden + "\n";
        guion.second += "> " + orden.substr(0, orden.find('\n')) + "\n" + salida;
    }
    return guion;
}

TEST(RenderizadorConsolaOrdenes, EachOrderActsThroughTheHandlersAndPrintsWhatChanged) {
    const auto [teclado, salida] = Guionar({
        {"escribir TXTNOMBRE An4a  Ruiz", "  txtNombre (texto) Nombre: \"Ana  Ruiz\"\n"},  // KeyPress ate the digit
        // Quotes keep a text's blanks and give the empty text; without them it runs to the end of the line.
        {"escribir txtNombre \"  Ana Ruiz \"  ", "  txtNombre (texto) Nombre: \"  Ana Ruiz \"\n"},
        {"escribir txtNombre \"\"", "  txtNombre (texto) Nombre: \"\"\n"},
        {"escribir txtNombre \"sin cerrar ", "  txtNombre (texto) Nombre: \"\"sin cerrar \"\n"},
        {"escribir eNumLimite 2,500.5", "  eNumLimite (número) Límite de crédito: 2500.50\n"},
        {"escribir eDtAlta \"2026-12-01\"", "  eDtAlta (fecha) Alta: 01/12/2026\n"},
        {"elegir cmbFP \"crédito\"",
         "  cmbFP (combo) Forma de pago: CRÉDITO\n        1  PAGO EN UNA SOLA EXHIBICIÓN\n      > 2  CRÉDITO\n"},
        {"pulsar optPapel", "  optCorreo (opción): ( ) Por correo\n  optPapel (opción): (o) En papel\n"},
        {"pulsar txtSucursal", "Error: «txtSucursal» está inhabilitado.\n"},
        // The check box's Click enables the field.
        {"marcar chkTimbrar si", "  chkTimbrar (casilla): [x] Timbrar\n  txtSucursal (texto) Sucursal: \"\"\n"},
        {"pulsar txtSucursal", ""},
        // A box that a handler raises takes its answer from the next line.
        {"escribir txtNombre Ana", "  txtNombre (texto) Nombre: \"Ana\"\n"},
        {"intro\nn", "┌─ [Pregunta]\n│ ¿Guardar a Ana?\n│ (s/n) n\n└─ No\n"},
        {"pulsar btnok\ns", "┌─ [Pregunta]\n│ ¿Guardar a Ana?\n│ (s/n) s\n└─ Sí\nSe cerró «Datos del cliente».\n"},
    });
    Guion<DlgCliente> g(teclado + "ver\n");

    EXPECT_EQ(g.out.str(), kDibujoCliente + salida);
    EXPECT_EQ(g.Resto(), "ver\n") << "nothing is read after the handler hid the dialog";
    EXPECT_TRUE(g.dlg.Aceptado);
    EXPECT_EQ(g.dlg.clicsSucursal, 1) << "a field is clicked once it is enabled";
}

TEST(RenderizadorConsolaOrdenes, RefusesWhatAPersonCouldNotDoSayingWhatItTakesAndKeepsReading) {
    const auto [teclado, salida] = Guionar({
        {"bailar", "Error: no conozco la orden «bailar»; las órdenes son escribir, elegir, agregar, marcar, pulsar, "
                   "doble, pagina, intro, esc, ver, cerrar, ayuda (ayuda las explica).\n"},
        {"elegir", "Error: falta el nombre del control: elegir CONTROL N.\n"},
        {"pulsar btnNada",
         "Error: no hay ningún control «btnNada» en «Datos del cliente»; ver muestra los controles con su nombre.\n"},
        {"escribir txtClave 1", "Error: «txtClave» no se ve ahora (está oculto o en otra página).\n"},
        {"escribir cmbFP hola", "Error: «cmbFP» (combo) no admite escribir; elija de su lista: elegir cmbFP N.\n"},
        {"elegir cmbFP", "Error: falta el número del elemento de «cmbFP» (de 1 a 2, o su texto).\n"},
        {"elegir cmbFP 3", "Error: «cmbFP» no tiene el elemento «3» (elija de 1 a 2, o su texto).\n"},
        {"elegir cmbAnio 2030", "Error: «cmbAnio» no tiene el elemento «2030» (elija de 1 a 30, o su texto; "
                                "ver cmbAnio los muestra todos).\n"},
        {"pulsar lblAviso", "Error: «lblAviso» (etiqueta) no se pulsa.\n"},
        {"escribir eNumLimite doce", "Error: «doce» no es un número.\n"},
    });
    Guion<DlgCliente> g(teclado + "ver cmbAnio\nesc\n");

    // Nothing is drawn again after a refusal: no value changed.
    EXPECT_THAT(g.out.str(), StartsWith(kDibujoCliente + salida + "> ver cmbAnio\n  cmbAnio (combo) Año: 2026"));
    EXPECT_EQ(g.Con(" +(> )?\\d+  20\\d\\d").size(), 5u + 30u) << "the drawing shows five years, ver all of them";
    EXPECT_THAT(g.out.str(), EndsWith("> esc\nSe cerró «Datos del cliente».\n")) << "esc pressed the cancel button";
}

TEST(RenderizadorConsolaOrdenes, PagesAddressesAndRowsAreDrawnAndActedOn) {
    Guion<DlgFolios> g(
        "escribir dom piso 3\n"
        "escribir dom calle \"Av. Juárez \"\n"
        "pagina tabs rangos\n"
        "marcar lvwRangos 2\n"
        "marcar lvwRangos b no\n"
        "doble lvwRangos 2\n");

    EXPECT_THAT(g.Limpias(),
                IsSupersetOf({"  tabs (pestañas): >1 General | 2 Rangos", "    txtSerie (texto) Serie: \"A\"",
                              "    dom (dirección): Reforma 10 int. B, Monterrey",
                              // Changing the page draws the dialog again, with the other page.
                              "  tabs (pestañas): 1 General | >2 Rangos",
                              "    lvwRangos (vista) Rangos aprobados: 2 filas", "          #       Serie  Desde  Hasta",
                              "        > 1  [x]  A      1      100", "          2  [ ]  B      101    250",
                              "    grdTotales (tabla): 1 fila", "          #  Serie   Importe",
                              "          1  A      1,160.50"}));
    EXPECT_EQ(g.Con("Error: .*"),
              (Lineas{"Error: en «dom» se escribe: calle, exterior, interior, direccion, colonia, cp, telefono "
                      "o notas y el texto."}));
    EXPECT_EQ(g.dlg.dom.Calle(), "Av. Juárez ");
    EXPECT_EQ(g.dlg.registro, "pagina 1;check 1;check 1;click 1;doble 1;");
    EXPECT_FALSE(g.dlg.lvwRangos.Item(1).checked);
    EXPECT_EQ(g.dlg.lvwRangos.SelectedItem(), 1);
}

TEST(RenderizadorConsolaOrdenes, PlacesAreChosenAndAddedByLevelAndAPageOutOfUseStaysShut) {
    Guion<DlgFolios> g("pagina tabs 2\nelegir dom estado jalisco\nagregar dom pais Perú\nagregar dom ciudad \"\"\n"
                       "agregar dom ciudad \"San Pedro Tlaquepaque\"\n",
                       [](DlgFolios& d) {
                           d.tabs.PaginaHabilitada(1, false);
                           d.dom.canaddcountry = false;
                       });

    EXPECT_EQ(g.Con("Error: .*|.*(pestañas\\)|estados|ciudades):.*"),
              (Lineas{"  tabs (pestañas): >1 General | 2 Rangos (no disponible)",
                      "        estados: 1 Ciudad de México | 2 Jalisco | >3 Nuevo León", "        ciudades: >1 Monterrey",
                      "Error: la página «Rangos» de «tabs» no está disponible ahora.",
                      "      estados: 1 Ciudad de México | >2 Jalisco | 3 Nuevo León", "      ciudades: 1 Guadalajara",
                      "Error: «dom» no permite agregar países.", "Error: falta el nombre.",
                      "      estados: 1 Ciudad de México | >2 Jalisco | 3 Nuevo León",
                      "      ciudades: 1 Guadalajara | >2 San Pedro Tlaquepaque"}));
    EXPECT_EQ(g.dlg.empresa.Contar("Ciudad WHERE Sys_PK = 6 AND Nombre = 'San Pedro Tlaquepaque' AND IEstado = 2"), 1);
}

TEST(RenderizadorConsolaOrdenes, EndOfInputClosesTheWindowAsItsXWouldAndARefusedCloseHidesIt) {
    const std::string fin = "> \nFin de la entrada: se cierra la ventana.\n";
    Guion<DlgCliente> terco("cerrar\n", [](DlgCliente& dlg) { dlg.dejarCerrar = false; });
    EXPECT_EQ(terco.out.str(), kDibujoCliente + "> cerrar\n«Datos del cliente» no se cerró.\n" + fin +
                                   "«Datos del cliente» no se dejó cerrar; se oculta.\nSe cerró «Datos del cliente».\n");
}

TEST(RenderizadorConsolaOrdenes, EachNestedModalShowingRunsItsOwnLoop) {
    Guion<DlgClientes> g("pulsar btnNuevo\nescribir txtNombre Ana\nintro\ns\ncerrar\npulsar btnNuevo\n");

    EXPECT_EQ(g.Resto(), "pulsar btnNuevo\n");
    // The list, the editor over it, then the list again with the new row.
    EXPECT_EQ(g.Con("==.*|.*Se cerró.*|        1  Ana"),
              (Lineas{"== Clientes ==", "== Datos del cliente ==", "Se cerró «Datos del cliente».", "== Clientes ==",
                      "        1  Ana", "Se cerró «Clientes»."}));
}

// However many times a job reports, the progress window prints a line only
// when its bar reaches a tenth it had not reached, and what is left at the
// close: the host's own values, or the report's bar that runs in circles.
TEST(RenderizadorConsolaVentana, ProgressPrintsALineForEachNewTenthOfTheBarAndOneAtTheClose) {
    const struct Caso {
        bool automatico;
        int pasos;
        bool completo;
        std::size_t lineas;  // after the drawing, before the close
        std::string ultima;
    } casos[] = {
        {false, 1000, true, 10, "lblcmd: Fila 1000 | pb: [==========] 100% (1000 en 0..1000)"},
        {false, 350, false, 4, "lblcmd: Fila 350 | pb: [===       ] 35% (350 en 0..1000)"},
        {true, 250, true, 11, "lblcmd: Fila 250 | pb: [==========] 100% (100 en 0..100)"},
        {true, 2, true, 1, "lblcmd: Fila 2 | pb: [==========] 100% (100 en 0..100)"},
    };
    for (const auto& caso : casos) {
        Terminal t("");
        cAcction acc;
        if (caso.automatico) mdlMain::MostrarProgreso("Generando informe mensual.");
        for (int i = 1; i <= caso.pasos; ++i) {
            const std::string fila = "Fila " + std::to_string(i);
            caso.automatico ? mdlMain::AvanzarProgreso(fila) : acc.ShowProgress(fila, i, "Exportando", 0, 1000);
        }
        acc.CloseProgress(caso.completo);
        const Lineas lineas = t.Limpias();
        ASSERT_EQ(lineas.size(), 5 + caso.lineas + 1) << t.out.str();
        EXPECT_EQ(lineas[lineas.size() - 2], caso.ultima);
        EXPECT_EQ(lineas.back(), "Se cerró «Progreso».");
    }
}

}  // namespace
}  // namespace celdora::platform
