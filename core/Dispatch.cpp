// The dispatch tables of the four public classes and the calls by name.
//
// A table entry names the member, its argument names and defaults; the kinds
// of arguments and result, and which arguments go by reference, are read off
// the C++ declaration of the member, so the table cannot drift from the
// class. Conversions are the platform's, from value/Convert.h (CCur for
// amounts besides the six of the interface).

#include "core/Dispatch.h"

#include <memory>
#include <optional>
#include <string_view>
#include <stdexcept>
#include <tuple>
#include <type_traits>
#include <unordered_map>
#include <utility>

#include "core/Coleccion.h"
#include "core/cAcction.h"
#include "host/Ado.h"
#include "host/Dorvex.h"
#include "host/HostObjects.h"
#include "host/Settings.h"
#include "rules/cConceptoFacHordana.h"
#include "rules/cFolioOrigen.h"
#include "rules/cRegimenFical.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora::dispatch {

namespace {

// The interface names an object argument or result is described by.
template <class T>
struct Interfaz;
template <>
struct Interfaz<Object> {
    static constexpr const char* nombre = "Object";
};
template <>
struct Interfaz<host::Connection> {
    static constexpr const char* nombre = "Connection";
};
template <>
struct Interfaz<host::Catalogo> {
    static constexpr const char* nombre = "Catalogo";
};
template <>
struct Interfaz<host::DataObjects> {
    static constexpr const char* nombre = "DataObjects";
};
template <>
struct Interfaz<host::GlobalVar> {
    static constexpr const char* nombre = "GlobalVar";
};
template <>
struct Interfaz<host::Usuario> {
    static constexpr const char* nombre = "Usuario";
};
template <>
struct Interfaz<cConceptoFacHordana> {
    static constexpr const char* nombre = "cConceptoFacHordana";
};
template <>
struct Interfaz<Coleccion> {
    static constexpr const char* nombre = "Coleccion";
};

// How a C++ type of a member crosses the interface: its kind, the conversion
// of an argument to it, and the Variant it gives as a result.
template <class T>
struct Rasgo;

template <>
struct Rasgo<std::int16_t> {
    static constexpr Tipo tipo = Tipo::I16;
    static std::int16_t De(const Variant& v) { return CInt(v); }
    static Variant A(std::int16_t x) { return Variant::Integer(x); }
};
template <>
struct Rasgo<std::int32_t> {
    static constexpr Tipo tipo = Tipo::I32;
    static std::int32_t De(const Variant& v) { return CLng(v); }
    static Variant A(std::int32_t x) { return Variant::Long(x); }
};
template <>
struct Rasgo<double> {
    static constexpr Tipo tipo = Tipo::F64;
    static double De(const Variant& v) { return CDbl(v); }
    static Variant A(double x) { return Variant(x); }
};
template <>
struct Rasgo<Currency> {
    static constexpr Tipo tipo = Tipo::Cur;
    static Currency De(const Variant& v) { return CCur(v); }
    static Variant A(Currency x) { return Variant(x); }
};
template <>
struct Rasgo<bool> {
    static constexpr Tipo tipo = Tipo::Bool;
    static bool De(const Variant& v) { return CBool(v); }
    static Variant A(bool x) { return Variant(x); }
};
template <>
struct Rasgo<std::string> {
    static constexpr Tipo tipo = Tipo::Str;
    static std::string De(const Variant& v) { return CStr(v); }
    static Variant A(std::string x) { return Variant(std::move(x)); }
};
template <>
struct Rasgo<Date> {
    static constexpr Tipo tipo = Tipo::Date;
    static Date De(const Variant& v) { return CDate(v); }
    static Variant A(Date x) { return Variant(x); }
};
template <>
struct Rasgo<Variant> {
    static constexpr Tipo tipo = Tipo::Var;
    static Variant De(const Variant& v) { return v; }
    static Variant A(Variant x) { return x; }
};
template <>
struct Rasgo<enumTipoCFD> {
    static constexpr Tipo tipo = Tipo::TipoCFD;
    static enumTipoCFD De(const Variant& v) { return static_cast<enumTipoCFD>(CInt(v)); }
    static Variant A(enumTipoCFD x) { return Variant::Integer(static_cast<std::int16_t>(x)); }
};
template <class T>
struct Rasgo<std::shared_ptr<T>> {
    static constexpr Tipo tipo = Tipo::Obj;
    static constexpr const char* interfaz = Interfaz<T>::nombre;
    static std::shared_ptr<T> De(const Variant& v) {
        if (v.IsEmpty() || v.IsNull()) return nullptr;
        if (!v.IsObject()) throw TypeMismatch();
        const std::shared_ptr<Object>& objeto = v.AsObject();
        if (!objeto) return nullptr;
        auto como = std::dynamic_pointer_cast<T>(objeto);
        if (!como) throw TypeMismatch();
        return como;
    }
    static Variant A(const std::shared_ptr<T>& x) { return Variant(std::static_pointer_cast<Object>(x)); }
};

template <class T>
using Base = std::remove_cvref_t<T>;

template <class T>
std::string InterfazDe() {
    if constexpr (Rasgo<Base<T>>::tipo == Tipo::Obj) {
        return Rasgo<Base<T>>::interfaz;
    } else {
        return {};
    }
}

// An argument a non-const lvalue reference in C++ goes by reference.
template <class P>
constexpr bool kPorReferencia = std::is_lvalue_reference_v<P> && !std::is_const_v<std::remove_reference_t<P>>;

// A name in a table entry: required, or optional with its default.
struct Nombre {
    Nombre(const char* n) : nombre(n) {}  // implicit, so a table lists plain names as texts
    Nombre(const char* n, Variant d) : nombre(n), omision(std::move(d)) {}
    std::string nombre;
    std::optional<Variant> omision;
};

// The default of an object argument that is left out: no object.
Variant Nada() { return Variant(std::shared_ptr<Object>()); }

template <class C, class R, class... P, std::size_t... I>
Variant Ejecutar(C& objeto, R (C::*metodo)(P...), std::vector<Variant>& a, std::index_sequence<I...>) {
    // Braced initialisation converts from the first argument to the last.
    std::tuple<Base<P>...> valores{Rasgo<Base<P>>::De(a[I])...};
    Variant resultado;
    if constexpr (std::is_void_v<R>) {
        (objeto.*metodo)(std::get<I>(valores)...);
    } else {
        resultado = Rasgo<Base<R>>::A((objeto.*metodo)(std::get<I>(valores)...));
    }
    ((kPorReferencia<P> ? void(a[I] = Rasgo<Base<P>>::A(std::get<I>(valores))) : void()), ...);
    return resultado;
}

template <class C, class R, class... P>
Miembro Metodo(const char* nombre, R (C::*metodo)(P...), std::vector<Nombre> nombres = {}) {
    if (nombres.size() != sizeof...(P)) {
        throw std::logic_error(std::string("dispatch: los nombres de argumentos de ") + nombre +
                               " no corresponden a su declaración");
    }
    Miembro m;
    m.nombre = nombre;
    m.clase = Clase::Metodo;
    if constexpr (!std::is_void_v<R>) {
        m.resultado = Rasgo<Base<R>>::tipo;
        m.interfazResultado = InterfazDe<R>();
    }
    const Tipo tipos[] = {Rasgo<Base<P>>::tipo..., Tipo::Ninguno};
    const std::string interfaces[] = {InterfazDe<P>()..., std::string()};
    const bool porReferencia[] = {kPorReferencia<P>..., false};
    for (std::size_t i = 0; i < nombres.size(); ++i) {
        Argumento arg;
        arg.nombre = nombres[i].nombre;
        arg.tipo = tipos[i];
        arg.interfaz = interfaces[i];
        arg.opcional = nombres[i].omision.has_value();
        if (arg.opcional) arg.omision = *nombres[i].omision;
        arg.porReferencia = porReferencia[i];
        m.argumentos.push_back(std::move(arg));
    }
    m.llamar = [metodo](Object& objeto, std::vector<Variant>& a) {
        return Ejecutar(static_cast<C&>(objeto), metodo, a, std::index_sequence_for<P...>{});
    };
    return m;
}

// A property kept in a data member: read and written.
template <class C, class T>
Miembro Propiedad(const char* nombre, T C::*campo) {
    Miembro m;
    m.nombre = nombre;
    m.clase = Clase::Propiedad;
    m.resultado = Rasgo<T>::tipo;
    m.interfazResultado = InterfazDe<T>();
    m.llamar = [campo](Object& objeto, std::vector<Variant>&) { return Rasgo<T>::A(static_cast<C&>(objeto).*campo); };
    m.escribir = [campo](Object& objeto, const Variant& valor) {
        static_cast<C&>(objeto).*campo = Rasgo<T>::De(valor);
    };
    return m;
}

// A read-only property that the class computes.
template <class C, class R>
Miembro SoloLectura(const char* nombre, R (C::*metodo)()) {
    Miembro m = Metodo(nombre, metodo);
    m.clase = Clase::PropiedadSoloLectura;
    return m;
}

Miembro ConInterfaz(Miembro m, std::string interfaz) {
    m.interfazResultado = std::move(interfaz);
    return m;
}

// Member names are ASCII, so folding the ASCII letters is all a lookup
// without regard to case needs: a name with other letters matches nothing
// either way.
std::string Clave(std::string_view nombre) {
    std::string clave(nombre);
    for (char& c : clave) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return clave;
}

struct Tabla {
    std::string clase;
    std::vector<std::string> orden;
    std::vector<Miembro> miembros;
    std::unordered_map<std::string, std::size_t> indice;  // by Clave of the name

