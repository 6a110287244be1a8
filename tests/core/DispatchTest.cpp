// Calls by name through the dispatch tables, as an automation client makes
// them: slots, defaults, conversions, faults and results.

#include "core/Dispatch.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/Coleccion.h"
#include "core/cAcction.h"
#include "platform/common/Catalogo.h"
#include "platform/common/Usuario.h"
#include "rules/cConceptoFacHordana.h"
#include "rules/cFolioOrigen.h"
#include "rules/cRegimenFical.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/TestPlatform.h"
#include "tests/value/FaultOf.h"
#include "value/Convert.h"

namespace celdora {
namespace {

using dispatch::Invocar;
using dispatch::Leer;
using testing::CompanyDatabase;
using testing::TestPlatform;
using test::FaultOf;

int Ranura(const std::string& clase, const std::string& nombre) {
    const dispatch::Miembro* m = dispatch::Buscar(clase, nombre);
    return m ? m->ranura : 0;
}

Variant Objeto(std::shared_ptr<Object> objeto) { return Variant(std::move(objeto)); }

// The host's data object with its transactions counted.
class DataObjectsContados : public host::DataObjects {
public:
    explicit DataObjectsContados(std::shared_ptr<host::DataObjects> real) : real_(std::move(real)) {}
    std::shared_ptr<host::Connection> ADOCnn() const override { return real_->ADOCnn(); }
    Variant IniciarTransaccion() override {
        ++inicios;
        return real_->IniciarTransaccion();
    }
    Variant ConfirmarTransaccion(int flag) override {
        ++confirmaciones;
        return real_->ConfirmarTransaccion(flag);
    }
    Variant RevertirTransaccion(int flag) override { return real_->RevertirTransaccion(flag); }

    int inicios = 0;
    int confirmaciones = 0;

private:
    std::shared_ptr<host::DataObjects> real_;
};

TEST(DispatchTable, SlotsFollowTheInterfaceOrderAndKeepRoomForMembersStillToCome) {
    const auto& orden = dispatch::OrdenDeRanuras("cAcction");
    ASSERT_EQ(orden.size(), 77u);
    EXPECT_EQ(Ranura("cAcction", "ADOCnn"), 1);
    EXPECT_EQ(Ranura("cAcction", "eCat"), 2);
    EXPECT_EQ(Ranura("cAcction", "CrearObjetoNothing"), Ranura("cAcction", "guardar_ack_cancelacion") + 1);
    EXPECT_EQ(Ranura("cAcction", "PorcentajeIVATrasladadoEnVentaFinanciada"),
              Ranura("cAcction", "RegimenesFicalesCol") + 1);
    EXPECT_EQ(Ranura("cAcction", "EstablecerPorcentajeIVAVenta_enDCXC"), 77);

    // Whether or not the dialog members have joined the table, their slots
    // are kept: EliminarAprobacionFolios comes after Configuracion and
    // AgregarAprobacionFolios, isSet after EliminarInformeMensual.
    EXPECT_EQ(orden[5], "Configuracion");
    EXPECT_EQ(Ranura("cAcction", "EliminarAprobacionFolios"), 8);
    EXPECT_EQ(orden[27], "EliminarInformeMensual");
    EXPECT_EQ(Ranura("cAcction", "isSet"), 29);

    const auto& miembros = dispatch::MiembrosDe("cAcction");
    EXPECT_LE(miembros.size(), orden.size());
    EXPECT_TRUE(std::is_sorted(miembros.begin(), miembros.end(),
                               [](const auto& a, const auto& b) { return a.ranura < b.ranura; }));
    for (const auto& m : miembros) EXPECT_EQ(orden[static_cast<std::size_t>(m.ranura - 1)], m.nombre);
}

TEST(DispatchTable, DescribesKindsArgumentsAndDefaults) {
    const dispatch::Miembro* adocnn = dispatch::Buscar("cAcction", "adocnn");
    ASSERT_NE(adocnn, nullptr);
    EXPECT_EQ(adocnn->clase, dispatch::Clase::Propiedad);
    EXPECT_EQ(adocnn->resultado, dispatch::Tipo::Obj);
    EXPECT_EQ(adocnn->interfazResultado, "Connection");

    const dispatch::Miembro* tipo = dispatch::Buscar("cAcction", "TipoComprobanteAGenerar");
    ASSERT_NE(tipo, nullptr);
    EXPECT_EQ(tipo->clase, dispatch::Clase::PropiedadSoloLectura);
    EXPECT_EQ(tipo->resultado, dispatch::Tipo::TipoCFD);

    const dispatch::Miembro* permitir = dispatch::Buscar("cAcction", "PermitirAcceso");
    ASSERT_NE(permitir, nullptr);
    ASSERT_EQ(permitir->argumentos.size(), 3u);
    EXPECT_EQ(permitir->argumentos[1].tipo, dispatch::Tipo::Obj);
    EXPECT_EQ(permitir->argumentos[1].interfaz, "Usuario");
    EXPECT_FALSE(permitir->argumentos[1].opcional);
    EXPECT_TRUE(permitir->argumentos[2].opcional);
    EXPECT_EQ(permitir->argumentos[2].omision, Variant(true));

    const dispatch::Miembro* formato = dispatch::Buscar("cAcction", "EstablecerHordanaTipoFormato");
    ASSERT_NE(formato, nullptr);
    EXPECT_EQ(formato->argumentos[1].tipo, dispatch::Tipo::I16);
    EXPECT_EQ(formato->argumentos[2].interfaz, "cConceptoFacHordana");
    EXPECT_TRUE(formato->argumentos[2].opcional);
    EXPECT_FALSE(formato->argumentos[0].porReferencia);
    EXPECT_TRUE(dispatch::MiembrosDe("cNoExiste").empty());
    EXPECT_EQ(dispatch::MiembrosDe("CREGIMENFICAL").size(), 4u);
}

class Dispatch : public ::testing::Test {
protected:
    TestPlatform platform;
    CompanyDatabase db{CompanyDatabase::Datos::Demo};
    std::shared_ptr<DataObjectsContados> dataObjects = std::make_shared<DataObjectsContados>(db.dataObjects);
    cAcction facade;

