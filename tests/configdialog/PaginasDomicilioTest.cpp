// The issuer and consumption-centre pages composed, as the configuration
// dialog does, by a dialog of three pages on the demo company
// (schema/README.md): fiscal address 1; centres Matriz (address 2, the
// receivables flag), Sucursal Guadalajara (4) and Sucursal Monterrey (3).

#include <gtest/gtest.h>

#include "configdialog/PaginaDomiciliosCC.h"
#include "configdialog/PaginaEmisor.h"
#include "tests/support/AjustesGrabados.h"
#include "tests/support/FachadaDemo.h"

namespace celdora {
namespace {

using host::Icono;
using host::Respuesta;
using testing::Textos;

class PaginasDomicilio : public testing::FachadaDemo, public forms::Dialogo {
protected:
    PaginasDomicilio() : Dialogo("dlgPaginas", "Páginas") { marco.paginas = &TabControl; }
    std::shared_ptr<testing::GlobalVarGrabado> ajustes = std::make_shared<testing::GlobalVarGrabado>();
    configuracion::Marco marco;
    forms::TabControl& TabControl = Agregar<forms::TabControl>("TabControl", std::vector<std::string>{"0", "1", "2"});
    configuracion::PaginaEmisor e{*this, marco};
    configuracion::PaginaDomiciliosCC c{*this, marco, TabControl, 2};

