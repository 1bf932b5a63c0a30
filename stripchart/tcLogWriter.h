#pragma once

#include "stripchart/logic/tcColumnMap.h"
#include "stripchart/tcLogFile.h"

#include <QHash>
#include <QVector>

#include <memory>

class tcStripCurve;

/// The running log of some curves: their titles once, then every reading as it comes.
///
/// It remembers for each curve what it has written, so that no reading is lost or written twice
/// whatever the clock does. A curve that comes later gets a column behind the others; the
/// column of one that goes stays empty. GUI thread only; readings may come from any.
class tcLogWriter
{
public:
    explicit tcLogWriter(const QString& acPath);

    bool open();
    QString fileName() const { return mFile.fileName(); }
    QString errorString() const { return mFile.errorString(); }

    /// Writes what the curves got since the last call; at the first, all that they hold. False
    /// while the disk takes nothing; the readings are kept and come first when it does again.
    bool write(const QVector<tcStripCurve*>& acCurves, qint64 anNow);
    bool close(); ///< false when readings that waited are lost

private:
    struct tcSeen
    {
        std::weak_ptr<const void> life; ///< of the curve; its address may be used again
        qint64 added = 0;               ///< readings of it that are written
    };

    void forgetDeleted();
    bool findFile();
    QByteArray header(const QVector<tcStripCurve*>& acCurves);
    void continueColumns();
    QByteArray rows(const QVector<tcStripCurve*>& acCurves);

    tcLogFile mFile;
    tcColumnMap mColumns;
    QHash<const tcStripCurve*, tcSeen> mSeen;
    QByteArray mHeader; ///< of this log, once it has one
    bool mStarted = false;
};
