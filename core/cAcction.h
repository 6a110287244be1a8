#pragma once

// The library's one public automation class. The host creates one, binds it
// to its database and objects, and asks it about documents for as long as it
// works with that company. Each member is defined in the folder of the
// subsystem whose behaviour it carries: core/ for binding, data, settings and
// protected strings; rules/ for the document rules.

#include <cstdint>
#include <memory>
#include <string>

#include "core/Coleccion.h"
#include "host/Ado.h"
#include "host/Dorvex.h"
#include "host/HostObjects.h"
#include "host/Settings.h"
#include "value/Variant.h"

namespace celdora {

class cConceptoFacHordana;

// The comprobante kinds.
enum enumTipoCFD : std::int16_t { cCFD = 1, cCFDI = 2, cCBB = 3, cCFDI_CBB = 4, cPapel = 5 };

class cAcction : public Object {
public:
    cAcction();
    // The terminate step: hands GlobalVar a new unopened connection so that it
    // lets go of the host's, then drops it. Failures are swallowed.
    ~cAcction() override;
    cAcction(const cAcction&) = delete;
    cAcction& operator=(const cAcction&) = delete;

    // State, all of it public as the host sees it.
    std::shared_ptr<host::Connection> ADOCnn;
    std::shared_ptr<host::Catalogo> eCat;
    std::shared_ptr<host::DataObjects> DataObjects;
    std::shared_ptr<host::GlobalVar> GlobalVar;
    std::string AppRepositoryPath;
    std::string AppReportsPath;
    std::string ApplicationName;
    std::string LastErrorDescript;

    // Binding and lifetime.
    void SetDataObjects(std::shared_ptr<host::DataObjects> objDorvex, std::shared_ptr<host::Catalogo> objCatNV);
    void setObjects(std::shared_ptr<host::Connection> cnn, std::shared_ptr<host::Catalogo> objCatNV);
    void LoadGlobalVar();
    bool isSet();
    std::shared_ptr<Object> CrearObjetoNothing();

    // Data access.
    Variant ValorCampo(const std::string& sql, const std::string& campo);
    std::string ReplaceMacros(const std::string& str, const std::string& sMacro, const std::string& sValue);
    Date ObtenerFechaHora(Date fecha, Date hora);
    std::int16_t databasetype(const std::shared_ptr<host::Connection>& oConnection);

    // Per-machine settings.
    std::string StrConfiguracionLocal(const std::string& clave, const std::string& defaultValue = "");
    std::string DblConfiguracionLocal(const std::string& clave, const std::string& defaultValue = "");
    std::string BoolConfiguracionLocal(const std::string& clave, const std::string& defaultValue = "");

    // Protected strings.
    std::string DecryptString(const std::string& str);

    // Comprobante kinds per document.
    enumTipoCFD TipoComprobanteAGenerar();
    std::int16_t TipoComprobanteAGenerarInt();
    std::int16_t NumeroDecimalesXML();
    std::int16_t BlockVentaCFDI_CBB(std::int32_t pkventa);
    std::int16_t BlockCXC_CFDI_CBB(std::int32_t pkcxc);
    std::int16_t TipoDocumento(std::int32_t pkventa);
    std::int16_t TipoDocumento_CXC(std::int32_t pkcxc);

    // Existence and approval checks.
    bool ExisteCFD(std::int32_t pkventa);
    bool ExisteCFD_CXC(std::int32_t pkcxc);
    bool DocumentoAprobadoParaCFD(std::int32_t pkventa);
    bool DocumentoAprobadoParaCFD_CXC(std::int32_t pkcxc);
    bool DocumentoAprobadoParaCFDI(std::int32_t pkventa);
    bool DocumentoAprobadoParaCFDI_CXC(std::int32_t pkcxc);
    bool FolioAprobadoCBB(std::int32_t pkventa);
    bool FolioAprobadoCBB_CXC(std::int32_t pkcxc);

    // Cancellation and log state.
    bool PosibleCancelar(std::int32_t pkCFD);
    bool CancelarCFD(std::int32_t pkCFD, bool boAsk = true, bool WithTrans = true);
    bool CambiarEstadoEnBitacora(std::int32_t pkventa, std::int16_t StatusAdministrativo);
    bool CambiarEstadoEnBitacoraCXC(std::int32_t pkcxc, std::int16_t StatusAdministrativo);
    bool MarcarCFDIsCancelado(const std::string& uuids);
    bool guardar_ack_cancelacion(const std::string& ack, std::int32_t cfdipk);

