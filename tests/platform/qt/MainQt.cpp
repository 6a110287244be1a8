// The gui tests share one QApplication, created only when tests run (not
// when they are listed). Without a platform named, they draw offscreen.

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <memory>

#include "platform/qt/AplicacionQt.h"

namespace {

class EntornoQt : public ::testing::Environment {
public:
    void SetUp() override { aplicacion_ = std::make_unique<celdora::platform::AplicacionQt>(); }
    void TearDown() override { aplicacion_.reset(); }

private:
    std::unique_ptr<celdora::platform::AplicacionQt> aplicacion_;
};

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", QByteArray("offscreen"));
    // Without a runtime folder Qt makes one of its own in the system's
    // temporary folder and leaves it there; the tests' one goes with them.
    QTemporaryDir tiempoDeEjecucion;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR") && tiempoDeEjecucion.isValid()) {
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(tiempoDeEjecucion.path()));
    }
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::AddGlobalTestEnvironment(new EntornoQt);
    return RUN_ALL_TESTS();
}
