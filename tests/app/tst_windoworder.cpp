#include "app/tcMainWindow.h"
#include "tests/support/tcFakeSerial.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTest>

#include <memory>

/// In which order the window comes up and goes, as those see it who look in between.
class tst_WindowOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void identityComesBeforeTheCameras();
    void notConnectedUntilTheSettingsAreOpen();
    void everythingIsStoredBeforeTheOtherWindowsClose();

private:
    static QString iniFile()
    {
        return QStandardPaths::writableLocation(QStandardPaths::ConfigLocation) + "/tarvik.ini";
    }
    void make() { mWindow = std::make_unique<tcMainWindow>(); }

    tcFakeSerial& mFake = tcFakeSerial::instance();
    std::unique_ptr<tcMainWindow> mWindow;
};

void tst_WindowOrder::init()
{
    mFake.reset();
    QDir(QFileInfo(iniFile()).path()).removeRecursively();
}

void tst_WindowOrder::cleanup()
{
    mWindow.reset();
    mFake.onCall = nullptr;
}

/// Whatever a panel looks for as it is made, it finds under the program's own name.
void tst_WindowOrder::identityComesBeforeTheCameras()
{
    QCoreApplication::setOrganizationName({});
    QCoreApplication::setApplicationName({});
    bool looked = false;
    mFake.onCall = [&](const tcFakeSerial::tcCall& acCall) {
        if (acCall.function != "clGetNumPorts")
            return;
        looked = true;
        QCOMPARE(QCoreApplication::organizationName(), QString("Quillon LLC"));
        QCOMPARE(QCoreApplication::applicationName(), QString("Vexa Tarvik"));
        QVERIFY(QFileInfo(iniFile()).dir().exists());
    };
    make();
    QVERIFY(looked);
}

static QStringList sSaid; ///< a line of the log, and what the status bar showed just then

static void readAlong(QtMsgType, const QMessageLogContext&, const QString& acLine)
{
    for (QWidget* widget : QApplication::allWidgets()) {
        if (const auto* bar = qobject_cast<QStatusBar*>(widget))
            sSaid.append({acLine, bar->currentMessage()});
    }
}

void tst_WindowOrder::notConnectedUntilTheSettingsAreOpen()
{
    sSaid.clear();
    const QtMessageHandler before = qInstallMessageHandler(&readAlong);
    make();
    qInstallMessageHandler(before);
    const QString where = "Settings at " + QDir::toNativeSeparators(iniFile());
    QCOMPARE(sSaid.mid(0, 2), (QStringList{where, "Not Connected"}));
    QCOMPARE(mWindow->statusBar()->currentMessage(), where);
}

/// Looks into the settings as it closes.
class tcLastLook : public QWidget
{
public:
    explicit tcLastLook(const QString& acFile) : mFile(acFile) { }
    QSize size;
    QString camera;

private:
    void closeEvent(QCloseEvent* apEvent) override
    {
        const QSettings settings(mFile, QSettings::IniFormat);
        size = settings.value("mainwindow/size").toSize();
        camera = settings.value("panel/camera").toString();
        QWidget::closeEvent(apEvent);
    }
    QString mFile;
};

void tst_WindowOrder::everythingIsStoredBeforeTheOtherWindowsClose()
{
    make();
    mWindow->show();
    tcLastLook other(iniFile());
    other.show();
    mWindow->resize(900, 640);
    mWindow->findChild<QComboBox*>("cameraCB")->setCurrentIndex(2);
    mWindow->close();
    QCOMPARE(other.size, QSize(900, 640));
    QCOMPARE(other.camera, QString("Vexa-R70"));
}

QTEST_MAIN(tst_WindowOrder)
#include "tst_windoworder.moc"
