#include "toolkit/fields/Controls.h"

#include "runtime/DoEvents.h"
#include "runtime/Text.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/RaiseEvent.h"
#include "toolkit/fields/TextField.h"
#include "toolkit/look/Placing.h"
#include "toolkit/look/Theme.h"

#include <QAccessible>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QVBoxLayout>

#include <algorithm>

namespace tsms {

namespace {

/// Shown as it stands: an ampersand is no mark of a shortcut.
QString Shown(const QString& caption)
{
    return QString(caption).replace(u'&', QStringLiteral("&&"));
}

} // namespace

PushButton::PushButton(QWidget* parent, const QString& name, const QString& caption, Look look)
    : QPushButton(parent), look_(look)
{
    setAutoDefault(true); // Enter clicks it while it has the focus
    setAttribute(Qt::WA_Hover);
    SetName(*this, name);
    SetCaption(caption);
    connect(this, &QPushButton::clicked, this, [this] { RaiseEvent(*this, OnClick); });
}

void PushButton::SetCaption(const QString& caption)
{
    caption_ = caption;
    setText(Shown(caption));
    setAccessibleName(caption);
    updateGeometry();
}

void PushButton::SetLook(Look look)
{
    look_ = look;
    update();
}

void PushButton::initStyleOption(QStyleOptionButton* option) const
{
    QPushButton::initStyleOption(option);
    option->features.setFlag(QStyleOptionButton::DefaultButton, look_ == Look::Primary);
    option->state.setFlag(QStyle::State_On, look_ == Look::Chosen);
}

PictureButton::PictureButton(QWidget* parent, const QString& name, const QString& picture,
                             const QString& words, Look look)
    : QAbstractButton(parent), picture_(picture), words_(words), look_(look)
{
    setFocusPolicy(theme::HasRoomForWords(look) ? Qt::StrongFocus : Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    SetName(*this, name);
    setAccessibleName(words);
    if (!theme::HasRoomForWords(look))
        setToolTip(words);
    connect(this, &QAbstractButton::clicked, this, [this] { RaiseEvent(*this, OnClick); });
}

QSize PictureButton::sizeHint() const
{
    return theme::PictureButtonSize(look_, words_, fontMetrics());
}

void PictureButton::paintEvent(QPaintEvent*)
{
    theme::PictureButtonOption option;
    option.initFrom(this);
    option.state.setFlag(QStyle::State_Sunken, isDown());
    option.look = look_;
    option.picture = picture_;
    option.text = words_;
    QStylePainter(this).drawControl(theme::PictureButtonElement, option);
}

bool PictureButton::event(QEvent* event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave)
        update();
    return QAbstractButton::event(event);
}

void PictureButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

Label::Label(QWidget* parent, const QString& name, const QString& caption) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    SetName(*this, name);
    if (!caption.isEmpty()) // a class that stands on this one is not to be asked about yet
        SetCaption(caption);
}

void Label::SetCaption(const QString& caption)
{
    if (caption == caption_)
        return;
    const bool wasBlank = IsBlank(caption_);
    caption_ = caption;
    setText(caption.contains(CrLf) ? QString(caption).replace(CrLf.toString(), QStringLiteral("\n"))
                                   : caption);
    setAccessibleName(caption);
    if (IsBlank(caption) != wasBlank && isVisible()) {
        QAccessibleEvent event(this, wasBlank ? QAccessible::ObjectShow : QAccessible::ObjectHide);
        QAccessible::updateAccessibility(&event);
    }
}

void Label::Refresh()
{
    if (!pace_.IsDue())
        return;
    repaint();
    FollowDrawing();
}

void Label::KeepSize()
{
    setFixedSize(size());
}

void Label::SetTextColor(const QColor& color)
{
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, color);
    setPalette(colors);
}

void Label::SetBackColor(const QColor& color)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Window, color);
    setPalette(colors);
    setAutoFillBackground(true);
}

