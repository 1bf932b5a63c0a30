#include "sim/replay/tcCameraReplay.h"

#include "camera/logic/tcSensorTable.h"
#include "stripchart/logic/tcCsvReader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QTranslator>

#include <algorithm>
#include <cmath>

static void makeCataloguesKnown()
{
#ifdef TARVIK_CATALOGUES
    Q_INIT_RESOURCE(catalogues);
#endif
}

namespace
{

constexpr int64_t cNsPerMs = 1'000'000;
/// No sensor reads more; a number beyond it would fill the line with digits.
constexpr double cLargest = 1e9;

/// The sensor's number less one, by name, in each language of the panel.
QHash<QString, size_t> sensorsByTitle()
{
    QHash<QString, size_t> sensors;
    const auto add = [&sensors](size_t anSensor, const QString& acName) {
        if (!acName.isEmpty())
            sensors.insert(tcSensorTable::listText(acName, {}, {}).trimmed(), anSensor);
    };
    for (size_t i = 0; i < cCameraSensors.size(); ++i)
        add(i, QString::fromUtf8(cCameraSensors[i].name));
    makeCataloguesKnown();
    const QDir catalogues(QStringLiteral(":/translations"));
    for (const QString& file : catalogues.entryList({QStringLiteral("tarvik_*.qm")})) {
        QTranslator translator;
        if (!translator.load(catalogues.filePath(file)))
            continue;
        for (size_t i = 0; i < cCameraSensors.size(); ++i)
            add(i, translator.translate("tcSensorMonitor", cCameraSensors[i].name));
    }
    return sensors;
}

tcReplay::tcColumn readable(tcCsvReader& arReader, size_t anColumn)
{
    const tcColumnView view = arReader.samples(anColumn);
    tcReplay::tcColumn column;
    for (qint64 i = 0; i < view.count; ++i) {
        // A gap in the record is none of the camera's: it goes on with what it read before.
        if (!std::isfinite(view.values[i]) || std::abs(view.values[i]) > cLargest)
            continue;
        column.times.push_back(view.times[i]);
        column.values.push_back(view.values[i]);
    }
    arReader.release(anColumn);
    return column;
}

bool isSpeed(double anSpeed)
{
    return anSpeed >= tcReplay::cMinSpeed && anSpeed <= tcReplay::cMaxSpeed
        && std::floor(anSpeed) == anSpeed;
}

std::string skipped(const tcCsvReport& acReport)
{
    if (acReport.skippedRows + acReport.skippedFields == 0)
        return {};
    return "skipped " + std::to_string(acReport.skippedRows) + " rows and "
        + std::to_string(acReport.skippedFields) + " fields, the first in line "
        + std::to_string(acReport.cases.first().line);
}

} // namespace

std::unique_ptr<tcCameraReplay> tcCameraReplay::open(const tcSensorReplayRequest& acRequest,
                                                     std::string& arMessage)
{
    const auto fail = [&acRequest, &arMessage](const std::string& acWhy) {
        arMessage = std::string(acRequest.file) + ": " + acWhy;
        return nullptr;
    };
    arMessage.clear();
    if (!isSpeed(acRequest.speed))
        return fail("a replay's speed is a whole number from "
                    + std::to_string(tcReplay::cMinSpeed) + " to "
                    + std::to_string(tcReplay::cMaxSpeed));
    QFile file(QFile::decodeName(acRequest.file));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return fail(file.errorString().toStdString());
    // A device or a pipe may never end.
    if (!QFileInfo(file).isFile())
        return fail("not a file");
    tcCsvReader reader(file);
    const bool header = reader.readHeader();
    if (header)
        reader.readRows();
    if (reader.failed())
        return fail("can't be read to its end");
    if (!header)
        return fail("not enough columns");

    const QHash<QString, size_t> known = sensorsByTitle();
    std::vector<tcReplay::tcColumn> columns;
    std::vector<size_t> sensors;
    for (size_t i = 0; i < reader.columnCount(); ++i) {
        const auto sensor = known.constFind(reader.title(i).trimmed());
        if (sensor == known.constEnd() || (acRequest.sensorBits >> *sensor & 1u) == 0)
            continue;
        tcReplay::tcColumn column = readable(reader, i);
        if (column.times.empty())
            continue;
        columns.push_back(std::move(column));
        sensors.push_back(*sensor);
    }
    if (columns.empty())
        return fail("no readings of a sensor that this camera has");
    if (const std::string note = skipped(reader.report()); !note.empty())
        fail(note);
    return std::unique_ptr<tcCameraReplay>(
        new tcCameraReplay(std::move(columns), std::move(sensors),
                           static_cast<int>(acRequest.speed), acRequest.loop));
}

tcCameraReplay::tcCameraReplay(std::vector<tcReplay::tcColumn> aColumns,
                               std::vector<size_t> aSensors, int anSpeed, bool abLoop)
    : mReplay(std::move(aColumns), anSpeed, 0), mSensors(std::move(aSensors)), mLoop(abLoop)
{
}

std::optional<double> tcCameraReplay::reading(int anSensor, int64_t anNs)
{
    if (anSensor < 1 || static_cast<size_t>(anSensor) > cSensors)
        return std::nullopt;
    if (!mBegin)
        mBegin = anNs;
    advance((anNs - *mBegin) / cNsPerMs);
    return mLatest[static_cast<size_t>(anSensor) - 1];
}

void tcCameraReplay::advance(int64_t anMs)
{
    // The last reading has its moment, then the first comes again. Each pass begins without the
    // values of the one before, so that how often somebody looks changes nothing.
    const int64_t pass = mLoop ? anMs / (mReplay.duration() + 1) : 0;
    if (pass != mPass) {
        mPass = pass;
        mLatest.fill(std::nullopt);
        mReplay.restart(pass * (mReplay.duration() + 1));
    }
    int taken = 0;
    const auto take = [this, &taken](size_t anColumn, qint64, double anValue) {
        mLatest[mSensors[anColumn]] = anValue;
        ++taken;
    };
    do {
        taken = 0;
        mReplay.step(anMs, take);
    } while (taken == tcReplay::cMaxPerStep);
}