    const Miembro& Exigir(const std::string& nombre) const {
        auto encontrado = indice.find(Clave(nombre));
        if (encontrado == indice.end()) throw MiembroNoSoportado();
        return miembros[encontrado->second];
    }
};

// Gives each member the slot of its name in the complete order and keeps the
// members in slot order.
Tabla Construir(std::string clase, std::vector<std::string> orden, std::vector<Miembro> miembros) {
    Tabla tabla{std::move(clase), std::move(orden), {}, {}};
    std::vector<std::optional<Miembro>> porRanura(tabla.orden.size());
    for (Miembro& m : miembros) {
        std::size_t i = 0;
        while (i < tabla.orden.size() && tabla.orden[i] != m.nombre) ++i;
        if (i == tabla.orden.size() || porRanura[i]) {
            throw std::logic_error("dispatch: " + m.nombre + " no tiene ranura propia en " + tabla.clase);
        }
        m.ranura = static_cast<int>(i) + 1;
        porRanura[i] = std::move(m);
    }
    for (auto& m : porRanura) {
        if (!m) continue;
        tabla.indice.emplace(Clave(m->nombre), tabla.miembros.size());
        tabla.miembros.push_back(std::move(*m));
    }
    return tabla;
}

const Tabla& TablaCAcction() {
    static const Tabla tabla = Construir(
        "cAcction",
        {"ADOCnn",
         "eCat",
         "GlobalVar",
         "AppReportsPath",
         "setObjects",
         "Configuracion",
         "AgregarAprobacionFolios",
         "EliminarAprobacionFolios",
         "ModificarAprobacionFolios",
         "AgregarCertificado",
         "EliminarCertificado",
         "ModificarCertificado",
         "DataObjects",
         "LastErrorDescript",
         "SetDataObjects",
         "GenerarInformeMensual",
         "VerInformesMensuales",
         "DecryptString",
         "PosibleCancelar",
         "CancelarCFD",
         "databasetype",
         "ReplaceMacros",
         "getAddress",
         "PosibleModificarAprobacionFolios",
         "PosibleModificarCertificado",
         "LoadGlobalVar",
         "CambiarEstadoEnBitacora",
         "EliminarInformeMensual",
         "isSet",
         "ExisteCFD",
         "DocumentoAprobadoParaCFD",
         "PermitirAcceso",
         "ShowProgress",
         "CloseProgress",
         "SolicitarFormaPago",
         "AppRepositoryPath",
         "ApplicationName",
         "ValorCampo",
         "StrConfiguracionLocal",
         "DblConfiguracionLocal",
         "BoolConfiguracionLocal",
         "GuardarCopiaComprobanteXML",
         "GuardarCopiaComprobante",
         "TipoComprobanteAGenerar",
         "TipoComprobanteAGenerarInt",
         "NumeroDecimalesXML",
         "BlockVentaCFDI_CBB",
         "BlockCXC_CFDI_CBB",
         "ExisteCFD_CXC",
         "DocumentoAprobadoParaCFD_CXC",
         "FolioAprobadoCBB",
         "FolioAprobadoCBB_CXC",
         "ConfigurarRepresentacionImpresa",
         "ConfigurarRepresentacionImpresaCBB",
         "ConfiguracionPrincipal",
         "TipoDocumento",
         "TipoDocumento_CXC",
         "ObtenerFechaHora",
         "ShowSaveAs",
         "DocumentoAprobadoParaCFDI",
         "DocumentoAprobadoParaCFDI_CXC",
         "RangoFoliosCBB",
         "AgregarFoliosCBB",
         "EliminarFoliosCBB",
         "ModificarFoliosCBB",
         "MarcarCFDIsCancelado",
         "asignarTiposImpuesto",
         "CambiarEstadoEnBitacoraCXC",
         "guardar_ack_cancelacion",
         "CrearObjetoNothing",
         "RegimenesFicalesCol",
         "PorcentajeIVATrasladadoEnVentaFinanciada",
         "AsistenteConfiguracion",
         "FormaGenerarComprobanteHordana",
         "EstablecerHordanaTipoFormato",
         "EstablecerUnidadDCXC",
         "EstablecerPorcentajeIVAVenta_enDCXC"},
        // The members the class has today. Those of subsystems still to come
        // join with them; their slots above are kept for them.
        {Propiedad("ADOCnn", &cAcction::ADOCnn),
         Propiedad("eCat", &cAcction::eCat),
         Propiedad("GlobalVar", &cAcction::GlobalVar),
         Propiedad("AppReportsPath", &cAcction::AppReportsPath),
         Metodo("setObjects", &cAcction::setObjects, {"cnn", "objCatNV"}),
         Metodo("EliminarAprobacionFolios", &cAcction::EliminarAprobacionFolios, {"Sys_PK", {"boAsk", true}}),
         Metodo("EliminarCertificado", &cAcction::EliminarCertificado, {"Sys_PK", {"boAsk", true}}),
         Metodo("Configuracion", &cAcction::Configuracion),
         Metodo("AgregarAprobacionFolios", &cAcction::AgregarAprobacionFolios),
         Metodo("ModificarAprobacionFolios", &cAcction::ModificarAprobacionFolios, {"Sys_PK"}),
         Metodo("AgregarCertificado", &cAcction::AgregarCertificado),
         Metodo("ModificarCertificado", &cAcction::ModificarCertificado, {"Sys_PK"}),
         Propiedad("DataObjects", &cAcction::DataObjects),
         Propiedad("LastErrorDescript", &cAcction::LastErrorDescript),
         Metodo("SetDataObjects", &cAcction::SetDataObjects, {"objDorvex", "objCatNV"}),
         Metodo("GenerarInformeMensual", &cAcction::GenerarInformeMensual,
                {{"mes", -1}, {"anio", -1}, {"boBloquear", false}}),
         Metodo("VerInformesMensuales", &cAcction::VerInformesMensuales,
                {{"permitirRegenerar", true}, {"PermitirEliminar", true}}),
         Metodo("DecryptString", &cAcction::DecryptString, {"str"}),
         Metodo("PosibleCancelar", &cAcction::PosibleCancelar, {"pkCFD"}),
         Metodo("CancelarCFD", &cAcction::CancelarCFD, {"pkCFD", {"boAsk", true}, {"WithTrans", true}}),
         Metodo("databasetype", &cAcction::databasetype, {"oConnection"}),
         Metodo("ReplaceMacros", &cAcction::ReplaceMacros, {"str", "sMacro", "sValue"}),
         Metodo("getAddress", &cAcction::getAddress, {"sdefault"}),
         Metodo("PosibleModificarAprobacionFolios", &cAcction::PosibleModificarAprobacionFolios, {"pkCFDFolio"}),
         Metodo("PosibleModificarCertificado", &cAcction::PosibleModificarCertificado, {"pkCFDInfo"}),
         Metodo("LoadGlobalVar", &cAcction::LoadGlobalVar),
         Metodo("CambiarEstadoEnBitacora", &cAcction::CambiarEstadoEnBitacora, {"pkventa", "StatusAdministrativo"}),
         Metodo("EliminarInformeMensual", &cAcction::EliminarInformeMensual,
                {"mes", "anio", {"WithTrans", true}, {"boAsk", true}}),
         Metodo("isSet", &cAcction::isSet),
         Metodo("ExisteCFD", &cAcction::ExisteCFD, {"pkventa"}),
         Metodo("DocumentoAprobadoParaCFD", &cAcction::DocumentoAprobadoParaCFD, {"pkventa"}),
         Metodo("PermitirAcceso", &cAcction::PermitirAcceso, {"sKey", "oUser", {"Alerta", true}}),
         Metodo("ShowProgress", &cAcction::ShowProgress,
                {"scmd", "value", {"Title", "Procesando"}, {"min", 0}, {"max", 100}}),
         Metodo("CloseProgress", &cAcction::CloseProgress, {{"complete", true}}),
         Metodo("SolicitarFormaPago", &cAcction::SolicitarFormaPago),
         Propiedad("AppRepositoryPath", &cAcction::AppRepositoryPath),
         Propiedad("ApplicationName", &cAcction::ApplicationName),
         Metodo("ValorCampo", &cAcction::ValorCampo, {"sql", "campo"}),
         Metodo("StrConfiguracionLocal", &cAcction::StrConfiguracionLocal, {"clave", {"defaultValue", ""}}),
         Metodo("DblConfiguracionLocal", &cAcction::DblConfiguracionLocal, {"clave", {"defaultValue", ""}}),
         Metodo("BoolConfiguracionLocal", &cAcction::BoolConfiguracionLocal, {"clave", {"defaultValue", ""}}),
         Metodo("GuardarCopiaComprobanteXML", &cAcction::GuardarCopiaComprobanteXML, {"sXML", "nombre"}),
         Metodo("GuardarCopiaComprobante", &cAcction::GuardarCopiaComprobante, {"sArchivo", {"nombre", ""}}),
         SoloLectura("TipoComprobanteAGenerar", &cAcction::TipoComprobanteAGenerar),
         SoloLectura("TipoComprobanteAGenerarInt", &cAcction::TipoComprobanteAGenerarInt),
         SoloLectura("NumeroDecimalesXML", &cAcction::NumeroDecimalesXML),
         Metodo("BlockVentaCFDI_CBB", &cAcction::BlockVentaCFDI_CBB, {"pkventa"}),
         Metodo("BlockCXC_CFDI_CBB", &cAcction::BlockCXC_CFDI_CBB, {"pkcxc"}),
         Metodo("ExisteCFD_CXC", &cAcction::ExisteCFD_CXC, {"pkcxc"}),
         Metodo("DocumentoAprobadoParaCFD_CXC", &cAcction::DocumentoAprobadoParaCFD_CXC, {"pkcxc"}),
         Metodo("FolioAprobadoCBB", &cAcction::FolioAprobadoCBB, {"pkventa"}),
         Metodo("FolioAprobadoCBB_CXC", &cAcction::FolioAprobadoCBB_CXC, {"pkcxc"}),
         Metodo("ConfigurarRepresentacionImpresa", &cAcction::ConfigurarRepresentacionImpresa),
         Metodo("ConfigurarRepresentacionImpresaCBB", &cAcction::ConfigurarRepresentacionImpresaCBB),
         Metodo("ConfiguracionPrincipal", &cAcction::ConfiguracionPrincipal),
         Metodo("TipoDocumento", &cAcction::TipoDocumento, {"pkventa"}),
         Metodo("TipoDocumento_CXC", &cAcction::TipoDocumento_CXC, {"pkcxc"}),
         Metodo("ObtenerFechaHora", &cAcction::ObtenerFechaHora, {"fecha", "hora"}),
         Metodo("ShowSaveAs", &cAcction::ShowSaveAs, {"filter", {"fileName", ""}}),
         Metodo("DocumentoAprobadoParaCFDI", &cAcction::DocumentoAprobadoParaCFDI, {"pkventa"}),
         Metodo("DocumentoAprobadoParaCFDI_CXC", &cAcction::DocumentoAprobadoParaCFDI_CXC, {"pkcxc"}),
         Metodo("RangoFoliosCBB", &cAcction::RangoFoliosCBB),
         Metodo("AgregarFoliosCBB", &cAcction::AgregarFoliosCBB),
         Metodo("EliminarFoliosCBB", &cAcction::EliminarFoliosCBB, {"pk"}),
         Metodo("ModificarFoliosCBB", &cAcction::ModificarFoliosCBB, {"pk"}),
         Metodo("MarcarCFDIsCancelado", &cAcction::MarcarCFDIsCancelado, {"uuids"}),
         Metodo("asignarTiposImpuesto", &cAcction::asignarTiposImpuesto),
         Metodo("CambiarEstadoEnBitacoraCXC", &cAcction::CambiarEstadoEnBitacoraCXC,
                {"pkcxc", "StatusAdministrativo"}),
         Metodo("guardar_ack_cancelacion", &cAcction::guardar_ack_cancelacion, {"ack", "cfdipk"}),
         Metodo("CrearObjetoNothing", &cAcction::CrearObjetoNothing),
         ConInterfaz(Metodo("RegimenesFicalesCol", &cAcction::RegimenesFicalesCol), "Coleccion de cRegimenFical"),
         Metodo("PorcentajeIVATrasladadoEnVentaFinanciada", &cAcction::PorcentajeIVATrasladadoEnVentaFinanciada,
                {"pkventa"}),
         Metodo("AsistenteConfiguracion", &cAcction::AsistenteConfiguracion),
         ConInterfaz(Metodo("FormaGenerarComprobanteHordana", &cAcction::FormaGenerarComprobanteHordana),
                     "cConceptoFacHordana"),
         Metodo("EstablecerHordanaTipoFormato", &cAcction::EstablecerHordanaTipoFormato,
                {"pkventa", "tf", {"DConceptos", Nada()}}),
         Metodo("EstablecerUnidadDCXC", &cAcction::EstablecerUnidadDCXC, {"pkcxc", "sunidad"}),
         Metodo("EstablecerPorcentajeIVAVenta_enDCXC", &cAcction::EstablecerPorcentajeIVAVenta_enDCXC,
                {"pkcxc", "porcentajeIVA"})});
    return tabla;
}

const Tabla& TablaRegimen() {
    static const Tabla tabla = Construir("cRegimenFical", {"Sys_PK", "Regimen", "Notas", "setInfo"},
                                         {Propiedad("Sys_PK", &cRegimenFical::Sys_PK),
                                          Propiedad("Regimen", &cRegimenFical::Regimen),
                                          Propiedad("Notas", &cRegimenFical::Notas),
                                          Metodo("setInfo", &cRegimenFical::setInfo,
                                                 {"lsyspk", "sregimen", "snotas"})});
    return tabla;
}

const Tabla& TablaFolioOrigen() {
    static const Tabla tabla = Construir(
        "cFolioOrigen",
        {"FolioFiscalOrig", "SerieFolioFiscalOrig", "FechaFolioFiscalOrig", "MontoFolioFiscalOrig", "lastError",
         "cargarInformacion_CFD", "cargarInformacion_CFDI"},
        {Propiedad("FolioFiscalOrig", &cFolioOrigen::FolioFiscalOrig),
         Propiedad("SerieFolioFiscalOrig", &cFolioOrigen::SerieFolioFiscalOrig),
         Propiedad("FechaFolioFiscalOrig", &cFolioOrigen::FechaFolioFiscalOrig),
         Propiedad("MontoFolioFiscalOrig", &cFolioOrigen::MontoFolioFiscalOrig),
         Propiedad("lastError", &cFolioOrigen::lastError),
         Metodo("cargarInformacion_CFD", &cFolioOrigen::cargarInformacion_CFD, {"pkVentaOrigen", "oADOCnn"}),
         Metodo("cargarInformacion_CFDI", &cFolioOrigen::cargarInformacion_CFDI, {"pkVentaOrigen", "oADOCnn"})});
    return tabla;
}

const Tabla& TablaConcepto() {
    using C = cConceptoFacHordana;
    static const Tabla tabla = Construir(
        "cConceptoFacHordana",
        {"Resumido", "UnidadC1", "ConceptoResumido", "CantidadA", "PrecioA", "DescuentosA", "ImpuestosA", "UnidadC2",
         "ConceptoResumidoCeroIVA", "CantidadB", "PrecioB", "DescuentosB", "ImpuestosB"},
        {Propiedad("Resumido", &C::Resumido), Propiedad("UnidadC1", &C::UnidadC1),
         Propiedad("ConceptoResumido", &C::ConceptoResumido), Propiedad("CantidadA", &C::CantidadA),
         Propiedad("PrecioA", &C::PrecioA), Propiedad("DescuentosA", &C::DescuentosA),
         Propiedad("ImpuestosA", &C::ImpuestosA), Propiedad("UnidadC2", &C::UnidadC2),
         Propiedad("ConceptoResumidoCeroIVA", &C::ConceptoResumidoCeroIVA), Propiedad("CantidadB", &C::CantidadB),
         Propiedad("PrecioB", &C::PrecioB), Propiedad("DescuentosB", &C::DescuentosB),
         Propiedad("ImpuestosB", &C::ImpuestosB)});
    return tabla;
}

const std::vector<const Tabla*>& Tablas() {
    static const std::vector<const Tabla*> tablas = {&TablaCAcction(), &TablaRegimen(), &TablaFolioOrigen(),
                                                     &TablaConcepto()};
    return tablas;
}

const Tabla* TablaDe(const std::string& clase) {
    for (const Tabla* tabla : Tablas()) {
        if (EqualText(tabla->clase, clase)) return tabla;
    }
    return nullptr;
}

Variant Llamar(const Tabla& tabla, Object& objeto, const std::string& nombre, std::vector<Variant>& argumentos) {
    const Miembro& m = tabla.Exigir(nombre);
    const std::size_t dados = argumentos.size();
    if (dados > m.argumentos.size()) throw NumeroDeArgumentos();
    // All given: the member works on the caller's vector, so by-reference
    // arguments land there directly.
    if (dados == m.argumentos.size()) return m.llamar(objeto, argumentos);

    std::vector<Variant> completos(argumentos);
    for (std::size_t i = dados; i < m.argumentos.size(); ++i) {
        if (!m.argumentos[i].opcional) throw ArgumentoNoOpcional();
        completos.push_back(m.argumentos[i].omision);
    }
    Variant resultado = m.llamar(objeto, completos);
    for (std::size_t i = 0; i < dados; ++i) {
        if (m.argumentos[i].porReferencia) argumentos[i] = std::move(completos[i]);
    }
    return resultado;
}

Variant LeerEn(const Tabla& tabla, Object& objeto, const std::string& nombre) {
    std::vector<Variant> ninguno;
    return Llamar(tabla, objeto, nombre, ninguno);
}

void EscribirEn(const Tabla& tabla, Object& objeto, const std::string& nombre, const Variant& valor) {
    const Miembro& m = tabla.Exigir(nombre);
    if (!m.escribir) throw MiembroNoSoportado();
    m.escribir(objeto, valor);
}

// One value on one line.
std::string Linea(const Variant& valor) {
    switch (valor.Type()) {
        case VarType::Empty: return "";
        case VarType::Null: return "Null";
        case VarType::Boolean: return valor.AsBoolean() ? "Verdadero (-1)" : "Falso (0)";
        case VarType::Bytes: return "(" + std::to_string(valor.AsBytes().size()) + " bytes)";
        case VarType::Object: return valor.AsObject() ? "(objeto)" : "Nothing";
        default: return CStr(valor);
    }
}

// The properties of an object of one of the small classes, one line each.
void PresentarPropiedades(const Tabla& tabla, Object& objeto, std::vector<std::string>& lineas) {
    for (const Miembro& m : tabla.miembros) {
        if (m.clase == Clase::Metodo) continue;
        lineas.push_back(m.nombre + " = " + Linea(LeerEn(tabla, objeto, m.nombre)));
    }
}

void PresentarEn(const Variant& valor, std::vector<std::string>& lineas) {
    if (valor.IsEmpty()) return;
    if (!valor.IsObject() || !valor.AsObject()) {
        lineas.push_back(Linea(valor));
        return;
    }
    Object& objeto = *valor.AsObject();
    if (auto* coleccion = dynamic_cast<Coleccion*>(&objeto)) {
        if (coleccion->Count() == 0) lineas.emplace_back("(colección vacía)");
        for (const Variant& item : *coleccion) PresentarEn(item, lineas);
    } else if (auto* regimen = dynamic_cast<cRegimenFical*>(&objeto)) {
        lineas.push_back(std::to_string(regimen->Sys_PK) + "\t" + regimen->Regimen + "\t" + regimen->Notas);
    } else if (dynamic_cast<cFolioOrigen*>(&objeto) != nullptr) {
        PresentarPropiedades(TablaFolioOrigen(), objeto, lineas);
    } else if (dynamic_cast<cConceptoFacHordana*>(&objeto) != nullptr) {
        PresentarPropiedades(TablaConcepto(), objeto, lineas);
    } else {
        lineas.push_back(Linea(valor));
    }
}

}  // namespace

