#include "widgets/tcEntryBox.h"

#include <QAbstractItemView>
#include <QSignalSpy>
#include <QTest>

class tst_EntryBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hintsAreThoseOfTheBasesPolicy_data();
    void hintsAreThoseOfTheBasesPolicy();
    void entriesDoNotWidenIt();
    void listIsMadeWhenItDropsDown();
};

void tst_EntryBox::hintsAreThoseOfTheBasesPolicy_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<int>("characters");
    QTest::addColumn<int>("points");
    QTest::newRow("chooser") << false << 20 << 10;
    QTest::newRow("panel") << false << 16 << 10;
    QTest::newRow("command line") << true << 16 << 10;
    QTest::newRow("large letters") << true << 16 << 24;
    QTest::newRow("small letters") << false << 16 << 6;
}

void tst_EntryBox::hintsAreThoseOfTheBasesPolicy()
{
    QFETCH(bool, editable);
    QFETCH(int, characters);
    QFETCH(int, points);
    tcEntryBox box;
    QComboBox base;
    base.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    for (QComboBox* each : {static_cast<QComboBox*>(&box), &base}) {
        QFont font = each->font();
        font.setPointSize(points);
        each->setFont(font);
        each->setEditable(editable);
        each->setMinimumContentsLength(characters);
        each->addItem("8-Tap, 10 Bpp");
    }
    QCOMPARE(box.sizeHint(), base.sizeHint());
    QCOMPARE(box.minimumSizeHint(), base.minimumSizeHint());
}

void tst_EntryBox::entriesDoNotWidenIt()
{
    tcEntryBox box;
    box.setMinimumContentsLength(16);
    const QSize before = box.sizeHint();
    box.addItem(QString(500, 'X'));
    QCOMPARE(box.sizeHint(), before);
    QCOMPARE(box.minimumSizeHint(), before);
}

void tst_EntryBox::listIsMadeWhenItDropsDown()
{
    tcEntryBox box;
    box.setMinimumContentsLength(16);
    box.addItem("Vexa-K50");
    QSignalSpy about(&box, &tcEntryBox::aboutToShow);
    connect(&box, &tcEntryBox::aboutToShow, this, [&box] { box.addItem("Vexa-K40"); });
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    QVERIFY(!box.findChild<QAbstractItemView*>());
    QCOMPARE(about.count(), 0);
    box.showPopup();
    QCOMPARE(about.count(), 1);
    const auto* list = box.findChild<QAbstractItemView*>();
    QVERIFY(list);
    QVERIFY(list->isVisible());
    QCOMPARE(list->model()->rowCount(), 2);
    box.hidePopup();
}

QTEST_MAIN(tst_EntryBox)
#include "tst_entrybox.moc"
