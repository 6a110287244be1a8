// Calls by name through the dispatch tables, as an automation client makes
// them: slots, defaults, conversions, faults and results.

#include "core/Dispatch.h"

#include <algorithm>

#include "core/Coleccion.h"
#include "core/cAcction.h"
#include "platform/common/Catalogo.h"
#include "platform/common/Usuario.h"
#include "rules/cConceptoFacHordana.h"
#include "rules/cFolioOrigen.h"
#include "rules/cRegimenFical.h"
#include "tests/support/FachadaDemo.h"
#include "tests/support/FallaDe.h"
#include "value/Convert.h"

namespace celdora {
namespace {

using dispatch::Invocar;
using dispatch::Leer;
using testing::Textos;

// The number of the fault a call raises, 0 when none.
template <class Llamada>
long FaultOf(Llamada&& llamada) {
    return testing::FallaDe(std::forward<Llamada>(llamada)).number;
}

// A member as one line: "slot kind name(arguments) : result[ interface]",
// each argument as "[ByRef ]name type[ interface][ = default as presented]".
std::string Firma(const std::string& clase, const std::string& nombre) {
    const dispatch::Miembro* m = dispatch::Buscar(clase, nombre);
    if (!m) return "(none)";
    const auto conInterfaz = [](dispatch::Tipo tipo, const std::string& interfaz) {
        return dispatch::NombreTipo(tipo) + (interfaz.empty() ? "" : " " + interfaz);
    };
    std::string texto = std::to_string(m->ranura) + " " + dispatch::NombreClase(m->clase) + " " + m->nombre + "(";
    for (const auto& a : m->argumentos) {
        texto += (texto.back() == '(' ? "" : ", ") + std::string(a.porReferencia ? "ByRef " : "") + a.nombre + " " +
                 conInterfaz(a.tipo, a.interfaz) + (a.opcional ? " = " + dispatch::Presentar(a.omision).at(0) : "");
    }
    return texto + ") : " + conInterfaz(m->resultado, m->interfazResultado);
}

Variant Objeto(std::shared_ptr<Object> objeto) { return Variant(std::move(objeto)); }

// Slots follow the interface order and keep room for members still to come:
// whether or not the dialog members have joined the table, their slots are
// kept (EliminarAprobacionFolios after Configuracion and
// AgregarAprobacionFolios, isSet after EliminarInformeMensual).
TEST(DispatchTable, DescribesSlotsKindsArgumentsAndDefaults) {
    const auto& orden = dispatch::OrdenDeRanuras("cAcction");
    ASSERT_EQ(orden.size(), 77u);
    EXPECT_EQ(orden[5], "Configuracion");
    EXPECT_EQ(orden[27], "EliminarInformeMensual");
    const struct {
        std::string clase, nombre, firma;
    } casos[] = {
        {"cAcction", "adocnn", "1 propiedad ADOCnn() : obj Connection"},
        {"cAcction", "eCat", "2 propiedad eCat() : obj Catalogo"},
        {"cAcction", "EliminarAprobacionFolios",
         "8 método EliminarAprobacionFolios(Sys_PK i32, boAsk bool = Verdadero (-1)) : bool"},
        {"cAcction", "isSet", "29 método isSet() : bool"},
        {"cAcction", "PermitirAcceso",
         "32 método PermitirAcceso(sKey str, oUser obj Usuario, Alerta bool = Verdadero (-1)) : bool"},
        {"cAcction", "TipoComprobanteAGenerar", "44 propiedad de solo lectura TipoComprobanteAGenerar() : enumTipoCFD"},
        {"cAcction", "guardar_ack_cancelacion", "69 método guardar_ack_cancelacion(ack str, cfdipk i32) : bool"},
        {"cAcction", "CrearObjetoNothing", "70 método CrearObjetoNothing() : obj Object"},
        {"cAcction", "RegimenesFicalesCol", "71 método RegimenesFicalesCol() : obj Coleccion de cRegimenFical"},
        {"cAcction", "PorcentajeIVATrasladadoEnVentaFinanciada",
         "72 método PorcentajeIVATrasladadoEnVentaFinanciada(pkventa i32) : f64"},
        {"cAcction", "EstablecerHordanaTipoFormato",
         "75 método EstablecerHordanaTipoFormato(pkventa i32, tf i16, DConceptos obj cConceptoFacHordana = "
         "Nothing) : bool"},
        {"cAcction", "EstablecerPorcentajeIVAVenta_enDCXC",
         "77 método EstablecerPorcentajeIVAVenta_enDCXC(pkcxc i32, porcentajeIVA f64) : bool"},
        {"cRegimenFical", "setInfo", "4 método setInfo(lsyspk i32, sregimen str, snotas str) : "},
        {"cFolioOrigen", "lastError", "5 propiedad lastError() : str"},
        {"cFolioOrigen", "cargarInformacion_CFDI",
         "7 método cargarInformacion_CFDI(pkVentaOrigen i32, oADOCnn obj Connection) : var"},
        {"cConceptoFacHordana", "ImpuestosB", "13 propiedad ImpuestosB() : f64"},
        {"cAcction", "ExisteCFDI", "(none)"},
    };
    for (const auto& caso : casos) EXPECT_EQ(Firma(caso.clase, caso.nombre), caso.firma);

    const auto& miembros = dispatch::MiembrosDe("cAcction");
    EXPECT_LE(miembros.size(), orden.size());
    EXPECT_TRUE(std::is_sorted(miembros.begin(), miembros.end(),
                               [](const auto& a, const auto& b) { return a.ranura < b.ranura; }));
    for (const auto& m : miembros) EXPECT_EQ(orden[static_cast<std::size_t>(m.ranura - 1)], m.nombre);
    EXPECT_TRUE(dispatch::MiembrosDe("cNoExiste").empty());
    EXPECT_EQ(dispatch::MiembrosDe("CREGIMENFICAL").size(), 4u);
    EXPECT_EQ(dispatch::MiembrosDe("cConceptoFacHordana").size(), 13u);
}

class Dispatch : public testing::FachadaDemo {
protected:
    void SetUp() override { acc.SetDataObjects(dataObjects, std::make_shared<platform::CatalogoPaises>(db.cnn)); }

