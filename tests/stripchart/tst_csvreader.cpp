#include "stripchart/logic/tcCsvReader.h"

#include <QBuffer>
#include <QTextCodec>
#include <QtTest>

#include <cmath>

using teReason = tcCsvReport::teReason;

namespace
{

/// Hands out a few bytes at a time and has no size, as a pipe does.
class tcPipe : public QIODevice
{
public:
    tcPipe(const QByteArray& acBytes, int anPortion) : mBytes(acBytes), mPortion(anPortion)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    bool isSequential() const override { return true; }
    bool breaks = false; ///< an error instead of an end

protected:
    qint64 readData(char* apTo, qint64 anMax) override
    {
        const int count = int(qMin<qint64>(qMin<qint64>(anMax, mPortion), mBytes.size() - mAt));
        if (count == 0)
            return breaks ? -1 : 0;
        memcpy(apTo, mBytes.constData() + mAt, size_t(count));
        mAt += count;
        return count;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray mBytes;
    int mPortion;
    int mAt = 0;
};

/// A long text made while it is read, so that no test holds it.
class tcEndless : public QIODevice
{
public:
    tcEndless(const QByteArray& acHead, const QByteArray& acRepeated, qint64 anTimes,
              const QByteArray& acTail)
        : mPart(acHead)
        , mRepeated(acRepeated.repeated(cAtOnce))
        , mTail(acTail)
        , mTimes(anTimes / cAtOnce)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    bool isSequential() const override { return true; }

    static constexpr int cAtOnce = 10000;

protected:
    qint64 readData(char* apTo, qint64 anMax) override
    {
        while (mAt == mPart.size() && mTimes >= 0) {
            mPart = mTimes > 0 ? mRepeated : mTail;
            mAt = 0;
            --mTimes;
        }
        const int count = int(qMin<qint64>(anMax, mPart.size() - mAt));
        memcpy(apTo, mPart.constData() + mAt, size_t(count));
        mAt += count;
        return count;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray mPart;
    QByteArray mRepeated;
    QByteArray mTail;
    qint64 mTimes;
    int mAt = 0;
};

QString text(const tcCsvReader& acReader, size_t anColumn)
{
    QStringList samples;
    const tcColumnView view = acReader.samples(anColumn);
    for (qint64 i = 0; i < view.count; ++i)
        samples << QString("%1:%2").arg(qint64(view.times[i])).arg(view.values[i]);
    return acReader.title(anColumn) + '=' + samples.join(' ');
}

/// Each column as "title=time:value time:value", or "refused".
QStringList columns(QIODevice& arDevice, tcCsvReport* apReport = nullptr)
{
    tcCsvReader reader(arDevice);
    if (!reader.readHeader())
        return {"refused"};
    reader.readRows();
    QStringList all;
    for (size_t i = 0; i < reader.columnCount(); ++i)
        all << text(reader, i);
    if (apReport)
        *apReport = reader.report();
    return all;
}

QStringList columns(const QByteArray& acFile, tcCsvReport* apReport = nullptr)
{
    QBuffer file;
    file.setData(acFile);
    file.open(QIODevice::ReadOnly);
    return columns(file, apReport);
}

QByteArray encoded(const char* acCodec, const QString& acText)
{
    QTextCodec* codec = QTextCodec::codecForName(acCodec);
    QScopedPointer<QTextEncoder> encoder(codec->makeEncoder());
    return encoder->fromUnicode(acText);
}

} // namespace

class tst_CsvReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void files_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QStringList>("expected");
        const QStringList refused{"refused"};
        const QStringList two{"A=1:1.5 2:3", "B=1:2"};

