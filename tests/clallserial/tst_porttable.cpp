#include "clallserial/tcPortTable.h"

#include <QTest>

#include <array>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace
{

/// What the scripted back end notes; shared with its ports, which may outlive a look at it.
struct tcNotes
{
    std::atomic<int> opened{0};
    std::atomic<int> closed{0};
    std::atomic<int> interrupted{0};
    std::atomic<int> reading{0};
    std::mutex lock;
    std::condition_variable wake;
};

class tcScriptedPort : public tcSerialPort
{
public:
    explicit tcScriptedPort(tcNotes& arNotes) : mNotes(arNotes) { ++mNotes.opened; }
    ~tcScriptedPort() override { ++mNotes.closed; }

    int32_t setBaudRate(uint32_t) override { return -11001; }
    int32_t supportedBaudRates(uint32_t&) override { return 0; }
    int32_t available(uint32_t& arCount) override
    {
        arCount = 0xFFFFFFFFu;
        return 0;
    }
    /// Blocks until it is interrupted.
    int32_t read(char*, uint32_t&, uint32_t) override
    {
        std::unique_lock<std::mutex> guard(mNotes.lock);
        ++mNotes.reading;
        mNotes.wake.wait(guard, [this] { return mInterrupted; });
        return CL_ERR_INVALID_REFERENCE;
    }
    int32_t readPartial(char*, uint32_t&, uint32_t) override { return CL_ERR_TIMEOUT; }
    int32_t write(const char*, uint32_t&, uint32_t) override { return 0; }
    int32_t flush() override { return 0; }
    void interrupt() override
    {
        const std::lock_guard<std::mutex> guard(mNotes.lock);
        mInterrupted = true;
        ++mNotes.interrupted;
        mNotes.wake.notify_all();
    }

private:
    tcNotes& mNotes;
    bool mInterrupted = false;
};

class tcScriptedBackend : public tcSerialBackend
{
public:
    tcScriptedBackend(tcNotes& arNotes, std::vector<tcEntry>& arEntries)
        : mNotes(arNotes), mEntries(arEntries)
    {
    }

    std::vector<tcEntry> ports() override { return mEntries; }
    std::unique_ptr<tcSerialPort> open(const std::string& acKey, int32_t& arStatus) override
    {
        arStatus = acKey == "refuses" ? -11000 : 0;
        if (acKey == "refuses" || acKey == "says nothing")
            return nullptr;
        return std::make_unique<tcScriptedPort>(mNotes);
    }
    int32_t errorText(const std::string& acManufacturer, int32_t anStatus,
                      std::string& arText) override
    {
        if (acManufacturer != "Maker")
            return CL_ERR_MANU_DOES_NOT_EXIST;
        if (anStatus != -11000)
            return CL_ERR_ERROR_NOT_FOUND;
        arText = std::string(2046, 'x');
        return CL_ERR_NO_ERR;
    }

private:
    tcNotes& mNotes;
    std::vector<tcEntry>& mEntries;
};

} // namespace

class tst_PortTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void nullPointers();
    void noPorts();
    void indicesRunOverAllBackends();
    void indexOutOfRange();
    void portInfo();
    void namesThatDoNotFit_data();
    void namesThatDoNotFit();
    void infoWithoutCountingFirst();
    void openRefused();
    void portInUse();
    void wrongReferences();
    void closedTwice();
    void referencesAreNeverUsedTwice();
    void thousandOpenings();
    void statusesPassThrough();
    void errorTexts_data();
    void errorTexts();
    void errorTextNeedsRoom();
    void closeWaitsForAReaderAndWakesIt();
    void tableGoesWithOpenPorts();
    void callsFromTwoThreads();

private:
    std::unique_ptr<tcPortTable> table();

    std::unique_ptr<tcNotes> mNotes;
    std::vector<tcSerialBackend::tcEntry> mFirst;
    std::vector<tcSerialBackend::tcEntry> mSecond;
};

void tst_PortTable::init()
{
    mNotes = std::make_unique<tcNotes>();
    mFirst = {{"Maker", "A", 3, "a"}, {"Maker", "B", 3, "refuses"}};
    mSecond = {{"Other", "C", 2, "c"}, {"Other", "D", 2, "says nothing"}};
}

std::unique_ptr<tcPortTable> tst_PortTable::table()
{
    std::vector<std::unique_ptr<tcSerialBackend>> backends;
    backends.push_back(std::make_unique<tcScriptedBackend>(*mNotes, mFirst));
    backends.push_back(std::make_unique<tcScriptedBackend>(*mNotes, mSecond));
    return std::make_unique<tcPortTable>(std::move(backends));
}

