// bench_informe: what the monthly report's generation costs through the
// facade over the database work it does.
//
// It builds a SQLite company in a file with one folio range, a month of N
// unreported comprobantes (every tenth cancelled) with their log lines as
// the host writes them, and a thousand of another month. Then it generates
// the month two ways, each on a fresh copy of the file:
//
//   fachada   GenerarInformeMensual on a bound cAcction, with a user
//             interface that accepts the dialog and answers the folder, as
//             the command-line tool does;
//   directo   a minimal program on the SQLite C API: in one transaction, the
//             same SELECT, each row's line normalised by hand and written
//             back by the same UPDATE text (prepared, stepped, finalized),
//             the same INSERT of the report, and the same file written.
//
// With CELDORA_BENCH_MARIADB set to a server address allowed to create
// databases whose names begin with celdora_test (tools/bench-mariadb.sh
// starts a private server and sets it), the same comparison runs on that
// server too: the facade over the platform's MariaDB adapter, and a minimal
// program on MariaDB Connector/C that sends the same SELECT as text, walks
// its stored rows, sends each row's same UPDATE text, inserts the report by
// a prepared statement and writes the same file, in one transaction. Each
// way works on a copy of the company in a database of its own.
//
// Each way runs in a child process of its own, so that its peak memory
// (ru_maxrss, which the parent reads with wait4) is its own. Before the
// times count, the two files and the two databases are compared: the
// benchmark stops if the direct side did anything but what the facade did.
// Times are wall time and the child's processor time; each way runs three
// times, alternating, and the fastest run of each is reported.

#include <fcntl.h>
#include <mysql.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iomanip>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/cAcction.h"
#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "platform/common/Catalogo.h"
#include "platform/common/DataObjectsMotor.h"
#include "platform/common/SystemClock.h"
#include "platform/common/Guion.h"
#include "platform/desktop/PlataformaEscritorio.h"
#include "platform/mariadb/Mariadb.h"
#include "platform/sqlite/Sqlite.h"
#include "schema/Schema.h"
#include "value/Fault.h"

using namespace celdora;
namespace fs = std::filesystem;

namespace {

constexpr int kMes = 11;
constexpr int kAnio = 2026;
constexpr int kOtroMes = 1000;  // comprobantes of October, left out by the query
constexpr int kRondas = 5;
constexpr int kRondasServidor = 3;  // the server's side is slower: best of three
// Sizes beyond this one are left out on the server (CELDORA_BENCH_MARIADB_HASTA
// changes it, 0 for none): a million rows there take minutes a run.
constexpr int kHastaServidor = 100000;
constexpr const char* kRfc = "EKU9003173C9";
constexpr const char* kNombre = "1EKU9003173C9112026";

void Exigir(int rc, sqlite3* db, const std::string& que) {
    if (rc != SQLITE_OK && rc != SQLITE_DONE && rc != SQLITE_ROW) {
        throw Fault{rc, que + ": " + sqlite3_errmsg(db)};
    }
}

void Directo(sqlite3* db, const std::string& sql) {
    Exigir(sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr), db, sql);
}

// --- The company --------------------------------------------------------------

// A log line as the host writes it: amounts without the report's form, no
// approval, the state "0" on every tenth.
std::string LineaDelHost(int i) {
    const int centavos = 10000 + (i * 7919) % 2000000;
    const std::string total = std::to_string(centavos / 100) + "." + std::to_string(100 + centavos % 100).substr(1);
    const std::string iva = std::to_string(centavos * 16 / 10000);
    return "| XAXX010101000 |A|" + std::to_string(i) + "||05/11/2026 10:00:00|" + total + "|" + iva + "|" +
           (i % 10 == 0 ? " 0 " : "1") + "|I||||";
}

