#include "camera/tcVexaK40.h"
#include "camlink/tcCamlinkControl.h"
#include "camlink/tcVexaR60.h"
#include "camlink/tcVexaR70.h"
#include "tests/support/tcFakeSerial.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMetaMethod>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <memory>

/// The chooser over the scripted serial library.
class tst_CamlinkControl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void signalsAndSlotsInTheirOrder();
    void formTexts();
    void formLayout();
    void camerasInTheirOrder();
    void firstCameraIsChosen();
    void pagesFollowTheCamera();
    void presetsStayWhereTheyAreWhateverTheCamera();

    void portsAreListedWithMakerAndId();
    void openNeedsAPort();
    void listIsReadAgainWhenItDropsDown();
    void listIsReadAgainOnF5();
    void listStaysWhileOpen();
    void chosenPortStaysChosen();
    void makersOfEarlierReadingsStayInFront();

    void openHandsThePortToTheVisiblePanelOnly();
    void openLooksConnected();
    void openSelectsTheChosenIndex();
    void secondPressCloses();
    void panelLosesThePortBeforeItIsClosed();
    void refusedOpenIsToldToEveryPanel();
    void refusedOpenWithoutText();
    void refusedOpenChangesNothing();
    void openWithoutPortDoesNothing();
    void shortcutOpensAndCloses();
    void shortcutsOfTheVisiblePanel();
    void closeCameraWhenClosedIsHarmless();
    void panelAsksToClose();
    void makerIsKnownBeforeThePort();
    void ownCloseEventClosesThePort();
    void goneWhileOpenClosesOnce();
    void thousandOpenAndCloseCycles();
    void unpluggedWhileOpenStillCloses();
    void closedFromInsideAReply();
    void closedWhileItOpens();

    void cameraIsStoredAndRestored();
    void everyPanelStoresAndRestoresItsOwn();
    void unknownCameraKeepsTheFirst_data();
    void unknownCameraKeepsTheFirst();

private:
    template <class T>
    T* child(const char* acName) const;
    QComboBox* cameras() const { return child<QComboBox>("cameraCB"); }
    QComboBox* ports() const { return child<QComboBox>("portCB"); }
    QPushButton* button() const { return child<QPushButton>("openPB"); }
    QStackedWidget* pages() const { return child<QStackedWidget>("controlSW"); }
    QString replies(int aPage) const;
    void make();

    tcFakeSerial& mFake = tcFakeSerial::instance();
    std::unique_ptr<tcCamlinkControl> mChooser;
};

static const QStringList cCameras{"Vexa-K50", "Vexa-R60", "Vexa-R70",
                                  "Vexa-K40", "Vexa-K30", "Vexa-K20 (Temp controlled)",
                                  "Vexa-K20", "Vexa-K10"};

template <class T>
T* tst_CamlinkControl::child(const char* acName) const
{
    T* found = mChooser->findChild<T*>(QString::fromLatin1(acName));
    Q_ASSERT(found);
    return found;
}

QString tst_CamlinkControl::replies(int aPage) const
{
    return pages()->widget(aPage)->findChild<QPlainTextEdit*>("PortRespPTE")->toPlainText();
}

void tst_CamlinkControl::make()
{
    mChooser = std::make_unique<tcCamlinkControl>();
}

void tst_CamlinkControl::init()
{
    mFake.reset();
    mFake.ports = {{"Maker A", "Port 0", 0}, {"Maker B", "Port 1", 0}};
    make();
}

void tst_CamlinkControl::cleanup()
{
    mChooser.reset();
    QCOMPARE(mFake.openRefs(), 0);
    QCOMPARE(mFake.misuse, QStringList());
    QCOMPARE(mFake.callsOf("clSerialInit").size() - mFake.callsOf("clSerialClose").size(),
             mFake.failing.contains("clSerialInit") ? mFake.callsOf("clSerialInit").size() : 0);
}

