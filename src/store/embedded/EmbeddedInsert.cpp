#include "store/embedded/EmbeddedInsert.h"

#include "store/embedded/EmbeddedDialect.h"

#include <sqlite3.h>

namespace tsms {

namespace {

bool IsPlainInsert(QStringView sql)
{
    if (!sql.trimmed().startsWith(u"insert ", Qt::CaseInsensitive))
        return false;
    bool inside = false;
    QChar before;
    for (const QChar c : sql) {
        if (c == u'\'') {
            inside = !inside;
        } else if (!inside) {
            const bool comment = (before == u'-' && c == u'-') || (before == u'/' && c == u'*');
            if (comment || QStringView(u"\"[`?;+").contains(c))
                return false;
        }
        before = c;
    }
    return !inside;
}

/// The literal that begins at `at` (its opening quote); `at` then stands behind it.
QByteArray TakeLiteral(QStringView sql, qsizetype& at)
{
    QByteArray literal;
    for (++at;; ++at) {
        const qsizetype quote = sql.indexOf(u'\'', at);
        literal += sql.sliced(at, quote - at).toUtf8();
        at = quote + 1;
        if (at >= sql.size() || sql[at] != u'\'')
            return literal;
        literal += '\''; // a doubled quote stands for itself
    }
}

} // namespace

std::optional<LiftedInsert> LiftLiterals(const QString& sql)
{
    if (!IsPlainInsert(sql))
        return std::nullopt;
    LiftedInsert lifted;
    lifted.shape.reserve(sql.size());
    for (qsizetype at = 0; at < sql.size();) {
        const qsizetype quote = sql.indexOf(u'\'', at);
        lifted.shape += QStringView(sql).sliced(at, (quote < 0 ? sql.size() : quote) - at);
        if (quote < 0)
            break;
        at = quote;
        lifted.literals += TakeLiteral(sql, at);
        lifted.shape += u'?';
    }
    return lifted;
}

bool EmbeddedInsert::Prepare(sqlite3* handle, const QString& shape)
{
    if (statement_ && shape == shape_)
        return true;
    Forget();
    shape_ = shape;
    const QByteArray text = ToEmbeddedDialect(shape);
    return sqlite3_prepare_v2(handle, text.constData(), static_cast<int>(text.size()), &statement_,
                              nullptr) == SQLITE_OK;
}

bool EmbeddedInsert::Run(sqlite3* handle, const LiftedInsert& insert)
{
    if (!Prepare(handle, insert.shape))
        return false;
    int place = 0;
    for (const QByteArray& literal : insert.literals)
        sqlite3_bind_text(statement_, ++place, literal.constData(), static_cast<int>(literal.size()),
                          SQLITE_STATIC);
    const bool done = sqlite3_step(statement_) == SQLITE_DONE;
    if (done)
        sqlite3_reset(statement_);
    else
        Forget(); // finalizing keeps the handle's error
    return done;
}

void EmbeddedInsert::Forget()
{
    sqlite3_finalize(statement_);
    statement_ = nullptr;
}

} // namespace tsms
