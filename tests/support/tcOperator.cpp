#include "tests/support/tcOperator.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>
#include <QThread>

namespace
{

constexpr int cStartLimitMs = 60000; ///< also on a busy machine, under a sanitizer
constexpr int cExitLimitMs = 30000;
constexpr int cLookLimitMs = 20000;
constexpr int cLookAgainMs = 20;
constexpr int cArrivalLimitMs = 5000;
constexpr int cAttempts = 3;

} // namespace

tcOperator::tcOperator(const tcVirtualScreen& acScreen, const QString& acHome)
    : mScreen(acScreen), mHome(acHome)
{
    QDir().mkpath(mHome);
    QProcessEnvironment environment = mScreen.environment();
    environment.insert("HOME", mHome);
    environment.insert("XDG_CONFIG_HOME", configFolder());
    environment.insert("XDG_DATA_HOME", mHome + "/.local/share");
    mProgram.setProcessEnvironment(environment);
    mProgram.setProcessChannelMode(QProcess::MergedChannels);
    mProgram.setStandardOutputFile(mHome + "/output.txt");
}

tcOperator::~tcOperator()
{
    if (!QTest::currentTestFailed())
        return;
    const QString picture = QDir::current().absoluteFilePath(
        QString("failed-%1.png").arg(QTest::currentTestFunction()));
    mScreen.run("import", {"-window", "root", picture});
    qInfo().noquote() << (isRunning() ? "The screen as it is:" : "The program has ended:")
                      << picture << '\n'
                      << output();
}

void tcOperator::setEnvironment(const QString& acName, const QString& acValue)
{
    QProcessEnvironment environment = mProgram.processEnvironment();
    environment.insert(acName, acValue);
    mProgram.setProcessEnvironment(environment);
}

void tcOperator::setPorts(const QStringList& acPaths, bool abVirtualCameras)
{
    setEnvironment("CLALLSERIAL_VENDOR_USE", "off");
    setEnvironment("CLALLSERIAL_HOST_SCAN", "off");
    setEnvironment("CLALLSERIAL_HOST_PATHS", acPaths.join(','));
    setEnvironment("CLALLSERIAL_VIRTUAL_USE", abVirtualCameras ? "on" : "off");
}

bool tcOperator::waitFor(const std::function<bool()>& acCondition, int anLimitMs) const
{
    QElapsedTimer waited;
    waited.start();
    while (!acCondition()) {
        if (waited.elapsed() > anLimitMs)
            return false;
        QThread::msleep(cLookAgainMs);
    }
    return true;
}

bool tcOperator::start(const QString& acProgram)
{
    mProgram.start(acProgram, QStringList());
    if (!mProgram.waitForStarted(cStartLimitMs))
        return false;
    mReader = std::make_unique<tcScreenReader>(mScreen.busAddress());
    const QString process = QString::number(mProgram.processId());
    const auto windowShows = [&] {
        mProgram.waitForFinished(0); // so that an early end is noticed
        mWindow = mScreen
                      .tool({"search", "--onlyvisible", "--all", "--pid", process, "--name",
                             "Control Panel"})
                      .section('\n', 0, 0);
        return !mWindow.isEmpty() || !isRunning();
    };
    if (!waitFor(windowShows, cStartLimitMs) || mWindow.isEmpty())
        return false;
    if (!waitFor([&] { return mReader->attach(mProgram.processId()); }, cLookLimitMs))
        return false;
    mScreen.tool({"windowactivate", "--sync", mWindow});
    return true;
}

int tcOperator::waitForExit()
{
    if (isRunning() && !mProgram.waitForFinished(cExitLimitMs)) {
        mProgram.kill();
        mProgram.waitForFinished(cExitLimitMs);
        return -1;
    }
    return mProgram.exitStatus() == QProcess::NormalExit ? mProgram.exitCode() : -1;
}

bool tcOperator::hasLoaded(const QString& acLibrary) const
{
    QFile map(QStringLiteral("/proc/%1/maps").arg(mProgram.processId()));
    return map.open(QIODevice::ReadOnly) && map.readAll().contains(acLibrary.toUtf8());
}

int tcOperator::close()
{
    for (int attempt = 0; attempt < cAttempts && isRunning(); ++attempt) {
        if (attempt > 0)
            qWarning("The window has not gone; closing it once more");
        mScreen.tool({"windowactivate", "--sync", mWindow});
        keys({"alt+F4"});
        mProgram.waitForFinished(cExitLimitMs / cAttempts);
    }
    return waitForExit();
}

QString tcOperator::output() const
{
    QFile file(mHome + "/output.txt");
    return file.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(file.readAll()) : QString();
}

QString tcOperator::title() const
{
    return mScreen.tool({"getwindowname", mWindow});
}

