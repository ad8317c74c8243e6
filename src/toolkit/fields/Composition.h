#pragma once

#include <QString>

class QEvent;
class QInputMethodEvent;

namespace tsms {

/// Has the input method hand over what it is composing, to the control that has the focus. Nothing otherwise.
void EndComposition();

/// What the input method has under way, as the events of the whole program tell. It mends two habits of input
/// methods and their connection to the toolkit:
/// - A press of the mouse makes some of them hand over what was composed where the mouse went. So the
///   composition ends before the press, where it stands.
/// - When the toolkit or a field has ended a composition by itself, some engines hand the same text over
///   once more, to whatever has the focus by then. That echo is withheld.
class Composition
{
public:
    /// Sees an event of the program before it is delivered. True: it is an echo, and nobody may get it.
    bool Withholds(const QEvent& event);

private:
    bool IsEcho(const QInputMethodEvent& event);

    QString underWay_;
    QString ended_; // by a commit of just this text; empty as soon as a key or another composition came
};

} // namespace tsms
