#pragma once

#include <QSettings>
#include <QSharedPointer>

class QAction;
class QDoubleSpinBox;
class QSpinBox;

/// Ini settings whose file a factory picks, and the state of single controls in them.
///
/// Each helper uses the key it is given, or else the control's object name, as it is, within
/// whatever group the caller has opened. A missing key or a value that does not convert leaves
/// the control unchanged. GUI thread only.
class tcSettings : public QSettings
{
    Q_OBJECT

public:
    using QSettings::QSettings;

    /// Settings on the file; for an empty path on the default settings file, and without one in
    /// the system scope under the application's name.
    static QSharedPointer<tcSettings> create(const QString& acFile = {});

    /// For the whole process; empty at start-up, which means none.
    static QString defaultFile();
    static void setDefaultFile(const QString& acFile);

    /// Check state; actions that are not checkable are left alone, both ways.
    static void restore(QSettings& arSettings, QAction& arAction, const char* acKey = nullptr);
    static void save(QSettings& arSettings, const QAction& acAction,
                     const char* acKey = nullptr);

    static void restore(QSettings& arSettings, QDoubleSpinBox& arBox,
                        const char* acKey = nullptr);
    static void save(QSettings& arSettings, const QDoubleSpinBox& acBox,
                     const char* acKey = nullptr);

    static void restore(QSettings& arSettings, QSpinBox& arBox, const char* acKey = nullptr);
    static void save(QSettings& arSettings, const QSpinBox& acBox, const char* acKey = nullptr);
};
