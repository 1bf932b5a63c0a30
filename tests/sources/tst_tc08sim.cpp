#include "sim/usbtc08/tc08sim.h"
#include "sources/usbtc08.h"

#include <QTemporaryFile>
#include <QtTest>

#include <array>
#include <cmath>
#include <thread>

extern "C"
{
    int16_t USBTC08_CC usb_tc08_open_unit(void);
    int16_t USBTC08_CC usb_tc08_close_unit(int16_t);
    int16_t USBTC08_CC usb_tc08_get_last_error(int16_t);
    int16_t USBTC08_CC usb_tc08_set_mains(int16_t, int16_t);
    int16_t USBTC08_CC usb_tc08_set_channel(int16_t, int16_t, char);
    int32_t USBTC08_CC usb_tc08_get_minimum_interval_ms(int16_t);
    int16_t USBTC08_CC usb_tc08_get_single(int16_t, float*, int16_t*, int16_t);
    int16_t USBTC08_CC usb_tc08_get_formatted_info(int16_t, char*, int16_t);
}

namespace
{

using tcReading = std::array<float, USBTC08_CHANNELS>;

tcReading read(int16_t anUnits = 0)
{
    tcReading values{};
    usb_tc08_get_single(1, values.data(), nullptr, anUnits);
    return values;
}

} // namespace

class tst_TC08Sim : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void startsWithOneUnitAndNoFault();
    void temperaturesArePlausibleAndDrift();
    void temperaturesDependOnTheSeed();
    void units();
    void fixedValues();
    void overflowFlags();
    void openGivesWhatItIsTold_data();
    void openGivesWhatItIsTold();
    void failedReadingLeavesTheBufferAlone();
    void readingTakesItsTime();
    void hangingReadingReturnsWhenReleased();
    void remembersItsSetUp();
    void fileIsReadAgainWhenItChanges();
    void badDirectives_data();
    void badDirectives();
    void infoFitsItsBuffer();
    void unitIsKnownByItsHandle();
};

void tst_TC08Sim::init()
{
    QCOMPARE(tc08sim_command("reset conversion_ms=0"), 1);
    QCOMPARE(usb_tc08_open_unit(), int16_t(1));
}

void tst_TC08Sim::startsWithOneUnitAndNoFault()
{
    tc08sim_command("reset");
    QCOMPARE(usb_tc08_open_unit(), int16_t(1));
    QCOMPARE(usb_tc08_get_last_error(0), int16_t(0));
    QCOMPARE(usb_tc08_get_minimum_interval_ms(1), 180);
    QCOMPARE(usb_tc08_close_unit(1), int16_t(1));
}

void tst_TC08Sim::temperaturesArePlausibleAndDrift()
{
    const tcReading first = read();
    for (const float value : first)
        QVERIFY2(value > -30 && value < 130, qPrintable(QString::number(double(value))));
    QVERIFY(first[0] > 15 && first[0] < 32); // the cold junction is as warm as the room
    QTRY_VERIFY(read() != first);
}

void tst_TC08Sim::temperaturesDependOnTheSeed()
{
    const tcReading one = read();
    QCOMPARE(tc08sim_command("seed=2"), 1);
    const tcReading other = read();
    for (size_t channel = 0; channel < one.size(); ++channel)
        QVERIFY(one[channel] != other[channel]);
}

void tst_TC08Sim::units()
{
    tc08sim_command("value1=100");
    QCOMPARE(read(0)[1], 100.0F);
    QCOMPARE(read(1)[1], 212.0F);
    QCOMPARE(read(2)[1], 373.15F);
    QCOMPARE(read(3)[1], 671.67F);
    tcReading untouched{};
    QCOMPARE(usb_tc08_get_single(1, untouched.data(), nullptr, 4), int16_t(0));
    QCOMPARE(untouched, tcReading{});
}

void tst_TC08Sim::fixedValues()
{
    QCOMPARE(tc08sim_command("value0=-3.5; value3=nan\nvalue4=inf value5=-inf"), 1);
    const tcReading values = read();
    QCOMPARE(values[0], -3.5F);
    QVERIFY(std::isnan(values[3]));
    QVERIFY(std::isinf(values[4]) && values[4] > 0);
    QVERIFY(std::isinf(values[5]) && values[5] < 0);
    QCOMPARE(tc08sim_command("value3=auto"), 1);
    QVERIFY(std::isfinite(read()[3]));
}

void tst_TC08Sim::overflowFlags()
{
    tc08sim_command("overflow=0x108");
    tcReading values{};
    int16_t flags = 0;
    QCOMPARE(usb_tc08_get_single(1, values.data(), &flags, 0), int16_t(1));
    QCOMPARE(flags, int16_t(0x108));
}

void tst_TC08Sim::openGivesWhatItIsTold_data()
{
    QTest::addColumn<int>("handle");
    QTest::addColumn<int>("error");
    for (int error = 0; error <= 16; ++error)
        QTest::newRow(qPrintable(QString("failure %1").arg(error))) << -1 << error;
    QTest::newRow("no unit") << 0 << 0;
    QTest::newRow("large handle") << 32767 << 0;
}

void tst_TC08Sim::openGivesWhatItIsTold()
{
    QFETCH(int, handle);
    QFETCH(int, error);
    const QString text = QString("open=%1 error=%2").arg(handle).arg(error);
    QCOMPARE(tc08sim_command(text.toLatin1()), 1);
    QCOMPARE(int(usb_tc08_open_unit()), handle);
    QCOMPARE(int(usb_tc08_get_last_error(0)), error);
}

