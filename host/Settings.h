#pragma once

// The two settings stores: the company's behind GlobalVar and the machine's
// behind cConfigLocal.

#include <memory>
#include <string>

#include "host/Ado.h"

namespace celdora::host {

// Company settings (the host's library Quimbal). A reader passes its own
// default and no default is ever written back.
class GlobalVar : public Object {
public:
    virtual double LeerNumero(const std::string& key, double defaultValue) = 0;
    virtual std::string LeerTexto(const std::string& key, const std::string& defaultValue) = 0;
    // Binds the settings to that connection and loads them from it.
    virtual void Conectar(std::shared_ptr<Connection> connection) = 0;
    virtual bool GuardarNumero(const std::string& key, double value) = 0;
    virtual bool GuardarTexto(const std::string& key, const std::string& value) = 0;
};

// Per-machine settings: strings under an application, a section and a key,
// all three compared without regard to case.
class cConfigLocal : public Object {
public:
    virtual std::string ObtenerValor(const std::string& aplicacion, const std::string& seccion,
                                     const std::string& clave, const std::string& porDefecto) = 0;
    virtual void GuardarValor(const std::string& aplicacion, const std::string& seccion, const std::string& clave,
                              const std::string& valor) = 0;
};

}  // namespace celdora::host
