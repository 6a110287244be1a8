#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/HostObjects.h"

namespace celdora::platform {

// A group known only by its key.
class GrupoClave : public host::Grupo {
public:
    explicit GrupoClave(std::int32_t clave) : clave_(clave) {}
    double Sys_PK() const override { return clave_; }

private:
    std::int32_t clave_;
};

// The groups loaded for a user, in the order they were given.
class ListaGrupos : public host::ColeccionGrupos {
public:
    int Count() const override { return static_cast<int>(grupos_.size()); }
    // 1-based; an index out of range raises Fault 9 (subscript out of range).
    std::shared_ptr<host::Grupo> Item(int index) const override;

    void Reemplazar(const std::vector<std::int32_t>& claves);

private:
    std::vector<std::shared_ptr<host::Grupo>> grupos_;
};

// The groups of a user given as a list of keys. As the host's own object
// does, it holds no group until Cargar runs: Elementos starts empty and
// Cargar loads the whole list (again, if called again).
class GruposDeLista : public host::GruposUsuario {
public:
    explicit GruposDeLista(std::vector<std::int32_t> claves) : claves_(std::move(claves)) {}

    host::ColeccionGrupos& Elementos() override { return elementos_; }
    // The two texts are the host's filters; this object has only its list.
    void Cargar(const std::string& a, const std::string& b) override;

    // How many times Cargar ran, so that a caller's "load only when nothing
    // is loaded yet" can be checked.
    int VecesCargado() const { return vecesCargado_; }

private:
    std::vector<std::int32_t> claves_;
    ListaGrupos elementos_;
    int vecesCargado_ = 0;
};

// A user whose groups a host passes as keys, e.g. a session's user that
// belongs to the groups 3 and 7.
class UsuarioConGrupos : public host::Usuario {
public:
    explicit UsuarioConGrupos(std::vector<std::int32_t> claves) : grupos_(std::move(claves)) {}

    host::GruposUsuario& Grupos() override { return grupos_; }
    int VecesCargado() const { return grupos_.VecesCargado(); }

private:
    GruposDeLista grupos_;
};

}  // namespace celdora::platform
