#include "guard/GuardBench.h"

using namespace tsms;
using namespace tsms::test;

namespace {

/// Fields that take numbers: what becomes of an attack in them.
using FilteredField = GuardBench;

const Asked BadCount{{u"문자메시지 충전"_q, u"올바른 충전건수를 입력하여 주십시오.!!!"_q, MsgBoxCritical}};
const Asked MemberAdded{{u"발송대상"_q, u"정상적으로 하위 발송대상을 등록 하였습니다."_q, MsgBoxInformation}};
const Asked SettingsSaved{
    {u"환경설정"_q, u"정상적으로 문자메시지 환경설정을 완료하였습니다."_q, MsgBoxInformation}};

const Way BothWays[] = {Way::Typed, Way::Pasted};

TEST_F(FilteredField, AMembersNumberLosesApostrophesAndWords)
{
    for (const Way way : BothWays) {
        program.database.Execute(u"DELETE FROM SMSGroupSub WHERE GSubCd > 4"_q);
        ExpectBoxes({MemberAdded});
        AddMemberWithNumber(u"010-123'; DELETE --4"_q, way);
        EXPECT_EQ(held, u"010-123--4"_q);
        EXPECT_EQ(program.database.Value(u"SELECT GSPhone FROM SMSGroupSub ORDER BY GSubCd DESC"_q),
                  u"010-123--4"_q);
    }
}

TEST_F(FilteredField, TheSendersNumberLosesApostrophesAndWords)
{
    for (const Way way : BothWays) {
        ExpectBoxes({{SentBox()}});
        SendAs(u"021234567' /* OR 1 --"_q, way);
        EXPECT_EQ(held, u"021234567/1--"_q);
        EXPECT_EQ(program.database.Value(u"SELECT ReceiveTelNo FROM SMSLog_2012 ORDER BY SMSKey DESC"_q),
                  u"021234567/1--"_q);
    }
    EXPECT_EQ(program.LogRows(), 2);
}

TEST_F(FilteredField, TheAccountsNumberLosesApostrophesAndWords)
{
    for (const Way way : BothWays) {
        ExpectBoxes({SettingsSaved});
        ChangeSettings({{3, u"02-123', P='4--"_q}}, 3, way);
        EXPECT_EQ(held, u"02-1234--"_q);
        EXPECT_EQ(program.database.Rows(u"SELECT SMSTelNo, SMSPWD FROM SMSSetup"_q),
                  QList<QStringList>({{u"02-1234--"_q, u"demo"_q}}));
    }
}

struct NumberAttack
{
    std::string name;
    int field;
    Way way;
    QString text;
    QString held;
    Asked box;
};

Asked Near(const QString& word)
{
    return {RefusedBox(u"Incorrect syntax near '%1'."_q.arg(word))};
}

// Count and amount stand bare in the statement.
const NumberAttack NumberAttacks[] = {
    {"CountWithAnApostrophe", 1, Way::Pasted, u"1',1,'1"_q, u"1',1,'1"_q, BadCount},
    {"CountWithAComment", 1, Way::Typed, u"1' --"_q, u"1--"_q, BadCount},
    {"CountWithASubquery", 1, Way::Pasted, u"(SELECT 1)"_q, u"(SELECT 1)"_q, BadCount},
    {"AmountWithAnApostrophe", 2, Way::Pasted, u"1',1,'1"_q, u"1',1,'1"_q, Near(u"'"_q)},
    {"AmountWithATypedComment", 2, Way::Typed, u"1' --2"_q, u"1--2"_q, Near(u"--"_q)},
    {"AmountWithAComment", 2, Way::Pasted, u"1);--"_q, u"1);--"_q, Near(u"--"_q)},
    {"AmountWithABlockComment", 2, Way::Pasted, u"1/*2"_q, u"1/*2"_q, Near(u"/*"_q)},
    {"AmountWithAnotherRow", 2, Way::Pasted, u"1),(1,1"_q, u"1),(1,1"_q, Near(u")"_q)},
    {"AmountWithASubquery", 2, Way::Pasted, u"(SELECT 1)"_q, u"(SELECT 1)"_q, Near(u"("_q)},
    {"AmountWithASecondStatement", 2, Way::Pasted, u"1;SELECT 1"_q, u"1;SELECT 1"_q, Near(u";"_q)},
    {"AmountWithAWord", 2, Way::Pasted, u"1 DELETE t"_q, u"1 DELETE t"_q, Near(u"DELETE"_q)},
    {"AmountWithAColumn", 2, Way::Pasted, u"ChargeCnt"_q, u"ChargeCnt"_q, Near(u"ChargeCnt"_q)},
    {"AmountWithALine", 2, Way::Pasted, u"(1\r\n)"_q, u"(1"_q, Near(u"("_q)},
};

class ANumber : public GuardBench, public ::testing::WithParamInterface<NumberAttack>
{
};

TEST_P(ANumber, OfAChargeIsRefusedAndChangesNoTable)
{
    const NumberAttack& attack = GetParam();
    const TableContents before = Tables();
    ExpectBoxes({attack.box});
    Charge({{attack.field, attack.text}}, attack.field, attack.way);
    EXPECT_EQ(held, attack.held);
    EXPECT_EQ(ChangedSince(before), QStringList());
    ExpectAtRest();
    EXPECT_EQ(seen, QStringList());
}

INSTANTIATE_TEST_SUITE_P(Charges, ANumber, ::testing::ValuesIn(NumberAttacks),
                         [](const auto& attack) { return attack.param.name; });

TEST_F(FilteredField, AUnitPriceLosesATypedApostropheAndIsNoNumberForTheDatabase)
{
    const TableContents before = Tables();
    ExpectBoxes(
        {{RefusedBox(u"Cannot convert a char value to money. The char value has incorrect syntax."_q)}});
    Charge({{3, u"1'--"_q}}, 3, Way::Typed);
    EXPECT_EQ(held, u"1--"_q);
    EXPECT_EQ(ChangedSince(before), QStringList());
}

} // namespace
