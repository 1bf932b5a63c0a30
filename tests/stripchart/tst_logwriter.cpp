#include "stripchart/logic/tcCsvReader.h"
#include "stripchart/tcLogWriter.h"
#include "stripchart/tcStripCurve.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

#ifdef Q_OS_LINUX
#include "tests/support/tcSizeLimit.h"
#endif

class tst_LogWriter : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> mFolder;
    std::unique_ptr<tcStripCurve> mA;
    std::unique_ptr<tcStripCurve> mB;
    qint64 mNow = 1000000;

    QString path() const { return mFolder->filePath("log.csv"); }
    QVector<tcStripCurve*> both() const { return {mA.get(), mB.get()}; }

    QByteArray content() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
    }

    void put(const QByteArray& acBytes) const
    {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(acBytes), qint64(acBytes.size()));
    }

    static std::unique_ptr<tcStripCurve> curve(const QString& acTitle)
    {
        auto made = std::make_unique<tcStripCurve>(0);
        made->setTitle(acTitle);
        return made;
    }

private Q_SLOTS:
    void init()
    {
        mFolder = std::make_unique<QTemporaryDir>();
        mA = curve("A");
        mB = curve("B");
    }

    void firstWriteHasTheHeaderAndAllThatIsHeld()
    {
        mA->addSample(1000, 1.5);
        mB->addSample(1000, 2);
        mA->addSample(2000, 3);
        tcLogWriter log(path());
        QVERIFY(log.open());
        QVERIFY(log.write(both(), mNow));
        QCOMPARE(content(), QByteArray("TimeStamp,A,B,\n1000,1.500,2.000\n2000,3.000,\n"));
    }

    void laterWritesHaveWhatIsNew()
    {
        tcLogWriter log(path());
        QVERIFY(log.open());
        mA->addSample(1000, 1);
        QVERIFY(log.write(both(), mNow));
        QVERIFY(log.write(both(), mNow));
        mB->addSample(1500, 2);
        QVERIFY(log.write(both(), mNow));
        QCOMPARE(content(), QByteArray("TimeStamp,A,B,\n1000,1.000,\n1500,,2.000\n"));
    }

    void readingInTheVeryMillisecondOfAWriteIsNotLost()
    {
        tcLogWriter log(path());
        QVERIFY(log.open());
        mA->addSample(mNow, 1);
        QVERIFY(log.write(both(), mNow));
        mA->addSample(mNow, 2);
        QVERIFY(log.write(both(), mNow));
        QCOMPARE(content(), QByteArray("TimeStamp,A,B,\n1000000,1.000,\n1000000,2.000,\n"));
    }

    void readingAfterTheClockSteppedBackIsNeitherLostNorWrittenTwice()
    {
        tcLogWriter log(path());
        QVERIFY(log.open());
        mA->addSample(5000, 1);
        QVERIFY(log.write(both(), 5000));
        mA->addSample(2000, 2);
        QVERIFY(log.write(both(), 2000));
        QVERIFY(log.write(both(), 2100));
        QCOMPARE(content(), QByteArray("TimeStamp,A,B,\n5000,1.000,\n2000,2.000,\n"));
    }

    void timesBeforeTheFirstMillisecondAreNotReadings()
    {
        tcLogWriter log(path());
        QVERIFY(log.open());
        mA->addSample(0, 1);
        mA->addSample(-5, 2);
        mA->addSample(1, 3);
        QVERIFY(log.write(both(), mNow));
        QCOMPARE(content(), QByteArray("TimeStamp,A,B,\n1,3.000,\n"));
    }

    void loggingTwiceIntoTheSameFileWritesTheHeaderOnce()
    {
        for (int round = 1; round <= 2; ++round) {
            mA->clear();
            mA->addSample(round * 1000, round);
            tcLogWriter log(path());
            QVERIFY(log.open());
            QVERIFY(log.write(both(), mNow));
            QVERIFY(log.close());
        }
        QCOMPARE(content(), QByteArray("TimeStamp,A,B,\n1000,1.000,\n2000,2.000,\n"));
    }

    void continuedFileKeepsItsColumns()
    {
        put("TimeStamp,B,A,\n1,2.000,1.000\n");
        const auto c = curve("C");
        mA->addSample(1000, 10);
        mB->addSample(1000, 20);
        c->addSample(1000, 30);
        tcLogWriter log(path());
        QVERIFY(log.open());
        QVERIFY(log.write({mA.get(), mB.get(), c.get()}, mNow));
        QCOMPARE(content(),
                 QByteArray("TimeStamp,B,A,\n1,2.000,1.000\n"
                            "1000,20.000,10.000,30.000\n"));
    }

    void fileOfAnotherKindIsContinuedInTheChartsOrder()
    {
        put("some notes, B, A\n");
        mA->addSample(1000, 10);
        tcLogWriter log(path());
        QVERIFY(log.open());
        QVERIFY(log.write(both(), mNow));
        QCOMPARE(content(), QByteArray("some notes, B, A\n1000,10.000,\n"));
    }

    void tornLastLineIsLeftAloneOnItsOwn()
    {
        put("TimeStamp,A,B,\n1000,1.0");
        tcLogWriter log(path());
        QVERIFY(log.open());
        QVERIFY(log.write(both(), mNow));
        QCOMPARE(content(), QByteArray("TimeStamp,A,B,\n1000,1.0"));
        mA->addSample(2000, 2);
        QVERIFY(log.write(both(), mNow));
        QCOMPARE(content(), QByteArray("TimeStamp,A,B,\n1000,1.0?\n2000,2.000,\n"));
    }

    void lineTornAnywhereGivesNoReadingThatNobodyTook()
    {
        const QByteArray header("TimeStamp,A,B,\n");
        const QByteArray whole = header + "1000,2470.750,nan\n2000,-12.500,1.000";
        for (int cut = header.size(); cut <= whole.size(); ++cut) {
            put(whole.left(cut));
            tcLogWriter log(path());
            QVERIFY(log.open());
            mA->clear();
            mA->addSample(3000, 3);
            QVERIFY(log.write(both(), mNow));
            QFile file(path());
            QVERIFY(file.open(QIODevice::ReadOnly));
            tcCsvReader reader(file);
            QVERIFY(reader.readHeader() && reader.readRows());
            for (size_t column : {0, 1}) {
                const tcColumnView read = reader.samples(column);
                for (qint64 i = 0; i < read.count; ++i) {
                    const double value = read.values[i];
                    const bool taken = column == 0
                        ? value == 2470.75 || value == -12.5 || value == 3
                        : std::isnan(value) || value == 1;
                    QVERIFY2(taken, content().constData());
                }
            }
            // What is whole is there: each field up to the cut, and the new line.
            const QByteArray rest = whole.left(cut);
            QCOMPARE(reader.samples(0).count,
                     1 + rest.count("2470.750") + rest.count("-12.500"));
            QCOMPARE(reader.samples(1).count, rest.count("nan") + rest.count("1.000"));
        }
    }

    void tornHeaderIsNoValue()
    {
        put("TimeStamp,A,1");
        mA->addSample(1000, 1);
        tcLogWriter log(path());
        QVERIFY(log.open());
        QVERIFY(log.write(both(), mNow));
        QVERIFY(content().startsWith("TimeStamp,A,1\n"));
    }

    void emptiedFileGetsAHeaderAgain()
    {
        tcLogWriter log(path());
        QVERIFY(log.open());
        mA->addSample(1000, 1);
        QVERIFY(log.write(both(), mNow));
        QVERIFY(QFile::resize(path(), 0));
        mA->addSample(2000, 2);
        QVERIFY(log.write(both(), mNow));
        QCOMPARE(content(), QByteArray("TimeStamp,A,B,\n2000,2.000,\n"));
    }

