#pragma once

#include <QByteArray>
#include <QString>

/// One line from a serial thermometer: ">23.4" and a line feed.
namespace tcOmegaReply
{

enum class teKind
{
    Unframed, ///< not between ">" and a line feed: an echo, a piece of a reply, noise
    Bad,      ///< framed, but no number, or none that the probe can have
    Reading,
};

struct tcResult
{
    teKind kind = teKind::Unframed;
    double value = 0.0; ///< degrees, of a reading only
};

// A thermocouple reads neither of these, nor beyond.
constexpr double cTooCold = -273.0;
constexpr double cTooHot = 1000.0;

tcResult parse(const QString& acLine);

/// Byte for byte, so that noise stays visible.
QString toText(const QByteArray& acLine);

} // namespace tcOmegaReply
