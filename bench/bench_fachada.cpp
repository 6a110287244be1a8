// bench_fachada: what the facade costs over the database work it does.
//
// It builds a SQLite company in a temporary folder with 100,000 sales and
// 100,000 receivables, each on a folio of a block (blocks tied to a folio
// range, to a CFDI certificate and to a CBB range covering every folio), and
// a comprobante for every second sale. Then it times 10,000 calls of each of
// four questions three ways:
//
//   fachada      the member called in C++ on a bound cAcction;
//   por nombre   the same member called by name through the dispatch table;
//   directo      the same statement text issued straight through the SQLite
//                C API (prepare, step every row, finalize), with the same
//                answer worked out from the row.
//
// Keys are spread over the 100,000 sales; FolioAprobadoCBB is asked only of
// sales whose folio lies inside the CBB range, so no box is shown, and the
// user interface counts the boxes to prove it. Before timing, each member
// runs once over an engine that records its statements, and the benchmark
// stops if a statement differs from the one the direct side issues.
//
// Times are the thread's processor time. Each side runs seven rounds,
// alternating, after one round of warming up; the fastest round of each is
// reported, since on a shared machine other work only ever adds time.

#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <iomanip>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "core/Dispatch.h"
#include "core/cAcction.h"
#include "platform/common/Catalogo.h"
#include "platform/common/DataObjectsMotor.h"
#include "platform/common/SystemClock.h"
#include "platform/console/ConsolaUi.h"
#include "platform/desktop/PlataformaEscritorio.h"
#include "platform/sqlite/Sqlite.h"
#include "schema/Schema.h"
#include "tests/support/MotorRegistrado.h"
#include "value/Fault.h"

using namespace celdora;
namespace fs = std::filesystem;

namespace {

constexpr int kVentas = 100000;
constexpr int kCuentas = 100000;
constexpr int kLlamadas = 10000;
constexpr int kRondas = 7;

// The terminal's user interface with every box counted.
class UiContadora : public host::UiServices {
public:
    explicit UiContadora(host::UiServices& real) : real_(real) {}
    int cajas = 0;

    host::Respuesta MsgBox(const std::string& text, host::Botones buttons, host::Icono icon,
                           const std::string& title) override {
        ++cajas;
        return real_.MsgBox(text, buttons, icon, title);
    }
    std::optional<std::string> ShowOpen(const host::FileDialogRequest& r) override { return real_.ShowOpen(r); }
    std::optional<std::string> ShowSave(const host::FileDialogRequest& r) override { return real_.ShowSave(r); }
    std::optional<std::string> BrowseForFolder(const std::string& t, const std::string& r) override {
        return real_.BrowseForFolder(t, r);
    }
    void ClipboardClear() override { real_.ClipboardClear(); }
    void ClipboardSetText(const std::string& text) override { real_.ClipboardSetText(text); }
    void MousePointer(host::Puntero pointer) override { real_.MousePointer(pointer); }
    host::Puntero MousePointerActual() const override { return real_.MousePointerActual(); }
    void ShowModal(forms::Dialogo& dialogo) override { real_.ShowModal(dialogo); }
    void Show(forms::Dialogo& dialogo) override { real_.Show(dialogo); }
    void DoEvents() override { real_.DoEvents(); }
    std::shared_ptr<host::Picture> LoadPicture(const std::string& path) override { return real_.LoadPicture(path); }

private:
    host::UiServices& real_;
};

void Exigir(int rc, sqlite3* db, const char* que) {
    if (rc != SQLITE_OK && rc != SQLITE_DONE && rc != SQLITE_ROW) {
        throw Fault{rc, std::string(que) + ": " + sqlite3_errmsg(db)};
    }
}

void Directo(sqlite3* db, const char* sql) { Exigir(sqlite3_exec(db, sql, nullptr, nullptr, nullptr), db, sql); }

// A statement prepared once and run for many rows.
class Insercion {
public:
    Insercion(sqlite3* db, const char* sql) : db_(db) { Exigir(sqlite3_prepare_v2(db, sql, -1, &st_, nullptr), db, sql); }
    ~Insercion() { sqlite3_finalize(st_); }
    Insercion(const Insercion&) = delete;
    Insercion& operator=(const Insercion&) = delete;

