#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

/// A process that goes when the test goes, however the test ends.
class tcChildProcess : public QProcess
{
public:
    using QProcess::QProcess;
    ~tcChildProcess() override { stop(); }

    /// Asks it to end, then makes it; false if it had to be killed.
    bool stop();

protected:
    void setupChildProcess() override;
};

/// A display that nobody looks at, with a window manager and a message bus on which programs
/// describe their widgets. Everything ends with the object.
class tcVirtualScreen
{
public:
    /// Names the programs without which there is no screen; empty if all are there.
    static QStringList missingTools();

    /// False with a reason in error() if anything does not come up. acFolder is for scratch.
    bool start(const QString& acFolder);
    QString error() const { return mError; }

    /// What a program needs in order to be seen here.
    QProcessEnvironment environment() const { return mEnvironment; }
    QString busAddress() const { return mBusAddress; }

    /// Runs a program on the screen and returns what it prints, trimmed; nothing if it fails.
    QString run(const QString& acTool, const QStringList& acArguments) const;
    /// The hands: xdotool.
    QString tool(const QStringList& acArguments) const { return run("xdotool", acArguments); }

private:
    bool startBus(const QString& acFolder);
    bool startDisplay();
    bool startWindowManager();
    QString firstLine(tcChildProcess& arProcess, const QString& acWhat);

    tcChildProcess mBus;
    tcChildProcess mDisplay;
    tcChildProcess mManager;
    QProcessEnvironment mEnvironment = QProcessEnvironment::systemEnvironment();
    QString mBusAddress;
    QString mError;
};