    void SetUp() override {
        facade.SetDataObjects(dataObjects, std::make_shared<platform::CatalogoPaises>(db.cnn));
    }

    Variant Llamar(const std::string& nombre, std::vector<Variant> args = {}) {
        return Invocar(facade, nombre, args);
    }
};

TEST_F(Dispatch, AbsentOptionalArgumentsTakeTheirDefaults) {
    // CancelarCFD(5): boAsk and WithTrans are true, so the deletes run in a
    // transaction of their own.
    platform.ui.Responder(host::Respuesta::Si);
    EXPECT_EQ(Llamar("CancelarCFD", {5}), Variant(true));
    EXPECT_EQ(dataObjects->inicios, 1);
    EXPECT_EQ(dataObjects->confirmaciones, 1);
    EXPECT_EQ(db.Contar("ut_CFD WHERE Sys_PK=5"), 0);

    // Given as texts, the same arguments convert: WithTrans "0" is false.
    platform.ui.Responder(host::Respuesta::Si);
    EXPECT_EQ(Llamar("CancelarCFD", {"8", "-1", "0"}), Variant(true));
    EXPECT_EQ(dataObjects->inicios, 1);
    EXPECT_EQ(db.Contar("ut_CFD WHERE Sys_PK=8"), 0);

    // An object argument left out is no object: tf 0 needs none.
    EXPECT_EQ(Llamar("EstablecerHordanaTipoFormato", {9, 0}), Variant(true));
    EXPECT_EQ(Llamar("StrConfiguracionLocal", {"NoExiste"}), Variant(""));
}

TEST_F(Dispatch, ArgumentsThatDoNotConvertStopTheCallBeforeTheMemberRuns) {
    facade.LastErrorDescript = "anterior";
    EXPECT_EQ(FaultOf([&] { Llamar("PosibleCancelar", {"abc"}); }), 13);
    EXPECT_EQ(facade.LastErrorDescript, "anterior");
    EXPECT_EQ(FaultOf([&] { Llamar("CambiarEstadoEnBitacora", {1, 40000}); }), 6);
    EXPECT_EQ(FaultOf([&] { Llamar("ExisteCFD", {Variant::Null()}); }), 94);

    // The second argument of CancelarCFD does not convert: the first did,
    // but nothing ran.
    EXPECT_EQ(FaultOf([&] { Llamar("CancelarCFD", {5, "quizá"}); }), 13);
    EXPECT_EQ(db.Contar("ut_CFD WHERE Sys_PK=5"), 1);
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(Dispatch, ObjectArgumentsMustBeOfTheInterfaceTheMemberExpects) {
    auto usuario = std::make_shared<platform::UsuarioConGrupos>(std::vector<std::int32_t>{3, 7});
    EXPECT_EQ(Llamar("PermitirAcceso", {"NVCA316x", Objeto(usuario)}), Variant(true));

    // A connection where a user belongs, and a text where an object belongs.
    EXPECT_EQ(FaultOf([&] { Llamar("PermitirAcceso", {"NVCA316x", Objeto(db.cnn)}); }), 13);
    EXPECT_EQ(FaultOf([&] { Llamar("PermitirAcceso", {"NVCA316x", "usuario"}); }), 13);

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
    EXPECT_EQ(FaultOf([&] { Llamar("EstablecerHordanaTipoFormato", {9, 2, Objeto(usuario)}); }), 13);
}

TEST_F(Dispatch, CountsAndNamesAreCheckedAsAutomationChecksThem) {
    EXPECT_EQ(FaultOf([&] { Llamar("ExisteCFD"); }), 449);
    EXPECT_EQ(FaultOf([&] { Llamar("CancelarCFD"); }), 449);
    EXPECT_EQ(FaultOf([&] { Llamar("ExisteCFD", {1, 2}); }), 450);
    EXPECT_EQ(FaultOf([&] { Llamar("ApplicationName", {"x"}); }), 450);
    EXPECT_EQ(FaultOf([&] { Llamar("ExisteCFDI", {1}); }), 438);
    EXPECT_EQ(FaultOf([&] { Llamar("Existe CFD", {1}); }), 438);
    EXPECT_EQ(FaultOf([&] { dispatch::Escribir(facade, "TipoComprobanteAGenerar", 3); }), 438);
    EXPECT_EQ(FaultOf([&] { dispatch::Escribir(facade, "ExisteCFD", 3); }), 438);

    // Case does not matter.
    EXPECT_EQ(Llamar("existecfd", {1}), Variant(true));
    EXPECT_EQ(Leer(facade, "TIPOCOMPROBANTEAGENERAR"), Variant::Integer(2));
}

TEST_F(Dispatch, ResultsCrossAsAutomationValues) {
    const Variant existe = Llamar("ExisteCFD", {1});
    EXPECT_EQ(existe.Type(), VarType::Boolean);
    EXPECT_EQ(CInt(existe), -1);
    EXPECT_EQ(CInt(Llamar("ExisteCFD", {14})), 0);
    EXPECT_EQ(CStr(existe), "True");

    EXPECT_EQ(Leer(facade, "TipoComprobanteAGenerar").Type(), VarType::Integer);
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
    dispatch::Escribir(facade, "ApplicationName", "Tienda");
    EXPECT_EQ(facade.ApplicationName, "Tienda");
    dispatch::Escribir(facade, "AppReportsPath", 12);
    EXPECT_EQ(Leer(facade, "appreportspath"), Variant("12"));

    EXPECT_EQ(Leer(facade, "ADOCnn").AsObject(), db.dataObjects->ADOCnn());
    EXPECT_EQ(FaultOf([&] { dispatch::Escribir(facade, "ADOCnn", Objeto(db.dataObjects)); }), 13);
    dispatch::Escribir(facade, "ADOCnn", Variant::Null());
    EXPECT_FALSE(facade.ADOCnn);
    dispatch::Escribir(facade, "ADOCnn", Objeto(db.cnn));
    EXPECT_EQ(facade.ADOCnn, db.cnn);
}

TEST_F(Dispatch, PresentsResultsForPeople) {
    using dispatch::Presentar;
    EXPECT_EQ(Presentar(Llamar("ExisteCFD", {1})), std::vector<std::string>{"Verdadero (-1)"});
    EXPECT_EQ(Presentar(Llamar("ExisteCFD", {14})), std::vector<std::string>{"Falso (0)"});
    EXPECT_EQ(Presentar(Llamar("CrearObjetoNothing")), std::vector<std::string>{"Nothing"});
    EXPECT_EQ(Presentar(Variant::Null()), std::vector<std::string>{"Null"});
    EXPECT_TRUE(Presentar(Variant()).empty());
    EXPECT_EQ(Presentar(Llamar("RegimenesFicalesCol")),
              (std::vector<std::string>{"2\tPersonas Morales con Fines no Lucrativos\t",
                                        "1\tRégimen General de Ley Personas Morales\tTítulo II de la Ley del ISR"}));
    EXPECT_EQ(Presentar(Objeto(std::make_shared<Coleccion>())), std::vector<std::string>{"(colección vacía)"});
}

TEST_F(Dispatch, TheSmallClassesHaveTablesOfTheirOwn) {
    EXPECT_EQ(Ranura("cRegimenFical", "setInfo"), 4);
    cRegimenFical regimen;
    std::vector<Variant> args{"7", "Régimen Simplificado", ""};
    EXPECT_TRUE(Invocar(regimen, "SETINFO", args).IsEmpty());
    EXPECT_EQ(Leer(regimen, "Sys_PK"), Variant::Long(7));
    EXPECT_EQ(regimen.Regimen, "Régimen Simplificado");
    std::vector<Variant> conNull{7, "R", Variant::Null()};
    EXPECT_EQ(FaultOf([&] { Invocar(regimen, "setInfo", conNull); }), 94);

    EXPECT_EQ(Ranura("cFolioOrigen", "lastError"), 5);
    EXPECT_EQ(Ranura("cFolioOrigen", "cargarInformacion_CFDI"), 7);
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

    EXPECT_EQ(dispatch::MiembrosDe("cConceptoFacHordana").size(), 13u);
    EXPECT_EQ(Ranura("cConceptoFacHordana", "ImpuestosB"), 13);
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
