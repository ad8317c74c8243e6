#pragma once

#include "templates/CardLabel.h"

namespace tsms {

class PhonePanel;

/// The body of a template card, the part of it that is chosen: by a click, or by Enter or the space bar when
/// it has the keyboard focus. A key chooses when it is let go, so that none of it reaches a field that takes
/// the focus by it. The phone that the body stands on shows mouse and focus.
class CardBody : public CardLabel
{
    Q_OBJECT

public:
    CardBody(PhonePanel& phone, const QString& name);

    /// Whether a click does something. A body that does nothing shows no sign of the mouse.
    void SetUsable(bool usable);

    /// The focus has come here.
    std::function<void()> OnGotFocus;
    /// One of the four arrow keys, Qt::Key_Left and its like.
    std::function<void(int key)> OnArrow;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    PhonePanel& phone_;
    bool usable_ = false;
    int heldKey_ = 0; // Enter or the space bar, from press to release
};

} // namespace tsms
