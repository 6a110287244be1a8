// The host's address control: a titled box with the street (in one line, or
// street and numbers apart), colony, postal code, city, phone and notes.

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>

#include "platform/qt/EnlaceControl.h"
#include "platform/qt/TextoQt.h"

namespace celdora::platform {

namespace {

class Direccion : public EnlaceControl {
public:
    Direccion(forms::AddressControl& direccion, VentanaQt& ventana)
        : EnlaceControl(direccion, ventana),
          direccion_(direccion),
          widget_(new QGroupBox),
          filas_(new QFormLayout(widget_)) {
        Poner(widget_, false);
        calle_ = Campo("calle", "Calle:", [this] { Separada(); });
        exterior_ = Campo("exterior", "Número exterior:", [this] { Separada(); });
        interior_ = Campo("interior", "Número interior:", [this] { Separada(); });
        linea_ = Campo("direccion", "Dirección:", [this] { direccion_.address(Utf8(linea_->text())); });
        colonia_ = Campo("colonia", "Colonia:", [this] { direccion_.colony(Utf8(colonia_->text())); });
        codigo_ = Campo("codigoPostal", "Código postal:", [this] { direccion_.codep(Utf8(codigo_->text())); });
        ciudad_ = new QComboBox;
        ciudad_->setObjectName(QStringLiteral("ciudad"));
        filas_->addRow(QStringLiteral("Ciudad:"), ciudad_);
        Entrada(ciudad_);
        QObject::connect(ciudad_, &QComboBox::activated, ciudad_, [this](int indice) {
            Accion([this, indice] {
                if (direccion_.Accesible()) direccion_.ciudad(direccion_.Lugares()[static_cast<std::size_t>(indice)].ciudad);
            });
        });
        telefono_ = Campo("telefono", "Teléfono:", [this] { direccion_.phone(Utf8(telefono_->text())); });
        notas_ = Campo("notas", "Notas:", [this] { direccion_.notes(Utf8(notas_->text())); });
    }

protected:
    void RefrescarPropio() override {
        widget_->setTitle(Qs(direccion_.titulo()));
        const bool separada = direccion_.direccionSeparada();
        for (QLineEdit* parte : {calle_, exterior_, interior_}) filas_->setRowVisible(parte, separada);
        filas_->setRowVisible(linea_, !separada);
        PonerTexto(calle_, direccion_.Calle());
        PonerTexto(exterior_, direccion_.NumeroExterior());
        PonerTexto(interior_, direccion_.NumeroInterior());
        PonerTexto(linea_, direccion_.address());
        PonerTexto(colonia_, direccion_.colony());
        PonerTexto(codigo_, direccion_.codep());
        PonerTexto(telefono_, direccion_.phone());
        PonerTexto(notas_, direccion_.notes());
        RefrescarCiudades();
    }

private:
    template <class F>
    QLineEdit* Campo(const char* nombre, const char* rotulo, F alEscribir) {
        auto* campo = new QLineEdit;
        campo->setObjectName(QString::fromLatin1(nombre));
        filas_->addRow(QString::fromUtf8(rotulo), campo);
        Entrada(campo);
        QObject::connect(campo, &QLineEdit::textEdited, campo, [this, alEscribir] {
            Accion([this, alEscribir] {
                if (direccion_.Accesible()) alEscribir();
            });
        });
        return campo;
    }

    static void PonerTexto(QLineEdit* campo, const std::string& texto) {
        if (campo->text() != Qs(texto)) campo->setText(Qs(texto));
    }

    void Separada() { direccion_.Separada(Utf8(calle_->text()), Utf8(exterior_->text()), Utf8(interior_->text())); }

    void RefrescarCiudades() {
        const auto& lugares = direccion_.Lugares();
        bool iguales = ciudad_->count() == static_cast<int>(lugares.size());
        for (int i = 0; iguales && i < ciudad_->count(); ++i) {
            iguales = ciudad_->itemText(i) == Qs(lugares[static_cast<std::size_t>(i)].nombre);
        }
        if (!iguales) {
            ciudad_->clear();
            for (const auto& lugar : lugares) ciudad_->addItem(Qs(lugar.nombre));
        }
        int elegida = -1;
        for (std::size_t i = 0; i < lugares.size(); ++i) {
            if (lugares[i].ciudad == direccion_.ciudad()) elegida = static_cast<int>(i);
        }
        if (ciudad_->currentIndex() != elegida) ciudad_->setCurrentIndex(elegida);
    }

    forms::AddressControl& direccion_;
    QGroupBox* widget_;
    QFormLayout* filas_;
    QLineEdit* calle_ = nullptr;
    QLineEdit* exterior_ = nullptr;
    QLineEdit* interior_ = nullptr;
    QLineEdit* linea_ = nullptr;
    QLineEdit* colonia_ = nullptr;
    QLineEdit* codigo_ = nullptr;
    QComboBox* ciudad_ = nullptr;
    QLineEdit* telefono_ = nullptr;
    QLineEdit* notas_ = nullptr;
};

}  // namespace

std::unique_ptr<EnlaceControl> EnlaceDireccion(forms::AddressControl& control, VentanaQt& ventana) {
    return std::make_unique<Direccion>(control, ventana);
}

}  // namespace celdora::platform
