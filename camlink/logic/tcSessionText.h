#pragma once

#include <QByteArray>
#include <QDateTime>

/// Lines of a session log: when, which way, and what went over the line with nothing lost.
///
///     2026-11-20 14:03:07.125 TX <VERS>\n
///     2026-11-20 14:03:07.131 RX <VERS><ACK><2.4>\r\n
///     2026-11-20 14:05:00.000 -- closed
namespace tcSessionText
{

/// Printable ASCII as it is; a backslash doubled; line ends and tabs as \r, \n, \t; every other
/// byte as \x and two digits. Nothing is lost: the bytes can be had back from it.
QByteArray escaped(const QByteArray& acBytes);

QByteArray sent(const QDateTime& acWhen, const QByteArray& acBytes);
QByteArray received(const QDateTime& acWhen, const QByteArray& acBytes);
QByteArray note(const QDateTime& acWhen, const QString& acText);

} // namespace tcSessionText

/// Pieces of received bytes, joined until a line is whole, so that the log reads as the camera
/// speaks. Told when the line falls silent, it gives up what is unfinished.
class tcSessionLines
{
public:
    static constexpr int cLongest
        = 4096; ///< bytes without a line feed that make a line all the same

    /// The lines that the piece completes.
    QList<QByteArray> append(const QByteArray& acPiece);
    /// What is left, or nothing.
    QByteArray takeRest();

private:
    QByteArray mRest;
};
