// Long work of the chart, on a display: Qt holds back the keys that come from there in ways
// that input made within a program never meets.
#include "tests/support/tcSystemTest.h"

#include <QDeadlineTimer>

namespace
{

constexpr int cLimitMs = 60000;
constexpr int cAgainMs = 1000;

} // namespace

class tst_Progress : public tcSystemTest
{
    Q_OBJECT

private Q_SLOTS:
    void cancelledWhileACameraIsRead();
};

void tst_Progress::cancelledWhileACameraIsRead()
{
    tcChildProcess program;
    QProcessEnvironment environment = screen().environment();
    // As the panel does: what drivers of OpenGL leave behind is not the window's.
    environment.insert("QT_XCB_GL_INTEGRATION", "none");
    program.setProcessEnvironment(environment);
    program.start(BUSY_WINDOW, QStringList());
    QVERIFY(program.waitForStarted());
    const QDeadlineTimer limit(cLimitMs);
    do {
        // The window and, once it is there, its progress. A key that comes before that has the
        // focus goes elsewhere, so again until it arrives.
        const QString windows
            = screen().tool({"search", "--onlyvisible", "--name", "^Long work$"});
        for (const QString& window : windows.split('\n')) {
            screen().tool({"windowactivate", window});
            screen().tool({"key", "Escape"});
        }
    } while (!program.waitForFinished(cAgainMs) && !limit.hasExpired());
    QCOMPARE(program.state(), QProcess::NotRunning);
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
}

QTEST_GUILESS_MAIN(tst_Progress)
#include "tst_progress.moc"
