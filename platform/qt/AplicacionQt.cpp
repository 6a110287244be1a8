#include "platform/qt/AplicacionQt.h"

#include <QApplication>
#include <cstdlib>

namespace celdora::platform {

namespace {

bool Definida(const char* variable) {
    const char* valor = std::getenv(variable);
    return valor != nullptr && *valor != '\0';
}

}  // namespace

bool HayPantalla() { return Definida("QT_QPA_PLATFORM") || Definida("DISPLAY") || Definida("WAYLAND_DISPLAY"); }

AplicacionQt::AplicacionQt() {
    if (QApplication::instance() != nullptr) return;
    propia_ = std::make_unique<QApplication>(argc_, argv_);
    QApplication::setApplicationName(QString::fromLatin1(kNombreAplicacion));
}

AplicacionQt::~AplicacionQt() = default;

}  // namespace celdora::platform
