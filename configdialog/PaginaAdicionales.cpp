#include "configdialog/PaginaAdicionales.h"

#include "core/cAcction.h"
#include "settings/dlgConfigAvz.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora::configuracion {

PaginaAdicionales::PaginaAdicionales(forms::Dialogo& dialogo, Marco& marco) : Unidad(dialogo), marco_(marco) {
    for (forms::Control* c : std::initializer_list<forms::Control*>{&chkComplemento, &txtUbicacionComplemento,
                                                                     &txtUbicacionAddendas, &txtUbicacionCConcepto}) {
        c->Colocar(fraElementos.Nombre());
    }
    txtXslt.Colocar(fraCadena.Nombre());
    for (forms::Control* c : std::initializer_list<forms::Control*>{&lblImpuestos, &txtImpuesto0, &txtImpuesto1,
                                                                     &txtImpuesto2, &txtImpuesto3}) {
        c->Colocar(fraImpuestos.Nombre());
    }
    eNumDecimales.Max(6);
    eNumDecimales.Decimals(0);
    eNumDecimales.Format("#");
    txtFormatoImpresion.Click = [this] { seleccionarFormato(); };
    txtFormatoImpresion.Change = [this] {
        if (vigilarFormato_ && txtFormatoImpresion.Text().empty()) seleccionarFormato();
    };
    btnCfg.Click = [this] { btnCfg_Click(); };
}

void PaginaAdicionales::Colocar(const std::string& contenedor, int pagina) {
    for (forms::Control* c : std::initializer_list<forms::Control*>{
             &fraElementos, &fraCadena, &lblFormato, &txtFormatoImpresion, &Labelnota, &lblDecimales, &eNumDecimales,
             &fraImpuestos, &btnCfg}) {
        c->Colocar(contenedor, pagina);
    }
}

void PaginaAdicionales::prepararCampos(std::int32_t tipoComprobante) {
    for (forms::TextBox* campo : {&txtImpuesto0, &txtImpuesto1, &txtImpuesto2, &txtImpuesto3, &txtUbicacionAddendas,
                                  &txtUbicacionCConcepto, &txtUbicacionComplemento, &txtXslt}) {
        campo->Locked(true);
    }
    eNumDecimales.ButtonVisible(false);
    txtXslt.Text(tipoComprobante == cCFD ? "$AppResource$\\CFD\\xslt\\cadenaoriginal_2_0.xslt"
                                         : "$AppResource$\\CFDI\\xslt\\cadenaoriginal_3_0.xslt");
}

void PaginaAdicionales::cargarAdicionales() {
    ResumeNext([&] {
        vigilarFormato_ = false;
        txtFormatoImpresion.Text(
            marco_.Ajustes().LeerTexto("NVCA303x", "$AppReportsPath$\\Ventas\\facturaelectronica.xpd"));
    });
    vigilarFormato_ = true;
    ResumeNext([&] { chkComplemento.Value(marco_.Ajustes().LeerNumero("NVCA300x", 0) == -1 ? 1 : 0); });
    ResumeNext([&] { eNumDecimales.Value(marco_.Ajustes().LeerNumero("NVCA328x", 2)); });
}

void PaginaAdicionales::ocultarFormato() {
    lblFormato.Visible(false);
    txtFormatoImpresion.Visible(false);
    Labelnota.Visible(false);
}

void PaginaAdicionales::seleccionarFormato() {
    vigilarFormato_ = false;
    bool elegido = true;
    ResumeNext([&] {
        dlgFormato.CancelError = true;
        dlgFormato.FileName.clear();
        dlgFormato.Filter = "Formato factura digital *.xpd|*.xpd";
    });
    try {
        dlgFormato.ShowOpen();
    } catch (const Fault&) {
        elegido = false;
    }
    if (elegido) {
        ResumeNext([&] { txtFormatoImpresion.Text(dlgFormato.FileName); });
        // A file below the reports folder is kept relative to it, so that
        // every machine finds it wherever its reports live.
        ResumeNext([&] {
            const std::string texto = LCase(Trim(txtFormatoImpresion.Text()));
            const std::string reportes = LCase(marco_.Fachada().AppReportsPath);
            if (texto.find(reportes) != std::string::npos) {
                txtFormatoImpresion.Text(Replace(texto, reportes, "$AppReportsPath$"));
            }
        });
    }
    vigilarFormato_ = true;
}

void PaginaAdicionales::btnCfg_Click() {
    ResumeNext([&] {
        dlgConfigAvz opciones;
        opciones.oAcc = marco_.oAcc;
        opciones.ShowModal();
    });
}

}  // namespace celdora::configuracion
