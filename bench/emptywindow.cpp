// The least that a program with a window can be: what the panel's start is measured against.
#include <QApplication>
#include <QMainWindow>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(730, 500);
    window.show();
    return QApplication::exec();
}
