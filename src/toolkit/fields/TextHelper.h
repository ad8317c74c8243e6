#pragma once

#include <QString>

namespace tsms {

class Desktop;
class TextField;

/// The helper that serves text boxes. What a box holds its text to are properties of the box itself.
class TextHelper
{
public:
    explicit TextHelper(Desktop& desktop) : desktop_(desktop) {}

    /// Marks the field's whole text.
    void SelectField(TextField& field);

    /// On Enter: the focus goes to `next`, and the key is used up.
    void NextFieldOnEnter(char16_t& key, TextField& next);

    /// On Enter: the key is used up, the focus stays.
    void LastFieldOnEnter(char16_t& key, TextField& field);

    /// True when the field holds more than blanks; otherwise tells the operator, gives the field the focus
    /// and answers false.
    bool RequireText(TextField& field, const QString& name);

    /// The digits of a shown number without separators. `second` is taken and not looked at.
    QString PlainNumber(const QString& text, const QString& second);

private:
    Desktop& desktop_;
};

/// The key filter of boxes for numbers: Backspace, Tab, Enter and the codes 45 to 57 ("-", ".", "/" and the
/// digits) pass, every other key becomes 0.
void FilterNumberKey(char16_t& key);

} // namespace tsms
