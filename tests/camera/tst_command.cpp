#include "camera/logic/tcCommand.h"

#include <QTest>

class tst_Command : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void brackets_data();
    void brackets();
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

QTEST_GUILESS_MAIN(tst_Command)
#include "tst_command.moc"
