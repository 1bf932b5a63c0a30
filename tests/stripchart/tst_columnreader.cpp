#include "stripchart/logic/tcColumnReader.h"

#include <QtTest>

#include <random>

namespace
{

constexpr int cCount = 9000;
constexpr int cDropped = 1500; ///< into the second block

/// Numbers in no order. Their first block is a cut one.
struct tcNumbers
{
    tcNumbers()
    {
        std::mt19937 random(5);
        for (int i = 0; i < cCount + cDropped; ++i) {
            const double number = double(random()) - 2e9;
            column.append(number);
            if (i >= cDropped)
                plain.push_back(number);
        }
        for (int i = 0; i < cDropped; ++i)
            column.dropFirst();
    }

    tcSampleColumn column;
    std::vector<double> plain;
};

} // namespace

class tst_ColumnReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsForthAndBack()
    {
        const tcNumbers numbers;
        tcColumnReader reader(numbers.column);
        int wrong = 0;
        for (int i = 0; i < cCount; ++i)
            wrong += reader.at(i) != numbers.plain[size_t(i)];
        for (int i = cCount - 1; i >= 0; --i)
            wrong += reader.at(i) != numbers.plain[size_t(i)];
        QCOMPARE(wrong, 0);
    }

    void readsAnywhere()
    {
        const tcNumbers numbers;
        tcColumnReader reader(numbers.column);
        std::mt19937 random(6);
        for (int i = 0; i < 1000; ++i) {
            const auto index = random() % unsigned(cCount);
            QCOMPARE(reader.at(int(index)), numbers.plain[index]);
        }
    }

    void extentIsThatOfTheNumbers()
    {
        const tcNumbers numbers;
        tcColumnReader reader(numbers.column);
        std::mt19937 random(7);
        for (int i = 0; i < 1000; ++i) {
            const int first = int(random() % unsigned(cCount));
            const int longest = i % 2 ? 300 : cCount; // most within a block, or else over many
            const int end = std::min(cCount, first + 1 + int(random() % unsigned(longest)));
            if (i % 3)
                reader.at(first); // as well when the block is known as when it is not
            const auto from = numbers.plain.begin() + first;
            const auto to = numbers.plain.begin() + end;
            const tcExtent extent = reader.extent(first, end);
            QCOMPARE(extent.lowest, *std::min_element(from, to));
            QCOMPARE(extent.highest, *std::max_element(from, to));
        }
    }

    void endsOfBlocksBelongToThem()
    {
        tcSampleColumn column;
        for (int i = 0; i < 3 * tcSampleColumn::cBlockSize; ++i)
            column.append(i);
        tcColumnReader reader(column);
        const int size = tcSampleColumn::cBlockSize;
        QCOMPARE(reader.at(size), double(size));
        QCOMPARE(reader.extent(size, 2 * size).lowest, double(size));
        QCOMPARE(reader.extent(size, 2 * size).highest, 2.0 * size - 1);
        QCOMPARE(reader.extent(size, 2 * size + 1).highest, 2.0 * size);
        QCOMPARE(reader.extent(size - 1, 2 * size).lowest, size - 1.0);
    }

    /// Asking early changes nothing of what is read, nor does asking for what isn't there.
    void expectingChangesNothing()
    {
        const tcNumbers numbers;
        tcColumnReader reader(numbers.column);
        for (const int index : {0, 700, cCount - 1, cCount, 2 * cCount}) {
            reader.expect(index);
            reader.expectExtent(index);
            QCOMPARE(reader.at(700), numbers.plain[700]);
        }
        const tcSampleColumn none;
        tcColumnReader empty(none);
        empty.expect(0);
        empty.expectExtent(0);
    }
};

QTEST_APPLESS_MAIN(tst_ColumnReader)
#include "tst_columnreader.moc"
