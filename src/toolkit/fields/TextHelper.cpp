#include "toolkit/fields/TextHelper.h"

#include "runtime/CodePage949.h"
#include "runtime/Desktop.h"
#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "toolkit/fields/KeyFilter.h"
#include "toolkit/fields/LimitRule.h"
#include "toolkit/fields/TextField.h"

#include <algorithm>

namespace tsms {

namespace {

int CaretOf(const TextField& field)
{
    return field.SelStart() + field.SelLength();
}

bool IsPhoneCharacter(QChar c)
{
    return (c >= u'0' && c <= u'9') || c == u'-' || c == u'.' || c == u'/';
}

QString PhoneCharacters(QStringView text)
{
    QString kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept), IsPhoneCharacter);
    return kept;
}

} // namespace

void TextHelper::LimitBytes(TextField& field, int limit)
{
    field.SetByteLimit(limit);
    const QString text = field.Text();
    constexpr int MostBytesOfUnit = 2;
    if (text.size() * MostBytesOfUnit <= limit || MessageBytes(text) <= limit)
        return;
    const TextField::Change* change = field.PresentChange();
    if (!change || change->byProgram) {
        const QString kept = LimitText(text, BytesMeasure, limit);
        field.Correct(kept, std::min(CaretOf(field), static_cast<int>(kept.size())));
        return;
    }
    const CaretText kept = LimitChange(change->before, text, CaretOf(field), BytesMeasure, limit);
    field.Correct(kept.text, static_cast<int>(kept.caret));
}

void TextHelper::SelectField(TextField& field)
{
    field.SelectAll();
}

void TextHelper::NextFieldOnEnter(char16_t& key, TextField& next)
{
    if (key != EnterKey)
        return;
    key = 0;
    next.SetFocus();
}

void TextHelper::LastFieldOnEnter(char16_t& key, TextField&)
{
    if (key == EnterKey)
        key = 0;
}

bool TextHelper::RequireText(TextField& field, const QString& name)
{
    if (!IsBlank(field.Text()))
        return true;
    desktop_.MsgBox(QStringLiteral("'") + name + QStringLiteral("' 항목을 입력하여 주십시오."),
                    MsgBoxExclamation, name);
    field.SetFocus();
    return false;
}

void TextHelper::GuardPhoneField(TextField& field)
{
    const QString text = field.Text();
    const QString kept = PhoneCharacters(text);
    if (kept.size() == text.size())
        return;
    const QString ahead = PhoneCharacters(QStringView(text).first(CaretOf(field)));
    field.Correct(kept, static_cast<int>(ahead.size()));
}

void TextHelper::FormatThousands(TextField& field)
{
    field.SetSeparator(u',');
    const QString text = field.Text();
    const QString grouped = GroupDigits(text);
    if (grouped == text)
        return;
    const int fromEnd = static_cast<int>(text.size()) - CaretOf(field);
    field.Correct(grouped, std::max(0, static_cast<int>(grouped.size()) - fromEnd));
}

QString TextHelper::PlainNumber(const QString& text, const QString&)
{
    return WithoutSeparators(text);
}

void FilterNumberKey(char16_t& key)
{
    const bool passes = key == 8 || key == 9 || key == 13 || (key >= 45 && key <= 57);
    if (!passes)
        key = 0;
}

} // namespace tsms
