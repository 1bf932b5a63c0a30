#include "camera/logic/tcPresetTables.h"

#include <QString>
#include <QTest>
#include <QVector>

namespace
{

struct tcRow
{
    const char* label;
    const char* commands; ///< with bars between them
};

// clang-format off
const QVector<tcRow> cA{
    {"8-Tap, 10 Bpp, 1824 x 416, Max fps, 500us exp Free",
     "<STOP>|<SCLK 6>|<NROI 1>|<SROI 336 112 1824 416>|<SOMD 0>|<SBPP 4>|<SEXP 500>|<SFIT 0>|<TRIG 0>|<STRT>"},
    {"8-Tap, 10 Bpp, 1824 x 416, 500us exp Trigger on CAM0",
     "<STOP>|<SCLK 6>|<NROI 1>|<SROI 336 112 1824 416>|<SOMD 0>|<SBPP 4>|<SEXP 500>|<SFIT 0>|<TRIG 1>|<STRT>"},
    {"8-Tap, 10 Bpp, 2048 x 1088, Max fps, 5ms exp Free",
     "<STOP>|<SCLK 5>|<NROI 1>|<SROI 0 0 2048 1088>|<SOMD 0>|<SBPP 4>|<SEXP 500>|<SFIT 0>|<TRIG 0>|<STRT>"},
    {"8-Tap, 10 Bpp, 2048 x 1088, 5ms exp Trigger on CAM0",
     "<STOP>|<SCLK 5>|<NROI 1>|<SROI 0 0 2048 1088>|<SOMD 0>|<SBPP 4>|<SEXP 500>|<SFIT 0>|<TRIG 1>|<STRT>"},
};

const QVector<tcRow> cB{
    {"8-Tap, 10 Bpp, 1824 x 416, Max fps, 500us exp Free",
     "<STOP>|<STEC 24.0>|<COOL 1>|<FAN 1>|<SCLK 6>|<NROI 1>|<SROI 336 112 1824 416>|<SOMD 0>|<SBPP 4>|<SEXP 500>|<SFIT 0>|<TRIG 0>|<STRT>"},
    {"8-Tap, 10 Bpp, 1824 x 416, 500us exp Trigger on CAM0",
     "<STOP>|<STEC 24.0>|<COOL 1>|<FAN 1>|<SCLK 6>|<NROI 1>|<SROI 336 112 1824 416>|<SOMD 0>|<SBPP 4>|<SEXP 500>|<SFIT 0>|<TRIG 1>|<STRT>"},
    {"8-Tap, 10 Bpp, 2048 x 1088, Max fps, 5ms exp Free",
     "<STOP>|<STEC 24.0>|<COOL 1>|<FAN 1>|<SCLK 5>|<NROI 1>|<SROI 0 0 2048 1088>|<SOMD 0>|<SBPP 4>|<SEXP 500>|<SFIT 0>|<TRIG 0>|<STRT>"},
    {"8-Tap, 10 Bpp, 2048 x 1088, 5ms exp Trigger on CAM0",
     "<STOP>|<STEC 24.0>|<COOL 1>|<FAN 1>|<SCLK 5>|<NROI 1>|<SROI 0 0 2048 1088>|<SOMD 0>|<SBPP 4>|<SEXP 500>|<SFIT 0>|<TRIG 1>|<STRT>"},
};

const QVector<tcRow> cC{
    {"10-Tap, 8 Bpp, 3360x2496, 95 fps",
     "<STOP>|<NROI 1>|<SROI 0 0 3360 2496>|<SOMD 0>|<SBPP 0>|<SCLK 7>|<SFIT 0>|<STRT>"},
    {"10-Tap, 16 Bpp, 3360x2496, 47 fps",
     "<STOP>|<NROI 1>|<SROI 0 0 3360 2496>|<SOMD 0>|<SBPP 1>|<SCLK 2>|<SFIT 0>|<STRT>"},
    {"Base, 8 Bpp x 2, 3360x2496, 20 fps",
     "<STOP>|<NROI 1>|<SROI 0 0 3360 2496>|<SOMD 1>|<SBPP 0>|<SFIT 50000>|<STRT>"},
    {"Base, 16 Bpp, 3360x2496, 10 fps",
     "<STOP>|<NROI 1>|<SROI 0 0 3360 2496>|<SOMD 1>|<SBPP 1>|<SFIT 100000>|<STRT>"},
    {"Base, 12 Bpp x 2, 3360x2496, 20 fps",
     "<STOP>|<NROI 1>|<SROI 0 0 3360 2496>|<SOMD 1>|<SBPP 2>|<SFIT 50000>|<STRT>"},
};
// clang-format on

/// Every command with a line feed behind it, the last one too.
QByteArray script(const tcRow& acRow)
{
    return QByteArray(acRow.commands).replace('|', '\n') + '\n';
}

} // namespace

class tst_PresetTables : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyEntryToTheLetter_data();
    void everyEntryToTheLetter();
};

void tst_PresetTables::everyEntryToTheLetter_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<char>("table");
    QTest::newRow("Cmv300") << 0 << 'C';
    QTest::newRow("Cmv2000") << 1 << 'A';
    QTest::newRow("Cmv2000TEC") << 2 << 'B';
    QTest::newRow("Cmv4000") << 3 << 'A';
    QTest::newRow("Cmv8000") << 4 << 'C';
    QTest::newRow("Cmv12000") << 5 << 'C';
    QTest::newRow("no sensor type") << 6 << 'C';
    QTest::newRow("negative") << -1 << 'C';
}

// As designed: the presets called "5ms exp" send "<SEXP 500>" too.
void tst_PresetTables::everyEntryToTheLetter()
{
    QFETCH(int, type);
    QFETCH(char, table);
    const QVector<tcRow>& expected = table == 'A' ? cA : table == 'B' ? cB : cC;
    const tcPresetTables::tcTable found = tcPresetTables::of(static_cast<teCmvType>(type));
    QCOMPARE(found.count, expected.size());
    for (int row = 0; row < found.count; ++row) {
        QCOMPARE(QByteArray(found.first[row].label), QByteArray(expected.at(row).label));
        QCOMPARE(QByteArray(found.first[row].script), script(expected.at(row)));
    }
}

QTEST_GUILESS_MAIN(tst_PresetTables)
#include "tst_presettables.moc"
