#pragma once

// Objects of the host application that the system only uses: the user with
// its groups, the catalogue, and the address row object.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/Ado.h"
#include "value/Variant.h"

namespace celdora::host {

// A group of users; its key is UserGroup.Sys_PK.
class Grupo : public Object {
public:
    virtual double Sys_PK() const = 0;
};

// The groups already loaded for a user, in the collection's order.
class ColeccionGrupos {
public:
    virtual ~ColeccionGrupos() = default;
    virtual int Count() const = 0;
    virtual std::shared_ptr<Grupo> Item(int index) const = 0;  // 1-based
};

class GruposUsuario : public Object {
public:
    virtual ColeccionGrupos& Elementos() = 0;
    virtual void Cargar(const std::string& a, const std::string& b) = 0;
};

// oUser, the host's user (library Apsorel).
class Usuario : public Object {
public:
    virtual GruposUsuario& Grupos() = 0;
};

// A country, a state or a city as the source of places gives it.
struct Lugar {
    std::int32_t Sys_PK = 0;
    std::string Nombre;
};

// Where a city lies: its country, and its state (0 when it has none).
struct UbicacionCiudad {
    std::int32_t pais = 0;
    std::int32_t estado = 0;
};

// The source of countries, states and cities behind the catalogue's
// nvlands, as the address controls use it. Lists come ordered by name. The
// Agregar members write a new place and give back its key; a city may be
// added to a country without a state (estado 0). A database failure raises
// its Fault.
class FuenteLugares : public Object {
public:
    virtual std::vector<Lugar> Paises() = 0;
    virtual std::vector<Lugar> Estados(std::int32_t pais) = 0;
    virtual std::vector<Lugar> CiudadesDeEstado(std::int32_t estado) = 0;
    virtual std::vector<Lugar> CiudadesDePais(std::int32_t pais) = 0;
    // Nothing when there is no such city.
    virtual std::optional<UbicacionCiudad> UbicarCiudad(std::int32_t ciudad) = 0;
    virtual std::int32_t AgregarPais(const std::string& nombre) = 0;
    virtual std::int32_t AgregarEstado(std::int32_t pais, const std::string& nombre) = 0;
    virtual std::int32_t AgregarCiudad(std::int32_t pais, std::int32_t estado, const std::string& nombre) = 0;
};

// eCat, the host's catalogue. nvlands is the source of countries, states and
// cities that the address controls take unchanged: a FuenteLugares.
class Catalogo : public Object {
public:
    virtual std::shared_ptr<Object> nvlands() = 0;
};

// The city child object of an address row.
class Ciudad : public Object {
public:
    virtual std::int32_t Sys_PK() const = 0;
    // Loads the row whose field named campo holds valor; true when found.
    virtual bool cargarPor(const std::string& campo, const Variant& valor) = 0;
};

// objDomicilio: one row of Domicilio, read and written by the host's object.
class objDomicilio : public Object {
public:
    virtual void Conexion(std::shared_ptr<Connection> connection) = 0;
    virtual bool cargar(std::int32_t sysPk) = 0;
    virtual std::string colony() const = 0;
    virtual void colony(const std::string& value) = 0;
    virtual std::string address() const = 0;
    virtual void address(const std::string& value) = 0;
    virtual std::string notes() const = 0;
    virtual void notes(const std::string& value) = 0;
    virtual std::string codep() const = 0;
    virtual void codep(const std::string& value) = 0;
    virtual std::string phone() const = 0;
    virtual void phone(const std::string& value) = 0;
    virtual Ciudad& objCiudad() = 0;
    virtual bool guardar() = 0;
    virtual std::int32_t Sys_PK() const = 0;
    virtual std::string ultimoError() const = 0;
};

// The folder object that the shell's folder picker gives back.
class ShellFolder : public Object {
public:
    // Self.Path and Items.Item.Path both name the chosen folder.
    virtual std::string SelfPath() const = 0;
    virtual std::string ItemsItemPath() const = 0;
};

// "Shell32.Shell" and "Shell.Application": the folder picker. Null when the
// user cancelled.
class Shell : public Object {
public:
    virtual std::shared_ptr<ShellFolder> BrowseForFolder(long windowHandle, const std::string& title, int options,
                                                         const std::string& root) = 0;
};

}  // namespace celdora::host
