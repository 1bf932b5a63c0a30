// Linked into every Qt test on Windows. Elsewhere the environment gives a test its
// surroundings: C locale, UTF-8 as the local encoding, a time zone. Windows takes none of them
// from there.
#include <QCoreApplication>
#include <QLocale>
#include <QTextCodec>

#include <cstdlib>
#include <ctime>

namespace
{

struct tcWindowsSurroundings
{
    tcWindowsSurroundings()
    {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
        QLocale::setDefault(QLocale::c());
        // Native file dialogs would be out of a test's reach.
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        // The C library would read a name like "Europe/Berlin" as an abbreviation of no offset.
        // Wine has told the system's zone from it by now.
        _putenv("TZ=");
        _tzset();
    }
};

const tcWindowsSurroundings
    cSurroundings; // before main: not every test has an application object

} // namespace
