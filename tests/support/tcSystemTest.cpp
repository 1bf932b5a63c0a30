#include "tests/support/tcSystemTest.h"

void tcSystemTest::initTestCase()
{
    const QStringList missing = tcVirtualScreen::missingTools();
    if (!missing.isEmpty())
        QSKIP(qPrintable("There is no screen to work on: missing " + missing.join(", ")));
    QVERIFY2(mScreen.start(mScratch.path()), qPrintable(mScreen.error()));
}

void tcSystemTest::init()
{
    mHome = std::make_unique<QTemporaryDir>();
    QVERIFY(mHome->isValid());
}