void tst_CamlinkControl::signalsAndSlotsInTheirOrder()
{
    const QMetaObject& meta = tcCamlinkControl::staticMetaObject;
    QStringList methods;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index)
        methods.append(QString::fromLatin1(meta.method(index).methodSignature()));
    QCOMPARE(
        methods,
        (QStringList{"opened(bool)", "info(QString)", "refresh()", "open()", "closeCamera()"}));
}

void tst_CamlinkControl::formTexts()
{
    QCOMPARE(mChooser->windowTitle(), QString("Form"));
    QCOMPARE(mChooser->size(), QSize(537, 543));
    QCOMPARE(child<QLabel>("label_2")->text(), QString("Camera"));
    QCOMPARE(child<QLabel>("label_2")->minimumWidth(), 80);
    QCOMPARE(child<QLabel>("label")->text(), QString("Port"));
    QCOMPARE(child<QLabel>("label")->minimumWidth(), 90);
    QCOMPARE(button()->text(), QString("Open"));
    QVERIFY(child<QGridLayout>("gridLayout"));
    QVERIFY(child<QHBoxLayout>("horizontalLayout"));
    QVERIFY(child<QWidget>("page"));
    QVERIFY(child<QWidget>("page_2"));
}

void tst_CamlinkControl::formLayout()
{
    const auto* grid = child<QGridLayout>("gridLayout");
    const auto* ports = child<QHBoxLayout>("horizontalLayout");
    QCOMPARE(grid->itemAtPosition(0, 0)->widget(), child<QWidget>("label_2"));
    QCOMPARE(grid->itemAtPosition(0, 1)->widget(), child<QWidget>("cameraCB"));
    QCOMPARE(grid->itemAtPosition(1, 0)->widget(), child<QWidget>("label"));
    QCOMPARE(grid->itemAtPosition(1, 1)->layout(), ports);
    QCOMPARE(grid->itemAtPosition(2, 0)->widget(), child<QWidget>("controlSW"));
    QCOMPARE(grid->itemAtPosition(2, 1)->widget(), child<QWidget>("controlSW"));
    QCOMPARE(grid->count(), 5);
    QCOMPARE(ports->itemAt(0)->widget(), child<QWidget>("portCB"));
    QCOMPARE(ports->itemAt(1)->widget(), child<QWidget>("openPB"));
    QCOMPARE(ports->count(), 2);
}

void tst_CamlinkControl::camerasInTheirOrder()
{
    QStringList shown;
    for (int index = 0; index < cameras()->count(); ++index) {
        shown.append(cameras()->itemText(index));
        QVERIFY(!cameras()->itemData(index).isValid());
        const auto* panel = qobject_cast<tcCamlinkIface*>(pages()->widget(index));
        QVERIFY(panel);
        QCOMPARE(panel->name(), cameras()->itemText(index));
    }
    QCOMPARE(shown, cCameras);
    // Behind the panels, the two empty pages of the form.
    QCOMPARE(pages()->count(), cCameras.size() + 2);
    QCOMPARE(pages()->widget(8)->objectName(), QString("page"));
    QCOMPARE(pages()->widget(9)->objectName(), QString("page_2"));
    QVERIFY(qobject_cast<tcVexaR60*>(pages()->widget(1)));
    QVERIFY(qobject_cast<tcVexaR70*>(pages()->widget(2)));
}

void tst_CamlinkControl::firstCameraIsChosen()
{
    QCOMPARE(cameras()->currentIndex(), 0);
    QCOMPARE(pages()->currentIndex(), 0);
}

void tst_CamlinkControl::pagesFollowTheCamera()
{
    for (int index = 0; index < cCameras.size(); ++index) {
        cameras()->setCurrentIndex(index);
        QCOMPARE(pages()->currentIndex(), index);
    }
}

void tst_CamlinkControl::presetsStayWhereTheyAreWhateverTheCamera()
{
    make();
    mChooser->resize(730, 480);
    mChooser->show();
    QPoint first;
    for (int camera = 0; camera < cCameras.size(); ++camera) {
        cameras()->setCurrentIndex(camera);
        const auto* presets = pages()->widget(camera)->findChild<QComboBox*>("presetsCB");
        QTRY_VERIFY(presets->isVisible() && presets->y() >= 0);
        QApplication::sendPostedEvents();
        const QPoint place = presets->mapTo(mChooser.get(), QPoint(0, 0));
        if (camera == 0)
            first = place;
        QCOMPARE(place, first);
    }
}

