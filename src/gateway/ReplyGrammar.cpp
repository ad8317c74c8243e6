#include "gateway/ReplyGrammar.h"

#include "runtime/Numbers.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <optional>

namespace tsms {

namespace {

/// Goes through the items of a reply from the first to the last.
class Items
{
public:
    explicit Items(QStringView text) : rest_(text) {}

    /// The value of the item at a position that is not before the last one asked for; nothing when it does
    /// not begin with its prefix. Every occurrence of the prefix goes, not only the first.
    std::optional<QString> ValueOf(qsizetype position, QStringView prefix)
    {
        const QStringView item = Trimmed(At(position));
        if (!item.startsWith(prefix))
            return std::nullopt;
        QString value = item.sliced(prefix.size()).toString();
        return value.contains(prefix) ? value.remove(prefix.toString()) : value;
    }

private:
    QStringView At(qsizetype position)
    {
        for (; at_ < position; ++at_) {
            const qsizetype end = rest_.indexOf(u';');
            if (end < 0)
                throw RuntimeError(SubscriptOutOfRange);
            rest_ = rest_.sliced(end + 1);
        }
        const qsizetype end = rest_.indexOf(u';');
        return end < 0 ? rest_ : rest_.first(end);
    }

    QStringView rest_; ///< from the item at `at_` on
    qsizetype at_ = 0;
};

} // namespace

bool Reply::IsAccepted() const
{
    return IsBlank(ErrorCode) && IsBlank(ErrorMsg);
}

void ReadReply(QStringView text, Reply& into)
{
    into = {};
    Items items(text);
    if (const std::optional<QString> truth = items.ValueOf(0, u"return_value:"))
        into.ReturnValue = ToTruth(*truth);
    into.UniqueNum = items.ValueOf(3, u"unique_num:").value_or(QString());
    into.ErrorCode = items.ValueOf(7, u"error_code:").value_or(QString());
    into.ErrorMsg = items.ValueOf(8, u"error_msg:").value_or(QString());
}

} // namespace tsms
