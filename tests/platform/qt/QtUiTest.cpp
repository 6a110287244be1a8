#include "platform/qt/QtUi.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <string>

#include "forms/Controles.h"
#include "forms/Dialogo.h"
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

TEST_F(QtUiTest, MessageBoxesShowTextIconTitleAndSpanishButtons) {
    struct Caso {
        Botones botones;
        Icono icono;
        const char* titulo;
        const char* pulsar;
        Respuesta respuesta;
        QMessageBox::Icon iconoQt;
        QString tituloVisto;
        QStringList botonesVistos;
    };
    // A box without a title shows the application's name.
    const Caso casos[] = {
        {Botones::Aceptar, Icono::Critico, "Tiendaro", "Aceptar", Respuesta::Aceptar, QMessageBox::Critical, "Tiendaro", {"Aceptar"}},
        {Botones::SiNo, Icono::Pregunta, "", "No", Respuesta::No, QMessageBox::Question, "Celdora", {"No", "Sí"}},
        {Botones::SiNoCancelar, Icono::Exclamacion, "", "Sí", Respuesta::Si, QMessageBox::Warning, "Celdora",
         {"Cancelar", "No", "Sí"}},
        {Botones::AceptarCancelar, Icono::Informacion, "Informe", "Cancelar", Respuesta::Cancelar,
         QMessageBox::Information, "Informe", {"Aceptar", "Cancelar"}},
        {Botones::Aceptar, Icono::Ninguno, "", "Aceptar", Respuesta::Aceptar, QMessageBox::NoIcon, "Celdora", {"Aceptar"}},
    };
    int n = 0;
    for (const Caso& caso : casos) {
        SCOPED_TRACE(caso.pulsar);
        CajaVista vista;
        ResponderCaja(vista, caso.pulsar, "caja_" + std::to_string(++n));
        EXPECT_EQ(qt.ui.MsgBox("Permiso denegado.", caso.botones, caso.icono, caso.titulo), caso.respuesta);
        EXPECT_EQ(vista.texto, "Permiso denegado.");
        EXPECT_EQ(vista.icono, caso.iconoQt);
        EXPECT_EQ(vista.titulo, caso.tituloVisto);
        EXPECT_EQ(vista.botones, caso.botonesVistos);
    }
}

TEST_F(QtUiTest, EscapeOnABoxAnswersItsLastButton) {
    AlAparecer([] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    EXPECT_EQ(qt.ui.MsgBox("¿Guardar?", Botones::SiNoCancelar, Icono::Pregunta, ""), Respuesta::Cancelar);
    AlAparecer([] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    EXPECT_EQ(qt.ui.MsgBox("¿Eliminar?", Botones::SiNo, Icono::Pregunta, ""), Respuesta::No);
}

TEST_F(QtUiTest, ABoxFromAHandlerStandsOverTheDialogAndTheDialogWaitsOn) {
    class DlgPregunta : public forms::Dialogo {
    public:
        DlgPregunta() : Dialogo("dlgPregunta", "Pregunta") {
            Agregar<forms::CommandButton>("btnCancel", "&Cancelar envío").Click = [this] {
                if (host::CurrentPlatform().Ui().MsgBox("¿Está seguro que desea cancelar el envío?", Botones::SiNo,
                                                        Icono::Pregunta, "") == Respuesta::Si) {
                    Hide();
                }
            };
        }
    } dlg;
    CajaVista primera;
    CajaVista segunda;
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        ResponderCaja(primera, "No");
        QTest::mouseClick(Widget<QPushButton>(v, "btnCancel"), Qt::LeftButton);
        EXPECT_TRUE(v->isVisible()) << "answered No, the dialog stays";
        ResponderCaja(segunda, "Sí");
        QTest::mouseClick(Widget<QPushButton>(v, "btnCancel"), Qt::LeftButton);
    });
    dlg.ShowModal();
    EXPECT_EQ(primera.texto, "¿Está seguro que desea cancelar el envío?");
    EXPECT_EQ(segunda.botones, (QStringList{"No", "Sí"}));
    EXPECT_FALSE(dlg.Visible());
}

TEST(FiltroArchivosQt, TurnsTheSystemsFilterIntoQts) {
    using platform::FiltroArchivosQt;
    EXPECT_EQ(FiltroArchivosQt("Archivos de texto (*.txt)|*.txt|Todos los archivos|*.*"),
              "Archivos de texto (*.txt) (*.txt);;Todos los archivos (*.*)");
    EXPECT_EQ(FiltroArchivosQt("Imágenes|*.jpg;*.bmp; *.gif"), "Imágenes (*.jpg *.bmp *.gif)");
    EXPECT_EQ(FiltroArchivosQt("Certificado|*.cer|Sin patrón"), "Certificado (*.cer)");
    EXPECT_EQ(FiltroArchivosQt(""), "");
}

// Notes the mode, filters and title of the picker it is given.
struct SelectorVisto {
    QFileDialog::AcceptMode modo{};
    QStringList filtros;
    QString titulo;
    std::function<void(QFileDialog*)> Ver() {
        return [this](QFileDialog* selector) {
            modo = selector->acceptMode();
            filtros = selector->nameFilters();
            titulo = selector->windowTitle();
        };
    }
};

