#include "toolkit/fields/FieldRows.h"

#include "runtime/Text.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/fields/TextHelper.h"
#include "toolkit/look/Theme.h"

#include <QGridLayout>
#include <QVBoxLayout>

namespace tsms {

namespace {

constexpr int LeastBoxWidth = 260;
constexpr int MemoHeight = 84; // four lines
constexpr int GroupGap = 6;    // below the note that ends a group of boxes

} // namespace

FieldRows::FieldRows(QWidget& parent, QVBoxLayout& place, TextHelper& textHelper)
    : parent_(parent), textHelper_(textHelper), grid_(new QGridLayout)
{
    grid_->setHorizontalSpacing(10);
    grid_->setVerticalSpacing(8);
    grid_->setColumnStretch(1, 1);
    grid_->setColumnMinimumWidth(1, LeastBoxWidth);
    place.addLayout(grid_);
}

TextBox& FieldRows::AddBox(int index, const QString& caption, int maxLength)
{
    auto* box = new TextBox(&parent_, IndexedName(u"txtUpdate", index));
    AddCaption(index, caption, *box);
    Hold(index, *box, maxLength);
    return *box;
}

MemoBox& FieldRows::AddMemo(int index, const QString& caption, int maxLength)
{
    auto* box = new MemoBox(&parent_, IndexedName(u"txtUpdate", index));
    AddCaption(index, caption, *box);
    box->setFixedHeight(MemoHeight);
    Hold(index, *box, maxLength);
    return *box;
}

void FieldRows::AddControl(int index, const QString& caption, QWidget& control)
{
    AddCaption(index, caption, control);
    grid_->addWidget(&control, row_, 1);
}

void FieldRows::AddBelow(QWidget& control)
{
    grid_->addWidget(&control, ++row_, 1);
}

void FieldRows::AddNote(const QString& name, const QString& words)
{
    auto* note = new Label(&parent_, name, words);
    note->SetTextColor(theme::Faint);
    note->setContentsMargins(0, 0, 0, GroupGap);
    AddBelow(*note);
}

void FieldRows::AddCaption(int index, const QString& caption, QWidget& field)
{
    auto* label = new Label(&parent_, IndexedName(u"lblTitle", index), caption);
    label->Describes(field);
    label->setMinimumHeight(
        theme::ControlHeight(label->fontMetrics())); // in line with the first line of a box
    grid_->addWidget(label, ++row_, 0, Qt::AlignTop);
    names_[index] = Trim(WithoutBlanks(caption));
}

void FieldRows::Hold(int index, TextField& box, int maxLength)
{
    auto* backing = new FieldPanel(&parent_, IndexedName(u"PLtxtBack", index));
    box.SetBackColor(theme::White);
    box.SetMaxLength(maxLength);
    backing->Hold(box);
    grid_->addWidget(backing, row_, 1);
    boxes_[index] = &box;
}

bool FieldRows::RequireAll() const
{
    for (const auto& [index, box] : boxes_)
        if (!textHelper_.RequireText(*box, names_.at(index)))
            return false;
    return true;
}

void FieldRows::NextOnEnter(int index, char16_t& key) const
{
    TextField& next = Box(index + 1);
    textHelper_.NextFieldOnEnter(key, next);
    textHelper_.SelectField(next);
    key = 0;
}

} // namespace tsms
