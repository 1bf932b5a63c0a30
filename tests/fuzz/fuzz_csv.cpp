// Header and rows of chart files: whatever the bytes are, the reader ends, keeps to its bounds,
// reads the same in pieces of any size, and what it read can be written and read again.

#include "stripchart/logic/tcCsvReader.h"

#include <QBuffer>
#include <QStringList>

#include <cmath>
#include <cstdlib>
#include <cstring>

namespace
{

class tcPieces : public QIODevice
{
public:
    tcPieces(const QByteArray& acBytes, qint64 anPiece) : mBytes(acBytes), mPiece(anPiece)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* apTo, qint64 anMax) override
    {
        const qint64 count = std::min({anMax, mPiece, qint64(mBytes.size()) - mAt});
        std::memcpy(apTo, mBytes.constData() + mAt, size_t(count));
        mAt += count;
        return count;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray mBytes;
    qint64 mPiece;
    qint64 mAt = 0;
};

void must(bool abTrue)
{
    if (!abTrue)
        std::abort();
}

bool same(const double* acA, const double* acB, qint64 anCount)
{
    return anCount == 0 || std::memcmp(acA, acB, size_t(anCount) * sizeof(double)) == 0;
}

void compare(const tcCsvReader& acA, const tcCsvReader& acB)
{
    must(acA.columnCount() == acB.columnCount());
    must(acA.report().rows == acB.report().rows);
    must(acA.report().skippedRows == acB.report().skippedRows);
    must(acA.report().skippedFields == acB.report().skippedFields);
    for (size_t i = 0; i < acA.columnCount(); ++i) {
        const tcColumnView a = acA.samples(i);
        const tcColumnView b = acB.samples(i);
        must(acA.title(i) == acB.title(i) && a.count == b.count);
        must(same(a.times, b.times, a.count) && same(a.values, b.values, a.count));
    }
}

void writeAndReadAgain(const tcCsvReader& acReader)
{
    QBuffer file;
    file.open(QIODevice::ReadWrite);
    tcCsvWriter writer(file);
    std::vector<tcColumnView> columns;
    QStringList titles;
    for (size_t i = 0; i < std::min<size_t>(acReader.columnCount(), 20); ++i) {
        columns.push_back(acReader.samples(i));
        titles << QStringLiteral("c%1").arg(i);
    }
    writer.header(tcCsvWriter::savedTimeTitle(), titles);
    tcRowMerge merge(columns);
    qint64 rows = 0;
    tcRowMerge counted(columns);
    while (counted.next())
        ++rows;
    must(writer.rows(merge));
    must(writer.flush());
    file.seek(0);
    tcCsvReader again(file);
    must(again.readHeader() && again.readRows());
    must(again.columnCount() == columns.size());
    must(again.report().rows == rows);
    must(again.report().skippedRows == 0 && again.report().skippedFields == 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* acData, size_t anSize)
{
    const QByteArray bytes(reinterpret_cast<const char*>(acData), int(anSize));
    QBuffer file;
    file.setData(bytes);
    file.open(QIODevice::ReadOnly);
    tcCsvReader whole(file);
    tcPieces pieces(bytes, 1 + qint64(anSize % 7));
    tcCsvReader piecemeal(pieces);
    const bool accepted = whole.readHeader();
    must(piecemeal.readHeader() == accepted);
    if (!accepted)
        return 0;
    must(whole.readRows() && piecemeal.readRows());
    must(whole.columnCount() <= tcCsvReader::cMaxColumns + tcCsvReader::cMaxSurplus);
    compare(whole, piecemeal);
    writeAndReadAgain(whole);
    return 0;
}
