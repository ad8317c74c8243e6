#include "toolkit/fields/KeyFilter.h"

#include "toolkit/fields/LimitRule.h"
#include "toolkit/fields/RaiseEvent.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

namespace tsms {

namespace {

constexpr char16_t BackspaceKey = 8;
constexpr char16_t TabKey = 9;

QString CharactersOf(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return QString(QChar(EnterKey));
    case Qt::Key_Backspace:
        return QString(QChar(BackspaceKey));
    default:
        break;
    }
    QString text = Manageable(event.text());
    if (text.isEmpty() || text.front().category() == QChar::Other_Control)
        return {};
    return text;
}

} // namespace

bool IsEditingCommand(const QKeyEvent& event)
{
    // AltGr comes as Ctrl and Alt, with the character that it makes.
    return event.modifiers().testFlag(Qt::ControlModifier) &&
           (event.text().isEmpty() || event.text().front().category() == QChar::Other_Control ||
            !event.modifiers().testFlag(Qt::AltModifier));
}

bool IsShortcut(const QKeyEvent& event)
{
    return event.modifiers().testFlag(Qt::AltModifier) && !event.modifiers().testFlag(Qt::ControlModifier) &&
           !event.text().isEmpty() && event.text().front().isPrint();
}

QString OfferKeys(const QWidget& control, const std::function<void(char16_t& key)>& handler, QStringView keys)
{
    if (!handler)
        return keys.toString();
    QString passed;
    for (const QChar c : keys) {
        char16_t key = c.unicode();
        RaiseEvent(control, [&] { handler(key); });
        if (key != 0)
            passed += QChar(key);
    }
    return passed;
}

bool SwallowsTab(QEvent& event, const PassKeysFunction& pass)
{
    if (event.type() != QEvent::KeyPress)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    if (key.key() != Qt::Key_Tab || IsEditingCommand(key) || !pass(QStringView(&TabKey, 1)).isEmpty())
        return false;
    event.accept();
    return true;
}

void SendFilteredKey(QKeyEvent& event, const PassKeysFunction& pass,
                     const std::function<void(QKeyEvent*)>& send)
{
    if (IsShortcut(event)) { // the control would write it
        event.ignore();
        return;
    }
    const QString characters = IsEditingCommand(event) ? QString() : CharactersOf(event);
    if (characters.isEmpty()) {
        send(&event);
        return;
    }
    const QString passed = pass(characters);
    if (passed == characters && event.text().size() <= characters.size()) {
        send(&event);
        return;
    }
    event.accept();
    if (passed.isEmpty())
        return;
    QKeyEvent changed(QEvent::KeyPress, Qt::Key_unknown, event.modifiers(), passed, event.isAutoRepeat(),
                      static_cast<quint16>(passed.size()));
    send(&changed);
}

void SendFilteredCommit(QInputMethodEvent& event, const PassKeysFunction& pass,
                        const std::function<void(QInputMethodEvent*)>& send)
{
    const QString committed = Manageable(event.commitString());
    const QString passed = committed.isEmpty() ? committed : pass(committed);
    const QString composed = Manageable(event.preeditString());
    const bool wholly = composed == event.preeditString();
    if (wholly && passed == event.commitString()) {
        send(&event);
        return;
    }
    // The attributes mark places of the composed text, which may be gone.
    const auto marks = wholly ? event.attributes() : QList<QInputMethodEvent::Attribute>();
    QInputMethodEvent filtered(composed, marks);
    filtered.setCommitString(passed, event.replacementStart(), event.replacementLength());
    send(&filtered);
    event.accept();
}

} // namespace tsms