void tst_CamlinkControl::portsAreListedWithMakerAndId()
{
    QCOMPARE(ports()->count(), 2);
    QCOMPARE(ports()->itemText(0), QString("0 : Maker A : Port 0"));
    QCOMPARE(ports()->itemText(1), QString("1 : Maker B : Port 1"));
    QVERIFY(button()->isEnabled());
}

void tst_CamlinkControl::openNeedsAPort()
{
    mFake.ports.removeLast();
    mChooser->refresh();
    QCOMPARE(ports()->count(), 1);
    QVERIFY(button()->isEnabled());
    mFake.failing["clGetNumPorts"] = -10098;
    mChooser->refresh();
    QCOMPARE(ports()->count(), 0);
    QVERIFY(!button()->isEnabled());
    mFake.failing.clear();
    mFake.ports.clear();
    mChooser->refresh();
    QCOMPARE(ports()->count(), 0);
    QVERIFY(!button()->isEnabled());
}

void tst_CamlinkControl::listIsReadAgainWhenItDropsDown()
{
    mFake.ports.append({"Maker C", "Port 2", 0});
    mChooser->show();
    ports()->showPopup();
    QCOMPARE(ports()->count(), 3);
    ports()->hidePopup();
}

void tst_CamlinkControl::listIsReadAgainOnF5()
{
    mFake.ports.append({"Maker C", "Port 2", 0});
    mChooser->show();
    mChooser->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(mChooser.get()));
    QTest::keyClick(mChooser.get(), Qt::Key_F5);
    QCOMPARE(ports()->count(), 3);
}

void tst_CamlinkControl::listStaysWhileOpen()
{
    mChooser->show();
    button()->click();
    mFake.ports.clear();
    ports()->showPopup();
    QTest::keyClick(mChooser.get(), Qt::Key_F5);
    QCOMPARE(ports()->count(), 2);
    QVERIFY(button()->isEnabled()); // "Close" stays within reach
    ports()->hidePopup();
}

void tst_CamlinkControl::chosenPortStaysChosen()
{
    ports()->setCurrentIndex(1);
    mChooser->refresh();
    QCOMPARE(ports()->currentText(), QString("1 : Maker B : Port 1"));
    mFake.ports.removeLast();
    mChooser->refresh();
    QCOMPARE(ports()->currentIndex(), 0);
}

void tst_CamlinkControl::makersOfEarlierReadingsStayInFront()
{
    // As designed: the list of makers is not cleared by another reading, so an index still
    // means the maker that was there first.
    mFake.ports = {{"Maker Z", "Port 0", 0}};
    mChooser->refresh();
    mFake.failing["clSerialInit"] = -10003;
    mChooser->open();
    QCOMPARE(mFake.callsOf("clGetErrorText").at(0).bytes, QByteArray("Maker A"));
}

void tst_CamlinkControl::openHandsThePortToTheVisiblePanelOnly()
{
    cameras()->setCurrentIndex(1);
    button()->click();
    QCOMPARE(mFake.callsOf("clSetBaudRate").size(), 1);
    mFake.receive("<STRT><ACK>");
    QTRY_COMPARE(replies(1), QString("<STRT><ACK>"));
    QCOMPARE(replies(2), QString());
}

void tst_CamlinkControl::openLooksConnected()
{
    QSignalSpy opened(mChooser.get(), &tcCamlinkControl::opened);
    button()->click();
    QCOMPARE(button()->text(), QString("Close"));
    QVERIFY(!cameras()->isEnabled());
    QVERIFY(ports()->isEnabled());
    QCOMPARE(opened.count(), 1);
    QCOMPARE(opened.at(0).at(0).toBool(), true);
}

void tst_CamlinkControl::openSelectsTheChosenIndex()
{
    ports()->setCurrentIndex(1);
    button()->click();
    QCOMPARE(mFake.callsOf("clSerialInit").at(0).number, 1u);
}