void Label::SetBold(bool bold)
{
    QFont changed = font();
    changed.setBold(bold);
    setFont(changed);
}

void Label::Describes(QWidget& field)
{
    setBuddy(&field);
    DescribeBy(field, caption_);
}

void Label::mousePressEvent(QMouseEvent* event)
{
    // A label that nobody listens to lets the panel under it have the mouse.
    event->setAccepted(static_cast<bool>(OnClick));
}

void Label::mouseReleaseEvent(QMouseEvent* event)
{
    event->setAccepted(static_cast<bool>(OnClick));
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        RaiseEvent(*this, OnClick);
}

Panel::Panel(QWidget* parent, const QString& name, Border border) : QFrame(parent), border_(border)
{
    SetName(*this, name);
    if (border != Border::None)
        setContentsMargins(1, 1, 1, 1);
}

QColor Panel::BackColor() const
{
    return palette().color(QPalette::Active, QPalette::Window);
}

void Panel::SetBackColor(const QColor& color)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Window, color);
    setPalette(colors);
    filled_ = true;
}

theme::SurfaceOption Panel::Surface() const
{
    theme::SurfaceOption surface;
    surface.initFrom(this);
    if (filled_)
        surface.face = BackColor();
    surface.border = border_;
    return surface;
}

void Panel::paintEvent(QPaintEvent*)
{
    QStylePainter(this).drawPrimitive(theme::SurfaceElement, Surface());
}

void Panel::mousePressEvent(QMouseEvent* event)
{
    event->setAccepted(static_cast<bool>(OnClick));
}

void Panel::mouseReleaseEvent(QMouseEvent* event)
{
    event->setAccepted(static_cast<bool>(OnClick));
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        RaiseEvent(*this, OnClick);
}

Panel* MakeNotes(QWidget& parent, const QString& name, QStringView base, const QStringList& notes)
{
    auto* panel = new Panel(&parent, name, Panel::Border::Line);
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(12, 8, 12, 8);
    column->setSpacing(3);
    for (int i = 0; i < notes.size(); ++i) {
        auto* note = new Label(panel, IndexedName(base, i), notes[i]);
        note->SetTextColor(theme::Faint);
        column->addWidget(note);
    }
    return panel;
}

void FocusPanel::Follow(QWidget& field)
{
    field_ = &field;
    field.installEventFilter(this);
}

bool FocusPanel::HasKeyboard() const
{
    return field_ && window()->focusWidget() == field_ && window()->isActiveWindow();
}

bool FocusPanel::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate)
        update();
    return Panel::event(event);
}

bool FocusPanel::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    return false;
}

FieldPanel::FieldPanel(QWidget* parent, const QString& name) : FocusPanel(parent, name)
{
    SetBackColor(theme::White);
}

void FieldPanel::Hold(TextField& field)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::FieldPadding, 3, theme::FieldPadding, 3);
    layout->addWidget(&field.Widget());
    setMinimumHeight(theme::ControlHeight(fontMetrics()));
    if (auto* line = qobject_cast<QLineEdit*>(&field.Widget()))
        line->setFrame(false);
    if (auto* memo = qobject_cast<QPlainTextEdit*>(&field.Widget()))
        memo->document()->setDocumentMargin(2); // as much as a line has
    field.SetFocusBacking(*this);
    Follow(field.Widget());
}

void FieldPanel::paintEvent(QPaintEvent*)
{
    QStyleOptionFrame field;
    field.initFrom(this);
    field.lineWidth = 1;
    field.palette.setColor(QPalette::Base, BackColor());
    field.state.setFlag(QStyle::State_HasFocus, HasKeyboard());
    QStylePainter(this).drawPrimitive(QStyle::PE_PanelLineEdit, field);
}

PopupPanel::PopupPanel(QWidget* parent, const QString& name) : Panel(parent, name, Border::Edge)
{
    SetBackColor(theme::Page);
    hide();
}

void PopupPanel::Open(QPoint corner)
{
    resize(sizeHint().expandedTo(minimumSize()));
    move(MovedInto({corner, size()}, parentWidget()->rect()).topLeft());
    show();
    raise();
}

