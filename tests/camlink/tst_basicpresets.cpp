#include "camlink/logic/tcBasicPresets.h"

#include <QStringList>
#include <QTest>

/// Each row is written out a second time here, as the camera's manual lists it, so that a slip
/// in the tables shows.
class tst_BasicPresets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void r60_data();
    void r60() { compare(tcBasicPresets::cR60.data(), int(tcBasicPresets::cR60.size())); }
    void r70_data();
    void r70() { compare(tcBasicPresets::cR70.data(), int(tcBasicPresets::cR70.size())); }

private:
    static void add(int anIndex, const char* acLabel, const QStringList& acCommands);
    static void compare(const tcPreset* apTable, int anCount);
};

void tst_BasicPresets::add(int anIndex, const char* acLabel, const QStringList& acCommands)
{
    QTest::newRow(acLabel) << anIndex << acLabel << acCommands;
}

void tst_BasicPresets::compare(const tcPreset* apTable, int anCount)
{
    QFETCH(int, index);
    QFETCH(QStringList, commands);
    QVERIFY(index < anCount);
    QTEST(QString::fromLatin1(apTable[index].label), "label");
    QCOMPARE(QString::fromLatin1(apTable[index].script), commands.join('\n') + '\n');
}

void tst_BasicPresets::r60_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QStringList>("commands");
    const auto script = [](int anOutput, int anDepth) {
        return QStringList{"<STOP>",
                           "<SROI 0 0 2560 2160>",
                           QStringLiteral("<SOMD %1>").arg(anOutput),
                           QStringLiteral("<SBPP %1>").arg(anDepth),
                           "<SFIT 0>",
                           "<STRT>"};
    };
    add(0, "10-Tap, 8 Bpp, 2560x2160, 70 fps", script(0, 0));
    add(1, "10-Tap, 16 Bpp, 2560x2160, 70 fps", script(0, 1));
    add(2, "Base, 8 Bpp x 2, 2560x2160, 28 fps", script(1, 0));
    add(3, "Base, 16 Bpp, 2560x2160, 14 fps", script(1, 1));
    add(4, "Base, 12 Bpp x 2, 2560x2160, 28 fps", script(1, 2));
    QCOMPARE(int(tcBasicPresets::cR60.size()), 5);
}

void tst_BasicPresets::r70_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QStringList>("commands");
    const auto script = [](int anShutter, int anClock, int anRoot, int anOutput, int anDepth) {
        return QStringList{"<STOP>",
                           QStringLiteral("<SMOD %1>").arg(anShutter),
                           "<SROI 0 0 1920 1080>",
                           QStringLiteral("<SCLK %1>").arg(anClock),
                           QStringLiteral("<SSQRT %1>").arg(anRoot),
                           QStringLiteral("<SOMD %1>").arg(anOutput),
                           QStringLiteral("<SBPP %1>").arg(anDepth),
                           "<SFIT 0>",
                           "<STRT>"};
    };
    add(0, "10-Tap, 8 Bpp, 1920x1080, 75 fps (RS)", script(0, 200, 0, 0, 0));
    add(1, "10-Tap, 16 Bpp, 1920x1080, 75 fps (RS)", script(0, 200, 0, 0, 1));
    add(2, "Base, 8 Bpp x 2, 1920x1080, 75 fps (RS)", script(0, 200, 0, 1, 0));
    add(3, "Base, 16 Bpp, 1920x1080, 30 fps (RS)", script(0, 80, 0, 1, 1));
    add(4, "Base, 12 Bpp x 2, 1920x1080, 75 fps (RS)", script(0, 200, 1, 1, 2));
    add(5, "10-Tap, 8 Bpp, 1920x1080, 37 fps (GS)", script(1, 200, 0, 0, 0));
    add(6, "10-Tap, 16 Bpp, 1920x1080, 37 fps (GS)", script(1, 200, 0, 0, 1));
    add(7, "Base, 8 Bpp x 2, 1920x1080, 37 fps (GS)", script(1, 200, 0, 1, 0));
    add(8, "Base, 16 Bpp, 1920x1080, 14 fps (GS)", script(1, 80, 0, 1, 1));
    add(9, "Base, 12 Bpp x 2, 1920x1080, 37 fps (GS)", script(1, 200, 1, 1, 2));
    QCOMPARE(int(tcBasicPresets::cR70.size()), 10);
}

QTEST_GUILESS_MAIN(tst_BasicPresets)
#include "tst_basicpresets.moc"
