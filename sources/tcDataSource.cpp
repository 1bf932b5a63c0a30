#include "sources/tcDataSource.h"

tcDataSource::tcDataSource(QObject* apParent) : QObject(apParent) { }

tcDataSource::~tcDataSource() = default;

void tcDataSource::setCurve(tcStripCurve* apCurve)
{
    mCurve = apCurve;
}

tcStripCurve* tcDataSource::curve() const
{
    return mCurve;
}
