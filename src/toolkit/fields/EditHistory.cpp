#include "toolkit/fields/EditHistory.h"

#include "toolkit/fields/LimitRule.h"

#include <utility>

namespace tsms {

namespace {

constexpr qsizetype MostSteps = 200;
constexpr qint64 Pause = 1000; // milliseconds, behind which a person thinks of something else

bool IsWordStart(const QString& text, const Insertion& put)
{
    return put.start > 0 && text[put.start - 1].isSpace() && !text[put.start].isSpace();
}

} // namespace

void EditHistory::AddStep(const HeldText& before)
{
    Push(before);
    run_ = Run::None;
}

void EditHistory::AddKeys(const HeldText& before, const QString& now, qsizetype caret, bool overSelection,
                          qint64 moment)
{
    const bool paused = moment - std::exchange(moment_, moment) >= Pause;
    if (overSelection) {
        Push(before);
        run_ = Run::Typing; // what is typed in its place belongs to it
        return;
    }
    const Insertion put = FindInsertion(before.text, now, caret);
    const qsizetype removed = before.text.size() + put.length - now.size();
    const bool types = put.length > 0;
    const bool goesOn = types ? run_ == Run::Typing && put.start == caret_ && !IsWordStart(now, put)
                              : run_ == Run::Removing && (caret == caret_ || caret + removed == caret_);
    if (paused || !goesOn)
        Push(before);
    run_ = types ? Run::Typing : Run::Removing;
}

void EditHistory::Push(const HeldText& before)
{
    future_.clear();
    past_ += before;
    if (past_.size() > MostSteps)
        past_.removeFirst();
}

void EditHistory::Forget()
{
    past_.clear();
    future_.clear();
    run_ = Run::None;
}

std::optional<HeldText> EditHistory::Undo(const HeldText& now)
{
    return Move(past_, future_, now);
}

std::optional<HeldText> EditHistory::Redo(const HeldText& now)
{
    return Move(future_, past_, now);
}

std::optional<HeldText> EditHistory::Move(QList<HeldText>& from, QList<HeldText>& to, const HeldText& now)
{
    run_ = Run::None;
    if (from.isEmpty())
        return std::nullopt;
    to += now;
    return from.takeLast();
}

} // namespace tsms
