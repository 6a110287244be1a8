#pragma once

// What the MariaDB tests share: the server they run against (named by
// CELDORA_TEST_MARIADB, started by tools/integration.sh), a fresh test
// database for each test program, and fault capture.

#include "tests/support/FallaDe.h"
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "platform/common/ConexionMotor.h"
#include "platform/mariadb/Mariadb.h"
#include "value/Fault.h"

namespace celdora::platform::pruebas {

inline constexpr const char* kSinServidor =
    "CELDORA_TEST_MARIADB no está definida: estas pruebas necesitan un servidor (tools/integration.sh)";

using testing::FallaDe;

inline std::string Entorno(const char* nombre) {
    const char* valor = std::getenv(nombre);
    return valor == nullptr ? std::string() : std::string(valor);
}

// Drops and creates the test database, once per test program unless forced,
// through the administrator's address (CELDORA_TEST_MARIADB_ADMIN, or the
// test address itself) connected without a default database, since the
// database may not exist yet.
inline void ReiniciarBaseDePrueba(const std::string& url, bool forzar = false) {
    static bool hecho = false;
    if (hecho && !forzar) return;
    std::string admin = Entorno("CELDORA_TEST_MARIADB_ADMIN");
    if (admin.empty()) admin = url;
    DestinoMariadb destino = LeerUrlMariadb(admin);
    destino.base.clear();
    const std::string base = LeerUrlMariadb(url).base;
    ASSERT_FALSE(base.empty()) << "CELDORA_TEST_MARIADB must name the test database";
    auto motor = AbrirMotorMariadb(destino);
    motor->Ejecutar("DROP DATABASE IF EXISTS `" + base + "`");
    motor->Ejecutar("CREATE DATABASE `" + base + "` CHARACTER SET utf8mb4 COLLATE utf8mb4_general_ci");
    hecho = true;
}

// A test with a connection to the test database; skipped without a server.
class ConServidor : public ::testing::Test {
protected:
    void SetUp() override {
        url = Entorno("CELDORA_TEST_MARIADB");
        if (url.empty()) GTEST_SKIP() << kSinServidor;
        ReiniciarBaseDePrueba(url);
        if (HasFatalFailure()) return;
        cnn = AbrirMariadb(url);
    }

    Resultado Ejecutar(const std::string& sql, const std::vector<Variant>& parametros = {}) {
        return cnn->motor().Ejecutar(sql, parametros);
    }
    // The first column of the first row, Null when there is none.
    Variant Valor(const std::string& sql) {
        const Resultado resultado = Ejecutar(sql);
        return resultado.filas.empty() ? Variant::Null() : resultado.filas[0][0];
    }
    // A table of the test's own, created anew.
    void Tabla(const std::string& nombre, const std::string& columnas) {
        Ejecutar("DROP TABLE IF EXISTS " + nombre);
        Ejecutar("CREATE TABLE " + nombre + " (" + columnas + ") ENGINE=InnoDB DEFAULT CHARSET=utf8mb4");
    }

    std::string url;
    std::shared_ptr<ConexionMotor> cnn;
};

}  // namespace celdora::platform::pruebas
