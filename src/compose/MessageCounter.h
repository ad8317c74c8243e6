#pragma once

#include <QWidget>

namespace tsms {

class Label;
class TextField;

/// The byte counter beside a message field: the number label, which follows each key release in the field,
/// and the fixed limit next to it. A text that arrives without a key leaves the number as it was; that is
/// meant.
class MessageCounter : public QWidget
{
public:
    /// `numberName` and `limitName` are the names of the two labels.
    MessageCounter(TextField& field, const QString& numberName, const QString& limitName, QWidget* parent);

    /// The key-up handler of the field. The key plays no part.
    void KeyUp(int key, int shift);

    Label& Number() { return *number_; }

private:
    TextField& field_;
    Label* number_;
};

} // namespace tsms