void tst_CamlinkControl::secondPressCloses()
{
    QSignalSpy opened(mChooser.get(), &tcCamlinkControl::opened);
    button()->click();
    button()->click();
    QCOMPARE(button()->text(), QString("Open"));
    QVERIFY(cameras()->isEnabled());
    QCOMPARE(mFake.callsOf("clSerialClose").size(), 1);
    QCOMPARE(opened.count(), 2);
    QCOMPARE(opened.at(1).at(0).toBool(), false);
}

void tst_CamlinkControl::panelLosesThePortBeforeItIsClosed()
{
    cameras()->setCurrentIndex(1);
    button()->click();
    bool wroteAtClose = false;
    mFake.onCall = [&](const tcFakeSerial::tcCall& acCall) {
        if (acCall.function != "clSerialClose")
            return;
        // Whatever the panel is asked for now, it no longer knows the port.
        const int before = mFake.writes().size();
        pages()->widget(1)->findChild<QPushButton*>("SendPresetPB")->click();
        wroteAtClose = mFake.writes().size() != before;
    };
    button()->click();
    mFake.onCall = nullptr;
    QVERIFY(!wroteAtClose);
}

void tst_CamlinkControl::refusedOpenIsToldToEveryPanel()
{
    mFake.failing["clSerialInit"] = -10003;
    mFake.errorText = QByteArray(2047, 'e');
    mFake.errorTextWithoutNul = true;
    QSignalSpy info(mChooser.get(), &tcCamlinkControl::info);
    ports()->setCurrentIndex(1);
    button()->click();
    QCOMPARE(info.count(), 1);
    QCOMPARE(info.at(0).at(0).toString(), QString(2047, 'e'));
    QCOMPARE(mFake.callsOf("clGetErrorText").at(0).bytes, QByteArray("Maker B"));
    for (int page = 0; page < cCameras.size(); ++page)
        QVERIFY2(replies(page).contains(QString(2047, 'e')), qPrintable(cCameras.at(page)));
}

void tst_CamlinkControl::refusedOpenWithoutText()
{
    mFake.failing["clSerialInit"] = -12301;
    mFake.failing["clGetErrorText"] = -10007;
    QSignalSpy info(mChooser.get(), &tcCamlinkControl::info);
    button()->click();
    QCOMPARE(info.at(0).at(0).toString(), QString("Unknown error code -12301"));
}

void tst_CamlinkControl::refusedOpenChangesNothing()
{
    mFake.failing["clSerialInit"] = -10003;
    QSignalSpy opened(mChooser.get(), &tcCamlinkControl::opened);
    button()->click();
    QCOMPARE(button()->text(), QString("Open"));
    QVERIFY(cameras()->isEnabled());
    QCOMPARE(opened.count(), 0);
    QVERIFY(mFake.callsOf("clSetBaudRate").isEmpty());
    QVERIFY(mFake.callsOf("clSerialClose").isEmpty());
}

void tst_CamlinkControl::openWithoutPortDoesNothing()
{
    ports()->setCurrentIndex(-1);
    mChooser->open();
    QVERIFY(mFake.callsOf("clSerialInit").isEmpty());
}

void tst_CamlinkControl::shortcutOpensAndCloses()
{
    mChooser->show();
    mChooser->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(mChooser.get()));
    for (const QString& text : {QString("Close"), QString("Open"), QString("Close")}) {
        QTest::keyClick(mChooser.get(), Qt::Key_O, Qt::ControlModifier);
        QTRY_COMPARE(button()->text(), text);
    }
}

