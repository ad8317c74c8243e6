#include "store/engine/ConnectionText.h"

#include "runtime/RuntimeError.h"
#include "session/Session.h"
#include "store/engine/DatabaseError.h"

namespace tsms {

namespace {

[[noreturn]] void RefuseText()
{
    throw RuntimeError(
        BadConnectionText,
        QStringLiteral("Format of the initialization string does not conform to the OLE DB specification."));
}

/// Walks the "keyword=value" pairs of a text.
class PairReader
{
public:
    explicit PairReader(QStringView text) : rest_(text) {}

    bool Next()
    {
        while (rest_.startsWith(u';') || (!rest_.isEmpty() && rest_.front().isSpace()))
            rest_ = rest_.sliced(1);
        if (rest_.isEmpty())
            return false;
        const qsizetype sign = rest_.indexOf(u'=');
        if (sign <= 0)
            RefuseText();
        keyword = rest_.first(sign).trimmed();
        rest_ = rest_.sliced(sign + 1).trimmed();
        value = rest_.startsWith(u'\'') || rest_.startsWith(u'"') ? TakeQuoted() : TakePlain();
        return true;
    }

    QStringView keyword;
    QString value;

private:
    QString TakePlain()
    {
        const qsizetype end = rest_.indexOf(u';');
        const QStringView taken = end < 0 ? rest_ : rest_.first(end);
        rest_ = rest_.sliced(taken.size());
        return taken.trimmed().toString();
    }

    QString TakeQuoted()
    {
        const QChar quote = rest_.front();
        QString taken;
        for (qsizetype at = 1; at < rest_.size(); ++at) {
            if (rest_[at] != quote) {
                taken += rest_[at];
            } else if (at + 1 < rest_.size() && rest_[at + 1] == quote) {
                taken += quote;
                ++at;
            } else {
                rest_ = rest_.sliced(at + 1).trimmed();
                if (!rest_.isEmpty() && rest_.front() != u';')
                    RefuseText();
                return taken;
            }
        }
        RefuseText();
    }

    QStringView rest_;
};

} // namespace

QString AssembleConnectionText(const Session& session)
{
    return QStringLiteral("Provider=SQLOLEDB.1;Password=") + session.DBPassword +
           QStringLiteral(";Persist Security Info=True;User ID=") + session.DBUser +
           QStringLiteral(";Initial Catalog=") + session.DBCatalog + QStringLiteral(";Data Source=") +
           session.DBServer + QStringLiteral(",") + session.DBPort;
}

ConnectionParts ParseConnectionText(QStringView text)
{
    ConnectionParts parts;
    PairReader pairs(text);
    while (pairs.Next()) {
        const auto is = [&pairs](QStringView word) {
            return pairs.keyword.compare(word, Qt::CaseInsensitive) == 0;
        };
        if (is(u"Initial Catalog")) {
            parts.catalog = pairs.value;
        } else if (is(u"User ID")) {
            parts.user = pairs.value;
        } else if (is(u"Password")) {
            parts.password = pairs.value;
        } else if (is(u"Data Source")) {
            const qsizetype comma = pairs.value.lastIndexOf(u',');
            parts.server = (comma < 0 ? pairs.value : pairs.value.first(comma)).trimmed();
            parts.port = comma < 0 ? QString() : pairs.value.sliced(comma + 1).trimmed();
        }
    }
    return parts;
}

bool IsEmbeddedServer(QStringView server)
{
    return server.compare(u"(embedded)", Qt::CaseInsensitive) == 0;
}

} // namespace tsms