void CrearEmpresa(const std::string& ruta, int lineas) {
    {
        auto conexion = platform::AbrirSqlite(ruta);
        platform::EjecutarGuion(*conexion, std::string(schema::EsquemaSqlite()));
    }
    sqlite3* db = nullptr;
    Exigir(sqlite3_open(ruta.c_str(), &db), db, "open");
    Directo(db, "BEGIN");
    Directo(db, "INSERT INTO gv_Configuracion (Clave, Numero, Texto) VALUES ('NVCA101', NULL, '" + std::string(kRfc) +
                    "')");
    Directo(db, "INSERT INTO ut_CFDInfo (Sys_PK, uf_noCertificado) VALUES (1, '30001000000400002443')");
    Directo(db, "INSERT INTO ut_CFDFolio (Sys_PK, uf_Serie, uf_FolioInicial, uf_FolioFinal, uf_noAprobacion, "
                "uf_anoAprobacion, uf_CFDInfo) VALUES (1, 'A', 1, 1000000, 12345, 2010, 1)");
    sqlite3_stmt* cfd = nullptr;
    sqlite3_stmt* bitacora = nullptr;
    Exigir(sqlite3_prepare_v2(db, "INSERT INTO ut_CFD (Sys_PK, uf_IVenta, uf_CFDFolio, uf_FechaHora, uf_Tipo) VALUES "
                                  "(?, ?, 1, ?, 1)",
                              -1, &cfd, nullptr),
           db, "prepare");
    Exigir(sqlite3_prepare_v2(db, "INSERT INTO ut_CFDBitacora (Sys_PK, uf_CFD, uf_Datos, uf_Reportado) VALUES "
                                  "(?, ?, ?, ?)",
                              -1, &bitacora, nullptr),
           db, "prepare");
    for (int i = 1; i <= lineas + kOtroMes; ++i) {
        const bool delMes = i <= lineas;
        const std::string fecha = delMes ? "2026-11-05 10:00:00" : "2026-10-05 10:00:00";
        const std::string datos = LineaDelHost(i);
        sqlite3_bind_int(cfd, 1, i);
        sqlite3_bind_int(cfd, 2, i);
        sqlite3_bind_text(cfd, 3, fecha.c_str(), -1, SQLITE_TRANSIENT);
        Exigir(sqlite3_step(cfd), db, "insert ut_CFD");
        sqlite3_reset(cfd);
        sqlite3_bind_int(bitacora, 1, i);
        sqlite3_bind_int(bitacora, 2, i);
        sqlite3_bind_text(bitacora, 3, datos.c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_int(bitacora, 4, delMes ? 0 : 1);
        Exigir(sqlite3_step(bitacora), db, "insert ut_CFDBitacora");
        sqlite3_reset(bitacora);
    }
    sqlite3_finalize(cfd);
    sqlite3_finalize(bitacora);
    Directo(db, "COMMIT");
    sqlite3_close(db);
}

// --- Through the facade ----------------------------------------------------------

// The user, as the command-line tool plays it: the dialog accepted once
// (cancelled if it comes back after a failure), the folder given, every
// question answered Yes. It remembers the last box, which tells success.
class UiDeBanco : public host::UiServices {
public:
    explicit UiDeBanco(std::string carpeta) : carpeta_(std::move(carpeta)) {}
    std::string ultimaCaja;

    host::Respuesta MsgBox(const std::string& text, host::Botones buttons, host::Icono, const std::string&) override {
        ultimaCaja = text;
        return buttons == host::Botones::Aceptar ? host::Respuesta::Aceptar : host::Respuesta::Si;
    }
    std::optional<std::string> ShowOpen(const host::FileDialogRequest&) override { return std::nullopt; }
    std::optional<std::string> ShowSave(const host::FileDialogRequest&) override { return std::nullopt; }
    std::optional<std::string> BrowseForFolder(const std::string&, const std::string&) override { return carpeta_; }
    void ClipboardClear() override {}
    void ClipboardSetText(const std::string&) override {}
    void MousePointer(host::Puntero) override {}
    host::Puntero MousePointerActual() const override { return host::Puntero::Normal; }
    void DoEvents() override {}
    std::shared_ptr<host::Picture> LoadPicture(const std::string&) override { return nullptr; }
    void ShowModal(forms::Dialogo& dialogo) override {
        if (veces_++ == 0) dialogo.Ver<forms::CommandButton>("btnOK").Pulsar();
        if (dialogo.Visible()) dialogo.Ver<forms::CommandButton>("btnCancelar").Pulsar();
    }
    void Show(forms::Dialogo&) override {}

private:
    std::string carpeta_;
    int veces_ = 0;
};

bool PorLaFachada(const std::shared_ptr<platform::ConexionMotor>& conexion, const std::string& carpeta) {
    UiDeBanco ui(carpeta);
    platform::SystemClock reloj;
    platform::PlataformaEscritorio plataforma(ui, reloj);
    platform::PlataformaInstalada instalada(plataforma);
    cAcction accion;
    accion.SetDataObjects(std::make_shared<platform::DataObjectsMotor>(conexion),
                          std::make_shared<platform::CatalogoPaises>(conexion));
    std::int16_t mes = kMes;
    std::int16_t anio = kAnio;
    bool bloquear = true;
    const bool generado = accion.GenerarInformeMensual(mes, anio, bloquear);
    if (!generado) std::cerr << "fachada: " << ui.ultimaCaja << "\n";
    return generado;
}

bool PorLaFachadaSqlite(const std::string& ruta, const std::string& carpeta) {
    return PorLaFachada(platform::AbrirSqlite(ruta), carpeta);
}

// --- Straight through the C API ---------------------------------------------------

void Anio(sqlite3_context* contexto, int, sqlite3_value** valores) {
    const auto* texto = reinterpret_cast<const char*>(sqlite3_value_text(valores[0]));
    if (texto == nullptr || std::strlen(texto) < 7) return sqlite3_result_null(contexto);
    sqlite3_result_int(contexto, std::atoi(std::string(texto, 4).c_str()));
}

void Mes(sqlite3_context* contexto, int, sqlite3_value** valores) {
    const auto* texto = reinterpret_cast<const char*>(sqlite3_value_text(valores[0]));
    if (texto == nullptr || std::strlen(texto) < 7) return sqlite3_result_null(contexto);
    sqlite3_result_int(contexto, std::atoi(std::string(texto + 5, 2).c_str()));
}

std::string_view Recortar(std::string_view texto) {
    while (!texto.empty() && texto.front() == ' ') texto.remove_prefix(1);
    while (!texto.empty() && texto.back() == ' ') texto.remove_suffix(1);
    return texto;
}

// "#.00" for the amounts this company has: positive, at most two decimals.
std::string Importe(std::string_view texto) {
    if (texto.empty()) return {};
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.2f", std::strtod(std::string(texto).c_str(), nullptr));
    return buffer[0] == '0' ? buffer + 1 : buffer;
}

// The report line of a log line, and its in-force line when cancelled.
std::string Normalizar(std::string_view datos, const std::string& aprobacion, std::string& adicional) {
    std::vector<std::string_view> piezas;
    for (std::size_t inicio = 0;;) {
        const std::size_t barra = datos.find('|', inicio);
        piezas.push_back(datos.substr(inicio, barra == std::string_view::npos ? barra : barra - inicio));
        if (barra == std::string_view::npos) break;
        inicio = barra + 1;
    }
    std::string linea = "|";
    std::string alterna = "|";
    bool cancelada = false;
    for (std::size_t i = 1; i <= 12; ++i) {
        std::string campo;
        if (i == 4) {
            campo = aprobacion;
        } else if (i < piezas.size()) {
            campo = i == 6 || i == 7 ? Importe(Recortar(piezas[i])) : std::string(Recortar(piezas[i]));
        }
        linea += campo + "|";
        if (i == 8 && campo == "0") {
            alterna += "1|";
            cancelada = true;
        } else {
            alterna += campo + "|";
        }
    }
    if (cancelada) adicional = alterna;
    return linea;
}

// The statements the facade sends, in the same words.
constexpr const char* kExiste = "SELECT Sys_PK,uf_fecha,uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=11 AND uf_Anio=2026";

std::string Consulta() {
    return "SELECT ut_CFDBitacora.Sys_PK,ut_CFDBitacora.uf_Datos,ut_CFDFolio.uf_noAprobacion,"
           "ut_CFDFolio.uf_anoAprobacion FROM ut_CFDBitacora INNER JOIN (ut_CFD INNER JOIN ut_CFDFOlio ON "
           "ut_CFD.uf_CFDFolio=ut_CFDFOlio.Sys_PK) ON ut_CFDBitacora.uf_CFD=ut_CFD.Sys_PK WHERE ( NOT "
           "(ut_CFDBitacora.uf_Reportado<>0)) AND Year(ut_CFD.uf_FechaHora)=" +
           std::to_string(kAnio) + " AND Month(ut_CFD.uf_FechaHora)=" + std::to_string(kMes);
}

std::string Actualizacion(const std::string& linea, const std::string& clave) {
    return "UPDATE ut_CFDBitacora SET uf_Reportado=1,uf_Datos='" + linea + "' WHERE Sys_PK=" + clave;
}

void Ejecutar(sqlite3* db, const std::string& sql) {
    sqlite3_stmt* st = nullptr;
    Exigir(sqlite3_prepare_v2(db, sql.c_str(), static_cast<int>(sql.size()), &st, nullptr), db, sql);
    Exigir(sqlite3_step(st), db, sql);
    sqlite3_finalize(st);
}

bool Escribir(const std::string& carpeta, const std::string& informe) {
    std::ofstream archivo(fs::path(carpeta) / (std::string(kNombre) + ".txt"), std::ios::binary | std::ios::trunc);
    archivo.write(informe.data(), static_cast<std::streamsize>(informe.size()));
    archivo.close();
    return static_cast<bool>(archivo);
}

// The report's text: lines joined by CRLF, a cancelled one's in-force line
// before it.
void Agregar(std::string& informe, const std::string& linea, const std::string& adicional) {
    if (!informe.empty()) informe += "\r\n";
    if (!adicional.empty()) informe += adicional + "\r\n";
    informe += linea;
}

bool PorLaApi(const std::string& ruta, const std::string& carpeta) {
    sqlite3* db = nullptr;
    Exigir(sqlite3_open_v2(ruta.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr), db, "open");
    std::unique_ptr<sqlite3, int (*)(sqlite3*)> cierre(db, sqlite3_close);
    sqlite3_create_function_v2(db, "Year", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, Anio, nullptr, nullptr,
                               nullptr);
    sqlite3_create_function_v2(db, "Month", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, Mes, nullptr, nullptr,
                               nullptr);
    Ejecutar(db, kExiste);
    Directo(db, "BEGIN");
    sqlite3_stmt* st = nullptr;
    const std::string consulta = Consulta();
    Exigir(sqlite3_prepare_v2(db, consulta.c_str(), -1, &st, nullptr), db, consulta);
    std::string informe;
    int rc = 0;
    while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
        const std::int64_t clave = sqlite3_column_int64(st, 0);
        const auto* datos = reinterpret_cast<const char*>(sqlite3_column_text(st, 1));
        const std::string aprobacion =
            std::to_string(sqlite3_column_int64(st, 3)) + std::to_string(sqlite3_column_int64(st, 2));
        std::string adicional;
        const std::string linea = Normalizar(datos ? datos : "", aprobacion, adicional);
        Agregar(informe, linea, adicional);
        Ejecutar(db, Actualizacion(linea, std::to_string(clave)));
    }
    Exigir(rc, db, "step");
    sqlite3_finalize(st);
    sqlite3_stmt* insercion = nullptr;
    Exigir(sqlite3_prepare_v2(db, "INSERT INTO ut_CFDInforme (uf_Nombre,uf_Contenido,uf_Mes,uf_Anio,uf_Fecha) "
                                  "VALUES (?,?,?,?,?)",
                              -1, &insercion, nullptr),
           db, "prepare insert");
    sqlite3_bind_text(insercion, 1, kNombre, -1, SQLITE_STATIC);
    sqlite3_bind_text(insercion, 2, informe.data(), static_cast<int>(informe.size()), SQLITE_STATIC);
    sqlite3_bind_int(insercion, 3, kMes);
    sqlite3_bind_int(insercion, 4, kAnio);
    sqlite3_bind_text(insercion, 5, "2026-11-30 12:00:00", -1, SQLITE_STATIC);
    Exigir(sqlite3_step(insercion), db, "insert");
    sqlite3_finalize(insercion);
    if (!Escribir(carpeta, informe)) return false;
    Directo(db, "COMMIT");
    return true;
}

