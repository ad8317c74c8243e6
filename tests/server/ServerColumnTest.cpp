#include "support/server/ServerColumn.h"

#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

using Kind = ServerType::Kind;

ServerType Type(Kind kind, bool nullable = true)
{
    return {kind, 0, 0, 0, nullable};
}

ServerType Text(Kind kind, int width)
{
    return {kind, width, 0, 0, true};
}

ServerType Numeric(int precision, int scale)
{
    return {Kind::Numeric, 0, precision, scale, true};
}

long RefusalOf(const ServerType& type, const QString& value)
{
    try {
        ValueBytes(type, value);
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return NoError;
}

QByteArray Hex(const QByteArray& bytes)
{
    return bytes.toHex(' ');
}

} // namespace

TEST(ServerColumn, TypesHaveTheirDescriptions)
{
    EXPECT_EQ(Hex(TypeInfo(Type(Kind::Int))), "26 04");
    EXPECT_EQ(Hex(TypeInfo(Type(Kind::Int, false))), "38");
    EXPECT_EQ(Hex(TypeInfo(Type(Kind::Money))), "6e 08");
    EXPECT_EQ(Hex(TypeInfo(Type(Kind::Float))), "6d 08");
    EXPECT_EQ(Hex(TypeInfo(Type(Kind::DateTime))), "6f 08");
    EXPECT_EQ(Hex(TypeInfo(Type(Kind::DateTime, false))), "3d");
    EXPECT_EQ(Hex(TypeInfo(Numeric(9, 2))), "6c 05 09 02");
    EXPECT_EQ(Hex(TypeInfo(Numeric(38, 6))), "6c 11 26 06");
    EXPECT_EQ(Hex(TypeInfo(Text(Kind::VarChar, 2000))), "a7 d0 07 12 04 d0 00 00");
    EXPECT_EQ(Hex(TypeInfo(Text(Kind::NVarChar, 10))), "e7 14 00 12 04 d0 00 00");
    EXPECT_EQ(Hex(TypeInfo(Text(Kind::VarChar, Endless))), "a7 ff ff 12 04 d0 00 00");
}

TEST(ServerColumn, ValuesAreWrittenAsTheirTypesHaveThem)
{
    EXPECT_EQ(Hex(ValueBytes(Type(Kind::Int), u"-2"_q)), "04 fe ff ff ff");
    EXPECT_EQ(Hex(ValueBytes(Type(Kind::Int, false), u"258"_q)), "02 01 00 00");
    EXPECT_EQ(Hex(ValueBytes(Numeric(5, 2), u"-1.5"_q)), "05 00 96 00 00 00");
    EXPECT_EQ(Hex(ValueBytes(Numeric(20, 0), u"4294967296"_q)), "0d 01 00 00 00 00 01 00 00 00 00 00 00 00");
    EXPECT_EQ(Hex(ValueBytes(Type(Kind::Money), u"1"_q)), "08 00 00 00 00 10 27 00 00");
    EXPECT_EQ(Hex(ValueBytes(Type(Kind::Money), u"-0.0001"_q)), "08 ff ff ff ff ff ff ff ff");
    EXPECT_EQ(Hex(ValueBytes(Type(Kind::Float), u"1.5"_q)), "08 00 00 00 00 00 00 f8 3f");
    EXPECT_EQ(Hex(ValueBytes(Type(Kind::DateTime), u"1900-01-02 00:00:01"_q)), "08 01 00 00 00 2c 01 00 00");
    EXPECT_EQ(Hex(ValueBytes(Type(Kind::DateTime, false), u"1899/12/31"_q)), "ff ff ff ff 00 00 00 00");
    EXPECT_EQ(Hex(ValueBytes(Text(Kind::VarChar, 10), u"a가"_q)), "03 00 61 b0 a1");
    EXPECT_EQ(Hex(ValueBytes(Text(Kind::NVarChar, 10), u"a가"_q)), "04 00 61 00 00 ac");
    EXPECT_EQ(Hex(ValueBytes(Text(Kind::VarChar, Endless), u"a가"_q)),
              "03 00 00 00 00 00 00 00 03 00 00 00 61 b0 a1 00 00 00 00");
    EXPECT_EQ(Hex(ValueBytes(Text(Kind::VarChar, Endless), QString())),
              "00 00 00 00 00 00 00 00 00 00 00 00");
}

TEST(ServerColumn, NullsAreTold)
{
    EXPECT_EQ(Hex(NullBytes(Type(Kind::Int))), "00");
    EXPECT_EQ(Hex(NullBytes(Text(Kind::VarChar, 10))), "ff ff");
    EXPECT_EQ(Hex(NullBytes(Text(Kind::VarChar, Endless))), "ff ff ff ff ff ff ff ff");
}

TEST(ServerColumn, FlagsTellKeysAndExpressions)
{
    EXPECT_EQ(ColumnFlags({u"GroupCd"_q, Type(Kind::Int, false), true, false}), 0x10);
    EXPECT_EQ(ColumnFlags({u"GroupNm"_q, Text(Kind::VarChar, 10), false, false}), 0x09);
    EXPECT_EQ(ColumnFlags({QString(), Type(Kind::Int), false, true}), 0x21);
}

TEST(ServerColumn, ATextThatIsNoValueIsRefused)
{
    for (const Kind kind : {Kind::Int, Kind::Money, Kind::Float, Kind::DateTime})
        EXPECT_EQ(RefusalOf(Type(kind), u"x"_q), CannotConvert) << static_cast<int>(kind);
    EXPECT_EQ(RefusalOf(Numeric(5, 2), u"1,5"_q), CannotConvert);
    EXPECT_EQ(RefusalOf(Numeric(5, 0), u"99999999999"_q), DataOverflow);
    EXPECT_EQ(RefusalOf(Type(Kind::Int), u"2147483648"_q), CannotConvert);
}

TEST(ServerColumn, ATextThatIsTooWideIsRefusedButForBlanks)
{
    EXPECT_EQ(RefusalOf(Text(Kind::VarChar, 3), u"가나"_q), StatementFailure);
    EXPECT_EQ(RefusalOf(Text(Kind::NVarChar, 1), u"가나"_q), StatementFailure);
    EXPECT_EQ(Hex(ValueBytes(Text(Kind::VarChar, 2), u"가  "_q)), "02 00 b0 a1");
    EXPECT_EQ(Hex(ValueBytes(Text(Kind::NVarChar, 1), u"가  "_q)), "02 00 00 ac");
}

} // namespace tsms::test
