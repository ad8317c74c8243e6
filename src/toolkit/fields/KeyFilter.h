#pragma once

#include <QString>
#include <QStringView>

#include <functional>

class QEvent;
class QInputMethodEvent;
class QKeyEvent;
class QWidget;

namespace tsms {

/// The character that a handler gets for the Enter key.
inline constexpr char16_t EnterKey = 13;

/// Answers the characters of `keys` that pass.
using PassKeysFunction = std::function<QString(QStringView keys)>;

/// Offers each character of `keys` to a control's handler, which may change it, or swallow it by a 0. Answers
/// what is left; without a handler everything passes.
QString OfferKeys(const QWidget& control, const std::function<void(char16_t& key)>& handler,
                  QStringView keys);

/// True when the keys are no character but a command, as those of copy and paste are.
bool IsEditingCommand(const QKeyEvent& event);

/// True when the keys are Alt with a character: a shortcut, whose character is not to be written.
bool IsShortcut(const QKeyEvent& event);

/// True when the event is a Tab that the filter swallowed; it is then used up.
bool SwallowsTab(QEvent& event, const PassKeysFunction& pass);

/// Hands a key press on with the characters that the filter lets pass, of a manageable number, or uses it up
/// when none is left.
/// Keys without a character and editing commands go on untouched. A shortcut is left to the window.
void SendFilteredKey(QKeyEvent& event, const PassKeysFunction& pass,
                     const std::function<void(QKeyEvent*)>& send);

/// Hands an input method's event on with what the filter lets pass of the committed text. What is still being
/// composed is left alone. Of neither more than a manageable number of characters is handed on.
void SendFilteredCommit(QInputMethodEvent& event, const PassKeysFunction& pass,
                        const std::function<void(QInputMethodEvent*)>& send);

} // namespace tsms
