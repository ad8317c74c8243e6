#include "toolkit/fields/Composition.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>

namespace tsms {

void EndComposition()
{
    // Some hand over when they are told to commit, the others when they are told to begin anew.
    QInputMethod& method = *QGuiApplication::inputMethod();
    method.commit();
    method.reset();
}

bool Composition::Withholds(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::InputMethod:
        return IsEcho(static_cast<const QInputMethodEvent&>(event));
    case QEvent::MouseButtonPress:
        if (!underWay_.isEmpty())
            EndComposition();
        return false;
    case QEvent::KeyPress:
        ended_.clear();
        return false;
    default:
        return false;
    }
}

bool Composition::IsEcho(const QInputMethodEvent& event)
{
    const QString& composed = event.preeditString();
    const QString& committed = event.commitString();
    const bool echo = composed.isEmpty() && !committed.isEmpty() && committed == ended_;
    if (!committed.isEmpty())
        ended_ = !echo && committed == underWay_ ? committed : QString();
    if (!composed.isEmpty())
        ended_.clear();
    underWay_ = composed;
    return echo;
}

} // namespace tsms
