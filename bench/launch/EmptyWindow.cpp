// The baselines of a start: a window of the main window's size with nothing in it, or with the words of the
// first argument, in a font of the program's.
#include <QApplication>
#include <QLabel>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWidget window;
    window.setFixedSize(1000, 700);
    if (argc > 1)
        (new QLabel(QString::fromLocal8Bit(argv[1]), &window))
            ->setFont(QFont(QStringLiteral("NanumGothic"), 9));
    window.show();
    return QApplication::exec();
}
