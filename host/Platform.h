#pragma once

// The process-wide platform: the factory of every object that the system
// creates by name, the user interface services and the clock. The host (or a
// test) installs one before the system is used.

#include <memory>
#include <string>

#include "host/UiServices.h"
#include "value/Date.h"
#include "value/Fault.h"
#include "value/Object.h"

namespace celdora::host {

// The names by which the system creates its outside objects.
namespace progid {
inline constexpr const char* Connection = "ADODB.Connection";
inline constexpr const char* Recordset = "ADODB.Recordset";
inline constexpr const char* Stream = "ADODB.Stream";
inline constexpr const char* ShellShell = "Shell32.Shell";
inline constexpr const char* ShellApplication = "Shell.Application";
inline constexpr const char* Sellora = "Sellora.cProccess";
inline constexpr const char* Trasvel = "Trasvel.cTools";
inline constexpr const char* GlobalVar = "Quimbal.GlobalVar";
inline constexpr const char* cRegistro = "Dorvex.cRegistro";
inline constexpr const char* cCampo = "Dorvex.cCampo";
inline constexpr const char* cCifrado = "cCifrado";
inline constexpr const char* cConfigLocal = "cConfigLocal";
inline constexpr const char* cUtilerias = "cUtilerias";
inline constexpr const char* objDomicilio = "objDomicilio";
}  // namespace progid

class Clock {
public:
    virtual ~Clock() = default;
    virtual celdora::Date Now() = 0;  // today's date with the time of day
};

class Platform {
public:
    virtual ~Platform() = default;
    // A new object by its name; null when that component is not installed.
    virtual std::shared_ptr<Object> CrearObjeto(const std::string& progId) = 0;
    virtual UiServices& Ui() = 0;
    virtual Clock& Reloj() = 0;
};

// The installed platform; using it before one is installed raises a Fault.
inline Platform*& InstalledPlatform() {
    static Platform* platform = nullptr;
    return platform;
}
inline void InstallPlatform(Platform* platform) { InstalledPlatform() = platform; }
inline Platform& CurrentPlatform() {
    if (InstalledPlatform() == nullptr) throw ObjectNotSet();
    return *InstalledPlatform();
}

// Creates by name and casts to the interface; null when absent or when the
// object is not of that interface.
template <class T>
std::shared_ptr<T> Crear(const std::string& progId) {
    return std::dynamic_pointer_cast<T>(CurrentPlatform().CrearObjeto(progId));
}

}  // namespace celdora::host
