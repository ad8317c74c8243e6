#include "gateway/ModSMS.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "store/engine/DatabaseError.h"
#include "support/database/TestDatabase.h"
#include "support/ScriptedDesktop.h"
#include "support/Words.h"
#include "templates/ModFuncPublic.h"
#include "toolkit/fields/ComboBox.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

class FillTemplateComboTest : public ::testing::Test
{
protected:
    FillTemplateComboTest()
    {
        database.Describe(session);
        database.Execute(u"INSERT INTO SMSTempLMst VALUES (7,'일곱'),(2,'둘'),(5,'다섯')"_q);
        combo.AddItem(u"옛것"_q, 99);
        combo.OnClick = [this] { busyAtClick << session.IsBusy(); };
    }
    void Fill(const QString& code = QString())
    {
        db.ConnectDB();
        FillTemplateCombo(services, combo, code);
        db.CloseDB();
    }
    QStringList Entries()
    {
        QStringList entries;
        for (int i = 0; i < combo.ListCount(); ++i)
            entries += u"%1=%2"_q.arg(combo.List(i)).arg(combo.ItemData(i));
        return entries;
    }

    FixedClock clock;
    TestDatabase database{clock};
    FailingConnections connections{database.Connections()};
    Session session;
    ScriptedDesktop desktop;
    DBConnect db{session, desktop, connections.Maker()};
    ModSMS sms{session, db, desktop, clock, QString()};
    Services services{session, desktop, clock, db, sms};
    ComboBox combo{nullptr, u"CbTempCd"_q};
    QList<bool> busyAtClick;
};

TEST_F(FillTemplateComboTest, ListsTheCategoriesByTheirCodesAndSelectsTheFirst)
{
    Fill();
    EXPECT_EQ(Entries(), QStringList({u"둘=2"_q, u"다섯=5"_q, u"일곱=7"_q}));
    EXPECT_EQ(combo.ListIndex(), 0);
    EXPECT_EQ(connections.Statements(),
              QStringList{u"SELECT TempLCd,TempLNm FROM SMSTempLMst ORDER BY TempLCd"_q});
}

TEST_F(FillTemplateComboTest, WithACodeItsCategoryStandsFirst)
{
    Fill(u"5"_q);
    EXPECT_EQ(Entries(), QStringList({u"다섯=5"_q, u"둘=2"_q, u"일곱=7"_q}));
    EXPECT_EQ(combo.ListIndex(), 0);
}

TEST_F(FillTemplateComboTest, ACodeThatIsNotThereChangesNothing)
{
    Fill(u"9999"_q);
    EXPECT_EQ(Entries(), QStringList({u"둘=2"_q, u"다섯=5"_q, u"일곱=7"_q}));
}

TEST_F(FillTemplateComboTest, BusyIsSetWhileTheListTellsItsChoiceAndClearBehindIt)
{
    session.Busy = true; // of the caller
    Fill();
    EXPECT_EQ(busyAtClick, QList<bool>{true});
    EXPECT_FALSE(session.IsBusy());
}

TEST_F(FillTemplateComboTest, WithoutCategoriesTheListIsEmpty)
{
    database.Execute(u"DELETE FROM SMSTempLMst"_q);
    combo.setPlaceholderText(u"전체"_q);
    Fill();
    EXPECT_EQ(combo.placeholderText(), QString());
    EXPECT_EQ(combo.ListCount(), 0);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_FALSE(session.IsBusy());
}

TEST_F(FillTemplateComboTest, AFailedQueryIsReportedAndLeavesAnEmptyList)
{
    connections.FailStatement(1, StatementFailure, u"Invalid object name 'SMSTempLMst'."_q);
    desktop.Expect({u" - 오류!!!"_q, u"☞ : Invalid object name 'SMSTempLMst'."_q, MsgBoxCritical});
    Fill();
    EXPECT_EQ(combo.ListCount(), 0);
    EXPECT_FALSE(session.IsBusy());
}

TEST_F(FillTemplateComboTest, ANameThatIsNullIsAnEmptyEntry)
{
    database.Execute(u"INSERT INTO SMSTempLMst VALUES (1,NULL)"_q);
    Fill();
    EXPECT_EQ(Entries().first(), u"=1"_q);
}

} // namespace

} // namespace tsms::test
