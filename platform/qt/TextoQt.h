#pragma once

// Texts between the system (UTF-8 std::string) and Qt (QString).

#include <QString>
#include <string>

namespace celdora::platform {

inline QString Qs(const std::string& texto) { return QString::fromUtf8(texto.data(), static_cast<qsizetype>(texto.size())); }

inline std::string Utf8(const QString& texto) { return texto.toStdString(); }

// A file dialog filter as the system writes it, "Desc|*.ext|Desc2|*.x;*.y",
// in Qt's form, "Desc (*.ext);;Desc2 (*.x *.y)". A description without its
// pattern at the end is left out; an empty filter gives an empty one.
QString FiltroArchivosQt(const std::string& filtro);

}  // namespace celdora::platform
