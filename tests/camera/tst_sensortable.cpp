#include "camera/logic/tcReply.h"
#include "camera/logic/tcSensorTable.h"

#include <QTest>

class tst_SensorTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rows_data();
    void rows();
    void pollCommandNamesTheNumber();
    void simulatedReply_data();
    void simulatedReply();
    void wholeSimulatedValueIsNoReading();
    void listText_data();
    void listText();
};

void tst_SensorTable::rows_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("kind");
    const std::pair<const char*, int> rows[] = {
        {"Sensor Temperature", 1},
        {"Board Temperature", 1},
        {"Thermistor Temperature", 1},
        {"Ambient Temperature", 1},
        {"Relative Humidity", 2},
        {"TEC Drive current", 2},
        {"TEC Voltage", 2},
        {"IVRESH", 1},
        {"I3P3V", 1},
        {"I3P0V", 1},
        {"I2P0V", 1},
        {"2P1V", 1},
        {"3V3RESH", 1},
        {"3P0V", 1},
        {"3P3V", 1},
    };
    int number = 0;
    for (const auto& row : rows)
        QTest::newRow(row.first) << ++number << row.first << row.second;
    QCOMPARE(int(cCameraSensors.size()), number);
}

void tst_SensorTable::rows()
{
    QFETCH(int, number);
    const tcSensorRow& row = cCameraSensors.at(size_t(number - 1));
    QTEST(QString(row.name), "name");
    QTEST(int(row.kind), "kind");
}

void tst_SensorTable::pollCommandNamesTheNumber()
{
    QCOMPARE(tcSensorTable::pollCommand(1), QString("<SENS 1>"));
    QCOMPARE(tcSensorTable::pollCommand(15), QString("<SENS 15>"));
}

void tst_SensorTable::simulatedReply_data()
{
    QTest::addColumn<int>("thousandths");
    QTest::addColumn<QString>("reply");
    QTest::newRow("lowest") << -2000 << "<SENS 3><ACK><23>";
    QTest::newRow("next") << -1999 << "<SENS 3><ACK><23.001>";
    QTest::newRow("middle") << 0 << "<SENS 3><ACK><25>";
    QTest::newRow("tenths") << 500 << "<SENS 3><ACK><25.5>";
    QTest::newRow("not a sum of binary fractions") << -1487 << "<SENS 3><ACK><23.513>";
    QTest::newRow("highest") << 1999 << "<SENS 3><ACK><26.999>";
}

void tst_SensorTable::simulatedReply()
{
    QFETCH(int, thousandths);
    QTEST(tcSensorTable::simulatedReply("<SENS 3>", thousandths), "reply");
    QCOMPARE(tcSensorTable::cSimulatedSpread, 2000); // the rows above go from end to end
}

void tst_SensorTable::wholeSimulatedValueIsNoReading()
{
    // As designed: without a decimal point it is logged instead of plotted.
    QVERIFY(!tcReply::sensorReading(tcSensorTable::simulatedReply("<SENS 3>", 0)));
    QVERIFY(tcReply::sensorReading(tcSensorTable::simulatedReply("<SENS 3>", 1)));
    QVERIFY(tcReply::isReply(tcSensorTable::simulatedReply("<SENS 3>", 0)));
}

void tst_SensorTable::listText_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("display");
    QTest::addColumn<QString>("text");
    QTest::newRow("camera sensor, with its blank") << "3P3V"
                                                   << ""
                                                   << ""
                                                   << "3P3V ";
    QTest::newRow("source") << "CH3"
                            << "Pico TC08"
                            << ""
                            << "CH3 Pico TC08";
    QTest::newRow("display text") << "CH3"
                                  << "Pico TC08"
                                  << "Housing"
                                  << "Housing";
    QTest::newRow("placeholder in a name") << "%2"
                                           << "T"
                                           << ""
                                           << "%2 T";
}

void tst_SensorTable::listText()
{
    QFETCH(QString, name);
    QFETCH(QString, type);
    QFETCH(QString, display);
    QTEST(tcSensorTable::listText(name, type, display), "text");
}

QTEST_GUILESS_MAIN(tst_SensorTable)
#include "tst_sensortable.moc"
