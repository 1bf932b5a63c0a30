#include "camera/logic/tcCommand.h"

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

} // namespace tcCommand
