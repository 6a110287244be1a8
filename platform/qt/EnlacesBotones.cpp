// Buttons, the controls that hold others (frame, tab control), and those
// that only show something (picture, progress bar).

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPixmap>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QTabWidget>
#include <optional>

#include "platform/qt/EnlaceControl.h"
#include "platform/qt/TextoQt.h"

namespace celdora::platform {

namespace {

// The standard picture of a button drawn as one, by what it does: a button
// whose model names its picture gets the style's picture for that meaning,
// beside its caption; a browse button opens a folder to pick a path from; a
// button without a caption is known by the key that presses it, Escape
// closing the window and Enter accepting it. None for a button of text, or
// one whose role is unknown.
std::optional<QStyle::StandardPixmap> ImagenDeBoton(const forms::CommandButton& boton) {
    using Imagen = forms::CommandButton::Imagen;
    switch (boton.Dibujo()) {
        case Imagen::Configuracion: return QStyle::SP_FileDialogDetailedView;
        case Imagen::Documento: return QStyle::SP_FileIcon;
        case Imagen::Equipo: return QStyle::SP_ComputerIcon;
        case Imagen::Asistente: return QStyle::SP_ArrowForward;
        case Imagen::Ninguna: break;
    }
    if (boton.Caption() == "...") return QStyle::SP_DirOpenIcon;
    if (!boton.Caption().empty()) return std::nullopt;
    if (boton.Cancel()) return QStyle::SP_DialogCloseButton;
    if (boton.Default()) return QStyle::SP_DialogOkButton;
    return std::nullopt;
}

class Casilla : public EnlaceControl {
public:
    Casilla(forms::CheckBox& casilla, VentanaQt& ventana)
        : EnlaceControl(casilla, ventana), casilla_(casilla), widget_(new QCheckBox) {
        Poner(widget_, false);
        Entrada(widget_);
        QObject::connect(widget_, &QCheckBox::clicked, widget_, [this] { Accion([this] { casilla_.Pulsar(); }); });
    }

protected:
    void RefrescarPropio() override {
        widget_->setText(Qs(control_.Caption()));
        const int valor = casilla_.Value();
        widget_->setCheckState(valor == 1 ? Qt::Checked : valor == 2 ? Qt::PartiallyChecked : Qt::Unchecked);
    }

private:
    forms::CheckBox& casilla_;
    QCheckBox* widget_;
};

// The model turns the other buttons of the group off; the widgets don't
// exclude each other on their own.
class Opcion : public EnlaceControl {
public:
    Opcion(forms::OptionButton& opcion, VentanaQt& ventana)
        : EnlaceControl(opcion, ventana), opcion_(opcion), widget_(new QRadioButton) {
        widget_->setAutoExclusive(false);
        Poner(widget_, false);
        Entrada(widget_);
        QObject::connect(widget_, &QRadioButton::clicked, widget_, [this] { Accion([this] { opcion_.Pulsar(); }); });
    }

protected:
    void RefrescarPropio() override {
        widget_->setText(Qs(control_.Caption()));
        widget_->setChecked(opcion_.Value());
    }

private:
    forms::OptionButton& opcion_;
    QRadioButton* widget_;
};

class Boton : public EnlaceControl {
public:
    Boton(forms::CommandButton& boton, VentanaQt& ventana)
        : EnlaceControl(boton, ventana), boton_(boton), widget_(new QPushButton) {
        Poner(widget_, false);
        Entrada(widget_);
        QObject::connect(widget_, &QPushButton::clicked, widget_, [this] { Accion([this] { boton_.Pulsar(); }); });
    }

protected:
    void RefrescarPropio() override {
        const auto imagen = ImagenDeBoton(boton_);
        widget_->setIcon(imagen ? widget_->style()->standardIcon(*imagen, nullptr, widget_) : QIcon());
        // A picture stands for a browse or a captionless button's text; a
        // button with a picture of its own keeps its caption beside it.
        const bool conTexto = !imagen || boton_.Dibujo() != forms::CommandButton::Imagen::Ninguna;
        widget_->setText(conTexto ? Qs(control_.Caption()) : QString());
        widget_->setAccessibleName(Qs(control_.Caption()));
        widget_->setDefault(boton_.Default());
    }

private:
    forms::CommandButton& boton_;
    QPushButton* widget_;
};

class Marco : public EnlaceControl {
public:
    Marco(forms::Frame& marco, VentanaQt& ventana)
        : EnlaceControl(marco, ventana), widget_(new QGroupBox), interior_(NuevoFormulario(widget_)) {
        Poner(widget_, false);
    }

