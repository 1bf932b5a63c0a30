#include "app/tcStartUp.h"

#include "app/tcPlatform.h"
#include "app/tcTranslation.h"

#include <QApplication>
#include <QIcon>

static void makeIconsKnown()
{
    Q_INIT_RESOURCE(icons);
}

/// The panel draws without OpenGL. Qt loads a display's driver for it with the first window
/// nevertheless, and with that a compiler: tens of megabytes and a good part of the start.
static void leaveOutOpenGl()
{
    constexpr char cChoice[] = "QT_XCB_GL_INTEGRATION";
    if (!qEnvironmentVariableIsSet(cChoice))
        qputenv(cChoice, "none");
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
    makeIconsKnown();
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/icons/tarvik-%1.png").arg(size));
    QApplication::setWindowIcon(icon);
    // Desktops that know windows by their menu entry find ours by its name.
    QGuiApplication::setDesktopFileName(QStringLiteral("example.quillon.tarvik"));
    tcTranslation::install();
}
