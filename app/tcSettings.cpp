#include "app/tcSettings.h"

#include <QAction>
#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QSpinBox>

#include <cmath>

namespace
{

QString& defaultFilePath()
{
    static QString path;
    return path;
}

QString keyOf(const QObject& acObject, const char* acKey)
{
    return acKey ? QString::fromLatin1(acKey) : acObject.objectName();
}

} // namespace

QSharedPointer<tcSettings> tcSettings::create(const QString& acFile)
{
    const QString path = acFile.isEmpty() ? defaultFile() : acFile;
    if (!path.isEmpty())
        return QSharedPointer<tcSettings>::create(path, QSettings::IniFormat);
    return QSharedPointer<tcSettings>::create(QSettings::IniFormat, QSettings::SystemScope,
                                              QStringLiteral("Quillon"),
                                              QCoreApplication::applicationName());
}

QString tcSettings::defaultFile()
{
    return defaultFilePath();
}

void tcSettings::setDefaultFile(const QString& acFile)
{
    defaultFilePath() = acFile;
}

void tcSettings::restore(QSettings& arSettings, QAction& arAction, const char* acKey)
{
    const QString key = keyOf(arAction, acKey);
    if (arAction.isCheckable() && arSettings.contains(key))
        arAction.setChecked(arSettings.value(key, false).toBool());
}

void tcSettings::save(QSettings& arSettings, const QAction& acAction, const char* acKey)
{
    if (acAction.isCheckable())
        arSettings.setValue(keyOf(acAction, acKey), acAction.isChecked());
}

void tcSettings::restore(QSettings& arSettings, QDoubleSpinBox& arBox, const char* acKey)
{
    const QString key = keyOf(arBox, acKey);
    if (!arSettings.contains(key))
        return;
    bool ok = false;
    const double value = arSettings.value(key).toDouble(&ok);
    // Text like "nan" converts, but no spin box can show it.
    if (ok && !std::isnan(value))
        arBox.setValue(value);
}

void tcSettings::save(QSettings& arSettings, const QDoubleSpinBox& acBox, const char* acKey)
{
    arSettings.setValue(keyOf(acBox, acKey), acBox.value());
}

void tcSettings::restore(QSettings& arSettings, QSpinBox& arBox, const char* acKey)
{
    const QString key = keyOf(arBox, acKey);
    if (!arSettings.contains(key))
        return;
    bool ok = false;
    const int value = arSettings.value(key).toInt(&ok);
    if (ok)
        arBox.setValue(value);
}

void tcSettings::save(QSettings& arSettings, const QSpinBox& acBox, const char* acKey)
{
    arSettings.setValue(keyOf(acBox, acKey), acBox.value());
}
