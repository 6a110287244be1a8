#pragma once

// The six format files of a print form, each with its browse button, in the
// order of kRutas. The print format dialogs of both families and the setup
// wizard's formats page show them; the routines of FormatoImpresion.h fill,
// read and write them.

#include <array>

#include "forms/Controles.h"
#include "forms/Unidad.h"

namespace celdora::impresion {

class ArchivosFormato : public forms::Unidad {
public:
    explicit ArchivosFormato(forms::Dialogo& dialogo) : Unidad(dialogo) {}

    forms::TextBox& txtArchivo = Agregar<forms::TextBox>("txtArchivo", "Factura de ventas:");
    forms::CommandButton& btnExaminar0 = Agregar<forms::CommandButton>("btnExaminar(0)", "...");
    forms::TextBox& txtArchivoNC = Agregar<forms::TextBox>("txtArchivoNC", "Nota de crédito en ventas:");
    forms::CommandButton& btnExaminar1 = Agregar<forms::CommandButton>("btnExaminar(1)", "...");
    forms::TextBox& txtCXC_NCredito =
        Agregar<forms::TextBox>("txtCXC_NCredito", "Nota de crédito en cuentas por cobrar:");
    forms::CommandButton& btnExaminar2 = Agregar<forms::CommandButton>("btnExaminar(2)", "...");
    forms::TextBox& txtCXC_NCargo = Agregar<forms::TextBox>("txtCXC_NCargo", "Nota de cargo en cuentas por cobrar:");
    forms::CommandButton& btnExaminar3 = Agregar<forms::CommandButton>("btnExaminar(3)", "...");
    forms::TextBox& txtCXC_FacPagare =
        Agregar<forms::TextBox>("txtCXC_FacPagare", "Factura por parcialidad (pagaré) en cuentas por cobrar:");
    forms::CommandButton& btnExaminar4 = Agregar<forms::CommandButton>("btnExaminar(4)", "...");
    forms::TextBox& txtCXC_FacRecibo = Agregar<forms::TextBox>(
        "txtCXC_FacRecibo", "Factura por anticipo de financiamiento (recibo) en cuentas por cobrar:");
    forms::CommandButton& btnExaminar5 = Agregar<forms::CommandButton>("btnExaminar(5)", "...");

    // The fields in the order of kRutas, and their buttons likewise.
    std::array<forms::TextBox*, 6> Rutas() {
        return {&txtArchivo, &txtArchivoNC, &txtCXC_NCredito, &txtCXC_NCargo, &txtCXC_FacPagare, &txtCXC_FacRecibo};
    }
    std::array<forms::CommandButton*, 6> Botones() {
        return {&btnExaminar0, &btnExaminar1, &btnExaminar2, &btnExaminar3, &btnExaminar4, &btnExaminar5};
    }
    // Places the twelve controls on a page of the dialog.
    void Colocar(const std::string& contenedor, int pagina) {
        for (forms::TextBox* c : Rutas()) c->Colocar(contenedor, pagina);
        for (forms::CommandButton* c : Botones()) c->Colocar(contenedor, pagina);
    }
};

}  // namespace celdora::impresion