    void Correr(std::initializer_list<std::int64_t> valores) {
        int i = 1;
        for (std::int64_t v : valores) {
            if (v < 0) {
                sqlite3_bind_null(st_, i++);
            } else {
                sqlite3_bind_int64(st_, i++, v);
            }
        }
        Exigir(sqlite3_step(st_), db_, "insert");
        sqlite3_reset(st_);
    }

private:
    sqlite3* db_;
    sqlite3_stmt* st_ = nullptr;
};

constexpr std::int64_t kNull = -1;

// The company: the schema through the platform, the rows through prepared
// statements in one transaction.
void CrearEmpresa(const std::string& ruta) {
    {
        auto conexion = platform::AbrirSqlite(ruta);
        platform::EjecutarGuion(*conexion, std::string(schema::EsquemaSqlite()));
    }
    sqlite3* db = nullptr;
    Exigir(sqlite3_open(ruta.c_str(), &db), db, "open");
    Directo(db, "BEGIN");
    Directo(db, "INSERT INTO ut_CFDInfo (Sys_PK, uf_noCertificado) VALUES (1, '30001000000400002443'), "
                "(2, '30001000000500003416')");
    Directo(db, "INSERT INTO ut_CFDFolio (Sys_PK, uf_Serie, uf_FolioInicial, uf_FolioFinal, uf_noAprobacion, "
                "uf_anoAprobacion, uf_CFDInfo) VALUES (1, 'A', 1, 100000, 12345, 2010, 1)");
    // Block 1 on the folio range, 2 on the CFDI certificate, 3 on the CBB
    // range, 4 (debit notes of receivables) on the certificate.
    Directo(db, "INSERT INTO BlockDocumentos (Sys_PK, Serie, Documento, Fiscal, uf_CFDFolio, uf_CFDI_Info) VALUES "
                "(1, 'A', 4, 1, 1, NULL), (2, 'F', 4, 0, NULL, 2), (3, 'C', 4, 0, NULL, NULL), "
                "(4, 'D', 17, 0, NULL, 2)");
    Directo(db, "INSERT INTO ut_FoliosCBB (Sys_PK, uf_Serie, uf_FolioInicial, uf_FolioFinal, uf_BlockDoc, "
                "uf_NumAprobacion, uf_FechaAprobacion) VALUES (1, 'C', 1, 100000, 3, 9876, '2011-03-15 00:00:00')");
    {
        Insercion folio(db, "INSERT INTO FoliosDocumentos (Sys_PK, Folio, Block) VALUES (?, ?, ?)");
        Insercion venta(db, "INSERT INTO Venta (Sys_PK, IFolio, Documento, StatusAdministrativo, Subtotal, "
                            "Impuesto1) VALUES (?, ?, 4, 3, 1000, 160)");
        Insercion cuenta(db, "INSERT INTO DCXC (Sys_PK, IFolio, Documento) VALUES (?, ?, 17)");
        Insercion cfd(db, "INSERT INTO ut_CFD (uf_IVenta, uf_IDCXC, uf_CFDFolio, uf_CFDI_Info, uf_FechaHora, "
                          "uf_Tipo) VALUES (?, ?, ?, ?, '2026-11-05 10:00:00', ?)");
        for (int i = 1; i <= kVentas; ++i) {
            const int block = i % 3 + 1;  // sale i is on block 1, 2 or 3 in turn
            folio.Correr({i, i, block});
            venta.Correr({i, i});
            if (i % 2 == 0) cfd.Correr({i, kNull, block == 1 ? 1 : 0, block == 2 ? 2 : 0, block == 2 ? 3 : 1});
        }
        for (int j = 1; j <= kCuentas; ++j) {
            folio.Correr({kVentas + j, j, 4});
            cuenta.Correr({j, kVentas + j});
            if (j % 4 == 0) cfd.Correr({kNull, j, 0, 2, 3});
        }
    }
    Directo(db, "COMMIT");
    Directo(db, "ANALYZE");
    sqlite3_close(db);
}

// The four questions: the statement each issues, and its answer worked out
// from the statement's rows by the C API alone.
struct Pregunta {
    std::string miembro;
    std::string sql;  // the key goes at the end
    bool soloCbb;     // asked only of sales on the CBB block
    std::function<int(cAcction&, std::int32_t)> fachada;
    std::function<int(sqlite3_stmt*)> respuesta;  // on the first row; -1 when there is none
};

std::int64_t Entero(sqlite3_stmt* st, int columna) { return sqlite3_column_int64(st, columna); }

std::vector<Pregunta> Preguntas() {
    return {
        {"ExisteCFD", "SELECT Sys_PK FROM ut_CFD WHERE uf_IVenta=", false,
         [](cAcction& a, std::int32_t k) { return int(a.ExisteCFD(k)); },
         [](sqlite3_stmt* st) { return int(Entero(st, 0) > 0); }},
        {"DocumentoAprobadoParaCFD",
         "SELECT BlockDocumentos.uf_CFDFolio FROM BlockDocumentos INNER JOIN (FoliosDocumentos INNER JOIN Venta ON "
         "FoliosDocumentos.Sys_PK=Venta.IFolio) ON BlockDocumentos.Sys_PK=FoliosDocumentos.Block WHERE Venta.Sys_PK=",
         false, [](cAcction& a, std::int32_t k) { return int(a.DocumentoAprobadoParaCFD(k)); },
         [](sqlite3_stmt* st) { return int(Entero(st, 0) >= 1); }},
        {"FolioAprobadoCBB",
         "SELECT ut_FoliosCBB.uf_FolioInicial AS FolioInicial, ut_FoliosCBB.uf_FolioFinal AS FolioFinal, "
         "Venta.IFolio, FoliosDocumentos.Folio FROM Venta INNER JOIN (FoliosDocumentos INNER JOIN (BlockDocumentos "
         "INNER JOIN ut_FoliosCBB ON BlockDocumentos.Sys_PK=ut_FoliosCBB.uf_BlockDoc) ON "
         "FoliosDocumentos.Block=BlockDocumentos.Sys_PK) ON Venta.IFolio=FoliosDocumentos.Sys_PK WHERE Venta.Sys_PK=",
         true, [](cAcction& a, std::int32_t k) { return int(a.FolioAprobadoCBB(k)); },
         [](sqlite3_stmt* st) {
             const std::int64_t folio = Entero(st, 3);
             return int(folio >= Entero(st, 0) && folio <= Entero(st, 1));
         }},
        {"BlockVentaCFDI_CBB",
         "SELECT BlockDocumentos.uf_CFDI_Info,ut_FoliosCBB.uf_BlockDoc FROM (BlockDocumentos INNER JOIN "
         "(FoliosDocumentos INNER JOIN Venta ON FoliosDocumentos.Sys_PK=Venta.IFolio) ON "
         "BlockDocumentos.Sys_PK=FoliosDocumentos.Block) LEFT JOIN  ut_FoliosCBB ON "
         "BlockDocumentos.Sys_PK=ut_FoliosCBB.uf_BlockDoc WHERE Venta.Sys_PK=",
         false, [](cAcction& a, std::int32_t k) { return int(a.BlockVentaCFDI_CBB(k)); },
         [](sqlite3_stmt* st) { return Entero(st, 0) >= 1 ? 2 : Entero(st, 1) >= 1 ? 3 : 0; }},
    };
}

// The keys of one question, spread over the sales by a stride prime to
// their count.
std::vector<std::int32_t> Claves(bool soloCbb) {
    std::vector<std::int32_t> claves;
    claves.reserve(kLlamadas);
    for (std::int64_t k = 0; k < kLlamadas; ++k) {
        if (soloCbb) {
            claves.push_back(static_cast<std::int32_t>(3 * ((k * 7919) % (kVentas / 3)) + 2));
        } else {
            claves.push_back(static_cast<std::int32_t>((k * 7919) % kVentas + 1));
        }
    }
    return claves;
}

// One question straight through the C API.
int Directa(sqlite3* db, const Pregunta& p, std::int32_t clave) {
    const std::string sql = p.sql + std::to_string(clave);
    sqlite3_stmt* st = nullptr;
    Exigir(sqlite3_prepare_v2(db, sql.c_str(), static_cast<int>(sql.size()), &st, nullptr), db, "prepare");
    int respuesta = -1;
    int rc = 0;
    while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
        if (respuesta == -1) respuesta = p.respuesta(st);
    }
    Exigir(rc, db, "step");
    sqlite3_finalize(st);
    return respuesta == -1 ? 0 : respuesta;
}

