#include "stripchart/logic/tcCsvWriter.h"

#include <QBuffer>
#include <QTextCodec>
#include <QTextStream>
#include <QtTest>

namespace
{

/// Takes so many bytes in all and no more, as a full disk does.
class tcSmallDisk : public QIODevice
{
public:
    explicit tcSmallDisk(qint64 anRoom) : mRoom(anRoom)
    {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

    QByteArray taken;
    int calls = 0;

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* acBytes, qint64 anCount) override
    {
        ++calls;
        const qint64 count = qMin(anCount, mRoom);
        mRoom -= count;
        taken.append(acBytes, int(count));
        return count > 0 ? count : -1;
    }

private:
    qint64 mRoom;
};

} // namespace

class tst_CsvWriter : public QObject
{
    Q_OBJECT

private:
    std::vector<double> mTimesA{1000, 2000};
    std::vector<double> mA{1.5, 3};
    std::vector<double> mTimesB{1000};
    std::vector<double> mB{2};

    std::vector<tcColumnView> both() const
    {
        return {{mTimesA.data(), mA.data(), 2}, {mTimesB.data(), mB.data(), 1}};
    }

private Q_SLOTS:
    void savedFileByteForByte()
    {
        QBuffer file;
        QVERIFY(file.open(QIODevice::WriteOnly));
        tcCsvWriter writer(file);
        writer.header(tcCsvWriter::savedTimeTitle(), {"A", "B"});
        tcRowMerge merge(both());
        QVERIFY(writer.rows(merge));
        writer.emptyLine();
        writer.marker(1000, 21.5, "hot");
        QVERIFY(writer.flush());
        QCOMPARE(file.data(),
                 QByteArray("ms since epoch,A,B,\n"
                            "1000,1.500,2.000\n"
                            "2000,3.000,\n"
                            "\n"
                            "#MARKER,1000.000,21.500,hot\n"));
    }

    void logHeader()
    {
        QBuffer file;
        QVERIFY(file.open(QIODevice::WriteOnly));
        tcCsvWriter writer(file);
        writer.header(tcCsvWriter::loggedTimeTitle(), {"A", "B"});
        QVERIFY(writer.flush());
        QCOMPARE(file.data(), QByteArray("TimeStamp,A,B,\n"));
    }

    void titlesStandAsTheyAre_data()
    {
        QTest::addColumn<QString>("title");
        QTest::newRow("comma") << "a,b";
        QTest::newRow("line feed") << "a\nb";
        QTest::newRow("place holder") << "%1 %2";
        QTest::newRow("not ASCII") << QString::fromUtf8("Température °C");
        QTest::newRow("outside the basic plane") << QString::fromUtf8("\xf0\x9f\x8c\xa1");
        QTest::newRow("half a character") << QString(QChar(0xd83c));
        QTest::newRow("byte order mark") << QString(QChar(0xfeff)) + "x";
        QTest::newRow("long") << QString(300000, 'x');
        QTest::newRow("empty") << "";
    }

    void titlesStandAsTheyAre()
    {
        QFETCH(QString, title);
        QBuffer file;
        QVERIFY(file.open(QIODevice::WriteOnly));
        tcCsvWriter writer(file);
        writer.header(tcCsvWriter::savedTimeTitle(), {title});
        QVERIFY(writer.flush());
        QBuffer stream;
        QVERIFY(stream.open(QIODevice::WriteOnly));
        QTextStream(&stream) << "ms since epoch," << title << ",\n";
        QCOMPARE(file.data(), stream.data());
    }

    void textsAreEncodedAsATextStreamDoes()
    {
        QTextCodec* before = QTextCodec::codecForLocale();
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
        titlesStandAsTheyAreIn("Température €");
        QTextCodec::setCodecForLocale(before);
    }

    void markerLabels_data()
    {
        QTest::addColumn<QString>("label");
        QTest::addColumn<QByteArray>("line");
        const QByteArray head = "#MARKER,1000.000,21.500,";
        QTest::newRow("plain") << "hot" << head + "hot\n";
        QTest::newRow("empty") << "" << head + "\n";
        QTest::newRow("comma") << "a,b" << head + "a,b\n";
        QTest::newRow("line feed") << "a\nb" << head + "a b\n";
        QTest::newRow("carriage return") << "a\rb" << head + "a b\n";
        QTest::newRow("both") << "a\r\nb" << head + "a b\n";
    }

