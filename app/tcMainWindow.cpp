#include "app/tcMainWindow.h"

#include "app/logic/tcVersion.h"
#include "app/tcMenuKeys.h"
#include "camlink/tcCamlinkControl.h"
#include "camlink/tcSessionControl.h"
#include "widgets/tcDialogs.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDebug>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QUrl>

#include <algorithm>

namespace
{

constexpr QSize cDefaultSize{730, 500};
constexpr QSize cLargestSize{16384, 16384}; ///< beyond any screen; a larger one eats the memory

void openWithDesktop(const QString& acFile)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(acFile));
}

/// Whether a window put there can be taken by its title bar. The screen that it stood on may be
/// gone by now.
bool isReachable(const QPoint& acPosition, const QSize& acSize)
{
    constexpr int cTitleHeight = 30;
    constexpr int cEnoughToHold = 60;
    const QRect title(acPosition, QSize(acSize.width(), cTitleHeight));
    const QList<QScreen*> screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [&](const QScreen* apScreen) {
        const QRect seen = apScreen->availableGeometry() & title;
        return seen.width() >= cEnoughToHold && seen.height() > 0;
    });
}

} // namespace

tcMainWindow::tcMainWindow(QWidget* apParent) : QMainWindow(apParent)
{
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(tr("Vexa Camera Link Control Panel %1").arg(tcVersion::text(false)));
    setIdentity();

    mCamlinkControl = new tcCamlinkControl(this);
    setCentralWidget(mCamlinkControl);
    buildMenus();
    tcMenuKeys::install(*this);

    buildStatusBar();

    connect(mExitAction, &QAction::triggered, this, &tcMainWindow::close);
    connect(mCamlinkControl, &tcCamlinkControl::opened, this, &tcMainWindow::Opened);

    settings();
    restorePlace();
    mCamlinkControl->loadSettings(settings());
}

tcMainWindow::~tcMainWindow() = default;

void tcMainWindow::setIdentity()
{
    QCoreApplication::setOrganizationName(QStringLiteral("Quillon LLC"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("quillon.example"));
    QCoreApplication::setApplicationName(QStringLiteral("Vexa Tarvik"));

    const QString folder = QStandardPaths::writableLocation(QStandardPaths::ConfigLocation);
    if (folder.isEmpty())
        return;
    QDir().mkpath(folder);
    mSettingsPath = QStringLiteral("%1/%2").arg(folder, QStringLiteral("tarvik.ini"));
}

std::unique_ptr<QSettings> tcMainWindow::settingsOn(const QString& acFile)
{
    if (acFile.isEmpty())
        return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                           QStringLiteral("Quillon"), QStringLiteral("Tarvik"));
    return std::make_unique<QSettings>(acFile, QSettings::IniFormat);
}

QSettings* tcMainWindow::settings()
{
    if (mSettings)
        return mSettings.get();
    mSettings = settingsOn(mSettingsPath);
    const QString where
        = tr("Settings at %1").arg(QDir::toNativeSeparators(mSettings->fileName()));
    qDebug().noquote() << where;
    mStatusBar->showMessage(where);
    return mSettings.get();
}

void tcMainWindow::restorePlace()
{
    settings()->beginGroup(QStringLiteral("mainwindow"));
    const QSize size = settings()->value(QStringLiteral("size"), cDefaultSize).toSize();
    const QVariant position = settings()->value(QStringLiteral("position"));
    settings()->endGroup();
    // What somebody wrote into the file by hand may be no size at all.
    const bool usable = !size.isEmpty() && size.boundedTo(cLargestSize) == size;
    resize(usable ? size : cDefaultSize);
    if (position.canConvert<QPoint>() && isReachable(position.toPoint(), this->size()))
        move(position.toPoint());
}

void tcMainWindow::buildMenus()
{
    mFileMenu = menuBar()->addMenu(tr("File"));
    QAction* openIni = mFileMenu->addAction(QStringLiteral("Open ini file.."));
    openIni->setShortcut(QKeySequence());
    connect(openIni, &QAction::triggered, this, &tcMainWindow::openSettingsFile);
    mFileMenu->addSeparator();
    mExitAction = mFileMenu->addAction(tr("Exit"));

    mHelpMenu = menuBar()->addMenu(tr("Help"));
    connect(mHelpMenu->addAction(tr("About...")), &QAction::triggered, this,
            &tcMainWindow::ShowAbout);
    addDocuments(mHelpMenu->addMenu(QStringLiteral("Documents")));
}

