#include "stripchart/logic/tcCsvMarkers.h"

#include "stripchart/logic/tcCsvBuffer.h"
#include "stripchart/logic/tcNumberText.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr char cPrefix[] = "#MARKER,";

/// Takes the field before the next comma, or all that is left, off the text.
QByteArray takeField(QByteArray& arText)
{
    const int comma = arText.indexOf(',');
    const QByteArray field = comma < 0 ? arText : arText.left(comma);
    arText = comma < 0 ? QByteArray() : arText.mid(comma + 1);
    return field.trimmed();
}

bool takeNumber(QByteArray& arText, double& arNumber)
{
    return tcNumberText::parseDecimal(takeField(arText), arNumber) && std::isfinite(arNumber);
}

} // namespace

void tcCsvMarkers::append(const char* acpFrom, const char* acpTo)
{
    const qptrdiff room = cMaxLine - mText.size();
    mText.append(acpFrom, static_cast<int>(std::min<qptrdiff>(acpTo - acpFrom, room)));
}

void tcCsvMarkers::endLine(qint64 anLine, tcCsvReport& arReport, const tcCsvBuffer& acBuffer)
{
    const QByteArray line = mText;
    mText.clear();
    if (!line.startsWith(cPrefix))
        return;
    QByteArray rest = line.mid(static_cast<int>(sizeof cPrefix - 1));
    double x = 0;
    double y = 0;
    if (!takeNumber(rest, x) || !takeNumber(rest, y))
        arReport.add(anLine, tcCsvReport::teReason::BadMarker, line);
    else if (mMarkers.size() >= cMaxMarkers)
        arReport.add(anLine, tcCsvReport::teReason::TooManyMarkers, line);
    else
        mMarkers.append({QPointF(x, y), acBuffer.decode(rest)});
}
