#pragma once

// The shared module: the routines through which the whole library reads the
// database. There is no query layer; each caller writes its own statement,
// opens it here and reads fields by name.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "host/Ado.h"
#include "host/Dorvex.h"
#include "host/Settings.h"
#include "host/cUtilerias.h"
#include "value/Variant.h"

namespace celdora {
class frmPB;
}

namespace celdora::mdlMain {

// Opens a statement on a client-side cursor. Gives none, and says nothing,
// when the recordset cannot be created or the statement cannot be opened.
// The caller closes what it gets. A routine that only walks its rows forward
// once may ask for the server-side cursor (host::adUseServer), which reads
// the rows as it goes instead of holding them all.
std::shared_ptr<host::Recordset> AbrirConsulta(const std::shared_ptr<host::Connection>& connection,
                                               const std::string& sql, int cursorLocation = host::adUseClient);

// The value of one field of the first row, Empty when there is no row, the
// field is Null, or the statement fails. An empty campo reads the first field.
Variant LeerValorConsulta(const std::shared_ptr<host::Connection>& connection, const std::string& sql,
                          const std::string& campo);

// Whether a row with that key exists. A statement that cannot be opened
// answers true, so that the guards built on it refuse when they cannot tell.
bool ExisteRegistro(const std::shared_ptr<host::Connection>& connection, const std::string& tabla,
                    std::int32_t clave, const std::string& campo);

// A column of the row that cRegistro writes, created through the platform
// with its name (as field and as column), type, size, required flag and value;
// and, when given, the value the writer stores while the value is Empty and
// the reserved flag.
std::shared_ptr<host::cCampo> NuevoCampo(const std::string& nombre, const std::string& tipo, const Variant& valor,
                                         int tamano, bool requerido,
                                         const std::optional<Variant>& valorInicial = std::nullopt,
                                         std::optional<int> reservado = std::nullopt);

// A field of the current row as text ("" for Null) and as a number (0 for Null).
std::string TextoCampo(host::Recordset& recordset, const std::string& campo);
double NumeroCampo(host::Recordset& recordset, const std::string& campo);

// The process's one per-machine settings store and one file utilities
// object, created through the platform on first use.
host::cConfigLocal& ConfigLocal();
host::cUtilerias& Utilerias();
// Drops both, so that the next use creates them anew through the platform
// installed then (a test that installs its own platform starts clean).
void SoltarObjetosCompartidos();

// Protected strings and digests: the cipher with the system's key, and the
// sealing component's MD5. All three answer "" when the component fails.
std::string CifrarTexto(const std::string& texto);
std::string DescifrarTexto(const std::string& texto);
std::string ObtenerMD5(const std::string& texto);

// The word of a comprobante kind and of a format type in format file names.
std::string nombreTipoComprobante(std::int32_t tipo);
std::string extensionFormato(double tipoFormato);
std::string nombreFormato(const std::string& base, std::int32_t tipo, double tipoFormato);

// The progress window: at most one, held here. Null when none is open.
std::unique_ptr<frmPB>& frmProgress();
// For long work: a new window whose bar runs in circles, a step per text,
// and its closing (the bar filled first when complete). Errors are passed over.
void MostrarProgreso(const std::string& title);
void AvanzarProgreso(const std::string& text);
void CerrarProgreso(bool complete);

}  // namespace celdora::mdlMain
