#include "store/EmbeddedInsert.h"

#include <sqlite3.h>

namespace tsms {

namespace {

bool IsPlainInsert(const QByteArray& text)
{
    if (qstrnicmp(text.trimmed().constData(), "insert ", 7) != 0)
        return false;
    bool inside = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const char next = i + 1 < text.size() ? text[i + 1] : '\0';
        if (c == '\'')
            inside = !inside;
        else if (!inside && (c == '"' || c == '[' || c == '`' || c == '?' || c == ';' ||
                             (c == '-' && next == '-') || (c == '/' && next == '*')))
            return false;
    }
    return !inside;
}

/// The literal that begins at `at` (its opening quote); `at` then stands behind it.
QByteArray TakeLiteral(const QByteArray& text, qsizetype& at)
{
    QByteArray literal;
    for (++at;; ++at) {
        const qsizetype quote = text.indexOf('\'', at);
        literal += text.sliced(at, quote - at);
        at = quote + 1;
        if (at >= text.size() || text[at] != '\'')
            return literal;
        literal += '\''; // a doubled quote stands for itself
    }
}

} // namespace

std::optional<LiftedInsert> LiftLiterals(const QByteArray& text)
{
    if (!IsPlainInsert(text))
        return std::nullopt;
    LiftedInsert lifted;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype quote = text.indexOf('\'', at);
        lifted.shape += text.sliced(at, (quote < 0 ? text.size() : quote) - at);
        if (quote < 0)
            break;
        at = quote;
        lifted.literals += TakeLiteral(text, at);
        lifted.shape += '?';
    }
    return lifted;
}

bool EmbeddedInsert::Prepare(sqlite3* handle, const QByteArray& shape)
{
    if (statement_ && shape == shape_)
        return true;
    Forget();
    shape_ = shape;
    return sqlite3_prepare_v2(handle, shape.constData(), static_cast<int>(shape.size()), &statement_,
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