        QTest::newRow("a saved file, its markers skipped")
            << QByteArray("ms since epoch,A,B,\n1,1.500,2.000\n2,3.000,\n\n"
                          "#MARKER,1.000,2.000,hot\n")
            << two;
        QTest::newRow("a log") << QByteArray("TimeStamp,A,B,\n1,1.500,2.000\n2,3.000,\n")
                               << two;
        QTest::newRow("empty") << QByteArray() << refused;
        QTest::newRow("a line feed alone") << QByteArray("\n") << refused;
        QTest::newRow("one field") << QByteArray("ms since epoch\n1,2\n") << refused;
        QTest::newRow("one field and a comma") << QByteArray("ms since epoch,\n") << refused;
        QTest::newRow("commas alone") << QByteArray(",,,\n1,2\n") << refused;
        QTest::newRow("semicolons") << QByteArray("t;A;B\n1;2;3\n") << refused;
        QTest::newRow("header only") << QByteArray("t,A,B,\n") << QStringList({"A=", "B="});
        QTest::newRow("header without its end")
            << QByteArray("t,A,B") << QStringList({"A=", "B="});
        QTest::newRow("no header") << QByteArray("1731681000000,1.0,2.0\n1731681000001,3,4\n")
                                   << QStringList({"Column 2=1731681000000:1 1731681000001:3",
                                                   "Column 3=1731681000000:2 1731681000001:4"});
        QTest::newRow("no header, empty fields in the first row")
            << QByteArray("5,,2.0\n6,1,2\n")
            << QStringList({"Column 2=6:1", "Column 3=5:2 6:2"});
        QTest::newRow("header begins with a digit: taken for data")
            << QByteArray("1st,A\n5,1\n") << QStringList({"Column 2=5:1"});
        QTest::newRow("header begins with a blank: a header")
            << QByteArray(" 1,A\n5,1\n") << QStringList({"A=5:1"});
        QTest::newRow("empty parts of the header are dropped")
            << QByteArray("t,,A,,B\n5,1,2\n") << QStringList({"A=5:1", "B=5:2"});
        QTest::newRow("CR LF") << QByteArray("t,A,B\r\n1,1.5,2\r\n2,3,\r\n") << two;
        QTest::newRow("lone CR") << QByteArray("t,A,B\r1,1.5,2\r2,3,\r") << two;
        QTest::newRow("no line end at the end") << QByteArray("t,A,B\n1,1.5,2\n2,3") << two;
        QTest::newRow("blank lines") << QByteArray("t,A,B\n\n1,1.5,2\n   \n\n2,3,\n\n") << two;
        QTest::newRow("blanks around lines and fields")
            << QByteArray("t,A,B\n  1 , 1.5 ,\t2  \n 2,3, \n") << two;
        QTest::newRow("comments") << QByteArray("t,A,B\n# a,b\n1,1.5,2\n  #x\n2,3,#\n") << two;
        QTest::newRow("UTF-8 mark") << QByteArray("\xef\xbb\xbft,A,B\n1,1.5,2\n2,3,\n") << two;
        QTest::newRow("UTF-8 mark before data") << QByteArray("\xef\xbb\xbf"
                                                              "1,1.5\n")
                                                << QStringList({"Column 2=1:1.5"});
        QTest::newRow("titles in UTF-8")
            << QByteArray("t,Temp\xc3\xa9rature,\n1,2\n")
            << QStringList({QString::fromUtf8("Temp\xc3\xa9rature=1:2")});
        QTest::newRow("UTF-16 little endian") << QByteArray("\xff\xfe", 2)
                + encoded("UTF-16LE", QString::fromUtf8("t,A,B\n1,1.5,2\n2,3,\n"))
                                              << two;
        QTest::newRow("UTF-16 big endian") << QByteArray("\xfe\xff", 2)
                + encoded("UTF-16BE", QString::fromUtf8("t,A,B\n1,1.5,2\n2,3,\n"))
                                           << two;
        QTest::newRow("UTF-16 titles")
            << QByteArray("\xff\xfe", 2) + encoded("UTF-16LE", QString::fromUtf8("t,é\n1,2\n"))
            << QStringList({QString::fromUtf8("é=1:2")});
        QTest::newRow("UTF-32") << QByteArray("\xff\xfe\0\0", 4)
                + encoded("UTF-32LE", "t,A,B\n1,1.5,2\n2,3,\n")
                                << two;
        QTest::newRow("UTF-16 with half a character at its end") << QByteArray("\xff\xfe", 2)
                + encoded("UTF-16LE", "t,A\n1,2\n") + "x" << QStringList({"A=1:2"});
        QTest::newRow("zero bytes in fields")
            << QByteArray("t,A,B\n1,1.5,2\n2,3,4\0005\n", 22) << two;
        QTest::newRow("zero bytes where power failed")
            << QByteArray("t,A,B\n1,1.5,2\n2,3,\n\0\0\0\0\0\0", 25) << two;
        QTest::newRow("surplus fields become columns")
            << QByteArray("t,A\n1,1,5\n2,2,6,7\n")
            << QStringList({"A=1:1 2:2", "Column 3=1:5 2:6", "Column 4=2:7"});
        QTest::newRow("surplus commas and words make none")
            << QByteArray("t,A\n1,1,,,,\n2,2,x\n") << QStringList({"A=1:1 2:2"});
        QTest::newRow("missing fields") << QByteArray("t,A,B\n1,1.5,2\n2,3\n") << two;
        QTest::newRow("rows without any value")
            << QByteArray("t,A,B\n1,1.5,2\n2,3\n3,\n4,,\n") << two;
        QTest::newRow("the same time twice, as it stands")
            << QByteArray("t,A\n1,1\n1,2\n") << QStringList({"A=1:1 1:2"});
        QTest::newRow("times going back, as they stand")
            << QByteArray("t,A\n3,1\n1,2\n2,3\n") << QStringList({"A=3:1 1:2 2:3"});
        QTest::newRow("negative time") << QByteArray("t,A\n-5,1\n") << QStringList({"A=-5:1"});
        QTest::newRow("time beyond 64 bits")
            << QByteArray("t,A\n99999999999999999999,1\n1,2\n") << QStringList({"A=1:2"});
        QTest::newRow("time with a fraction is none")
            << QByteArray("t,A\n1.5,1\n1,2\n") << QStringList({"A=1:2"});
        QTest::newRow("numbers in all forms")
            << QByteArray("t,A\n1,-1.5\n2,+2\n3,1e3\n4,.5\n5,5.\n6,0.1234567890123456789\n")
            << QStringList({"A=1:-1.5 2:2 3:1000 4:0.5 5:5 6:0.123457"});
        QTest::newRow("words, quotes and what is too large make no sample")
            << QByteArray("t,A,B\n1,1.5,2\n2,3,abc\n3,\"1\",1e400\n4,-1e400,0x10\n") << two;
        QTest::newRow("no number, infinity") << QByteArray("t,A\n1,nan\n2,inf\n3,-inf\n")
                                             << QStringList({"A=1:nan 2:inf 3:-inf"});
        QTest::newRow("quoted header keeps its quotes")
            << QByteArray("\"t\",\"A\"\n1,2\n") << QStringList({"\"A\"=1:2"});
        QTest::newRow("date-times")
            << QByteArray("t,A\n1970-01-01T00:00:01Z,1\n1970-01-01 01:00:02,2\n"
                          "1970-01-01T02:00:03+02:00,3\n1970-13-01T00:00:00,4\n")
            << QStringList({"A=1000:1 2000:2 3000:3"});
        QTest::newRow("the hour skipped by summer time")
            << QByteArray("t,A\n2026-03-29 02:30:00,1\n") << QStringList({"A=1774747800000:1"});
        QTest::newRow("a column that begins late") << QByteArray("t,A,B\n1,1\n2,2\n3,3,4\n")
                                                   << QStringList({"A=1:1 2:2 3:3", "B=3:4"});
        QTest::newRow("a column with a gap") << QByteArray("t,A,B\n1,1,1\n2,,2\n3,3,3\n")
                                             << QStringList({"A=1:1 3:3", "B=1:1 2:2 3:3"});
    }