    void markerLabels()
    {
        QFETCH(QString, label);
        QBuffer file;
        QVERIFY(file.open(QIODevice::WriteOnly));
        tcCsvWriter writer(file);
        writer.marker(1000, 21.5, label);
        QVERIFY(writer.flush());
        QTEST(file.data(), "line");
    }

    void rowsOfManyBuffersAreWhole()
    {
        constexpr int cRows = 100000;
        std::vector<double> times;
        std::vector<double> values;
        QByteArray expected;
        for (int i = 0; i < cRows; ++i) {
            times.push_back(1731681000000.0 + i);
            values.push_back(i / 16.0);
            expected += QByteArray::number(qint64(1731681000000) + i) + ','
                + QString::number(i / 16.0, 'f', 3).toLatin1() + '\n';
        }
        QBuffer file;
        QVERIFY(file.open(QIODevice::WriteOnly));
        tcCsvWriter writer(file);
        tcRowMerge merge({{times.data(), values.data(), cRows}});
        QVERIFY(writer.rows(merge));
        QVERIFY(writer.flush());
        QVERIFY(file.data() == expected);
    }

    void nothingGoesOnAfterAShortWrite_data()
    {
        QTest::addColumn<qint64>("room");
        QTest::newRow("none") << qint64(0);
        QTest::newRow("some") << qint64(1000);
        QTest::newRow("one buffer") << qint64(256 * 1024);
        QTest::newRow("one byte short of the first flush") << qint64(256 * 1024 - 1000);
    }

    void nothingGoesOnAfterAShortWrite()
    {
        QFETCH(qint64, room);
        constexpr int cRows = 50000;
        std::vector<double> times(cRows);
        std::vector<double> values(cRows, 1e9);
        for (int i = 0; i < cRows; ++i)
            times[size_t(i)] = i;
        tcSmallDisk disk(room);
        tcCsvWriter writer(disk);
        tcRowMerge merge({{times.data(), values.data(), cRows}});
        QVERIFY(!writer.rows(merge));
        QVERIFY(!writer.ok());
        const int calls = disk.calls;
        writer.emptyLine();
        QVERIFY(!writer.flush());
        QCOMPARE(disk.calls, calls);
        QVERIFY(disk.taken.size() <= room);
    }

    void shortWriteOfTheVeryEndIsSeen()
    {
        tcSmallDisk disk(10);
        tcCsvWriter writer(disk);
        writer.header(tcCsvWriter::savedTimeTitle(), {"A"});
        QVERIFY(writer.ok());
        QVERIFY(!writer.flush());
    }

    void progressIsToldAndCanStop()
    {
        constexpr int cRows = 20000;
        std::vector<double> times(cRows);
        std::vector<double> values(cRows, 1);
        for (int i = 0; i < cRows; ++i)
            times[size_t(i)] = i;
        QBuffer file;
        QVERIFY(file.open(QIODevice::WriteOnly));
        tcCsvWriter writer(file);
        tcRowMerge merge({{times.data(), values.data(), cRows}});
        qint64 last = 0;
        QVERIFY(!writer.rows(merge, [&last](qint64 anDone, qint64 anTotal) {
            last = anDone;
            return anTotal == cRows && anDone < cRows / 2;
        }));
        QVERIFY(last >= cRows / 2);
        QVERIFY(last < cRows);
        QVERIFY(writer.ok());
    }

private:
    void titlesStandAsTheyAreIn(const QString& acTitle)
    {
        QBuffer file;
        QVERIFY(file.open(QIODevice::WriteOnly));
        tcCsvWriter writer(file);
        writer.marker(1, 2, acTitle);
        QVERIFY(writer.flush());
        QBuffer stream;
        QVERIFY(stream.open(QIODevice::WriteOnly));
        QTextStream(&stream) << "#MARKER,1.000,2.000," << acTitle << "\n";
        QCOMPARE(file.data(), stream.data());
        QVERIFY(file.data().contains("Temp\xe9rature"));
    }
};

QTEST_APPLESS_MAIN(tst_CsvWriter)
#include "tst_csvwriter.moc"
