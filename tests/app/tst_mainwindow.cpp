#include "app/logic/tcVersion.h"
#include "app/tcMainWindow.h"
#include "camlink/tcCamlinkControl.h"
#include "tests/support/tcFakeSerial.h"
#include "tests/support/tcScriptedDialogs.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QMetaMethod>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QSettings>
#include <QStackedWidget>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>

/// The whole window over the scripted serial library, in a configuration folder of its own.
class tst_MainWindow : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void fileOpened(const QUrl& acUrl) { mOpened.append(acUrl.toLocalFile()); }

private Q_SLOTS:
    void init();
    void cleanup();

    void identity();
    void titleCarriesTheVersion();
    void slotsInTheirOrder();
    void firstStart();
    void startSaysWhereTheSettingsAre();
    void menusInTheirOrder();
    void openIniFile();
    void openIniFileAtTheVeryFirstStart();
    void openIniFileBeforeThereAreSettings();
    void settingsWithoutAFolderAreTheUsersOwn();
    void exitClosesTheWindow();
    void closingTakesTheOtherWindowsAlong();
    void documentsAreThePdfFilesBesideTheProgram();
    void documentsThatNobodyMayReadAreNone();
    void documentsComeInTheFoldersOwnOrder();
    void withoutDocumentsTheMenuIsEmpty();
    void aboutBox();
    void statusBarFollowsTheConnection();
    void statusOutlivesALookIntoTheMenus();
    void smallEnoughForTheDefaultSize();
    void longNamesDoNotWidenTheWindow();

    void closingStoresSizeAndCameraOnDisk();
    void restartRestoresSizeAndCamera();
    void comesBackWhereItWas();
    void placeOffEveryScreenIsNotTaken();
    void storedSizeThatIsNone_data();
    void storedSizeThatIsNone();
    void brokenSettingsFileStillStarts_data();
    void brokenSettingsFileStillStarts();
    void settingsThatCannotBeWrittenAreSaidInTheLog();
    void closingWithAnOpenPortClosesItOnce();
    void closingFromInsideAReply();

private:
    QString iniFile() const;
    void make() { mWindow = std::make_unique<tcMainWindow>(); }
    QMenu* menu(int anIndex) const;
    QAction* action(int aMenu, const char* acText) const;
    template <class T>
    T* child(const char* acName) const
    {
        return mWindow->findChild<T*>(QString::fromLatin1(acName));
    }

    tcFakeSerial& mFake = tcFakeSerial::instance();
    std::unique_ptr<tcMainWindow> mWindow;
    /// Whether nothing takes away what the status bar shows: it keeps a timer for that.
    bool staysForGood() const
    {
        return mWindow->statusBar()->findChildren<QTimer*>().isEmpty();
    }

    QStringList mOpened; ///< files that the desktop was asked to open
};

void tst_MainWindow::init()
{
    mFake.reset();
    mFake.ports = {{"Maker", "Port", 0}};
    mOpened.clear();
    QDir(QStandardPaths::writableLocation(QStandardPaths::ConfigLocation)).removeRecursively();
    QDesktopServices::setUrlHandler("file", this, "fileOpened");
}

void tst_MainWindow::cleanup()
{
    mWindow.reset();
    QDesktopServices::unsetUrlHandler("file");
    QCOMPARE(mFake.openRefs(), 0);
    QCOMPARE(mFake.misuse, QStringList());
}

QString tst_MainWindow::iniFile() const
{
    return QStandardPaths::writableLocation(QStandardPaths::ConfigLocation) + "/tarvik.ini";
}

QMenu* tst_MainWindow::menu(int anIndex) const
{
    return mWindow->menuBar()->actions().at(anIndex)->menu();
}

QAction* tst_MainWindow::action(int aMenu, const char* acText) const
{
    for (QAction* candidate : menu(aMenu)->actions()) {
        if (candidate->text() == QLatin1String(acText))
            return candidate;
    }
    return nullptr;
}

void tst_MainWindow::identity()
{
    make();
    QCOMPARE(mWindow->objectName(), QString("MainWindow"));
    QCOMPARE(QCoreApplication::organizationName(), QString("Quillon LLC"));
    QVERIFY(!QCoreApplication::organizationDomain().isEmpty());
    QCOMPARE(QCoreApplication::applicationName(), QString("Vexa Tarvik"));
    QVERIFY(qobject_cast<tcCamlinkControl*>(mWindow->centralWidget()));
}

