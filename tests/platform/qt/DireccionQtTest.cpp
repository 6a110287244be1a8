// The address control on its real widgets over the demo company's places:
// country, state and city picked in their lists reach the model, and a city
// added through its button and input box is written and chosen. A tab page
// out of use can't be opened.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QGroupBox>
#include <QInputDialog>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "platform/common/Catalogo.h"
#include "tests/platform/qt/PruebaQt.h"
#include "tests/support/CompanyFixture.h"

namespace celdora::testing {
namespace {

class DlgDomicilio : public forms::Dialogo {
public:
    explicit DlgDomicilio(const std::shared_ptr<Object>& lugares) : Dialogo("dlgDomicilio", "Domicilio") {
        eDir.Colocar("tabs", 0);
        eDir.titulo("Domicilio Fiscal");
        eDir.direccionSeparada(true);
        eDir.canaddcountry = false;
        eDir.conectar(lugares);
        tabs.PaginaHabilitada(1, false);
    }
    forms::TabControl& tabs =
        Agregar<forms::TabControl>("tabs", std::vector<std::string>{"Emisor", "Domicilio de expedición"});
    forms::AddressControl& eDir = Agregar<forms::AddressControl>("eDir");
};

// Picks an item with the keyboard, as a person does: Down until it shows.
void ElegirEn(QComboBox* lista, const QString& texto) {
    for (int i = 0; i < lista->count() && lista->currentText() != texto; ++i) QTest::keyClick(lista, Qt::Key_Down);
    EXPECT_EQ(lista->currentText(), texto);
}

TEST(DireccionQt, PlacesPickedOnTheWidgetsReachTheModelAndACityIsAddedThroughItsButton) {
    PlataformaQt qt;
    Vigilante vigilante;
    CompanyDatabase db(CompanyDatabase::Datos::Demo);
    DlgDomicilio dlg(platform::CatalogoPaises(db.cnn).nvlands());
    QString pregunta;
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        auto* pestanas = Widget<QTabWidget>(v, "tabs");
        EXPECT_FALSE(pestanas->isTabEnabled(1)) << "the page out of use can't be opened";
        auto* caja = Widget<QGroupBox>(v, "eDir");
        EXPECT_EQ(caja->title(), "Domicilio Fiscal");
        EXPECT_TRUE(Widget<QPushButton>(caja, "agregarPais")->isHidden());
        auto* agregarCiudad = Widget<QPushButton>(caja, "agregarCiudad");
        EXPECT_FALSE(agregarCiudad->isEnabled()) << "no country to add a city to yet";

        ElegirEn(Widget<QComboBox>(caja, "pais"), QStringLiteral("México"));
        ElegirEn(Widget<QComboBox>(caja, "estado"), QStringLiteral("Nuevo León"));
        auto* ciudad = Widget<QComboBox>(caja, "ciudad");
        ElegirEn(ciudad, QStringLiteral("Monterrey"));
        EXPECT_EQ((std::vector<std::int32_t>{dlg.eDir.pais(), dlg.eDir.estado(), dlg.eDir.ciudad()}),
                  (std::vector<std::int32_t>{1, 1, 2}));

        AlAparecer([&] {
            auto* pide = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(pide, nullptr);
            pregunta = pide->labelText();
            pide->setTextValue(QStringLiteral("San Pedro Garza García"));
            pide->accept();
        });
        QTest::mouseClick(agregarCiudad, Qt::LeftButton);
        EXPECT_EQ(ciudad->currentText(), "San Pedro Garza García");
        Captura(v, "direccion_lugares");
        dlg.Hide();
    });
    dlg.ShowModal();

    EXPECT_EQ(pregunta, "Nombre de la ciudad:");
    EXPECT_EQ((std::vector<std::int32_t>{dlg.eDir.pais(), dlg.eDir.estado(), dlg.eDir.ciudad()}),
              (std::vector<std::int32_t>{1, 1, 6}));
    EXPECT_EQ(db.Contar("Ciudad WHERE Sys_PK = 6 AND Nombre = 'San Pedro Garza García' AND IPais = 1 AND IEstado = 1"),
              1);
}

}  // namespace
}  // namespace celdora::testing
