// The pages of certificates, regimes and permissions composed in a small
// dialog on the demo company. Certificate 1 holds ranges 1 to 3 (range 2
// continues range 1), certificate 2 blocks 3 and 4, certificate 3 nothing.
// Regimes: 1 "Régimen General de Ley Personas Morales", 2 "Personas Morales
// con Fines no Lucrativos". Groups by name: Administradores 1, Auditoría 12,
// Cobranza 7, Ventas 3.

#include "configdialog/PaginaGeneral.h"
#include "configdialog/PaginaPermisos.h"
#include "configdialog/PaginaRegimenes.h"
#include "tests/support/AjustesGrabados.h"
#include "tests/support/FachadaDemo.h"

namespace celdora {
namespace {

using host::Icono;
using testing::Textos;

struct DialogoDePaginas : forms::Dialogo {
    explicit DialogoDePaginas(cAcction& acc) : Dialogo("dlgPaginas", "Páginas"), marco{&acc, false, &TabControl} {}
    forms::TabControl& TabControl = Agregar<forms::TabControl>("TabControl", std::vector<std::string>(6, "Página"));
    configuracion::Marco marco;
    configuracion::PaginaGeneral general{*this, marco};
    configuracion::PaginaRegimenes regimenes{*this, marco};
    configuracion::PaginaPermisos permisos{*this, marco};
};

class Paginas : public testing::FachadaDemo {
protected:
    std::shared_ptr<testing::GlobalVarGrabado> ajustes = std::make_shared<testing::GlobalVarGrabado>();
    DialogoDePaginas d{acc};
    configuracion::PaginaGeneral& g = d.general;
    std::size_t desde = 0;