    // Certificate and folio guards.
    bool EliminarAprobacionFolios(std::int32_t Sys_PK, bool boAsk = true);
    bool EliminarCertificado(std::int32_t Sys_PK, bool boAsk = true);
    bool EliminarFoliosCBB(std::int32_t pk);
    bool PosibleModificarAprobacionFolios(std::int32_t pkCFDFolio);
    bool PosibleModificarCertificado(std::int32_t pkCFDInfo);

    // Access control.
    bool PermitirAcceso(const std::string& sKey, const std::shared_ptr<host::Usuario>& oUser, bool Alerta = true);

    // Comprobante copies.
    bool GuardarCopiaComprobanteXML(const std::string& sXML, const std::string& nombre);
    bool GuardarCopiaComprobante(const std::string& sArchivo, const std::string& nombre = "");
    Variant ShowSaveAs(const std::string& filter, const std::string& fileName = "");

    // Tax and receivables adjustments.
    bool asignarTiposImpuesto();
    double PorcentajeIVATrasladadoEnVentaFinanciada(std::int32_t pkventa);
    bool EstablecerUnidadDCXC(std::int32_t pkcxc, const std::string& sunidad);
    bool EstablecerPorcentajeIVAVenta_enDCXC(std::int32_t pkcxc, double porcentajeIVA);
    std::shared_ptr<Coleccion> RegimenesFicalesCol();

    // Summary billing.
    std::shared_ptr<cConceptoFacHordana> FormaGenerarComprobanteHordana();
    bool EstablecerHordanaTipoFormato(std::int32_t pkventa, std::int16_t tf,
                                      const std::shared_ptr<cConceptoFacHordana>& DConceptos = nullptr);

    // Progress and prompts.
    void ShowProgress(const std::string& scmd, std::int32_t value, const std::string& Title = "Procesando",
                      std::int32_t min = 0, std::int32_t max = 100);
    void CloseProgress(bool complete = true);
    std::string getAddress(const std::string& sdefault);
    std::string SolicitarFormaPago();

    // Monthly report (report/). By-reference arguments as the automation
    // interface declares them; the dispatch table gives their defaults
    // (mes and anio -1, boBloquear false; WithTrans, boAsk, permitirRegenerar
    // and PermitirEliminar true).
    bool GenerarInformeMensual(std::int16_t& mes, std::int16_t& anio, bool& boBloquear);
    bool EliminarInformeMensual(std::int16_t& mes, std::int16_t& anio, bool& WithTrans, bool& boAsk);
    void VerInformesMensuales(bool& permitirRegenerar, bool& PermitirEliminar);
    // End of the monthly report.

    // CBB range editor (cbb/): a new range, or the stored range pk; true
    // when the user confirmed.
    bool AgregarFoliosCBB();
    bool ModificarFoliosCBB(std::int32_t pk);
    // The list of CBB ranges (cbb/), shown modally; it answers nothing.
    void RangoFoliosCBB();
    // Print formats (printformats/): the dialogs of the CFD and CBB families;
    // true when the user accepted.
    bool ConfigurarRepresentacionImpresa();
    bool ConfigurarRepresentacionImpresaCBB();
    // Editors of certificates and folio ranges (certificates/).
    std::int32_t AgregarCertificado();
    bool ModificarCertificado(std::int32_t Sys_PK);
    std::int32_t AgregarAprobacionFolios();
    bool ModificarAprobacionFolios(std::int32_t Sys_PK);
    // End of the editors of certificates and folio ranges.
    // The main configuration dialog (configdialog/).
    void Configuracion();
    // The setup wizard (wizard/), the only place that chooses the kind.
    void AsistenteConfiguracion();
    // The control panel of the fiscal settings (settings/).
    void ConfiguracionPrincipal();

    // Private routines the rest of the system uses.
    std::int32_t EnteroCampo(host::Recordset& recordset, const std::string& campo);
    bool ProbarConsulta(const std::string& statement, const std::shared_ptr<host::Connection>& connection);

private:
    // GlobalVar, created if it is still absent.
    host::GlobalVar& Settings();
};

}  // namespace celdora