// The processor time of this thread, so that time the machine gives to
// other processes does not count.
double MilisegundosDeCpu() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) * 1000.0 + static_cast<double>(t.tv_nsec) / 1e6;
}

template <class Cuerpo>
double Milisegundos(Cuerpo&& cuerpo) {
    const double inicio = MilisegundosDeCpu();
    cuerpo();
    return MilisegundosDeCpu() - inicio;
}

double Mejor(const std::vector<double>& v) { return *std::min_element(v.begin(), v.end()); }

// Runs each member once over an engine that records its statements; true
// when every statement is the direct side's.
bool MismasSentencias(const std::string& ruta, const std::vector<Pregunta>& preguntas) {
    auto registrado = std::make_unique<testing::MotorRegistrado>(platform::AbrirMotorSqlite(ruta));
    auto sentencias = registrado->sentencias;
    auto conexion = std::make_shared<platform::ConexionMotor>(std::move(registrado));
    cAcction accion;
    accion.SetDataObjects(std::make_shared<platform::DataObjectsMotor>(conexion),
                          std::make_shared<platform::CatalogoPaises>(conexion));
    bool iguales = true;
    for (const Pregunta& p : preguntas) {
        const std::int32_t clave = Claves(p.soloCbb).front();
        sentencias->clear();
        p.fachada(accion, clave);
        const std::string esperada = p.sql + std::to_string(clave);
        if (std::find(sentencias->begin(), sentencias->end(), esperada) == sentencias->end()) {
            std::cerr << p.miembro << " no emitió la sentencia del lado directo:\n  " << esperada << "\nemitió:\n";
            for (const auto& s : *sentencias) std::cerr << "  " << s << "\n";
            iguales = false;
        }
    }
    return iguales;
}

