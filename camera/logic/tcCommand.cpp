#include "camera/logic/tcCommand.h"

#include <algorithm>

namespace tcCommand
{

QString completed(const QString& acText)
{
    if (acText.isEmpty())
        return {};
    QString command = acText;
    if (!command.startsWith('<'))
        command.prepend('<');
    if (!command.endsWith('>'))
        command.append('>');
    return command;
}

QByteArray wireForm(const QString& acCommand)
{
    // No character takes less than a byte: what lies beyond the buffer need not be converted.
    const QByteArray bytes = acCommand.left(cBufferSize).toLocal8Bit();
    const auto length = static_cast<int>(qstrnlen(bytes.constData(), uint(bytes.size())));
    return bytes.left(std::min(length, cBufferSize - 2)) + '\n';
}

} // namespace tcCommand
