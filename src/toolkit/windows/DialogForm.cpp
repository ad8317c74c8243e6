#include "toolkit/windows/DialogForm.h"

#include "session/WhenIdle.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/TextField.h"
#include "toolkit/look/Theme.h"

#include <QHBoxLayout>
#include <QShowEvent>
#include <QVBoxLayout>

namespace tsms {

namespace {

constexpr int FrameWidth = 1;
constexpr int Margin = 16;
constexpr int StripHeight = 38;

bool IsBackKey(int key)
{
    return key == Qt::Key_Left || key == Qt::Key_Up;
}

bool IsForwardKey(int key)
{
    return key == Qt::Key_Right || key == Qt::Key_Down;
}

} // namespace

DialogForm::DialogForm(Session& session, Desktop& desktop, const DialogFrame& frame, QWidget* owner)
    : Form(session, desktop, frame.name, Kind::Dialog, owner),
      f12RunsButton0_(frame.f12RunsButton0),
      arrowsWalk_(frame.arrowsWalk)
{
    SetCaption(frame.caption);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(FrameWidth, FrameWidth, FrameWidth, FrameWidth);
    layout->setSpacing(0);
    // The window is as large as its controls ask for: there is no border to drag.
    layout->setSizeConstraint(QLayout::SetFixedSize);

    MakeTitleStrip(frame);
    layout->addWidget(strip_);
    if (!frame.note.isEmpty()) {
        noteLabel_ = new Label(this, frame.noteLabel, frame.note);
        noteLabel_->SetTextColor(theme::Faint);
        noteLabel_->setContentsMargins(Margin, 12, Margin, 0);
        layout->addWidget(noteLabel_);
    }
    auto* body = new Panel(this, QString());
    body->SetDragsWindow(true); // to the eye it is the form's own surface
    body_ = body;
    bodyLayout_ = new QVBoxLayout(body_);
    bodyLayout_->setContentsMargins(Margin, 12, Margin, 12);
    bodyLayout_->setSpacing(8);
    layout->addWidget(body_, 1);
    MakeFoot(frame);
    layout->addLayout(footLayout_);
}

void DialogForm::MakeTitleStrip(const DialogFrame& frame)
{
    strip_ = new Panel(this, QStringLiteral("Picture1"));
    strip_->SetBackColor(theme::Strip);
    strip_->SetDragsWindow(true);
    strip_->setFixedHeight(StripHeight);
    auto* row = new QHBoxLayout(strip_);
    row->setContentsMargins(8, 0, 4, 0);
    row->setSpacing(6);

    // The first one is the sign of the program at the head of the strip. Meant: a click on it does nothing.
    topFunc_[0] = new PictureButton(strip_, IndexedName(u"BtnTopFunc", 0), QStringLiteral("program"),
                                    QString(), PictureButton::Look::Sign);
    topFunc_[1] = new PictureButton(strip_, IndexedName(u"BtnTopFunc", 1), QStringLiteral("window-close"),
                                    QStringLiteral("닫기"), PictureButton::Look::Closing);
    topFunc_[1]->OnClick = WhenIdle(*this, [this] { Unload(); });
    titleLabel_ = new Label(strip_, frame.titleLabel, frame.title);
    titleLabel_->SetBold(true);
    titleLabel_->SetTextColor(theme::StripText);
    titleLabel_->setAttribute(Qt::WA_TransparentForMouseEvents); // part of the strip

    row->addWidget(topFunc_[0]);
    row->addWidget(titleLabel_, 1);
    row->addWidget(topFunc_[1]);
}

void DialogForm::MakeFoot(const DialogFrame& frame)
{
    footLayout_ = new QHBoxLayout;
    footLayout_->setContentsMargins(Margin, 4, Margin, Margin);
    footLayout_->setSpacing(8);
    footLayout_->addStretch(1);
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        if (frame.buttons[i].isEmpty())
            continue;
        const int index = static_cast<int>(i);
        const auto look = index == 0 ? PushButton::Look::Primary : PushButton::Look::Plain;
        buttons_[i] = new PushButton(this, IndexedName(frame.buttonBase, index), frame.buttons[i], look);
        buttons_[i]->OnClick = WhenIdle(*this, [this, index] { OnButton(index); });
        footLayout_->addWidget(buttons_[i]);
    }
}

void DialogForm::SetUsable(bool usable)
{
    for (QAbstractButton* button :
         std::initializer_list<QAbstractButton*>{buttons_[0], buttons_[1], topFunc_[1]})
        if (button)
            button->setEnabled(usable);
    if (!usable)
        topFunc_[1]->repaint(); // and with it whatever else has changed
}

void DialogForm::GiveHeight(int) {}

void DialogForm::FitInto(QSize room)
{
    const int excess = layout()->totalSizeHint().height() - room.height();
    if (excess > 0) {
        GiveHeight(excess);
        layout()->activate();
    }
    Form::FitInto(room);
}

void DialogForm::SetTitle(const QString& title)
{
    titleLabel_->SetCaption(title);
}

void DialogForm::OnButton(int index)
{
    if (index != 0)
        Unload();
}

bool DialogForm::KeyDown(int key, Qt::KeyboardModifiers)
{
    if (IsBusy())
        return false;
    if (key == Qt::Key_F12) {
        if (f12RunsButton0_)
            OnButton(0);
        return true;
    }
    if (key == Qt::Key_Escape) {
        Unload();
        return true;
    }
    return arrowsWalk_ && WalkByArrow(key);
}

bool DialogForm::WalkByArrow(int key)
{
    const auto* field = dynamic_cast<TextField*>(focusWidget());
    if (!field)
        return false;
    if (IsBackKey(key) && field->SelStart() == 0)
        return focusNextPrevChild(false);
    // Meant: any selection sends the key on at once.
    if (IsForwardKey(key) && (field->SelLength() > 0 || field->SelStart() == field->Text().size()))
        return focusNextPrevChild(true);
    return false;
}

void DialogForm::showEvent(QShowEvent* event)
{
    if (!focusWidget())
        FocusFirst();
    QWidget::showEvent(event);
}

void DialogForm::FocusFirst()
{
    // The foot was made before the body was filled; a person begins in the body.
    for (QWidget* widget = nextInFocusChain(); widget != this; widget = widget->nextInFocusChain()) {
        const bool stop =
            (widget->focusPolicy() & Qt::TabFocus) && widget->isEnabled() && !widget->isHidden();
        if (stop && body_->isAncestorOf(widget)) {
            widget->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
    focusNextChild();
}

} // namespace tsms
