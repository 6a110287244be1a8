#pragma once

#include <string>
#include <utility>

#include "host/Dorvex.h"

namespace celdora::platform {

// A field of the row writer: the properties the caller sets, kept as given.
class cCampoSimple : public host::cCampo {
public:
    void Tipo(const std::string& type) override { tipo_ = type; }
    std::string Tipo() const override { return tipo_; }
    void Nombre(const std::string& name) override { nombre_ = name; }
    std::string Nombre() const override { return nombre_; }
    void ValorInicial(Variant value) override { valorInicial_ = std::move(value); }
    const Variant& ValorInicial() const override { return valorInicial_; }
    void Valor(Variant value) override { valor_ = std::move(value); }
    const Variant& Valor() const override { return valor_; }
    void Requerido(bool required) override { requerido_ = required; }
    bool Requerido() const override { return requerido_; }
    void Reservado(int reserved) override { reservado_ = reserved; }
    int Reservado() const override { return reservado_; }
    void Tamano(int size) override { tamano_ = size; }
    int Tamano() const override { return tamano_; }
    void NombreColumna(const std::string& name) override { nombreColumna_ = name; }
    std::string NombreColumna() const override { return nombreColumna_; }

private:
    std::string tipo_;
    std::string nombre_;
    Variant valorInicial_;
    Variant valor_;
    bool requerido_ = false;
    int reservado_ = 0;
    int tamano_ = 0;
    std::string nombreColumna_;
};

}  // namespace celdora::platform
