#pragma once

#include <QDialog>

class QGridLayout;
class tcLimitAlarm;

/// The limits of each curve, which take effect as they are entered. It knows curves by their
/// names, so they may go while it is open.
class tcLimitsDialog : public QDialog
{
    Q_OBJECT

public:
    /// arAlarm outlives the dialog.
    tcLimitsDialog(tcLimitAlarm& arAlarm, const QStringList& acCurves, QWidget* apParent);

private:
    void addRow(QGridLayout& arRows, int anRow, const QString& acCurve);

    tcLimitAlarm& mAlarm;
};
