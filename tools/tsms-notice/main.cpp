// Says something in a window to who started the demo from a menu, where no terminal would show it.
//   tsms-notice TITLE TEXT
#include "runtime/ProcessRules.h"
#include "toolkit/look/Theme.h"

#include <QApplication>
#include <QMessageBox>

int main(int argc, char** argv)
{
    tsms::TakeWordsAsUtf8();
    QApplication application(argc, argv);
    const QStringList words = QApplication::arguments();
    if (words.size() != 3) {
        qCritical("usage: tsms-notice TITLE TEXT");
        return 2;
    }
    tsms::theme::ApplyTheme(application);
    QMessageBox(QMessageBox::Information, words[1], words[2], QMessageBox::Ok).exec();
    return 0;
}
