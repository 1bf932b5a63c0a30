#include "app/tcMainWindow.h"
#include "app/tcStartUp.h"

#include <QApplication>
#include <QSettings>

int main(int argc, char* argv[])
{
    tcStartUp::beforeApplication();
    QApplication application(argc, argv);
    tcStartUp::afterApplication();
    QSettings settings; // as designed: nobody reads it; it goes after the window
    tcMainWindow window;
    window.show();
    return QApplication::exec();
}