    Variant Llamar(const std::string& nombre, std::vector<Variant> args = {}) {
        return Invocar(acc, nombre, args);
    }
};

TEST_F(Dispatch, AbsentOptionalArgumentsTakeTheirDefaults) {
    // CancelarCFD(5): boAsk and WithTrans are true, so the deletes run in a
    // transaction of their own.
    platform.ui.Responder(host::Respuesta::Si);
    EXPECT_EQ(Llamar("CancelarCFD", {5}), Variant(true));
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar"}));
    EXPECT_EQ(db.Contar("ut_CFD WHERE Sys_PK=5"), 0);

    // Given as texts, the same arguments convert: WithTrans "0" is false.
    platform.ui.Responder(host::Respuesta::Si);
    EXPECT_EQ(Llamar("CancelarCFD", {"8", "-1", "0"}), Variant(true));
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar"}));
    EXPECT_EQ(db.Contar("ut_CFD WHERE Sys_PK=8"), 0);

    // An object argument left out is no object: tf 0 needs none.
    EXPECT_EQ(Llamar("EstablecerHordanaTipoFormato", {9, 0}), Variant(true));
    EXPECT_EQ(Llamar("StrConfiguracionLocal", {"NoExiste"}), Variant(""));
}

// Arguments that do not convert (13, 6, 94) stop the call before the member
// runs, also when an earlier one did; so do object arguments of another
// interface than the member expects. Counts (449, 450) and names (438) are
// checked as automation checks them.
TEST_F(Dispatch, CallsThatCannotBeMadeFaultWithTheAutomationNumberAndRunNothing) {
    auto usuario = std::make_shared<platform::UsuarioConGrupos>(std::vector<std::int32_t>{3, 7});
    acc.LastErrorDescript = "anterior";
    const struct {
        std::string nombre;
        std::vector<Variant> args;
        long numero;
    } casos[] = {
        {"PosibleCancelar", {"abc"}, 13},
        {"CambiarEstadoEnBitacora", {1, 40000}, 6},
        {"ExisteCFD", {Variant::Null()}, 94},
        {"CancelarCFD", {5, "quizá"}, 13},
        {"PermitirAcceso", {"NVCA316x", Objeto(db.cnn)}, 13},
        {"PermitirAcceso", {"NVCA316x", "usuario"}, 13},
        {"EstablecerHordanaTipoFormato", {9, 2, Objeto(usuario)}, 13},
        {"ExisteCFD", {}, 449},
        {"CancelarCFD", {}, 449},
        {"ExisteCFD", {1, 2}, 450},
        {"ApplicationName", {"x"}, 450},
        {"ExisteCFDI", {1}, 438},
        {"Existe CFD", {1}, 438},
    };
    for (const auto& caso : casos) EXPECT_EQ(FaultOf([&] { Llamar(caso.nombre, caso.args); }), caso.numero) << caso.nombre;
    EXPECT_EQ(FaultOf([&] { dispatch::Escribir(acc, "TipoComprobanteAGenerar", 3); }), 438);
    EXPECT_EQ(FaultOf([&] { dispatch::Escribir(acc, "ExisteCFD", 3); }), 438);
    EXPECT_EQ(acc.LastErrorDescript, "anterior");
    EXPECT_EQ(db.Contar("ut_CFD WHERE Sys_PK=5"), 1);
    EXPECT_EQ(db.Contar("ut_HdFacturaResumen WHERE FKVenta=9"), 0);
    EXPECT_TRUE(platform.ui.Cajas().empty());

    // Case does not matter.
    EXPECT_EQ(Llamar("existecfd", {1}), Variant(true));
    EXPECT_EQ(Leer(acc, "TIPOCOMPROBANTEAGENERAR"), Variant::Integer(2));
}

TEST_F(Dispatch, ObjectArgumentsOfTheInterfaceTheMemberExpectsPass) {
    auto usuario = std::make_shared<platform::UsuarioConGrupos>(std::vector<std::int32_t>{3, 7});
    EXPECT_EQ(Llamar("PermitirAcceso", {"NVCA316x", Objeto(usuario)}), Variant(true));
    // Empty passes as no user: nobody matches, and Alerta false keeps quiet.
    EXPECT_EQ(Llamar("PermitirAcceso", {"NVCA316x", Variant(), false}), Variant(false));
    EXPECT_TRUE(platform.ui.Cajas().empty());
    // The embedded engine speaks the MySQL dialect, so the probe finds it.
    EXPECT_EQ(Llamar("databasetype", {Objeto(db.cnn)}), Variant::Integer(2));

    auto concepto = std::make_shared<cConceptoFacHordana>();
    concepto->UnidadC1 = "CONSUMO";
    concepto->ConceptoResumido = "CONSUMO DE ALIMENTOS";
    concepto->UnidadC2 = "PZA";
    concepto->ConceptoResumidoCeroIVA = "OTROS";
    EXPECT_EQ(Llamar("EstablecerHordanaTipoFormato", {9, 2, Objeto(concepto)}), Variant(true));
    EXPECT_EQ(db.Contar("ut_HdFacturaResumen WHERE FKVenta=9"), 2);
}

TEST_F(Dispatch, ResultsCrossAsAutomationValues) {
    const Variant existe = Llamar("ExisteCFD", {1});
    EXPECT_EQ(existe.Type(), VarType::Boolean);
    EXPECT_EQ(CInt(existe), -1);
    EXPECT_EQ(CInt(Llamar("ExisteCFD", {14})), 0);
    EXPECT_EQ(CStr(existe), "True");

    EXPECT_EQ(Leer(acc, "TipoComprobanteAGenerar").Type(), VarType::Integer);
    EXPECT_EQ(Llamar("BlockVentaCFDI_CBB", {8}), Variant::Integer(3));
    EXPECT_EQ(Llamar("PorcentajeIVATrasladadoEnVentaFinanciada", {2}), Variant(16.0));
    EXPECT_EQ(Llamar("ObtenerFechaHora", {"5/3/2012", "7:08:09"}).Type(), VarType::Date);
    EXPECT_TRUE(Llamar("LoadGlobalVar").IsEmpty());

    const Variant nada = Llamar("CrearObjetoNothing");
    ASSERT_TRUE(nada.IsObject());
    EXPECT_FALSE(nada.AsObject());

    const Variant regimenes = Llamar("RegimenesFicalesCol");
    ASSERT_TRUE(regimenes.IsObject());
    auto coleccion = std::dynamic_pointer_cast<Coleccion>(regimenes.AsObject());
    ASSERT_TRUE(coleccion);
    EXPECT_EQ(coleccion->Count(), 2);
}

TEST_F(Dispatch, PropertiesAreReadAndWrittenByName) {
    dispatch::Escribir(acc, "ApplicationName", "Tienda");
    EXPECT_EQ(acc.ApplicationName, "Tienda");
    dispatch::Escribir(acc, "AppReportsPath", 12);
    EXPECT_EQ(Leer(acc, "appreportspath"), Variant("12"));

    EXPECT_EQ(Leer(acc, "ADOCnn").AsObject(), db.dataObjects->ADOCnn());
    EXPECT_EQ(FaultOf([&] { dispatch::Escribir(acc, "ADOCnn", Objeto(db.dataObjects)); }), 13);
    dispatch::Escribir(acc, "ADOCnn", Variant::Null());
    EXPECT_FALSE(acc.ADOCnn);
    dispatch::Escribir(acc, "ADOCnn", Objeto(db.cnn));
    EXPECT_EQ(acc.ADOCnn, db.cnn);
}

TEST_F(Dispatch, PresentsResultsForPeople) {
    const std::pair<Variant, Textos> casos[] = {
        {Llamar("ExisteCFD", {1}), {"Verdadero (-1)"}},
        {Llamar("ExisteCFD", {14}), {"Falso (0)"}},
        {Llamar("CrearObjetoNothing"), {"Nothing"}},
        {Variant::Null(), {"Null"}},
        {Variant(), {}},
        {Llamar("RegimenesFicalesCol"), {"2\tPersonas Morales con Fines no Lucrativos\t",
                                         "1\tRégimen General de Ley Personas Morales\tTítulo II de la Ley del ISR"}},
        {Objeto(std::make_shared<Coleccion>()), {"(colección vacía)"}},
    };
    for (const auto& [valor, lineas] : casos) EXPECT_EQ(dispatch::Presentar(valor), lineas);
}

TEST_F(Dispatch, TheSmallClassesHaveTablesOfTheirOwn) {
    cRegimenFical regimen;
    std::vector<Variant> args{"7", "Régimen Simplificado", ""};
    EXPECT_TRUE(Invocar(regimen, "SETINFO", args).IsEmpty());
    EXPECT_EQ(Leer(regimen, "Sys_PK"), Variant::Long(7));
    EXPECT_EQ(regimen.Regimen, "Régimen Simplificado");
    std::vector<Variant> conNull{7, "R", Variant::Null()};
    EXPECT_EQ(FaultOf([&] { Invocar(regimen, "setInfo", conNull); }), 94);

    cFolioOrigen origen;
    std::vector<Variant> venta{1, Objeto(db.cnn)};
    const Variant cargado = Invocar(origen, "cargarInformacion_CFD", venta);
    EXPECT_EQ(cargado, Variant(true));
    EXPECT_EQ(Leer(origen, "SerieFolioFiscalOrig"), Variant("A"));
    EXPECT_EQ(Leer(origen, "MontoFolioFiscalOrig"), Variant(Currency{11600000}));
    dispatch::Escribir(origen, "MontoFolioFiscalOrig", "12.34");
    EXPECT_EQ(origen.MontoFolioFiscalOrig, Currency{123400});
    std::vector<Variant> sinConexion{1, Objeto(std::make_shared<cRegimenFical>())};
    EXPECT_EQ(FaultOf([&] { Invocar(origen, "cargarInformacion_CFDI", sinConexion); }), 13);

    cConceptoFacHordana concepto;
    dispatch::Escribir(concepto, "Resumido", "True");
    EXPECT_EQ(CInt(Leer(concepto, "resumido")), -1);
    dispatch::Escribir(concepto, "CantidadA", "2.5");
    EXPECT_EQ(concepto.CantidadA, 2.5);
    EXPECT_EQ(FaultOf([&] { dispatch::Escribir(concepto, "PrecioA", "caro"); }), 13);
    const auto lineas = dispatch::Presentar(Objeto(std::make_shared<cConceptoFacHordana>(concepto)));
    ASSERT_EQ(lineas.size(), 13u);
    EXPECT_EQ(lineas[0], "Resumido = Verdadero (-1)");
    EXPECT_EQ(lineas[3], "CantidadA = 2.5");
}

}  // namespace
}  // namespace celdora