void tst_MainWindow::titleCarriesTheVersion()
{
    make();
    QCOMPARE(mWindow->windowTitle(), QString("Vexa Camera Link Control Panel 1.5.0"));
}

void tst_MainWindow::slotsInTheirOrder()
{
    const QMetaObject& meta = tcMainWindow::staticMetaObject;
    QStringList methods;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index)
        methods.append(QString::fromLatin1(meta.method(index).methodSignature()));
    QCOMPARE(methods, (QStringList{"ShowAbout()", "Opened(bool)"}));
}

void tst_MainWindow::firstStart()
{
    make();
    QCOMPARE(mWindow->size(), QSize(730, 500));
    QCOMPARE(child<QComboBox>("cameraCB")->currentText(), QString("Vexa-K50"));
    // Made by the window, long before anything is stored there.
    QVERIFY(QFileInfo(iniFile()).dir().exists());
}

void tst_MainWindow::startSaysWhereTheSettingsAre()
{
    QTest::ignoreMessage(QtDebugMsg,
                         qPrintable("Settings at " + QDir::toNativeSeparators(iniFile())));
    make();
    QCOMPARE(mWindow->statusBar()->objectName(), QString("StatusBar"));
    QCOMPARE(mWindow->statusBar()->currentMessage(),
             "Settings at " + QDir::toNativeSeparators(iniFile()));
    QVERIFY(staysForGood());
}

void tst_MainWindow::menusInTheirOrder()
{
    make();
    QCOMPARE(mWindow->menuBar()->actions().size(), 2);
    QCOMPARE(menu(0)->title(), QString("File"));
    QCOMPARE(menu(1)->title(), QString("Help"));
    QStringList file;
    for (const QAction* item : menu(0)->actions())
        file.append(item->isSeparator() ? QString("-") : item->text());
    QCOMPARE(file, (QStringList{"Open ini file..", "-", "Exit"}));
    QVERIFY(menu(0)->actions().at(0)->shortcut().isEmpty());
    QStringList help;
    for (const QAction* item : menu(1)->actions())
        help.append(item->text());
    QCOMPARE(help, (QStringList{"About...", "Documents"}));
    QVERIFY(action(1, "Documents")->menu());
}

void tst_MainWindow::openIniFile()
{
    make();
    action(0, "Open ini file..")->trigger();
    QCOMPARE(mOpened, QStringList{iniFile()});
}

/// An editor needs a file, and whoever edits it the names of its groups.
void tst_MainWindow::openIniFileAtTheVeryFirstStart()
{
    make();
    QVERIFY(!QFile::exists(iniFile()));
    action(0, "Open ini file..")->trigger();
    QFile file(iniFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    for (const char* group : {"[Vexa-K10]", "[Vexa-K20%20%28Temp%20controlled%29]", "[panel]"})
        QVERIFY2(text.contains(group), group);
}

/// Hands over the menus while the status bar is being made, which is before there are settings.
class tcStatusBarWatch : public QObject
{
public:
    explicit tcStatusBarWatch(std::function<void(const QList<QAction*>&)> aThen)
        : mThen(std::move(aThen))
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* apWatched, QEvent* apEvent) override
    {
        if (mDone || apEvent->type() != QEvent::ChildAdded
            || apWatched->objectName() != "MainWindow")
            return false;
        const auto* window = static_cast<QMainWindow*>(apWatched);
        const QWidget* bar = window->menuWidget();
        mDone = bar && bar->actions().size() == 2;
        if (mDone)
            mThen(bar->actions());
        return false;
    }

private:
    std::function<void(const QList<QAction*>&)> mThen;
    bool mDone = false;
};

void tst_MainWindow::openIniFileBeforeThereAreSettings()
{
    tcScriptedDialogs dialogs;
    const tcStatusBarWatch watch([](const QList<QAction*>& acMenus) {
        acMenus.at(0)->menu()->actions().at(0)->trigger();
    });
    make();
    QCOMPARE(dialogs.asked.size(), 1);
    QCOMPARE(dialogs.asked.at(0).kind, QString("information"));
    QCOMPARE(dialogs.asked.at(0).title, QGuiApplication::applicationDisplayName());
    QCOMPARE(dialogs.asked.at(0).text, QString("No settings"));
    QVERIFY(mOpened.isEmpty());
}

