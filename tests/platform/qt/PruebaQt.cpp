#include "tests/platform/qt/PruebaQt.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QLabel>
#include <QTest>
#include <cstdlib>
#include <filesystem>

namespace celdora::testing {

void Despues(std::function<void()> accion) { QTimer::singleShot(0, qApp, std::move(accion)); }

platform::VentanaQt* VentanaActiva() { return dynamic_cast<platform::VentanaQt*>(QApplication::activeModalWidget()); }

platform::VentanaQt* VentanaDe(const forms::Dialogo& dialogo) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* ventana = dynamic_cast<platform::VentanaQt*>(widget);
        if (ventana != nullptr && !ventana->Terminada() && &ventana->Modelo() == &dialogo) return ventana;
    }
    return nullptr;
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

Vigilante::~Vigilante() = default;

}  // namespace celdora::testing