/// Behind the last of its controls comes the first one.
bool PopupPanel::focusNextPrevChild(bool next)
{
    QWidget* const from = focusWidget();
    if (!from)
        return Panel::focusNextPrevChild(next);
    const auto isStop = [this](const QWidget& control) {
        return isAncestorOf(&control) && control.isVisible() && control.isEnabled() &&
               (control.focusPolicy() & Qt::TabFocus);
    };
    QWidget* to = from;
    do
        to = next ? to->nextInFocusChain() : to->previousInFocusChain();
    while (to != from && !isStop(*to));
    to->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

ProgressBar::ProgressBar(QWidget* parent, const QString& name) : QProgressBar(parent)
{
    SetName(*this, name);
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    Show();
}

void ProgressBar::SetMax(int max)
{
    max_ = max;
    Show();
}

void ProgressBar::SetValue(int value)
{
    value_ = value;
    Show();
}

void ProgressBar::Show()
{
    // A range of nothing would be drawn as "busy"; here it is a bar that the first step fills.
    const int most = std::max(1, max_);
    const int value = std::clamp(value_, 0, most);
    const int before = FilledPixels(this->value());
    const bool isStep = most == maximum();
    if (isStep && FilledPixels(value) == before)
        return;
    setAttribute(Qt::WA_UpdatesDisabled); // the base would paint at once, at no pace
    setRange(0, most);
    setValue(value);
    setAttribute(Qt::WA_UpdatesDisabled, false);
    update(isStep ? Between(before, FilledPixels(value)) : rect());
}

/// What a step changes: the round ends of both fillings and what lies between them.
QRect ProgressBar::Between(int before, int after) const
{
    constexpr int end = 12; // more than the round end and the border take
    const auto [least, most] = std::minmax(before, after);
    const int left = static_cast<int>(least / devicePixelRatioF()) - end;
    const int right = static_cast<int>(most / devicePixelRatioF()) + end;
    return left > end ? QRect(left, 0, right - left, height()) : rect(); // a short filling changes as a whole
}

int ProgressBar::FilledPixels(int value) const
{
    return static_cast<int>(width() * devicePixelRatioF() * value / maximum());
}

QSize ProgressBar::sizeHint() const
{
    return {200, 14};
}

RadioButton::RadioButton(QWidget* parent, const QString& name, const QString& caption)
    : QRadioButton(parent), caption_(caption)
{
    setText(Shown(caption));
    SetName(*this, name);
    setAccessibleName(Trim(caption));
    connect(this, &QRadioButton::toggled, this, [this](bool chosen) {
        if (chosen)
            RaiseEvent(*this, OnClick);
    });
}

/// Of the choices on the same surface, in the order in which they were made.
RadioButton* RadioButton::Neighbour(int step) const
{
    const auto choices = parentWidget()->findChildren<RadioButton*>(QString(), Qt::FindDirectChildrenOnly);
    return choices.value(choices.indexOf(const_cast<RadioButton*>(this)) + step);
}

void RadioButton::keyPressEvent(QKeyEvent* event)
{
    const bool forward = event->key() == Qt::Key_Right || event->key() == Qt::Key_Down;
    const bool back = event->key() == Qt::Key_Left || event->key() == Qt::Key_Up;
    if (!forward && !back) {
        QRadioButton::keyPressEvent(event);
        return;
    }
    if (RadioButton* neighbour = Neighbour(forward ? 1 : -1)) {
        neighbour->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        neighbour->SetValue(true);
    }
}

CheckBox::CheckBox(QWidget* parent, const QString& name, const QString& caption)
    : QCheckBox(parent), caption_(caption)
{
    setText(Shown(caption));
    SetName(*this, name);
    setAccessibleName(Trim(caption));
    connect(this, &QCheckBox::toggled, this, [this] { RaiseEvent(*this, OnClick); });
}

} // namespace tsms
