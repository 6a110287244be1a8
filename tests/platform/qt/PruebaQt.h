#pragma once

// What the gui tests share: the Qt platform installed for a test, actions
// that run once a modal window is waiting, the window and widgets of a
// dialog, a watchdog for a window left waiting, and pictures of the windows.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "platform/desktop/PlataformaEscritorio.h"
#include "platform/qt/QtUi.h"
#include "platform/qt/TextoQt.h"
#include "platform/qt/VentanaQt.h"
#include "tests/support/FixedClock.h"

namespace celdora::testing {

// The Qt user interface as the process's platform, for one test.
struct PlataformaQt {
    platform::QtUi ui;
    FixedClock reloj{DateSerial(2026, 11, 22)};
    platform::PlataformaEscritorio plataforma{ui, reloj};
    platform::PlataformaInstalada instalada{plataforma};
};

// Runs the action once the message loop turns: scheduled before a modal
// showing, it runs while the window waits.
void Despues(std::function<void()> accion);

// The window of the dialog waiting modally now; null when none.
platform::VentanaQt* VentanaActiva();
// The window that draws this dialog without waiting; null when none is up.
platform::VentanaQt* VentanaDe(const forms::Dialogo& dialogo);

// A widget by the name of its control, failing the test when it is missing
// or of another kind.
template <class T>
T* Widget(QWidget* ventana, const char* nombre) {
    T* widget = ventana == nullptr ? nullptr : ventana->findChild<T*>(QString::fromLatin1(nombre));
    if (widget == nullptr) ADD_FAILURE() << "no widget " << nombre;
    return widget;
}

// Types the text into the widget key by key, as a person does; unlike
// QTest::keyClicks it types letters beyond ASCII ("ñ", "á").
void Teclear(QWidget* widget, const QString& texto);

// The text of the label beside a field.
QString Rotulo(QWidget* campo);

// Saves a picture of the window as NAME.png in the folder named by
// CELDORA_ARTEFACTOS, or else the build's "artefactos" folder.
void Captura(QWidget* ventana, const std::string& nombre);

// Fails the test and hides whatever is left waiting (dialog windows, boxes,
// pickers) when the test has not finished within its time, so that a broken
// renderer fails instead of hanging.
class Vigilante {
public:
    explicit Vigilante(int milisegundos = 8000);
    ~Vigilante();

private:
    QTimer reloj_;
};

}  // namespace celdora::testing
