// bench_config: the cost of opening the main configuration dialog.
//
// It builds a SQLite company in a temporary folder with 50 certificates, 500
// folio ranges and 1,000 document blocks (all of them on the certificate the
// dialog selects first, the heaviest case for its first page, and each range
// following the one before it), 200 consumption centres each with its own
// address, and a tenth of that company beside it. Then it opens the dialog
// as a host would, model only (no window): setObjects and the whole of init,
// on a company whose kind is CFD (the folio ranges are listed) and on one
// whose kind is CFDI (the blocks are listed).
//
// For each it prints the best wall time of seven openings, the number of
// statements one opening issues, and how both grow from the tenth to the
// whole company.

#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "configdialog/dlgConfig.h"
#include "core/cAcction.h"
#include "platform/common/Catalogo.h"
#include "platform/common/ConexionMotor.h"
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

constexpr int kAperturas = 7;

struct Tamano {
    int certificados, rangos, blocks, centros;
};

void Exigir(int rc, sqlite3* db, const std::string& que) {
    if (rc != SQLITE_OK && rc != SQLITE_DONE && rc != SQLITE_ROW) {
        throw Fault{rc, que + ": " + sqlite3_errmsg(db)};
    }
}

void Directo(sqlite3* db, const std::string& sql) {
    Exigir(sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr), db, sql);
}

std::string Texto(int n) { return std::to_string(n); }

// The company: the schema through the platform, the rows in one transaction.
void CrearEmpresa(const std::string& ruta, const Tamano& t, int tipo) {
    {
        auto conexion = platform::AbrirSqlite(ruta);
        platform::EjecutarGuion(*conexion, std::string(schema::EsquemaSqlite()));
    }
    sqlite3* db = nullptr;
    Exigir(sqlite3_open(ruta.c_str(), &db), db, "open");
    std::unique_ptr<sqlite3, int (*)(sqlite3*)> cierre(db, sqlite3_close);
    Directo(db, "BEGIN");
    Directo(db, "INSERT INTO cDocumentos (ID, Const) VALUES (4, 'Factura'), (5, 'Nota de Crédito'), "
                "(17, 'Nota de Cargo')");
    Directo(db, "INSERT INTO Pais (Sys_PK, Nombre) VALUES (1, 'México')");
    Directo(db, "INSERT INTO Ciudad (Sys_PK, Nombre, IPais) VALUES (1, 'Monterrey', 1)");
    Directo(db, "INSERT INTO UserGroup (Sys_PK, GroupID) VALUES (1, 'Administradores'), (2, 'Ventas')");
    Directo(db, "INSERT INTO RegimenEmisor (Sys_PK, Regimen) VALUES (1, 'Régimen General de Ley')");
    Directo(db, "INSERT INTO gv_Configuracion (Clave, Numero, Texto) VALUES ('NVCA300xa', " + Texto(tipo) +
                    ", NULL), ('NVCA100', NULL, 'EMPRESA'), ('NVCA101', NULL, 'EKU9003173C9'), "
                    "('NVCA102b', NULL, '1')");
    for (int i = 1; i <= t.certificados; ++i) {
        Directo(db, "INSERT INTO ut_CFDInfo (Sys_PK, uf_noCertificado) VALUES (" + Texto(i) + ", '3000100000040" +
                        std::string(7 - Texto(i).size(), '0') + Texto(i) + "')");
    }
    for (int i = 1; i <= t.rangos; ++i) {
        Directo(db, "INSERT INTO ut_CFDFolio (Sys_PK, uf_Serie, uf_FolioInicial, uf_FolioFinal, uf_noAprobacion, "
                    "uf_anoAprobacion, uf_CFDInfo, uf_CFDFolioAnterior) VALUES (" +
                        Texto(i) + ", 'A', " + Texto(i * 1000) + ", " + Texto(i * 1000 + 999) + ", " +
                        Texto(10000 + i) + ", 2010, 1, " + Texto(i - 1) + ")");
    }
    const int documentos[] = {4, 5, 17};
    for (int i = 1; i <= t.blocks; ++i) {
        Directo(db, "INSERT INTO BlockDocumentos (Sys_PK, Serie, Documento, Fiscal, uf_CFDI_Info) VALUES (" +
                        Texto(i) + ", 'B" + Texto(i) + "', " + Texto(documentos[i % 3]) + ", 0, 1)");
    }
    // Address 1 is the fiscal one; each centre has its own after it.
    for (int i = 1; i <= t.centros + 1; ++i) {
        Directo(db, "INSERT INTO Domicilio (Sys_PK, ICiudad, Direccion, CodPos, Colonia) VALUES (" + Texto(i) +
                        ", 1, '||Calle " + Texto(i) + "|" + Texto(i) + "|', '64000', 'Centro')");
    }
    for (int i = 1; i <= t.centros; ++i) {
        Directo(db, "INSERT INTO CConsumo (Sys_PK, Descripcion, uf_DomicilioCFD, uf_ExpedicionCXC) VALUES (" +
                        Texto(i) + ", 'Centro " + Texto(i) + "', " + Texto(i + 1) + ", 0)");
    }
    Directo(db, "COMMIT");
}

