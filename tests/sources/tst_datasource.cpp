#include "sources/tcDataSource.h"

#include <QMetaMethod>
#include <QtTest>

#include <cstring>

class tcPlainSource : public tcDataSource
{
    Q_OBJECT

public:
    QStringList availableChannels() override { return {}; }
    QString displayName() override { return {}; }
    QString typeName() override { return mTypeName; }
    void start() override { called.append("start"); }
    void stop() override { called.append("stop"); }
    qint32 interval() const { return mInterval; }

    QStringList called;
};

class tst_DataSource : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void keepsItsCurve();
    void metaObjectListsSignalsThenSlots();
    void slotsReachTheConcreteClass();
    void virtualOperationsKeepTheirOrder();
    void signalArgumentsCanBeQueued();
};

void tst_DataSource::defaults()
{
    tcPlainSource source;
    QCOMPARE(source.curve(), nullptr);
    QCOMPARE(source.interval(), 1000);
    QCOMPARE(source.typeName(), QString());
    QCOMPARE(source.parent(), nullptr);
}

void tst_DataSource::keepsItsCurve()
{
    tcPlainSource source;
    auto* curve = reinterpret_cast<tcStripCurve*>(&source); // never looked into
    source.setCurve(curve);
    QCOMPARE(source.curve(), curve);
    source.setCurve(nullptr);
    QCOMPARE(source.curve(), nullptr);
}

void tst_DataSource::metaObjectListsSignalsThenSlots()
{
    const QMetaObject& meta = tcDataSource::staticMetaObject;
    QStringList methods;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        const QMetaMethod method = meta.method(index);
        QCOMPARE(method.access(), QMetaMethod::Public);
        methods.append((method.methodType() == QMetaMethod::Signal ? "signal " : "slot ")
                       + QString::fromLatin1(method.methodSignature()) + " "
                       + QString::fromLatin1(method.parameterNames().join(',')));
    }
    const QStringList expected{"signal tempReading(qlonglong,double) timestampMs,value",
                               "signal message(QString) txt", "slot start() ", "slot stop() "};
    QCOMPARE(methods, expected);
}

void tst_DataSource::slotsReachTheConcreteClass()
{
    tcPlainSource source;
    QVERIFY(QMetaObject::invokeMethod(&source, "start"));
    QVERIFY(QMetaObject::invokeMethod(&source, "stop"));
    QCOMPARE(source.called, (QStringList{"start", "stop"}));
}

void tst_DataSource::virtualOperationsKeepTheirOrder()
{
#if defined(__GNUC__) && !defined(Q_OS_WIN)
    // A pointer to a virtual operation holds the place of its slot in the table.
    const auto place = [](auto anOperation) {
        quintptr value = 0;
        std::memcpy(&value, &anOperation, sizeof value);
        return value;
    };
    const QVector<quintptr> places{place(&tcDataSource::setCurve),
                                   place(&tcDataSource::curve),
                                   place(&tcDataSource::availableChannels),
                                   place(&tcDataSource::displayName),
                                   place(&tcDataSource::typeName),
                                   place(&tcDataSource::start),
                                   place(&tcDataSource::stop)};
    for (int at = 1; at < places.size(); ++at)
        QCOMPARE(places.at(at), places.at(at - 1) + sizeof(void*));
    QVERIFY(places.first() > place(&QObject::eventFilter));
#else
    QSKIP("The layout of pointers to operations is known for one compiler only.");
#endif
}

void tst_DataSource::signalArgumentsCanBeQueued()
{
    for (const char* type : {"qint64", "double", "QString"})
        QVERIFY2(QMetaType::type(type) != QMetaType::UnknownType, type);
}

QTEST_GUILESS_MAIN(tst_DataSource)
#include "tst_datasource.moc"