    void files()
    {
        QFETCH(QByteArray, file);
        QTEST(columns(file), "expected");
    }

    void filesComeOutTheSameByteByByte_data() { files_data(); }

    void filesComeOutTheSameByteByByte()
    {
        QFETCH(QByteArray, file);
        tcPipe one(file, 1);
        QTEST(columns(one), "expected");
        tcPipe seven(file, 7);
        QTEST(columns(seven), "expected");
    }

    void skippedRowsAreReportedWithLineAndReason_data()
    {
        QTest::addColumn<QByteArray>("lineEnd");
        QTest::newRow("LF") << QByteArray("\n");
        QTest::newRow("CR") << QByteArray("\r");
        QTest::newRow("CR LF") << QByteArray("\r\n");
    }

    void skippedRowsAreReportedWithLineAndReason()
    {
        QFETCH(QByteArray, lineEnd);
        const QList<QByteArray> lines{"t,A,B", "1,1,1",  "lonely", "",         "#c",
                                      "x,2,2", "3,3,no", "4,4,4",  "5,,,,bad", "6"};
        tcCsvReport report;
        columns(lines.join(lineEnd) + lineEnd, &report);
        QCOMPARE(report.rows, qint64(4));
        QCOMPARE(report.skippedRows, qint64(3));
        QCOMPARE(report.skippedFields, qint64(2));
        QCOMPARE(report.cases.size(), 5);
        checkCase(report.cases.at(0), 3, teReason::TooFewFields, "lonely");
        checkCase(report.cases.at(1), 6, teReason::BadTime, "x");
        checkCase(report.cases.at(2), 7, teReason::BadValue, "no");
        checkCase(report.cases.at(3), 9, teReason::BadValue, "bad");
        checkCase(report.cases.at(4), 10, teReason::TooFewFields, "6");
    }

