#include "stripchart/logic/tcCsvReader.h"

#include "stripchart/logic/tcNumberText.h"
#include "stripchart/logic/tcTimeText.h"

#include <QIODevice>
#include <QRegularExpression>

#include <algorithm>
#include <cstring>

namespace
{

constexpr size_t cMaxHeaderBytes = 16 * 1024 * 1024;
constexpr double cMostReserved = 256e6; ///< numbers, all columns together

bool endsLine(char aChar)
{
    return aChar == '\n' || aChar == '\r';
}

bool isDelimiter(char aChar)
{
    return aChar == ',' || endsLine(aChar);
}

bool isBlank(char aChar)
{
    return aChar == ' ' || aChar == '\t' || aChar == '\v' || aChar == '\f';
}

const char* delimiter(const char* acAt, const char* acStop)
{
    return std::find_if(acAt, acStop, isDelimiter);
}

QByteArray bytes(const char* acFrom, const char* acTo)
{
    return QByteArray(acFrom, static_cast<int>(acTo - acFrom)).trimmed();
}

} // namespace

tcCsvReader::tcCsvReader(QIODevice& arDevice)
    : mTotal(arDevice.isSequential() ? 0 : arDevice.size()), mBuffer(arDevice)
{
}

bool tcCsvReader::readHeader()
{
    const char* stop = mBuffer.begin();
    size_t searched = 0;
    do {
        mBuffer.fill(cMaxHeaderBytes);
        stop = std::find_if(mBuffer.begin() + searched, mBuffer.end(), endsLine);
        searched = mBuffer.size();
    } while (stop == mBuffer.end() && !mBuffer.atEnd() && searched < cMaxHeaderBytes - 16);

    QStringList parts;
    for (const char* at = mBuffer.begin(); at < stop;) {
        const char* end = std::find(at, stop, ',');
        // A field beyond the most columns is left to the rows to report.
        if (end > at && static_cast<size_t>(parts.size()) <= cMaxColumns)
            parts.append(
                mBuffer.decode(QByteArray(at, static_cast<int>(end - at))).left(cMaxTitle));
        at = end < stop ? end + 1 : stop;
    }
    if (parts.size() < 2)
        return false;
    static const QRegularExpression beginsWithNumber(QStringLiteral("^\\d+"));
    if (beginsWithNumber.match(parts.first()).hasMatch()) {
        // As designed: the first value column is the second of the file.
        for (int i = 1; i < parts.size(); ++i)
            parts[i] = QStringLiteral("Column %1").arg(i + 1);
    } else {
        mBuffer.consume(stop);
        mSkipping = true;
    }
    nameColumns(parts);
    return true;
}

void tcCsvReader::nameColumns(const QStringList& acParts)
{
    mNamed = static_cast<size_t>(acParts.size() - 1);
    mColumns.resize(mNamed);
    for (size_t i = 0; i < mNamed; ++i)
        mColumns[i].title = acParts.at(static_cast<int>(i) + 1);
}

bool tcCsvReader::readRows(const tcProgress& acProgress)
{
    bool more = true;
    while (more) {
        more = mBuffer.fill() || !mBuffer.atEnd();
        if (!more && (mBuffer.size() > 0 || mField > 0 || mComment))
            mBuffer.terminate();
        const char* stop = mBuffer.end();
        while (stop > mBuffer.begin() && !isDelimiter(stop[-1]))
            --stop;
        if (stop > mBuffer.begin()) {
            parse(stop);
        } else if (mBuffer.size() >= tcCsvBuffer::cInitialBytes / 2) {
            dropOversized();
            stop = mBuffer.end();
        }
        mBuffer.consume(stop);
        if (acProgress && !acProgress(mBuffer.bytesRead(), mTotal))
            return false;
        makeRoom();
    }
    return true;
}

void tcCsvReader::dropOversized()
{
    // No field is that long; what it says is lost, that it was there is not.
    const char* first = std::find_if_not(mBuffer.begin(), mBuffer.end(), isBlank);
    if (mField == 0 && !mOversized && first < mBuffer.end() && *first == '#')
        mSkipping = true;
    if (mComment)
        mMarkers.append(mBuffer.begin(), mBuffer.end());
    mOversized = !mSkipping;
}

void tcCsvReader::makeRoom()
{
    // What has been read so far tells how much will come, so that no column moves house again
    // and again. Memory never touched costs nothing.
    if (mRoomMade || mTotal <= mBuffer.bytesRead() || mRowTimes.empty())
        return;
    mRoomMade = true;
    const double factor
        = 1.05 * static_cast<double>(mTotal) / static_cast<double>(mBuffer.bytesRead());
    double left = cMostReserved;
    const auto reserve = [factor, &left](std::vector<double>& arNumbers) {
        const double numbers = static_cast<double>(arNumbers.size()) * factor;
        left -= numbers;
        if (left > 0)
            arNumbers.reserve(static_cast<size_t>(numbers));
    };
    reserve(mRowTimes);
    for (tcColumn& column : mColumns) {
        reserve(column.values);
        reserve(column.times);
    }
}

