// Watches a program start from within, without a change to it: QT_QPA_GENERIC_PLUGINS loads it.
// Once the first window has been painted it writes what that took to the file that
// STARTWATCH_FILE names: CPU in ms, resident memory in kB, and then the CPU of some idle
// seconds.
#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QGenericPlugin>
#include <QTimer>
#include <QWidget>

#include <ctime>
#include <unistd.h>

namespace
{

constexpr int cSettleMs = 1500; ///< until what follows the first picture is over
constexpr int cIdleMs = 5000;

double cpuMs()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return 1000.0 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e6;
}

long residentKb()
{
    QFile file("/proc/self/statm");
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLong() * sysconf(_SC_PAGESIZE) / 1024;
}

class tcStartWatch : public QObject
{
public:
    tcStartWatch() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject* apObject, QEvent* apEvent) override
    {
        auto* widget = qobject_cast<QWidget*>(apObject);
        if (!mSeen && apEvent->type() == QEvent::Paint && widget && widget->isWindow()) {
            mSeen = true;
            // Behind the paint event and all its children's.
            QTimer::singleShot(0, this, [this] { painted(); });
        }
        return false;
    }

private:
    void painted()
    {
        mPainted = cpuMs();
        mResidentKb = residentKb();
        const bool idle = qEnvironmentVariableIsSet("STARTWATCH_IDLE");
        QTimer::singleShot(idle ? cSettleMs : 0, this, [this, idle] {
            mIdleBegin = cpuMs();
            QTimer::singleShot(idle ? cIdleMs : 0, this, [this] { report(); });
        });
    }

    void report()
    {
        QFile file(qEnvironmentVariable("STARTWATCH_FILE"));
        if (file.open(QIODevice::WriteOnly))
            file.write(QString("%1 %2 %3\n")
                           .arg(mPainted)
                           .arg(mResidentKb)
                           .arg((cpuMs() - mIdleBegin) / cIdleMs)
                           .toLatin1());
        file.close();
        QCoreApplication::quit();
    }

    bool mSeen = false;
    double mPainted = 0.0;
    double mIdleBegin = 0.0;
    long mResidentKb = 0;
};

} // namespace

class tcStartWatchPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "startwatch.json")

public:
    QObject* create(const QString&, const QString&) override { return new tcStartWatch; }
};

#include "startwatch.moc"
