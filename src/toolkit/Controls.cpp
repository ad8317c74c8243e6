#include "toolkit/Controls.h"

#include "runtime/Text.h"
#include "toolkit/AccessibleButton.h"
#include "toolkit/Guarded.h"
#include "toolkit/Naming.h"
#include "toolkit/Pictures.h"
#include "toolkit/TextField.h"
#include "toolkit/Theme.h"

#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QVBoxLayout>

#include <algorithm>

namespace tsms {

namespace {

constexpr double Radius = 4;
constexpr int PictureSize = 18;
constexpr int SmallPictureSize = 14;
constexpr int PictureGap = 7;

/// Shown as it stands: an ampersand is no mark of a shortcut.
QString Shown(const QString& caption)
{
    return QString(caption).replace(u'&', QStringLiteral("&&"));
}

/// Room of a mark and its words for the ring of the focus.
constexpr QMargins RingRoom(4, 3, 4, 3);

/// Draws a mark with its words, and the ring around both.
template <class Mark> void PaintMark(Mark& mark, QStyle::ControlElement element, QStyleOptionButton option)
{
    option.rect = option.rect.marginsRemoved(RingRoom);
    option.state &= ~QStyle::State_HasFocus; // the style shows it only behind a key
    QStylePainter painter(&mark);
    painter.drawControl(element, option);
    if (mark.hasFocus())
        theme::DrawFocusRing(painter, mark.rect(), Radius);
}

QRectF HalfPixelInside(const QRect& rect)
{
    return QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
}

class AccessiblePictureButton final : public AccessibleButton
{
public:
    explicit AccessiblePictureButton(PictureButton& button)
        : AccessibleButton(button, [&button] { button.click(); }), button_(button)
    {
    }

    QAccessible::Role role() const override
    {
        return IsSign() ? QAccessible::Graphic : AccessibleButton::role();
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = AccessibleButton::state();
        if (IsSign()) // it means nothing
            state.invisible = true;
        state.pressed = button_.isDown();
        state.selectable = button_.LookOf() == PictureButton::Look::Selected;
        state.selected = state.selectable;
        return state;
    }
    QStringList actionNames() const override
    {
        return IsSign() ? QStringList() : AccessibleButton::actionNames();
    }

private:
    bool IsSign() const { return button_.LookOf() == PictureButton::Look::Sign; }

