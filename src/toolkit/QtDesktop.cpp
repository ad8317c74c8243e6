#include "toolkit/QtDesktop.h"

#include "runtime/Text.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

namespace tsms {

namespace {

/// The window that a box must stand before.
QWidget* FrontWindow()
{
    QWidget* modal = QApplication::activeModalWidget();
    return modal ? modal : QApplication::activeWindow();
}

QMessageBox::Icon IconOf(MsgBoxStyle style)
{
    switch (style) {
    case MsgBoxPlain:
        return QMessageBox::NoIcon;
    case MsgBoxCritical:
    case MsgBoxCriticalYesNo:
        return QMessageBox::Critical;
    case MsgBoxQuestion:
        return QMessageBox::Question;
    case MsgBoxExclamation:
        return QMessageBox::Warning;
    case MsgBoxInformation:
        return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

bool Asks(MsgBoxStyle style)
{
    return style == MsgBoxCriticalYesNo || style == MsgBoxQuestion;
}

void NameButton(const QMessageBox& box, QMessageBox::StandardButton button, const QString& words)
{
    if (QAbstractButton* found = box.button(button)) {
        found->setText(words);
        found->setIcon(QIcon());
    }
}

/// "words|*.ext" in the manner of the picker: "words (*.ext)".
QString PickerFilter(const QString& filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString patterns = QString(parts[i + 1]).replace(u';', u' ');
        QString words = parts[i];
        words.remove(u'(' + parts[i + 1] + u')');
        filters += Trim(words) + QStringLiteral(" (") + patterns + u')';
    }
    return filters.join(QStringLiteral(";;"));
}

} // namespace

MsgBoxAnswer QtDesktop::MsgBox(const QString& text, MsgBoxStyle style, const QString& title)
{
    QMessageBox box(FrontWindow());
    box.setTextFormat(Qt::PlainText);
    box.setWindowTitle(title);
    box.setText(QString(text).replace(CrLf.toString(), QStringLiteral("\n")));
    box.setIcon(IconOf(style));
    if (Asks(style)) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::Yes);
        box.setEscapeButton(QMessageBox::No);
    } else {
        box.setStandardButtons(QMessageBox::Ok);
    }
    NameButton(box, QMessageBox::Ok, QStringLiteral("확인"));
    NameButton(box, QMessageBox::Yes, QStringLiteral("예"));
    NameButton(box, QMessageBox::No, QStringLiteral("아니요"));
    const int answer = box.exec();
    if (!Asks(style))
        return AnswerOK;
    return answer == QMessageBox::Yes ? AnswerYes : AnswerNo;
}

void QtDesktop::SetMousePointer(MousePointer pointer)
{
    // One pointer for the whole screen: a second setting replaces the first and is not laid over it.
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
    if (pointer == MousePointer::Hourglass)
        QApplication::setOverrideCursor(Qt::WaitCursor);
}

void QtDesktop::OpenPage(const QString& url)
{
    if (!url.isEmpty())
        QDesktopServices::openUrl(QUrl::fromUserInput(url));
}

void QtDesktop::OpenDocument(const QString& path)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

QString QtDesktop::PickFile(const QString& title, const QString& filter)
{
    QFileDialog picker(FrontWindow(), title, QString(), PickerFilter(filter));
    picker.setFileMode(QFileDialog::ExistingFile);
    picker.setAcceptMode(QFileDialog::AcceptOpen);
    return picker.exec() == QDialog::Accepted ? picker.selectedFiles().value(0) : QString();
}

QString QtDesktop::PickFolder(const QString& prompt)
{
    QFileDialog picker(FrontWindow(), prompt);
    picker.setFileMode(QFileDialog::Directory);
    picker.setOption(QFileDialog::ShowDirsOnly);
    return picker.exec() == QDialog::Accepted ? picker.selectedFiles().value(0) : QString();
}

} // namespace tsms