QSize tcOperator::windowSize() const
{
    const QString shell = mScreen.tool({"getwindowgeometry", "--shell", mWindow});
    const auto number = [&shell](const QString& acKey) {
        return shell.section(acKey + '=', 1).section('\n', 0, 0).toInt();
    };
    return {number("WIDTH"), number("HEIGHT")};
}

tcOperator::tcWidget tcOperator::widget(teKind aKind, const QString& acName) const
{
    return mReader->find([&](const tcWidget& candidate) {
        return candidate.kind == aKind && candidate.name == acName;
    });
}

tcOperator::tcWidget tcOperator::button(const QString& acName) const
{
    return mReader->find([&](const tcWidget& candidate) {
        return (candidate.kind == teKind::Button || candidate.kind == teKind::ToggleButton
                || candidate.kind == teKind::CheckBox)
            && candidate.name == acName;
    });
}

tcOperator::tcWidget tcOperator::comboBox(int anIndex) const
{
    int index = 0;
    return mReader->find([&](const tcWidget& candidate) {
        return candidate.kind == teKind::ComboBox && index++ == anIndex;
    });
}

tcOperator::tcWidget tcOperator::focused() const
{
    return mReader->find([](const tcWidget& candidate) { return candidate.focused; });
}

QString tcOperator::status() const
{
    return mReader
        ->find([](const tcWidget& candidate) { return candidate.kind == teKind::StatusBar; })
        .name;
}

QString tcOperator::view(const QString& acName) const
{
    return mReader->text(mReader->find([&](const tcWidget& candidate) {
        return (candidate.kind == teKind::Text || candidate.kind == teKind::LineEdit)
            && candidate.name == acName;
    }));
}

QString tcOperator::anyText(const QString& acWords) const
{
    return mReader
        ->find([&](const tcWidget& candidate) { return candidate.name.contains(acWords); })
        .name;
}

void tcOperator::clickOnce(const tcWidget& acWidget)
{
    const QPoint centre = acWidget.place.center();
    mScreen.tool(
        {"mousemove", QString::number(centre.x()), QString::number(centre.y()), "click", "1"});
}

bool tcOperator::click(const tcWidget& acWidget)
{
    if (!acWidget.found() || acWidget.place.isEmpty())
        return false;
    const QString before = focused().path;
    const auto arrived = [&] {
        const tcWidget now = mReader->again(acWidget);
        // A dialog goes with its button; another one comes and takes the focus.
        return !now.found() || now.focused || focused().path != before;
    };
    for (int attempt = 0; attempt < cAttempts; ++attempt) {
        clickOnce(acWidget);
        if (acWidget.kind == teKind::MenuItem || waitFor(arrived, cArrivalLimitMs))
            return true;
    }
    return false;
}

bool tcOperator::press(const QString& acButton)
{
    const tcWidget wanted = button(acButton);
    return wanted.enabled && click(wanted);
}

bool tcOperator::choose(int anComboBox, const QString& acEntry)
{
    for (int attempt = 0; attempt < cAttempts; ++attempt) {
        const tcWidget box = comboBox(anComboBox);
        const int index = mReader->entries(box).indexOf(acEntry);
        if (index < 0 || !box.enabled || box.place.isEmpty())
            return false;
        clickOnce(box);
        if (!waitFor([&] { return mReader->isOpen(box); }, cArrivalLimitMs))
            continue;
        // Its first entry, then as many down as it takes.
        QStringList steps{"Home"};
        for (int step = 0; step < index; ++step)
            steps.append("Down");
        keys(steps + QStringList{"Return"});
        if (waitFor([&] { return comboBox(anComboBox).name == acEntry; }, cArrivalLimitMs))
            return true;
    }
    return false;
}

bool tcOperator::type(const tcWidget& acField, const QString& acText)
{
    const auto arrived = [&] {
        return acField.kind == teKind::ComboBox ? mReader->again(acField).name == acText
                                                : mReader->text(acField) == acText;
    };
    for (int attempt = 0; attempt < cAttempts; ++attempt) {
        if (!acField.focused)
            clickOnce(acField);
        keys({"ctrl+a"});
        mScreen.tool({"type", "--clearmodifiers", "--delay", "10", "--", acText});
        if (waitFor(arrived, cArrivalLimitMs))
            return true;
    }
    return false;
}

void tcOperator::keys(const QStringList& acKeys)
{
    mScreen.tool(QStringList{"key", "--clearmodifiers", "--delay", "20"} + acKeys);
}

void tcOperator::resize(const QSize& acSize)
{
    mScreen.tool({"windowsize", "--sync", mWindow, QString::number(acSize.width()),
                  QString::number(acSize.height())});
}
