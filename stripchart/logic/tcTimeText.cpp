#include "stripchart/logic/tcTimeText.h"

#include <QDateTime>
#include <QRegularExpression>

std::optional<qint64> tcTimeText::parse(const QString& acText)
{
    // Qt lets anything follow a time.
    static const QRegularExpression form(
        QStringLiteral("^\\d{4}-\\d\\d-\\d\\d([Tt ]\\d\\d:\\d\\d(:\\d\\d(\\.\\d+)?)? ?"
                       "([Zz]|[+-]\\d\\d(:?\\d\\d)?)?)?$"));
    const QString text = acText.trimmed();
    if (!form.match(text).hasMatch())
        return std::nullopt;
    const QDateTime read = QDateTime::fromString(text, Qt::ISODateWithMs);
    if (read.isValid())
        return read.toMSecsSinceEpoch();
    // An invalid date still turns into milliseconds, those of 1970, which nobody measured.
    if (read.timeSpec() != Qt::LocalTime || !read.date().isValid() || !read.time().isValid())
        return std::nullopt;
    // Skipped by the clock: counted with the zone's offset of the day before.
    const QDateTime dayBefore(read.date().addDays(-1), read.time());
    const QDateTime standard(read.date(), read.time(), Qt::OffsetFromUTC,
                             dayBefore.offsetFromUtc());
    return standard.toMSecsSinceEpoch();
}
