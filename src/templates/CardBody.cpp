#include "templates/CardBody.h"

#include "toolkit/fields/AccessibleButton.h"
#include "toolkit/fields/PhonePanel.h"
#include "toolkit/fields/RaiseEvent.h"

#include <QKeyEvent>

namespace tsms {

namespace {

bool Chooses(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
}

bool IsArrow(int key)
{
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

/// To the platform a card is a text, and not something to choose.
QAccessibleInterface* MakeAccessible(const QString&, QObject* object)
{
    auto* body = qobject_cast<CardBody*>(object);
    return body ? new AccessibleButton(*body, [body] { RaiseEvent(*body, body->OnClick); }) : nullptr;
}

void TellOfCards()
{
    static const bool told = (QAccessible::installFactory(MakeAccessible), true);
    Q_UNUSED(told)
}

} // namespace

CardBody::CardBody(PhonePanel& phone, const QString& name) : CardLabel(&phone, name), phone_(phone)
{
    setAttribute(Qt::WA_Hover);
    TellOfCards();
}

void CardBody::SetUsable(bool usable)
{
    usable_ = usable;
    if (usable)
        setCursor(Qt::PointingHandCursor);
    else
        unsetCursor();
    phone_.SetTouched(usable && underMouse());
}

bool CardBody::event(QEvent* event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave)
        phone_.SetTouched(usable_ && event->type() == QEvent::HoverEnter);
    return CardLabel::event(event);
}

void CardBody::keyPressEvent(QKeyEvent* event)
{
    if (Chooses(event->key())) {
        if (!event->isAutoRepeat())
            heldKey_ = event->key();
    } else if (IsArrow(event->key())) {
        if (OnArrow)
            OnArrow(event->key());
    } else {
        CardLabel::keyPressEvent(event);
    }
}

void CardBody::keyReleaseEvent(QKeyEvent* event)
{
    if (event->isAutoRepeat() || event->key() != heldKey_) {
        CardLabel::keyReleaseEvent(event);
        return;
    }
    heldKey_ = 0;
    RaiseEvent(*this, OnClick);
}

void CardBody::focusInEvent(QFocusEvent* event)
{
    CardLabel::focusInEvent(event);
    phone_.SetRing(true);
    if (OnGotFocus)
        OnGotFocus();
}

void CardBody::focusOutEvent(QFocusEvent* event)
{
    CardLabel::focusOutEvent(event);
    phone_.SetRing(false);
    heldKey_ = 0;
}

} // namespace tsms
