#include "gateway/ReplyGrammar.h"

#include "runtime/Numbers.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <QList>

#include <optional>

namespace tsms {

namespace {

/// The value of an item that begins with its prefix. Every occurrence of the prefix goes, not only the first.
std::optional<QString> ValueOf(const QList<QStringView>& items, qsizetype position, QStringView prefix)
{
    if (position >= items.size())
        throw RuntimeError(SubscriptOutOfRange);
    QString item = Trim(items[position]);
    if (!item.startsWith(prefix))
        return std::nullopt;
    return item.remove(prefix.toString());
}

} // namespace

bool Reply::IsAccepted() const
{
    return IsBlank(ErrorCode) && IsBlank(ErrorMsg);
}

void ReadReply(QStringView text, Reply& into)
{
    into = {};
    const QList<QStringView> items = text.split(u';');
    if (const std::optional<QString> truth = ValueOf(items, 0, u"return_value:"))
        into.ReturnValue = ToTruth(*truth);
    into.UniqueNum = ValueOf(items, 3, u"unique_num:").value_or(QString());
    into.ErrorCode = ValueOf(items, 7, u"error_code:").value_or(QString());
    into.ErrorMsg = ValueOf(items, 8, u"error_msg:").value_or(QString());
}

} // namespace tsms
