#include "camera/logic/tcLongLines.h"

QString tcLongLines::broken(const QString& acText, int anColumn)
{
    if (anColumn + acText.size() <= cMaxLine)
        return acText;
    QString text;
    text.reserve(acText.size() + acText.size() / cMaxLine + 1);
    int column = anColumn;
    for (const QChar character : acText) {
        if (character == '\n') {
            column = 0;
        } else if (++column > cMaxLine && !character.isLowSurrogate()) {
            text += '\n';
            column = 1;
        }
        text += character;
    }
    return text;
}
