#pragma once

#include <QString>

namespace tsms {

class Desktop;
class TextField;

/// The helper that serves text boxes. LimitBytes, GuardPhoneField and FormatThousands are called from a
/// field's OnChange and may follow each other there: each acts on what the change put in and keeps the caret.
class TextHelper
{
public:
    explicit TextHelper(Desktop& desktop) : desktop_(desktop) {}

    /// Holds the field to `limit` bytes of code page 949, blanks counting and a CR LF counting 1. Of what was
    /// put in, the longest beginning that fits stays; a text set by the program is cut at its end.
    void LimitBytes(TextField& field, int limit);

    /// Marks the field's whole text.
    void SelectField(TextField& field);

    /// On Enter: the focus goes to `next`, and the key is used up.
    void NextFieldOnEnter(char16_t& key, TextField& next);

    /// On Enter: the key is used up, the focus stays.
    void LastFieldOnEnter(char16_t& key, TextField& field);

    /// True when the field holds more than blanks; otherwise tells the operator, gives the field the focus
    /// and answers false.
    bool RequireText(TextField& field, const QString& name);

    /// Removes whatever is no digit, "-", "." or "/".
    void GuardPhoneField(TextField& field);

    /// Shows a plain number with its digits in groups of three; the caret keeps its distance from the end.
    /// Backspace and Delete pass over a separator and take the digit beyond it.
    void FormatThousands(TextField& field);

    /// The digits of a shown number without separators. `second` is taken and not looked at.
    QString PlainNumber(const QString& text, const QString& second);

private:
    Desktop& desktop_;
};

/// The key filter of boxes for numbers: Backspace, Tab, Enter and the codes 45 to 57 ("-", ".", "/" and the
/// digits) pass, every other key becomes 0.
void FilterNumberKey(char16_t& key);

} // namespace tsms
