#include "app/tcMainWindow.h"

#include <QApplication>
#include <QSettings>

int main(int argc, char* argv[])
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QSettings settings;
    tcMainWindow window;
    window.show();
    return QApplication::exec();
}
