#include "support/RecipientFile.h"
#include "addressbook/UserSMSFileRead.h"
#include "recipients/GridRecipientList.h"
#include "runtime/CodePage949.h"
#include "support/program/Program.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

using namespace tsms;
using namespace tsms::test;

namespace {

class RecipientFile : public ::testing::Test
{
protected:
    QByteArray Record(const QString& name, const QByteArray& phone)
    {
        return RecipientRecordBytes(ToCodePage949(name), phone);
    }
    void Start(const QByteArray& content)
    {
        program.WriteFile(u"SMSData"_q, content);
        ASSERT_TRUE(program.Start());
    }
    fpSpread& Grid() { return program.Recipients(); }
    QStringList Row(int row)
    {
        return {Grid().Cells().Text(1, row), Grid().Cells().Text(2, row), Grid().Cells().Text(3, row)};
    }
    bool ReadAgain()
    {
        GridRecipientList list(Grid());
        return ReadRecipientFile(program.services.applicationPath, list, program.session, program.desktop);
    }
    /// The list as it is when no file has been read, but for its size.
    void ExpectUntouched(int rows)
    {
        EXPECT_EQ(Grid().Cells().MaxRows(), rows);
        EXPECT_EQ(Row(1), (QStringList{u"01"_q, {}, {}}));
        EXPECT_EQ(Row(20), (QStringList{u"20"_q, {}, {}}));
    }

    Program program;
};

TEST_F(RecipientFile, WithoutOneTheListStaysAsItIs)
{
    ASSERT_TRUE(program.Start());
    ExpectUntouched(20);
    Grid().Cells().SetMaxRows(7);
    program.session.Busy = true;
    program.desktop.pointers.clear();
    EXPECT_FALSE(ReadAgain());
    EXPECT_TRUE(program.desktop.pointers.isEmpty());
    EXPECT_EQ(Grid().Cells().MaxRows(), 7);
    EXPECT_TRUE(program.session.Busy); // not even that is touched
    program.session.Busy = false;
}

TEST_F(RecipientFile, ItsRecipientsAreListedWhenTheWindowFirstComesUp)
{
    Start(Record(u"김하늘"_q, "010-1111-1111") + Record(u"이바다"_q, "01122222222"));
    EXPECT_EQ(Row(1), (QStringList{u"1"_q, u"김하늘"_q, u"010-1111-1111"_q}));
    EXPECT_EQ(Row(2), (QStringList{u"2"_q, u"이바다"_q, u"01122222222"_q}));
    EXPECT_EQ(Row(3), (QStringList{u"03"_q, {}, {}}));
    EXPECT_EQ(Grid().Cells().MaxRows(), 22);
    EXPECT_EQ(Row(22), (QStringList{{}, {}, {}}));
    EXPECT_TRUE(program.desktop.boxes.isEmpty());
    EXPECT_TRUE(Grid().ReDraw());
}

TEST_F(RecipientFile, NumbersOfRowsAreNotFilledUpAndGoOnBeyondTwoDigits)
{
    QByteArray content;
    for (int i = 1; i <= 120; ++i)
        content += Record(u"이름"_q, "010" + QByteArray::number(i));
    Start(content);
    EXPECT_EQ(Grid().Cells().Text(1, 9), u"9"_q);
    EXPECT_EQ(Grid().Cells().Text(1, 120), u"120"_q);
    EXPECT_EQ(Grid().Cells().MaxRows(), 140);
}

TEST_F(RecipientFile, TheHourglassStandsWhileItIsReadAndBusyIsClearAfterwards)
{
    Start(Record(u"김하늘"_q, "0101"));
    EXPECT_FALSE(program.session.Busy);
    program.desktop.pointers.clear();
    program.session.Busy = true;
    EXPECT_TRUE(ReadAgain());
    EXPECT_EQ(program.desktop.pointers,
              (QList<MousePointer>{MousePointer::Hourglass, MousePointer::Default}));
    EXPECT_FALSE(program.session.Busy);
}

TEST_F(RecipientFile, AnEmptyOneMakesTwentyRows)
{
    Start({});
    ExpectUntouched(20);
    Grid().Cells().SetMaxRows(50);
    EXPECT_TRUE(ReadAgain());
    EXPECT_EQ(Grid().Cells().MaxRows(), 20);
}

TEST_F(RecipientFile, ARemainderIsIgnored)
{
    Start(Record(u"김하늘"_q, "0101") + Record(u"이바다"_q, "0102").first(246));
    EXPECT_EQ(Row(1)[2], u"0101"_q);
    EXPECT_EQ(Row(2)[2], QString());
}

TEST_F(RecipientFile, WhatIsNoMobileNumberLeavesNoGap)
{
    Start(Record(u"빈"_q, "") + Record(u"집"_q, "02-123-4567") + Record(u"가"_q, "016-1") +
          Record(u"국외"_q, "+8210") + Record(u"나"_q, "019-2"));
    EXPECT_EQ(Row(1), (QStringList{u"1"_q, u"가"_q, u"016-1"_q}));
    EXPECT_EQ(Row(2), (QStringList{u"2"_q, u"나"_q, u"019-2"_q}));
    EXPECT_EQ(Row(3)[2], QString());
    EXPECT_EQ(Grid().Cells().MaxRows(), 25);
}

TEST_F(RecipientFile, AShortNumberPasses)
{
    Start(Record(u"짧은"_q, "010"));
    EXPECT_EQ(Row(1)[2], u"010"_q);
}

TEST_F(RecipientFile, OfNumbersThatDifferByPunctuationTheFirstStands)
{
    Start(Record(u"첫째"_q, "010-1234-5678") + Record(u"둘째"_q, "01012345678") +
          Record(u"셋째"_q, "010/1234.5678") + Record(u"다른"_q, "010-1234-5679"));
    EXPECT_EQ(Row(1), (QStringList{u"1"_q, u"첫째"_q, u"010-1234-5678"_q}));
    EXPECT_EQ(Row(2), (QStringList{u"2"_q, u"다른"_q, u"010-1234-5679"_q}));
    EXPECT_EQ(Row(3)[2], QString());
}

TEST_F(RecipientFile, ABlankNameStillMakesARow)
{
    Start(Record(QString(), "0101"));
    EXPECT_EQ(Row(1), (QStringList{u"1"_q, QString(), u"0101"_q}));
}

TEST_F(RecipientFile, RowsThatAreListedAlreadyTakePartInTheScanButRemovedOnesDoNot)
{
    ASSERT_TRUE(program.Start());
    program.List({{u"가"_q, u"010-1"_q}, {u"나"_q, u"010-2"_q}, {u"다"_q, u"010-3"_q}});
    ClickCell(Grid(), 4, 3);
    program.WriteFile(u"SMSData"_q, Record(u"첫째"_q, "0102") + Record(u"둘째"_q, "0103") +
                                        Record(u"셋째"_q, "0104") + Record(u"넷째"_q, "0101"));
    EXPECT_TRUE(ReadAgain());
    // 0102 stands in row 2 when its record is read; by the time of 0101 its row has been written over.
    EXPECT_EQ(Row(1), (QStringList{u"1"_q, u"둘째"_q, u"0103"_q}));
    EXPECT_EQ(Row(2), (QStringList{u"2"_q, u"셋째"_q, u"0104"_q}));
    EXPECT_EQ(Row(3), (QStringList{u"3"_q, u"넷째"_q, u"0101"_q}));
    EXPECT_TRUE(Grid().RowHidden(3));
}

TEST_F(RecipientFile, ASecondActivationDoesNotReadItAgain)
{
    Start(Record(u"가"_q, "0101"));
    program.WriteFile(u"SMSData"_q, Record(u"나"_q, "0102"));
    WhenShown(u"dlgSMSSetup"_q, [](QWidget& dialog) { PressKey(dialog, Qt::Key_Escape); });
    program.Click(u"BtnToolbarDis(4)"_q);
    Settle();
    EXPECT_EQ(Row(1)[2], u"0101"_q);
}

TEST_F(RecipientFile, ItStaysAsItIs)
{
    const QByteArray content = Record(u"가"_q, "0101") + "rest";
    Start(content);
    QFile file(program.Path(u"SMSData"_q));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), content);
}

