// Saving and loading chart files: one cursor for each curve and numbers through integers,
// against a plain writer and reader of streams and strings, pandas and R's data.table where
// they are installed. CPU seconds, all contenders in one run.
//
//   bench_csv [rows]    100000 rows of fifteen curves unless told otherwise
#include "bench/tcGoals.h"
#include "stripchart/logic/tcCsvReader.h"
#include "stripchart/logic/tcCsvWriter.h"
#include "stripchart/tcStripCurve.h"

#include <QFile>
#include <QGuiApplication>
#include <QMap>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextStream>

#include <cmath>

namespace
{

constexpr int cCurves = 15;
constexpr int cRuns = 5;
constexpr qint64 cStart = 1731681000000;

struct tcSeries
{
    std::vector<double> times;
    std::vector<double> values;
};
using tcData = std::vector<tcSeries>;

/// Readings as sensors send them, all curves at the same times or each at its own.
tcData makeData(int anRows, bool abShared)
{
    tcData data(cCurves);
    for (int c = 0; c < cCurves; ++c) {
        for (int i = 0; i < anRows; ++i) {
            const qint64 step = abShared ? qint64(i) * 1000 : qint64(i) * 1000 + c;
            const double value = 20.0 + c + 5.0 * std::sin(i / 500.0 + c);
            data[size_t(c)].times.push_back(double(cStart + step));
            data[size_t(c)].values.push_back(std::round(value * 1000.0) / 1000.0);
        }
    }
    return data;
}

QStringList titles()
{
    QStringList all;
    for (int c = 0; c < cCurves; ++c)
        all << QStringLiteral("Sensor %1").arg(c);
    return all;
}

void saveFast(const tcData& acData, const QString& acPath)
{
    QFile file(acPath);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        qFatal("cannot write");
    std::vector<tcColumnView> views;
    for (const tcSeries& series : acData)
        views.push_back(
            {series.times.data(), series.values.data(), qint64(series.times.size())});
    tcCsvWriter writer(file);
    writer.header(tcCsvWriter::savedTimeTitle(), titles());
    tcRowMerge merge(views);
    writer.rows(merge);
    if (!writer.flush())
        qFatal("cannot write");
}

void savePlain(const tcData& acData, const QString& acPath)
{
    QFile file(acPath);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write");
    QTextStream stream(&file);
    stream << "ms since epoch,";
    for (const QString& title : titles())
        stream << title << ",";
    stream << "\n";
    QMap<qint64, QVector<QPair<int, double>>> rows;
    for (int c = 0; c < cCurves; ++c) {
        const tcSeries& series = acData[size_t(c)];
        for (size_t i = 0; i < series.times.size(); ++i)
            rows[qint64(series.times[i])].append({c, series.values[i]});
    }
    for (auto row = rows.cbegin(); row != rows.cend(); ++row) {
        QStringList fields;
        fields << QString::number(row.key());
        for (int c = 0; c < cCurves; ++c)
            fields << QString();
        for (const auto& sample : row.value())
            fields[sample.first + 1] = QString::number(sample.second, 'f', 3);
        stream << fields.join(',') << "\n";
    }
}

qint64 loadFast(const QString& acPath, bool abIntoCurves)
{
    QFile file(acPath);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        qFatal("cannot read");
    tcCsvReader reader(file);
    if (!reader.readHeader() || !reader.readRows())
        qFatal("cannot read");
    qint64 samples = 0;
    for (size_t c = 0; c < reader.columnCount(); ++c) {
        const tcColumnView view = reader.samples(c);
        samples += view.count;
        if (!abIntoCurves)
            continue;
        tcStripCurve curve(static_cast<int>(c));
        curve.setSampleCount(int(view.count));
        curve.addSamples(view.times, view.values, int(view.count));
        reader.release(c);
    }
    return samples;
}

qint64 loadPlain(const QString& acPath)
{
    QFile file(acPath);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read");
    QTextStream stream(&file);
    const QStringList header = stream.readLine().split(',', Qt::SkipEmptyParts);
    QVector<QVector<double>> times(header.size() - 1);
    QVector<QVector<double>> values(header.size() - 1);
    while (!stream.atEnd()) {
        const QStringList fields = stream.readLine().trimmed().split(',');
        if (fields.size() < 2)
            continue;
        const qint64 time = fields.first().toLongLong();
        for (int c = 1; c < fields.size(); ++c) {
            if (fields.at(c).isEmpty())
                continue;
            times[c - 1].append(double(time));
            values[c - 1].append(fields.at(c).toDouble());
        }
    }
    qint64 samples = 0;
    for (const auto& column : qAsConst(values))
        samples += column.size();
    return samples;
}

/// What a script printed: CPU seconds to save and to load; zeros where it can't run.
struct tcOthers
{
    double save = 0;
    double load = 0;
};

tcOthers run(const QString& acProgram, const QStringList& acArguments)
{
    QString path = QStandardPaths::findExecutable(acProgram, {QStringLiteral("/usr/bin")});
    if (path.isEmpty())
        path = QStandardPaths::findExecutable(acProgram);
    QProcess process;
    process.start(path, acArguments);
    if (path.isEmpty() || !process.waitForFinished(-1) || process.exitCode() != 0)
        return {};
    const QList<QByteArray> words = process.readAllStandardOutput().simplified().split(' ');
    return {words.value(0).toDouble(), words.value(1).toDouble()};
}

tcOthers pandas(const QString& acIn, const QString& acOut)
{
    const char* script = R"(
import sys, time, pandas
def median(work):
    taken = []
    for i in range(3):
        start = time.process_time()
        work()
        taken.append(time.process_time() - start)
    return sorted(taken)[1]
frame = pandas.read_csv(sys.argv[1], index_col=0)
frame = frame.iloc[:, :15]
print(median(lambda: frame.to_csv(sys.argv[2], float_format='%.3f')),
      median(lambda: pandas.read_csv(sys.argv[1])))
)";
    return run(QStringLiteral("python3"),
               {QStringLiteral("-c"), QString::fromLatin1(script), acIn, acOut});
}