void tst_MainWindow::settingsWithoutAFolderAreTheUsersOwn()
{
    const auto settings = tcMainWindow::settingsOn({});
    const QSettings same(QSettings::IniFormat, QSettings::UserScope, "Quillon", "Tarvik");
    QCOMPARE(settings->fileName(), same.fileName());
    QCOMPARE(settings->format(), QSettings::IniFormat);
    QVERIFY(settings->fileName().endsWith("Quillon/Tarvik.ini"));
}

void tst_MainWindow::exitClosesTheWindow()
{
    make();
    mWindow->show();
    action(0, "Exit")->trigger();
    QVERIFY(!mWindow->isVisible());
}

/// A window that an operator would have to close twice.
class tcStubbornWindow : public QWidget
{
    void closeEvent(QCloseEvent* apEvent) override
    {
        apEvent->setAccepted(mAsked);
        mAsked = true;
    }
    bool mAsked = false;
};

void tst_MainWindow::closingTakesTheOtherWindowsAlong()
{
    make();
    mWindow->show();
    QWidget chart;
    chart.show();
    QVERIFY(mWindow->close());
    QVERIFY(!chart.isVisible());

    // Accepted even if another window stays.
    mWindow->show();
    tcStubbornWindow stays;
    stays.show();
    QVERIFY(mWindow->close());
    QVERIFY(stays.isVisible());
}

void tst_MainWindow::documentsAreThePdfFilesBesideTheProgram()
{
    const QDir folder(QCoreApplication::applicationDirPath());
    const QStringList names{
        "Camera manual.rev2.pdf", "notes.txt", "%1.pdf", "Cabling.PDF", "draft.pdf~", "pdf"};
    for (const QString& name : names) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("x");
    }
    QVERIFY(folder.mkpath("folder.pdf"));
    make();
    for (const QString& name : names)
        QFile::remove(folder.filePath(name));
    folder.rmdir("folder.pdf");

    QStringList texts;
    for (const QAction* item : action(1, "Documents")->menu()->actions())
        texts.append(item->text());
    texts.sort();
    QCOMPARE(texts, (QStringList{"%1", "Cabling", "Camera manual"}));
    for (QAction* item : action(1, "Documents")->menu()->actions())
        item->trigger();
    mOpened.sort();
    QCOMPARE(
        mOpened,
        (QStringList{folder.absoluteFilePath("%1.pdf"), folder.absoluteFilePath("Cabling.PDF"),
                     folder.absoluteFilePath("Camera manual.rev2.pdf")}));
}

void tst_MainWindow::documentsThatNobodyMayReadAreNone()
{
    QFile file(QCoreApplication::applicationDirPath() + "/secret.pdf");
    QVERIFY(file.open(QIODevice::WriteOnly) && file.setPermissions(QFile::WriteOwner));
    file.close();
    const bool readable = QFileInfo(file).isReadable();
    make();
    QVERIFY(file.remove());
    if (readable)
        QSKIP("Administrators and some systems read whatever is there.");
    QVERIFY(action(1, "Documents")->menu()->isEmpty());
}

