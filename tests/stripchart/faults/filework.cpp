// Writes chart files in a process of its own, so that calls in it can be made to fail and the
// process itself be killed.
//
//   filework save <file>          a large chart file, whole or not at all; 0 when it said done
//   filework log <file> <ticks>   one row for each tick, each tick's number on standard output
//                                 once its row is said to be written; 0 when nothing was lost
//   filework endless <file> <first>   the same until killed, with fifteen curves

#include "stripchart/logic/tcCsvWriter.h"
#include "stripchart/tcLogWriter.h"
#include "stripchart/tcStripCurve.h"
#include "widgets/tcWholeFile.h"

#include <QGuiApplication>

#include <cstdio>

namespace
{

constexpr int cRows = 60000;

int save(const QString& acPath)
{
    std::vector<double> times;
    std::vector<double> values;
    for (int i = 0; i < cRows; ++i) {
        times.push_back(1731681000000.0 + i);
        values.push_back(i);
    }
    tcWholeFile file(acPath);
    if (!file.open())
        return 1;
    tcCsvWriter writer(file.device());
    writer.header(tcCsvWriter::savedTimeTitle(), {"A"});
    tcRowMerge merge({{times.data(), values.data(), cRows}});
    writer.rows(merge);
    return writer.flush() && file.commit() ? 0 : 1;
}

void confirm(qint64 anTick)
{
    std::printf("%lld\n", static_cast<long long>(anTick));
    std::fflush(stdout);
}

int log(const QString& acPath, int anTicks)
{
    tcStripCurve curve(0);
    curve.setTitle(QStringLiteral("A"));
    tcLogWriter writer(acPath);
    if (!writer.open())
        return 1;
    for (int tick = 1; tick <= anTicks; ++tick) {
        curve.addSample(tick, tick);
        // Two minutes a tick, so that each is synced.
        if (writer.write({&curve}, tick * 120000LL))
            confirm(tick);
    }
    return writer.close() ? 0 : 1;
}

int endless(const QString& acPath, qint64 anFirst)
{
    std::vector<std::unique_ptr<tcStripCurve>> curves;
    QVector<tcStripCurve*> all;
    for (int i = 0; i < 15; ++i) {
        curves.push_back(std::make_unique<tcStripCurve>(i));
        curves.back()->setTitle(QStringLiteral("Curve %1").arg(i));
        all << curves.back().get();
    }
    tcLogWriter writer(acPath);
    if (!writer.open())
        return 1;
    for (qint64 tick = anFirst;; ++tick) {
        for (int i = 0; i < 15; ++i) {
            if ((tick + i) % 4)
                all.at(i)->addSample(tick, static_cast<double>(tick * 16 + i) / 16.0);
        }
        if (writer.write(all, tick))
            confirm(tick);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.value(1) == QLatin1String("save"))
        return save(arguments.value(2));
    if (arguments.value(1) == QLatin1String("log"))
        return log(arguments.value(2), arguments.value(3).toInt());
    if (arguments.value(1) == QLatin1String("endless"))
        return endless(arguments.value(2), arguments.value(3).toLongLong());
    return 2;
}
