#include "toolkit/QtDesktop.h"

#include "runtime/Text.h"
#include "toolkit/LimitRule.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QTextDocument>
#include <QUrl>

#include <cmath>

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

/// How long a text is up to the end of so many lines.
qsizetype LinesLength(QStringView text, int lines)
{
    qsizetype length = FirstLineLength(text);
    while (--lines > 0 && length < text.size())
        length += 1 + FirstLineLength(text.sliced(length + 1));
    return length;
}

/// A text as a box shows it: no more of it than leaves the buttons on the screen.
QString ShownText(const QString& text)
{
    constexpr int MostCharacters = 1000;
    constexpr int MostLines = 25;
    const QString whole = QString(text).replace(CrLf.toString(), QStringLiteral("\n"));
    const QString beginning = LimitText(whole, CharactersMeasure, MostCharacters);
    const qsizetype shown = LinesLength(beginning, MostLines);
    return shown == whole.size() ? whole : beginning.first(shown) + u'…';
}

/// Draws the text of a label that has a word wider than a box should be. By itself a label breaks lines
/// between words only.
class WordBreaker final : public QObject
{
public:
    WordBreaker(QLabel& label, int width) : QObject(&label)
    {
        QTextOption anywhere;
        anywhere.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        text_.setDocumentMargin(0);
        text_.setDefaultFont(label.font());
        text_.setDefaultTextOption(anywhere);
        text_.setPlainText(label.text());
        text_.setTextWidth(width);
        label.setFixedSize(width, static_cast<int>(std::ceil(text_.size().height())));
        label.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Paint)
            return false;
        QPainter painter(static_cast<QLabel*>(watched));
        text_.drawContents(&painter);
        return true;
    }

private:
    QTextDocument text_;
};

void BreakLongWords(const QMessageBox& box)
{
    constexpr int MostWidth = 600;
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (!label)
        return;
    label->setWordWrap(true); // then its least width is that of its longest word
    if (label->minimumSizeHint().width() > MostWidth)
        new WordBreaker(*label, MostWidth);
}

} // namespace

MsgBoxAnswer QtDesktop::MsgBox(const QString& text, MsgBoxStyle style, const QString& title)
{
    QMessageBox box(FrontWindow());
    box.setTextFormat(Qt::PlainText);
    box.setWindowTitle(title);
    box.setText(ShownText(text));
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
    BreakLongWords(box);
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
