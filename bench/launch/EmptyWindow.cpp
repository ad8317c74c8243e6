// The baseline of a start: a window of the main window's size with nothing in it.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWidget window;
    window.setFixedSize(1000, 700);
    window.show();
    return QApplication::exec();
}
