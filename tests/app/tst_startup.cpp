#include "app/tcPlatform.h"
#include "app/tcStartUp.h"
#include "app/tcTranslation.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QLibrary>
#include <QTemporaryDir>
#include <QTest>

class tst_StartUp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void languageIsTheFirstThatTheOperatorWants_data();
    void languageIsTheFirstThatTheOperatorWants();
    void germanHasACatalogue();
    void germanTexts();
    void englishIsLeftAlone();
    void windowsHaveTheIconInEverySize();
    void noLibraryComesFromTheWorkingDirectory();
    void openGlIsLeftOut();
    void openGlStaysTheChoiceOfWhoeverStarts();
    void environmentIsLeftAsItWas_data();
    void environmentIsLeftAsItWas();
};

/// What the program would find after its first steps where its starter had chosen this.
static QByteArray glAfterStart(const char* apChosen)
{
    constexpr char cChoice[] = "QT_XCB_GL_INTEGRATION";
    if (apChosen)
        qputenv(cChoice, apChosen);
    else
        qunsetenv(cChoice);
    tcStartUp::beforeApplication();
    return qgetenv(cChoice);
}

void tst_StartUp::openGlIsLeftOut()
{
    QCOMPARE(glAfterStart(nullptr), QByteArray("none"));
}

void tst_StartUp::openGlStaysTheChoiceOfWhoeverStarts()
{
    QCOMPARE(glAfterStart("xcb_egl"), QByteArray("xcb_egl"));
#ifndef Q_OS_WIN // where a variable that is empty is none
    QCOMPARE(glAfterStart(""), QByteArray(""));
#endif
}

void tst_StartUp::languageIsTheFirstThatTheOperatorWants_data()
{
    QTest::addColumn<QStringList>("wanted");
    QTest::addColumn<QString>("language");
    QTest::newRow("German of Germany") << QStringList{"de-DE", "de"} << "de";
    QTest::newRow("German of Austria") << QStringList{"de-AT"} << "de";
    QTest::newRow("as POSIX writes it") << QStringList{"de_CH"} << "de";
    QTest::newRow("without a region") << QStringList{"de"} << "de";
    QTest::newRow("English") << QStringList{"en-GB"} << "";
    QTest::newRow("the C locale") << QStringList{"C"} << "";
    QTest::newRow("English before German") << QStringList{"en-US", "de-DE"} << "";
    QTest::newRow("an unknown one before German") << QStringList{"cs-CZ", "de-DE"} << "de";
    QTest::newRow("an unknown one alone") << QStringList{"cs-CZ"} << "";
    QTest::newRow("begins like German") << QStringList{"den"} << "";
    QTest::newRow("none") << QStringList{} << "";
    QTest::newRow("nonsense") << QStringList{"", "-", "_"} << "";
}

void tst_StartUp::languageIsTheFirstThatTheOperatorWants()
{
    QFETCH(QStringList, wanted);
    QTEST(tcTranslation::choose(wanted, {QStringLiteral("de")}), "language");
}

void tst_StartUp::germanHasACatalogue()
{
#ifndef TARVIK_CATALOGUES
    QSKIP("built without Qt's translation tools");
#endif
    QCOMPARE(tcTranslation::available(), QStringList{"de"});
}

void tst_StartUp::germanTexts()
{
#ifndef TARVIK_CATALOGUES
    QSKIP("built without Qt's translation tools");
#endif
    struct tcRow
    {
        const char* context;
        const char* english;
        const char* german;
    };
    // The texts of the basic panels have no meta-object of their own to stand under.
    constexpr tcRow cRows[] = {
        {"tcMainWindow", "Not Connected", "Nicht verbunden"},
        {"tcBasicPanel", "Unable to set baud rate!", "Baudrate lässt sich nicht setzen!"},
        {"tcBasicPanel", "Custom Preset File", "Eigene Vorgabedatei"},
        {"tcBasicPanel", "preset files (*.txt)", "Vorgabedateien (*.txt)"},
        // Nor have those of the chart's title, which is put together beside its class.
        {"tcStripChart", "Trend Chart:", "Trendschreiber:"},
        {"tcStripChart", " + %1 more", " + %1 weitere"},
        {"tcStripChart", "- logging to %1", " - Protokoll in %1"},
    };
    for (const tcRow& row : cRows)
        QCOMPARE(QCoreApplication::translate(row.context, row.english), row.english);
    tcTranslation::install(QStringLiteral("de"));
    for (const tcRow& row : cRows)
        QCOMPARE(QCoreApplication::translate(row.context, row.english), row.german);
    // The button is labelled with the one and compared with the other.
    QCOMPARE(QCoreApplication::translate("CamlinkControl", "Open"),
             QCoreApplication::translate("tcCamlinkControl", "Open"));
}

void tst_StartUp::englishIsLeftAlone()
{
    const auto before = QCoreApplication::instance()->children().size();
    tcTranslation::install(QString());
    QCOMPARE(QCoreApplication::instance()->children().size(), before);
}

void tst_StartUp::windowsHaveTheIconInEverySize()
{
    tcStartUp::afterApplication();
    const QIcon icon = QApplication::windowIcon();
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        QVERIFY(icon.availableSizes().contains(QSize(size, size)));
        const QImage picture = icon.pixmap(size, size).toImage();
        QCOMPARE(picture.size(), QSize(size, size));
        QCOMPARE(picture.pixelColor(size / 2, size / 2).alpha(), 255);
    }
}

void tst_StartUp::noLibraryComesFromTheWorkingDirectory()
{
    // A real library, by a name that only the working directory has. Its twin shows that it
    // loads.
    const QTemporaryDir folder;
#ifdef Q_OS_WIN
    const auto pattern = QStringLiteral("%1.dll");
#else
    const auto pattern = QStringLiteral("lib%1.so");
#endif
    for (const char* name : {"tarvik_planted", "tarvik_twin"})
        QVERIFY(QFile::copy(QStringLiteral(TARVIK_ANY_LIBRARY),
                            folder.filePath(pattern.arg(QLatin1String(name)))));
    QLibrary twin(folder.filePath(pattern.arg(QStringLiteral("tarvik_twin"))));
    QVERIFY2(twin.load(), qPrintable(twin.errorString()));

    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    tcPlatform::hardenLibrarySearch();
    QLibrary library(QStringLiteral("tarvik_planted"));
    const bool loaded = library.load();
    QDir::setCurrent(before);
    QVERIFY(!loaded);
}

void tst_StartUp::environmentIsLeftAsItWas_data()
{
    QTest::addColumn<QByteArray>("chosen");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("chosen") << QByteArray("xcb_egl");
#ifndef Q_OS_WIN // where a variable that is empty is none
    QTest::newRow("Qt's own choice") << QByteArray("");
#endif
}

void tst_StartUp::environmentIsLeftAsItWas()
{
    QFETCH(QByteArray, chosen);
    glAfterStart(chosen.isNull() ? nullptr : chosen.constData());
    tcStartUp::afterApplication();
    QCOMPARE(qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION"), !chosen.isNull());
    QCOMPARE(qgetenv("QT_XCB_GL_INTEGRATION"), chosen);
    qunsetenv("QT_XCB_GL_INTEGRATION");
}

QTEST_MAIN(tst_StartUp)
#include "tst_startup.moc"
