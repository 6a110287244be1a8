#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace celdora::app {

// "celdora members [CLASE]": the dispatch table of one public class
// (cAcction when none is named), one member a line in slot order, then the
// slots kept for members that have not joined yet. Raises ErrorDeUso for an
// unknown class or extra arguments.
int ListarMiembros(const std::vector<std::string>& args, std::ostream& out);

}  // namespace celdora::app