void tst_PortTable::nullPointers()
{
    const auto ports = table();
    std::array<char, 50> text{};
    uint32_t size = 50;
    uint32_t version = 0;
    char* buffer = text.data();
    QCOMPARE(ports->count(nullptr), CL_ERR_INVALID_PTR);
    QCOMPARE(ports->info(0, nullptr, &size, buffer, &size, &version), CL_ERR_INVALID_PTR);
    QCOMPARE(ports->info(0, buffer, nullptr, buffer, &size, &version), CL_ERR_INVALID_PTR);
    QCOMPARE(ports->info(0, buffer, &size, nullptr, &size, &version), CL_ERR_INVALID_PTR);
    QCOMPARE(ports->info(0, buffer, &size, buffer, nullptr, &version), CL_ERR_INVALID_PTR);
    QCOMPARE(ports->info(0, buffer, &size, buffer, &size, nullptr), CL_ERR_INVALID_PTR);
    QCOMPARE(ports->open(0, nullptr), CL_ERR_INVALID_PTR);
    QCOMPARE(ports->errorText("Maker", 0, nullptr, &size), CL_ERR_INVALID_PTR);
    QCOMPARE(ports->errorText("Maker", 0, buffer, nullptr), CL_ERR_INVALID_PTR);
    QCOMPARE(ports->errorText(nullptr, -11000, buffer, &size), CL_ERR_INVALID_PTR);
    QCOMPARE(ports->errorText(nullptr, CL_ERR_TIMEOUT, buffer, &size), CL_ERR_NO_ERR);
}

void tst_PortTable::noPorts()
{
    tcPortTable none({});
    uint32_t count = 7;
    QCOMPARE(none.count(&count), CL_ERR_NO_ERR);
    QCOMPARE(count, 0u);
    hSerRef ref = nullptr;
    QCOMPARE(none.open(0, &ref), CL_ERR_INVALID_INDEX);
}

void tst_PortTable::indicesRunOverAllBackends()
{
    const auto ports = table();
    uint32_t count = 0;
    QCOMPARE(ports->count(&count), CL_ERR_NO_ERR);
    QCOMPARE(count, 4u);
    QByteArray ids;
    for (uint32_t index = 0; index < count; ++index) {
        std::array<char, 50> maker{};
        std::array<char, 50> id{};
        uint32_t makerSize = 50;
        uint32_t idSize = 50;
        uint32_t version = 0;
        QCOMPARE(ports->info(index, maker.data(), &makerSize, id.data(), &idSize, &version),
                 CL_ERR_NO_ERR);
        ids += id.data();
    }
    QCOMPARE(ids, QByteArray("ABCD"));
    mFirst.clear(); // grabber gone: seen when the ports are counted anew, not before
    std::array<char, 50> text{};
    uint32_t size = 50;
    uint32_t other = 50;
    uint32_t version = 0;
    QCOMPARE(ports->info(3, text.data(), &size, text.data(), &other, &version), CL_ERR_NO_ERR);
    QCOMPARE(ports->count(&count), CL_ERR_NO_ERR);
    QCOMPARE(count, 2u);
    QCOMPARE(ports->info(3, text.data(), &size, text.data(), &other, &version),
             CL_ERR_INVALID_INDEX);
}

