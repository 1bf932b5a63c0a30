#include "app/logic/tcVersion.h"

#include "app/logic/Revision.h"

namespace tcVersion
{

QString text(bool abDetailed)
{
    QString version = QStringLiteral("%1.%2.%3").arg(cMajor).arg(cMinor).arg(cPatch);
    if (abDetailed) {
        version += QStringLiteral(" build %1").arg(cBuild);
        version += QStringLiteral(" - %2 revision: %1").arg(revision(), vcsKind());
    }
    return version;
}

QString vcsKind()
{
    return QStringLiteral("git");
}

QString revision()
{
    return QStringLiteral(TARVIK_REVISION);
}

const QString& vcsDescription()
{
    static const QString description
        = revision().left(8) + QLatin1Char(' ') + QString::fromUtf8(TARVIK_SUBJECT);
    return description;
}

QString buildDate()
{
    return QStringLiteral(TARVIK_BUILD_DATE);
}

} // namespace tcVersion
