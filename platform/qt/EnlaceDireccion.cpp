// The host's address control: a titled box with the street (in one line, or
// street and numbers apart), colony, postal code, country, state and city
// (each picked from the source of places, with a button beside it that adds
// one where the control allows), phone and notes.

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLineEdit>
#include <QPushButton>

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
        pais_ = Lugar("pais", "País:", "Agregar país", "Nombre del país:", [this](int i) { return direccion_.ElegirPais(i); },
                      [this](const std::string& n) { return direccion_.AgregarPais(n); });
        estado_ = Lugar("estado", "Estado:", "Agregar estado", "Nombre del estado:", [this](int i) { return direccion_.ElegirEstado(i); },
                        [this](const std::string& n) { return direccion_.AgregarEstado(n); });
        ciudad_ = Lugar("ciudad", "Ciudad:", "Agregar ciudad", "Nombre de la ciudad:", [this](int i) { return direccion_.ElegirCiudad(i); },
                        [this](const std::string& n) { return direccion_.AgregarCiudad(n); });
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
        const bool conPais = direccion_.pais() >= 1;
        RefrescarLugar(pais_, direccion_.Paises(), direccion_.pais(), direccion_.canaddcountry, true);
        RefrescarLugar(estado_, direccion_.Estados(), direccion_.estado(), direccion_.canaddstate, conPais);
        RefrescarLugar(ciudad_, direccion_.Ciudades(), direccion_.ciudad(), direccion_.canaddcity, conPais);
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

    // A place of one level: its list, and the button that adds one.
    struct Nivel {
        QComboBox* lista = nullptr;
        QPushButton* agregar = nullptr;
    };

    template <class Elegir, class Agregar>
    Nivel Lugar(const char* nombre, const char* rotulo, const char* titulo, const char* pregunta, Elegir elegir,
                Agregar agregar) {
        Nivel nivel{new QComboBox, new QPushButton(QStringLiteral("Agregar"))};
        const QString clave = QString::fromLatin1(nombre);
        nivel.lista->setObjectName(clave);
        nivel.lista->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        nivel.agregar->setObjectName(QStringLiteral("agregar") + clave.left(1).toUpper() + clave.mid(1));
        auto* fila = new QWidget;
        auto* disposicion = new QHBoxLayout(fila);
        disposicion->setContentsMargins(0, 0, 0, 0);
        disposicion->addWidget(nivel.lista, 1);
        disposicion->addWidget(nivel.agregar);
        filas_->addRow(QString::fromUtf8(rotulo), fila);
        Entrada(nivel.lista);
        Entrada(nivel.agregar);
        QObject::connect(nivel.lista, &QComboBox::activated, nivel.lista,
                         [this, elegir](int indice) { Accion([elegir, indice] { elegir(indice); }); });
        QObject::connect(nivel.agregar, &QPushButton::clicked, nivel.agregar, [this, agregar, titulo, pregunta] {
            Accion([this, agregar, titulo, pregunta] {
                bool aceptado = false;
                const QString nombre = QInputDialog::getText(widget_, QString::fromUtf8(titulo),
                                                             QString::fromUtf8(pregunta), QLineEdit::Normal,
                                                             QString(), &aceptado);
                if (aceptado) agregar(Utf8(nombre));
            });
        });
        return nivel;
    }

    // The list shows the places offered, the chosen one current; the button
    // is there where the control allows adding and usable once there is
    // somewhere to add to.
    static void RefrescarLugar(const Nivel& nivel, const std::vector<host::Lugar>& lugares, std::int32_t elegido,
                               bool puedeAgregar, bool dondeAgregar) {
        bool iguales = nivel.lista->count() == static_cast<int>(lugares.size());
        for (int i = 0; iguales && i < nivel.lista->count(); ++i) {
            const host::Lugar& lugar = lugares[static_cast<std::size_t>(i)];
            iguales = nivel.lista->itemData(i).toInt() == lugar.Sys_PK && nivel.lista->itemText(i) == Qs(lugar.Nombre);
        }
        if (!iguales) {
            nivel.lista->clear();
            for (const host::Lugar& lugar : lugares) nivel.lista->addItem(Qs(lugar.Nombre), lugar.Sys_PK);
        }
        const int actual = nivel.lista->findData(elegido);
        if (nivel.lista->currentIndex() != actual) nivel.lista->setCurrentIndex(actual);
        nivel.agregar->setVisible(puedeAgregar);
        nivel.agregar->setEnabled(dondeAgregar);
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
    Nivel pais_;
    Nivel estado_;
    Nivel ciudad_;
    QLineEdit* telefono_ = nullptr;
    QLineEdit* notas_ = nullptr;
};

}  // namespace

std::unique_ptr<EnlaceControl> EnlaceDireccion(forms::AddressControl& control, VentanaQt& ventana) {
    return std::make_unique<Direccion>(control, ventana);
}

}  // namespace celdora::platform
