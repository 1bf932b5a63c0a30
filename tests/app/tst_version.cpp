#include "app/logic/Revision.h"
#include "app/logic/tcVersion.h"

#include <QDateTime>
#include <QFile>
#include <QLocale>
#include <QRegularExpression>
#include <QTest>

class tst_Version : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shortText() { QCOMPARE(tcVersion::text(false), QString("1.5.0")); }
    void detailedText();
    void descriptionIsAbbreviatedRevisionAndSubject();
    void buildDateReadsAsWeekdayMonthDayTimeYear();
    void newestChangesAreThoseOfThisVersion();
};

void tst_Version::detailedText()
{
    QVERIFY(QRegularExpression("^[0-9a-f]{40}$").match(tcVersion::revision()).hasMatch());
    QCOMPARE(tcVersion::text(true), "1.5.0 build 17 - git revision: " + tcVersion::revision());
}

void tst_Version::descriptionIsAbbreviatedRevisionAndSubject()
{
    const QString description = tcVersion::vcsDescription();
    QCOMPARE(description.left(9), tcVersion::revision().left(8) + ' ');
    QCOMPARE(description.mid(9), QString::fromUtf8(TARVIK_SUBJECT));
    QVERIFY(description.size() > 9);
    QVERIFY(!description.contains('\n'));
}

void tst_Version::buildDateReadsAsWeekdayMonthDayTimeYear()
{
    const QDateTime built
        = QLocale::c().toDateTime(tcVersion::buildDate(), "ddd MMM dd hh:mm:ss yyyy");
    QVERIFY2(built.isValid(), qPrintable(tcVersion::buildDate()));
    QVERIFY(built.date().year() >= 2020);
}

void tst_Version::newestChangesAreThoseOfThisVersion()
{
    QFile file(QStringLiteral(TARVIK_SOURCE_DIR "/CHANGELOG.md"));
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.errorString()));
    const auto heading = QRegularExpression("^## (\\S+)", QRegularExpression::MultilineOption)
                             .match(QString::fromUtf8(file.readAll()));
    QVERIFY(heading.hasMatch());
    QCOMPARE(heading.captured(1), tcVersion::text(false));
}

QTEST_GUILESS_MAIN(tst_Version)
#include "tst_version.moc"
