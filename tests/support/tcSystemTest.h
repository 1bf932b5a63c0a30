#pragma once

#include "tests/support/tcOperator.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// Waits for what an operator would wait for; generous, since a busy machine is no failure.
#define TRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, 30000)
#define TRY_COMPARE(actual, expected) QTRY_COMPARE_WITH_TIMEOUT(actual, expected, 30000)

/// Base of the tests of the real program: one screen for all, a fresh home for each. A test
/// that fails leaves a picture of the screen behind.
class tcSystemTest : public QObject
{
    Q_OBJECT

protected:
    const tcVirtualScreen& screen() const { return mScreen; }
    QString home() const { return mHome->path(); }

private Q_SLOTS:
    void initTestCase();
    void init();

private:
    QTemporaryDir mScratch;
    tcVirtualScreen mScreen;
    std::unique_ptr<QTemporaryDir> mHome;
};
