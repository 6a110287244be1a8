#pragma once

// The Qt application object that every window needs, and whether there is a
// screen to show windows on. No Qt header here: a host includes this without
// Qt's.

#include <memory>

class QApplication;
class QTranslator;

namespace celdora::platform {

// The name a message box without a title of its own shows.
inline constexpr const char* kNombreAplicacion = "Celdora";

// True when Qt can show windows: a platform plugin is named in QT_QPA_PLATFORM
// (offscreen included), or an X11 or Wayland display is set. Without one,
// creating the application would end the process.
bool HayPantalla();

// Creates the process's QApplication when none exists yet and destroys it
// with itself; when one exists already (a host of its own) it leaves that one
// alone. The application it creates speaks Spanish in Qt's own windows (file
// pickers) when Qt's translations are installed. Only one may own the
// application at a time.
class AplicacionQt {
public:
    AplicacionQt();
    ~AplicacionQt();
    AplicacionQt(const AplicacionQt&) = delete;
    AplicacionQt& operator=(const AplicacionQt&) = delete;

    // Whether this object created the application.
    bool Propia() const { return propia_ != nullptr; }

private:
    int argc_ = 1;
    char nombre_[8] = "celdora";
    char* argv_[2] = {nombre_, nullptr};
    std::unique_ptr<QApplication> propia_;
    std::unique_ptr<QTranslator> traduccion_;
};

}  // namespace celdora::platform