void tst_CamlinkControl::shortcutsOfTheVisiblePanel()
{
    mChooser->show();
    mChooser->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(mChooser.get()));
    button()->click();
    QTest::keyClick(mChooser.get(), Qt::Key_G, Qt::ControlModifier);
    QTRY_COMPARE(mFake.writes(), QList<QByteArray>{"<STRT>\n"});
    QTest::keyClick(mChooser.get(), Qt::Key_Period, Qt::ControlModifier);
    QTRY_COMPARE(mFake.writes().last(), QByteArray("<STOP>\n"));
    pages()->widget(0)->findChild<QComboBox*>("CommandCB")->setEditText("VERS");
    QTest::keyClick(mChooser.get(), Qt::Key_Return, Qt::ControlModifier);
    QTRY_COMPARE(mFake.writes().last(), QByteArray("<VERS>\n"));
    QTest::keyClick(mChooser.get(), Qt::Key_L, Qt::ControlModifier);
    QTRY_COMPARE(replies(0), QString());
    QCOMPARE(mFake.writes().size(), 3); // by one panel alone
}

void tst_CamlinkControl::closeCameraWhenClosedIsHarmless()
{
    QSignalSpy opened(mChooser.get(), &tcCamlinkControl::opened);
    mChooser->closeCamera();
    QVERIFY(mFake.callsOf("clSerialClose").isEmpty());
    QCOMPARE(opened.count(), 1);
    QCOMPARE(opened.at(0).at(0).toBool(), false);
}

void tst_CamlinkControl::panelAsksToClose()
{
    for (int page = 0; page < cCameras.size(); ++page) {
        cameras()->setCurrentIndex(page);
        button()->click();
        QCOMPARE(mFake.openRefs(), 1);
        Q_EMIT qobject_cast<tcCamlinkIface*>(pages()->widget(page))->requestClosePort();
        QCOMPARE(mFake.openRefs(), 0);
        QCOMPARE(button()->text(), QString("Open"));
    }
}

void tst_CamlinkControl::makerIsKnownBeforeThePort()
{
    // The full panel asks its maker for the text of a failed write.
    ports()->setCurrentIndex(1);
    button()->click();
    mFake.failing["clSerialWrite"] = -10006;
    pages()->widget(0)->findChild<QPushButton*>("startPB")->click();
    QCOMPARE(mFake.callsOf("clGetErrorText").at(0).bytes, QByteArray("Maker B"));
    QVERIFY(replies(0).contains(QString::fromLatin1(mFake.errorText)));
}

void tst_CamlinkControl::ownCloseEventClosesThePort()
{
    button()->click();
    QSignalSpy opened(mChooser.get(), &tcCamlinkControl::opened);
    QCloseEvent event;
    QCoreApplication::sendEvent(mChooser.get(), &event);
    QCOMPARE(mFake.callsOf("clSerialClose").size(), 1);
    QCOMPARE(opened.count(), 1);
}

void tst_CamlinkControl::goneWhileOpenClosesOnce()
{
    button()->click();
    mChooser.reset();
    QCOMPARE(mFake.callsOf("clSerialClose").size(), 1);
}

void tst_CamlinkControl::thousandOpenAndCloseCycles()
{
    for (int cycle = 0; cycle < 1000; ++cycle) {
        cameras()->setCurrentIndex(cycle % cCameras.size());
        button()->click();
        QCOMPARE(mFake.openRefs(), 1);
        button()->click();
        QCOMPARE(mFake.openRefs(), 0);
    }
    QCOMPARE(mFake.callsOf("clSerialInit").size(), 1000);
    QCOMPARE(mFake.callsOf("clSerialClose").size(), 1000);
}

void tst_CamlinkControl::unpluggedWhileOpenStillCloses()
{
    for (int page : {0, 1}) {
        cameras()->setCurrentIndex(page);
        button()->click();
        for (const char* function :
             {"clGetNumBytesAvail", "clSerialRead", "clSerialWrite", "clGetErrorText"})
            mFake.failing[function] = -10006;
        const int polls = mFake.callsOf("clGetNumBytesAvail").size();
        QTRY_VERIFY(mFake.callsOf("clGetNumBytesAvail").size() > polls + 1);
        button()->click();
        QCOMPARE(mFake.openRefs(), 0);
        mFake.failing.clear();
    }
}

