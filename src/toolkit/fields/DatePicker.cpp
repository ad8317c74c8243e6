#include "toolkit/fields/DatePicker.h"

#include "toolkit/fields/Controls.h"
#include "toolkit/fields/KeyFilter.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/RaiseEvent.h"
#include "toolkit/look/Pictures.h"
#include "toolkit/look/Placing.h"
#include "toolkit/look/Theme.h"

#include <QAction>
#include <QCalendarWidget>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScreen>
#include <QSpinBox>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tsms {

namespace {

constexpr int FarSteps = 10; // of the keys for a page

bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool IsSeparator(QChar c)
{
    return c == u'-' || c == u'.' || c == u'/' || c == u' ';
}

/// The focus leaves its window, or only lends itself to a menu or to the calendar.
bool IsPassing(const QFocusEvent& event)
{
    return event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason;
}

QTextCharFormat TodayFormat()
{
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    format.setForeground(theme::Accent);
    format.setBackground(theme::Focus);
    return format;
}

QTextCharFormat WrittenIn(const QColor& color)
{
    QTextCharFormat format;
    format.setForeground(color);
    return format;
}

/// As wide as its words, with half a blank on either side.
void HugWords(QToolButton& button)
{
    const QFontMetrics metrics = button.fontMetrics();
    button.setFixedWidth(metrics.horizontalAdvance(button.text() + u' '));
}

} // namespace

DatePicker::DatePicker(QWidget* parent, const QString& name) : QLineEdit(parent), date_(QDate::currentDate())
{
    SetName(*this, name);
    setAttribute(Qt::WA_InputMethodEnabled, false); // digits, also while Hangul is on
    setAcceptDrops(false);
    setTextMargins(2, 1, 2, 1);
    setMaxLength(static_cast<int>(DateText(date_).size()));
    setText(DateText(date_));
    QAction* open = addAction(PictureIcon(QStringLiteral("arrow-down")), TrailingPosition);
    open->setText(QStringLiteral("달력"));
    connect(open, &QAction::triggered, this, [this] { OpenCalendar(); });
}

QString DatePicker::Value()
{
    Settle();
    return DateText(date_);
}

void DatePicker::SetValue(QDate date)
{
    SetRefused(false);
    Show(date);
}

void DatePicker::Show(QDate date)
{
    ForgetTyping();
    if (text() != DateText(date))
        setText(DateText(date));
    if (date == date_)
        return;
    date_ = date;
    RaiseEvent(*this, OnChange);
}

void DatePicker::Settle()
{
    const QDate read = ReadDate(text());
    if (!read.isValid())
        SetRefused(true);
    Show(read.isValid() ? read : date_);
}

void DatePicker::SetRefused(bool refused)
{
    if (refused == refused_)
        return;
    refused_ = refused;
    QPalette colors; // the program's own
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        if (!refused)
            continue;
        colors.setColor(group, QPalette::Base, theme::Warning);
        colors.setColor(group, QPalette::Text, theme::White);
    }
    setPalette(colors);
}

void DatePicker::ForgetTyping()
{
    typed_.clear();
    arrived_ = false;
}

void DatePicker::SelectPart(DatePart part)
{
    const PartPlace place = PlaceOf(text(), part);
    setSelection(static_cast<int>(place.start), static_cast<int>(place.length));
}

void DatePicker::keyPressEvent(QKeyEvent* event)
{
    SetRefused(false);
    const QChar typed = event->text().isEmpty() ? QChar() : event->text().front();
    if (Command(*event)) {
        event->accept();
    } else if (!IsEditingCommand(*event) && typed.isPrint()) {
        Type(typed);
        event->accept();
    } else {
        ForgetTyping();
        QLineEdit::keyPressEvent(event);
    }
}

bool DatePicker::Command(const QKeyEvent& key)
{
    const bool altDown = key.key() == Qt::Key_Down && key.modifiers().testFlag(Qt::AltModifier);
    if (key.key() == Qt::Key_F4 || altDown)
        OpenCalendar();
    else if (key.matches(QKeySequence::Paste))
        Paste(QGuiApplication::clipboard()->text());
    else
        return Walk(key);
    return true;
}