TEST_F(QtUiTest, FileAndFolderPickersGiveThePathChosenOrNothingWhenCancelled) {
    CarpetaTemporal carpeta;
    const std::string destino = carpeta / "informe.txt";
    SelectorVisto visto;
    ResponderSelector(QString::fromStdString(destino), visto.Ver());
    const auto guardado = qt.ui.ShowSave({"Archivos de texto|*.txt|Todos|*.*", "informe.txt", "Guardar como..."});
    EXPECT_EQ(guardado, destino);
    EXPECT_EQ(visto.modo, QFileDialog::AcceptSave);
    EXPECT_EQ(visto.filtros, (QStringList{"Archivos de texto (*.txt)", "Todos (*.*)"}));
    EXPECT_EQ(visto.titulo, "Guardar como...");

    std::ofstream(carpeta / "CBB.bmp") << "BM";
    ResponderSelector(QString::fromStdString(carpeta / "CBB.bmp"), visto.Ver());
    EXPECT_EQ(qt.ui.ShowOpen({"Imágenes|*.bmp", "", "Abrir"}), carpeta / "CBB.bmp");
    EXPECT_EQ(visto.modo, QFileDialog::AcceptOpen);

    ResponderSelector(std::nullopt);
    EXPECT_EQ(qt.ui.ShowOpen({"", "", ""}), std::nullopt);

    std::filesystem::create_directories(carpeta.ruta() / "Informes");
    ResponderSelector(QString::fromStdString(carpeta / "Informes"), visto.Ver());
    EXPECT_EQ(qt.ui.BrowseForFolder("Seleccione la carpeta destino", carpeta.ruta().string()), carpeta / "Informes");
    EXPECT_EQ(visto.titulo, "Seleccione la carpeta destino");
    ResponderSelector(std::nullopt);
    EXPECT_EQ(qt.ui.BrowseForFolder("Carpeta", "/no/existe"), std::nullopt);
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
    EXPECT_EQ(qt.ui.MousePointerActual(), host::Puntero::Normal);
}

TEST_F(QtUiTest, APictureLoadedByItsContentsShowsInItsBox) {
    CarpetaTemporal carpeta;
    QImage imagen(24, 16, QImage::Format_RGB32);
    imagen.fill(Qt::darkBlue);
    // The name says jpg; the contents are a PNG.
    const std::string ruta = carpeta / "tmpimage.jpg";
    ASSERT_TRUE(imagen.save(QString::fromStdString(ruta), "PNG"));
    auto picture = qt.ui.LoadPicture(ruta);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->Formato(), "png");
    EXPECT_EQ(qt.ui.LoadPicture(carpeta / "no-hay.bmp"), nullptr);

    class DlgImagen : public forms::Dialogo {
    public:
        DlgImagen() : Dialogo("dlgImagen", "Código") { imgCBB = &Agregar<forms::PictureBox>("imgCBB"); }
        forms::PictureBox* imgCBB;
    } dlg;
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        auto* caja = Widget<QLabel>(v, "imgCBB");
        EXPECT_TRUE(caja->pixmap().isNull());
        dlg.imgCBB->Picture(picture);
        EXPECT_EQ(caja->pixmap().size(), QSize(24, 16));
        Captura(v, "ventana_imagen");
        dlg.Hide();
    });
    dlg.ShowModal();
}

// Sets environment variables for a test and puts the former values back.
class Variables {
public:
    ~Variables() {
        for (const auto& [nombre, antes] : antes_) {
            if (antes) {
                setenv(nombre.c_str(), antes->c_str(), 1);
            } else {
                unsetenv(nombre.c_str());
            }
        }
    }
    void Poner(const std::string& nombre, const char* valor) {
        if (antes_.find(nombre) == antes_.end()) {
            const char* antes = std::getenv(nombre.c_str());
            antes_[nombre] = antes == nullptr ? std::nullopt : std::optional<std::string>(antes);
        }
        if (valor == nullptr) {
            unsetenv(nombre.c_str());
        } else {
            setenv(nombre.c_str(), valor, 1);
        }
    }

private:
    std::map<std::string, std::optional<std::string>> antes_;
};

TEST(HayPantalla, ANamedPlatformOrADisplayIsAScreen) {
    struct Caso {
        const char* qpa;
        const char* display;
        const char* wayland;
        bool pantalla;
    };
    const Caso casos[] = {{nullptr, "", nullptr, false},
                          {nullptr, ":99", nullptr, true},
                          {nullptr, "", "wayland-0", true},
                          {"offscreen", "", nullptr, true}};
    Variables entorno;
    for (const Caso& caso : casos) {
        entorno.Poner("QT_QPA_PLATFORM", caso.qpa);
        entorno.Poner("DISPLAY", caso.display);
        entorno.Poner("WAYLAND_DISPLAY", caso.wayland);
        EXPECT_EQ(platform::HayPantalla(), caso.pantalla) << caso.display << " " << (caso.wayland ? caso.wayland : "");
    }
}

}  // namespace
}  // namespace celdora::testing
