#pragma once

#include <QByteArray>
#include <QString>
#include <QTextDecoder>

#include <memory>

/// Blocks of received bytes to the text that a view shows. It remembers what a block's end cut
/// apart: a character of several bytes, or a carriage return and its line feed.
class tcReceivedText
{
public:
    tcReceivedText() { reset(); }

    /// Forgets what was left of the last block; for a newly opened port.
    void reset();

    /// Text of the block up to its first NUL, in the local 8-bit encoding, without U+0001,
    /// which cameras put between replies.
    QString append(const QByteArray& acBlock);

private:
    std::unique_ptr<QTextDecoder> mDecoder;
    bool mEndedInReturn = false;
};