bool DatePicker::Walk(const QKeyEvent& key)
{
    const int part = static_cast<int>(PresentPart());
    switch (key.key()) {
    case Qt::Key_Left:
        MoveTo(part - 1);
        return true;
    case Qt::Key_Right:
        MoveTo(part + 1);
        return true;
    case Qt::Key_Home:
        MoveTo(static_cast<int>(DatePart::Year));
        return true;
    case Qt::Key_End:
        MoveTo(static_cast<int>(DatePart::Day));
        return true;
    case Qt::Key_Up:
        Step(1);
        return true;
    case Qt::Key_Down:
        Step(-1);
        return true;
    case Qt::Key_PageUp:
        Step(FarSteps);
        return true;
    case Qt::Key_PageDown:
        Step(-FarSteps);
        return true;
    default:
        return false;
    }
}

void DatePicker::Type(QChar character)
{
    if (!IsDigit(character) && !IsSeparator(character))
        return;
    typed_ += character;
    // A whole date counts as one, in whichever part it was begun.
    const QDate whole = ReadDate(typed_);
    const bool isWhole = whole.isValid() && IsDigit(character) && IsDigit(typed_[typed_.size() - 2]);
    if (isWhole)
        ShowTyped(whole);
    else if (IsDigit(character))
        TypeDigit(character);
    else
        TypeSeparator();
}

/// A digit too many is none of the day.
void DatePicker::ShowTyped(QDate date)
{
    const QString typed = typed_;
    Show(date);
    typed_ = typed;
}

void DatePicker::TypeDigit(QChar digit)
{
    arrived_ = false;
    const auto isFull = [this] {
        return IsInParts(text()) && PlaceOf(text(), PresentPart()).length >= DigitsOf(PresentPart());
    };
    if (!hasSelectedText() && isFull()) {
        if (typed_.size() > 1)
            return;
        SelectPart(PresentPart());
    }
    insert(QString(digit));
    if (!isFull() || PresentPart() == DatePart::Day)
        return;
    SelectPart(DatePart(int(PresentPart()) + 1));
    arrived_ = true;
}

void DatePicker::TypeSeparator()
{
    if (!IsInParts(text()))
        insert(QStringLiteral("-"));
    else if (!arrived_ && PresentPart() != DatePart::Day)
        SelectPart(DatePart(int(PresentPart()) + 1));
    arrived_ = false;
}

void DatePicker::Paste(const QString& text)
{
    ForgetTyping();
    const QString piece = text.trimmed();
    const QDate whole = ReadDate(piece);
    if (whole.isValid())
        Show(whole);
    else if (piece.size() <= DigitsOf(PresentPart()) && std::all_of(piece.begin(), piece.end(), IsDigit))
        std::for_each(piece.begin(), piece.end(), [this](QChar digit) { Type(digit); });
    else
        SetRefused(true);
}

/// Marks the part, or the nearest one there is.
void DatePicker::MoveTo(int part)
{
    ForgetTyping();
    if (!IsInParts(text()))
        Settle();
    SelectPart(DatePart(std::clamp(part, int(DatePart::Year), int(DatePart::Day))));
}

void DatePicker::Step(int steps)
{
    const DatePart part = PresentPart();
    Settle();
    Show(Stepped(date_, part, steps));
    SelectPart(part);
}

void DatePicker::wheelEvent(QWheelEvent* event)
{
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    wheel_ += event->angleDelta().y();
    const int notches = wheel_ / QWheelEvent::DefaultDeltasPerStep;
    wheel_ -= notches * QWheelEvent::DefaultDeltasPerStep;
    if (notches != 0)
        Step(notches);
    event->accept();
}

void DatePicker::mousePressEvent(QMouseEvent* event)
{
    SetRefused(false);
    if (event->button() == Qt::MiddleButton)
        Paste(QGuiApplication::clipboard()->text(QClipboard::Selection));
    if (event->button() != Qt::LeftButton)
        return;
    if (!IsInParts(text()))
        Settle();
    MoveTo(int(PartAt(text(), cursorPositionAt(event->position().toPoint()))));
}

void DatePicker::mouseMoveEvent(QMouseEvent*)
{
    // The press has marked a part; no part of a part can be marked.
}

void DatePicker::mouseReleaseEvent(QMouseEvent*) {}

void DatePicker::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void DatePicker::contextMenuEvent(QContextMenuEvent* event)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QClipboard* clipboard = QGuiApplication::clipboard();
    menu->addAction(QStringLiteral("복사"), this, [this, clipboard] { clipboard->setText(Value()); });
    menu->addAction(QStringLiteral("붙여넣기"), this, [this, clipboard] { Paste(clipboard->text()); });
    menu->popup(event->globalPos());
}

void DatePicker::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    const bool isTyped = text() != DateText(date_);
    if (event->reason() == Qt::PopupFocusReason || isTyped)
        return;
    SetRefused(false);
    ForgetTyping();
    selectAll();
}

