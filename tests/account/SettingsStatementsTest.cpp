#include "account/SettingsStatements.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

TEST(SettingsQuery, ReadsTheAccountRow)
{
    EXPECT_EQ(SettingsQuery().Text(),
              u"SELECT SMSID,SMSPWD,SMSDNS,SMSOrgNm,SMSTelNo,SMSAuto1,SMSAuto2 FROM SMSSetup"_q);
    EXPECT_EQ(SettingsQuery().Fault(), QString());
}

struct UpdateRow
{
    Settings settings;
    QString text;
};

class SettingsUpdates : public ::testing::TestWithParam<UpdateRow>
{
};

TEST_P(SettingsUpdates, AreWrittenToTheLetterAndMayBeSent)
{
    const Statement update = SettingsUpdate(GetParam().settings);
    EXPECT_EQ(update.Text(), GetParam().text);
    EXPECT_EQ(update.Fault(), QString());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SettingsUpdates,
    ::testing::Values(
        UpdateRow{
            {u"demo"_q, u"p w"_q, u"sms.example.kr"_q, u"02-1234-5678"_q, u"한빛교회"_q, true, false},
            u"UPDATE SMSSetup SET  SMSID ='demo', SMSPWD ='p w', SMSDNS ='sms.example.kr', SMSTelNo ='02-1234-5678', SMSOrgNm ='한빛교회', SMSAuto1 ='1', SMSAuto2 ='0'"_q},
        UpdateRow{
            {u" demo "_q, u"update"_q, u"a;b"_q, u"1"_q, u"x--y"_q, false, true},
            u"UPDATE SMSSetup SET  SMSID ='demo', SMSPWD ='update', SMSDNS ='a;b', SMSTelNo ='1', SMSOrgNm ='x--y', SMSAuto1 ='0', SMSAuto2 ='1'"_q},
        UpdateRow{
            {QString(), u"  "_q, QString(), QString(), QString(), false, false},
            u"UPDATE SMSSetup SET  SMSID =Null, SMSPWD =Null, SMSDNS =Null, SMSTelNo =Null, SMSOrgNm =Null, SMSAuto1 ='0', SMSAuto2 ='0'"_q}));

TEST(SettingsUpdate, AnApostropheIsNotEscapedAndNeverChangesTheStatement)
{
    Settings settings{u"demo"_q, u"O''Brien"_q, u"d"_q, u"1"_q, u"o"_q, false, false};
    EXPECT_TRUE(SettingsUpdate(settings).Text().contains(u" SMSPWD ='O''Brien',"_q));
    EXPECT_EQ(SettingsUpdate(settings).Fault(), u"Incorrect syntax near 'Brien'."_q);
    settings.SMSPWD = u"x', SMSRemainCnt='9"_q;
    EXPECT_EQ(SettingsUpdate(settings).Fault(), u"Incorrect syntax near ','."_q);
}

} // namespace
