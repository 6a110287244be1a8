#include "platform/qt/AplicacionQt.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>
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
    traduccion_ = std::make_unique<QTranslator>();
    if (traduccion_->load(QStringLiteral("qtbase_es"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(traduccion_.get());
    }
}

AplicacionQt::~AplicacionQt() {
    // The translation goes before the application that uses it.
    if (traduccion_ != nullptr) QApplication::removeTranslator(traduccion_.get());
    traduccion_.reset();
}

}  // namespace celdora::platform
