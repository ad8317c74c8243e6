#include "faults/Scene.h"

#include "store/embedded/EmbeddedTables.h"
#include "toolkit/windows/Form.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

/// The database that every scene begins with, made once.
class Stock
{
public:
    Stock() : database_(clock_, {2012, 2012}, TestEngine::Embedded)
    {
        database_.SetAccount();
        database_.Execute(u"INSERT INTO SMSGroupMst (GroupNm) VALUES ('청년부'), ('개명 1'), ('개명 2'), "
                          u"('폐지 1'), ('폐지 2')"_q);
        database_.Execute(u"INSERT INTO SMSGroupSub (GroupCd, GSubNm, GSPhone) VALUES "
                          u"(1, '김하늘', '010-0000-0001'), (1, '고침 1', '010-0000-0002'), "
                          u"(1, '고침 2', '010-0000-0003'), (4, '소속 1', '010-0000-0004'), "
                          u"(5, '소속 2', '010-0000-0005'), (NULL, '지움 1', '010-0000-0006'), "
                          u"(NULL, '지움 2', '010-0000-0007')"_q);
        database_.Execute(u"INSERT INTO SMSTempLMst VALUES (1, '인사'), (2, '안내')"_q);
        database_.Execute(u"INSERT INTO SMSTempLSub (TempLCd, TempLSubNm, TempLContent) VALUES "
                          u"(1, '고침 1', '아침'), (1, '고침 2', '점심'), (1, '지움 1', '저녁'), "
                          u"(1, '지움 2', '밤'), (2, '휴관', '쉽니다')"_q);
        database_.Execute(
            u"INSERT INTO SMSCharge (ChargeDt,ChargeCnt,ChargeAmt,ChargeUnit,Remark,RegDt) VALUES "
            u"('2012-03-01',30,600,'20','첫째','2012-03-01 09:12:00'), "
            u"('2012-03-02',20,400,'20',NULL,'2012-03-02 09:12:00')"_q);
        for (const QString& day : {u"2012-05-28"_q, u"2012-05-29"_q})
            database_.Execute(
                u"INSERT INTO SMSLog_2012 (SMSStatus, SMSNo, SendNm, SendTelNo, SMSContent, SendTime) VALUES "
                u"('1', '9'||strftime('%d','"_q +
                day + u"'), '박나무', '011-000-0003', '안녕하세요', '"_q + day + u" 10-00')"_q);
        database_.Execute(u"PRAGMA wal_checkpoint(TRUNCATE)"_q); // the file alone is copied
    }

    static QString Path()
    {
        static const Stock stock;
        return stock.database_.Path();
    }

private:
    FixedClock clock_;
    TestDatabase database_;
};

} // namespace

Scene::Scene() : program(TestEngine::Server, Stock::Path())
{
    program.desktop.AllowBoxes(AnswerYes);
    program.connections.BeforeStatement(
        [this](const QString&) { last.frames += program.connections.Connected(); });
}

void Scene::Start()
{
    program.form.reset();
    EXPECT_TRUE(program.Start());
    program.form->setUpdatesEnabled(false); // nobody looks, and drawing takes most of the time
    Settle();
}

void Scene::Act(const std::function<void()>& action)
{
    Settle();
    const QStringList rows = Rows();
    const int balance = program.Balance();
    const auto boxes = program.desktop.boxes.size();
    const auto statements = Server().Statements().size();
    const auto passed = program.connections.Statements().size();
    const auto logIns = Server().LogIns().size();
    const int connections = program.connections.Connected();
    last = {};
    if (fault)
        std::exchange(fault, {})(Server());

    action();
    Settle();

    Server().BehaveAgain();
    Server().Start();
    last.boxes = program.desktop.boxes.mid(boxes);
    last.statements = Server().Statements().mid(statements);
    last.passed = program.connections.Statements().mid(passed);
    last.logIns = static_cast<int>(Server().LogIns().size() - logIns);
    for (int& frame : last.frames)
        frame -= connections;
    last.changes = Changes(rows, Rows());
    if (const int change = program.Balance() - balance; change != 0)
        last.changes += u"balance %1"_q.arg(change);
}

