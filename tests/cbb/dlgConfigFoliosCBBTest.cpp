// The CBB range editor on the demo company (schema/README.md): blocks 6
// (Factura E) and 7 (Nota de cargo G) are free; ranges 1 (block 5, no image)
// and 2 (block 9, no approval date either) are stored.

#include <gtest/gtest.h>

#include "cbb/dlgConfigFoliosCBB.h"
#include "tests/cbb/ImagenesCBB.h"
#include "tests/support/FachadaDemo.h"
#include "tests/support/MotorDeOtroDialecto.h"
#include "tests/support/TemporalPrivado.h"
#include "value/Format.h"
#include "value/Text.h"

namespace celdora {
namespace {

using host::Icono;
using testing::Dialecto;
using testing::Textos;

const std::string kTraslape = "El rango de folios introducido ya ha sido utilizado con anterioridad";

struct Rango {
    int block;
    double inicial, final;
    std::string serie = "";
    std::string imagen = testing::kCbbJpeg;
    double aprobacion = 55;
};

dlgConfigFoliosCBB& Editor(forms::Dialogo& d) { return dynamic_cast<dlgConfigFoliosCBB&>(d); }

class FoliosCBB : public testing::FachadaDemo {
protected:
    testing::TemporalPrivado temporal;

    // Fills a new range, chooses its image by a click on the path, presses
    // OK, and cancels when the dialog stays up.
    void Capturar(const Rango& r) {
        platform.ui.AlMostrar("dlgConfigFoliosCBB", [r, this](forms::Dialogo& d) {
            auto& dlg = Editor(d);
            dlg.eNumNAprobacion.Value(r.aprobacion);
            dlg.eDtFechaAprobacion.Value(DateSerial(2012, 5, 4));
            dlg.eNumFInicial.Value(r.inicial);
            dlg.eNumFFinal.Value(r.final);
            dlg.etxtSerie.Text(r.serie);
            for (int i = 0; i < dlg.cmbBlock.ListCount(); ++i)
                if (dlg.cmbBlock.ItemData(i) == r.block) dlg.cmbBlock.ListIndex(i);
            if (!r.imagen.empty()) {
                platform.ui.Elegir(r.imagen);
                dlg.txtCBB.Pulsar();
            }
            dlg.btnOK.Pulsar();
            if (dlg.Visible()) dlg.btnCancel.Pulsar();
        });
    }
    Bytes Imagen(int pk) { return db.Valor("SELECT uf_CBB FROM ut_FoliosCBB WHERE Sys_PK=" + std::to_string(pk)).AsBytes(); }
};

struct Caso {
    Rango rango;
    std::string mensaje, titulo;  // none when accepted
};
class Validacion : public FoliosCBB, public ::testing::WithParamInterface<Caso> {};

TEST_P(Validacion, ChecksRunInOrderAndARangeCollidesOnlyByItsEndsInItsOwnBlock) {
    db.Ejecutar("INSERT INTO ut_FoliosCBB (Sys_PK,uf_FolioInicial,uf_FolioFinal,uf_BlockDoc,uf_NumAprobacion) "
                "VALUES (3,100,200,6,77)");
    const Caso& c = GetParam();
    Capturar(c.rango);
    EXPECT_EQ(acc.AgregarFoliosCBB(), c.mensaje.empty());
    if (!c.mensaje.empty()) {
        UnaCaja(c.mensaje, Icono::Informacion, c.titulo);
        EXPECT_EQ(db.Contar("ut_FoliosCBB"), 3);
        return;
    }
    EXPECT_TRUE(SinCajas());
    EXPECT_EQ(Texto("SELECT '[' || uf_Serie || ']' || uf_FolioInicial || '-' || uf_FolioFinal || ' ' || uf_BlockDoc "
                    "|| ' ' || uf_FechaAprobacion FROM ut_FoliosCBB WHERE Sys_PK=4"),
              "[" + UCase(c.rango.serie) + "]" + Format(c.rango.inicial, "0") + "-" + Format(c.rango.final, "0") +
                  " " + std::to_string(c.rango.block) + " 2012-05-04 00:00:00");
    EXPECT_EQ(Imagen(4), testing::LeerBytes(testing::kCbbJpeg));
}

INSTANTIATE_TEST_SUITE_P(
    Rangos, Validacion,
    ::testing::Values(Caso{{6, 0, 300}, "Debe indicar Folio Inicial", "Folios CBB"},
                      Caso{{6, 300, 0}, "Debe indicar Folio Inicial", "Folios CBB"},
                      Caso{{6, 201, 300, "", ""}, "Debe inidcar la ruta del CBB", "Folios CBB"},
                      Caso{{6, 300, 201}, "El Folio Inicial no puede ser mayor al Folio Final", "Folios CBB"},
                      Caso{{6, 5, 5}, "El Folio Inicial no puede ser igual al Folio Final", "Folios CBB"},
                      Caso{{6, 201, 300, "", testing::kCbbJpeg, 0}, "Debe indicar el número de aprobación",
                           "Folios CBB"},
                      Caso{{0, 201, 300}, "Seleccione un block de documentos ", ""},
                      Caso{{6, 201, 300, "G"}, "La serie asignada debe coincidir con la serie del block.", ""},
                      Caso{{6, 150, 300}, kTraslape, "Folis CBB"}, Caso{{6, 50, 150}, kTraslape, "Folis CBB"},
                      Caso{{6, 50, 300}, "", ""}, Caso{{6, 201, 300, "e"}, "", ""},
                      Caso{{7, 150, 300, "g"}, "", ""}));

TEST_F(FoliosCBB, AStoredRangeSavesOverItselfInOneTransactionWithItsImageOnlyOnceRemoved) {
    Capturar({6, 100, 200, "e"});
    ASSERT_TRUE(acc.AgregarFoliosCBB());
    EXPECT_EQ(platform.ui.Selecciones().at(0).filtro,
              "Archivos de imágen CBB *.jpg|*.jpg|*.bmp|*.bmp|*.gif|*.gif|*.wmf|*.wmf|*.emf|*.emf");
    db.sentencias->clear();
    platform.ui.AlMostrar("dlgConfigFoliosCBB", [](forms::Dialogo& d) {
        auto& dlg = Editor(d);
        EXPECT_EQ(dlg.etxtSerie.Text() + dlg.cmbBlock.Text() + CStr(dlg.eNumNAprobacion.Value()), "EFactura -E55");
        EXPECT_EQ(dlg.pctCBB.Picture() ? dlg.pctCBB.Picture()->Formato() : "none", "jpeg");
        EXPECT_FALSE(dlg.txtCBB.Enabled());
        dlg.btnOK.Pulsar();
    });
    EXPECT_TRUE(acc.ModificarFoliosCBB(3));
    const Textos& s = *db.sentencias;
    ASSERT_GE(s.size(), 7u);
    EXPECT_EQ(Textos(s.end() - 7, s.end()),
              (Textos{"SELECT Sys_PK FROM ut_FoliosCBB WHERE Sys_PK<>3 AND uf_BlockDoc=6 AND ((uf_FolioInicial<=100 "
                      "AND uf_FolioFinal>=100) OR (uf_FolioInicial<=200 AND uf_FolioFinal>=200))",
                      "UPDATE ut_FoliosCBB SET uf_FolioInicial=100 WHERE Sys_PK=3",
                      "UPDATE ut_FoliosCBB SET uf_FolioFinal=200 WHERE Sys_PK=3",
                      "UPDATE ut_FoliosCBB SET uf_BlockDoc=6 WHERE Sys_PK=3",
                      "UPDATE ut_FoliosCBB SET uf_NumAprobacion=55 WHERE Sys_PK=3",
                      "UPDATE ut_FoliosCBB SET uf_Serie='E' WHERE Sys_PK=3",
                      "UPDATE ut_FoliosCBB SET uf_FechaAprobacion='2012-05-04 00:00:00' WHERE Sys_PK=3"}));

    // A file chosen and then removed again leaves its path behind, and that
    // file is what the save writes.
    platform.ui.AlMostrar("dlgConfigFoliosCBB", [this](forms::Dialogo& d) {
        auto& dlg = Editor(d);
        dlg.btnQuitarIMG.Pulsar();
        platform.ui.Elegir(testing::kCbbBmp);
        dlg.txtCBB.Pulsar();
        dlg.btnQuitarIMG.Pulsar();
        EXPECT_EQ(dlg.pctCBB.Picture(), nullptr);
        dlg.btnOK.Pulsar();
    });
    EXPECT_TRUE(acc.ModificarFoliosCBB(3));
    EXPECT_EQ(Imagen(3), testing::LeerBytes(testing::kCbbBmp));
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar", "Iniciar", "Confirmar"}));
    EXPECT_TRUE(SinCajas());

    // A failure inside the save rolls back, is told and keeps the dialog up.
    dataObjects->fallarAlIniciar = true;
    platform.ui.AlMostrar("dlgConfigFoliosCBB", [](forms::Dialogo& d) {
        Editor(d).btnOK.Pulsar();
        Editor(d).btnCancel.Pulsar();
    });
    EXPECT_FALSE(acc.ModificarFoliosCBB(3));
    UnaCaja("Error: (-2147168242) No se pudo iniciar la transacción.");
    EXPECT_EQ(dataObjects->llamadas.back(), "Revertir");
}

TEST_F(FoliosCBB, RowsWithoutDateOrImageStopLoadingThereAndABadKeyOpensNothing) {
    Textos vistos;
    for (int pk : {1, 2}) {
        platform.ui.AlMostrar("dlgConfigFoliosCBB", [&](forms::Dialogo& d) {
            auto& dlg = Editor(d);
            vistos.push_back(dlg.etxtSerie.Text() + " " + CStr(dlg.eNumFFinal.Value()) + " " +
                             Format(dlg.eDtFechaAprobacion.Value(), "yyyy-mm-dd") + " " +
                             CStr(dlg.eNumNAprobacion.Value()) + " " + std::to_string(dlg.cmbBlock.ListIndex()));
            dlg.btnCancel.Pulsar();
        });
        EXPECT_FALSE(acc.ModificarFoliosCBB(pk));
    }
    EXPECT_EQ(vistos, (Textos{"C 500 2011-03-15 0 -1", "H 100 1899-12-30 0 -1"}));
    EXPECT_FALSE(acc.ModificarFoliosCBB(0));
    UnaCaja("Clave incorrecta.");
    EXPECT_EQ(platform.ui.Registro().size(), 3u);
}

TEST_F(FoliosCBB, AFailedInsertionIsToldAndStillClosesTheDialogAccepted) {
    db.Ejecutar("CREATE TRIGGER sin_altas BEFORE INSERT ON ut_FoliosCBB BEGIN SELECT RAISE(ABORT, 'sin altas'); END");
    Capturar({7, 1, 10});
    EXPECT_TRUE(acc.AgregarFoliosCBB());
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    EXPECT_EQ(platform.ui.Cajas()[0].texto.rfind("Error al guardar rango de folios CBB. ", 0), 0u);
    EXPECT_EQ(platform.ui.Cajas()[0].icono, Icono::Exclamacion);
    EXPECT_EQ(db.Contar("ut_FoliosCBB"), 2);
}

TEST_F(FoliosCBB, TheSchemaIsUpgradedAndFreeBlocksListedWithTheFilterOfTheDialect) {
    const std::string kBlocks =
        "SELECT Sys_PK, Serie, Documento FROM BlockDocumentos WHERE (Documento=4 OR Documento=5 OR Documento=17) ";
    for (auto [dialecto, filtro] :
         {std::pair{Dialecto::Access, " AND (ISNULL(uf_CFDFolio) OR uf_CFDFolio=0) AND (ISNULL(uf_CFDI_INFO) OR "
                                      "uf_CFDI_INFO=0)"},
          {Dialecto::SqlServer, " AND ISNULL(uf_CFDFolio,0)=0 AND ISNULL(uf_CFDI_INFO,0)=0"}, {Dialecto::Ninguno, ""}}) {
        auto propio = std::make_unique<testing::MotorDeOtroDialecto>(db.cnn->motor(), dialecto);
        auto* motor = propio.get();
        acc.SetDataObjects(std::make_shared<platform::DataObjectsMotor>(
                               std::make_shared<platform::ConexionMotor>(std::move(propio))),
                           nullptr);
        motor->sentencias.clear();
        dlgConfigFoliosCBB dlg;
        dlg.SetDataObjects(acc);
        dlg.Load();
        EXPECT_EQ(Textos(motor->sentencias.begin(), motor->sentencias.begin() + 2),
                  (Textos{"ALTER TABLE ut_FoliosCBB ADD COLUMN uf_FechaAprobacion DATETIME;",
                          "ALTER TABLE ut_FoliosCBB ADD uf_FechaAprobacion DATETIME;"}));
        EXPECT_EQ(motor->sentencias.back(), kBlocks + filtro);
    }
    dlgConfigFoliosCBB dlg;
    acc.SetDataObjects(dataObjects, nullptr);
    dlg.SetDataObjects(acc);
    dlg.Load();
    Textos blocks;
    for (const auto& item : dlg.cmbBlock.Items()) blocks.push_back(item.text + " " + std::to_string(item.itemData));
    EXPECT_EQ(blocks, (Textos{"Factura -C 5", "Factura -E 6", "Nota de cargo -G 7", "Nota de cargo -H 9"}));
    dlg.etxtSerie.Escribir("añ-1 b");
    EXPECT_EQ(dlg.etxtSerie.Text(), "AÑB");
    EXPECT_EQ(dlg.etxtSerie.Tecla(8), 0);
}

}  // namespace
}  // namespace celdora