    void SetUp() override {
        FachadaDemo::SetUp();
        acc.GlobalVar = ajustes;
        marco.oAcc = &acc;
        ajustes->Poner("NVCA100", "EKU SA");
    }
    // The centres loaded as the dialog's init does, with cargando raised.
    void Centros(int indice) {
        marco.cargando = true;
        c.crearDomicilioCC();
        c.cargarCentrosConsumo();
        c.cmbCC.ListIndex(indice);
        marco.cargando = false;
    }
    Textos Cajas() {
        Textos textos;
        for (const auto& caja : platform.ui.Cajas()) textos.push_back(caja.texto);
        return textos;
    }
};

std::string Vista(const forms::AddressControl& a) {
    return a.titulo() + "|" + a.notes() + "|" + a.address() + "|" + std::to_string(a.ciudad()) + "|" + a.codep();
}

// City, street text, postal code; the boxes shown and the answer.
struct Domicilio { int ciudad; std::string address, codep; Textos cajas; bool valido; };
class ValidarDomicilio : public PaginasDomicilio, public ::testing::WithParamInterface<Domicilio> {};

const std::string kSinCiudad = "Por favor seleccione una ciudad.";
const std::string kCP = "Código postal incorrecto. Debe contener 5 dígitos";

TEST_P(ValidarDomicilio, EachRuleFailsOnItsOwnAndAMissingCityOnlyWarns) {
    const Domicilio& p = GetParam();
    e.eDir.ciudad(p.ciudad);
    e.eDir.address(p.address);
    e.eDir.codep(p.codep);
    EXPECT_EQ(e.validarDomicilioFiscal(), p.valido);
    EXPECT_EQ(Cajas(), p.cajas);
    EXPECT_EQ(db.sentencias->back(), "SELECT Nombre FROM Ciudad WHERE Sys_PK=" + std::to_string(p.ciudad));
    EXPECT_EQ(TabControl.SelectedItem() == 1 && Foco() == &e.eDir, !p.cajas.empty());
    EXPECT_EQ(e.eDir.direccionSeparada(), p.address == "Calle 1");
}

INSTANTIATE_TEST_SUITE_P(
    , ValidarDomicilio,
    ::testing::Values(
        Domicilio{4, "||Calle|1|", "ABCDE", {}, true}, Domicilio{-1, "||Calle||", " 06500 ", {kSinCiudad}, true},
        Domicilio{1, "||Calle||", "06500", {"Ciudad incorrecta."}, false},
        Domicilio{-1, "", "06500", {kSinCiudad, "El campo dirección debe contener por lo menos el nombre de calle."}, false},
        Domicilio{4, "Calle 1", "06500", {"Dirección incorrecta debe separar nombre de calle, número exterior y número "
                                          "interior. por favor indique por lo menos el nombre de la calle."}, false},
        Domicilio{4, "||", "06500", {"Dirección incorrecta. por favor indique por lo menos el nombre de la calle."}, false},
        Domicilio{4, "||Calle||", "1234", {kCP}, false}, Domicilio{4, "||Calle||", "", {kCP}, false}));

// A key naming no row is told and leaves the name loaded. Name and RFC are
// checked first, as the dialogs chain them. A first save inserts the row,
// with the postal code trimmed, and its key goes first, so the next load
// finds it; a refused save writes no key.
TEST_F(PaginasDomicilio, TheSavedAddressKeyGoesFirstAndAFailedSaveWritesNoKey) {
    ajustes->Poner("NVCA102b", "9");
    e.eDir.notes("nota");
    e.cargarEmisor();
    EXPECT_EQ(Vista(e.eDir) + e.txtNombreEmisor.Text(), "Domicilio Fiscal|||-1|EKU SA");
    EXPECT_FALSE(e.validarNombreYRFC());
    EXPECT_TRUE(TabControl.SelectedItem() == 1 && Foco() == &e.txtRFCEmisor);
    e.txtRFCEmisor.Text(" RFC ");
    e.eDir.Separada("Calle", "", "");
    e.eDir.ciudad(2);
    e.eDir.codep(" 64000 ");
    EXPECT_TRUE(e.validarNombreYRFC() && e.guardarDomicilioFiscal());
    EXPECT_EQ(Texto("SELECT ICiudad || Direccion || CodPos FROM Domicilio WHERE Sys_PK=5"), "2" + e.eDir.address() + "64000");
    EXPECT_EQ(ajustes->escrituras, (Textos{"NVCA102b=5", "NVCA100=EKU SA", "NVCA101=RFC"}));
    e.eDir.limpiar();
    e.cargarEmisor();
    EXPECT_EQ(Vista(e.eDir), "Domicilio Fiscal||||Calle|||2|64000");
    db.Ejecutar("CREATE TRIGGER no_dom BEFORE UPDATE ON Domicilio BEGIN SELECT RAISE(ABORT, 'sin cambios'); END");
    EXPECT_FALSE(e.guardarDomicilioFiscal());
    EXPECT_EQ(Cajas(), (Textos{"Error al cargar domicilio fiscal de emisor.",
                               "Por favor ingrese el RFC del Emisor del comprobante fiscal digital",
                               "Error al guardar domicilio fiscal. sin cambios"}));
    EXPECT_EQ(ajustes->escrituras.size(), 3u);
}

// Matriz comes first, shown with its flag and asking nothing while cargando
// is up. With no centres the address is disabled and validation passes.
TEST_F(PaginasDomicilio, CentresLoadByNameAndTheFiscalAddressSwitchClosesTheirPage) {
    Centros(0);
    EXPECT_EQ(c.cmbCC.List(2) + Vista(c.eDirCC) + std::to_string(c.chkDomicilioExpCXC.Value()),
              "Sucursal MonterreyDomicilio Matriz||||Av. Juárez|123||4|060101");
    c.chkUsarDomFisComoDomExp.Pulsar();
    EXPECT_FALSE(TabControl.PaginaHabilitada(2) || !SinCajas());
    db.Ejecutar("DELETE FROM CConsumo");
    c.cargarCentrosConsumo();
    EXPECT_FALSE(c.eDirCC.Enabled());
    EXPECT_TRUE(c.validarDomiciliosCC());
}

// Centre shown (-1: Matriz, then Sucursal Monterrey is chosen, which
// unchecks the box through its unguarded handler), the answer; the box's
// value and the flags of the three centres.
struct Marca { int indice; Respuesta respuesta; std::string flags; };
class MarcarCXC : public PaginasDomicilio, public ::testing::WithParamInterface<Marca> {};

TEST_P(MarcarCXC, OneCentreAtMostAndARefusedClickIsUndoneWithoutAskingAgain) {
    Centros(GetParam().indice < 0 ? 0 : GetParam().indice);
    platform.ui.Responder(GetParam().respuesta);
    if (GetParam().indice < 0) c.cmbCC.ListIndex(2); else c.chkDomicilioExpCXC.Pulsar();
    EXPECT_EQ(Cajas(), Textos{GetParam().indice == 1
                                  ? "¿Está seguro que desea usar el domicilio del centro de consumo 'Sucursal "
                                    "Guadalajara' como domicilio de expedición en cuentas por cobrar?"
                                  : "Se quitará este domicilio como domicilio de expedición para documentos en "
                                    "cuentas por cobrar. ¿Está seguro que desea continuar?"});
    EXPECT_EQ(std::to_string(c.chkDomicilioExpCXC.Value()) +
                  Texto("SELECT group_concat(uf_ExpedicionCXC, '') FROM CConsumo"), GetParam().flags);
}

INSTANTIATE_TEST_SUITE_P(, MarcarCXC,
                         ::testing::Values(Marca{1, Respuesta::Si, "1010"}, Marca{1, Respuesta::No, "0100"},
                                           Marca{0, Respuesta::Si, "0000"}, Marca{0, Respuesta::No, "1100"},
                                           Marca{-1, Respuesta::Si, "0000"}));

// Country, street text, postal code; the box. Sucursal Guadalajara has no
// address and keeps what Matriz showed, so a save writes over Matriz's row
// and points Guadalajara at it too.
struct Guardado { int pais; std::string address, codep, caja; };
class GuardarCentro : public PaginasDomicilio, public ::testing::WithParamInterface<Guardado> {};

TEST_P(GuardarCentro, EachCheckStopsTheSaveAndACentreWithoutAddressSharesThePreviousRow) {
    db.Ejecutar("UPDATE CConsumo SET uf_DomicilioCFD=NULL WHERE Sys_PK=2");
    Centros(1);
    EXPECT_EQ(Vista(c.eDirCC), "Ingrese un domicilio para Sucursal Guadalajara||||Av. Juárez|123||4|06010");
    c.eDirCC.pais(GetParam().pais);
    c.eDirCC.address(GetParam().address);
    c.eDirCC.codep(GetParam().codep);
    c.btnSaveDomCC.Pulsar();
    UnaCaja(GetParam().caja, Icono::Informacion);
    EXPECT_EQ(Texto("SELECT group_concat(uf_DomicilioCFD) || Direccion FROM CConsumo, Domicilio WHERE Domicilio.Sys_PK=2"),
              GetParam().caja == "Domicilio guardado correctamente." ? "2,2,3||J|1|" : "2,3||Av. Juárez|123|");
}

INSTANTIATE_TEST_SUITE_P(
    , GuardarCentro,
    ::testing::Values(Guardado{0, "||J|1|", "", "Falta país."}, Guardado{3, "||J|1|", "", "País incorrecto."},
                      Guardado{1, "J 1", "", "Dirección incorrecta debe separar nombre de calle, número exterior y "
                                             "número interior."},
                      Guardado{1, "||J|1|", "1234", kCP}, Guardado{1, "||J|1|", "", "Domicilio guardado correctamente."}));

// A change to the demo, the box, the answer. The host's "(desconocido)" city
// passes here; without the facade the routine's own trap answers.
struct Cambio { std::string sql, caja; bool valido; };
class ValidarCentros : public PaginasDomicilio, public ::testing::WithParamInterface<Cambio> {};

TEST_P(ValidarCentros, EveryCentreNeedsACityAndASeparatedStreet) {
    if (GetParam().sql.empty()) marco.oAcc = nullptr; else db.Ejecutar(GetParam().sql);
    EXPECT_EQ(c.validarDomiciliosCC(), GetParam().valido);
    EXPECT_EQ(Cajas(), GetParam().caja.empty() ? Textos{} : Textos{GetParam().caja});
}

INSTANTIATE_TEST_SUITE_P(
    , ValidarCentros,
    ::testing::Values(
        Cambio{"UPDATE Domicilio SET ICiudad=1 WHERE Sys_PK=3", "", true},
        Cambio{"UPDATE CConsumo SET uf_DomicilioCFD=NULL WHERE Sys_PK=3", "No ha seleccionado una ciudad para el "
               "domicilio de expedición del centro de consumo 'Sucursal Monterrey'", false},
        Cambio{"UPDATE Ciudad SET Nombre='Desconocido' WHERE Sys_PK=2",
               "Ciudad incorrecta. Por favor seleccione una ciudad diferente a 'desconocido'.", false},
        Cambio{"UPDATE Domicilio SET Direccion='Vallarta 2440' WHERE Sys_PK=4", "Dirección incorrecta. Debe separar "
               "nombre de calle, número exterior y número interior en domicilio del centro de consumo 'Sucursal "
               "Guadalajara'", false},
        Cambio{"", "Error al validar domicilio de expedición por centro de consumo. Object variable or With block "
                   "variable not set (91)", false}));

// The rows of Domicilio stay; without the facade the routine's own trap answers.
TEST_F(PaginasDomicilio, SuppressingClearsEveryCentreOnlyWhenTheFiscalAddressIsUsed) {
    for (int marcado : {0, 1}) {
        c.chkUsarDomFisComoDomExp.Value(marcado);
        EXPECT_TRUE(c.suprimirDomiciliosCC());
        EXPECT_EQ(Texto("SELECT count(uf_DomicilioCFD) || sum(uf_ExpedicionCXC) FROM CConsumo"), marcado ? "00" : "31");
    }
    EXPECT_EQ(db.Contar("Domicilio"), 4);
    marco.oAcc = nullptr;
    EXPECT_FALSE(c.suprimirDomiciliosCC());
    UnaCaja("Error al suprimir domicilio de expedición para utilizar domicilio fiscal como domicilio de expedición. "
            "Object variable or With block variable not set (91)");
}

}  // namespace
}  // namespace celdora
