#include "store/embedded/EmbeddedDialect.h"

#include "runtime/RuntimeError.h"
#include "store/embedded/DialectTokens.h"
#include "store/engine/DatabaseError.h"

#include <array>
#include <string_view>
#include <vector>

namespace tsms {

namespace {

using Token = DialectToken;
using Kind = DialectToken::Kind;

RuntimeError SyntaxErrorAt(std::string_view words)
{
    return RuntimeError(StatementFailure, SyntaxErrorNear(QString::fromUtf8(
                                              words.data(), static_cast<qsizetype>(words.size()))));
}

/// A routine of the server under the name that it has here.
struct Routine
{
    std::string_view name;
    std::string_view here;
    bool givesText;
};

constexpr std::array<Routine, 4> Routines = {{{"LEFT", "server_left", true},
                                              {"RIGHT", "server_right", true},
                                              {"REPLACE", "replace", true},
                                              {"ISNULL", "ifnull", false}}};

const Routine* FindRoutine(std::string_view word)
{
    for (const Routine& routine : Routines)
        if (IsDialectWord(word, routine.name))
            return &routine;
    return nullptr;
}

class Rewriter
{
public:
    explicit Rewriter(std::string_view sql) : tokens_(SplitDialect(sql))
    {
        out_.reserve(static_cast<qsizetype>(sql.size()) + 64);
    }

    QByteArray Run()
    {
        CopySpaces();
        if (IsDialectWord(Peek().text, "DELETE")) {
            Copy();
            CopySpaces();
            if (Peek().kind == Kind::Word && !IsDialectWord(Peek().text, "FROM"))
                Put("FROM ");
        }
        while (Peek().kind != Kind::End)
            RewriteOne();
        return std::move(out_);
    }

private:
    Token Peek() const { return at_ < tokens_.size() ? tokens_[at_] : Token{Kind::End, {}}; }

    /// The next token behind the one at `at` that is no space.
    std::size_t Behind(std::size_t at) const
    {
        do
            ++at;
        while (at < tokens_.size() && tokens_[at].kind == Kind::Space);
        return at;
    }

    bool IsSign(std::size_t at, std::string_view sign) const
    {
        return at < tokens_.size() && tokens_[at].kind == Kind::Sign && tokens_[at].text == sign;
    }

    bool IsCall(std::size_t at) const
    {
        return at < tokens_.size() && tokens_[at].kind == Kind::Word && IsSign(Behind(at), "(");
    }

    void Put(std::string_view text) { out_.append(text.data(), static_cast<qsizetype>(text.size())); }

    void Copy()
    {
        const Token& token = tokens_[at_++];
        Put(token.text);
        if (token.kind != Kind::Space && token.text != ")")
            textBefore_ = token.kind == Kind::Literal;
    }

    void CopySpaces()
    {
        while (Peek().kind == Kind::Space)
            Copy();
    }

    void SkipSpaces()
    {
        while (Peek().kind == Kind::Space)
            ++at_;
    }

    void Skip(std::string_view expected)
    {
        SkipSpaces();
        if (!IsDialectWord(Peek().text, expected))
            throw SyntaxErrorAt(Peek().text);
        ++at_;
    }

    void RewriteOne()
    {
        const Token token = Peek();
        if (token.kind == Kind::Word && IsCall(at_)) {
            if (const Routine* routine = FindRoutine(token.text))
                return RewriteCall(*routine);
            if (IsDialectWord(token.text, "CONVERT"))
                return RewriteConvert();
            if (IsDialectWord(token.text, "DATEADD"))
                return RewriteDateAdd();
        }
        if (IsSign(at_, "+") && (textBefore_ || IsTextAt(Behind(at_)))) {
            ++at_;
            return Put("||");
        }
        Copy();
    }

    bool IsTextAt(std::size_t at) const
    {
        while (IsSign(at, "("))
            at = Behind(at);
        if (at >= tokens_.size())
            return false;
        if (tokens_[at].kind == Kind::Literal)
            return true;
        if (!IsCall(at))
            return false;
        const Routine* routine = FindRoutine(tokens_[at].text);
        return IsDialectWord(tokens_[at].text, "CONVERT") || (routine && routine->givesText);
    }

    void RewriteCall(const Routine& routine)
    {
        Put(routine.here);
        ++at_;
        RewriteGroup();
        PutCollation();
        textBefore_ = routine.givesText;
    }

    /// From an opening parenthesis to behind the closing one.
    void RewriteGroup()
    {
        CopySpaces();
        int depth = 0;
        do {
            if (Peek().kind == Kind::End)
                throw SyntaxErrorAt(tokens_.back().text);
            depth += IsSign(at_, "(") ? 1 : IsSign(at_, ")") ? -1 : 0;
            RewriteOne();
        } while (depth > 0);
    }

    /// What a function gives has no collation of its own here.
    void PutCollation()
    {
        Put(" COLLATE ");
        Put(KoreanCollationName);
    }

    void RewriteConvert()
    {
        Skip("CONVERT");
        Skip("(");
        Skip("VARCHAR");
        Skip("(");
        SkipSpaces();
        const std::string_view width = Peek().text;
        ++at_;
        Skip(")");
        Skip(",");
        Put("server_convert(");
        Put(width);
        Put(",");
        RewriteArguments();
        PutCollation();
        textBefore_ = true;
    }

    void RewriteDateAdd()
    {
        Skip("DATEADD");
        Skip("(");
        Skip("DAY");
        Skip(",");
        Put("server_dateadd_day(");
        RewriteArguments();
        textBefore_ = false;
        RewriteDateComparison();
    }

    /// The arguments of a call whose parenthesis has been opened, and the closing one.
    void RewriteArguments()
    {
        for (int depth = 1; depth > 0;) {
            if (Peek().kind == Kind::End)
                throw SyntaxErrorAt(tokens_.back().text);
            depth += IsSign(at_, "(") ? 1 : IsSign(at_, ")") ? -1 : 0;
            RewriteOne();
        }
    }

    /// The server takes what a date is compared with for a date as well, whatever its form.
    void RewriteDateComparison()
    {
        static constexpr std::array<std::string_view, 7> comparisons = {
            "=", "<", ">", "<=", ">=", "<>", "!="};
        const std::size_t next = Peek().kind == Kind::Space ? Behind(at_) : at_;
        bool compares = false;
        for (const std::string_view sign : comparisons)
            compares = compares || IsSign(next, sign);
        if (!compares)
            return;
        CopySpaces();
        Copy();
        CopySpaces();
        Put("server_datetime(");
        RewritePrimary();
        Put(")");
    }

    void RewritePrimary()
    {
        if (IsSign(at_, "("))
            return RewriteGroup();
        const bool plainCall = IsCall(at_) && !FindRoutine(Peek().text) &&
                               !IsDialectWord(Peek().text, "CONVERT") &&
                               !IsDialectWord(Peek().text, "DATEADD");
        if (Peek().kind == Kind::End)
            throw SyntaxErrorAt(tokens_.back().text);
        RewriteOne();
        if (plainCall)
            RewriteGroup();
    }

    std::vector<Token> tokens_;
    std::size_t at_ = 0;
    QByteArray out_;
    bool textBefore_ = false;
};

} // namespace

QByteArray ToEmbeddedDialect(const QString& sql)
{
    const QByteArray utf8 = sql.toUtf8();
    return Rewriter(std::string_view(utf8.constData(), static_cast<std::size_t>(utf8.size()))).Run();
}

} // namespace tsms
