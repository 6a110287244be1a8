#include "printformats/FormatoImpresion.h"

#include <cstdio>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "value/Channels.h"
#include "value/Convert.h"

namespace celdora::impresion {

const VarianteImpresion kImpresionCFD{"dlgImpresion", "Representación impresa de CFD/CFDI", "CFDImp", true, true,
                                      true, "CFD"};
const VarianteImpresion kImpresionCBB{"dlgImpresionCBB", "Representación impresa para CBB", "CBBImp", false, false,
                                      false, "CBB"};

namespace {

// Types of file: 1 report layout, 2 strip, 3 PDF or Word.
constexpr std::int32_t kTipoReporte = 1;
constexpr std::int32_t kTipoTira = 2;
constexpr std::int32_t kTipoPdf = 3;

void Agregar(forms::ListaBase& lista, const std::string& texto, std::int32_t dato) {
    lista.AddItem(texto);
    lista.ItemData(lista.ListCount() - 1, dato);
}

// Selects the first entry whose item data is the stored value; a value no
// entry has leaves the list as it was.
void SeleccionarDato(forms::ListaBase& lista, double valor) {
    for (int i = 0; i < lista.ListCount(); ++i) {
        if (lista.ItemData(i) == valor) {
            lista.ListIndex(i);
            return;
        }
    }
}

// The folder below the repository, with the platform's separator after
// each part.
std::string Carpeta(const std::string& rutaInicial, bool cuentasPorCobrar, const std::string& palabra) {
    auto& utilerias = mdlMain::Utilerias();
    std::string carpeta = utilerias.AgregarDiagonal(utilerias.AgregarDiagonal(rutaInicial) + "Reports");
    carpeta = utilerias.AgregarDiagonal(carpeta + (cuentasPorCobrar ? "Cuentas por cobrar" : "Ventas"));
    return utilerias.AgregarDiagonal(carpeta + palabra);
}

}  // namespace

std::string RutaInicial(const std::string& repositorio) {
    if (!repositorio.empty() && repositorio.back() == '\\') return repositorio.substr(0, repositorio.size() - 1);
    return repositorio;
}

std::string Clave(const std::string& prefijo, int numero) {
    char digitos[8];
    std::snprintf(digitos, sizeof digitos, "%03d", numero);
    return prefijo + digitos;
}

std::string RutaPredeterminada(const std::string& rutaInicial, const RutaFormato& ruta, std::int32_t tipoComprobante,
                               double tipoFormato) {
    const std::string nombre = mdlMain::nombreFormato(ruta.base, tipoComprobante, tipoFormato);
    if (nombre.empty()) return "";
    return Carpeta(rutaInicial, ruta.cuentasPorCobrar, mdlMain::nombreTipoComprobante(tipoComprobante)) + nombre;
}

std::int32_t DatoSeleccionado(const forms::ListaBase& lista) { return lista.ItemData(lista.ListIndex()); }

void LlenarListas(ControlesImpresion& c, const VarianteImpresion& variante, std::int32_t tipoComprobante) {
    ResumeNext([&] {
        Agregar(c.cmbTipo, "Reporte de Nudovia", kTipoReporte);
        if (variante.tira && tipoComprobante == cCFD) Agregar(c.cmbTipo, "Tira", kTipoTira);
        Agregar(c.cmbTipo, "PDF/MS Word", kTipoPdf);
    });
    ResumeNext([&] { c.cmbTipo.ListIndex(0); });
    ResumeNext([&] {
        Agregar(c.cmbImpresion, "Vista previa", 1);
        Agregar(c.cmbImpresion, "Impresora predeterminada", 2);
        Agregar(c.cmbImpresion, "No imprimir", 3);
    });
    ResumeNext([&] { c.cmbImpresion.ListIndex(0); });
    if (c.cmbMail == nullptr) return;
    ResumeNext([&] {
        Agregar(*c.cmbMail, "Enviar a la dirección del cliente.", 1);
        Agregar(*c.cmbMail, "Solicitar dirección", 2);
        Agregar(*c.cmbMail, "No enviar", 3);
    });
    ResumeNext([&] { c.cmbMail->ListIndex(2); });
}

void CambioDeTipo(ControlesImpresion& c) {
    ResumeNext([&] { c.cmbFormato.Clear(); });
    for (forms::TextBox* ruta : c.rutas) ResumeNext([&] { ruta->Text(""); });
    ResumeNext([&] {
        switch (DatoSeleccionado(c.cmbTipo)) {
            case kTipoReporte: Agregar(c.cmbFormato, "xpr", 1); break;
            case kTipoTira: Agregar(c.cmbFormato, "txt", 2); break;
            case kTipoPdf:
                Agregar(c.cmbFormato, "pdf", 3);
                Agregar(c.cmbFormato, "doc", 4);
                Agregar(c.cmbFormato, "docx", 5);
                break;
            default: break;
        }
    });
    ResumeNext([&] { c.cmbFormato.ListIndex(0); });
}

void CambioDeFormato(ControlesImpresion& c, host::GlobalVar& globalVar, const std::string& prefijo) {
    if (c.cmbFormato.Text() == "pdf") {
        ResumeNext([&] { c.chkUsarVisor.Value(CInt(Variant(globalVar.LeerNumero(Clave(prefijo, 9), 1)))); });
        ResumeNext([&] { c.chkUsarVisor.Enabled(true); });
    } else {
        ResumeNext([&] { c.chkUsarVisor.Value(0); });
        ResumeNext([&] { c.chkUsarVisor.Enabled(false); });
    }
}

void CargarValores(ControlesImpresion& c, host::GlobalVar& globalVar, const VarianteImpresion& variante,
                   const OmisionDeRuta& omision) {
    const std::string& p = variante.prefijo;
    double tipo = 0;
    ResumeNext([&] { tipo = globalVar.LeerNumero(Clave(p, 1), 3); });
    std::array<std::string, 6> rutas;
    for (std::size_t i = 0; i < kRutas.size(); ++i) {
        ResumeNext([&] {
            rutas[i] = globalVar.LeerTexto(Clave(p, kRutas[i].clave), omision ? omision(kRutas[i], tipo) : "");
        });
    }
    double formato = 0;
    double impresion = 0;
    double correo = 0;
    ResumeNext([&] { formato = globalVar.LeerNumero(Clave(p, 3), 1); });
    ResumeNext([&] { impresion = globalVar.LeerNumero(Clave(p, 4), 1); });
    if (c.cmbMail != nullptr) ResumeNext([&] { correo = globalVar.LeerNumero(Clave(p, 5), 3); });

    ResumeNext([&] { SeleccionarDato(c.cmbTipo, tipo); });
    for (std::size_t i = 0; i < kRutas.size(); ++i) ResumeNext([&] { c.rutas[i]->Text(rutas[i]); });
    ResumeNext([&] { SeleccionarDato(c.cmbFormato, formato); });
    ResumeNext([&] { SeleccionarDato(c.cmbImpresion, impresion); });
    if (c.cmbMail != nullptr) ResumeNext([&] { SeleccionarDato(*c.cmbMail, correo); });
}

// The strip's scripts are offered only where the strip is.
std::string FiltroDeTipo(std::int32_t tipo, const VarianteImpresion& variante) {
    switch (tipo) {
        case kTipoReporte: return "Formato de reporte de Nudovia *.xpd|*.xpd";
        case kTipoTira: return variante.tira ? "Script *.js|*.js" : "";
        case kTipoPdf: return "Plantilla *.txf|*.txf";
        default: return "";
    }
}

void Examinar(forms::CommonDialog& dlgArchivo, forms::TextBox& campo, const std::string& rutaInicial,
              const FiltroDelSelector& filtro) {
    bool cancelado = false;
    ResumeNext([&] {
        dlgArchivo.CancelError = true;
        dlgArchivo.FileName.clear();
    });
    ResumeNext([&] {
        if (auto elegido = filtro()) dlgArchivo.Filter = *elegido;
    });
    ResumeNext([&] { dlgArchivo.InitDir = rutaInicial; });
    try {
        dlgArchivo.ShowOpen();
    } catch (const Fault&) {
        cancelado = true;
    }
    if (!cancelado) ResumeNext([&] { campo.Text(dlgArchivo.FileName); });
}

void ConectarExaminar(ControlesImpresion& c, const std::array<forms::CommandButton*, 6>& botones,
                      const std::function<void(forms::TextBox&)>& examinar) {
    for (std::size_t i = 0; i < botones.size(); ++i) {
        forms::TextBox& campo = *c.rutas[i];
        botones[i]->Click = [examinar, &campo] { examinar(campo); };
        campo.Click = [examinar, &campo] {
            if (campo.Text().empty()) examinar(campo);
        };
    }
}

void GuardarValores(ControlesImpresion& c, host::GlobalVar& gv, const VarianteImpresion& variante) {
    const std::string& p = variante.prefijo;
    ResumeNext([&] { gv.GuardarNumero(Clave(p, 1), DatoSeleccionado(c.cmbTipo)); });
    ResumeNext([&] { gv.GuardarTexto(Clave(p, 2), c.rutas[0]->Text()); });
    if (variante.segundaClave) ResumeNext([&] { gv.GuardarTexto("NVCA303x", c.rutas[0]->Text()); });
    ResumeNext([&] { gv.GuardarNumero(Clave(p, 3), DatoSeleccionado(c.cmbFormato)); });
    ResumeNext([&] { gv.GuardarNumero(Clave(p, 4), DatoSeleccionado(c.cmbImpresion)); });
    if (c.cmbMail != nullptr) ResumeNext([&] { gv.GuardarNumero(Clave(p, 5), DatoSeleccionado(*c.cmbMail)); });
    ResumeNext([&] { gv.GuardarTexto(Clave(p, 6), c.rutas[1]->Text()); });
    ResumeNext([&] { gv.GuardarTexto(Clave(p, 7), c.rutas[2]->Text()); });
    ResumeNext([&] { gv.GuardarTexto(Clave(p, 8), c.rutas[3]->Text()); });
    ResumeNext([&] { gv.GuardarNumero(Clave(p, 9), c.chkUsarVisor.Value() == 1 ? 1 : 0); });
    ResumeNext([&] { gv.GuardarTexto(Clave(p, 10), c.rutas[4]->Text()); });
    ResumeNext([&] { gv.GuardarTexto(Clave(p, 11), c.rutas[5]->Text()); });
}

}  // namespace celdora::impresion
