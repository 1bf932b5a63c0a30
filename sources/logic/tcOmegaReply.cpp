#include "sources/logic/tcOmegaReply.h"

tcOmegaReply::tcResult tcOmegaReply::parse(const QString& acLine)
{
    if (!acLine.startsWith(u'>') || !acLine.endsWith(u'\n'))
        return {};
    bool parsed = false;
    const double value = acLine.trimmed().mid(1).toDouble(&parsed);
    // Not a number compares false, so it is bad as well.
    if (!parsed || !(value > cTooCold && value < cTooHot))
        return {teKind::Bad, 0.0};
    return {teKind::Reading, value};
}

QString tcOmegaReply::toText(const QByteArray& acLine)
{
    return QString::fromLatin1(acLine.constData(), acLine.size()); // NUL bytes included
}