    void linesOfAFileWithoutHeaderCountFromItsFirst()
    {
        tcCsvReport report;
        columns("1,1\nx,2\n", &report);
        QCOMPARE(report.cases.size(), 1);
        checkCase(report.cases.at(0), 2, teReason::BadTime, "x");
    }

    void theReportIsBounded()
    {
        QByteArray file("t,A\n");
        for (int i = 0; i < 1000; ++i)
            file += QByteArray(200, 'x') + '\n';
        tcCsvReport report;
        columns(file, &report);
        QCOMPARE(report.skippedRows, qint64(1000));
        QCOMPARE(report.cases.size(), int(tcCsvReport::cMaxCases));
        QCOMPARE(report.cases.first().text, QByteArray(tcCsvReport::cMaxText, 'x'));
    }

    void tenThousandColumns()
    {
        QByteArray header("t,");
        QByteArray row("7,");
        for (int i = 0; i < 10000; ++i) {
            header += 'c' + QByteArray::number(i) + ',';
            row += QByteArray::number(i) + (i < 9999 ? "," : "");
        }
        QBuffer file;
        file.setData(header + '\n' + row + '\n' + row + '\n');
        QVERIFY(file.open(QIODevice::ReadOnly));
        tcCsvReader reader(file);
        QVERIFY(reader.readHeader());
        QVERIFY(reader.readRows());
        QCOMPARE(reader.columnCount(), size_t(10000));
        QCOMPARE(text(reader, 0), QString("c0=7:0 7:0"));
        QCOMPARE(text(reader, 9999), QString("c9999=7:9999 7:9999"));
        QCOMPARE(reader.report().skippedFields, qint64(0));
    }

    void columnsAreBoundedInHeaderAndRows()
    {
        tcEndless wide("t", ",A", 100000, "\n1,5\n");
        tcCsvReader reader(wide);
        QVERIFY(reader.readHeader());
        QVERIFY(reader.readRows());
        QCOMPARE(reader.columnCount(), size_t(tcCsvReader::cMaxColumns));
        QCOMPARE(text(reader, 0), QString("A=1:5"));

        tcEndless surplus("t,A\n1", ",5", 100000, "\n2,6\n");
        tcCsvReport report;
        const QStringList read = columns(surplus, &report);
        QCOMPARE(size_t(read.size()), 1 + tcCsvReader::cMaxSurplus);
        QCOMPARE(read.first(), QString("A=1:5 2:6"));
        QCOMPARE(report.skippedFields, qint64(100000 - 1 - int(tcCsvReader::cMaxSurplus)));
        checkCase(report.cases.first(), 2, teReason::TooManyFields, "5");
    }