void tcMainWindow::addDocuments(QMenu* apMenu)
{
    const QDir folder(QCoreApplication::applicationDirPath());
    // No name filter: one loads the engine of regular expressions.
    const QFileInfoList files
        = folder.entryInfoList(QDir::Files | QDir::Readable, QDir::Unsorted);
    for (const QFileInfo& document : files) {
        if (document.suffix().compare(QLatin1String("pdf"), Qt::CaseInsensitive) != 0)
            continue;
        const QString path = document.absoluteFilePath();
        connect(apMenu->addAction(document.baseName()), &QAction::triggered, this,
                [path] { openWithDesktop(path); });
    }
}

void tcMainWindow::buildStatusBar()
{
    mStatusBar = new QStatusBar(this);
    mStatusBar->setObjectName(QStringLiteral("StatusBar"));
    mStatusBar->showMessage(tr("Not Connected"));
    setStatusBar(mStatusBar);

    // Stays in sight for as long as a session log runs.
    auto* sign = new QLabel(mStatusBar);
    sign->setObjectName(QStringLiteral("sessionLogSign"));
    sign->hide();
    mStatusBar->addPermanentWidget(sign);
    const tcSessionControl* session = mCamlinkControl->session();
    connect(session, &tcSessionControl::logging, sign, [sign](const QString& acFile) {
        sign->setText(tr("Logging to %1").arg(QFileInfo(acFile).fileName()));
        sign->setToolTip(QDir::toNativeSeparators(acFile));
        sign->setVisible(!acFile.isEmpty());
    });
    connect(session, &tcSessionControl::message, mStatusBar,
            [this](const QString& acText) { mStatusBar->showMessage(acText); });
}

void tcMainWindow::openSettingsFile()
{
    if (mSettings) {
        // At the very first start nothing is stored yet, and an editor needs a file.
        if (!QFileInfo::exists(mSettings->fileName()))
            storeSettings();
        mSettings->sync();
        openWithDesktop(mSettings->fileName());
    } else {
        tcDialogs::current().information(this, QGuiApplication::applicationDisplayName(),
                                         tr("No settings"));
    }
}

void tcMainWindow::ShowAbout()
{
    const QString text = tr("Vexa Tarvik<ul><li>Version %1</li><li>VCS: %4</li>"
                            "<li>Built on %2</li>"
                            "<li>Built with <a href=\"https://www.qt.io\">Qt %3</a></li></ul>");
    // All at once: a commit's subject may hold anything, percent signs and tags too.
    tcDialogs::current().about(QGuiApplication::applicationDisplayName(),
                               text.arg(tcVersion::text(true), tcVersion::buildDate(),
                                        QString::fromLatin1(qVersion()),
                                        tcVersion::vcsDescription().toHtmlEscaped()));
}

void tcMainWindow::Opened(bool abOpen)
{
    mStatusBar->showMessage(abOpen ? tr("Connected") : tr("Not Connected"));
}

bool tcMainWindow::event(QEvent* apEvent)
{
    // Menu entries have no tips, and showing none would wipe out whether a port is open.
    if (apEvent->type() == QEvent::StatusTip
        && static_cast<QStatusTipEvent*>(apEvent)->tip().isEmpty())
        return true;
    return QMainWindow::event(apEvent);
}

void tcMainWindow::storeSettings()
{
    settings()->beginGroup(QStringLiteral("mainwindow"));
    settings()->setValue(QStringLiteral("size"), size());
    settings()->setValue(QStringLiteral("position"), pos());
    settings()->endGroup();
    mCamlinkControl->saveSettings(settings());
}

void tcMainWindow::closeEvent(QCloseEvent* apEvent)
{
    storeSettings();
    QApplication::closeAllWindows();
    apEvent->accept();
    // Now, while there is somebody to say so, not whenever the object happens to go.
    settings()->sync();
    if (settings()->status() != QSettings::NoError)
        qWarning().noquote() << "Settings not stored at" << settings()->fileName();
}
