#pragma once

// Settings stores that note every write, in order, as "KEY=VALUE". The
// company store keeps its values in memory; the machine's store is the
// real INI file.

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/Settings.h"
#include "platform/files/cConfigLocalIni.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora::testing {

class GlobalVarGrabado : public host::GlobalVar {
public:
    std::vector<std::string> escrituras;
    int conexiones = 0;  // how often the settings were loaded again

    double LeerNumero(const std::string& key, double defaultValue) override {
        return valores_.count(UCase(key)) ? CDbl(Variant(valores_[UCase(key)])) : defaultValue;
    }
    std::string LeerTexto(const std::string& key, const std::string& defaultValue) override {
        return valores_.count(UCase(key)) ? valores_[UCase(key)] : defaultValue;
    }
    void Conectar(std::shared_ptr<host::Connection>) override { ++conexiones; }
    bool GuardarNumero(const std::string& key, double value) override { return GuardarTexto(key, CStr(value)); }
    bool GuardarTexto(const std::string& key, const std::string& value) override {
        escrituras.push_back(key + "=" + value);
        Poner(key, value);
        return true;
    }
    // A value already stored, not noted as a write.
    void Poner(const std::string& key, const std::string& value) { valores_[UCase(key)] = value; }
    std::map<std::string, std::string> valores_;
};

// A company store that passes everything to another (the real one of a
// company database) and notes the writes that it passes on.
class GlobalVarAnotado : public host::GlobalVar {
public:
    explicit GlobalVarAnotado(std::shared_ptr<host::GlobalVar> real) : real_(std::move(real)) {}
    std::vector<std::string> escrituras;
    int conexiones = 0;

    double LeerNumero(const std::string& key, double defaultValue) override {
        return real_->LeerNumero(key, defaultValue);
    }
    std::string LeerTexto(const std::string& key, const std::string& defaultValue) override {
        return real_->LeerTexto(key, defaultValue);
    }
    void Conectar(std::shared_ptr<host::Connection> connection) override {
        ++conexiones;
        real_->Conectar(std::move(connection));
    }
    bool GuardarNumero(const std::string& key, double value) override {
        escrituras.push_back(key + "=" + CStr(Variant(value)));
        return real_->GuardarNumero(key, value);
    }
    bool GuardarTexto(const std::string& key, const std::string& value) override {
        escrituras.push_back(key + "=" + value);
        return real_->GuardarTexto(key, value);
    }

private:
    std::shared_ptr<host::GlobalVar> real_;
};

// The real INI store of platform/files, noting its writes.
class ConfigLocalGrabado : public platform::cConfigLocalIni {
public:
    std::vector<std::string> escrituras;

    void GuardarValor(const std::string& aplicacion, const std::string& seccion, const std::string& clave,
                      const std::string& valor) override {
        escrituras.push_back(clave + "=" + valor);
        cConfigLocalIni::GuardarValor(aplicacion, seccion, clave, valor);
    }
};

}  // namespace celdora::testing