void tst_PortTable::indexOutOfRange()
{
    const auto ports = table();
    std::array<char, 50> text{};
    uint32_t size = 50;
    uint32_t version = 0;
    hSerRef ref = nullptr;
    for (const uint32_t index : {4u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        QCOMPARE(ports->open(index, &ref), CL_ERR_INVALID_INDEX);
        QCOMPARE(ports->info(index, text.data(), &size, text.data(), &size, &version),
                 CL_ERR_INVALID_INDEX);
    }
    QVERIFY(!ref);
}

void tst_PortTable::portInfo()
{
    const auto ports = table();
    std::array<char, 50> maker{};
    std::array<char, 50> id{};
    uint32_t makerSize = 50;
    uint32_t idSize = 50;
    uint32_t version = 0;
    QCOMPARE(ports->info(2, maker.data(), &makerSize, id.data(), &idSize, &version),
             CL_ERR_NO_ERR);
    QCOMPARE(QByteArray(maker.data()), QByteArray("Other"));
    QCOMPARE(makerSize, 6u); // bytes written, the NUL among them
    QCOMPARE(QByteArray(id.data()), QByteArray("C"));
    QCOMPARE(idSize, 2u);
    QCOMPARE(version, 2u);
}

void tst_PortTable::namesThatDoNotFit_data()
{
    QTest::addColumn<int>("maker");
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("status");
    QTest::newRow("49 bytes fit") << 49 << 49 << CL_ERR_NO_ERR;
    QTest::newRow("50 bytes in the maker") << 50 << 1 << CL_ERR_BUFFER_TOO_SMALL;
    QTest::newRow("50 bytes in the port") << 1 << 50 << CL_ERR_BUFFER_TOO_SMALL;
    QTest::newRow("both far too long") << 300 << 400 << CL_ERR_BUFFER_TOO_SMALL;
}

void tst_PortTable::namesThatDoNotFit()
{
    QFETCH(int, maker);
    QFETCH(int, id);
    QFETCH(int, status);
    mFirst = {{std::string(size_t(maker), 'm'), std::string(size_t(id), 'i'), 3, "a"}};
    const auto ports = table();
    std::array<char, 60> makerText{};
    std::array<char, 60> idText{};
    makerText.fill('#');
    idText.fill('#');
    uint32_t makerSize = 50;
    uint32_t idSize = 50;
    uint32_t version = 0;
    QCOMPARE(ports->info(0, makerText.data(), &makerSize, idText.data(), &idSize, &version),
             status);
    QCOMPARE(makerSize, uint32_t(maker + 1)); // what is needed
    QCOMPARE(idSize, uint32_t(id + 1));
    QCOMPARE(makerText[50], '#'); // nothing beyond the buffer
    QCOMPARE(idText[50], '#');
}

void tst_PortTable::infoWithoutCountingFirst()
{
    const auto ports = table();
    hSerRef ref = nullptr;
    QCOMPARE(ports->open(0, &ref), CL_ERR_NO_ERR);
    QVERIFY(ref);
}

void tst_PortTable::openRefused()
{
    const auto ports = table();
    hSerRef ref = nullptr;
    QCOMPARE(ports->open(1, &ref), -11000); // the maker's own status
    QVERIFY(!ref);
    QCOMPARE(ports->open(3, &ref), CL_ERR_PORT_IN_USE); // no port and no reason
    QVERIFY(!ref);
}

void tst_PortTable::portInUse()
{
    const auto ports = table();
    hSerRef ref = nullptr;
    hSerRef second = nullptr;
    QCOMPARE(ports->open(0, &ref), CL_ERR_NO_ERR);
    QCOMPARE(ports->open(0, &second), CL_ERR_PORT_IN_USE);
    QCOMPARE(ports->open(2, &second), CL_ERR_NO_ERR); // another port
    ports->close(ref);
    QCOMPARE(ports->open(0, &ref), CL_ERR_NO_ERR);
}

void tst_PortTable::wrongReferences()
{
    const auto ports = table();
    int local = 0;
    for (hSerRef wrong : {hSerRef(nullptr), hSerRef(&local), hSerRef(~uintptr_t(0))}) {
        ports->close(wrong);
        QCOMPARE(ports->use(wrong, [](tcSerialPort&) { return 0; }), CL_ERR_INVALID_REFERENCE);
    }
}

void tst_PortTable::closedTwice()
{
    const auto ports = table();
    hSerRef ref = nullptr;
    QCOMPARE(ports->open(0, &ref), CL_ERR_NO_ERR);
    ports->close(ref);
    ports->close(ref);
    QCOMPARE(mNotes->closed.load(), 1);
    QCOMPARE(ports->use(ref, [](tcSerialPort&) { return 0; }), CL_ERR_INVALID_REFERENCE);
}

void tst_PortTable::referencesAreNeverUsedTwice()
{
    const auto ports = table();
    hSerRef first = nullptr;
    hSerRef second = nullptr;
    QCOMPARE(ports->open(0, &first), CL_ERR_NO_ERR);
    ports->close(first);
    QCOMPARE(ports->open(0, &second), CL_ERR_NO_ERR);
    QVERIFY(first != second);
    ports->close(first); // stale: must not close the new one
    QCOMPARE(ports->use(second, [](tcSerialPort&) { return 0; }), CL_ERR_NO_ERR);
}

void tst_PortTable::thousandOpenings()
{
    const auto ports = table();
    for (int turn = 0; turn < 1000; ++turn) {
        hSerRef ref = nullptr;
        QCOMPARE(ports->open(0, &ref), CL_ERR_NO_ERR);
        ports->close(ref);
    }
    QCOMPARE(mNotes->opened.load(), 1000);
    QCOMPARE(mNotes->closed.load(), 1000);
}

void tst_PortTable::statusesPassThrough()
{
    const auto ports = table();
    hSerRef ref = nullptr;
    QCOMPARE(ports->open(0, &ref), CL_ERR_NO_ERR);
    QCOMPARE(ports->use(ref, [](tcSerialPort& arPort) { return arPort.setBaudRate(16); }),
             -11001);
    uint32_t count = 0;
    QCOMPARE(ports->use(ref, [&](tcSerialPort& arPort) { return arPort.available(count); }),
             CL_ERR_NO_ERR);
    QCOMPARE(count, 0xFFFFFFFFu);
}

void tst_PortTable::errorTexts_data()
{
    QTest::addColumn<QByteArray>("maker");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("status");
    for (const int code : {0, -10001, -10002, -10003, -10004, -10005, -10006, -10007, -10008,
                           -10009, -10010, -10011, -10098, -10099}) {
        QTest::addRow("shared text %d", code) << QByteArray("Maker") << code << CL_ERR_NO_ERR;
        QTest::addRow("%d of nobody", code) << QByteArray("Nobody") << code << CL_ERR_NO_ERR;
    }
    QTest::newRow("own text") << QByteArray("Maker") << -11000 << CL_ERR_NO_ERR;
    QTest::newRow("unknown code") << QByteArray("Maker") << -12345 << CL_ERR_ERROR_NOT_FOUND;
    QTest::newRow("unknown maker")
        << QByteArray("Nobody") << -11000 << CL_ERR_MANU_DOES_NOT_EXIST;
}

void tst_PortTable::errorTexts()
{
    QFETCH(QByteArray, maker);
    QFETCH(int, code);
    QFETCH(int, status);
    const auto ports = table();
    std::array<char, 2048> text{};
    uint32_t size = 2047;
    QCOMPARE(ports->errorText(maker.constData(), code, text.data(), &size), status);
    QCOMPARE(text[0] != '\0', status == CL_ERR_NO_ERR);
    if (status == CL_ERR_NO_ERR)
        QCOMPARE(size, uint32_t(qstrlen(text.data()) + 1));
}

/// 2046 characters and their NUL fit into 2047 bytes exactly.
void tst_PortTable::errorTextNeedsRoom()
{
    const auto ports = table();
    std::array<char, 2048> text{};
    uint32_t size = 2047;
    QCOMPARE(ports->errorText("Maker", -11000, text.data(), &size), CL_ERR_NO_ERR);
    QCOMPARE(size, 2047u);
    size = 2046;
    QCOMPARE(ports->errorText("Maker", -11000, text.data(), &size), CL_ERR_BUFFER_TOO_SMALL);
    QCOMPARE(size, 2047u);
    size = 0;
    QCOMPARE(ports->errorText("Maker", 0, text.data(), &size), CL_ERR_BUFFER_TOO_SMALL);
}

void tst_PortTable::closeWaitsForAReaderAndWakesIt()
{
    const auto ports = table();
    hSerRef ref = nullptr;
    QCOMPARE(ports->open(0, &ref), CL_ERR_NO_ERR);
    int32_t status = 0;
    int closedWhenRead = -1;
    std::thread reader([&] {
        status = ports->use(ref, [](tcSerialPort& arPort) {
            uint32_t size = 1;
            return arPort.read(nullptr, size, 0);
        });
        closedWhenRead = mNotes->interrupted;
    });
    QTRY_COMPARE(mNotes->reading.load(), 1);
    ports->close(ref);
    QCOMPARE(mNotes->closed.load(), 1);
    reader.join();
    QCOMPARE(status, CL_ERR_INVALID_REFERENCE);
    QCOMPARE(closedWhenRead, 1);
}

void tst_PortTable::tableGoesWithOpenPorts()
{
    auto ports = table();
    hSerRef ref = nullptr;
    QCOMPARE(ports->open(0, &ref), CL_ERR_NO_ERR);
    ports.reset();
    QCOMPARE(mNotes->closed.load(), 1);
}

void tst_PortTable::callsFromTwoThreads()
{
    const auto ports = table();
    const auto work = [&](uint32_t anIndex) {
        for (int turn = 0; turn < 300; ++turn) {
            uint32_t count = 0;
            ports->count(&count);
            hSerRef ref = nullptr;
            if (ports->open(anIndex, &ref) != CL_ERR_NO_ERR)
                continue;
            ports->use(ref, [](tcSerialPort& arPort) {
                uint32_t size = 0;
                return arPort.write("", size, 0);
            });
            std::array<char, 64> text{};
            uint32_t size = 64;
            ports->errorText("Maker", -10004, text.data(), &size);
            ports->close(ref);
        }
    };
    std::thread one(work, 0);
    std::thread two(work, 2);
    std::thread three(work, 0); // fights the first for its port
    one.join();
    two.join();
    three.join();
    QCOMPARE(mNotes->opened.load(), mNotes->closed.load());
    // The second had its port to itself. How often the others got theirs is chance: whoever
    // holds it may be made to wait while the other is refused again and again.
    QVERIFY(mNotes->opened > 300);
}

QTEST_GUILESS_MAIN(tst_PortTable)
#include "tst_porttable.moc"