// --- Straight through MariaDB Connector/C ------------------------------------------

// The server's address from CELDORA_BENCH_MARIADB, and the databases of the
// comparison: the company once, then a copy for each way.
constexpr const char* kBaseEmpresa = "celdora_test_informe";

platform::DestinoMariadb Servidor() { return platform::LeerUrlMariadb(std::getenv("CELDORA_BENCH_MARIADB")); }

std::string UrlDe(const std::string& base) {
    std::string url = std::getenv("CELDORA_BENCH_MARIADB");
    if (!url.ends_with('/')) url += '/';
    return url + base;
}

void ExigirM(bool bien, MYSQL* db, const std::string& que) {
    if (!bien) throw Fault{static_cast<std::int32_t>(mysql_errno(db)), que.substr(0, 200) + ": " + mysql_error(db)};
}

using ConexionC = std::unique_ptr<MYSQL, void (*)(MYSQL*)>;

ConexionC Conectar(const std::string& base) {
    const platform::DestinoMariadb destino = Servidor();
    ConexionC db(mysql_init(nullptr), mysql_close);
    mysql_optionsv(db.get(), MYSQL_SET_CHARSET_NAME, "utf8mb4");
    auto texto = [](const std::string& valor) { return valor.empty() ? nullptr : valor.c_str(); };
    ExigirM(mysql_real_connect(db.get(), destino.servidor.c_str(), texto(destino.usuario), texto(destino.clave),
                               texto(base), destino.puerto, texto(destino.socket), CLIENT_FOUND_ROWS) != nullptr,
            db.get(), "connect");
    return db;
}

