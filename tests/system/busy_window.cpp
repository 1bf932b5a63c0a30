// A window that works for ever until its progress is cancelled, beside a timer that lets others
// work without the operator's input, as reading a camera's line does. The timer is always due,
// as one is that takes longer than its interval. Ends with 0 when the work was cancelled.
#include "stripchart/tcBusy.h"

#include <QApplication>
#include <QTimer>

int main(int anCount, char** apArguments)
{
    QApplication application(anCount, apArguments);
    QWidget window;
    window.setWindowTitle(QStringLiteral("Long work")); // the progress bears it too
    window.show();
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer,
                     [] { QApplication::processEvents(QEventLoop::ExcludeUserInputEvents); });
    timer.start(0);
    QTimer::singleShot(0, &application, [&window] {
        {
            tcBusy busy(window, QStringLiteral("Saving x.csv"), Qt::WaitCursor);
            while (busy.step(1, 2)) { }
        }
        QApplication::quit();
    });
    return QApplication::exec();
}
