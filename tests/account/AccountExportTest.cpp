#include "support/program/Program.h"
#include "support/workbooks/FreeXlReader.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace tsms::test {

namespace {

class AccountExport : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(folder.isValid());
        program.desktop.folderToPick = folder.path();
        program.database.Execute(
            u"INSERT INTO SMSCharge (ChargeDt,ChargeCnt,ChargeAmt,ChargeUnit,Remark,RegDt) VALUES "
            u"('2012-05-20',1500,30000,20,'\"여름\" 행사','2012-05-20 10:00:01')"_q);
        for (const QString& row : {u"'1','2012-03-02 10-00'"_q, u"'2','2012-03-05 10-00'"_q})
            program.database.Execute(u"INSERT INTO SMSLog_2012 (SMSStatus,SendTime) VALUES ("_q + row +
                                     u")"_q);
        ASSERT_TRUE(program.Start());
        program.Click(u"BtnToolbarDis(2)"_q);
    }
    ReadBook Export(int button, const QString& name)
    {
        program.Click(u"BtnChargeFunc(%1)"_q.arg(button));
        EXPECT_EQ(program.desktop.documents, QStringList{folder.filePath(name)});
        return ReadWithFreeXl(folder.filePath(name));
    }

    QTemporaryDir folder;
    Program program;
};

TEST_F(AccountExport, TheLedgerGoesOutWithItsNumbersAsNumbers)
{
    const ReadBook book = Export(2, u"요금충전현황20120530.xls"_q);
    EXPECT_EQ(book.sheets, QStringList{u"Sheet1"_q});
    ASSERT_EQ(book.rows.size(), 2);
    const QVariantList titles{QString(), u"충전일시"_q, u"건수"_q,    u"금액"_q,
                              u"단가"_q, u"메모사항"_q, u"등록일시"_q};
    for (int col = 1; col < titles.size(); ++col)
        EXPECT_EQ(book.rows[0][col], titles[col]) << col;
    const QVariantList row{
        u"1"_q, u"2012-05-20"_q, 1500.0, 30000.0, u"20"_q, u"\"여름\" 행사"_q, u"2012-05-20 10:00:01"_q};
    EXPECT_EQ(book.rows[1], row);
}

TEST_F(AccountExport, TheMonthsGoOutWithTheirSums)
{
    const ReadBook book = Export(3, u"월별발송현황20120530.xls"_q);
    ASSERT_EQ(book.rows.size(), 5);
    EXPECT_EQ(book.rows[0][0], u"1월"_q);
    EXPECT_EQ(book.rows[0][12], u"전체합계"_q);
    const QList<QVariant> march{2.0, 1.0, 1.0, u"50%"_q};
    for (int row = 1; row <= 4; ++row) {
        EXPECT_EQ(book.rows[row][2], march[row - 1]) << row;
        EXPECT_EQ(book.rows[row][12], QVariant(2.0)) << row;
        EXPECT_TRUE(book.rows[row][0].isNull()) << row;
    }
}

TEST_F(AccountExport, AnEmptyLedgerGoesOutAsItsTitles)
{
    program.database.Execute(u"DELETE FROM SMSCharge"_q);
    program.Click(u"BtnToolbarDis(0)"_q);
    program.Click(u"BtnToolbarDis(2)"_q);
    EXPECT_EQ(Export(2, u"요금충전현황20120530.xls"_q).rows.size(), 1);
}

TEST_F(AccountExport, NothingHappensWhileBusy)
{
    program.session.Busy = true;
    program.Click(u"BtnChargeFunc(2)"_q);
    program.Click(u"BtnChargeFunc(3)"_q);
    EXPECT_EQ(program.desktop.documents, QStringList());
}

} // namespace

} // namespace tsms::test