const char* NombreTipo(Tipo tipo) {
    switch (tipo) {
        case Tipo::Ninguno: return "";
        case Tipo::I16: return "i16";
        case Tipo::I32: return "i32";
        case Tipo::F64: return "f64";
        case Tipo::Cur: return "cur";
        case Tipo::Bool: return "bool";
        case Tipo::Str: return "str";
        case Tipo::Date: return "date";
        case Tipo::Var: return "var";
        case Tipo::Obj: return "obj";
        case Tipo::TipoCFD: return "enumTipoCFD";
    }
    return "";
}

const char* NombreClase(Clase clase) {
    switch (clase) {
        case Clase::Propiedad: return "propiedad";
        case Clase::PropiedadSoloLectura: return "propiedad de solo lectura";
        case Clase::Metodo: return "método";
    }
    return "";
}

Fault MiembroNoSoportado() { return {438, "Object doesn't support this property or method"}; }
Fault ArgumentoNoOpcional() { return {449, "Argument not optional"}; }
Fault NumeroDeArgumentos() { return {450, "Wrong number of arguments or invalid property assignment"}; }

const std::vector<std::string>& Clases() {
    static const std::vector<std::string> clases = [] {
        std::vector<std::string> nombres;
        for (const Tabla* tabla : Tablas()) nombres.push_back(tabla->clase);
        return nombres;
    }();
    return clases;
}