    void linesOfUpToAHundredMegabytes_data()
    {
        QTest::addColumn<QByteArray>("head");
        QTest::addColumn<QByteArray>("repeated");
        QTest::addColumn<QByteArray>("tail");
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<int>("times"); // of ten bytes
        const int all = 10000000;
        const int some = 500000;
        const QByteArray x("xxxxxxxxxx");
        const QStringList rest{"A=1:1 3:3"};
        QTest::newRow("a first line without commas")
            << QByteArray() << x << QByteArray("\n1,2\n") << QStringList({"refused"}) << all;
        QTest::newRow("a row without commas")
            << QByteArray("t,A\n1,1\n") << x << QByteArray("\n3,3\n") << rest << all;
        QTest::newRow("a time stamp") << QByteArray("t,A\n1,1\n") << QByteArray("1111111111")
                                      << QByteArray(",2\n3,3\n") << rest << some;
        QTest::newRow("a value") << QByteArray("t,A\n1,1\n2,") << x << QByteArray("\n3,3\n")
                                 << rest << all;
        QTest::newRow("a comment")
            << QByteArray("t,A\n1,1\n#") << x << QByteArray("\n3,3\n") << rest << some;
        QTest::newRow("a comment with commas")
            << QByteArray("t,A\n1,1\n#") << QByteArray("5,6,7,8,9,") << QByteArray("\n3,3\n")
            << rest << some;
        QTest::newRow("zero bytes") << QByteArray("t,A\n1,1\n") << QByteArray(10, '\0')
                                    << QByteArray("\n3,3\n") << rest << some;
        QTest::newRow("empty fields") << QByteArray("t,A\n1,1\n2,") << QByteArray(10, ',')
                                      << QByteArray("\n3,3\n") << rest << some;
        QTest::newRow("a title") << QByteArray("t,A") << x << QByteArray(",\n1,1\n")
                                 << QStringList(
                                        {'A' + QString(tcCsvReader::cMaxTitle - 1, 'x') + "="})
                                 << all;
        QTest::newRow("blanks") << QByteArray("t,A\n1,1\n") << QByteArray(10, ' ')
                                << QByteArray("\n3,3\n") << rest << some;
    }

    void linesOfUpToAHundredMegabytes()
    {
        QFETCH(QByteArray, head);
        QFETCH(QByteArray, repeated);
        QFETCH(QByteArray, tail);
        QFETCH(QStringList, expected);
        QFETCH(int, times);
        tcEndless file(head, repeated, times, tail);
        const QStringList read = columns(file);
        // The title loses its row's start with the rest of its line; the row is still read.
        QCOMPARE(read.size(), expected.size());
        for (int i = 0; i < read.size(); ++i)
            QVERIFY2(read.at(i).startsWith(expected.at(i)), qPrintable(read.at(i).left(100)));
    }

    void manyBlocksAreReadInOrder()
    {
        constexpr int cRows = 300000;
        QByteArray file("t,A,B,\r\n");
        for (int i = 0; i < cRows; ++i)
            file += QByteArray::number(qint64(1731681000000) + i) + ',' + QByteArray::number(i)
                + ',' + (i % 3 ? QByteArray() : QByteArray::number(i / 16.0, 'f', 4)) + "\r\n";
        QVERIFY(file.size() > 4 * tcCsvBuffer::cInitialBytes);
        QBuffer device;
        device.setData(file);
        QVERIFY(device.open(QIODevice::ReadOnly));
        tcCsvReader reader(device);
        QVERIFY(reader.readHeader());
        QVERIFY(reader.readRows());
        QCOMPARE(reader.report().rows, qint64(cRows));
        const tcColumnView a = reader.samples(0);
        const tcColumnView b = reader.samples(1);
        QCOMPARE(a.count, qint64(cRows));
        QCOMPARE(b.count, qint64(cRows / 3));
        for (int i = 0; i < cRows; ++i) {
            QVERIFY(qint64(a.times[i]) == 1731681000000 + i && int(a.values[i]) == i);
            if (i % 3 == 0)
                QVERIFY(qint64(b.times[i / 3]) == 1731681000000 + i
                        && b.values[i / 3] == i / 16.0);
        }
    }

