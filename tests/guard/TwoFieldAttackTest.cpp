#include "guard/GuardBench.h"

using namespace tsms;
using namespace tsms::test;

namespace {

/// Attacks of two fields of one statement: each has one apostrophe, and both together leave none open.
class TwoFieldAttack : public GuardBench
{
protected:
    template <class Work> void ExpectRefused(const QString& near, const QList<Asked>& behind, Work work)
    {
        for (const Way way : {Way::Typed, Way::Pasted}) {
            const TableContents before = Tables();
            ExpectBoxes({{RefusedBox(u"Incorrect syntax near '%1'."_q.arg(near))}});
            ExpectBoxes(behind);
            work(way);
            for (const QString& statement : seen)
                EXPECT_EQ(statement, u"SELECT * FROM SMSSetup"_q);
            EXPECT_EQ(ChangedSince(before), QStringList());
            ExpectAtRest();
        }
    }
};

TEST_F(TwoFieldAttack, OfTheSettingsIsRefused)
{
    ExpectRefused(u","_q, {}, [this](Way way) {
        ChangeSettings({{0, u"a'"_q}, {1, u", SMSRemainCnt = 9999, SMSPWD='b"_q}}, 0, way);
    });
}

TEST_F(TwoFieldAttack, OfAChargeIsRefused)
{
    const auto enter = [this](Way) { Charge({{3, u"1'"_q}, {4, u",getdate()),('1"_q}}, 3, Way::Pasted); };
    ExpectRefused(u","_q, {}, enter);
}

TEST_F(TwoFieldAttack, OfAMessageIsRefused)
{
    ExpectRefused(u","_q, {{SentBox()}}, [this](Way way) {
        SendToNameWithMessage(u"a'"_q, u",(SELECT SMSPWD FROM SMSSetup),'b"_q, way);
    });
}

TEST_F(TwoFieldAttack, OfANameThatTheMessageRepeatsIsRefused)
{
    ExpectRefused(u","_q, {{SentBox()}},
                  [this](Way way) { SendToNameWithMessage(u"a'"_q, u"[받는사람]님"_q, way); });
}

TEST_F(TwoFieldAttack, OfATemplateIsRefused)
{
    const Box ask{u"문자서식 등록"_q, u"신규 문자서식 등록확인 : 입력한 문자서식을 등록하시겠습니까?"_q,
                  MsgBoxQuestion};
    for (const Way way : {Way::Typed, Way::Pasted}) {
        const TableContents before = Tables();
        ExpectBoxes({{ask, AnswerYes}, {RefusedBox(u"Incorrect syntax near ','."_q)}});
        AddTemplate(u"a'"_q, u",(SELECT SMSPWD FROM SMSSetup)),(1,'b','c"_q, u"txtEditBox"_q, way);
        EXPECT_EQ(seen, QStringList());
        EXPECT_EQ(ChangedSince(before), QStringList());
    }
}

TEST_F(TwoFieldAttack, ThatHidesTheApostropheBetweenInACommentIsRefused)
{
    ExpectRefused(u"/*"_q, {{SentBox()}}, [this](Way way) {
        SendToNameWithMessage(u"a'/*"_q, u"*/,'1','1','1','1','1',Null,Null"_q, way);
    });
}

} // namespace