bool Scene::IsOn(int page)
{
    return program.Control(u"BtnToolbarEn(%1)"_q.arg(page)).isVisible();
}

void Scene::Enter(int page)
{
    if (IsOn(page))
        program.Click(u"BtnToolbarDis(%1)"_q.arg(page == 0 ? 1 : 0));
    program.Click(u"BtnToolbarDis(%1)"_q.arg(page));
}

void Scene::In(const QString& form, const std::function<void()>& open,
               const std::function<void(QWidget&)>& act)
{
    bool wasShown = false;
    WhenShown(form, [&](QWidget& dialog) {
        wasShown = true;
        dialog.setUpdatesEnabled(false);
        act(dialog);
        if (Form::Find(form))
            PressKey(dialog, Qt::Key_Escape);
        EXPECT_EQ(Form::Find(form), nullptr);
    });
    open();
    EXPECT_TRUE(wasShown) << form.toStdString();
}

void Scene::InBook(const std::function<void(QWidget& book)>& act)
{
    const auto open = [this] { program.Click(u"BtnFuncMain(0)"_q); };
    In(u"dlgSMSGroupSelect"_q, open, act);
}

void Scene::Write(QWidget& form, const QString& field, const QString& text)
{
    auto& box = dynamic_cast<TextField&>(program.On<QWidget>(form, field));
    box.SetFocus();
    box.SelectAll();
    PressKey(box.Widget(), Qt::Key_Delete);
    TypeText(box.Widget(), text);
}

QStringList Scene::Column(const fpSpread& grid, int column)
{
    QStringList texts;
    for (int row = 1; row <= grid.Cells().MaxRows(); ++row)
        texts += grid.Cells().Text(column, row);
    return texts;
}

int Scene::RowWith(const fpSpread& grid, int column, const QString& text)
{
    const auto row = Column(grid, column).indexOf(text);
    EXPECT_GE(row, 0) << text.toStdString();
    return static_cast<int>(row) + 1;
}

void Scene::Reserve(const QString& name, int hour)
{
    program.db.ConnectDB();
    program.sms.InitSOAP();
    EXPECT_TRUE(program.sms.SubmitSMS(name, u"010-0000-0001"_q, u"02-1234-5678"_q, u"내일 뵙겠습니다."_q,
                                      u"2012:05:31:%1:00"_q.arg(hour), {}, {}, {}));
    program.sms.ReleaseSOAP();
    program.db.CloseDB();
}

QStringList Scene::Rows()
{
    QStringList lines;
    for (const QStringList& row : program.database.Rows(
             u"SELECT 'group', GroupNm, '', '', '' FROM SMSGroupMst UNION ALL "
             u"SELECT 'member', GSubNm, GSPhone, IFNULL(GroupCd, '-'), '' FROM SMSGroupSub UNION ALL "
             u"SELECT 'template', TempLCd, TempLSubNm, TempLContent, '' FROM SMSTempLSub UNION ALL "
             u"SELECT 'charge', ChargeDt, ChargeCnt, ChargeAmt, IFNULL(Remark, '-') FROM SMSCharge UNION ALL "
             u"SELECT 'sent', SMSStatus, SendNm, SendTelNo, SendTime FROM SMSLog_2012 UNION ALL "
             u"SELECT 'account', SMSID, SMSPWD, SMSDNS, SMSOrgNm FROM SMSSetup"_q))
        lines += row.join(u' ').trimmed();
    return lines;
}

QStringList Changes(QStringList before, const QStringList& after)
{
    QStringList changes;
    for (const QString& row : after)
        if (!before.removeOne(row))
            changes += u"+ "_q + row;
    for (const QString& row : before)
        if (!row.startsWith(u"account"_q)) // of the one row it counts what it has become
            changes += u"- "_q + row;
    changes.sort();
    return changes;
}

} // namespace tsms::test
