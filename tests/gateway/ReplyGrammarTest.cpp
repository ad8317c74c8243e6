#include "gateway/ReplyGrammar.h"

#include "runtime/RuntimeError.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

const QString AcceptedReply = u"return_value:true;a;b;unique_num:123;c;d;e;error_code:;error_msg:"_q;

/// The number that reading raises, or NoError; `into` holds what was read.
long ErrorOfReading(const QString& text, Reply& into)
{
    try {
        ReadReply(text, into);
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return NoError;
}

Reply Read(const QString& text)
{
    Reply reply;
    ReadReply(text, reply);
    return reply;
}

/// A reply with the first item as given.
QString WithFirst(const QString& item)
{
    return item + u";;;unique_num:5;;;;error_code:;error_msg:"_q;
}

} // namespace

TEST(ReplyGrammar, FourItemsAreRead)
{
    const Reply reply = Read(u"return_value:true;a;b;unique_num:123;c;d;e;error_code:E1;error_msg:실패"_q);
    EXPECT_TRUE(reply.ReturnValue);
    EXPECT_EQ(reply.UniqueNum, u"123"_q);
    EXPECT_EQ(reply.ErrorCode, u"E1"_q);
    EXPECT_EQ(reply.ErrorMsg, u"실패"_q);
}

TEST(ReplyGrammar, NineItemsWithEmptyCodesNameNoFailure)
{
    EXPECT_TRUE(Read(AcceptedReply).IsAccepted());
}

TEST(ReplyGrammar, AFailureCodeOfBlanksOnlyIsNone)
{
    EXPECT_TRUE(Read(u"return_value:true;;;;;;;error_code:   ;error_msg:  "_q).IsAccepted());
}

TEST(ReplyGrammar, ACodeAloneIsAFailure)
{
    EXPECT_FALSE(Read(u"return_value:true;;;;;;;error_code:1;error_msg:"_q).IsAccepted());
}

TEST(ReplyGrammar, ATextAloneIsAFailure)
{
    EXPECT_FALSE(Read(u"return_value:true;;;;;;;error_code:;error_msg:실패"_q).IsAccepted());
}

TEST(ReplyGrammar, AFalseReturnValueIsNoFailure)
{
    const Reply reply = Read(u"return_value:false;;;unique_num:1;;;;error_code:;error_msg:"_q);
    EXPECT_FALSE(reply.ReturnValue);
    EXPECT_TRUE(reply.IsAccepted());
}

struct TruthRow
{
    const char16_t* item;
    bool value;
};

class ReplyGrammarTruth : public ::testing::TestWithParam<TruthRow>
{
};

