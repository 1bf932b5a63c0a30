// What a camera's replies cost: parsing, the log, one tick of the panel, and how long the
// window waits while a line of 921600 baud never pauses.
//
//   bench_receive [parsing] [log] [text] [hex] [flood]
#include "camera/logic/tcReply.h"
#include "camera/logic/tcRxAssembler.h"
#include "camera/tcLogView.h"
#include "camera/tcVexaK40.h"
#include "tests/support/tcFakeSerial.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTextCodec>
#include <QTimer>
#include <QVector>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>

namespace
{

constexpr int cTickMs = 20;
constexpr int cSlowLine = 11520; ///< bytes a second at 115200 baud
constexpr int cFastLine = 92160; ///< at 921600

qint64 sTraced = 0; ///< replies that the panel traced

void countTraces(QtMsgType, const QMessageLogContext&, const QString& acText)
{
    sTraced += acText.contains(QLatin1String("LINE: ")) ? 1 : 0;
}

/// Milliseconds of CPU, of this program alone.
double cpuMs()
{
    return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

double median(QVector<double> aValues)
{
    std::sort(aValues.begin(), aValues.end());
    return aValues.at(aValues.size() / 2);
}

/// So many bytes, and a little more, of whole replies of all kinds.
QByteArray mixedReplies(int anBytes, int* apReplies = nullptr)
{
    static const QList<QByteArray> kinds{"<GEXP><ACK><500>\r\n",
                                         "<SENS 3><ACK><21.75>\r\n",
                                         "<SROI 0 0 9 9><NACK>\r\n",
                                         "<GTEC><ACK><ON><24.0>\r\n",
                                         "<SENS 12><ACK><1.20>\r\n",
                                         "<TEMP 0><ACK><21.1><22.2><23.3><24.4>\r\n",
                                         "<GROI><ACK><0><0><2048><1088>\r\n"};
    QByteArray stream;
    int replies = 0;
    while (stream.size() < anBytes)
        stream += kinds.at(replies++ % kinds.size());
    if (apReplies)
        *apReplies = replies;
    return stream;
}

void benchParsing()
{
    const QByteArray stream = mixedReplies(10 * cSlowLine); // ten seconds of the line
    constexpr int cPiece = cSlowLine * cTickMs / 1000;
    QVector<double> shares;
    qint64 sum = 0;
    for (int run = 0; run < 9; ++run) {
        const std::unique_ptr<QTextDecoder> decoder(
            QTextCodec::codecForLocale()->makeDecoder());
        tcRxAssembler assembler;
        const double before = cpuMs();
        for (int at = 0; at < stream.size(); at += cPiece) {
            assembler.add(decoder->toUnicode(stream.mid(at, cPiece)));
            while (const auto reply = assembler.nextReply()) {
                const QString text = tcReply::normalised(*reply);
                sum += tcReply::sensorReading(text) ? 1 : 0;
                sum += tcReply::coolerState(text) ? 1 : 0;
            }
        }
        shares.append((cpuMs() - before) / 10000.0 * 100.0);
    }
    std::printf("parsing: %.3f %% of the line's time at 115200 baud (%lld)\n", median(shares),
                static_cast<long long>(sum));
}

/// Microseconds of one entry, its paint included, with so much text in a log that is shown.
double appendCost(int anHeld)
{
    QPlainTextEdit view;
    view.resize(450, 160);
    view.setUndoRedoEnabled(false);
    QByteArray held = mixedReplies(anHeld);
    view.setPlainText(QString::fromLatin1(held.replace("\r", "")));
    auto* log = new tcLogView(&view);
    view.show();
    view.moveCursor(QTextCursor::End);
    QCoreApplication::processEvents();
    QVector<double> costs;
    for (int run = 0; run < 9; ++run) {
        constexpr int cEntries = 200;
        const double before = cpuMs();
        for (int i = 0; i < cEntries; ++i) {
            log->append(QStringLiteral("12:34:56.789: <GEXP><ACK><500>\n"), false);
            log->applyLimit(5000);
            log->showCursor();
            QCoreApplication::processEvents();
        }
        costs.append((cpuMs() - before) * 1000.0 / cEntries);
    }
    return median(costs);
}

void benchLog()
{
    const double few = appendCost(5000);
    for (const int megabytes : {5, 10}) {
        const double many = appendCost(megabytes * 1000000);
        std::printf("log entry: %.1f us with 5 kB, %.1f us with %d MB, ratio %.2f\n", few, many,
                    megabytes, many / few);
    }
}

/// A shown panel on an open port.
struct tcShownPanel
{
    explicit tcShownPanel(int anTab) : panel(teCmvType::Cmv2000TEC)
    {
        line.reset();
        panel.resize(712, 390);
        panel.findChild<QTabWidget*>()->setCurrentIndex(anTab);
        panel.show();
        ref = tcSerialLink::open(0).ref;
        panel.openPort(ref);
        QCoreApplication::processEvents();
    }
    ~tcShownPanel()
    {
        panel.closePort();
        tcSerialLink::close(ref);
    }

    tcFakeSerial& line = tcFakeSerial::instance();
    tcVexaK40 panel;
    tcSerialLink::tcRef ref = 0;
};

/// The bytes of each tick come at once and with the clock, as a grabber hands them on, while
/// the panel runs by itself. Whole seconds are measured, so that nothing that is put off is
/// left out.
void benchTick(const char* acName, int anBytesPerSecond, int anTab)
{
    tcShownPanel shown(anTab);
    const int perTick = anBytesPerSecond * cTickMs / 1000;
    const QByteArray stream = mixedReplies(anBytesPerSecond + perTick);
    QVector<double> shares;
    for (int second = 0; second < 7; ++second) {
        int at = 0;
        QTimer feed;
        QObject::connect(&feed, &QTimer::timeout, [&] {
            shown.line.calls.clear();
            shown.line.receive(stream.mid(at, perTick));
            at += perTick;
        });
        feed.setTimerType(Qt::PreciseTimer);
        feed.start(cTickMs);
        QElapsedTimer clock;
        clock.start();
        const double before = cpuMs();
        while (at < anBytesPerSecond)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        feed.stop();
        if (second > 0) // the first one makes the chart and meets each letter anew
            shares.append((cpuMs() - before) / static_cast<double>(clock.elapsed()) * 100.0);
    }
    std::printf("tick at %s, %s shown: %.1f %% of its time\n", acName, anTab ? "hex" : "text",
                median(shares));
}

/// Bytes come with the clock, as from a line that never pauses.
void benchFlood(int anSeconds)
{
    tcShownPanel shown(0);
    int replies = 0;
    const QByteArray stream = mixedReplies(anSeconds * cFastLine, &replies);
    qint64 sent = 0;
    QElapsedTimer clock;
    shown.line.onCall = [&](const tcFakeSerial::tcCall& acCall) {
        shown.line.calls.clear();
        if (acCall.function != "clGetNumBytesAvail")
            return;
        const qint64 due
            = std::min<qint64>(stream.size(), clock.nsecsElapsed() * cFastLine / 1000000000);
        if (due > sent)
            shown.line.receive(stream.mid(int(sent), int(due - sent)));
        sent = due;
    };
    QElapsedTimer sinceTurn;
    double longest = 0;
    double longestWork = 0; // the rest is the computer's other work
    double workBefore = cpuMs();
    QTimer turns;
    QObject::connect(&turns, &QTimer::timeout, [&] {
        longest = std::max(longest, static_cast<double>(sinceTurn.nsecsElapsed()) / 1e6);
        longestWork = std::max(longestWork, cpuMs() - workBefore);
        sinceTurn.start();
        workBefore = cpuMs();
    });
    turns.setTimerType(Qt::PreciseTimer);
    turns.start(1);
    sTraced = 0;
    clock.start();
    sinceTurn.start();
    const double before = cpuMs();
    // On a computer that is busy with other things the end takes a little longer.
    while (sTraced < replies && clock.elapsed() < anSeconds * 5000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const double cpu = (cpuMs() - before) / (anSeconds * 1000.0) * 100.0;
    shown.line.onCall = nullptr;
    std::printf("921600 baud for %d s: longest gap of the event loop %.1f ms, at most %.1f ms "
                "of work at "
                "a time, %.0f %% of a core, %lld of %d replies\n",
                anSeconds, longest, longestWork, cpu, static_cast<long long>(sTraced), replies);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    qInstallMessageHandler(countTraces);
    const QStringList wanted = QApplication::arguments().mid(1);
    const auto isWanted = [&](const char* acPart) {
        return wanted.isEmpty() || wanted.contains(QLatin1String(acPart));
    };
    if (isWanted("parsing"))
        benchParsing();
    if (isWanted("log"))
        benchLog();
    for (const int tab : {0, 1}) {
        if (!isWanted(tab == 0 ? "text" : "hex"))
            continue;
        benchTick("115200 baud", cSlowLine, tab);
        benchTick("921600 baud", cFastLine, tab);
    }
    if (isWanted("flood"))
        benchFlood(10);
    return 0;
}
