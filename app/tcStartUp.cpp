#include "app/tcStartUp.h"

#include "app/tcPlatform.h"
#include "app/tcTranslation.h"
#include "widgets/tcLateIcon.h"

#include <QApplication>
#include <QIcon>
#include <QOpenGLContext>

#include <utility>

static void makeIconsKnown()
{
    Q_INIT_RESOURCE(icons);
}

static const char* const cGlChoice = "QT_XCB_GL_INTEGRATION";
static bool sGlLeftOut = false;

/// The panel draws without OpenGL. Qt loads a display's driver for it with the first window
/// nevertheless, and with that a compiler: tens of megabytes and a good part of the start.
static void leaveOutOpenGl()
{
    sGlLeftOut = !qEnvironmentVariableIsSet(cGlChoice) && qputenv(cGlChoice, "none");
}

/// Programs that this one opens files with find the environment as it was.
static void restoreEnvironment()
{
    if (!std::exchange(sGlLeftOut, false))
        return;
#if QT_CONFIG(opengl)
    // The plug-in reads the choice when it is first asked about OpenGL, and then never again.
    if (QGuiApplication::platformName() == QLatin1String("xcb"))
        QOpenGLContext::supportsThreadedOpenGL();
#endif
    qunsetenv(cGlChoice);
}

/// What title bars and task switchers show. Menus and large switchers take the desktop's own
/// copy, by the program's name; to read 256 pixels here, for every window, would start two
/// threads.
static QIcon windowIcon()
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128})
        icon.addFile(QStringLiteral(":/icons/tarvik-%1.png").arg(size));
    return icon;
}

void tcStartUp::beforeApplication()
{
    tcPlatform::hardenLibrarySearch();
    leaveOutOpenGl();
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

void tcStartUp::afterApplication()
{
    restoreEnvironment();
    makeIconsKnown();
    QApplication::setWindowIcon(tcLateIcon::of(&windowIcon));
    // Desktops that know windows by their menu entry find ours by its name.
    QGuiApplication::setDesktopFileName(QStringLiteral("example.quillon.tarvik"));
    tcTranslation::install();
}
