#pragma once

// What the gui tests share: the Qt platform installed for a test, actions
// that run once a window, a box or a picker is up (waiting for that, never
// for a time), answers to boxes and pickers, the window and widgets of a
// dialog, a watchdog for a window left waiting, and pictures of the windows.

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QMessageBox>
#include <QTimer>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop/PlataformaEscritorio.h"
#include "platform/qt/QtUi.h"
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

// How long a test waits for a window, a widget or a file before it fails.
constexpr int kPlazoMs = 20000;

// Runs the action as soon as the condition holds, looked at while the message
// loop turns (also inside a modal window's own loop); fails the test with the
// description when it has not held within the deadline.
void CuandoSe(std::function<bool()> condicion, std::function<void()> accion, std::string que);

// Runs the action on the next modal window that comes up: a dialog's window,
// a box or a picker other than the one waiting when this is called.
void AlAparecer(std::function<void()> accion);

// Turns the message loop until the condition holds; false at the deadline.
bool Esperar(const std::function<bool()>& condicion);

// What a message box showed.
struct CajaVista {
    QString titulo;
    QString texto;
    QMessageBox::Icon icono = QMessageBox::NoIcon;
    QStringList botones;  // sorted: the style sets their order on the screen
};

// Answers the next message box with the button of this text, noting what the
// box showed and saving its picture when a name is given.
void ResponderCaja(CajaVista& vista, const QString& boton, const std::string& captura = "");

// Answers the next file or folder picker with this path, or cancels it when
// there is none. The picker is accepted only once it has taken the path, so
// it answers with the path and not with the folder it was showing. `ver`
// looks at the picker first (its title, mode, filters).
void ResponderSelector(std::optional<QString> ruta, std::function<void(QFileDialog*)> ver = {});

// The window of the dialog waiting modally now; null when none.
platform::VentanaQt* VentanaActiva();
// The windows up and not done that draw a dialog of this class.
std::vector<platform::VentanaQt*> VentanasDe(const std::string& clase);

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

// Picks an item of a combo with the keyboard, as a person does: Down until
// it shows.
void ElegirEn(QComboBox* lista, const QString& texto);

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

private:
    QTimer reloj_;
};

}  // namespace celdora::testing
