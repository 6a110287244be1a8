#include "platform/qt/QtUi.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QTest>
#include <fstream>
#include <tuple>

#include "tests/platform/qt/PruebaQt.h"
#include "tests/support/CarpetaTemporal.h"

namespace celdora::testing {
namespace {

using host::Botones;
using host::Icono;
using host::Respuesta;

class QtUiTest : public ::testing::Test {
protected:
    PlataformaQt qt;
    Vigilante vigilante;
};

TEST_F(QtUiTest, MessageBoxesShowTextIconTitleAndSpanishButtonsAndEscapeAnswersTheLast) {
    struct Caso {
        Botones botones;
        Icono icono;
        const char* titulo;
        const char* pulsar;
        Respuesta respuesta;
        QMessageBox::Icon iconoQt;
        QStringList botonesVistos;
    };
    const Caso casos[] = {
        {Botones::Aceptar, Icono::Critico, "Tiendaro", "Aceptar", Respuesta::Aceptar, QMessageBox::Critical, {"Aceptar"}},
        {Botones::SiNo, Icono::Pregunta, "", "No", Respuesta::No, QMessageBox::Question, {"No", "Sí"}},
        {Botones::SiNoCancelar, Icono::Exclamacion, "", "Sí", Respuesta::Si, QMessageBox::Warning, {"Cancelar", "No", "Sí"}},
        {Botones::AceptarCancelar, Icono::Informacion, "Informe", "Cancelar", Respuesta::Cancelar,
         QMessageBox::Information, {"Aceptar", "Cancelar"}},
        {Botones::Aceptar, Icono::Ninguno, "", "Aceptar", Respuesta::Aceptar, QMessageBox::NoIcon, {"Aceptar"}},
    };
    int n = 0;
    for (const Caso& caso : casos) {
        SCOPED_TRACE(caso.pulsar);
        CajaVista vista;
        ResponderCaja(vista, caso.pulsar, "caja_" + std::to_string(++n));
        EXPECT_EQ(qt.ui.MsgBox("Permiso denegado.", caso.botones, caso.icono, caso.titulo), caso.respuesta);
        EXPECT_EQ(vista.texto, "Permiso denegado.");
        EXPECT_EQ(vista.icono, caso.iconoQt);
        // A box without a title shows the application's name.
        EXPECT_EQ(vista.titulo, *caso.titulo == '\0' ? "Celdora" : caso.titulo);
        EXPECT_EQ(vista.botones, caso.botonesVistos);
    }
    // Escape answers a box's last button.
    AlAparecer([] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    EXPECT_EQ(qt.ui.MsgBox("¿Guardar?", Botones::SiNoCancelar, Icono::Pregunta, ""), Respuesta::Cancelar);
    AlAparecer([] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    EXPECT_EQ(qt.ui.MsgBox("¿Eliminar?", Botones::SiNo, Icono::Pregunta, ""), Respuesta::No);
}

TEST_F(QtUiTest, FileAndFolderPickersGiveThePathChosenOrNothingWhenCancelled) {
    CarpetaTemporal carpeta;
    const std::string destino = carpeta / "informe.txt";
    // What the last picker showed: its mode, filters and title.
    QStringList visto;
    auto ver = [&visto](QFileDialog* selector) {
        visto = selector->nameFilters();
        visto << (selector->acceptMode() == QFileDialog::AcceptSave ? "guardar" : "abrir") << selector->windowTitle();
    };
    // The system's filter turns into Qt's: a description without a pattern
    // is left out, and patterns apart with ";" go together.
    ResponderSelector(QString::fromStdString(destino), ver);
    EXPECT_EQ(qt.ui.ShowSave({"Archivos de texto|*.txt|Todos|*.*|Sin patrón", "informe.txt", "Guardar como..."}), destino);
    EXPECT_EQ(visto, (QStringList{"Archivos de texto (*.txt)", "Todos (*.*)", "guardar", "Guardar como..."}));

    std::ofstream(carpeta / "CBB.bmp") << "BM";
    ResponderSelector(QString::fromStdString(carpeta / "CBB.bmp"), ver);
    EXPECT_EQ(qt.ui.ShowOpen({"Imágenes|*.jpg;*.bmp; *.gif", "", "Abrir"}), carpeta / "CBB.bmp");
    EXPECT_EQ(visto, (QStringList{"Imágenes (*.jpg *.bmp *.gif)", "abrir", "Abrir"}));
    // The folder picker answering a folder is in the monthly report's test.
    ResponderSelector(std::nullopt, ver);
    EXPECT_EQ(qt.ui.BrowseForFolder("Seleccione la carpeta destino", carpeta.ruta().string()), std::nullopt);
    EXPECT_EQ(visto.last(), "Seleccione la carpeta destino");
}

TEST_F(QtUiTest, ClipboardAndWaitCursor) {
    qt.ui.ClipboardSetText("1|AAA010101AAA|112026");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "1|AAA010101AAA|112026");
    qt.ui.ClipboardClear();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "");

    qt.ui.MousePointer(host::Puntero::Reloj);
    qt.ui.MousePointer(host::Puntero::Reloj);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    EXPECT_EQ(qt.ui.MousePointerActual(), host::Puntero::Reloj);
    qt.ui.MousePointer(host::Puntero::Normal);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "the wait cursor is set once and taken away once";
}

TEST(HayPantalla, ANamedPlatformOrADisplayIsAScreen) {
    const char* nombres[] = {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"};
    QByteArray antes[3];
    for (int i = 0; i < 3; ++i) antes[i] = qgetenv(nombres[i]);
    // platform, X display, Wayland display (none when null), and whether that is a screen
    const std::tuple<const char*, const char*, const char*, bool> casos[] = {
        {nullptr, "", nullptr, false}, {nullptr, ":99", nullptr, true},
        {nullptr, "", "wayland-0", true}, {"offscreen", "", nullptr, true}};
    for (const auto& [qpa, display, wayland, pantalla] : casos) {
        const char* valores[] = {qpa, display, wayland};
        for (int i = 0; i < 3; ++i) valores[i] == nullptr ? qunsetenv(nombres[i]) : qputenv(nombres[i], valores[i]);
        EXPECT_EQ(platform::HayPantalla(), pantalla) << display << " " << (wayland ? wayland : "");
    }
    for (int i = 0; i < 3; ++i) antes[i].isNull() ? qunsetenv(nombres[i]) : qputenv(nombres[i], antes[i]);
}

}  // namespace
}  // namespace celdora::testing
