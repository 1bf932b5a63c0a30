#pragma once

// Comes ahead of every test. Qt gives what a test awaits five seconds, and a busy computer may
// need them for other work. Waiting longer costs nothing where it comes.

#include <QTest>

inline constexpr int cPatienceMs = 30000;

#undef QTRY_VERIFY
#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT((condition), cPatienceMs)
#undef QTRY_VERIFY2
#define QTRY_VERIFY2(condition, text)                                                          \
    QTRY_VERIFY2_WITH_TIMEOUT((condition), (text), cPatienceMs)
#undef QTRY_COMPARE
#define QTRY_COMPARE(actual, expected)                                                         \
    QTRY_COMPARE_WITH_TIMEOUT((actual), (expected), cPatienceMs)
