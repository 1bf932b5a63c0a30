#include "app/tcMainWindow.h"
#include "app/tcStartUp.h"

#include <QApplication>
#include <QSettings>

int main(int argc, char* argv[])
{
    tcStartUp::beforeApplication();
    QApplication application(argc, argv);
    tcStartUp::afterApplication();
    QSettings settings;
    tcMainWindow window;
    window.show();
    return QApplication::exec();
}