    PictureButton& button_;
};

/// The platform knows buttons with a text only.
QAccessibleInterface* MakeAccessiblePictureButton(const QString&, QObject* object)
{
    auto* button = qobject_cast<PictureButton*>(object);
    return button ? new AccessiblePictureButton(*button) : nullptr;
}

void TellOfPictureButtons()
{
    static const bool told = (QAccessible::installFactory(MakeAccessiblePictureButton), true);
    Q_UNUSED(told)
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

void PushButton::SetFaceColor(const QColor& face)
{
    face_ = face;
    update();
}

QSize PushButton::sizeHint() const
{
    constexpr int LeastWidth = 64;
    const QFontMetrics metrics = fontMetrics();
    const int width = metrics.horizontalAdvance(caption_) + 28;
    return {look_ == Look::Flat ? width : std::max(LeastWidth, width), metrics.height() + 14};
}

void PushButton::paintEvent(QPaintEvent*)
{
    const bool primary = look_ == Look::Primary && !face_.isValid();
    QColor face = face_.isValid() ? face_ : primary ? theme::Accent : theme::ButtonFace;
    QColor words = primary ? theme::White : theme::Text;
    QColor line = primary || face_.isValid() ? theme::Pressed(face) : theme::Frame;
    if (!isEnabled()) {
        face = theme::Ground;
        words = theme::Disabled;
        line = theme::Line;
    } else if (isDown() || isChecked()) {
        face = theme::Pressed(face);
    } else if (underMouse()) {
        face = theme::Hovered(face);
    }

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(face);
    painter.setPen(look_ == Look::Flat ? QPen(Qt::NoPen) : QPen(line, 1));
    painter.drawRoundedRect(HalfPixelInside(rect()), Radius, Radius);
    painter.setPen(words);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, caption_);
    if (hasFocus())
        theme::DrawFocusRing(painter, rect(), Radius);
}

PictureButton::PictureButton(QWidget* parent, const QString& name, const QString& picture,
                             const QString& words, Look look)
    : QAbstractButton(parent), picture_(picture), words_(words), look_(look)
{
    TellOfPictureButtons();
    setFocusPolicy(HasRoomForWords() ? Qt::StrongFocus : Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    SetName(*this, name);
    setAccessibleName(words);
    if (!HasRoomForWords())
        setToolTip(words);
    connect(this, &QAbstractButton::clicked, this, [this] { RaiseEvent(*this, OnClick); });
}

/// On title strips there is room for a small picture alone.
bool PictureButton::HasRoomForWords() const
{
    return look_ == Look::Idle || look_ == Look::Selected || look_ == Look::Framed;
}

int PictureButton::WordsWidth(const QFontMetrics& metrics) const
{
    const bool shown = HasRoomForWords() && !words_.isEmpty();
    return shown ? PictureGap + metrics.horizontalAdvance(words_) : 0;
}

QSize PictureButton::sizeHint() const
{
    if (look_ == Look::Window || look_ == Look::Closing)
        return {34, 28};
    if (look_ == Look::Sign)
        return {26, 28};
    const QFontMetrics metrics = fontMetrics();
    const int words = WordsWidth(metrics);
    const int air = look_ == Look::Framed ? 10 : 14; // no higher than the push buttons beside it
    return {PictureSize + words + 24, std::max(PictureSize, metrics.height()) + air};
}

/// The face at rest, or what the mouse makes of the other one.
QColor PictureButton::Touched(const QColor& rest, const QColor& touched) const
{
    if (isEnabled() && isDown())
        return theme::Pressed(touched);
    return isEnabled() && underMouse() ? theme::Hovered(touched) : rest;
}

QColor PictureButton::Face() const
{
    switch (look_) {
    case Look::Sign:
        return Qt::transparent;
    case Look::Selected:
        return theme::Page;
    case Look::Closing:
        if (isEnabled() && (isDown() || underMouse()))
            return isDown() ? theme::Pressed(theme::Warning) : theme::Warning;
        return Qt::transparent;
    case Look::Framed:
        return Touched(theme::ButtonFace, theme::ButtonFace);
    case Look::Idle:
    case Look::Window:
        break;
    }
    return Touched(Qt::transparent, theme::Strip);
}

void PictureButton::paintEvent(QPaintEvent*)
{
    const bool warns = look_ == Look::Closing && isEnabled() && (isDown() || underMouse());
    const QColor ink = !isEnabled()              ? theme::Disabled
                       : warns                   ? theme::White
                       : look_ == Look::Selected ? theme::Accent
                                                 : theme::StripText;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(look_ == Look::Framed ? QPen(theme::Frame, 1) : QPen(Qt::NoPen));
    painter.setBrush(Face());
    painter.drawRoundedRect(look_ == Look::Framed ? HalfPixelInside(rect()) : QRectF(rect()), Radius, Radius);

    QFont font = this->font();
    font.setBold(look_ == Look::Selected);
    const QFontMetrics metrics(font);
    const int size = HasRoomForWords() || look_ == Look::Sign ? PictureSize : SmallPictureSize;
    const int words = WordsWidth(metrics);
    const int left = (width() - size - words) / 2;
    DrawPicture(painter, QRectF(left, (height() - size) / 2.0, size, size), picture_, ink);
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(QRect(left + size + PictureGap, 0, words, height()),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, words_);
    if (look_ == Look::Selected)
        painter.fillRect(QRect(10, height() - 3, width() - 20, 2), theme::Accent);
    if (hasFocus())
        theme::DrawFocusRing(painter, rect(), Radius);
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
    const bool wasBlank = IsBlank(caption_);
    caption_ = caption;
    setText(QString(caption).replace(CrLf.toString(), QStringLiteral("\n")));
    setAccessibleName(caption);
    if (IsBlank(caption) != wasBlank && isVisible()) {
        QAccessibleEvent event(this, wasBlank ? QAccessible::ObjectShow : QAccessible::ObjectHide);
        QAccessible::updateAccessibility(&event);
    }
}

void Label::Refresh()
{
    if (pace_.IsDue())
        repaint();
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
    if (border == Border::Line)
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

void Panel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (filled_)
        painter.fillRect(rect(), BackColor());
    if (border_ == Border::Line) {
        painter.setPen(QPen(theme::Line, 1));
        painter.drawRect(HalfPixelInside(rect()));
    }
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

FieldPanel::FieldPanel(QWidget* parent, const QString& name) : Panel(parent, name)
{
    SetBackColor(theme::White);
}

void FieldPanel::Hold(TextField& field)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 3, 6, 3);
    layout->addWidget(&field.Widget());
    if (auto* line = qobject_cast<QLineEdit*>(&field.Widget()))
        line->setFrame(false);
    else if (auto* memo = qobject_cast<QFrame*>(&field.Widget()))
        memo->setFrameShape(QFrame::NoFrame);
    field.SetFocusBacking(*this);
}

bool FieldPanel::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate)
        update(); // the border tells whether the keyboard is here
    return Panel::event(event);
}

