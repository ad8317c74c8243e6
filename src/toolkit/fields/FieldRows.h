#pragma once

#include <QString>

#include <map>

class QGridLayout;
class QVBoxLayout;
class QWidget;

namespace tsms {

class MemoBox;
class TextBox;
class TextField;
class TextHelper;

/// The fields of a dialog, one below the other: behind its caption lblTitle(i) each box txtUpdate(i) stands
/// on its backing PLtxtBack(i), whose colour follows the focus.
class FieldRows
{
public:
    /// `parent` gets the controls, `place` the rows.
    FieldRows(QWidget& parent, QVBoxLayout& place, TextHelper& textHelper);

    TextBox& AddBox(int index, const QString& caption, int maxLength);
    MemoBox& AddMemo(int index, const QString& caption, int maxLength);

    /// A control that is no text box, behind lblTitle(index).
    void AddControl(int index, const QString& caption, QWidget& control);

    /// A control below the last row, in line with the boxes.
    void AddBelow(QWidget& control);

    /// Words that belong to the last row.
    void AddNote(const QString& name, const QString& words);

    TextField& Box(int index) const { return *boxes_.at(index); }

    /// RequireText of each box, in the order of their indexes, under its caption without blanks. False at the
    /// first one that is empty.
    bool RequireAll() const;

    /// Enter in a box: on to the box with the next index, whose text is marked.
    void NextOnEnter(int index, char16_t& key) const;

private:
    void AddCaption(int index, const QString& caption, QWidget& field);
    void Hold(int index, TextField& box, int maxLength);

    QWidget& parent_;
    TextHelper& textHelper_;
    QGridLayout* grid_;
    int row_ = -1;
    std::map<int, TextField*> boxes_;
    std::map<int, QString> names_; // under which RequireText names them
};

} // namespace tsms