#ifdef Q_OS_UNIX // elsewhere an open file can't be moved, deleted or replaced
    void deletedFileIsBegunAnew_data()
    {
        QTest::addColumn<bool>("moved");
        QTest::newRow("deleted") << false;
        QTest::newRow("moved, and its first part with it") << true;
    }
    void deletedFileIsBegunAnew()
    {
        QFETCH(bool, moved);
        tcLogWriter log(path());
        QVERIFY(log.open());
        mA->addSample(1000, 1);
        QVERIFY(log.write(both(), mNow));
        const QString elsewhere = mFolder->filePath("elsewhere.csv");
        QVERIFY(moved ? QFile::rename(path(), elsewhere) : QFile::remove(path()));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("was gone and is opened anew"));
        mA->addSample(2000, 2);
        QVERIFY(log.write(both(), mNow));
        mB->addSample(3000, 3);
        QVERIFY(log.write(both(), mNow));
        QVERIFY(log.close());
        QCOMPARE(content(), QByteArray("TimeStamp,A,B,\n2000,2.000,\n3000,,3.000\n"));
        QFile first(elsewhere);
        QCOMPARE(first.open(QIODevice::ReadOnly), moved);
        QVERIFY(!moved || first.readAll() == "TimeStamp,A,B,\n1000,1.000,\n");
    }

    void fileThatTookItsPlaceIsContinued()
    {
        tcLogWriter log(path());
        QVERIFY(log.open());
        mA->addSample(1000, 1);
        QVERIFY(log.write(both(), mNow));
        QFile other(mFolder->filePath("other"));
        QVERIFY(other.open(QIODevice::WriteOnly));
        other.write("ms since epoch,B,A,\n1000,,1.000\n");
        other.close();
        QVERIFY(QFile::remove(path()) && other.rename(path())); // as saving over it does
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("was gone and is opened anew"));
        mA->addSample(2000, 2);
        QVERIFY(log.write(both(), mNow));
        QCOMPARE(content(), QByteArray("ms since epoch,B,A,\n1000,,1.000\n2000,,2.000\n"));
    }

    void readingsWaitWhileItsFolderIsGone()
    {
        const QString folder = mFolder->filePath("disk");
        const QString away = mFolder->filePath("away");
        QVERIFY(QDir().mkdir(folder));
        tcLogWriter log(folder + "/log.csv");
        QVERIFY(log.open());
        mA->addSample(1000, 1);
        QVERIFY(log.write(both(), mNow));
        QVERIFY(QDir().rename(folder, away));
        for (int time = 2000; time <= 3000; time += 1000) {
            mA->addSample(time, time);
            QVERIFY(!log.write(both(), mNow));
            QVERIFY(!log.errorString().isEmpty());
        }
        QVERIFY(!QFile::exists(folder));
        QVERIFY(QDir().rename(away, folder));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("was gone and is opened anew"));
        mA->addSample(4000, 4);
        QVERIFY(log.write(both(), mNow));
        QFile file(folder + "/log.csv");
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(),
                 QByteArray("TimeStamp,A,B,\n1000,1.000,\n2000,2000.000,\n3000,3000.000,\n"
                            "4000,4.000,\n"));
    }

    void endedWhileItsFolderIsGoneIsIncomplete()
    {
        const QString folder = mFolder->filePath("disk");
        QVERIFY(QDir().mkdir(folder));
        tcLogWriter log(folder + "/log.csv");
        QVERIFY(log.open());
        QVERIFY(log.write(both(), mNow));
        QVERIFY(QDir(folder).removeRecursively());
        mA->addSample(1000, 1);
        QVERIFY(!log.write(both(), mNow));
        QVERIFY(!log.close());
    }
