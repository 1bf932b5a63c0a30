#include "camlink/logic/tcWireCommand.h"

#include <QRegularExpression>
#include <QTest>

class tst_WireCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bytes_data();
    void bytes();
    void saysWhatItCuts();
};

void tst_WireCommand::bytes_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("ends in a line feed") << "<VERS>" << QByteArray("<VERS>\n");
    QTest::newRow("empty is a line feed") << "" << QByteArray("\n");
    QTest::newRow("placeholders mean nothing") << "%1 %s %n" << QByteArray("%1 %s %n\n");
    QTest::newRow("local encoding") << QString::fromUtf8("µ") << QByteArray("\xC2\xB5\n");
    QTest::newRow("ends before a NUL")
        << QString(QStringLiteral("<VE") + QChar(0) + "RS>") << QByteArray("<VE\n");
    QTest::newRow("126 characters go whole")
        << QString(126, 'x') << QByteArray(126, 'x') + '\n';
}

void tst_WireCommand::bytes()
{
    QFETCH(QString, command);
    QTEST(tcWireCommand::bytes(command), "line");
}

void tst_WireCommand::saysWhatItCuts()
{
    for (const int length : {127, 200, 100000}) {
        QTest::ignoreMessage(
            QtWarningMsg,
            QRegularExpression(QStringLiteral("^Command cut to 126 of %1 bytes").arg(length)));
        QCOMPARE(tcWireCommand::bytes(QString(length, 'x')), QByteArray(126, 'x') + '\n');
    }
}

QTEST_GUILESS_MAIN(tst_WireCommand)
#include "tst_wirecommand.moc"