    QFormLayout* Interior(int /*pagina*/) override { return interior_; }

protected:
    void RefrescarPropio() override { widget_->setTitle(Qs(control_.Caption())); }

private:
    QGroupBox* widget_;
    QFormLayout* interior_;
};

class Pestanas : public EnlaceControl {
public:
    Pestanas(forms::TabControl& pestanas, VentanaQt& ventana)
        : EnlaceControl(pestanas, ventana), pestanas_(pestanas), widget_(new QTabWidget) {
        // Every tab shows its whole caption: no scrolling through the tabs,
        // no shortened texts.
        widget_->setUsesScrollButtons(false);
        widget_->setElideMode(Qt::ElideNone);
        Poner(widget_, false);
        Entrada(widget_);
        AgregarPaginas();
        QObject::connect(widget_, &QTabWidget::currentChanged, widget_, [this](int pagina) {
            Accion([this, pagina] { pestanas_.ClickPagina(pagina); });
        });
    }

    QFormLayout* Interior(int pagina) override {
        if (pagina < 0 || static_cast<std::size_t>(pagina) >= paginas_.size()) return nullptr;
        return paginas_[static_cast<std::size_t>(pagina)];
    }

protected:
    void RefrescarPropio() override {
        AgregarPaginas();
        for (std::size_t i = 0; i < paginas_.size(); ++i) {
            widget_->setTabText(static_cast<int>(i), Qs(pestanas_.Paginas()[i]));
            widget_->setTabEnabled(static_cast<int>(i), pestanas_.PaginaHabilitada(static_cast<int>(i)));
        }
        if (widget_->currentIndex() != pestanas_.SelectedItem()) widget_->setCurrentIndex(pestanas_.SelectedItem());
    }

private:
    void AgregarPaginas() {
        while (paginas_.size() < pestanas_.Paginas().size()) {
            auto* pagina = new QWidget;
            paginas_.push_back(NuevoFormulario(pagina));
            widget_->addTab(pagina, Qs(pestanas_.Paginas()[paginas_.size() - 1]));
        }
    }

    forms::TabControl& pestanas_;
    QTabWidget* widget_;
    std::vector<QFormLayout*> paginas_;
};

// The picture from its bytes; a format Qt can't read (a metafile) leaves the
// box empty.
class Imagen : public EnlaceControl {
public:
    Imagen(forms::PictureBox& imagen, VentanaQt& ventana)
        : EnlaceControl(imagen, ventana), imagen_(imagen), widget_(new QLabel) {
        widget_->setAlignment(Qt::AlignCenter);
        Poner(widget_, false);
    }

protected:
    void RefrescarPropio() override {
        if (imagen_.Picture() == mostrada_) return;
        mostrada_ = imagen_.Picture();
        QPixmap pixmap;
        if (mostrada_ != nullptr) {
            const Bytes& datos = mostrada_->Datos();
            pixmap.loadFromData(datos.data(), static_cast<uint>(datos.size()));
        }
        widget_->setPixmap(pixmap);
    }

private:
    forms::PictureBox& imagen_;
    QLabel* widget_;
    std::shared_ptr<host::Picture> mostrada_;
};

class Progreso : public EnlaceControl {
public:
    Progreso(forms::ProgressBar& barra, VentanaQt& ventana)
        : EnlaceControl(barra, ventana), barra_(barra), widget_(new QProgressBar) {
        Poner(widget_, false);
    }

protected:
    void RefrescarPropio() override {
        widget_->setRange(barra_.Min(), barra_.Max());
        widget_->setValue(barra_.Value());
    }

private:
    forms::ProgressBar& barra_;
    QProgressBar* widget_;
};

}  // namespace

bool BotonConImagen(const forms::Control& control) {
    const auto* boton = dynamic_cast<const forms::CommandButton*>(&control);
    return boton != nullptr && ImagenDeBoton(*boton).has_value();
}

QFormLayout* NuevoFormulario(QWidget* dueno) {
    auto* formulario = new QFormLayout(dueno);
    formulario->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    formulario->setRowWrapPolicy(QFormLayout::DontWrapRows);
    return formulario;
}

std::unique_ptr<EnlaceControl> EnlaceCasilla(forms::CheckBox& control, VentanaQt& ventana) {
    return std::make_unique<Casilla>(control, ventana);
}

std::unique_ptr<EnlaceControl> EnlaceOpcion(forms::OptionButton& control, VentanaQt& ventana) {
    return std::make_unique<Opcion>(control, ventana);
}

std::unique_ptr<EnlaceControl> EnlaceBoton(forms::CommandButton& control, VentanaQt& ventana) {
    return std::make_unique<Boton>(control, ventana);
}

std::unique_ptr<EnlaceControl> EnlaceMarco(forms::Frame& control, VentanaQt& ventana) {
    return std::make_unique<Marco>(control, ventana);
}

std::unique_ptr<EnlaceControl> EnlacePestanas(forms::TabControl& control, VentanaQt& ventana) {
    return std::make_unique<Pestanas>(control, ventana);
}

std::unique_ptr<EnlaceControl> EnlaceImagen(forms::PictureBox& control, VentanaQt& ventana) {
    return std::make_unique<Imagen>(control, ventana);
}

std::unique_ptr<EnlaceControl> EnlaceProgreso(forms::ProgressBar& control, VentanaQt& ventana) {
    return std::make_unique<Progreso>(control, ventana);
}

}  // namespace celdora::platform
