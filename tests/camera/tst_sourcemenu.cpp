#include "camera/tcVexaK40.h"
#include "sim/usbtc08/tc08sim.h"

#include <QListWidget>
#include <QMenu>
#include <QTest>
#include <QToolButton>

/// What "Add Sensor" offers where the logger's driver is installed.
class tst_SourceMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCOMPARE(tc08sim_command("conversion_ms=0"), 1); }

    void thermometerThenLogger();
    void everyChannelInOrder();
    void chosenChannelJoinsTheList();

private:
    static QList<QAction*> types(const tcVexaK40& acPanel);
};

QList<QAction*> tst_SourceMenu::types(const tcVexaK40& acPanel)
{
    QMenu* menu = acPanel.findChild<QToolButton*>("addSensorTB")->menu();
    Q_EMIT menu->aboutToShow(); // as a click on the button does
    return menu->actions();
}

void tst_SourceMenu::thermometerThenLogger()
{
    qputenv("TARVIK_EXTRA_SERIAL_PORTS", "virtual7=Virtual thermometer");
    const tcVexaK40 panel(teCmvType::Cmv2000);
    QStringList titles;
    for (const QAction* type : types(panel))
        titles.append(type->text());
    QCOMPARE(titles, (QStringList{"Omega UTC", "Pico TC08"}));
}

void tst_SourceMenu::everyChannelInOrder()
{
    const tcVexaK40 panel(teCmvType::Cmv2000);
    QStringList channels;
    for (const QAction* channel : types(panel).last()->menu()->actions()) {
        channels.append(channel->text());
        QVERIFY(channel->shortcut().isEmpty());
    }
    QCOMPARE(channels.join(' '), QString("CH1 CH2 CH3 CH4 CH5 CH6 CH7 CH8"));
}

void tst_SourceMenu::chosenChannelJoinsTheList()
{
    const tcVexaK40 panel(teCmvType::Cmv2000);
    types(panel).last()->menu()->actions().at(2)->trigger();
    const auto* list = panel.findChild<QListWidget*>("sensorsLW");
    QCOMPARE(list->count(), 16);
    const QListWidgetItem* item = list->item(15);
    QCOMPARE(item->text(), QString("CH3 Pico TC08"));
    QCOMPARE(item->checkState(), Qt::Unchecked);
    QCOMPARE(item->data(Qt::UserRole).toInt(), 0);
    QCOMPARE(item->data(Qt::UserRole + 1).toString(), QString("CH3"));
    QCOMPARE(item->data(Qt::UserRole + 2).toString(), QString("Pico TC08"));
    QCOMPARE(item->data(Qt::UserRole + 3).toString(), QString());
}

QTEST_MAIN(tst_SourceMenu)
#include "tst_sourcemenu.moc"