const std::vector<Miembro>& MiembrosDe(const std::string& clase) {
    static const std::vector<Miembro> ninguno;
    const Tabla* tabla = TablaDe(clase);
    return tabla ? tabla->miembros : ninguno;
}

const std::vector<std::string>& OrdenDeRanuras(const std::string& clase) {
    static const std::vector<std::string> ninguno;
    const Tabla* tabla = TablaDe(clase);
    return tabla ? tabla->orden : ninguno;
}

const Miembro* Buscar(const std::string& clase, const std::string& nombre) {
    const Tabla* tabla = TablaDe(clase);
    if (!tabla) return nullptr;
    auto encontrado = tabla->indice.find(Clave(nombre));
    return encontrado == tabla->indice.end() ? nullptr : &tabla->miembros[encontrado->second];
}

Variant Invocar(cAcction& objeto, const std::string& nombre, std::vector<Variant>& argumentos) {
    return Llamar(TablaCAcction(), objeto, nombre, argumentos);
}
Variant Invocar(cRegimenFical& objeto, const std::string& nombre, std::vector<Variant>& argumentos) {
    return Llamar(TablaRegimen(), objeto, nombre, argumentos);
}
Variant Invocar(cFolioOrigen& objeto, const std::string& nombre, std::vector<Variant>& argumentos) {
    return Llamar(TablaFolioOrigen(), objeto, nombre, argumentos);
}
Variant Invocar(cConceptoFacHordana& objeto, const std::string& nombre, std::vector<Variant>& argumentos) {
    return Llamar(TablaConcepto(), objeto, nombre, argumentos);
}

