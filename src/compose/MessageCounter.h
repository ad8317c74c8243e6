#pragma once

#include <QWidget>

namespace tsms {

class Label;
class TextField;
struct Measure;

inline constexpr int MessageLimit = 80; ///< bytes of code page 949 that one message carries

/// What a message field itself refuses to go beyond.
struct FieldLimit
{
    const Measure& measure;
    int most;
};

/// The byte counter beside a message field: the number label, which follows each key release in the field,
/// and the fixed limit next to it. A text that arrives without a key leaves the number as it was; that is
/// meant.
/// In the colour of a warning it says that the message is longer than one may be, or that the field is full;
/// on a ground of that colour, that the field has just refused something. The next key that finds room ends
/// that.
class MessageCounter : public QWidget
{
public:
    /// `numberName` and `limitName` are the names of the two labels.
    MessageCounter(TextField& field, FieldLimit limit, const QString& numberName, const QString& limitName,
                   QWidget* parent);

    /// The key-up handler of the field. The key plays no part.
    void KeyUp(int key, int shift);

    /// The number as it is at the start; its Tag stays.
    void ShowNone();

    Label& Number() { return *number_; }
    /// Looks at what comes into the field.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool HasRoomFor(const QString& put) const;
    void SetState(bool warns, bool refused);
    void ShowState();

    TextField& field_;
    FieldLimit limit_;
    Label* number_;
    Label* most_;
    bool warns_ = false;
    bool refused_ = false;
};

} // namespace tsms
