#include "camera/logic/tcReply.h"

#include <QTest>

class tst_Reply : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isReply_data();
    void isReply();
    void normalised_data();
    void normalised();
    void sensorReading_data();
    void sensorReading();
    void coolerState_data();
    void coolerState();
};

void tst_Reply::isReply_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("reply");
    QTest::newRow("accepted") << "<STRT><ACK>" << true;
    QTest::newRow("refused") << "<STRT><NACK>" << true;
    QTest::newRow("any number of N") << "<STRT><NNNACK>" << true;
    QTest::newRow("with a value") << "<GEXP><ACK><500>" << true;
    QTest::newRow("more within the field") << "<STRT><ACK but late>" << true;
    QTest::newRow("text behind") << "<STRT><ACK> and so on" << true;
    QTest::newRow("line feed behind") << "<STRT><ACK>\nmore" << true;
    QTest::newRow("carriage return behind") << "<STRT><ACK>\r" << true;
    QTest::newRow("line feed in the first field") << "<ST\nRT><ACK>" << true;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("command only") << "<STRT>" << false;
    QTest::newRow("cut before the end of ACK") << "<STRT><ACK" << false;
    QTest::newRow("cut in ACK") << "<STRT><AC" << false;
    QTest::newRow("empty first field") << "<><ACK>" << false;
    QTest::newRow("text before") << "x<STRT><ACK>" << false;
    QTest::newRow("blank before") << " <STRT><ACK>" << false;
    QTest::newRow("blank between") << "<STRT> <ACK>" << false;
    QTest::newRow("lower case") << "<STRT><ack>" << false;
    QTest::newRow("no first bracket") << "STRT><ACK>" << false;
    QTest::newRow("ACK comes third") << "<A><B><ACK>" << false;
    QTest::newRow("line feed before the field's end") << "<STRT><ACK\n>" << false;
}

void tst_Reply::isReply()
{
    QFETCH(QString, line);
    QTEST(tcReply::isReply(line), "reply");
}

void tst_Reply::normalised_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("text");
    QTest::newRow("one line") << "<A><ACK>"
                              << "<A><ACK>";
    QTest::newRow("line feed at the end") << "<A><ACK>\n"
                                          << "<A><ACK>";
    QTest::newRow("line feeds all over") << "\n\n<A><ACK>\n\n<1>\n"
                                         << "<A><ACK>\n<1>";
    QTest::newRow("line feeds only") << "\n\n"
                                     << "";
    QTest::newRow("carriage returns stay") << "<A><ACK>\r\n<1>"
                                           << "<A><ACK>\r\n<1>";
}

void tst_Reply::normalised()
{
    QFETCH(QString, line);
    QTEST(tcReply::normalised(line), "text");
}

void tst_Reply::sensorReading_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("found");
    QTest::addColumn<int>("number");
    QTest::addColumn<double>("value");
    QTest::newRow("one digit") << "<SENS 3><ACK><21.75>" << true << 3 << 21.75;
    QTest::newRow("zero") << "<SENS 0><ACK><0.0>" << true << 0 << 0.0;
    QTest::newRow("no digits before the point") << "<SENS 1><ACK><.5>" << true << 1 << 0.5;
    QTest::newRow("no digits behind the point") << "<SENS 1><ACK><7.>" << true << 1 << 7.0;
    QTest::newRow("the point alone") << "<SENS 1><ACK><.>" << true << 1 << 0.0;
    QTest::newRow("more behind") << "<SENS 9><ACK><1.5><2.5>" << true << 9 << 1.5;
    QTest::newRow("text before") << "noise <SENS 4><ACK><1.5>" << true << 4 << 1.5;
    QTest::newRow("text behind") << "<SENS 4><ACK><1.5> noise" << true << 4 << 1.5;
    QTest::newRow("two digits, as designed") << "<SENS 12><ACK><1.20>" << false << 0 << 0.0;
    QTest::newRow("no decimal point") << "<SENS 3><ACK><21>" << false << 0 << 0.0;
    QTest::newRow("negative") << "<SENS 3><ACK><-1.5>" << false << 0 << 0.0;
    QTest::newRow("exponent") << "<SENS 3><ACK><1.5e3>" << false << 0 << 0.0;
    QTest::newRow("more than a number holds")
        << "<SENS 3><ACK><" + QString(400, '9') + ".0>" << false << 0 << 0.0;
    QTest::newRow("refused") << "<SENS 3><NACK><1.5>" << false << 0 << 0.0;
    QTest::newRow("no value") << "<SENS 3><ACK>" << false << 0 << 0.0;
    QTest::newRow("other command") << "<TEMP 3><ACK><1.5>" << false << 0 << 0.0;
}

void tst_Reply::sensorReading()
{
    QFETCH(QString, line);
    QFETCH(bool, found);
    const auto reading = tcReply::sensorReading(line);
    QCOMPARE(reading.has_value(), found);
    if (found) {
        QTEST(reading->number, "number");
        QTEST(reading->value, "value");
    }
}

void tst_Reply::coolerState_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("found");
    QTest::addColumn<bool>("on");
    QTest::addColumn<double>("setPoint");
    QTest::newRow("on") << "<GTEC><ACK><ON><24.0>" << true << true << 24.0;
    QTest::newRow("off") << "<GTEC><ACK><OFF><22.5>" << true << false << 22.5;
    QTest::newRow("below zero") << "<GTEC><ACK><ON><-10.25>" << true << true << -10.25;
    QTest::newRow("unreadable set point") << "<GTEC><ACK><ON><cold>" << true << true << 0.0;
    for (const char* figure : {"nan", "inf", "-inf", "1e999"})
        QTest::newRow(figure) << QString("<GTEC><ACK><ON><%1>").arg(figure) << true << true
                              << 0.0;
    QTest::newRow("empty set point") << "<GTEC><ACK><ON><>" << true << true << 0.0;
    QTest::newRow("a further field spoils the figure")
        << "<GTEC><ACK><ON><24.0><1>" << true << true << 0.0;
    QTest::newRow("text before") << "noise <GTEC><ACK><ON><24.0>" << true << true << 24.0;
    QTest::newRow("text behind") << "<GTEC><ACK><OFF><24.0> noise" << true << false << 24.0;
    QTest::newRow("lower case, as designed")
        << "<GTEC><ACK><off><22.5>" << false << false << 0.0;
    QTest::newRow("no set point") << "<GTEC><ACK><ON>" << false << false << 0.0;
    QTest::newRow("refused") << "<GTEC><NACK><ON><24.0>" << false << false << 0.0;
}

void tst_Reply::coolerState()
{
    QFETCH(QString, line);
    QFETCH(bool, found);
    const auto state = tcReply::coolerState(line);
    QCOMPARE(state.has_value(), found);
    if (found) {
        QTEST(state->on, "on");
        QTEST(state->setPoint, "setPoint");
    }
}

QTEST_GUILESS_MAIN(tst_Reply)
#include "tst_reply.moc"
