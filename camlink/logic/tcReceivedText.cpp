#include "camlink/logic/tcReceivedText.h"

#include <QTextCodec>

void tcReceivedText::reset()
{
    mDecoder.reset(QTextCodec::codecForLocale()->makeDecoder(QTextCodec::IgnoreHeader));
    mEndedInReturn = false;
}

QString tcReceivedText::append(const QByteArray& acBlock)
{
    const auto length = static_cast<int>(qstrnlen(acBlock.constData(), uint(acBlock.size())));
    QString text = mDecoder->toUnicode(acBlock.constData(), length);
    text.remove(QChar(1));
    if (text.isEmpty())
        return text;
    const bool endsInReturn = text.endsWith('\r');
    // The view broke the line at the carriage return already.
    if (mEndedInReturn && text.startsWith('\n'))
        text.remove(0, 1);
    mEndedInReturn = endsInReturn;
    return text;
}
