#include "tests/platform/qt/PruebaQt.h"

#include <QAbstractButton>
#include <QDeadlineTimer>
#include <QDir>
#include <QPointer>
#include <QLabel>
#include <QTest>
#include <cstdlib>
#include <filesystem>

namespace celdora::testing {

void CuandoSe(std::function<bool()> condicion, std::function<void()> accion, std::string que) {
    // The timer only says how often to look; the condition decides, and the
    // deadline only turns a wait that would hang into a failure.
    auto* sondeo = new QTimer(qApp);
    sondeo->setInterval(2);
    QDeadlineTimer plazo(kPlazoMs);
    QObject::connect(sondeo, &QTimer::timeout, [sondeo, plazo, condicion = std::move(condicion),
                                                 accion = std::move(accion), que = std::move(que)] {
        if (condicion()) {
            sondeo->stop();
            sondeo->deleteLater();
            accion();
        } else if (plazo.hasExpired()) {
            sondeo->stop();
            sondeo->deleteLater();
            ADD_FAILURE() << "waited " << kPlazoMs << " ms in vain for " << que;
        }
    });
    sondeo->start();
}

namespace {

// Runs the action on the next modal window of this kind that comes up, other
// than the one waiting when this is called.
template <class T>
void AlAparecerUna(std::function<void()> accion, const char* que) {
    QPointer<QWidget> antes = QApplication::activeModalWidget();
    CuandoSe(
        [antes] {
            auto* ahora = qobject_cast<T*>(QApplication::activeModalWidget());
            return ahora != nullptr && ahora != antes.data() && ahora->isVisible();
        },
        std::move(accion), que);
}

}  // namespace

void AlAparecer(std::function<void()> accion) { AlAparecerUna<QWidget>(std::move(accion), "a modal window to come up"); }

bool Esperar(const std::function<bool()>& condicion) { return QTest::qWaitFor(condicion, kPlazoMs); }

void ResponderCaja(CajaVista& vista, const QString& boton, const std::string& captura) {
    AlAparecerUna<QMessageBox>([&vista, boton, captura] {
        auto* caja = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(caja, nullptr) << "no message box";
        vista = {caja->windowTitle(), caja->text(), caja->icon(), {}};
        QAbstractButton* pulsado = nullptr;
        for (QAbstractButton* b : caja->buttons()) {
            vista.botones << b->text();
            if (b->text() == boton) pulsado = b;
        }
        vista.botones.sort();
        if (!captura.empty()) Captura(caja, captura);
        ASSERT_NE(pulsado, nullptr) << "no button " << boton.toStdString();
        QTest::mouseClick(pulsado, Qt::LeftButton);
    }, "a message box to come up");
}

void ResponderSelector(std::optional<QString> ruta, std::function<void(QFileDialog*)> ver) {
    AlAparecerUna<QFileDialog>([ruta, ver] {
        QPointer<QFileDialog> selector = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_FALSE(selector.isNull()) << "no file or folder picker";
        if (ver) ver(selector);
        if (!ruta) {
            selector->reject();
            return;
        }
        const QString buscada = QDir::cleanPath(*ruta);
        selector->selectFile(buscada);
        // The picker fills its view of the folder behind the scenes; until it
        // has the path as its selection, accepting would answer the folder.
        CuandoSe(
            [selector, buscada] {
                if (selector.isNull()) return true;
                const QStringList elegidos = selector->selectedFiles();
                return elegidos.size() == 1 && QDir::cleanPath(elegidos.first()) == buscada;
            },
            [selector] {
                if (!selector.isNull()) static_cast<QDialog*>(selector.data())->accept();
            },
            "the picker to take " + buscada.toStdString());
    }, "a file or folder picker to come up");
}

platform::VentanaQt* VentanaActiva() { return dynamic_cast<platform::VentanaQt*>(QApplication::activeModalWidget()); }

std::vector<platform::VentanaQt*> VentanasDe(const std::string& clase) {
    std::vector<platform::VentanaQt*> ventanas;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* ventana = dynamic_cast<platform::VentanaQt*>(widget);
        if (ventana != nullptr && !ventana->Terminada() && ventana->Modelo().Clase() == clase) ventanas.push_back(ventana);
    }
    return ventanas;
}

void Teclear(QWidget* widget, const QString& texto) {
    for (const QChar caracter : texto) {
        const auto tecla = static_cast<Qt::Key>(caracter.toUpper().unicode());
        QTest::sendKeyEvent(QTest::Click, widget, tecla, QString(caracter), Qt::NoModifier);
    }
}

QString Rotulo(QWidget* campo) {
    for (QLabel* rotulo : campo->window()->findChildren<QLabel*>()) {
        if (rotulo->buddy() == campo) return rotulo->text();
    }
    return {};
}

void Captura(QWidget* ventana, const std::string& nombre) {
    const char* carpeta = std::getenv("CELDORA_ARTEFACTOS");
    const std::filesystem::path destino =
        carpeta != nullptr && *carpeta != '\0' ? carpeta : CELDORA_ARTEFACTOS_POR_DEFECTO;
    std::filesystem::create_directories(destino);
    const std::string ruta = (destino / (nombre + ".png")).string();
    EXPECT_TRUE(ventana->grab().save(QString::fromStdString(ruta), "PNG")) << ruta;
}

Vigilante::Vigilante(int milisegundos) {
    reloj_.setInterval(milisegundos);
    QObject::connect(&reloj_, &QTimer::timeout, [] {
        ADD_FAILURE() << "a window was left waiting";
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* ventana = dynamic_cast<platform::VentanaQt*>(widget); ventana != nullptr && !ventana->Terminada()) {
                ventana->Modelo().Hide();
            } else if (auto* dialogo = qobject_cast<QDialog*>(widget); dialogo != nullptr && dialogo->isVisible()) {
                dialogo->reject();
            }
        }
    });
    reloj_.start();
}

void ElegirEn(QComboBox* lista, const QString& texto) {
    for (int i = 0; i < lista->count() && lista->currentText() != texto; ++i) QTest::keyClick(lista, Qt::Key_Down);
    EXPECT_EQ(lista->currentText(), texto);
}

}  // namespace celdora::testing