// Runs a statement as text and drops any rows it yields.
void Texto(MYSQL* db, const std::string& sql) {
    ExigirM(mysql_real_query(db, sql.data(), sql.size()) == 0, db, sql);
    mysql_free_result(mysql_store_result(db));
}

// The company in its own database: the schema through the adapter, the rows
// in inserts of a thousand.
void CrearEmpresaMariadb(int lineas) {
    {
        ConexionC admin = Conectar("");
        Texto(admin.get(), std::string("DROP DATABASE IF EXISTS ") + kBaseEmpresa);
        Texto(admin.get(), std::string("CREATE DATABASE ") + kBaseEmpresa + " CHARACTER SET utf8mb4");
    }
    platform::EjecutarGuionPorPartes(*platform::AbrirMariadb(UrlDe(kBaseEmpresa)),
                                     std::string(schema::EsquemaMariadb()));
    ConexionC db = Conectar(kBaseEmpresa);
    Texto(db.get(), "START TRANSACTION");
    Texto(db.get(), "INSERT INTO gv_Configuracion (Clave, Numero, Texto) VALUES ('NVCA101', NULL, '" +
                        std::string(kRfc) + "')");
    Texto(db.get(), "INSERT INTO ut_CFDInfo (Sys_PK, uf_noCertificado) VALUES (1, '30001000000400002443')");
    Texto(db.get(), "INSERT INTO ut_CFDFolio (Sys_PK, uf_Serie, uf_FolioInicial, uf_FolioFinal, uf_noAprobacion, "
                    "uf_anoAprobacion, uf_CFDInfo) VALUES (1, 'A', 1, 1000000, 12345, 2010, 1)");
    std::string cfd;
    std::string bitacora;
    for (int i = 1; i <= lineas + kOtroMes; ++i) {
        const bool delMes = i <= lineas;
        cfd += (cfd.empty() ? "INSERT INTO ut_CFD (Sys_PK, uf_IVenta, uf_CFDFolio, uf_FechaHora, uf_Tipo) VALUES "
                            : ",") +
               ("(" + std::to_string(i) + "," + std::to_string(i) + ",1,'" +
                (delMes ? "2026-11-05 10:00:00" : "2026-10-05 10:00:00") + "',1)");
        bitacora += (bitacora.empty() ? "INSERT INTO ut_CFDBitacora (Sys_PK, uf_CFD, uf_Datos, uf_Reportado) VALUES "
                                      : ",") +
                    ("(" + std::to_string(i) + "," + std::to_string(i) + ",'" + LineaDelHost(i) + "'," +
                     (delMes ? "0" : "1") + ")");
        if (i % 1000 == 0 || i == lineas + kOtroMes) {
            Texto(db.get(), cfd);
            Texto(db.get(), bitacora);
            cfd.clear();
            bitacora.clear();
        }
    }
    Texto(db.get(), "COMMIT");
}

