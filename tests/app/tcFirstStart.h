#pragma once

#include "stripchart/tcStripChart.h"
#include "tests/support/tcFakeSerial.h"

#include <QApplication>
#include <QDir>
#include <QSettings>
#include <QStandardPaths>

/// What tests of the whole window begin with.
namespace tcFirstStart
{

inline QString settingsFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::ConfigLocation);
}

/// One port, and no settings.
inline void prepare()
{
    tcFakeSerial::instance().reset();
    tcFakeSerial::instance().ports = {{"Maker", "Port", 0}};
    QDir(settingsFolder()).removeRecursively();
}

/// The camera that the next window comes up with.
inline void chooseCamera(const QString& acCamera, bool abAdvanced)
{
    QDir().mkpath(settingsFolder());
    QSettings settings(settingsFolder() + "/tarvik.ini", QSettings::IniFormat);
    settings.setValue("panel/camera", acCamera);
    settings.setValue(acCamera + "/advanced", abAdvanced);
}

inline tcStripChart* chartInSight()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* chart = qobject_cast<tcStripChart*>(window);
        if (chart && chart->isVisible())
            return chart;
    }
    return nullptr;
}

} // namespace tcFirstStart
