#include "app/tcTranslation.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

static void makeCataloguesKnown()
{
#ifdef TARVIK_CATALOGUES
    Q_INIT_RESOURCE(catalogues);
#endif
}

namespace
{

const QString cFolder = QStringLiteral(":/translations");

void lay(const QString& acFile, const QString& acFolder)
{
    auto* translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(acFile, acFolder))
        QCoreApplication::installTranslator(translator);
    else
        delete translator;
}

} // namespace

QStringList tcTranslation::available()
{
    makeCataloguesKnown();
    QStringList languages;
    // No name filter: one loads the engine of regular expressions.
    const QStringList files = QDir(cFolder).entryList(QDir::Files, QDir::Name);
    for (const QString& file : files) {
        if (file.startsWith(QLatin1String("tarvik_")) && file.endsWith(QLatin1String(".qm")))
            languages.append(file.section('_', 1).section('.', 0, 0));
    }
    return languages;
}

QString tcTranslation::choose(const QStringList& acWanted, const QStringList& acAvailable)
{
    for (const QString& wanted : acWanted) {
        QString language = QString(wanted).replace('_', '-').section('-', 0, 0).toLower();
        if (language == QLatin1String("en") || language == QLatin1String("c"))
            return QString();
        if (acAvailable.contains(language))
            return language;
    }
    return QString();
}

void tcTranslation::install(const QString& acLanguage)
{
    if (acLanguage.isEmpty())
        return;
    makeCataloguesKnown();
    lay(QStringLiteral("qtbase_") + acLanguage,
        QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    lay(QStringLiteral("tarvik_") + acLanguage, cFolder);
}

void tcTranslation::install()
{
    install(choose(QLocale::system().uiLanguages(), available()));
}