// A way's own copy of the company.
void CopiarEmpresaMariadb(const std::string& base) {
    ConexionC db = Conectar("");
    Texto(db.get(), "DROP DATABASE IF EXISTS " + base);
    Texto(db.get(), "CREATE DATABASE " + base + " CHARACTER SET utf8mb4");
    const std::string tablas = "SELECT TABLE_NAME FROM information_schema.TABLES WHERE TABLE_SCHEMA='" +
                               std::string(kBaseEmpresa) + "' AND TABLE_TYPE='BASE TABLE'";
    ExigirM(mysql_real_query(db.get(), tablas.data(), tablas.size()) == 0, db.get(), tablas);
    std::vector<std::string> nombres;
    MYSQL_RES* filas = mysql_store_result(db.get());
    while (MYSQL_ROW fila = mysql_fetch_row(filas)) nombres.emplace_back(fila[0]);
    mysql_free_result(filas);
    for (const std::string& tabla : nombres) {
        Texto(db.get(), "CREATE TABLE " + base + "." + tabla + " LIKE " + kBaseEmpresa + "." + tabla);
        Texto(db.get(), "INSERT INTO " + base + "." + tabla + " SELECT * FROM " + kBaseEmpresa + "." + tabla);
    }
}

bool PorLaFachadaMariadb(const std::string& base, const std::string& carpeta) {
    return PorLaFachada(platform::AbrirMariadb(UrlDe(base)), carpeta);
}

