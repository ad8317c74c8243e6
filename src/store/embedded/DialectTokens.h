#pragma once

#include <string_view>
#include <vector>

namespace tsms {

/// A piece of a statement in the server's dialect: a view into the statement's UTF-8.
struct DialectToken
{
    /// A quoted name is a word, a number has no sign, and so has none of the letters behind it. The signs of
    /// a comparison and those that open a comment are one token.
    enum class Kind { Space, Word, Number, Literal, Sign, End };

    Kind kind = Kind::End;
    std::string_view text;
};

/// The pieces of a statement, which they make up without a gap. Raises StatementFailure for a quote that is
/// not closed.
std::vector<DialectToken> SplitDialect(std::string_view sql);

/// True when the word is `upper`, a word of capital letters, without regard to case.
bool IsDialectWord(std::string_view word, std::string_view upper);

} // namespace tsms
