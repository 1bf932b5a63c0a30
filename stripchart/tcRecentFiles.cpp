#include "stripchart/tcRecentFiles.h"

#include "app/tcSettings.h"
#include "stripchart/logic/tcChartNames.h"
#include "stripchart/tcChartSettings.h"
#include "widgets/tcDialogs.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QTimer>

namespace
{

constexpr char cRecentFiles[] = "RecentFiles";
constexpr int cEntryChars = 60; ///< longer paths are cut in the middle

#ifdef Q_OS_WIN
constexpr Qt::CaseSensitivity cPathCase = Qt::CaseInsensitive;
#else
constexpr Qt::CaseSensitivity cPathCase = Qt::CaseSensitive;
#endif

void remove(QStringList& arFiles, const QString& acFile)
{
    for (int i = arFiles.size() - 1; i >= 0; --i) {
        if (arFiles.at(i).compare(acFile, cPathCase) == 0)
            arFiles.removeAt(i);
    }
}

/// The file's name stands at the end, so the start of the folder is kept and its end goes.
QString entry(const QString& acFile)
{
    QString path = QDir::toNativeSeparators(acFile);
    const int name = QFileInfo(acFile).fileName().size() + 1;
    const int room = std::max(cEntryChars - name, cEntryChars / 4);
    if (path.size() - name > room)
        path = path.left(room) + QChar(0x2026) + path.right(name);
    return tcChartNames::menuText(path);
}

/// The chart's settings, or the user's own where those can't be written: they are the whole
/// computer's, as a rule an administrator's.
QSharedPointer<tcSettings> writableSettings(const QString& acChartName)
{
    auto settings = tcSettings::create();
    if (!settings->isWritable()) {
        settings = QSharedPointer<tcSettings>::create(
            QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Quillon"),
            QCoreApplication::applicationName());
        settings->setFallbacksEnabled(false); // an entry taken off would come back from there
    }
    settings->beginGroup(tcChartSettings::group(acChartName));
    return settings;
}

} // namespace

tcRecentFiles::tcRecentFiles(QWidget& arChart, std::function<QString()> aName)
    : mChart(arChart)
    , mName(std::move(aName))
    , mMenu(std::make_unique<QMenu>(tr("Recent Files"), &arChart))
{
    mMenu->setToolTipsVisible(true);
    connect(mMenu.get(), &QMenu::aboutToShow, this, &tcRecentFiles::fill);
}

tcRecentFiles::~tcRecentFiles() = default;

QAction* tcRecentFiles::action() const
{
    return mMenu->menuAction();
}

QStringList tcRecentFiles::files() const
{
    const auto settings = writableSettings(mName());
    QStringList all = settings->value(cRecentFiles).toStringList();
    all.removeAll(QString());
    return all.mid(0, cMaxFiles);
}

void tcRecentFiles::store(const QStringList& acFiles)
{
    const auto settings = writableSettings(mName());
    if (acFiles.isEmpty())
        settings->remove(cRecentFiles);
    else
        settings->setValue(cRecentFiles, acFiles);
}

void tcRecentFiles::add(const QString& acFile)
{
    const QString path = QFileInfo(acFile).absoluteFilePath();
    QStringList all = files();
    if (all.value(0) == path)
        return;
    remove(all, path);
    all.prepend(path);
    store(all.mid(0, cMaxFiles));
}

void tcRecentFiles::fill()
{
    mMenu->clear();
    const QStringList all = files();
    for (const QString& file : all) {
        QAction* action = mMenu->addAction(entry(file));
        action->setToolTip(QDir::toNativeSeparators(file));
        // Loading takes its time and may ask: the menu is closed by then.
        connect(action, &QAction::triggered, this,
                [this, file] { QTimer::singleShot(0, this, [this, file] { choose(file); }); });
    }
    if (all.isEmpty())
        mMenu->addAction(tr("No Files Yet"))->setEnabled(false);
}

void tcRecentFiles::choose(const QString& acFile)
{
    if (QFileInfo::exists(acFile)) {
        Q_EMIT chosen(acFile);
        return;
    }
    QStringList all = files();
    remove(all, acFile);
    store(all);
    tcDialogs::current().warning(
        &mChart, mName(),
        tr("This file is no longer there and was taken off the list:\n%1")
            .arg(QDir::toNativeSeparators(acFile)));
}
