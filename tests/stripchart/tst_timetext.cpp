#include "stripchart/logic/tcTimeText.h"

#include <QDateTime>
#include <QtTest>

class tst_TimeText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (QDateTime(QDate(2026, 7, 1), QTime(12, 0)).offsetFromUtc() != 7200)
            QSKIP("needs the time zone Europe/Berlin");
    }

    void accepted_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("utc");
        QTest::newRow("T") << "2026-11-15T12:00:00"
                           << "2026-11-15T11:00:00.000Z";
        QTest::newRow("blank") << "2026-11-15 12:00:00"
                               << "2026-11-15T11:00:00.000Z";
        QTest::newRow("summer") << "2026-07-15 12:00:00"
                                << "2026-07-15T10:00:00.000Z";
        QTest::newRow("milliseconds") << "2026-11-15 12:00:00.250"
                                      << "2026-11-15T11:00:00.250Z";
        QTest::newRow("tenths") << "2026-11-15 12:00:00.5"
                                << "2026-11-15T11:00:00.500Z";
        QTest::newRow("microseconds") << "2026-11-15 12:00:00.123456"
                                      << "2026-11-15T11:00:00.123Z";
        QTest::newRow("no seconds") << "2026-11-15T12:00"
                                    << "2026-11-15T11:00:00.000Z";
        QTest::newRow("UTC") << "2026-11-15T12:00:00Z"
                             << "2026-11-15T12:00:00.000Z";
        QTest::newRow("zone") << "2026-11-15T12:00:00+05:30"
                              << "2026-11-15T06:30:00.000Z";
        QTest::newRow("zone without colon") << "2026-11-15 12:00:00-0100"
                                            << "2026-11-15T13:00:00.000Z";
        QTest::newRow("fraction and zone") << "2026-11-15 12:00:00.5+01:00"
                                           << "2026-11-15T11:00:00.500Z";
        QTest::newRow("blanks around") << "  2026-11-15T12:00:00Z "
                                       << "2026-11-15T12:00:00.000Z";
        QTest::newRow("before 1970") << "1969-12-31T23:59:59Z"
                                     << "1969-12-31T23:59:59.000Z";
        QTest::newRow("skipped hour is standard time") << "2026-03-29 02:30:00"
                                                       << "2026-03-29T01:30:00.000Z";
        QTest::newRow("just before the skipped hour") << "2026-03-29 01:59:59"
                                                      << "2026-03-29T00:59:59.000Z";
        QTest::newRow("just behind it") << "2026-03-29 03:00:00"
                                        << "2026-03-29T01:00:00.000Z";
        QTest::newRow("skipped hour in another zone") << "2026-03-29T02:30:00Z"
                                                      << "2026-03-29T02:30:00.000Z";
    }

    void accepted()
    {
        QFETCH(QString, text);
        QFETCH(QString, utc);
        const auto ms = tcTimeText::parse(text);
        QVERIFY(ms);
        QCOMPARE(QDateTime::fromMSecsSinceEpoch(*ms, Qt::UTC)
                     .toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss.zzzZ")),
                 utc);
    }

    void refused_data()
    {
        QTest::addColumn<QString>("text");
        for (const char* text :
             {"", "abc", "12:00:00", "2026-13-01T12:00:00", "2026-02-30 12:00:00",
              "2026-11-15T25:00:00", "2026-11-15T12:61:00", "20261115T120000", "15.11.2026",
              "1731681000000.5", "2026-11-15T12:00:00 and more"})
            QTest::newRow(*text ? text : "nothing") << QString(text);
    }

    void refused()
    {
        QFETCH(QString, text);
        QVERIFY(!tcTimeText::parse(text));
    }
};

QTEST_APPLESS_MAIN(tst_TimeText)
#include "tst_timetext.moc"
