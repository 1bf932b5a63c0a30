// Hex dump of what the panel holds by default: with a table, against string arguments.
#include "app/logic/tcHexDump.h"

#include <QElapsedTimer>
#include <QVector>

#include <algorithm>
#include <cstdio>

namespace
{

constexpr int cBytes = 5000; ///< the panel's default limit
constexpr int cRuns = 7;

QString withArguments(const QByteArray& acBytes)
{
    QString dump;
    for (int row = 0; row < acBytes.size(); row += 16) {
        dump += QStringLiteral("%1 ").arg(row & 0xFF, 8, 16, QLatin1Char('0'));
        QString characters;
        for (int at = row; at < row + 16; ++at) {
            if (at >= acBytes.size()) {
                dump += QStringLiteral("   ");
                continue;
            }
            const auto byte = static_cast<uchar>(acBytes.at(at));
            dump += QStringLiteral("%1 ").arg(byte, 2, 16, QLatin1Char('0'));
            characters += byte >= 0x20 && byte <= 0x7E ? QChar(byte) : QChar('.');
        }
        dump += ' ' + characters + '\n';
    }
    return dump;
}

/// Microseconds per call, median of the runs.
template <typename Function>
double median(int anCalls, Function aFunction)
{
    QVector<double> times;
    for (int run = 0; run < cRuns; ++run) {
        QElapsedTimer timer;
        timer.start();
        for (int call = 0; call < anCalls; ++call)
            aFunction();
        times.append(static_cast<double>(timer.nsecsElapsed()) / 1000.0 / anCalls);
    }
    std::sort(times.begin(), times.end());
    return times.at(cRuns / 2);
}

} // namespace

int main()
{
    QByteArray bytes;
    for (int i = 0; i < cBytes; ++i)
        bytes.append(static_cast<char>((i * 31) & 0xFF));
    qint64 sum = 0; // keeps the work from being optimised away
    const double table = median(2000, [&] { sum += tcHexDump::text(bytes).size(); });
    const double arguments = median(50, [&] { sum += withArguments(bytes).size(); });
    std::printf("hex dump of %d bytes: table %.1f us, string arguments %.1f us, ratio %.1f "
                "(%lld)\n",
                cBytes, table, arguments, arguments / table, static_cast<long long>(sum));
    return 0;
}
