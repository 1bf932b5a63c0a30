#include "camlink/logic/tcScriptFile.h"

#include <QDebug>
#include <QFile>
#include <QFileInfo>

namespace tcScriptFile
{

std::optional<QByteArray> read(const QString& acFileName)
{
    QFile file(acFileName);
    // Opening a pipe would wait for whoever writes into it, and a device may never end.
    const QFileInfo info(file);
    const bool other = info.exists() && !info.isFile();
    if (other || !file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qWarning() << "Script can't be read:" << acFileName
                   << (other ? QStringLiteral("not a regular file") : file.errorString());
        return std::nullopt;
    }
    QByteArray script = file.read(cMaxBytes + 1);
    if (script.size() > cMaxBytes) {
        qWarning() << "Script is longer than" << cMaxBytes << "bytes:" << acFileName;
        return std::nullopt;
    }
    const int nul = script.indexOf('\0');
    return nul < 0 ? script : script.left(nul);
}

} // namespace tcScriptFile
