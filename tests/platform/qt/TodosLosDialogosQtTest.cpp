// Every dialog that `celdora dialog` opens by name, drawn by the Qt renderer
// on the demo company: on each of its pages no widget shown is narrower than
// its size hint, no list column narrower than its heading, no wrapped label
// lower than its lines and no button blank; panels that share a place stand
// in one cell. A picture of the dialog as it opens is left behind.

#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <set>

#include "core/Dialogos.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "platform/common/Catalogo.h"
#include "tests/platform/qt/PruebaQt.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/ConfiguracionPrivada.h"

namespace celdora::testing {
namespace {

// The parts of a composite widget (a combo's line, a list's scroll bars and
// headings, the tab bar's arrows) are sized by the widget that holds them.
bool Parte(const QWidget* widget, const QWidget* ventana) {
    for (const QWidget* arriba = widget->parentWidget(); arriba != ventana; arriba = arriba->parentWidget()) {
        if (qobject_cast<const QComboBox*>(arriba) || qobject_cast<const QAbstractSpinBox*>(arriba) ||
            qobject_cast<const QAbstractScrollArea*>(arriba) || qobject_cast<const QTabBar*>(arriba)) {
            return true;
        }
    }
    return false;
}

class Revision {
public:
    Revision(QWidget* ventana, std::string clase) : ventana_(ventana), clase_(std::move(clase)) {}

    // The widgets and the list headings shown now, each looked at once.
    void Mirar() {
        for (QWidget* widget : ventana_->findChildren<QWidget*>()) {
            if (!widget->isVisible() || !vistos_.insert(widget).second) continue;
            if (auto* encabezado = qobject_cast<QHeaderView*>(widget)) {
                for (int columna = 0; columna < encabezado->count(); ++columna) {
                    EXPECT_GE(encabezado->sectionSize(columna), encabezado->sectionSizeHint(columna))
                        << clase_ << ": column " << columna << " of " << Nombre(encabezado->parentWidget())
                        << " is narrower than its heading";
                }
            }
            if (Parte(widget, ventana_)) continue;
            EXPECT_GE(widget->width(), widget->sizeHint().width())
                << clase_ << ": " << Nombre(widget) << " is " << widget->width() << " wide, its size hint "
                << widget->sizeHint().width();
            if (auto* boton = qobject_cast<QPushButton*>(widget); boton != nullptr && boton->text().isEmpty()) {
                EXPECT_FALSE(boton->icon().isNull()) << clase_ << ": " << Nombre(widget) << " shows nothing";
            }
            // A label that wraps its text needs the height of all its lines.
            if (qobject_cast<QLabel*>(widget) && widget->hasHeightForWidth()) {
                EXPECT_GE(widget->height(), widget->heightForWidth(widget->width()))
                    << clase_ << ": " << Nombre(widget) << " is too low for its lines";
            }
        }
    }

    // Every page that a person can open in the tabs shown here, the pages
    // inside them too.
    void Paginas(QWidget* dentro) {
        for (QTabWidget* pestanas : dentro->findChildren<QTabWidget*>(Qt::FindDirectChildrenOnly)) {
            for (int pagina = 0; pestanas->isVisible() && pagina < pestanas->count(); ++pagina) {
                if (!pestanas->isTabEnabled(pagina)) continue;
                pestanas->setCurrentIndex(pagina);
                QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
                Mirar();
                Paginas(pestanas->widget(pagina));
            }
        }
    }

private:
    static std::string Nombre(const QWidget* widget) {
        return widget->objectName().toStdString() + " (" + widget->metaObject()->className() + ")";
    }

    QWidget* ventana_;
    std::string clase_;
    std::set<QWidget*> vistos_;
};

class TodosLosDialogosQt : public ::testing::TestWithParam<std::string> {};

TEST_P(TodosLosDialogosQt, EveryPageShowsEveryTextWhole) {
    PlataformaQt qt;
    Vigilante vigilante{20000};
    ConfiguracionPrivada configuracion;
    mdlMain::SoltarObjetosCompartidos();
    CompanyDatabase db{CompanyDatabase::Datos::Demo};
    cAcction acc;
    acc.SetDataObjects(db.dataObjects, std::make_shared<platform::CatalogoPaises>(db.cnn));
    const std::string clase = GetParam();
    auto dialogo = dialogos::Crear(clase, acc);
    ASSERT_NE(dialogo, nullptr);
    AlAparecer([&] {
        platform::VentanaQt* ventana = VentanaActiva();
        ASSERT_NE(ventana, nullptr);
        Captura(ventana, clase);
        for (const auto& control : dialogo->Controles()) {
            // A button with a picture shows one beside its caption.
            if (auto* boton = dynamic_cast<const forms::CommandButton*>(control.get());
                boton != nullptr && boton->Dibujo() != forms::CommandButton::Imagen::Ninguna) {
                auto* widget = qobject_cast<QPushButton*>(ventana->WidgetDe(*boton));
                ASSERT_NE(widget, nullptr);
                EXPECT_TRUE(!widget->icon().isNull() && !widget->text().isEmpty()) << clase << ": " << boton->Nombre();
            }
            const forms::Control* otro = dialogo->Buscar(control->Lugar());
            if (otro == nullptr) continue;
            EXPECT_EQ(ventana->WidgetDe(*control)->geometry(), ventana->WidgetDe(*otro)->geometry()) << clase;
        }
        Revision revision(ventana, clase);
        revision.Mirar();
        revision.Paginas(ventana);
        dialogo->Hide();
    });
    dialogo->ShowModal();
    mdlMain::SoltarObjetosCompartidos();
}

INSTANTIATE_TEST_SUITE_P(PorNombre, TodosLosDialogosQt, ::testing::ValuesIn(dialogos::Nombres()),
                         [](const ::testing::TestParamInfo<std::string>& info) { return info.param; });

}  // namespace
}  // namespace celdora::testing
