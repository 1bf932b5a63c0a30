#pragma once

#include <QApplication>

/// Shows the cursor of waiting for as long as it lives: around a call into a driver, which
/// comes back when it likes and meanwhile keeps the window. It is seen at once, no event is
/// needed.
class tcWaitCursor
{
public:
    tcWaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~tcWaitCursor() { QApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY(tcWaitCursor)
};
