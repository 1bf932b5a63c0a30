#include "stripchart/logic/tcCsvReader.h"
#include "stripchart/logic/tcExportWriter.h"

#include <QBuffer>
#include <QDateTime>
#include <QtTest>

#include <limits>

namespace
{

struct tcSamples
{
    std::vector<double> times;
    std::vector<double> values;
};

/// A device that takes so many bytes and no more.
class tcFullDisk : public QIODevice
{
public:
    explicit tcFullDisk(qint64 anRoom) : mRoom(anRoom)
    {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64 anCount) override
    {
        mRoom -= anCount;
        return mRoom < 0 ? -1 : anCount;
    }

private:
    qint64 mRoom;
};

bool write(QIODevice& arDevice, const QStringList& acTitles,
           const std::vector<tcSamples>& acCurves, const tcProgress& acProgress = {})
{
    std::vector<tcColumnView> views;
    for (const tcSamples& curve : acCurves)
        views.push_back({curve.times.data(), curve.values.data(), qint64(curve.times.size())});
    tcExportWriter writer(arDevice);
    writer.header(acTitles);
    tcRowMerge merge(views);
    return writer.rows(merge, acProgress) && writer.flush();
}

QByteArray written(const QStringList& acTitles, const std::vector<tcSamples>& acCurves)
{
    QBuffer device;
    device.open(QIODevice::WriteOnly);
    return write(device, acTitles, acCurves) ? device.data() : QByteArray("failed");
}

} // namespace

class tst_ExportWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsOfTwoCurvesByTime()
    {
        // 2023-11-14 23:13:20 in Berlin.
        QCOMPARE(written({"A", "B"},
                         {{{1700000000000, 1700000001007}, {1.5, 3}}, {{1700000000000}, {2}}}),
                 QByteArray("time,A,B\n"
                            "2023-11-14T23:13:20.000,1.5,2\n"
                            "2023-11-14T23:13:21.007,3,\n"));
    }

    void noSamples() { QCOMPARE(written({"A"}, {{}}), QByteArray("time,A\n")); }

    void titlesKeepTheirColumn()
    {
        QCOMPARE(written({"a,b", "c\nd\r"}, {{}, {}}), QByteArray("time,a;b,c d \n"));
    }

    void valuesReadBackExactly()
    {
        const double infinity = std::numeric_limits<double>::infinity();
        const double quiet = std::numeric_limits<double>::quiet_NaN();
        QCOMPARE(written({"A"}, {{{0, 1, 2, 3, 4}, {0.1, 1e-9, 1.0 / 3, infinity, quiet}}}),
                 QByteArray("time,A\n"
                            "1970-01-01T01:00:00.000,0.1\n"
                            "1970-01-01T01:00:00.001,1e-09\n"
                            "1970-01-01T01:00:00.002,0.3333333333333333\n"
                            "1970-01-01T01:00:00.003,\n"
                            "1970-01-01T01:00:00.004,\n"));
    }

    void timesAreThoseOfTheClock_data()
    {
        QTest::addColumn<qint64>("ms");
        QTest::newRow("before the epoch") << qint64(-1);
        QTest::newRow("end of a minute") << qint64(1700000039999);
        QTest::newRow("begin of a minute") << qint64(1700000040000);
        QTest::newRow("before the clock goes forward") << qint64(1711846799999);
        QTest::newRow("after it") << qint64(1711846800000);
        QTest::newRow("before it goes back") << qint64(1729990799999);
        QTest::newRow("after that") << qint64(1729990800000);
        QTest::newRow("a zone with seconds") << qint64(-2500000000123);
    }
    void timesAreThoseOfTheClock()
    {
        QFETCH(qint64, ms);
        const QByteArray expected
            = QDateTime::fromMSecsSinceEpoch(ms).toString(Qt::ISODateWithMs).toLatin1();
        QCOMPARE(written({"A"}, {{{double(ms - 70000), double(ms)}, {1, 2}}}).split('\n').at(2),
                 expected + ",2");
    }

    void chartReadsItBack()
    {
        tcSamples samples;
        for (int i = 0; i < 20000; ++i) {
            samples.times.push_back(1700000000000.0 + i * 997.0);
            samples.values.push_back(i / 7.0);
        }
        QBuffer device;
        device.setData(written({"A"}, {samples}));
        device.open(QIODevice::ReadOnly);
        tcCsvReader reader(device);
        QVERIFY(reader.readHeader() && reader.readRows());
        QCOMPARE(reader.title(0), QString("A"));
        QCOMPARE(reader.report().skipped(), qint64(0));
        const tcColumnView read = reader.samples(0);
        QCOMPARE(read.count, qint64(samples.times.size()));
        QVERIFY(std::equal(samples.times.begin(), samples.times.end(), read.times));
        QVERIFY(std::equal(samples.values.begin(), samples.values.end(), read.values));
    }

    void stopsOnRequest()
    {
        tcSamples samples;
        for (int i = 0; i < 20000; ++i) {
            samples.times.push_back(i);
            samples.values.push_back(i);
        }
        QBuffer device;
        device.open(QIODevice::WriteOnly);
        int asked = 0;
        QVERIFY(!write(device, {"A"}, {samples}, [&asked](qint64 anDone, qint64 anTotal) {
            ++asked;
            return anTotal != 20000 || anDone > anTotal;
        }));
        QCOMPARE(asked, 1);
    }

    void fullDisk_data()
    {
        QTest::addColumn<int>("rows");
        QTest::newRow("told at the end") << 10;
        QTest::newRow("told on the way") << 20000;
    }
    void fullDisk()
    {
        QFETCH(int, rows);
        tcSamples samples;
        for (int i = 0; i < rows; ++i) {
            samples.times.push_back(i);
            samples.values.push_back(i);
        }
        tcFullDisk disk(100);
        QVERIFY(!write(disk, {"A"}, {samples}));
        tcFullDisk enough(rows * 40);
        QVERIFY(write(enough, {"A"}, {samples}));
    }
};

QTEST_APPLESS_MAIN(tst_ExportWriter)
#include "tst_exportwriter.moc"
