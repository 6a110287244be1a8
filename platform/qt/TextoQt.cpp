#include "platform/qt/TextoQt.h"

#include <QStringList>

namespace celdora::platform {

QString FiltroArchivosQt(const std::string& filtro) {
    const QStringList partes = Qs(filtro).split(QLatin1Char('|'));
    QStringList filtros;
    for (qsizetype i = 0; i + 1 < partes.size(); i += 2) {
        QString patrones = partes[i + 1].trimmed();
        patrones.replace(QLatin1Char(';'), QLatin1Char(' '));
        filtros << partes[i].trimmed() + QStringLiteral(" (") + patrones.simplified() + QLatin1Char(')');
    }
    return filtros.join(QStringLiteral(";;"));
}

}  // namespace celdora::platform
