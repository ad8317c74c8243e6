#include "addressbook/RecipientRecord.h"
#include "runtime/CodePage949.h"
#include "support/RecipientFile.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

QByteArray Bytes(const QString& text)
{
    return ToCodePage949(text);
}

TEST(RecipientRecords, NameAndNumberStandAtTheirOffsets)
{
    const QByteArray bytes = RecipientRecordBytes(Bytes(u"홍길동"_q), "010-1234-5678");
    ASSERT_EQ(bytes.size(), 247);
    const RecipientRecord record = RecipientRecord::Of(bytes);
    EXPECT_EQ(record.name, u"홍길동"_q);
    EXPECT_EQ(record.phone, u"010-1234-5678"_q);
}

TEST(RecipientRecords, BlanksAboutAFieldGoAndThoseWithinStay)
{
    const RecipientRecord record = RecipientRecord::Of(RecipientRecordBytes("  a b  ", " 010 1234 "));
    EXPECT_EQ(record.name, u"a b"_q);
    EXPECT_EQ(record.phone, u"010 1234"_q);
}

TEST(RecipientRecords, FullFieldsAreReadToTheirLastByte)
{
    const RecipientRecord record =
        RecipientRecord::Of(RecipientRecordBytes(Bytes(u"가나다라마바사아자차"_q), "0101234567890123"));
    EXPECT_EQ(record.name, u"가나다라마바사아자차"_q);
    EXPECT_EQ(record.phone, u"0101234567890123"_q);
}

TEST(RecipientRecords, WhatIsLeftOfACharacterThatTheWidthCutsIsDropped)
{
    const RecipientRecord record = RecipientRecord::Of(
        RecipientRecordBytes(Bytes(u"a가나다라마바사아자차"_q), Bytes(u"010123456789012가"_q)));
    EXPECT_EQ(record.name, u"a가나다라마바사아자"_q);
    EXPECT_EQ(record.phone, u"010123456789012"_q);
}

TEST(RecipientRecords, SoIsWhatIsLeftOfOneThatTheWriterCutBeforeTheBlanks)
{
    const QByteArray cut = Bytes(u"홍길동"_q).chopped(1);
    EXPECT_EQ(RecipientRecord::Of(RecipientRecordBytes(cut, "010")).name, u"홍길"_q);
    EXPECT_EQ(RecipientRecord::Of(RecipientRecordBytes(Bytes(u"홍길 동"_q).chopped(1), "010")).name,
              u"홍길"_q);
}

TEST(RecipientRecords, BytesThatAreNoTextInTheMiddleStayAsAReplacement)
{
    EXPECT_EQ(RecipientRecord::Of(RecipientRecordBytes("a\xFF"
                                                       "b",
                                                       "010"))
                  .name,
              u"a\xFFFD"
              u"b"_q);
}

TEST(RecipientRecords, EmptyFieldsAreEmpty)
{
    const RecipientRecord record = RecipientRecord::Of(RecipientRecordBytes("", ""));
    EXPECT_EQ(record.name, QString());
    EXPECT_EQ(record.phone, QString());
}

} // namespace