void tcCsvReader::parse(const char* acStop)
{
    const char* at = mBuffer.begin();
    while (at < acStop) {
        if (mSkipping)
            at = skipLine(at, acStop);
        else if (mField == 0)
            at = parseTime(at, acStop);
        else
            at = parseValue(at, acStop);
    }
}

const char* tcCsvReader::skipLine(const char* acAt, const char* acStop)
{
    const char* end = std::find_if(acAt, acStop, endsLine);
    if (mComment)
        mMarkers.append(acAt, end);
    if (end == acStop)
        return end;
    if (mComment)
        mMarkers.endLine(mLine, mReport, mBuffer);
    endLine(*end);
    return end + 1;
}

const char* tcCsvReader::parseTime(const char* acAt, const char* acStop)
{
    if (mAfterReturn && *acAt == '\n') {
        mAfterReturn = false;
        return acAt + 1;
    }
    mAfterReturn = false;
    qint64 time = 0;
    const char* end = tcNumberText::scanInteger(acAt, time);
    if (end && *end == ',' && !mOversized) {
        mRowTimes.push_back(static_cast<double>(time));
        mField = 1;
        return end + 1;
    }
    while (isBlank(*acAt))
        ++acAt;
    if (*acAt == '#' && !mOversized) {
        mSkipping = true;
        mComment = true;
        return acAt;
    }
    end = delimiter(acAt, acStop);
    const QByteArray text = bytes(acAt, end);
    if (*end != ',') {
        if (!text.isEmpty() || mOversized)
            mReport.add(mLine, tcCsvReport::teReason::TooFewFields, text);
        endLine(*end);
        return end + 1;
    }
    if (slowTime(text)) {
        mField = 1;
    } else {
        mReport.add(mLine, tcCsvReport::teReason::BadTime, text);
        mSkipping = true;
        mOversized = false;
    }
    return end + 1;
}

bool tcCsvReader::slowTime(const QByteArray& acText)
{
    if (mOversized)
        return false;
    qint64 time = 0;
    if (!tcNumberText::parseInteger(acText, time)) {
        const std::optional<qint64> read = tcTimeText::parse(QLatin1String(acText));
        if (!read)
            return false;
        time = *read;
    }
    mRowTimes.push_back(static_cast<double>(time));
    return true;
}

const char* tcCsvReader::parseValue(const char* acAt, const char* acStop)
{
    // Curves of different clocks leave most fields of a row empty.
    if (*acAt == ',' && !mOversized) {
        const char* stop
            = std::find_if_not(acAt, acStop, [](char aChar) { return aChar == ','; });
        mField += static_cast<size_t>(stop - acAt);
        return stop;
    }
    double value = 0;
    const char* end = tcNumberText::scanDecimal(acAt, value);
    if (end && isDelimiter(*end) && !mOversized) {
        addValue(value);
    } else {
        end = delimiter(acAt, acStop);
        slowValue(bytes(acAt, end));
    }
    endField(*end);
    return end + 1;
}

void tcCsvReader::slowValue(const QByteArray& acText)
{
    double value = 0;
    if (!mOversized && acText.isEmpty())
        return;
    if (!mOversized && tcNumberText::parseDecimal(acText, value))
        addValue(value);
    else
        mReport.add(mLine, tcCsvReport::teReason::BadValue, acText);
}

void tcCsvReader::addValue(double anValue)
{
    if (mField > mColumns.size()) {
        if (mField > std::min(mNamed + cMaxSurplus, cMaxColumns)) {
            mReport.add(mLine, tcCsvReport::teReason::TooManyFields,
                        QByteArray::number(anValue));
            return;
        }
        while (mColumns.size() < mField) {
            mColumns.emplace_back();
            mColumns.back().title = QStringLiteral("Column %1").arg(mColumns.size() + 1);
        }
    }
    tcColumn& column = mColumns[mField - 1];
    if (!column.sparse && column.values.size() + 1 != mRowTimes.size()) {
        column.sparse = true;
        column.times.assign(mRowTimes.begin(),
                            mRowTimes.begin() + static_cast<qptrdiff>(column.values.size()));
    }
    column.values.push_back(anValue);
    if (column.sparse)
        column.times.push_back(mRowTimes.back());
}

void tcCsvReader::endField(char aDelimiter)
{
    mOversized = false;
    if (aDelimiter == ',') {
        ++mField;
        return;
    }
    ++mReport.rows;
    endLine(aDelimiter);
}

void tcCsvReader::endLine(char aDelimiter)
{
    ++mLine;
    mField = 0;
    mSkipping = false;
    mComment = false;
    mOversized = false;
    mAfterReturn = aDelimiter == '\r';
}

tcColumnView tcCsvReader::samples(size_t anColumn) const
{
    const tcColumn& column = mColumns[anColumn];
    return {(column.sparse ? column.times : mRowTimes).data(), column.values.data(),
            static_cast<qint64>(column.values.size())};
}

void tcCsvReader::release(size_t anColumn)
{
    std::vector<double>().swap(mColumns[anColumn].values);
    std::vector<double>().swap(mColumns[anColumn].times);
}
