#include "stripchart/logic/tcCsvReader.h"

#include <QBuffer>
#include <QtTest>

using teReason = tcCsvReport::teReason;

namespace
{

constexpr char cRows[] = "ms since epoch,A,\n1000,1\n2000,2\n\n";

struct tcRead
{
    QStringList markers; ///< "x;y;label"
    tcCsvReport report;
    qint64 samples = 0;
};

tcRead read(const QByteArray& acFile)
{
    QBuffer device;
    device.setData(acFile);
    device.open(QIODevice::ReadOnly);
    tcCsvReader reader(device);
    tcRead result;
    if (!reader.readHeader() || !reader.readRows())
        return result;
    for (const tcCsvMarker& marker : reader.markers())
        result.markers << QStringLiteral("%1;%2;%3")
                              .arg(marker.point.x(), 0, 'f', 3)
                              .arg(marker.point.y(), 0, 'f', 3)
                              .arg(marker.label);
    result.report = reader.report();
    result.samples = reader.samples(0).count;
    return result;
}

} // namespace

class tst_CsvMarkers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void line_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QStringList>("markers");
        QTest::addColumn<int>("reported");
        QTest::newRow("as saved") << QByteArray("#MARKER,1000.000,21.500,hot")
                                  << QStringList{"1000.000;21.500;hot"} << 0;
        QTest::newRow("commas in the label")
            << QByteArray("#MARKER,1,2,a, b,c") << QStringList{"1.000;2.000;a, b,c"} << 0;
        QTest::newRow("an umlaut")
            << QByteArray("#MARKER,1,2,K\xc3\xbchler")
            << QStringList{QString::fromUtf8("1.000;2.000;K\xc3\xbchler")} << 0;
        QTest::newRow("empty label")
            << QByteArray("#MARKER,1,2,") << QStringList{"1.000;2.000;"} << 0;
        QTest::newRow("no label")
            << QByteArray("#MARKER,1,2") << QStringList{"1.000;2.000;"} << 0;
        QTest::newRow("blanks before it and around the numbers")
            << QByteArray("  #MARKER, 1 , -2 ,x") << QStringList{"1.000;-2.000;x"} << 0;
        QTest::newRow("no time") << QByteArray("#MARKER,hot,2,x") << QStringList{} << 1;
        QTest::newRow("no value") << QByteArray("#MARKER,1,,x") << QStringList{} << 1;
        QTest::newRow("value missing") << QByteArray("#MARKER,1") << QStringList{} << 1;
        QTest::newRow("not finite") << QByteArray("#MARKER,1,nan,x") << QStringList{} << 1;
        QTest::newRow("another comment") << QByteArray("# MARKER,1,2,x") << QStringList{} << 0;
        QTest::newRow("small letters") << QByteArray("#marker,1,2,x") << QStringList{} << 0;
    }
    void line()
    {
        QFETCH(QByteArray, line);
        QFETCH(QStringList, markers);
        QFETCH(int, reported);
        for (const char* end : {"", "\n", "\r\n", "\r"}) {
            const tcRead result = read(cRows + line + end);
            QCOMPARE(result.markers, markers);
            QCOMPARE(result.report.skippedMarkers, qint64(reported));
            QCOMPARE(result.report.skippedRows + result.report.skippedFields, qint64(0));
            QCOMPARE(result.samples, qint64(2));
        }
    }

    void brokenMarkersTellTheirLine()
    {
        const tcRead result
            = read(QByteArray(cRows) + "#MARKER,1,2,a\n#MARKER,x,2,b\n3000,3\n");
        QCOMPARE(result.report.cases.size(), 1);
        QCOMPARE(result.report.cases.first().line, qint64(6));
        QCOMPARE(result.report.cases.first().reason, teReason::BadMarker);
        QCOMPARE(result.report.cases.first().text, QByteArray("#MARKER,x,2,b"));
        QCOMPARE(result.samples, qint64(3));
    }

    void markersMayStandAnywhere()
    {
        const tcRead result = read("t,A\n#MARKER,1,2,a\n1000,1\n#MARKER,3,4,b\n2000,2\n");
        QCOMPARE(result.markers, QStringList({"1.000;2.000;a", "3.000;4.000;b"}));
        QCOMPARE(result.samples, qint64(2));
    }

    void markersAcrossTheEndsOfTheBuffer()
    {
        // Lines of changing length, so that the buffer ends at every place of a line.
        QByteArray file = cRows;
        QStringList expected;
        for (int i = 0; i < tcCsvMarkers::cMaxMarkers; ++i) {
            const QByteArray label(300 + i % 7, 'x');
            file += "#MARKER," + QByteArray::number(i) + ",2," + label + '\n';
            expected << QStringLiteral("%1.000;2.000;").arg(i) + label;
        }
        QVERIFY(file.size() > 2 * tcCsvBuffer::cInitialBytes);
        QCOMPARE(read(file).markers, expected);
    }

    void noMoreMarkersThanAChartShows()
    {
        const int surplus = 25;
        const tcRead result = read(
            cRows
            + QByteArray("#MARKER,1,2,m\n").repeated(tcCsvMarkers::cMaxMarkers + surplus));
        QCOMPARE(result.markers.size(), tcCsvMarkers::cMaxMarkers);
        QCOMPARE(result.report.skippedMarkers, qint64(surplus));
        QCOMPARE(result.report.cases.first().reason, teReason::TooManyMarkers);
    }

    void endlessLabelIsCut_data()
    {
        QTest::addColumn<int>("length");
        QTest::newRow("within the buffer") << 5000;
        QTest::newRow("beyond the buffer") << 1000000;
    }
    void endlessLabelIsCut()
    {
        QFETCH(int, length);
        const tcRead result
            = read(cRows + ("#MARKER,1,2," + QByteArray(length, 'x')) + "\n3000,3\n");
        QCOMPARE(result.markers.size(), 1);
        QCOMPARE(
            result.markers.first().size(),
            int(tcCsvMarkers::cMaxLine - qstrlen("#MARKER,1,2,") + qstrlen("1.000;2.000;")));
        QCOMPARE(result.samples, qint64(3));
    }
};

QTEST_APPLESS_MAIN(tst_CsvMarkers)
#include "tst_csvmarkers.moc"
