#include "toolkit/fields/TextHelper.h"

#include "runtime/Desktop.h"
#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "toolkit/fields/KeyFilter.h"
#include "toolkit/fields/TextField.h"

namespace tsms {

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