bool PorConnectorC(const std::string& base, const std::string& carpeta) {
    ConexionC conexion = Conectar(base);
    MYSQL* db = conexion.get();
    Texto(db, kExiste);
    Texto(db, "START TRANSACTION");
    const std::string consulta = Consulta();
    ExigirM(mysql_real_query(db, consulta.data(), consulta.size()) == 0, db, consulta);
    // Stored on the client: the UPDATEs go through the same connection while
    // the rows are walked.
    std::unique_ptr<MYSQL_RES, void (*)(MYSQL_RES*)> filas(mysql_store_result(db), mysql_free_result);
    ExigirM(filas != nullptr, db, consulta);
    std::string informe;
    while (MYSQL_ROW fila = mysql_fetch_row(filas.get())) {
        const unsigned long* largos = mysql_fetch_lengths(filas.get());
        const std::string aprobacion = std::string(fila[3] ? fila[3] : "0") + (fila[2] ? fila[2] : "0");
        std::string adicional;
        const std::string linea =
            Normalizar(std::string_view(fila[1] ? fila[1] : "", fila[1] ? largos[1] : 0), aprobacion, adicional);
        Agregar(informe, linea, adicional);
        Texto(db, Actualizacion(linea, fila[0]));
    }
    filas.reset();
    const char* insercion = "INSERT INTO ut_CFDInforme (uf_Nombre,uf_Contenido,uf_Mes,uf_Anio,uf_Fecha) "
                            "VALUES (?,?,?,?,?)";
    std::unique_ptr<MYSQL_STMT, my_bool (*)(MYSQL_STMT*)> st(mysql_stmt_init(db), mysql_stmt_close);
    ExigirM(mysql_stmt_prepare(st.get(), insercion, std::strlen(insercion)) == 0, db, insercion);
    unsigned long largoNombre = std::strlen(kNombre);
    unsigned long largoInforme = informe.size();
    long long mes = kMes;
    long long anio = kAnio;
    MYSQL_TIME fecha{};
    fecha.year = 2026;
    fecha.month = 11;
    fecha.day = 30;
    fecha.hour = 12;
    fecha.time_type = MYSQL_TIMESTAMP_DATETIME;
    MYSQL_BIND enlaces[5] = {};
    enlaces[0].buffer_type = MYSQL_TYPE_STRING;
    enlaces[0].buffer = const_cast<char*>(kNombre);
    enlaces[0].length = &largoNombre;
    enlaces[1].buffer_type = MYSQL_TYPE_STRING;
    enlaces[1].buffer = informe.data();
    enlaces[1].length = &largoInforme;
    enlaces[2].buffer_type = MYSQL_TYPE_LONGLONG;
    enlaces[2].buffer = &mes;
    enlaces[3].buffer_type = MYSQL_TYPE_LONGLONG;
    enlaces[3].buffer = &anio;
    enlaces[4].buffer_type = MYSQL_TYPE_DATETIME;
    enlaces[4].buffer = &fecha;
    ExigirM(mysql_stmt_bind_param(st.get(), enlaces) == 0, db, "bind");
    ExigirM(mysql_stmt_execute(st.get()) == 0, db, std::string("execute: ") + mysql_stmt_error(st.get()));
    st.reset();
    if (!Escribir(carpeta, informe)) return false;
    Texto(db, "COMMIT");
    return true;
}

std::string EstadoMariadb(const std::string& base) {
    ConexionC db = Conectar(base);
    std::string estado;
    for (const char* sql : {"SELECT Sys_PK, uf_Reportado, uf_Datos FROM ut_CFDBitacora ORDER BY Sys_PK",
                            "SELECT uf_Nombre, uf_Mes, uf_Anio, uf_Contenido FROM ut_CFDInforme ORDER BY Sys_PK"}) {
        ExigirM(mysql_real_query(db.get(), sql, std::strlen(sql)) == 0, db.get(), sql);
        MYSQL_RES* filas = mysql_use_result(db.get());
        const unsigned int columnas = mysql_num_fields(filas);
        while (MYSQL_ROW fila = mysql_fetch_row(filas)) {
            const unsigned long* largos = mysql_fetch_lengths(filas);
            for (unsigned int c = 0; c < columnas; ++c) {
                estado += fila[c] ? std::string(fila[c], largos[c]) : "Null";
                estado += '\t';
            }
            estado += '\n';
        }
        mysql_free_result(filas);
    }
    return estado;
}

// --- Runs in children ------------------------------------------------------------

struct Medida {
    bool ok = false;
    double paredMs = 0;
    double cpuMs = 0;
    long picoKb = 0;
};

double CpuMs() {
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    return static_cast<double>(uso.ru_utime.tv_sec + uso.ru_stime.tv_sec) * 1000.0 +
           static_cast<double>(uso.ru_utime.tv_usec + uso.ru_stime.tv_usec) / 1000.0;
}