#endif

#ifdef Q_OS_LINUX
    void headerComesBeforeTheRowsThatWaitedForAFullDisk()
    {
        tcLogWriter log(path());
        QVERIFY(log.open());
        mB->addSample(1000, 1);
        QVERIFY(log.write(both(), mNow));
        {
            const tcSizeLimit full(0);
            mB->addSample(2000, 2);
            QVERIFY(!log.write(both(), mNow));
        }
        QVERIFY(QFile::remove(path())); // to make room
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("was gone and is opened anew"));
        mA->addSample(3000, 3);
        QVERIFY(log.write(both(), mNow));
        QCOMPARE(content(), QByteArray("TimeStamp,A,B,\n2000,,2.000\n3000,3.000,\n"));
    }

    void rowsThatWaitedForAFullDiskComeBelowATornLine()
    {
        tcLogWriter log(path());
        QVERIFY(log.open());
        mA->addSample(1000, 1);
        QVERIFY(log.write(both(), mNow));
        {
            const tcSizeLimit full(0);
            mA->addSample(2000, 2);
            QVERIFY(!log.write(both(), mNow));
        }
        QVERIFY(QFile::remove(path()));
        put("TimeStamp,A,B,\n1000,247");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("was gone and is opened anew"));
        QVERIFY(log.write(both(), mNow));
        QCOMPARE(content(), QByteArray("TimeStamp,A,B,\n1000,247?\n2000,2.000,\n"));
    }
