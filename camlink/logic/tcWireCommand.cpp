#include "camlink/logic/tcWireCommand.h"

#include <QDebug>

namespace tcWireCommand
{

QByteArray bytes(const QString& acCommand)
{
    QByteArray line = acCommand.toLocal8Bit();
    const auto kept = static_cast<int>(qstrnlen(line.constData(), cMaxCommand));
    if (kept < line.size())
        qWarning() << "Command cut to" << kept << "of" << line.size() << "bytes";
    line.truncate(kept);
    return line + '\n';
}

} // namespace tcWireCommand