// Times the four questions on the company at ruta and prints the table;
// gives the exit code.
int Medir(const std::string& ruta, const UiContadora& ui) {
    const std::vector<Pregunta> preguntas = Preguntas();
    if (!MismasSentencias(ruta, preguntas)) return 1;

    auto conexion = platform::AbrirSqlite(ruta);
    cAcction accion;
    accion.SetDataObjects(std::make_shared<platform::DataObjectsMotor>(conexion),
                          std::make_shared<platform::CatalogoPaises>(conexion));
    sqlite3* db = nullptr;
    Exigir(sqlite3_open_v2(ruta.c_str(), &db, SQLITE_OPEN_READONLY, nullptr), db, "open");
    std::unique_ptr<sqlite3, int (*)(sqlite3*)> cierre(db, sqlite3_close);

    std::cout << kLlamadas << " llamadas por miembro; la mejor de " << kRondas << " rondas, en ms de CPU\n\n"
              << std::left << std::setw(26) << "Miembro" << std::right << std::setw(10) << "fachada" << std::setw(12)
              << "por nombre" << std::setw(10) << "directo" << std::setw(11) << "µs/llam." << std::setw(17)
              << "fachada/directo" << std::setw(20) << "por nombre/directo" << "\n";

    int codigo = 0;
    double totalFachada = 0;
    double totalNombre = 0;
    double totalDirecto = 0;
    for (const Pregunta& p : preguntas) {
        const std::vector<std::int32_t> claves = Claves(p.soloCbb);
        long sumaFachada = 0;
        long sumaNombre = 0;
        long sumaDirecta = 0;
        auto fachada = [&] {
            for (std::int32_t k : claves) sumaFachada += p.fachada(accion, k);
        };
        auto nombre = [&] {
            for (std::int32_t k : claves) {
                std::vector<Variant> args{Variant::Long(k)};
                const Variant r = dispatch::Invocar(accion, p.miembro, args);
                sumaNombre += r.Type() == VarType::Boolean ? int(r.AsBoolean()) : r.AsInteger();
            }
        };
        auto directo = [&] {
            for (std::int32_t k : claves) sumaDirecta += Directa(db, p, k);
        };
        // The warming round, which also checks that the three sides agree.
        fachada();
        nombre();
        directo();
        if (sumaFachada != sumaDirecta || sumaNombre != sumaDirecta) {
            std::cerr << p.miembro << ": las respuestas difieren (" << sumaFachada << ", " << sumaNombre << ", "
                      << sumaDirecta << ")\n";
            codigo = 1;
        }
        std::vector<double> tf, tn, td;
        for (int r = 0; r < kRondas; ++r) {
            tf.push_back(Milisegundos(fachada));
            tn.push_back(Milisegundos(nombre));
            td.push_back(Milisegundos(directo));
        }
        const double f = Mejor(tf), n = Mejor(tn), d = Mejor(td);
        totalFachada += f;
        totalNombre += n;
        totalDirecto += d;
        std::cout << std::left << std::setw(26) << p.miembro << std::right << std::fixed << std::setprecision(1)
                  << std::setw(10) << f << std::setw(12) << n << std::setw(10) << d << std::setw(10)
                  << f * 1000.0 / kLlamadas << std::setprecision(2) << std::setw(17) << f / d << std::setw(20)
                  << n / d << "\n";
    }
    std::cout << std::left << std::setw(26) << "Total" << std::right << std::setprecision(1) << std::setw(10)
              << totalFachada << std::setw(12) << totalNombre << std::setw(10) << totalDirecto << std::setw(10) << ""
              << std::setprecision(2) << std::setw(17) << totalFachada / totalDirecto << std::setw(20)
              << totalNombre / totalDirecto << "\n\n"
              << "Cajas mostradas: " << ui.cajas << "\n";
    return ui.cajas == 0 ? codigo : 1;
}

}  // namespace

int main() {
    platform::ConsolaUi consola(platform::ConsolaUi::RespuestaFija::No);
    UiContadora ui(consola);
    platform::SystemClock reloj;
    platform::PlataformaEscritorio plataforma(ui, reloj);
    platform::PlataformaInstalada instalada(plataforma);

    const fs::path carpeta = fs::temp_directory_path() / ("celdora_bench_" + std::to_string(::getpid()));
    fs::remove_all(carpeta);
    fs::create_directories(carpeta);
    const std::string ruta = (carpeta / "empresa.db").string();

    int codigo = 1;
    try {
        const double creacion = Milisegundos([&] { CrearEmpresa(ruta); });
        std::cout << "Empresa de prueba: " << kVentas << " ventas y " << kCuentas << " cuentas por cobrar, creada en "
                  << std::fixed << std::setprecision(0) << creacion << " ms\n";
        codigo = Medir(ruta, ui);
    } catch (const Fault& fault) {
        std::cerr << ErrorText(fault) << "\n";
    }
    std::error_code ec;
    fs::remove_all(carpeta, ec);
    return codigo;
}