Variant Leer(cAcction& objeto, const std::string& nombre) { return LeerEn(TablaCAcction(), objeto, nombre); }
Variant Leer(cRegimenFical& objeto, const std::string& nombre) { return LeerEn(TablaRegimen(), objeto, nombre); }
Variant Leer(cFolioOrigen& objeto, const std::string& nombre) { return LeerEn(TablaFolioOrigen(), objeto, nombre); }
Variant Leer(cConceptoFacHordana& objeto, const std::string& nombre) {
    return LeerEn(TablaConcepto(), objeto, nombre);
}

void Escribir(cAcction& objeto, const std::string& nombre, const Variant& valor) {
    EscribirEn(TablaCAcction(), objeto, nombre, valor);
}
void Escribir(cRegimenFical& objeto, const std::string& nombre, const Variant& valor) {
    EscribirEn(TablaRegimen(), objeto, nombre, valor);
}
void Escribir(cFolioOrigen& objeto, const std::string& nombre, const Variant& valor) {
    EscribirEn(TablaFolioOrigen(), objeto, nombre, valor);
}
void Escribir(cConceptoFacHordana& objeto, const std::string& nombre, const Variant& valor) {
    EscribirEn(TablaConcepto(), objeto, nombre, valor);
}

std::vector<std::string> Presentar(const Variant& valor) {
    std::vector<std::string> lineas;
    PresentarEn(valor, lineas);
    return lineas;
}

}  // namespace celdora::dispatch
