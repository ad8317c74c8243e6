#pragma once

#include "toolkit/fields/KeyFilter.h"
#include "toolkit/fields/TextField.h"

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>

namespace tsms {

/// A text field that is a `Control` of Qt: what the control meets goes by the rules of the field.
template <typename Control> class TextControl : public Control, public TextField
{
public:
    using Control::Control;

    QWidget& Widget() override { return *this; }

protected:
    /// What a key does that the filter and the limits let through.
    virtual void Press(QKeyEvent& key)
    {
        EditByKey(key, [&] { Control::keyPressEvent(&key); });
    }
    /// What the control does by itself when the focus comes.
    virtual void TakeFocus(QFocusEvent& event) { Control::focusInEvent(&event); }

    bool event(QEvent* event) override
    {
        return SwallowsTab(*event, [this](QStringView key) { return PassKeys(key); }) ||
               Control::event(event);
    }
    void keyPressEvent(QKeyEvent* event) override
    {
        if (TakesBack(*event))
            return;
        SendFilteredKey(
            *event, [this](QStringView keys) { return WithRoom(PassKeys(keys)); },
            [this](QKeyEvent* key) { Press(*key); });
    }
    void keyReleaseEvent(QKeyEvent* event) override
    {
        Control::keyReleaseEvent(event);
        if (!event->isAutoRepeat())
            TellKeyUp(event->key(), static_cast<int>(event->modifiers()));
    }
    void inputMethodEvent(QInputMethodEvent* event) override
    {
        SeeComposed(*event);
        SendFilteredCommit(
            *event, [this](QStringView keys) { return PassKeys(keys); },
            [this](QInputMethodEvent* commit) { EditByCommit([&] { Control::inputMethodEvent(commit); }); });
    }
    void focusInEvent(QFocusEvent* event) override
    {
        TakeFocus(*event);
        TellFocus(true, event->reason());
    }
    void focusOutEvent(QFocusEvent* event) override
    {
        Control::focusOutEvent(event);
        TellFocus(false, event->reason());
    }
};

} // namespace tsms