void tst_TC08Sim::failedReadingLeavesTheBufferAlone()
{
    tc08sim_command(
        "fail=get_single fail=set_mains fail=set_channel fail=get_minimum_interval_ms");
    tcReading values;
    values.fill(7.0F);
    int16_t flags = 5;
    QCOMPARE(usb_tc08_get_single(1, values.data(), &flags, 0), int16_t(0));
    for (const float value : values)
        QCOMPARE(value, 7.0F);
    QCOMPARE(flags, int16_t(5));
    QCOMPARE(usb_tc08_set_mains(1, 1), int16_t(0));
    QCOMPARE(usb_tc08_set_channel(1, 1, 'K'), int16_t(0));
    QCOMPARE(usb_tc08_get_minimum_interval_ms(1), 0);
    QCOMPARE(tc08sim_command("mend=get_single"), 1);
    QCOMPARE(usb_tc08_get_single(1, values.data(), &flags, 0), int16_t(1));
}

void tst_TC08Sim::readingTakesItsTime()
{
    tc08sim_command("conversion_ms=50");
    QElapsedTimer elapsed;
    elapsed.start();
    read();
    QVERIFY(elapsed.elapsed() >= 50);
}

void tst_TC08Sim::hangingReadingReturnsWhenReleased()
{
    tc08sim_command("hang=get_single");
    std::thread reader([] { read(); });
    QTRY_COMPARE(tc08sim_inside("get_single"), 1);
    QCOMPARE(usb_tc08_open_unit(), int16_t(1)); // others get in meanwhile
    QCOMPARE(tc08sim_most_at_once(), 2);
    QCOMPARE(tc08sim_command("release"), 1);
    reader.join();
    QCOMPARE(tc08sim_inside("get_single"), 0);
    QCOMPARE(tc08sim_calls("get_single"), 1);
    read();
}

void tst_TC08Sim::remembersItsSetUp()
{
    QCOMPARE(tc08sim_mains(), -1);
    QCOMPARE(tc08sim_channel_type(8), 0);
    usb_tc08_set_mains(1, 1);
    usb_tc08_set_channel(1, 8, 'K');
    QCOMPARE(tc08sim_mains(), 1);
    QCOMPARE(tc08sim_channel_type(8), 75);
    QCOMPARE(usb_tc08_set_channel(1, 9, 'K'), int16_t(0));
    QCOMPARE(usb_tc08_set_mains(1, 2), int16_t(0));
    QCOMPARE(tc08sim_channel_type(9), 0);
}

void tst_TC08Sim::fileIsReadAgainWhenItChanges()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    qputenv("TC08SIM_FILE", file.fileName().toLocal8Bit());
    file.write("value2=11\n");
    file.flush();
    QCOMPARE(read()[2], 11.0F);
    tc08sim_command("value2=12");
    QCOMPARE(read()[2], 12.0F); // the file has not changed
    file.write("value2=13\n");
    file.flush();
    QCOMPARE(read()[2], 13.0F);
    qunsetenv("TC08SIM_FILE");
}

void tst_TC08Sim::badDirectives_data()
{
    QTest::addColumn<QByteArray>("text");
    for (const char* text : {"nonsense", "seed=", "seed=x", "seed=-1", "value9=1", "value=1",
                             "value1=", "value1=x", "overflow=512", "open=40000",
                             "conversion_ms=-1", "fail=", "mend=get_single"})
        QTest::newRow(text) << QByteArray(text);
}

void tst_TC08Sim::badDirectives()
{
    QFETCH(QByteArray, text);
    QCOMPARE(tc08sim_command(text.constData()), 0);
    // What stands beside it is carried out nevertheless.
    QCOMPARE(tc08sim_command((text + ";value8=5").constData()), 0);
    QCOMPARE(read()[8], 5.0F);
}

void tst_TC08Sim::infoFitsItsBuffer()
{
    std::array<char, 8> text{};
    QCOMPARE(usb_tc08_get_formatted_info(1, text.data(), int16_t(text.size())), int16_t(1));
    QCOMPARE(QByteArray(text.data()), QByteArray("virtual"));
    QCOMPARE(usb_tc08_get_formatted_info(1, text.data(), 0), int16_t(0));
}

void tst_TC08Sim::unitIsKnownByItsHandle()
{
    tc08sim_command("open=7 error=4 value1=50 conversion_ms=1");
    QCOMPARE(usb_tc08_open_unit(), int16_t(7));
    for (const int16_t handle : {int16_t(7), int16_t(1), int16_t(0), int16_t(-1)}) {
        const bool known = handle == 7;
        const auto result = int16_t(known ? 1 : 0);
        tcReading values{};
        QCOMPARE(usb_tc08_set_mains(handle, 1), result);
        QCOMPARE(usb_tc08_set_channel(handle, 1, 'K'), result);
        QCOMPARE(usb_tc08_get_minimum_interval_ms(handle), int32_t(result));
        QCOMPARE(usb_tc08_get_single(handle, values.data(), nullptr, 0), result);
        QCOMPARE(values[1], known ? 50.0F : 0.0F);
        QCOMPARE(int(usb_tc08_get_last_error(handle)), known || handle == 0 ? 4 : 0);
    }
    QCOMPARE(usb_tc08_close_unit(1), int16_t(0));
    QCOMPARE(usb_tc08_close_unit(7), int16_t(1));
    QCOMPARE(usb_tc08_close_unit(7), int16_t(0));
    QCOMPARE(usb_tc08_set_mains(7, 1), int16_t(0));
}

QTEST_GUILESS_MAIN(tst_TC08Sim)
#include "tst_tc08sim.moc"
