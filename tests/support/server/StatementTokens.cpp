#include "support/server/StatementTokens.h"

namespace tsms::test {

namespace {

using TokenKind = DialectToken::Kind;

QString ToText(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace

StatementTokens::StatementTokens(const QString& sql) : utf8_(sql.toUtf8())
{
    DropComments(SplitDialect({utf8_.constData(), static_cast<std::size_t>(utf8_.size())}));
}

void StatementTokens::DropComments(std::vector<DialectToken> tokens)
{
    enum class Inside { Nothing, Line, Block };
    Inside inside = Inside::Nothing;
    std::string_view former;
    for (const DialectToken& token : tokens) {
        if (inside == Inside::Line) {
            if (token.text.find('\n') != std::string_view::npos)
                inside = Inside::Nothing;
        } else if (inside == Inside::Block) {
            if (former == "*" && token.text == "/")
                inside = Inside::Nothing;
        } else if (token.text == "--") {
            inside = Inside::Line;
        } else if (token.text == "/*") {
            inside = Inside::Block;
        } else if (token.kind != TokenKind::Space) {
            tokens_.push_back(token);
        }
        former = token.text;
    }
}

std::string_view StatementTokens::operator[](int at) const
{
    return at >= 0 && at < Count() ? tokens_[static_cast<std::size_t>(at)].text : std::string_view();
}

TokenKind StatementTokens::KindOf(int at) const
{
    return at >= 0 && at < Count() ? tokens_[static_cast<std::size_t>(at)].kind : TokenKind::End;
}

QString StatementTokens::Text(int at) const
{
    return ToText((*this)[at]);
}

QString StatementTokens::Name(int at) const
{
    const QString text = Text(at);
    return text.startsWith(u'[') || text.startsWith(u'"') ? text.sliced(1).chopped(1) : text;
}

QString StatementTokens::TakeTable(int& at) const
{
    if ((*this)[at + 1] == ".")
        at += 2;
    return Name(at++);
}

QString StatementTokens::Literal(int at) const
{
    return Text(at).sliced(1).chopped(1).replace(QStringLiteral("''"), QStringLiteral("'"));
}

QString StatementTokens::Text(Range range) const
{
    if (range.Count() <= 0)
        return {};
    const char* from = (*this)[range.from].data();
    const std::string_view last = (*this)[range.to - 1];
    return QString::fromUtf8(from, last.data() + last.size() - from);
}

int StatementTokens::GroupEnd(int at) const
{
    int depth = 0;
    for (; at < Count(); ++at) {
        depth += (*this)[at] == "(" ? 1 : (*this)[at] == ")" ? -1 : 0;
        if (depth <= 0)
            return at + 1;
    }
    return at;
}

QList<StatementTokens::Range> StatementTokens::Items(Range range) const
{
    QList<Range> items;
    for (int from = range.from; from < range.to;) {
        const int comma = Find({from, range.to}, ",");
        items += Range{from, comma};
        from = comma + 1;
    }
    return items;
}

int StatementTokens::Find(Range range, std::string_view upper) const
{
    for (int at = range.from; at < range.to; at = (*this)[at] == "(" ? GroupEnd(at) : at + 1)
        if (Is(at, upper))
            return at;
    return range.to;
}

} // namespace tsms::test
