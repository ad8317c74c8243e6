#include "toolkit/windows/QtDesktop.h"

#include "runtime/Text.h"
#include "toolkit/fields/LimitRule.h"
#include "toolkit/look/Placing.h"
#include "toolkit/look/Theme.h"
#include "toolkit/windows/Dimmed.h"
#include "toolkit/windows/Form.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QIdentityProxyModel>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QShowEvent>
#include <QTextDocument>
#include <QTreeView>
#include <QUrl>

#include <algorithm>
#include <cmath>

namespace tsms {

namespace {

Form* LastVisibleForm()
{
    const QList<Form*>& forms = Form::Loaded();
    const auto found =
        std::find_if(forms.rbegin(), forms.rend(), [](const Form* form) { return form->isVisible(); });
    return found == forms.rend() ? nullptr : *found;
}

/// The window that a box must stand before.
QWidget* FrontWindow()
{
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget* active = QApplication::activeWindow())
        return active;
    // Just after a dialog has closed, the window manager has not yet made another one active.
    return LastVisibleForm();
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

bool IsQuestion(MsgBoxStyle style)
{
    return style == MsgBoxCriticalYesNo || style == MsgBoxQuestion;
}

void NameButton(const QMessageBox& box, QMessageBox::StandardButton button, const QString& words)
{
    if (QAbstractButton* found = box.button(button))
        found->setText(words);
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

/// Draws the text of a label that is too long for one line of a box. By itself a label breaks lines between
/// words only, and a box lets it break none as soon as the box finds itself narrow enough.
class LineBreaker final : public QObject
{
public:
    LineBreaker(QLabel& label, int most) : QObject(&label)
    {
        QTextOption anywhere;
        anywhere.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        text_.setDocumentMargin(0);
        text_.setDefaultFont(label.font());
        text_.setDefaultTextOption(anywhere);
        text_.setPlainText(label.text());
        SetWidth(most);
        const int width = static_cast<int>(std::ceil(text_.idealWidth())) + 1;
        label.setFixedSize(width, Height());
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
    int Height() const { return static_cast<int>(std::ceil(text_.size().height())); }

    /// The least that needs no more lines than the most does, so that no word stands alone on the last one.
    void SetWidth(int most)
    {
        constexpr int Step = 10;
        text_.setTextWidth(most);
        const int height = Height();
        int width = most;
        do {
            width -= Step;
            text_.setTextWidth(width);
        } while (width > most * 2 / 3 && Height() == height);
        if (Height() != height)
            text_.setTextWidth(width + Step);
    }

    QTextDocument text_;
};

/// How wide the text of a box may be. A box itself keeps to a limit that follows its screen.
int MostTextWidth(const QMessageBox& box)
{
    constexpr int ReadableWidth = 620;
    constexpr int SignAndMargins = 110;
    const int screen = box.screen()->availableGeometry().width();
    const int boxLimit = screen <= 1024 ? screen : screen - 480;
    return std::min(ReadableWidth, boxLimit - SignAndMargins);
}

void LayOutText(const QMessageBox& box)
{
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (!label)
        return;
    label->setWordWrap(false);
    const int longest = label->sizeHint().width() + 1;
    const int most = MostTextWidth(box);
    if (longest > most)
        new LineBreaker(*label, most);
    else
        label->setMinimumWidth(longest);
}

/// A box whose place is its own choice: left to itself it is only a proposal, which window managers overrule.
class PlacedBox final : public QMessageBox
{
public:
    using QMessageBox::QMessageBox;

protected:
    void showEvent(QShowEvent* event) override
    {
        QMessageBox::showEvent(event);
        if (!event->spontaneous() && parentWidget())
            MoveBefore(*parentWidget()->window());
    }

private:
    void MoveBefore(const QWidget& window)
    {
        QRect place(QPoint(), size());
        // Without its frame: it has none, and what a window manager tells of one may be nonsense at first.
        place.moveCenter(window.geometry().center());
        move(MovedInto(place, screen()->availableGeometry()).topLeft());
    }
};

/// What a picker tells of files, in the program's language whatever the desk's.
class KoreanTypes final : public QFileIconProvider
{
public:
    QString type(const QFileInfo& file) const override
    {
        if (file.isDir())
            return QStringLiteral("폴더");
        return Trim(file.suffix() + QStringLiteral(" 파일"));
    }
};

/// Their dates in the manner of the program's own.
class KoreanDates final : public QIdentityProxyModel
{
public:
    static constexpr int Column = 3;

    using QIdentityProxyModel::QIdentityProxyModel;

    QVariant data(const QModelIndex& index, int role) const override
    {
        const auto* files = qobject_cast<const QFileSystemModel*>(sourceModel());
        if (!files || role != Qt::DisplayRole || index.column() != Column)
            return QIdentityProxyModel::data(index, role);
        return files->lastModified(mapToSource(index)).toString(u"yyyy-MM-dd HH:mm");
    }
};

/// The picker asks its types from a thread of its own, and so ends before them.
struct Picker
{
    Picker(const QString& title, const QString& folder, const QString& filter = {})
        : dialog(FrontWindow(), title, folder, filter)
    {
        dialog.setIconProvider(&types);
        dialog.setProxyModel(new KoreanDates(&dialog));
    }

    /// What was picked; empty when the user cancels.
    QString Pick();

    KoreanTypes types;
    QFileDialog dialog;
};

QString Picker::Pick()
{
    constexpr QSize RoomForDates(720, 460);
    if (auto* list = dialog.findChild<QTreeView*>()) { // none where the desk has a picker of its own
        QHeaderView& columns = *list->header();
        columns.setStretchLastSection(false);
        columns.setSectionResizeMode(QHeaderView::ResizeToContents);
        columns.setSectionResizeMode(0, QHeaderView::Stretch);
        dialog.resize(RoomForDates);
    }
    const Dimmed dimmed(dialog.parentWidget());
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

} // namespace

MsgBoxAnswer QtDesktop::MsgBox(const QString& text, MsgBoxStyle style, const QString& title)
{
    theme::UseFont(); // the first window of a start that fails is a box
    const QPointer<QWidget> below = FrontWindow();
    PlacedBox box(below);
    box.setTextFormat(Qt::PlainText);
    box.setWindowTitle(title);
    box.setText(ShownText(text));
    box.setIcon(IconOf(style));
    if (IsQuestion(style)) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::Yes);
        box.setEscapeButton(QMessageBox::No);
    } else {
        box.setStandardButtons(QMessageBox::Ok);
    }
    NameButton(box, QMessageBox::Ok, QStringLiteral("확인"));
    NameButton(box, QMessageBox::Yes, QStringLiteral("예"));
    NameButton(box, QMessageBox::No, QStringLiteral("아니요"));
    LayOutText(box);
    const int answer = [&] {
        const Dimmed dimmed(below);
        return box.exec();
    }();
    // The desk may still be about to give the keyboard to a box that was closed as quickly as it came.
    if (below && below->isVisible())
        below->activateWindow();
    if (!IsQuestion(style))
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
    const QUrl page = QUrl::fromUserInput(url);
    if (page.scheme() == u"http" || page.scheme() == u"https") // the address comes from a table
        QDesktopServices::openUrl(page);
}

void QtDesktop::OpenDocument(const QString& path)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

QString QtDesktop::PickFile(const QString& title, const QString& filter)
{
    Picker picker(title, filesFolder_, PickerFilter(filter));
    picker.dialog.setOption(QFileDialog::ReadOnly); // by itself it removes whole folders, behind a question
    picker.dialog.setFileMode(QFileDialog::ExistingFile);
    picker.dialog.setAcceptMode(QFileDialog::AcceptOpen);
    QString file = picker.Pick();
    if (!file.isEmpty())
        filesFolder_ = QFileInfo(file).absolutePath();
    return file;
}

QString QtDesktop::PickFolder(const QString& prompt)
{
    Picker picker(prompt, foldersFolder_);
    picker.dialog.setFileMode(QFileDialog::Directory);
    picker.dialog.setOption(QFileDialog::ShowDirsOnly);
    picker.dialog.setLabelText(QFileDialog::FileName, QStringLiteral("폴더:"));
    QString folder = picker.Pick();
    if (!folder.isEmpty())
        foldersFolder_ = folder;
    return folder;
}

} // namespace tsms