void FieldPanel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool focused = isAncestorOf(window()->focusWidget()) && window()->isActiveWindow();
    painter.setPen(QPen(focused ? theme::Accent : theme::Frame, 1));
    painter.setBrush(isEnabled() ? BackColor() : theme::Ground);
    painter.drawRoundedRect(HalfPixelInside(rect()), 3, 3);
}

PopupPanel::PopupPanel(QWidget* parent, const QString& name) : Panel(parent, name)
{
    SetBackColor(theme::Page);
    setContentsMargins(1, 1, 1, 1);
    hide();
}

void PopupPanel::Open(QPoint corner)
{
    resize(sizeHint().expandedTo(minimumSize()));
    const QSize room = parentWidget()->size() - size();
    move(std::clamp(corner.x(), 0, std::max(0, room.width())),
         std::clamp(corner.y(), 0, std::max(0, room.height())));
    show();
    raise();
}

void PopupPanel::paintEvent(QPaintEvent* event)
{
    Panel::paintEvent(event);
    QPainter painter(this);
    painter.setPen(QPen(theme::Frame, 1));
    painter.drawRect(HalfPixelInside(rect()));
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
    setAttribute(Qt::WA_UpdatesDisabled); // the base would paint at each step, also when no pixel changes
    setRange(0, most);
    setValue(std::clamp(value_, 0, most));
    setAttribute(Qt::WA_UpdatesDisabled, false);
    if (FilledPixels() != painted_)
        update();
}

void ProgressBar::Refresh()
{
    if (FilledPixels() != painted_ && pace_.IsDue())
        repaint();
}

int ProgressBar::FilledPixels() const
{
    return static_cast<int>(width() * devicePixelRatioF() * value() / maximum());
}

QSize ProgressBar::sizeHint() const
{
    return {200, 14};
}

void ProgressBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF trough = HalfPixelInside(rect());
    painted_ = FilledPixels();
    painter.setPen(QPen(theme::Line, 1));
    painter.setBrush(theme::Ground);
    painter.drawRoundedRect(trough, Radius, Radius);
    const double share = static_cast<double>(value()) / maximum();
    if (value() <= 0)
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme::Accent);
    QRectF bar = trough.adjusted(1, 1, -1, -1);
    bar.setWidth(bar.width() * share);
    painter.drawRoundedRect(bar, std::min(Radius, bar.width() / 2), Radius - 1);
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

QSize RadioButton::sizeHint() const
{
    return QRadioButton::sizeHint().grownBy(RingRoom);
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

void RadioButton::paintEvent(QPaintEvent*)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    PaintMark(*this, QStyle::CE_RadioButton, option);
}

CheckBox::CheckBox(QWidget* parent, const QString& name, const QString& caption)
    : QCheckBox(parent), caption_(caption)
{
    setText(Shown(caption));
    SetName(*this, name);
    setAccessibleName(Trim(caption));
    connect(this, &QCheckBox::toggled, this, [this] { RaiseEvent(*this, OnClick); });
}

QSize CheckBox::sizeHint() const
{
    return QCheckBox::sizeHint().grownBy(RingRoom);
}

void CheckBox::paintEvent(QPaintEvent*)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    PaintMark(*this, QStyle::CE_CheckBox, option);
}

} // namespace tsms
