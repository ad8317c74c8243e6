#include "compose/MessageCounter.h"

#include "runtime/CodePage949.h"
#include "runtime/Text.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/KeyFilter.h"
#include "toolkit/fields/LimitRule.h"
#include "toolkit/fields/TextField.h"
#include "toolkit/look/Theme.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QInputMethodEvent>
#include <QKeyEvent>

namespace tsms {

namespace {

constexpr int Rim = 3; // of the ground about the words

/// What a key puts into a field.
QString TextOf(const QKeyEvent& key)
{
    if (key.matches(QKeySequence::Paste))
        return QGuiApplication::clipboard()->text();
    if (IsShortcut(key))
        return {};
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)
        return QStringLiteral("\n");
    const QString text = key.text();
    return !text.isEmpty() && text.front().isPrint() ? text : QString();
}

} // namespace

MessageCounter::MessageCounter(TextField& field, FieldLimit limit, const QString& numberName,
                               const QString& limitName, QWidget* parent)
    : QWidget(parent),
      field_(field),
      limit_(limit),
      number_(new Label(this, numberName)),
      most_(new Label(this, limitName, QString::number(MessageLimit)))
{
    number_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (Label* label : {number_, most_})
        label->setContentsMargins(Rim, 0, Rim, 0);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addStretch(1);
    row->addWidget(number_);
    row->addWidget(most_);
    field_.OnKeyUp = [this](int key, int shift) { KeyUp(key, shift); };
    field_.Widget().installEventFilter(this);
    ShowNone();
    ShowState();
}

void MessageCounter::KeyUp(int, int)
{
    const QString text = field_.Text();
    const int bytes = ByteCount(text);
    number_->Tag = QString::number(bytes);
    number_->SetCaption(number_->Tag + QStringLiteral(" /"));
    SetState(bytes > MessageLimit || limit_.measure.length(text) >= limit_.most, refused_);
}

void MessageCounter::ShowNone()
{
    number_->SetCaption(QStringLiteral("0 /"));
    SetState(false, false);
}

bool MessageCounter::eventFilter(QObject*, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        SetState(warns_, !HasRoomFor(TextOf(static_cast<QKeyEvent&>(*event))));
        break;
    case QEvent::InputMethod:
        SetState(warns_, !HasRoomFor(static_cast<QInputMethodEvent*>(event)->commitString()));
        break;
    case QEvent::FocusOut:
        SetState(warns_, false);
        break;
    default:
        break;
    }
    return false;
}

bool MessageCounter::HasRoomFor(const QString& put) const
{
    if (put.isEmpty())
        return true;
    const auto& length = limit_.measure.length;
    const QString text = QString(put).replace(u'\n', CrLf);
    return length(field_.Text()) - length(field_.SelText()) + length(text) <= limit_.most;
}

void MessageCounter::SetState(bool warns, bool refused)
{
    if (warns == warns_ && refused == refused_)
        return; // most keys: to set the colours anew costs more than all else that a key does here
    warns_ = warns;
    refused_ = refused;
    ShowState();
}

void MessageCounter::ShowState()
{
    for (Label* label : {number_, most_}) {
        label->SetTextColor(refused_ ? theme::White : warns_ ? theme::Warning : theme::Text);
        label->SetBackColor(refused_ ? theme::Warning : QColor(Qt::transparent));
    }
}

} // namespace tsms
