#include "camlink/tcCamlinkControl.h"
#include "camlink/tcCamlinkIface.h"
#include "tests/support/tcFakeSerial.h"

#include <QComboBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>
#include <QTranslator>

#include <memory>

namespace
{

/// Writes down what the chooser tells it.
class tcTalkative : public tcCamlinkIface
{
public:
    explicit tcTalkative(QStringList& arHeard) : mHeard(arHeard) { }

    QString name() const override { return QStringLiteral("talkative"); }
    void openPort(tcSerialLink::tcRef aRef) override
    {
        mHeard.append(QStringLiteral("port %1 of %2").arg(aRef != 0).arg(mManufacturer));
    }
    void closePort() override { mHeard.append(QStringLiteral("no port")); }

private:
    QStringList& mHeard;
};

/// Another language, of two words.
class tcTwoWords : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* acText, const char*, int) const override
    {
        if (qstrcmp(acText, "Open") == 0)
            return QStringLiteral("auf");
        return qstrcmp(acText, "Close") == 0 ? QStringLiteral("zu") : QString();
    }
};

} // namespace

/// Who hears of a port first while it opens and closes, over the scripted serial library.
class tst_OpeningOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void portIsThereBeforeThePanelAndGoneAfterIt();
    void pageThatIsNoPanelOpensAllTheSame();
    void buttonOpensAndClosesInAnyLanguage();

private:
    template <class T>
    T* child(const char* acName) const
    {
        return mChooser->findChild<T*>(QString::fromLatin1(acName));
    }
    QPushButton* button() const { return child<QPushButton>("openPB"); }
    QStackedWidget* pages() const { return child<QStackedWidget>("controlSW"); }

    tcFakeSerial& mFake = tcFakeSerial::instance();
    QStringList mHeard; ///< outlives the chooser with its panels
    std::unique_ptr<tcCamlinkControl> mChooser;
};

void tst_OpeningOrder::init()
{
    mFake.reset();
    mFake.ports = {{"Maker A", "Port 0", 0}, {"Maker B", "Port 1", 0}};
    mChooser = std::make_unique<tcCamlinkControl>();
    mHeard.clear();
}

void tst_OpeningOrder::cleanup()
{
    mFake.onCall = nullptr;
    mChooser.reset();
    QCOMPARE(mFake.openRefs(), 0);
    QCOMPARE(mFake.misuse, QStringList());
}

void tst_OpeningOrder::portIsThereBeforeThePanelAndGoneAfterIt()
{
    pages()->setCurrentIndex(pages()->addWidget(new tcTalkative(mHeard)));
    mFake.onCall = [this](const tcFakeSerial::tcCall& acCall) {
        mHeard.append(QString::fromLatin1(acCall.function));
    };
    connect(mChooser.get(), &tcCamlinkControl::opened, this, [this](bool abOpen) {
        mHeard.append(QStringLiteral("opened %1, %2, cameras %3")
                          .arg(abOpen)
                          .arg(button()->text())
                          .arg(child<QComboBox>("cameraCB")->isEnabled()));
    });
    child<QComboBox>("portCB")->setCurrentIndex(1);
    button()->click();
    QCOMPARE(mHeard,
             (QStringList{"clSerialInit", "port 1 of Maker B", "opened 1, Close, cameras 0"}));
    mHeard.clear();
    button()->click();
    QCOMPARE(mHeard, (QStringList{"no port", "clSerialClose", "opened 0, Open, cameras 1"}));
}

void tst_OpeningOrder::pageThatIsNoPanelOpensAllTheSame()
{
    QSignalSpy opened(mChooser.get(), &tcCamlinkControl::opened);
    pages()->setCurrentWidget(child<QWidget>("page_2"));
    button()->click();
    QCOMPARE(mFake.openRefs(), 1);
    QCOMPARE(button()->text(), QString("Close"));
    QVERIFY(mFake.callsOf("clSetBaudRate").isEmpty());
    button()->click();
    QCOMPARE(mFake.openRefs(), 0);
    QCOMPARE(opened.count(), 2);
}

/// The button's text tells what it does.
void tst_OpeningOrder::buttonOpensAndClosesInAnyLanguage()
{
    tcTwoWords words; // taken away by its end
    QVERIFY(QCoreApplication::installTranslator(&words));
    mChooser = std::make_unique<tcCamlinkControl>();
    for (int turn = 0; turn < 2; ++turn) {
        QCOMPARE(button()->text(), QString("auf"));
        button()->click();
        QCOMPARE(mFake.openRefs(), 1);
        QCOMPARE(button()->text(), QString("zu"));
        button()->click();
        QCOMPARE(mFake.openRefs(), 0);
    }
}

QTEST_MAIN(tst_OpeningOrder)
#include "tst_openingorder.moc"
