#include "camera/logic/tcCommand.h"

#include <QTest>

class tst_Command : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void brackets_data();
    void brackets();
    void wireForm_data();
    void wireForm();
    void cutToTheBuffer_data();
    void cutToTheBuffer();
};

void tst_Command::brackets_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("command");
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("bare") << "VERS"
                          << "<VERS>";
    QTest::newRow("opened only") << "<VERS"
                                 << "<VERS>";
    QTest::newRow("closed only") << "VERS>"
                                 << "<VERS>";
    QTest::newRow("complete") << "<VERS>"
                              << "<VERS>";
    QTest::newRow("arguments") << "SROI 0 0 2048 1088"
                               << "<SROI 0 0 2048 1088>";
    QTest::newRow("only an opening bracket") << "<"
                                             << "<>";
    QTest::newRow("only a closing bracket") << ">"
                                            << "<>";
    QTest::newRow("blanks are kept") << " VERS "
                                     << "< VERS >";
    QTest::newRow("two commands stay as they are") << "<STOP><STRT>"
                                                   << "<STOP><STRT>";
    QTest::newRow("placeholders mean nothing") << "%1 %s %n"
                                               << "<%1 %s %n>";
}

void tst_Command::brackets()
{
    QFETCH(QString, typed);
    QTEST(tcCommand::completed(typed), "command");
}

void tst_Command::wireForm_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("line feed behind") << "<VERS>" << QByteArray("<VERS>\n");
    QTest::newRow("empty") << "" << QByteArray("\n");
    QTest::newRow("placeholders mean nothing") << "<%1 %s %n>" << QByteArray("<%1 %s %n>\n");
    QTest::newRow("ends before a NUL")
        << QString(QStringLiteral("<VE") + QChar(0) + "RS>") << QByteArray("<VE\n");
    QTest::newRow("local 8-bit encoding")
        << QString::fromUtf8("<SEXP 5 \xC2\xB5s>")
        << QByteArray(QString::fromUtf8("<SEXP 5 \xC2\xB5s>").toLocal8Bit() + '\n');
}

void tst_Command::wireForm()
{
    QFETCH(QString, command);
    QTEST(tcCommand::wireForm(command), "bytes");
}

void tst_Command::cutToTheBuffer_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("sent");
    QTest::newRow("fits") << 125 << 126;
    QTest::newRow("just fits, NUL included") << 126 << 127;
    QTest::newRow("one too many") << 127 << 127;
    QTest::newRow("128") << 128 << 127;
    QTest::newRow("200") << 200 << 127;
    QTest::newRow("100000") << 100000 << 127;
}

void tst_Command::cutToTheBuffer()
{
    QFETCH(int, length);
    QFETCH(int, sent);
    const QByteArray bytes = tcCommand::wireForm(QString(length, 'x'));
    QCOMPARE(bytes.size(), sent);
    QVERIFY2(bytes.endsWith('\n'), "the camera must see the command's end");
    QCOMPARE(bytes.count('\n'), 1);
}

QTEST_GUILESS_MAIN(tst_Command)
#include "tst_command.moc"
