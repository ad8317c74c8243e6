#include "compose/MessageCounter.h"

#include "runtime/CodePage949.h"
#include "toolkit/Controls.h"
#include "toolkit/TextField.h"

#include <QHBoxLayout>

namespace tsms {

MessageCounter::MessageCounter(TextField& field, const QString& numberName, const QString& limitName,
                               QWidget* parent)
    : QWidget(parent), field_(field), number_(new Label(this, numberName, QStringLiteral("0 /")))
{
    auto* limit = new Label(this, limitName, QStringLiteral("80"));
    number_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    row->addWidget(number_, 1);
    row->addWidget(limit);
    field_.OnKeyUp = [this](int key, int shift) { KeyUp(key, shift); };
}

void MessageCounter::KeyUp(int, int)
{
    number_->Tag = QString::number(ByteCount(field_.Text()));
    number_->SetCaption(number_->Tag + QStringLiteral(" /"));
}

} // namespace tsms
