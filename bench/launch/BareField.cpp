// The baseline of a key's answer: a window of the main window's size with a text field and the number of its
// characters.
#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWidget window;
    window.setFixedSize(1000, 700);
    auto* column = new QVBoxLayout(&window);
    auto* field = new QPlainTextEdit(&window);
    auto* count = new QLabel(QStringLiteral("0"), &window);
    column->addWidget(field);
    column->addWidget(count);
    QObject::connect(field, &QPlainTextEdit::textChanged, count,
                     [=] { count->setNum(field->document()->characterCount() - 1); });
    window.show();
    return QApplication::exec();
}