#endif

    void curveThatComesLaterGetsAColumnBehindTheOthers()
    {
        tcLogWriter log(path());
        QVERIFY(log.open());
        mA->addSample(1000, 1);
        QVERIFY(log.write(both(), mNow));
        const auto first = curve("first in the chart");
        first->addSample(2000, 7);
        mA->addSample(2000, 2);
        QVERIFY(log.write({first.get(), mA.get(), mB.get()}, mNow));
        QCOMPARE(content(), QByteArray("TimeStamp,A,B,\n1000,1.000,\n2000,2.000,,7.000\n"));
    }

    void columnOfADeletedCurveStaysEmpty()
    {
        tcLogWriter log(path());
        QVERIFY(log.open());
        mA->addSample(1000, 1);
        mB->addSample(1000, 2);
        QVERIFY(log.write(both(), mNow));
        mA.reset();
        QVector<tcStripCurve*> curves{mB.get()};
        // Very likely at the same address.
        mA = curve("new");
        mA->addSample(2000, 3);
        mB->addSample(2000, 4);
        curves << mA.get();
        QVERIFY(log.write(curves, mNow));
        QCOMPARE(content(),
                 QByteArray("TimeStamp,A,B,\n1000,1.000,2.000\n2000,,4.000,3.000\n"));
    }

    void readingsDroppedByALoweredSampleCountKeepTheirTimes()
    {
        tcLogWriter log(path());
        QVERIFY(log.open());
        mA->setSampleCount(1000);
        for (int i = 1; i <= 200; ++i)
            mA->addSample(i, i);
        QVERIFY(log.write({mA.get()}, mNow));
        mA->setSampleCount(500); // pads the times with zeros
        QByteArray expected = content();
        for (int i = 201; i <= 210; ++i) {
            mA->addSample(i, i);
            expected += QByteArray::number(i) + ',' + QByteArray::number(i) + ".000\n";
        }
        QVERIFY(log.write({mA.get()}, mNow));
        QCOMPARE(content(), expected);
    }

    void clearedSamplesAreNotWrittenAgain()
    {
        tcLogWriter log(path());
        QVERIFY(log.open());
        mA->addSample(1000, 1);
        QVERIFY(log.write({mA.get()}, mNow));
        mA->clear();
        mA->addSample(2000, 2);
        QVERIFY(log.write({mA.get()}, mNow));
        QCOMPARE(content(), QByteArray("TimeStamp,A,\n1000,1.000\n2000,2.000\n"));
    }

    void fileThatCannotBeOpenedTellsWhy()
    {
        tcLogWriter log(mFolder->filePath("no/such/folder.csv"));
        QVERIFY(!log.open());
        QVERIFY(!log.errorString().isEmpty());
    }

    void loadsBackValueByValue()
    {
        mA->setSampleCount(100000);
        mB->setSampleCount(100000);
        tcLogWriter log(path());
        QVERIFY(log.open());
        for (int i = 0; i < 1000; ++i) {
            mA->addSample(1731681000000 + i, i / 16.0);
            if (i % 3)
                mB->addSample(1731681000000 + i, -i);
            if (i % 7 == 0)
                QVERIFY(log.write(both(), mNow + i));
        }
        QVERIFY(log.write(both(), mNow));
        QVERIFY(log.close());
        QFile file(path());
        QVERIFY(file.open(QIODevice::ReadOnly));
        tcCsvReader reader(file);
        QVERIFY(reader.readHeader() && reader.readRows());
        QCOMPARE(reader.report().skippedRows, qint64(0));
        QCOMPARE(reader.samples(0).count, qint64(1000));
        for (int i = 0; i < 1000; ++i) {
            QCOMPARE(reader.samples(0).times[i], 1731681000000.0 + i);
            QCOMPARE(reader.samples(0).values[i], QString::number(i / 16.0, 'f', 3).toDouble());
        }
        QCOMPARE(reader.samples(1).count, qint64(666));
    }
};

QTEST_MAIN(tst_LogWriter)
#include "tst_logwriter.moc"