TEST_F(RecipientFile, AFolderOfThatNameIsNone)
{
    QDir(program.services.applicationPath).mkdir(u"SMSData"_q);
    ASSERT_TRUE(program.Start());
    ExpectUntouched(20);
    EXPECT_FALSE(ReadAgain());
}

TEST_F(RecipientFile, OneLargerThanAnyListIsLeftAloneInSilence)
{
    QFile file(program.Path(u"SMSData"_q));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize(247LL * 500'001)); // without content, so it takes no room
    ASSERT_TRUE(program.Start());
    ExpectUntouched(20);
    EXPECT_FALSE(ReadAgain());
    EXPECT_FALSE(program.session.Busy);
    EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
    EXPECT_TRUE(program.desktop.boxes.isEmpty());
}

TEST_F(RecipientFile, BytesOfAnyKindAreSurvived)
{
    QByteArray content;
    for (int i = 0; i < 50 * 247; ++i)
        content += static_cast<char>(i * 37 + i / 256);
    Start(content);
    EXPECT_EQ(Grid().Cells().MaxRows(), 70);
}

TEST_F(RecipientFile, ItsRecipientsGetTheMessage)
{
    Start(Record(u"김하늘"_q, "010-1111-1111") + Record(u"이바다"_q, "02-1") + Record(u"박나무"_q, "0101"));
    program.Write(u"안녕 [받는사람]"_q);
    program.desktop.Expect(SentBox());
    program.Send();
    ASSERT_EQ(program.gateway.Messages().size(), 1); // the short number is passed over when it is sent
    EXPECT_EQ(program.gateway.Messages().first().Content, u"안녕 김하늘"_q);
}

} // namespace