void tst_MainWindow::documentsComeInTheFoldersOwnOrder()
{
    const QDir folder(QCoreApplication::applicationDirPath());
    for (const char* name : {"m", "z", "a", "k", "b", "y", "c", "x"}) {
        QFile file(folder.filePath(QString("%1.pdf").arg(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QStringList files = folder.entryList({"*.pdf"}, QDir::Files, QDir::Unsorted);
    make();
    for (QString& file : files) {
        QFile::remove(folder.filePath(file));
        file.chop(4);
    }
    QStringList texts;
    for (const QAction* item : action(1, "Documents")->menu()->actions())
        texts.append(item->text());
    QCOMPARE(texts, files);
}

void tst_MainWindow::withoutDocumentsTheMenuIsEmpty()
{
    make();
    QVERIFY(action(1, "Documents")->menu()->isEmpty());
}

void tst_MainWindow::aboutBox()
{
    tcScriptedDialogs dialogs;
    make();
    action(1, "About...")->trigger();
    QCOMPARE(dialogs.asked.size(), 1);
    const QString text = dialogs.asked.at(0).text;
    QCOMPARE(dialogs.asked.at(0).kind, QString("about"));
    QVERIFY(text.startsWith("Vexa Tarvik"));
    QCOMPARE(text.count("<li>"), 4);
    QVERIFY(text.contains("<li>Version " + tcVersion::text(true) + "</li>"));
    QVERIFY(text.contains("<li>VCS: " + tcVersion::vcsDescription().toHtmlEscaped() + "</li>"));
    QVERIFY(text.contains("<li>Built on " + tcVersion::buildDate() + "</li>"));
    QVERIFY(QRegularExpression("<li>Built with <a href=\"https://[^\"]+\">Qt "
                               + QRegularExpression::escape(qVersion()) + "</a></li>")
                .match(text)
                .hasMatch());
    const QStringList order{"Version", "VCS:", "Built on", "Built with"};
    for (int index = 1; index < order.size(); ++index)
        QVERIFY(text.indexOf(order.at(index - 1)) < text.indexOf(order.at(index)));
}

void tst_MainWindow::statusBarFollowsTheConnection()
{
    make();
    child<QPushButton>("openPB")->click();
    QCOMPARE(mWindow->statusBar()->currentMessage(), QString("Connected"));
    QVERIFY(staysForGood());
    child<QPushButton>("openPB")->click();
    QCOMPARE(mWindow->statusBar()->currentMessage(), QString("Not Connected"));
    QVERIFY(staysForGood());
    // The sign that tells the two apart.
    mWindow->statusBar()->showMessage("for a while", 60000);
    QVERIFY(!staysForGood());
}

void tst_MainWindow::statusOutlivesALookIntoTheMenus()
{
    make();
    mWindow->show();
    QVERIFY(QTest::qWaitForWindowExposed(mWindow.get()));
    child<QPushButton>("openPB")->click();
    QMenuBar* bar = mWindow->menuBar();
    for (QAction* item : bar->actions()) {
        QTest::mouseMove(bar, bar->actionGeometry(item).center());
        QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier,
                          bar->actionGeometry(item).center());
        QTest::keyClick(item->menu(), Qt::Key_Down);
        QVERIFY(item->menu()->activeAction());
        QTest::keyClick(item->menu(), Qt::Key_Escape);
    }
    QCOMPARE(mWindow->statusBar()->currentMessage(), QString("Connected"));
}

void tst_MainWindow::smallEnoughForTheDefaultSize()
{
    make();
    QVERIFY2(mWindow->minimumSizeHint().width() <= 730,
             qPrintable(QString::number(mWindow->minimumSizeHint().width())));
    QVERIFY2(mWindow->minimumSizeHint().height() <= 500,
             qPrintable(QString::number(mWindow->minimumSizeHint().height())));
    mWindow->show();
    QVERIFY(QTest::qWaitForWindowExposed(mWindow.get()));
    QCOMPARE(mWindow->size(), QSize(730, 500));
}

void tst_MainWindow::longNamesDoNotWidenTheWindow()
{
    mFake.ports = {{QByteArray(49, 'M'), QByteArray(49, 'P'), 0}};
    make();
    mWindow->show();
    QVERIFY(QTest::qWaitForWindowExposed(mWindow.get()));
    QCOMPARE(mWindow->size(), QSize(730, 500));
}

void tst_MainWindow::closingStoresSizeAndCameraOnDisk()
{
    make();
    mWindow->show();
    mWindow->resize(900, 640);
    child<QComboBox>("cameraCB")->setCurrentIndex(2);
    mWindow->close();
    // While the window still lives: nothing may depend on what is destroyed when.
    QFile file(iniFile());
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    const QByteArray text = file.readAll();
    // Some systems sort the keys of a group, others keep their order.
    const int head = text.indexOf("[mainwindow]\n");
    QVERIFY2(head >= 0, text.constData());
    const QByteArray group = text.mid(head, text.indexOf("\n[", head) - head + 1);
    QVERIFY2(group.contains("\nposition=@Point("), text.constData());
    QVERIFY2(group.contains("\nsize=@Size(900 640)\n"), text.constData());
    QVERIFY2(text.contains("[panel]\ncamera=Vexa-R70"), text.constData());
}

void tst_MainWindow::restartRestoresSizeAndCamera()
{
    make();
    mWindow->show();
    mWindow->resize(900, 640);
    child<QComboBox>("cameraCB")->setCurrentIndex(2);
    mWindow->close();
    make();
    QCOMPARE(mWindow->size(), QSize(900, 640));
    QCOMPARE(child<QComboBox>("cameraCB")->currentText(), QString("Vexa-R70"));
}

void tst_MainWindow::comesBackWhereItWas()
{
    make();
    mWindow->move(40, 50);
    mWindow->show();
    const QPoint place = mWindow->pos();
    mWindow->close();
    make();
    QCOMPARE(mWindow->pos(), place);
}

void tst_MainWindow::placeOffEveryScreenIsNotTaken()
{
    QDir().mkpath(QFileInfo(iniFile()).path());
    for (const char* place : {"@Point(90000 90000)", "@Point(-5000 10)", "somewhere"}) {
        QFile file(iniFile());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("[mainwindow]\nposition=") + place + "\n");
        file.close();
        make();
        QVERIFY2(QGuiApplication::primaryScreen()->availableGeometry().contains(mWindow->pos()),
                 place);
    }
}

void tst_MainWindow::storedSizeThatIsNone_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("words") << QByteArray("size=large");
    QTest::newRow("one number") << QByteArray("size=730");
    QTest::newRow("negative") << QByteArray("size=@Size(-5 -5)");
    QTest::newRow("zero") << QByteArray("size=@Size(0 0)");
    QTest::newRow("broken variant") << QByteArray("size=@Variant(rubbish)");
    QTest::newRow("huge") << QByteArray("size=@Size(2000000 2000000)");
}

void tst_MainWindow::storedSizeThatIsNone()
{
    QFETCH(QByteArray, line);
    QDir().mkpath(QFileInfo(iniFile()).path());
    QFile file(iniFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[mainwindow]\n" + line + "\n");
    file.close();
    make();
    QCOMPARE(mWindow->size(), QSize(730, 500));
}

void tst_MainWindow::brokenSettingsFileStillStarts_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("NULs") << QByteArray(4096, '\0');
    QTest::newRow("binary") << QByteArray("\xFF\xFE\x80[panel]\ncamera=\x01\x02\n\xFF");
    QTest::newRow("unfinished group") << QByteArray("[panel\ncamera=Vexa-K10");
    QTest::newRow("megabytes in one line") << QByteArray(4 << 20, 'x');
}

void tst_MainWindow::brokenSettingsFileStillStarts()
{
    QFETCH(QByteArray, bytes);
    QDir().mkpath(QFileInfo(iniFile()).path());
    QFile file(iniFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    make();
    QVERIFY(!mWindow->size().isEmpty());
    QVERIFY(!child<QComboBox>("cameraCB")->currentText().isEmpty());
}

void tst_MainWindow::settingsThatCannotBeWrittenAreSaidInTheLog()
{
    // A folder in the place of the file: nobody, not even the administrator, can write that.
    QDir().mkpath(iniFile() + "/occupied");
    make();
    mWindow->show();
    QTest::ignoreMessage(QtWarningMsg, qPrintable("Settings not stored at " + iniFile()));
    mWindow->close();
    QVERIFY(!mWindow->isVisible());
}

void tst_MainWindow::closingWithAnOpenPortClosesItOnce()
{
    make();
    mWindow->show();
    child<QPushButton>("openPB")->click();
    QCOMPARE(mFake.openRefs(), 1);
    mWindow->close();
    mWindow.reset();
    QCOMPARE(mFake.callsOf("clSerialClose").size(), 1);
}

void tst_MainWindow::closingFromInsideAReply()
{
    for (int camera : {0, 1}) {
        make();
        mWindow->show();
        child<QComboBox>("cameraCB")->setCurrentIndex(camera);
        child<QPushButton>("openPB")->click();
        auto* page = mWindow->findChild<QStackedWidget*>("controlSW")->currentWidget();
        auto* view = page->findChild<QPlainTextEdit*>("PortRespPTE");
        connect(view, &QPlainTextEdit::textChanged, mWindow.get(), &QWidget::close);
        mFake.receive("<STRT><ACK>\r\n");
        QTRY_VERIFY(!mWindow->isVisible());
        mWindow.reset();
        QCOMPARE(mFake.openRefs(), 0);
    }
}

QTEST_MAIN(tst_MainWindow)
#include "tst_mainwindow.moc"