TEST_P(ReplyGrammarTruth, IsReadByTheOrdinaryRule)
{
    EXPECT_EQ(Read(WithFirst(QString::fromUtf16(GetParam().item))).ReturnValue, GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Items, ReplyGrammarTruth,
    ::testing::Values(
        TruthRow{u"return_value:true", true}, TruthRow{u"return_value:TRUE", true},
        TruthRow{u"return_value:True", true}, TruthRow{u"return_value: true ", true},
        TruthRow{u"  return_value:true  ", true}, TruthRow{u"return_value:false", false},
        TruthRow{u"return_value:FALSE", false}, TruthRow{u"return_value:0", false},
        TruthRow{u"return_value:1", true}, TruthRow{u"return_value:-1", true},
        TruthRow{u"return_value:0.5", true}, TruthRow{u"return_value:0.0", false},
        // Without the prefix, or with it in another case, the value stays false and is no error.
        TruthRow{u"", false}, TruthRow{u"true", false}, TruthRow{u"Return_value:true", false},
        TruthRow{u"return_value=true", false}, TruthRow{u"\treturn_value:true", false},
        TruthRow{u"return_value", false},
        // Every occurrence of the prefix goes.
        TruthRow{u"return_value:return_value:true", true},
        TruthRow{u"return_value:trreturn_value:ue", true}));

class ReplyGrammarBadTruth : public ::testing::TestWithParam<const char16_t*>
{
};

TEST_P(ReplyGrammarBadTruth, RaisesAMismatchAndReadsNothingFurther)
{
    Reply reply;
    EXPECT_EQ(ErrorOfReading(WithFirst(QString::fromUtf16(GetParam())), reply), TypeMismatch);
    EXPECT_FALSE(reply.ReturnValue);
    EXPECT_EQ(reply.UniqueNum, QString());
}

INSTANTIATE_TEST_SUITE_P(Items, ReplyGrammarBadTruth,
                         ::testing::Values(u"return_value:", u"return_value: ", u"return_value:yes",
                                           u"return_value:tru", u"return_value:1x", u"return_value:참"));

TEST(ReplyGrammar, AnItemWithoutItsPrefixStaysEmpty)
{
    const Reply reply = Read(u"return_value:true;;;number:1;;;;code:E1;msg:실패"_q);
    EXPECT_EQ(reply.UniqueNum, QString());
    EXPECT_TRUE(reply.IsAccepted());
}

TEST(ReplyGrammar, APrefixInAnotherCaseIsNone)
{
    EXPECT_EQ(Read(u"return_value:true;;;Unique_num:1;;;;error_code:;error_msg:"_q).UniqueNum, QString());
}

TEST(ReplyGrammar, AnItemAtAnotherPlaceIsNotLookedFor)
{
    EXPECT_EQ(Read(u"return_value:true;unique_num:7;;x;;;;error_code:;error_msg:"_q).UniqueNum, QString());
}

TEST(ReplyGrammar, BlanksAroundAnItemGoAndThoseBehindThePrefixStay)
{
    const Reply reply = Read(u"return_value:true;;;  unique_num: 12 ;;;;error_code:;error_msg:  긴 글  "_q);
    EXPECT_EQ(reply.UniqueNum, u" 12"_q);
    EXPECT_EQ(reply.ErrorMsg, u"  긴 글"_q);
}

TEST(ReplyGrammar, EveryOccurrenceOfAPrefixGoesInOnePass)
{
    const Reply reply = Read(
        u"return_value:true;;;unique_num:1unique_num:2;;;;error_code:;error_msg:error_error_msg:msg:x"_q);
    EXPECT_EQ(reply.UniqueNum, u"12"_q);
    EXPECT_EQ(reply.ErrorMsg, u"error_msg:x"_q);
}

TEST(ReplyGrammar, ItemsBehindTheNinthAreIgnored)
{
    EXPECT_EQ(Read(AcceptedReply + u"뒤;return_value:maybe"_q).ErrorMsg, u"뒤"_q);
}

struct ShortRow
{
    const char16_t* text;
    bool returnValue;
    const char16_t* uniqueNum;
    const char16_t* errorCode;
};

class ReplyGrammarShort : public ::testing::TestWithParam<ShortRow>
{
};

TEST_P(ReplyGrammarShort, RaisesASubscriptErrorAndKeepsWhatWasRead)
{
    Reply reply;
    EXPECT_EQ(ErrorOfReading(QString::fromUtf16(GetParam().text), reply), SubscriptOutOfRange);
    EXPECT_EQ(reply.ReturnValue, GetParam().returnValue);
    EXPECT_EQ(reply.UniqueNum, QString::fromUtf16(GetParam().uniqueNum));
    EXPECT_EQ(reply.ErrorCode, QString::fromUtf16(GetParam().errorCode));
    EXPECT_EQ(reply.ErrorMsg, QString());
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ReplyGrammarShort,
    ::testing::Values(ShortRow{u"", false, u"", u""}, ShortRow{u"return_value:true", true, u"", u""},
                      ShortRow{u"return_value:true;;", true, u"", u""},
                      ShortRow{u"return_value:true;;;unique_num:9", true, u"9", u""},
                      ShortRow{u"return_value:true;;;unique_num:9;;;", true, u"9", u""},
                      ShortRow{u"return_value:true;;;unique_num:9;;;;error_code:E7", true, u"9", u"E7"}));

TEST(ReplyGrammar, TheFirstErrorIsTheTruthValueAlsoInAShortReply)
{
    Reply reply;
    EXPECT_EQ(ErrorOfReading(u"return_value:maybe"_q, reply), TypeMismatch);
}

TEST(ReplyGrammar, WhatAnEarlierReplyLeftIsEmptiedFirst)
{
    Reply reply = Read(u"return_value:true;;;unique_num:1;;;;error_code:E1;error_msg:실패"_q);
    EXPECT_EQ(ErrorOfReading(u"return_value:maybe"_q, reply), TypeMismatch);
    EXPECT_FALSE(reply.ReturnValue);
    EXPECT_EQ(reply.UniqueNum, QString());
    EXPECT_EQ(reply.ErrorCode, QString());
    EXPECT_EQ(reply.ErrorMsg, QString());
}

} // namespace tsms::test
