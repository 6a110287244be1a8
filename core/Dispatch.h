#pragma once

// The automation dispatch table of the four public classes: every member by
// name, with its slot, kind, arguments and result, and the calls by name that
// go through it. The command-line tool, the tests and a Windows automation
// server share it, so a member is called the same way from all of them.
//
// Slots. An automation interface lists the standard operations of every
// automation object first; the members follow in an order of their own,
// which is not the order of declaration. Slot 1 is the first member after the
// standard operations, and a property takes one slot for its read and write
// together. Each class keeps its complete slot order (OrdenDeRanuras) even
// while some members are not in the table yet: a member's slot is its place
// in that complete order, so members added later take the slots kept for
// them and nothing already present is renumbered.
//
// Calls. Names are compared without regard to case. Arguments come as
// Variants and are converted to the kind the member declares with the
// platform's conversions (CInt, CLng, CDbl, CCur, CBool, CStr, CDate), from
// first to last, before the member runs, so a conversion fault leaves the
// object untouched. Absent trailing optional arguments take their defaults. An
// object argument takes a Variant holding an object of the interface the
// member expects; Empty, Null and an object Variant holding nothing all pass
// as no object. Results: booleans as Boolean (the automation boolean, -1 and
// 0 through CInt), enumTipoCFD and i16 as Integer, i32 as Long, objects and
// collections as object Variants, members without a result as Empty.
// By-reference arguments get their value after the call written back into
// the caller's vector.
//
// Faults of the dispatch itself, as automation raises them: 438 for a name
// that the class does not have (or a write to a member that cannot be
// written), 449 for a required argument that is missing, 450 for too many
// arguments, 13 for an argument that does not convert or an object of the
// wrong interface; conversions may also raise 6 (overflow) and 94 (Null).

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "value/Fault.h"
#include "value/Variant.h"

namespace celdora {
class cAcction;
class cRegimenFical;
class cFolioOrigen;
class cConceptoFacHordana;
}  // namespace celdora

namespace celdora::dispatch {

// The kinds of arguments and results. Ninguno: a member with no result.
enum class Tipo { Ninguno, I16, I32, F64, Cur, Bool, Str, Date, Var, Obj, TipoCFD };

// "i16", "i32", "f64", "cur", "bool", "str", "date", "var", "obj",
// "enumTipoCFD"; "" for Ninguno.
const char* NombreTipo(Tipo tipo);

enum class Clase { Propiedad, PropiedadSoloLectura, Metodo };

// "propiedad", "propiedad de solo lectura", "método".
const char* NombreClase(Clase clase);

struct Argumento {
    std::string nombre;
    Tipo tipo = Tipo::Var;
    std::string interfaz;  // the object's interface for Tipo::Obj, else ""
    bool opcional = false;
    Variant omision;        // the default of an optional argument
    bool porReferencia = false;
};

struct Miembro {
    std::string nombre;
    int ranura = 0;
    Clase clase = Clase::Metodo;
    std::vector<Argumento> argumentos;  // none for a property
    Tipo resultado = Tipo::Ninguno;     // for a property, its type
    std::string interfazResultado;      // the object's interface for Tipo::Obj

    // Runs a method, or reads a property, on an object of the member's
    // class with arguments already complete (defaults filled in).
    std::function<Variant(Object&, std::vector<Variant>&)> llamar;
    // Writes a property; empty for methods and read-only properties.
    std::function<void(Object&, const Variant&)> escribir;
};

// The four classes, "cAcction" first.
const std::vector<std::string>& Clases();

// The members of a class in slot order; none for a name that is no class
// (compared without regard to case).
const std::vector<Miembro>& MiembrosDe(const std::string& clase);

// Every member name of a class in slot order, those not in the table yet
// included: slot n is the n-th name.
const std::vector<std::string>& OrdenDeRanuras(const std::string& clase);

// A member of a class by name without regard to case; null when absent.
const Miembro* Buscar(const std::string& clase, const std::string& nombre);

// Calls a member by name: a method with its arguments, or a property read
// (which takes none).
Variant Invocar(cAcction& objeto, const std::string& nombre, std::vector<Variant>& argumentos);
Variant Invocar(cRegimenFical& objeto, const std::string& nombre, std::vector<Variant>& argumentos);
Variant Invocar(cFolioOrigen& objeto, const std::string& nombre, std::vector<Variant>& argumentos);
Variant Invocar(cConceptoFacHordana& objeto, const std::string& nombre, std::vector<Variant>& argumentos);

// Reads a property, or calls a method without arguments.
Variant Leer(cAcction& objeto, const std::string& nombre);
Variant Leer(cRegimenFical& objeto, const std::string& nombre);
Variant Leer(cFolioOrigen& objeto, const std::string& nombre);
Variant Leer(cConceptoFacHordana& objeto, const std::string& nombre);

// Writes a property, converting the value to the property's kind.
void Escribir(cAcction& objeto, const std::string& nombre, const Variant& valor);
void Escribir(cRegimenFical& objeto, const std::string& nombre, const Variant& valor);
void Escribir(cFolioOrigen& objeto, const std::string& nombre, const Variant& valor);
void Escribir(cConceptoFacHordana& objeto, const std::string& nombre, const Variant& valor);

// The dispatch faults.
Fault MiembroNoSoportado();   // 438
Fault ArgumentoNoOpcional();  // 449
Fault NumeroDeArgumentos();   // 450

// A value as a person reads it, one line per item: booleans as
// "Verdadero (-1)" and "Falso (0)", Null as "Null", an empty object as
// "Nothing", numbers, dates and texts in their text form, a collection as
// its items (each on its lines; "(colección vacía)" when it has none), a
// cRegimenFical as "Sys_PK<tab>Regimen<tab>Notas", the other two classes as
// one "Propiedad = valor" line per property. Empty gives no line.
std::vector<std::string> Presentar(const Variant& valor);

}  // namespace celdora::dispatch
