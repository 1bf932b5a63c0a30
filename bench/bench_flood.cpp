// A camera that sends as fast as the line takes it: one megabyte of replies through a basic
// panel. The window must never be away for 200 ms and nothing may be lost. What the same text
// costs when it is put into a bare view in the same pieces is the floor.
#include "camlink/tcVexaR60.h"
#include "tests/support/tcFakeSerial.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

namespace
{

constexpr int cBytes = 1 << 20;
constexpr int cPortion = 4096; ///< what a driver hands over at a time
constexpr int cBlock = 128;    ///< what the panel reads at a time
constexpr int cRuns = 3;
constexpr int cPulseMs = 5;
constexpr double cLongestGapMs = 200.0;
constexpr int cGiveUpMs = 300000;

QByteArray replies()
{
    QByteArray bytes;
    for (int number = 0; bytes.size() < cBytes; ++number)
        bytes += "<SENS " + QByteArray::number(number) + "><ACK><24.50>\r\n";
    return bytes;
}

double cpuMs()
{
    return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

struct tcResult
{
    double longestGapMs = 0.0; ///< between two passes of the event loop
    double cpu = 0.0;          ///< ms
    bool complete = false;
};

/// Runs the event loop until nothing more waits, and notes how long it was ever away.
void runLoop(tcResult& arResult, const std::function<bool()>& acDone)
{
    QTimer pulse; // without it the loop would sleep until the panel's next poll
    pulse.start(cPulseMs);
    QElapsedTimer total;
    QElapsedTimer gap;
    total.start();
    gap.start();
    while (!acDone() && total.elapsed() < cGiveUpMs) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        arResult.longestGapMs
            = std::max(arResult.longestGapMs, static_cast<double>(gap.nsecsElapsed()) / 1e6);
        gap.restart();
    }
}

tcResult throughPanel(const QByteArray& acBytes)
{
    tcFakeSerial& line = tcFakeSerial::instance();
    line.reset();
    tcVexaR60 panel;
    panel.resize(700, 420);
    panel.show();
    const auto opened = tcSerialLink::open(0);
    panel.openPort(opened.ref);
    for (int at = 0; at < acBytes.size(); at += cPortion)
        line.receive(acBytes.mid(at, cPortion));
    auto* view = panel.findChild<QPlainTextEdit*>("PortRespPTE");
    const QString expected = QString::fromLatin1(acBytes).remove('\r');
    tcResult result;
    const double begin = cpuMs();
    runLoop(result, [&] {
        return line.waiting() == 0 && view->document()->characterCount() > expected.size();
    });
    result.cpu = cpuMs() - begin;
    result.complete = view->toPlainText() == expected && line.misuse.isEmpty();
    panel.closePort();
    tcSerialLink::close(opened.ref);
    return result;
}

double intoBareView(const QByteArray& acBytes)
{
    QPlainTextEdit view;
    view.resize(700, 420);
    view.show();
    const double begin = cpuMs();
    for (int at = 0; at < acBytes.size(); at += cBlock) {
        view.insertPlainText(QString::fromLatin1(acBytes.mid(at, cBlock)).remove('\r'));
        if (at % cPortion == 0)
            QCoreApplication::processEvents();
    }
    return cpuMs() - begin;
}

double median(QVector<double> aValues)
{
    std::sort(aValues.begin(), aValues.end());
    return aValues.at(aValues.size() / 2);
}

const char* mark(bool abPassed)
{
    return abPassed ? "pass" : "MISSED";
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QByteArray bytes = replies();
    QVector<double> ratios;
    double gap = 0.0;
    bool complete = true;
    for (int run = 0; run < cRuns; ++run) {
        const tcResult panel = throughPanel(bytes);
        const double floor = intoBareView(bytes);
        ratios.append(panel.cpu / floor);
        gap = std::max(gap, panel.longestGapMs);
        complete = complete && panel.complete;
        std::printf("  run %d: panel %.0f ms CPU, bare view %.0f ms, longest gap %.0f ms\n",
                    run + 1, panel.cpu, floor, panel.longestGapMs);
    }
    std::printf("flood of %d bytes through a basic panel:\n", bytes.size());
    std::printf("  longest gap of the event loop %.0f ms, at most %.0f wanted: %s\n", gap,
                cLongestGapMs, mark(gap <= cLongestGapMs));
    std::printf("  everything shown, in order, once: %s\n", mark(complete));
    std::printf("  CPU against the bare view, median: %.2f\n", median(ratios));
    return gap <= cLongestGapMs && complete ? 0 : 1;
}
