#pragma once

#include <QString>

#include <optional>

/// Puts the pieces of received text together to lines and picks out the replies.
///
/// A line ends with carriage return and line feed, wherever the pieces were cut. The unfinished
/// last line is kept up to cMaxLine characters; a longer one is dropped whole, so that no cut
/// makes a false reply of it.
class tcRxAssembler
{
public:
    static constexpr int cMaxLine = 1024 * 1024;

    void add(const QString& acText);

    /// The next complete line that is a reply, in the order of arrival; lines that are none are
    /// passed over. Nothing when no complete line is left.
    std::optional<QString> nextReply();

    /// Asked when nextReply() had nothing more.
    bool hasUnfinishedLine() const { return !mPendingLine.isEmpty(); }
    /// The unfinished line already reads as a reply: a line end, or more fields, may follow.
    bool hasUnfinishedReply() const;
    /// Gives that reply away as it is; a line end that arrives later belongs to it.
    QString takeUnfinishedReply();

    void clear();

private:
    /// Position behind the line's end, -1 while it has none.
    int findLineEnd();
    std::optional<QString> replyIn(const QStringRef& arLine) const;
    void keepUnfinishedLine();

    QString mPendingLine;       ///< unfinished; before it, lines that are not taken yet
    int mStart = 0;             ///< of the next line
    int mSearched = 0;          ///< no line end before this position
    bool mDropping = false;     ///< inside a line that was too long
    bool mSkipLineFeed = false; ///< the carriage return before it went with a reply
};