    void SetUp() override {
        FachadaDemo::SetUp();
        acc.GlobalVar = ajustes;
    }
    void Tipo(int tipo) { ajustes->Poner("NVCA300xa", std::to_string(tipo)); }
    void Marcar() { desde = db.sentencias->size(); }
    // The statements run since Marcar that begin with `inicio`.
    Textos Sentencias(const std::string& inicio) const {
        Textos s(db.sentencias->begin() + static_cast<std::ptrdiff_t>(desde), db.sentencias->end());
        std::erase_if(s, [&](const std::string& x) { return !x.starts_with(inicio); });
        return s;
    }
    // Each item as "key text|sub-items|tag".
    static Textos Items(const forms::ListView& lista) {
        Textos items;
        for (int i = 0; i < lista.Count(); ++i) {
            std::string item = lista.Item(i).key + " " + lista.Item(i).text;
            for (int c = 1; c <= 5; ++c) item += "|" + lista.SubItem(i, c);
            items.push_back(item + "|" + lista.Item(i).tag);
        }
        return items;
    }
};

const std::string kBlocks =
    "SELECT BlockDocumentos.Sys_PK,BlockDocumentos.Serie,cDocumentos.Const AS Descripcion FROM BlockDocumentos "
    "INNER JOIN cDocumentos ON BlockDocumentos.Documento=cDocumentos.ID WHERE (BlockDocumentos.Documento=4 OR "
    "BlockDocumentos.Documento=5 OR BlockDocumentos.Documento=17) AND BlockDocumentos.uf_CFDI_Info=";
const Textos kBlocksDe2{"pk3 Factura|F|||||3", "pk4 Nota de Cargo|D|||||4"};

struct CasoLista {
    int tipo, certificado;
    Textos folios, blocks, consultas;
};
class Listas : public Paginas, public ::testing::WithParamInterface<CasoLista> {};

// The kind picks the query, cCBB and cPapel the blocks'. Only a range that
// continues another shows that one's approval.
TEST_P(Listas, TheSelectedCertificatesRangesOrBlocksByKind) {
    const CasoLista& c = GetParam();
    Tipo(c.tipo);
    g.cargarCertificados();
    g.lstCer.ListIndex(c.certificado);
    Marcar();
    g.cargarFoliosYBlocks();
    EXPECT_EQ(Items(g.lvwFolio), c.folios);
    EXPECT_EQ(Items(g.lvwBlockCFDI), c.blocks);
    EXPECT_EQ(Sentencias("SELECT"), c.consultas);
}

INSTANTIATE_TEST_SUITE_P(Tipos, Listas, ::testing::Values(
    CasoLista{1, 0, {"pk1 12345|A|1|1000|2010||1", "pk2 23456|B|1|500|2011|12345|2", "pk3 34567||1|200|2012||3"}, {},
              {"SELECT * FROM ut_CFDFolio WHERE uf_CFDInfo=1 ORDER BY uf_anoAprobacion, uf_noAprobacion",
               "SELECT uf_noAprobacion FROM ut_CFDFolio WHERE Sys_PK=1"}},
    CasoLista{3, 1, {}, kBlocksDe2, {kBlocks + "2"}},
    CasoLista{5, 1, {}, kBlocksDe2, {kBlocks + "2"}}));

// The emptied list reloads nothing: the deleted certificate's blocks stay.
TEST_F(Paginas, DeletingTheLastCertificateLeavesItsBlocksShown) {
    db.Ejecutar("DELETE FROM ut_CFDInfo WHERE Sys_PK<>3");
    db.Ejecutar("UPDATE BlockDocumentos SET uf_CFDI_Info=3 WHERE Sys_PK=6");
    Tipo(2);
    g.cargarCertificados();
    platform.ui.Responder(host::Respuesta::Si);
    Marcar();
    g.btnDelCer.Pulsar();
    EXPECT_EQ(Sentencias("DELETE"), Textos{"DELETE FROM ut_CFDInfo WHERE Sys_PK=3"});
    EXPECT_EQ(g.lstCer.ListCount(), 0);
    EXPECT_EQ(Items(g.lvwBlockCFDI), Textos{"pk6 Factura|E|||||6"});
}

// A range is deleted by the selected item's tag and the list reloaded; the
// blocks editor gets the selected certificate.
TEST_F(Paginas, CommandsWorkOnTheSelection) {
    Tipo(1);
    g.cargarCertificados();
    g.lvwFolio.SelectedItem(2);
    platform.ui.Responder(host::Respuesta::Si);
    g.btnDelF.Pulsar();
    EXPECT_EQ(Items(g.lvwFolio).size(), 2u);
    platform.ui.AlMostrar("frmBlockXCer", [](forms::Dialogo& e) {
        EXPECT_EQ(e.Ver<forms::Label>("lblCertificado").Caption(), "30001000000400002443");
        e.Ver<forms::CommandButton>("btnCerrar").Pulsar();
    });
    g.btnEditarBlockCFDI.Pulsar();
    EXPECT_EQ(platform.ui.Cajas().size(), 1u);
}

TEST_F(Paginas, CommandsWithNothingSelected) {
    for (auto* boton : {&g.btnEditCer, &g.btnDelCer, &g.btnEditF, &g.btnDelF, &g.btnEditarBlockCFDI}) boton->Pulsar();
    Textos cajas(4, "caja: Seleccione un elemento de la lista.");
    cajas.push_back("caja: Seleccione un certificado");
    EXPECT_EQ(platform.ui.Registro(), cajas);
    platform.ui.ExpectCaja(4, "Seleccione un certificado", Icono::Informacion, "Configuración");
}

struct CasoValidar {
    int tipo, certificado;  // -1: there are no certificates
    bool folios, blocks, resultado;
    Textos registro;
};
class Validar : public Paginas, public ::testing::WithParamInterface<CasoValidar> {};

// A certificate of every kind, cPapel too, with its editor opened; then a range (its
// editor too) or a block, as the caller asks. Boxes are informational.
TEST_P(Validar, CertificateThenRangeOrBlock) {
    const CasoValidar& c = GetParam();
    if (c.certificado < 0) db.Ejecutar("DELETE FROM ut_CFDInfo");
    Tipo(c.tipo);
    g.lvwFolio.Add("x", "antes");
    g.cargarCertificados();
    g.cargarFoliosYBlocks();
    if (c.certificado > 0) g.lstCer.ListIndex(c.certificado);
    for (const char* editor : {"dlgcertificado", "dlgRangoFolios"}) {
        platform.ui.AlMostrar(editor, [](forms::Dialogo& e) { e.Ver<forms::CommandButton>("btnCancel").Pulsar(); });
    }
    EXPECT_EQ(g.validarCertificados(c.folios, c.blocks), c.resultado);
    EXPECT_EQ(platform.ui.Registro(), c.registro);
    for (const auto& caja : platform.ui.Cajas()) EXPECT_EQ(caja.icono, Icono::Informacion);
    // Without certificates the lists stay as they were.
    EXPECT_EQ(g.lblfolios.Caption() == "Rango de folios fiscales" && g.lvwFolio.BuscarClave("x") == 0,
              c.certificado < 0);
}

const std::string kCertificado = "caja: Para continuar debe agregar un certificado de sellos digitales.";
const std::string kBlock = "caja: Por favor asigne un block de documentos para el certificado selecionado";
INSTANTIATE_TEST_SUITE_P(Casos, Validar, ::testing::Values(
    CasoValidar{5, -1, false, false, false, {kCertificado, "dialogo: dlgcertificado"}},
    CasoValidar{1, 2, true, false, false,
                {"caja: Por favor ingrese el rango de folios fiscales.", "dialogo: dlgRangoFolios"}},
    CasoValidar{1, 0, true, true, false, {kBlock}},
    CasoValidar{4, 1, false, true, true, {}},
    CasoValidar{3, 0, false, false, true, {}}));

class Regimenes : public Paginas {
protected:
    configuracion::PaginaRegimenes& r = d.regimenes;
    void SetUp() override {
        Paginas::SetUp();
        ASSERT_TRUE(r.cargarRegimenes());
        Marcar();
    }
    // Takes the entry out and adds the text by the Enter key.
    void QuitarYEscribir(int indice, const std::string& texto) {
        r.lstRegimen.ListIndex(indice);
        r.cmdQuitarRegimen.Pulsar();
        r.cmbRegimen.Text(texto);
        r.cmbRegimen.Tecla(13);
    }
};

// Enter with nothing typed gives a box. Nothing runs before the save; then
// removals before insertions, and a new entry taken out brings a 0 that
// deletes nothing.
TEST_F(Regimenes, ARegimeRemovedAndTypedAgainIsDeletedThenInserted) {
    const std::string fines = "Personas Morales con Fines no Lucrativos";
    r.cmbRegimen.Tecla(13);
    UnaCaja("Escriba el nombre del régimen fiscal.", Icono::Informacion);
    EXPECT_EQ(d.Foco(), &r.cmbRegimen);
    QuitarYEscribir(0, " Otro ");
    QuitarYEscribir(1, fines);
    EXPECT_EQ(r.cmbRegimen.Text() + r.regimenesQuitados, "2;0");
    EXPECT_EQ(r.lstRegimen.ItemData(1), 0);
    EXPECT_EQ(Sentencias(""), Textos{});
    EXPECT_TRUE(r.eliminarRegimenes() && r.guardarRegimenes());
    EXPECT_EQ(Sentencias(""), (Textos{"DELETE FROM RegimenEmisor WHERE Sys_PK=2",
                                      "INSERT INTO RegimenEmisor(Regimen) VALUES('" + fines + "')"}));
}

TEST_F(Regimenes, AnApostropheFailsTheInsertionAfterTheDeletions) {
    QuitarYEscribir(0, "D'Gral");
    EXPECT_TRUE(r.eliminarRegimenes());
    EXPECT_FALSE(r.guardarRegimenes());
    EXPECT_EQ(Sentencias("DELETE"), Textos{"DELETE FROM RegimenEmisor WHERE Sys_PK=2"});
    EXPECT_THAT(platform.ui.Cajas().at(0).texto,
                ::testing::MatchesRegex("Error al guardar régimen fiscal\\. .* \\([0-9]+\\)"));
    EXPECT_EQ(platform.ui.Cajas()[0].icono, Icono::Exclamacion);
}

const Textos kClaves{"NVCA316x", "NVCA317x", "NVCA318x", "NVCA319x", "NVCA320x", "NVCA321x", "NVCA322x",
                     "NVCA323x", "NVCA324x", "NVCA325x", "NVCA326x", "NVCA326xa", "NVCA326xb"};

class Permisos : public Paginas {
protected:
    configuracion::PaginaPermisos& p = d.permisos;
    void SetUp() override {
        Paginas::SetUp();
        ajustes->Poner("NVCA316x", "1;3");
        ajustes->Poner("NVCA317x", "*");
        ajustes->Poner("NVCA319x", "");
    }
    // The first four boxes, as "1101".
    std::string Casillas() const {
        std::string valores;
        for (std::size_t i = 0; i < 4; ++i) valores += std::to_string(p.chkPermiso[i]->Value());
        return valores;
    }
};

// A key never saved holds every group, one added later too; "*" every group.
TEST_F(Permisos, EachGroupSeesItsMembershipOfEachKey) {
    db.Ejecutar("INSERT INTO UserGroup (Sys_PK, GroupID) VALUES (20, 'Nueva')");
    p.cargarGrupos();
    Textos vistas;
    for (int i = 0; i < p.cmbGrupo.ListCount(); ++i) {
        p.cmbGrupo.ListIndex(i);
        vistas.push_back(p.btnGuardarPermisos.Caption() + " " + Casillas() + " " + p.chkPermiso[2]->Tag());
    }
    const std::string grupo = "Guardar cambios en grupo ", todos = " 1;12;7;20;3";
    EXPECT_EQ(vistas, (Textos{grupo + "Administradores 1110" + todos, grupo + "Auditoría 0110" + todos,
                              grupo + "Cobranza 0110" + todos, grupo + "Nueva 0110" + todos,
                              grupo + "Ventas 1110" + todos}));
}

// Marks not saved go with a change of group; unchecking leaves "*" and
// checking appends to it; the save writes the tags in key order.
TEST_F(Permisos, MarksLiveInTheTagsUntilTheGroupChangesAndAreSavedInKeyOrder) {
    p.cargarGrupos();
    p.chkPermiso[0]->Pulsar();
    p.cmbGrupo.ListIndex(3);
    p.cmbGrupo.ListIndex(0);
    EXPECT_EQ(Casillas(), "1110");
    for (std::size_t i : {0, 1, 1, 2, 2, 3}) p.chkPermiso[i]->Pulsar();
    p.btnGuardarPermisos.Pulsar();
    const std::string t = "1;12;7;3";
    const Textos valores{"3", "*;1", "12;7;3;1", "1", t, t, t, t, t, t, t, t, t};
    for (std::size_t i = 0; i < 13; ++i) EXPECT_EQ(ajustes->escrituras.at(i), kClaves[i] + "=" + valores[i]);
    UnaCaja("Permisos guardados correctamente.", Icono::Informacion);
}

// No group: the boxes change no tag, and the save writes empty texts.
TEST_F(Permisos, WithoutGroupsThirteenEmptyTextsAreWritten) {
    db.Ejecutar("DELETE FROM UserGroup");
    p.cargarGrupos();
    p.chkPermiso[4]->Pulsar();
    p.btnGuardarPermisos.Pulsar();
    for (std::size_t i = 0; i < 13; ++i) EXPECT_EQ(ajustes->escrituras.at(i), kClaves[i] + "=");
}

}  // namespace
}  // namespace celdora