void tst_CamlinkControl::closedFromInsideAReply()
{
    // Somebody listens to the view and closes the port at the first reply.
    for (int page : {0, 1}) {
        cameras()->setCurrentIndex(page);
        button()->click();
        auto* view = pages()->widget(page)->findChild<QPlainTextEdit*>("PortRespPTE");
        view->clear();
        const auto connection = connect(view, &QPlainTextEdit::textChanged, this,
                                        [this] { mChooser->closeCamera(); });
        mFake.receive("<STRT><ACK>\r\n");
        QTRY_COMPARE(mFake.openRefs(), 0);
        disconnect(connection);
        QVERIFY(replies(page).contains("<STRT><ACK>"));
    }
}

void tst_CamlinkControl::closedWhileItOpens()
{
    // Somebody listens to the view and closes the port at the first word about it.
    QSignalSpy opened(mChooser.get(), &tcCamlinkControl::opened);
    auto* view = pages()->widget(0)->findChild<QPlainTextEdit*>("PortRespPTE");
    const auto connection = connect(view, &QPlainTextEdit::textChanged, this,
                                    [this] { mChooser->closeCamera(); });
    button()->click();
    disconnect(connection);
    QCOMPARE(mFake.openRefs(), 0);
    QCOMPARE(button()->text(), QString("Open"));
    QVERIFY(cameras()->isEnabled());
    QCOMPARE(opened.last().at(0).toBool(), false);
    for (const auto* timer : pages()->widget(0)->findChildren<QTimer*>())
        QVERIFY(!timer->isActive() || timer->interval() != 20);
}

void tst_CamlinkControl::cameraIsStoredAndRestored()
{
    QTemporaryDir folder;
    QSettings settings(folder.filePath("tarvik.ini"), QSettings::IniFormat);
    cameras()->setCurrentIndex(5);
    mChooser->saveSettings(&settings);
    QCOMPARE(settings.value("panel/camera").toString(), cCameras.at(5));
    QCOMPARE(settings.group(), QString());
    make();
    mChooser->loadSettings(&settings);
    QCOMPARE(cameras()->currentIndex(), 5);
    QCOMPARE(pages()->currentIndex(), 5);
    QCOMPARE(settings.group(), QString());
}

void tst_CamlinkControl::everyPanelStoresAndRestoresItsOwn()
{
    // The full panels keep their history, each in a group of its own; the basic ones nothing.
    QTemporaryDir folder;
    QSettings settings(folder.filePath("tarvik.ini"), QSettings::IniFormat);
    QStringList groups{"panel"};
    for (int page = 0; page < cCameras.size(); ++page) {
        if (auto* history = pages()->widget(page)->findChild<QComboBox*>("CommandCB")) {
            history->addItem(QString("<SEXP %1>").arg(page));
            groups.append(cCameras.at(page));
        }
    }
    mChooser->saveSettings(&settings);
    groups.sort();
    QCOMPARE(settings.childGroups(), groups);
    QCOMPARE(groups.size(), 7);
    make();
    mChooser->loadSettings(&settings);
    for (int page = 0; page < cCameras.size(); ++page) {
        if (const auto* history = pages()->widget(page)->findChild<QComboBox*>("CommandCB"))
            QCOMPARE(history->itemText(0), QString("<SEXP %1>").arg(page));
    }
}

void tst_CamlinkControl::unknownCameraKeepsTheFirst_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::newRow("none") << QVariant();
    QTest::newRow("empty") << QVariant(QString());
    QTest::newRow("gone") << QVariant("Vexa-K99");
    QTest::newRow("other case") << QVariant("vexa-k10");
    QTest::newRow("part of a name") << QVariant("Vexa-K2");
}

void tst_CamlinkControl::unknownCameraKeepsTheFirst()
{
    QFETCH(QVariant, stored);
    QTemporaryDir folder;
    QSettings settings(folder.filePath("tarvik.ini"), QSettings::IniFormat);
    if (stored.isValid())
        settings.setValue("panel/camera", stored);
    mChooser->loadSettings(&settings);
    QCOMPARE(cameras()->currentText(), QString("Vexa-K50"));
}

QTEST_MAIN(tst_CamlinkControl)
#include "tst_camlinkcontrol.moc"