tcOthers dataTable(const QString& acIn, const QString& acOut)
{
    const char* script = R"(
suppressMessages(library(data.table)); setDTthreads(1)
args <- commandArgs(TRUE)
spent <- function(work) { t <- system.time(work()); t[[1]] + t[[2]] }
frame <- fread(args[1], fill = TRUE)
cat(median(replicate(3, spent(function() fwrite(frame, args[2])))),
    median(replicate(3, spent(function() fread(args[1], fill = TRUE)))))
)";
    return run(QStringLiteral("Rscript"),
               {QStringLiteral("-e"), QString::fromLatin1(script), acIn, acOut});
}

bool sameBytes(const QString& acA, const QString& acB)
{
    QFile a(acA);
    QFile b(acB);
    return a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly)
        && a.readAll() == b.readAll();
}

void compare(const char* apName, int anRows, bool abShared, tcGoals& arGoals)
{
    const QTemporaryDir folder;
    const QString fast = folder.filePath(QStringLiteral("fast.csv"));
    const QString plain = folder.filePath(QStringLiteral("plain.csv"));
    const QString other = folder.filePath(QStringLiteral("other.csv"));
    const tcData data = makeData(anRows, abShared);
    const double save = tcGoals::median(cRuns, 1, [&] { saveFast(data, fast); });
    const double savePlainly = tcGoals::median(3, 1, [&] { savePlain(data, plain); });
    const bool same = sameBytes(fast, plain);
    qint64 samples = 0;
    const double parse = tcGoals::median(cRuns, 1, [&] { samples = loadFast(fast, false); });
    const double load = tcGoals::median(cRuns, 1, [&] { loadFast(fast, true); });
    qint64 plainSamples = 0;
    const double loadPlainly = tcGoals::median(3, 1, [&] { plainSamples = loadPlain(fast); });
    const tcOthers py = pandas(fast, other);
    const tcOthers r = dataTable(fast, other);

    std::printf("\n%s, %d curves x %d samples, CPU seconds\n", apName, cCurves, anRows);
    std::printf("save: %.4f   streams %.4f   pandas %.4f   fwrite %.4f\n", save, savePlainly,
                py.save, r.save);
    std::printf("load: %.4f (into curves %.4f)   streams %.4f   pandas %.4f   fread %.4f\n",
                parse, load, loadPlainly, py.load, r.load);
    arGoals.atLeast("the bytes and the samples of the plain way",
                    same && samples == plainSamples ? 1 : 0, 1);
    arGoals.atLeast("save, streams and strings over ours", savePlainly / save, 10);
    arGoals.atLeast("parse, streams and strings over ours", loadPlainly / parse, 8);
    if (py.save > 0) {
        arGoals.atLeast("save, pandas over ours", py.save / save, 30);
        arGoals.atLeast("parse, pandas over ours", py.load / parse, 3);
        arGoals.atLeast("load into curves, pandas over ours", py.load / load, 2);
    } else {
        std::puts("pandas is not installed: skipped");
    }
    if (r.save > 0)
        arGoals.atLeast("save, fwrite on one thread over ours", r.save / save, 0.9);
    else
        std::puts("R with data.table is not installed: skipped");
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication app(argc, argv);
    const int rows = argc > 1 ? QByteArray(argv[1]).toInt() : 100000;
    tcGoals goals;
    compare("shared times", rows, true, goals);
    if (rows <= 100000)
        compare("distinct times", rows, false, goals);
    return goals.result();
}
