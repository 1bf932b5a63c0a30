#include "camera/logic/tcRxAssembler.h"

#include "camera/logic/tcReply.h"

#include <QDebug>

#include <algorithm>
#include <utility>

namespace
{

/// Length of what can no longer become part of a reply, up to and with its line feed; 0 when
/// the text may still be the start of one.
int junkLength(const QStringRef& arText)
{
    // Within the first brackets a line feed is as good as any other character; behind them the
    // pattern admits none before the reply is complete.
    const int from = arText.startsWith('<') ? arText.indexOf('>') : 0;
    return from < 0 ? 0 : arText.indexOf('\n', from) + 1;
}

/// The text behind leading lines that are no reply and end in a lone line feed.
QStringRef withoutJunk(QStringRef aText)
{
    for (int length = junkLength(aText); length > 0 && !tcReply::isReply(aText);
         length = junkLength(aText)) {
        qDebug() << "No handler for" << aText.left(length);
        aText = aText.mid(length);
    }
    return aText;
}

} // namespace

void tcRxAssembler::add(const QString& acText)
{
    if (acText.isEmpty())
        return;
    const bool skip = mSkipLineFeed && acText.startsWith('\n');
    mSkipLineFeed = false;
    mPendingLine += skip ? acText.midRef(1) : QStringRef(&acText);
}

std::optional<QString> tcRxAssembler::nextReply()
{
    for (int end = findLineEnd(); end >= 0; end = findLineEnd()) {
        const QStringRef line = mPendingLine.midRef(mStart, end - 2 - mStart);
        mStart = end;
        if (std::exchange(mDropping, false))
            continue;
        if (std::optional<QString> reply = replyIn(line))
            return reply;
    }
    keepUnfinishedLine();
    return std::nullopt;
}

int tcRxAssembler::findLineEnd()
{
    for (int at = std::max(mStart, mSearched); (at = mPendingLine.indexOf('\n', at)) >= 0;
         ++at) {
        if (at > mStart && mPendingLine.at(at - 1) == '\r') {
            mSearched = at + 1;
            return at + 1;
        }
    }
    mSearched = mPendingLine.size();
    return -1;
}

std::optional<QString> tcRxAssembler::replyIn(const QStringRef& arLine) const
{
    const QStringRef rest = withoutJunk(arLine);
    return tcReply::isReply(rest) ? std::optional<QString>(rest.toString()) : std::nullopt;
}

void tcRxAssembler::keepUnfinishedLine()
{
    mPendingLine.remove(0, mStart);
    if (!mDropping)
        mPendingLine.remove(
            0, mPendingLine.size() - withoutJunk(QStringRef(&mPendingLine)).size());
    if (mDropping || mPendingLine.size() > cMaxLine) {
        if (!mDropping)
            qDebug() << "Dropping a line without end after" << mPendingLine.size()
                     << "characters";
        mDropping = true;
        // The first half of its line end may be here already.
        mPendingLine = mPendingLine.endsWith('\r') ? QStringLiteral("\r") : QString();
    }
    mStart = 0;
    mSearched = mPendingLine.size();
}

bool tcRxAssembler::hasUnfinishedReply() const
{
    return !mDropping && tcReply::isReply(mPendingLine);
}

QString tcRxAssembler::takeUnfinishedReply()
{
    QString reply = std::exchange(mPendingLine, QString());
    mSearched = 0;
    if (reply.endsWith('\r')) {
        reply.chop(1);
        mSkipLineFeed = true;
    }
    return reply;
}

void tcRxAssembler::clear()
{
    *this = tcRxAssembler();
}
