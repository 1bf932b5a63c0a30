// Linked into every Qt test on Windows. Elsewhere the environment gives a test its surroundings
// (C locale, UTF-8 as the local encoding); Windows takes neither from there.
#include <QCoreApplication>
#include <QLocale>
#include <QTextCodec>

static void takePlainSurroundings()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    QLocale::setDefault(QLocale::c());
    // Native file dialogs would be out of a test's reach.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

Q_COREAPP_STARTUP_FUNCTION(takePlainSurroundings)