struct Medida {
    double milisegundos = 0;
    std::size_t sentencias = 0;
};

// One opening of the dialog: setObjects and init on a bound facade.
void Abrir(cAcction& accion) {
    dlgConfig dialogo;
    dialogo.setObjects(&accion);
    dialogo.init();
}

Medida Medir(const std::string& ruta) {
    auto registrado = std::make_unique<testing::MotorRegistrado>(platform::AbrirMotorSqlite(ruta));
    auto sentencias = registrado->sentencias;
    auto conexion = std::make_shared<platform::ConexionMotor>(std::move(registrado));
    cAcction accion;
    accion.SetDataObjects(std::make_shared<platform::DataObjectsMotor>(conexion),
                          std::make_shared<platform::CatalogoPaises>(conexion));
    Abrir(accion);  // warms the engine's caches and counts the statements
    Medida medida;
    medida.sentencias = sentencias->size();
    std::vector<double> tiempos;
    for (int i = 0; i < kAperturas; ++i) {
        const auto inicio = std::chrono::steady_clock::now();
        Abrir(accion);
        tiempos.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - inicio).count());
    }
    medida.milisegundos = *std::min_element(tiempos.begin(), tiempos.end());
    return medida;
}

}  // namespace

int main() {
    platform::ConsolaUi consola(platform::ConsolaUi::RespuestaFija::No);
    platform::SystemClock reloj;
    platform::PlataformaEscritorio plataforma(consola, reloj);
    platform::PlataformaInstalada instalada(plataforma);

    const fs::path carpeta = fs::temp_directory_path() / ("celdora_bench_config_" + std::to_string(::getpid()));
    fs::remove_all(carpeta);
    fs::create_directories(carpeta);
    const Tamano entera{50, 500, 1000, 200};
    const Tamano decima{5, 50, 100, 20};

    int codigo = 0;
    try {
        std::cout << "Apertura de dlgConfig sin ventana (setObjects e init), la mejor de " << kAperturas
                  << ", en SQLite\n"
                  << "Empresa entera: " << entera.certificados << " certificados, " << entera.rangos
                  << " rangos de folios y " << entera.blocks << " blocks en el primer certificado, "
                  << entera.centros << " centros de consumo con domicilio; la décima: la misma a un décimo\n\n"
                  << std::left << std::setw(8) << "Tipo" << std::right << std::setw(14) << "décima ms"
                  << std::setw(16) << "sentencias" << std::setw(14) << "entera ms" << std::setw(16) << "sentencias"
                  << std::setw(18) << "crece el tiempo" << "\n";
        for (const auto& [nombre, tipo] : {std::pair{"CFD", 1}, std::pair{"CFDI", 2}}) {
            Medida medidas[2];
            const Tamano* tamanos[] = {&decima, &entera};
            for (int i = 0; i < 2; ++i) {
                const std::string ruta = (carpeta / (std::string(nombre) + Texto(i) + ".db")).string();
                CrearEmpresa(ruta, *tamanos[i], tipo);
                medidas[i] = Medir(ruta);
            }
            std::cout << std::left << std::setw(8) << nombre << std::right << std::fixed << std::setprecision(2)
                      << std::setw(14) << medidas[0].milisegundos << std::setw(16) << medidas[0].sentencias
                      << std::setw(14) << medidas[1].milisegundos << std::setw(16) << medidas[1].sentencias
                      << std::setw(17) << std::setprecision(1) << medidas[1].milisegundos / medidas[0].milisegundos
                      << "x\n";
            if (medidas[1].milisegundos >= 50) codigo = 1;
        }
        std::cout << "\nObjetivo: menos de 50 ms con la empresa entera"
                  << (codigo == 0 ? ": cumplido\n" : ": NO cumplido\n");
    } catch (const Fault& fault) {
        std::cerr << ErrorText(fault) << "\n";
        codigo = 1;
    }
    std::error_code ec;
    fs::remove_all(carpeta, ec);
    return codigo;
}
