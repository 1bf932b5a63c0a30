#include "camlink/tcCamlinkControl.h"
#include "tests/support/tcFakeSerial.h"
#include "tests/support/tcScriptedDialogs.h"
#include "widgets/tcEntryBox.h"

#include <QApplication>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTest>

#include <memory>

/// Whoever waits for a driver sees it: the window can't answer, the cursor tells why.
class tst_WaitCursor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void openingAndClosing();
    void readingTheListAgain();
    void presetsAndScripts_data();
    void presetsAndScripts();
    void notForCommands();

private:
    template <class T>
    T* visible(const char* acName) const;
    bool waits(const char* acFunction) const { return mWaiting.value(acFunction); }

    tcFakeSerial& mFake = tcFakeSerial::instance();
    QTemporaryDir mFolder;
    std::unique_ptr<tcCamlinkControl> mChooser;
    QMap<QByteArray, bool> mWaiting; ///< functions that were called, under that cursor or not
};

void tst_WaitCursor::init()
{
    mFake.reset();
    mFake.ports = {{"Maker", "Port", 0}};
    mChooser = std::make_unique<tcCamlinkControl>();
    QSettings settings(mFolder.filePath("tarvik.ini"), QSettings::IniFormat);
    mChooser->loadSettings(&settings); // which brings the presets
    mChooser->show();
    mChooser->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(mChooser.get()));
    mWaiting.clear();
    mFake.onCall = [this](const tcFakeSerial::tcCall& acCall) {
        const QCursor* cursor = QApplication::overrideCursor();
        mWaiting[acCall.function] = cursor && cursor->shape() == Qt::WaitCursor;
    };
}

void tst_WaitCursor::cleanup()
{
    mChooser.reset();
    QVERIFY(!QApplication::overrideCursor());
}

template <class T>
T* tst_WaitCursor::visible(const char* acName) const
{
    for (T* widget : mChooser->findChildren<T*>(QString::fromLatin1(acName))) {
        if (widget->isVisible())
            return widget;
    }
    return nullptr;
}

void tst_WaitCursor::openingAndClosing()
{
    visible<QPushButton>("openPB")->click();
    QVERIFY(waits("clSerialInit"));
    QVERIFY(!QApplication::overrideCursor());
    visible<QPushButton>("openPB")->click();
    QVERIFY(waits("clSerialClose"));
    QVERIFY(!QApplication::overrideCursor());
    mFake.failing["clSerialInit"] = -10001;
    visible<QPushButton>("openPB")->click();
    QVERIFY(!QApplication::overrideCursor());
}

void tst_WaitCursor::readingTheListAgain()
{
    QTest::keyClick(mChooser.get(), Qt::Key_F5);
    QVERIFY(waits("clGetNumPorts") && waits("clGetPortInfo"));
    QVERIFY(!QApplication::overrideCursor());
}

void tst_WaitCursor::presetsAndScripts_data()
{
    QTest::addColumn<QString>("camera");
    QTest::addColumn<QString>("name");
    for (const char* camera : {"Vexa-K50", "Vexa-R60"}) {
        for (const char* name : {"SendPresetPB", "SendCustomPB"})
            QTest::addRow("%s %s", camera, name) << camera << name;
    }
}

void tst_WaitCursor::presetsAndScripts()
{
    QFETCH(QString, camera);
    QFETCH(QString, name);
    QTemporaryFile script;
    QVERIFY(script.open());
    script.write("<STOP>\n");
    script.close();
    tcScriptedDialogs dialogs;
    dialogs.fileAnswer = script.fileName();
    bool whileAsked = false;
    dialogs.whileOpen = [&] { whileAsked = QApplication::overrideCursor() != nullptr; };
    visible<tcEntryBox>("cameraCB")->setCurrentText(camera);
    visible<QPushButton>("openPB")->click();
    visible<QPushButton>(name.toLatin1().constData())->click();
    QVERIFY(waits("clSerialWrite"));
    QVERIFY(!whileAsked);
    QVERIFY(!QApplication::overrideCursor());
}

/// They take a fifth of a second at most, and keep-alive and sensors send many.
void tst_WaitCursor::notForCommands()
{
    visible<QPushButton>("openPB")->click();
    visible<QPushButton>("startPB")->click();
    QVERIFY(mWaiting.contains("clSerialWrite"));
    QVERIFY(!waits("clSerialWrite"));
}

QTEST_MAIN(tst_WaitCursor)
#include "tst_waitcursor.moc"
