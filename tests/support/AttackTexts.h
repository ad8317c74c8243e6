#pragma once

#include "support/Words.h"

#include <QList>

#include <string>

namespace tsms::test {

/// A text that would change what its statement does, were it let through. Each is no longer than 40 bytes,
/// the limit of most fields.
struct AttackText
{
    std::string name;
    QString text;
    QString brief; ///< the same in four characters, for fields that hold no more
    QString near;  ///< what the syntax error names
    QString nearBrief;
};

inline const QList<AttackText> AttackTexts = {
    {"AnotherValue", u"x','y','z"_q, u"','"_q, u","_q, u","_q},
    {"AnotherRow", u"x'),('a"_q, u"'),'"_q, u")"_q, u")"_q},
    {"OrTrue", u"x' OR '1'='1"_q, u"'OR'"_q, u"OR"_q, u"OR"_q},
    {"Comment", u"x' --"_q, u"' --"_q, u"--"_q, u"--"_q},
    {"BlockComment", u"x'/* */'"_q, u"'/*'"_q, u"/*"_q, u"/*"_q},
    {"SecondStatement", u"x'; DELETE FROM SMSSetup; --"_q, u"';--"_q, u"--"_q, u"--"_q},
    {"SecondStatementThatEndsWell", u"x'; DELETE FROM SMSSetup SELECT '"_q, u"';'"_q, u";"_q, u";"_q},
    {"SecondStatementWithoutASemicolon", u"x' DELETE FROM SMSSetup SELECT '"_q, u"' a'"_q, u"DELETE"_q,
     u"a"_q},
    {"Subquery", u"x' + (SELECT SMSPWD FROM SMSSetup) + '"_q, u"'+'"_q, u"+"_q, u"+"_q},
    {"Union", u"x' UNION SELECT 'y"_q, u"'IN'"_q, u"UNION"_q, u"IN"_q},
    {"UnionBeforeAComment", u"x' UNION SELECT SMSPWD FROM SMSSetup--"_q, u"'a--"_q, u"--"_q, u"--"_q},
    {"QuotedName", u"x' OR \"'\"=''+'"_q, u"'\"'"_q, u"\""_q, u"\""_q},
    {"BracketedName", u"x' OR [']=''+'"_q, u"'[']"_q, u"["_q, u"["_q},
    {"EndOfText", u"x'\0y"_q, u"x'\0"_q, {}, {}},
    {"HalfAPair", u"x'"_q + QChar(0xD800) + u"y"_q, u"x'"_q + QChar(0xDC00), {}, {}},
    {"EscapedQuote", u"x''y"_q, u"''y"_q, u"y"_q, u"y"_q},
    {"AnotherLine", u"x','y\r\n','z"_q, u"','"_q, u","_q, u","_q},
};

} // namespace tsms::test