void DatePicker::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (!IsPassing(*event))
        Settle();
}

QSize DatePicker::sizeHint() const
{
    constexpr int LettersOfHint = 17; // as the base class counts them
    const QFontMetrics metrics = fontMetrics();
    const QSize hint = QLineEdit::sizeHint();
    const int edges = hint.width() - LettersOfHint * metrics.horizontalAdvance(u'x');
    return {metrics.horizontalAdvance(DateText(LatestDate)) + edges + metrics.averageCharWidth(),
            hint.height()};
}

void DatePicker::OpenCalendar()
{
    Settle();
    if (!calendar_)
        MakeCalendar();
    calendar_->setSelectedDate(date_);
    calendar_->setDateTextFormat(QDate(), {});
    calendar_->setDateTextFormat(QDate::currentDate(), TodayFormat());
    TitleCalendar(date_.year());
    PlaceCalendar();
    popup_->show();
    calendar_->setFocus();
}

bool DatePicker::IsCalendarOpen() const
{
    return popup_ && popup_->isVisible();
}

void DatePicker::MakeCalendar()
{
    popup_ = new PopupPanel(this, QStringLiteral("calendar"));
    popup_->setWindowFlags(Qt::Popup);
    popup_->setAttribute(Qt::WA_NoMouseReplay); // a press beside it, also on the arrow, only closes it
    calendar_ = new QCalendarWidget(popup_);
    calendar_->setLocale(QLocale(QLocale::Korean, QLocale::SouthKorea));
    calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar_->setDateRange(EarliestDate, LatestDate);
    calendar_->setWeekdayTextFormat(Qt::Saturday, WrittenIn(theme::Saturday));
    calendar_->setWeekdayTextFormat(Qt::Sunday, WrittenIn(theme::Warning));
    DressTitle();
    auto* place = new QVBoxLayout(popup_);
    place->setContentsMargins(0, 0, 0, 0);
    place->addWidget(calendar_);
    connect(calendar_, &QCalendarWidget::currentPageChanged, this, [this](int year) { TitleCalendar(year); });
    connect(calendar_, &QCalendarWidget::clicked, this, &DatePicker::Choose);   // by the mouse
    connect(calendar_, &QCalendarWidget::activated, this, &DatePicker::Choose); // by a key
}

/// The year stands before the month.
void DatePicker::DressTitle()
{
    const auto button = [this](const char* part) {
        return calendar_->findChild<QToolButton*>(QStringLiteral("qt_calendar_") + QLatin1String(part));
    };
    button("prevmonth")->setIcon(PictureIcon(QStringLiteral("arrow-left")));
    button("nextmonth")->setIcon(PictureIcon(QStringLiteral("arrow-right")));
    // The field in which a year is typed comes in the place of its button.
    auto* typed = calendar_->findChild<QSpinBox*>(QStringLiteral("qt_calendar_yearedit"));
    typed->setButtonSymbols(QAbstractSpinBox::NoButtons);
    // The calendar then writes the year without its word.
    connect(typed, &QSpinBox::editingFinished, this, [this] { TitleCalendar(calendar_->yearShown()); });
    QToolButton* year = button("yearbutton");
    auto* title = qobject_cast<QHBoxLayout*>(year->parentWidget()->layout());
    QToolButton* month = button("monthbutton");
    title->removeWidget(month);
    title->insertWidget(title->count() - 2, month); // before the last stretch
}

void DatePicker::TitleCalendar(int year)
{
    auto* shownYear = calendar_->findChild<QToolButton*>(QStringLiteral("qt_calendar_yearbutton"));
    shownYear->setText(QString::number(year) + u'년');
    HugWords(*shownYear);
    HugWords(*calendar_->findChild<QToolButton*>(QStringLiteral("qt_calendar_monthbutton")));
}

/// Below the field, or above it where the screen ends, and never beside the screen.
void DatePicker::PlaceCalendar()
{
    popup_->resize(popup_->sizeHint());
    const QRect room = screen()->availableGeometry();
    QRect place(mapToGlobal(rect().bottomLeft()) + QPoint(0, 1), popup_->size());
    if (place.bottom() > room.bottom())
        place.moveBottom(mapToGlobal(QPoint()).y() - 1);
    popup_->move(MovedInto(place, room).topLeft());
}

void DatePicker::Choose(QDate date)
{
    if (!IsCalendarOpen())
        return; // some desks tell one click in both ways
    popup_->close();
    Show(date);
    RaiseEvent(*this, OnChoose);
}

} // namespace tsms
