#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace tsms {

/// What a field held: its text, and the Tag that belonged to it.
struct HeldText
{
    QString text;
    QString tag;

    friend bool operator==(const HeldText&, const HeldText&) = default;
};

/// What can be taken back in a field, in steps as a person thinks of them: a word that was typed, a run of
/// characters that were removed, or what came at once, as a paste or a chosen text does.
class EditHistory
{
public:
    /// A change that is a step of its own.
    void AddStep(const HeldText& before);

    /// A change by a key or an input method to `now`, with the caret behind it. It joins the step before when
    /// it goes on where that one ended, begins no new word, and comes within a second of the last one: the
    /// `moment`, in milliseconds, is of a clock that only goes forward. One over a selection begins a step.
    void AddKeys(const HeldText& before, const QString& now, qsizetype caret, bool overSelection,
                 qint64 moment);

    /// Where the caret stands when the rules of the field have had their say on the change.
    void Rest(qsizetype caret) { caret_ = caret; }

    void Forget();

    bool CanUndo() const { return !past_.isEmpty(); }
    bool CanRedo() const { return !future_.isEmpty(); }
    /// What stood there before the last step, or nothing. `now` is what can be done again.
    std::optional<HeldText> Undo(const HeldText& now);
    std::optional<HeldText> Redo(const HeldText& now);

private:
    enum class Run { None, Typing, Removing };

    void Push(const HeldText& before);
    std::optional<HeldText> Move(QList<HeldText>& from, QList<HeldText>& to, const HeldText& now);

    QList<HeldText> past_;
    QList<HeldText> future_;
    Run run_ = Run::None;
    qsizetype caret_ = 0;
    qint64 moment_ = 0; // of the last key
};

} // namespace tsms