// Runs the work in a child process; its time comes back through a pipe, its
// peak resident memory from wait4.
Medida EnHijo(const std::function<bool()>& trabajo) {
    int tubo[2];
    if (pipe(tubo) != 0) throw Fault{errno, "pipe"};
    std::cout.flush();
    const pid_t hijo = fork();
    if (hijo < 0) throw Fault{errno, "fork"};
    if (hijo == 0) {
        close(tubo[0]);
        Medida m;
        const auto inicio = std::chrono::steady_clock::now();
        const double cpu = CpuMs();
        try {
            m.ok = trabajo();
        } catch (const Fault& fault) {
            std::cerr << ErrorText(fault) << "\n";
        }
        m.cpuMs = CpuMs() - cpu;
        m.paredMs = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - inicio).count();
        if (write(tubo[1], &m, sizeof m) != static_cast<ssize_t>(sizeof m)) _exit(2);
        _exit(0);
    }
    close(tubo[1]);
    Medida m;
    const bool leido = read(tubo[0], &m, sizeof m) == static_cast<ssize_t>(sizeof m);
    close(tubo[0]);
    int estado = 0;
    rusage uso{};
    wait4(hijo, &estado, 0, &uso);
    if (!leido || !WIFEXITED(estado) || WEXITSTATUS(estado) != 0) m.ok = false;
    m.picoKb = uso.ru_maxrss;
    return m;
}

