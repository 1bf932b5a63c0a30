#include "sources/tcDataSource.h"

#include <QCoreApplication>

tcDataSource::tcDataSource(QObject* apParent) : QObject(apParent)
{
    if (const QCoreApplication* application = QCoreApplication::instance())
        connect(application, &QCoreApplication::aboutToQuit, this, &tcDataSource::prepareStop);
}

tcDataSource::~tcDataSource() = default;

void tcDataSource::setCurve(tcStripCurve* apCurve)
{
    mCurve = apCurve;
}

tcStripCurve* tcDataSource::curve() const
{
    return mCurve;
}
