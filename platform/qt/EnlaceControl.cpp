#include "platform/qt/EnlaceControl.h"

#include <QLabel>
#include <QWidget>

#include "platform/qt/TextoQt.h"
#include "platform/qt/VentanaQt.h"

namespace celdora::platform {

namespace {

// The common file dialog shows the platform's picker when asked and has no
// widget in the window.
class EnlaceSinWidget : public EnlaceControl {
public:
    using EnlaceControl::EnlaceControl;

protected:
    void RefrescarPropio() override {}
};

}  // namespace

void EnlaceControl::Refrescar() {
    const bool antes = refrescando_;
    refrescando_ = true;
    if (widget_ != nullptr) {
        widget_->setEnabled(control_.Enabled());
        widget_->setHidden(!control_.Visible());
    }
    if (rotulo_ != nullptr) {
        rotulo_->setText(Qs(control_.Caption()));
        rotulo_->setEnabled(control_.Enabled());
        rotulo_->setHidden(!control_.Visible());
    }
    RefrescarPropio();
    refrescando_ = antes;
}

void EnlaceControl::Poner(QWidget* widget, bool conRotulo) {
    widget_ = widget;
    widget_->setObjectName(Qs(control_.Nombre()));
    if (!conRotulo) return;
    rotulo_ = new QLabel;
    rotulo_->setBuddy(widget_);
}

void EnlaceControl::Accion(const std::function<void()>& accion) {
    if (refrescando_) return;
    ventana_.Proteger(accion);
    if (!ventana_.Terminada()) Refrescar();
}

std::unique_ptr<EnlaceControl> CrearEnlace(forms::Control& control, VentanaQt& ventana) {
    using forms::TipoControl;
    switch (control.Tipo()) {
        case TipoControl::Label: return EnlaceEtiqueta(static_cast<forms::Label&>(control), ventana);
        case TipoControl::TextBox: return EnlaceTexto(static_cast<forms::TextBox&>(control), ventana);
        case TipoControl::Memo: return EnlaceMemo(static_cast<forms::Memo&>(control), ventana);
        case TipoControl::NumberField: return EnlaceNumero(static_cast<forms::NumberField&>(control), ventana);
        case TipoControl::DateField: return EnlaceFecha(static_cast<forms::DateField&>(control), ventana);
        case TipoControl::ComboBox: return EnlaceCombo(static_cast<forms::ComboBox&>(control), ventana);
        case TipoControl::ListBox: return EnlaceListaSimple(static_cast<forms::ListBox&>(control), ventana);
        case TipoControl::ListView: return EnlaceVista(static_cast<forms::ListView&>(control), ventana);
        case TipoControl::CheckBox: return EnlaceCasilla(static_cast<forms::CheckBox&>(control), ventana);
        case TipoControl::OptionButton: return EnlaceOpcion(static_cast<forms::OptionButton&>(control), ventana);
        case TipoControl::CommandButton: return EnlaceBoton(static_cast<forms::CommandButton&>(control), ventana);
        case TipoControl::Frame: return EnlaceMarco(static_cast<forms::Frame&>(control), ventana);
        case TipoControl::TabControl: return EnlacePestanas(static_cast<forms::TabControl&>(control), ventana);
        case TipoControl::PictureBox: return EnlaceImagen(static_cast<forms::PictureBox&>(control), ventana);
        case TipoControl::ProgressBar: return EnlaceProgreso(static_cast<forms::ProgressBar&>(control), ventana);
        case TipoControl::Grid: return EnlaceGrid(static_cast<forms::Grid&>(control), ventana);
        case TipoControl::AddressControl:
            return EnlaceDireccion(static_cast<forms::AddressControl&>(control), ventana);
        case TipoControl::CommonDialog: break;
    }
    return std::make_unique<EnlaceSinWidget>(control, ventana);
}

}  // namespace celdora::platform