    void largeUtf16File()
    {
        QString file("t,A,\n");
        for (int i = 0; i < 200000; ++i)
            file += QString::number(i) + ",1.5\n";
        QBuffer device;
        device.setData(QByteArray("\xff\xfe", 2) + encoded("UTF-16LE", file));
        QVERIFY(device.open(QIODevice::ReadOnly));
        tcCsvReader reader(device);
        QVERIFY(reader.readHeader());
        QVERIFY(reader.readRows());
        QCOMPARE(reader.samples(0).count, qint64(200000));
        QCOMPARE(reader.samples(0).times[199999], 199999.0);
        QCOMPARE(reader.report().skippedRows, qint64(0));
    }

    void titlesInTheDesktopsEncoding()
    {
        QTextCodec* before = QTextCodec::codecForLocale();
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
        const QStringList read = columns("t,Temp\xe9rature\n1,2\n");
        QTextCodec::setCodecForLocale(before);
        QCOMPARE(read, QStringList({QString::fromUtf8("Température=1:2")}));
    }

    void deviceThatBreaksGivesWhatItGave()
    {
        tcPipe file("t,A\n1,2\n3,4\n", 5);
        file.breaks = true;
        tcCsvReader reader(file);
        QVERIFY(reader.readHeader());
        QVERIFY(reader.readRows());
        QVERIFY(reader.failed());
        QCOMPARE(text(reader, 0), QString("A=1:2 3:4"));
    }

    void progressIsToldAndCanStop()
    {
        QBuffer file;
        file.setData("t,A\n" + QByteArray("1,2\n").repeated(1000000));
        QVERIFY(file.open(QIODevice::ReadOnly));
        tcCsvReader reader(file);
        QVERIFY(reader.readHeader());
        int looks = 0;
        QVERIFY(!reader.readRows([&](qint64 anDone, qint64 anTotal) {
            ++looks;
            return anTotal == file.size() && anDone <= anTotal && looks < 3;
        }));
        QCOMPARE(looks, 3);
        QVERIFY(reader.samples(0).count < 1000000);
    }

    void releaseFreesOneColumn()
    {
        QBuffer file;
        file.setData("t,A,B\n1,2,3\n");
        QVERIFY(file.open(QIODevice::ReadOnly));
        tcCsvReader reader(file);
        QVERIFY(reader.readHeader() && reader.readRows());
        reader.release(0);
        QCOMPARE(reader.samples(0).count, qint64(0));
        QCOMPARE(text(reader, 1), QString("B=1:3"));
    }

    void whatIsWrittenIsReadBack()
    {
        std::vector<double> times;
        std::vector<double> values;
        for (int i = 0; i < 5000; ++i) {
            times.push_back(1731681000000.0 + i);
            values.push_back((i * 7919 % 100003) / 16.0 - 3000);
        }
        QBuffer file;
        QVERIFY(file.open(QIODevice::ReadWrite));
        tcCsvWriter writer(file);
        writer.header(tcCsvWriter::savedTimeTitle(), {"A", "B"});
        tcRowMerge merge(
            {{times.data(), values.data(), 5000}, {times.data() + 9, values.data(), 9}});
        QVERIFY(writer.rows(merge));
        QVERIFY(writer.flush());
        QVERIFY(file.seek(0));
        tcCsvReader reader(file);
        QVERIFY(reader.readHeader() && reader.readRows());
        QCOMPARE(reader.title(0), QString("A"));
        QCOMPARE(reader.title(1), QString("B"));
        const tcColumnView a = reader.samples(0);
        QCOMPARE(a.count, qint64(5000));
        for (int i = 0; i < 5000; ++i) {
            const double rounded = QString::number(values[size_t(i)], 'f', 3).toDouble();
            QVERIFY(a.times[i] == times[size_t(i)] && a.values[i] == rounded);
        }
        QCOMPARE(reader.samples(1).count, qint64(9));
        QCOMPARE(reader.samples(1).times[0], times[9]);
    }

private:
    static void checkCase(const tcCsvReport::tcCase& acCase, qint64 anLine, teReason anReason,
                          const QByteArray& acText)
    {
        QCOMPARE(acCase.line, anLine);
        QCOMPARE(int(acCase.reason), int(anReason));
        QCOMPARE(acCase.text, acText);
    }
};

QTEST_APPLESS_MAIN(tst_CsvReader)
#include "tst_csvreader.moc"