std::string Leer(const fs::path& ruta) {
    std::ifstream in(ruta, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// What a generation leaves in the database, to compare the two ways.
std::string Estado(const std::string& ruta) {
    sqlite3* db = nullptr;
    Exigir(sqlite3_open_v2(ruta.c_str(), &db, SQLITE_OPEN_READONLY, nullptr), db, "open");
    std::string estado;
    auto leer = [&](const char* sql) {
        sqlite3_stmt* st = nullptr;
        Exigir(sqlite3_prepare_v2(db, sql, -1, &st, nullptr), db, sql);
        while (sqlite3_step(st) == SQLITE_ROW) {
            for (int c = 0; c < sqlite3_column_count(st); ++c) {
                const auto* texto = reinterpret_cast<const char*>(sqlite3_column_text(st, c));
                estado += texto ? texto : "Null";
                estado += '\t';
            }
            estado += '\n';
        }
        sqlite3_finalize(st);
    };
    leer("SELECT Sys_PK, uf_Reportado, uf_Datos FROM ut_CFDBitacora ORDER BY Sys_PK");
    leer("SELECT uf_Nombre, uf_Mes, uf_Anio, uf_Contenido FROM ut_CFDInforme ORDER BY Sys_PK");
    sqlite3_close(db);
    return estado;
}

// One engine of the comparison: how its company is made once and copied for
// each run, how each way generates the month on a copy, and what a copy
// holds after it.
struct Banco {
    const char* titulo;
    int rondas;
    int hasta;  // the most lines it runs, 0 for no limit
    std::function<void(int lineas)> crear;
    std::function<std::string(const std::string& lado)> copiar;  // gives where the copy is
    std::function<bool(const std::string&, const std::string&)> fachada;
    std::function<bool(const std::string&, const std::string&)> directo;
    std::function<std::string(const std::string&)> estado;
};

// Whether the two ways left the same file and the same rows.
bool MismoTrabajo(const Banco& banco, const fs::path& base, const std::string& copiaFachada,
                  const std::string& copiaDirecto) {
    const std::string archivo = std::string(kNombre) + ".txt";
    const std::string fachada = Leer(base / "fachada" / archivo);
    const std::string directo = Leer(base / "directo" / archivo);
    if (fachada != directo) {
        std::cerr << "los archivos difieren (" << fachada.size() << " y " << directo.size() << " bytes)\n";
        return false;
    }
    if (banco.estado(copiaFachada) != banco.estado(copiaDirecto)) {
        std::cerr << "las bases difieren después de generar\n";
        return false;
    }
    return true;
}

struct Lado {
    const char* nombre;
    std::function<bool(const std::string&, const std::string&)> generar;
    std::vector<Medida> medidas;
    std::string copia;
};

// One size: the company, a checked run of each way, then the timed rounds.
bool Medir(const Banco& banco, const fs::path& base, int lineas) {
    if (!EnHijo([&] {
             banco.crear(lineas);
             return true;
         }).ok) {
        return false;
    }
    std::vector<Lado> lados = {{"fachada", banco.fachada, {}, {}}, {"directo", banco.directo, {}, {}}};
    std::uintmax_t tamano = 0;
    for (int ronda = 0; ronda <= banco.rondas; ++ronda) {
        for (Lado& lado : lados) {
            const fs::path carpeta = base / lado.nombre;
            fs::remove_all(carpeta);
            fs::create_directories(carpeta);
            lado.copia = banco.copiar(lado.nombre);
            const Medida m = EnHijo([&] { return lado.generar(lado.copia, carpeta.string()); });
            if (!m.ok) {
                std::cerr << lado.nombre << ": la generación falló\n";
                return false;
            }
            if (ronda > 0) lado.medidas.push_back(m);
        }
        // The first round checks that both ways did the same work, in a
        // child too, so that what it reads does not swell this process and
        // with it the next children's memory.
        if (ronda == 0 &&
            !EnHijo([&] { return MismoTrabajo(banco, base, lados[0].copia, lados[1].copia); }).ok)
            return false;
    }
    tamano = fs::file_size(base / "fachada" / (std::string(kNombre) + ".txt"));

    auto mejor = [](const Lado& lado, double Medida::*campo) {
        double m = lado.medidas.front().*campo;
        for (const Medida& medida : lado.medidas) m = std::min(m, medida.*campo);
        return m;
    };
    auto pico = [](const Lado& lado) {
        long p = 0;
        for (const Medida& medida : lado.medidas) p = std::max(p, medida.picoKb);
        return p;
    };
    const double tamanoMb = static_cast<double>(tamano) / (1024.0 * 1024.0);
    const double fParedMs = mejor(lados[0], &Medida::paredMs);
    const double dParedMs = mejor(lados[1], &Medida::paredMs);
    const double fCpuMs = mejor(lados[0], &Medida::cpuMs);
    const double dCpuMs = mejor(lados[1], &Medida::cpuMs);
    const double fPicoMb = static_cast<double>(pico(lados[0])) / 1024.0;
    const double dPicoMb = static_cast<double>(pico(lados[1])) / 1024.0;
    std::cout << banco.titulo << ", la mejor de " << banco.rondas << " corridas de cada lado\n"
              << std::fixed << std::setprecision(1) << lineas << " líneas, informe de " << std::setprecision(2)
              << tamanoMb << " MB\n"
              << std::setprecision(1) << "  tiempo (pared)  fachada " << std::setw(8) << fParedMs << " ms   directo "
              << std::setw(8) << dParedMs << " ms   razón " << std::setprecision(2) << fParedMs / dParedMs << "\n"
              << std::setprecision(1) << "  tiempo (CPU)    fachada " << std::setw(8) << fCpuMs << " ms   directo "
              << std::setw(8) << dCpuMs << " ms   razón " << std::setprecision(2) << fCpuMs / dCpuMs << "\n"
              << std::setprecision(1) << "  memoria pico    fachada " << std::setw(8) << fPicoMb << " MB   directo "
              << std::setw(8) << dPicoMb << " MB   límite (informe + 64 MB) " << tamanoMb + 64.0 << " MB\n";
    return true;
}

Banco SobreSqlite(const fs::path& base) {
    const std::string original = (base / "empresa.db").string();
    return {"SQLite",
            kRondas,
            0,
            [original](int lineas) {
                fs::remove(original);
                CrearEmpresa(original, lineas);
            },
            [base, original](const std::string& lado) {
                const fs::path ruta = base / (lado + ".db");
                fs::copy_file(original, ruta, fs::copy_options::overwrite_existing);
                return ruta.string();
            },
            PorLaFachadaSqlite,
            PorLaApi,
            Estado};
}

Banco SobreMariadb() {
    const char* hasta = std::getenv("CELDORA_BENCH_MARIADB_HASTA");
    return {"MariaDB",
            kRondasServidor,
            hasta != nullptr ? std::atoi(hasta) : kHastaServidor,
            CrearEmpresaMariadb,
            [](const std::string& lado) {
                const std::string base = std::string(kBaseEmpresa) + "_" + lado;
                CopiarEmpresaMariadb(base);
                return base;
            },
            PorLaFachadaMariadb,
            PorConnectorC,
            EstadoMariadb};
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<int> tamanos = {10000, 100000};
    if (argc > 1) {
        tamanos.clear();
        for (int i = 1; i < argc; ++i) tamanos.push_back(std::atoi(argv[i]));
    }
    const fs::path base = fs::temp_directory_path() / ("celdora_bench_informe_" + std::to_string(::getpid()));
    fs::remove_all(base);
    fs::create_directories(base);
    std::vector<Banco> bancos = {SobreSqlite(base)};
    if (std::getenv("CELDORA_BENCH_MARIADB") != nullptr) bancos.push_back(SobreMariadb());
    std::cout << "Cada corrida en un proceso propio.\n";
    int codigo = 0;
    try {
        for (int lineas : tamanos) {
            for (const Banco& banco : bancos) {
                if (banco.hasta > 0 && lineas > banco.hasta) {
                    std::cout << banco.titulo << ": " << lineas << " líneas quedan fuera (más de " << banco.hasta
                              << ")\n";
                    continue;
                }
                if (!Medir(banco, base, lineas)) codigo = 1;
            }
        }
    } catch (const Fault& fault) {
        std::cerr << ErrorText(fault) << "\n";
        codigo = 1;
    }
    std::error_code ec;
    fs::remove_all(base, ec);
    return codigo;
}
