#pragma once

// How a dialog model reads on a terminal: each control as a head line (name,
// kind, caption, value, state) with its rows beneath (items of a list, rows
// of a view or grid, fields of an address), grouped under the frame or the
// tab page it sits on. A combo or list of more than a dozen entries shows the
// chosen one with two neighbours on each side, its place among them ("42 de
// 66") and how to see them all; drawn whole, it shows every entry. Nothing
// here changes the model.

#include <iosfwd>
#include <string>
#include <vector>

#include "forms/Control.h"
#include "forms/Controles.h"
#include "forms/Dialogo.h"

namespace celdora::platform::consola {

// A list longer than this shows only the chosen entry and its neighbours.
constexpr int kListaLarga = 12;

// The kind as a clerk reads it: "texto", "combo", "botón"...
std::string NombreTipo(forms::TipoControl tipo);
// A caption without its access-key marks: "&Aceptar" reads "Aceptar".
std::string SinAcceso(const std::string& caption);

// Whether a person sees the control now: it is visible, and so is its
// container, and it sits on the page its tab control shows.
bool Mostrado(const forms::Control& control);
// The controls placed in a container, in declaration order.
std::vector<forms::Control*> Hijos(const forms::Control& contenedor);
// Whether other controls are placed in this one.
bool EsContenedor(const forms::Control& control);
// A field whose text, value or choice a person can't change (Locked).
bool SoloLectura(const forms::Control& control);

// The value on one line: "\"AAA010101AAA\"", "[x] Timbrar", "[=====     ] 50% (50 en 0..100)".
std::string Valor(const forms::Control& control);
// "nombre (tipo) Caption: valor", with " (inhabilitado)" or " (solo lectura)".
std::string Cabecera(const forms::Control& control);
// The lines beneath the head, without indentation; none for most kinds.
// entero: every entry of a long list rather than those around the chosen one.
std::vector<std::string> Filas(const forms::Control& control, bool entero = false);
// How far a bar has gone, from 0 to 100.
int Porcentaje(const forms::ProgressBar& barra);

// The caption line and every control a person sees, in declaration order.
void DibujarDialogo(const forms::Dialogo& dialogo, std::ostream& out);
// One control with its rows and, for a container, the controls in it.
void DibujarControl(const forms::Control& control, std::ostream& out, int nivel = 1, bool entero = false);

}  // namespace celdora::platform::consola
