#include "faults/Operations.h"

#include "account/ModStep3.h"
#include "addressbook/BookGrids.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/DatePicker.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/windows/Form.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tsms::test {

namespace {

using Manner = Operation::Manner;
using Effects = QList<QStringList>;

QString Of(const QString& words, int turn)
{
    return words.arg(turn);
}

Effects NoEffects(int)
{
    return {};
}

QList<Box> NoBoxes(int)
{
    return {};
}

// Launch.

void Launch(Scene& scene, int)
{
    scene.Act([&] { scene.Start(); });
    scene.last.view = {scene.program.Caption(u"lblSMSCnt"_q), scene.program.Caption(u"LblTmpContent(1)"_q)};
}

// Sending.

void Write(Scene& scene, int turn)
{
    Program& program = scene.program;
    scene.Enter(0);
    program.Control(u"TxtPerSendMsg"_q).setFocus();
    program.The<MemoBox>(u"TxtPerSendMsg"_q).SetText(QString());
    program.Write(u"안녕하세요"_q);
    program.List({{Of(u"가 %1"_q, turn), u"01012345671"_q}, {Of(u"나 %1"_q, turn), u"01012345672"_q}});
}

void SendAtOnce(Scene& scene, int turn)
{
    Write(scene, turn);
    scene.Act([&] { scene.program.Send(); });
}

void SendReserved(Scene& scene, int turn)
{
    Program& program = scene.program;
    Write(scene, turn);
    scene.Act([&] {
        program.Send([&](QWidget& dialog) {
            scene.Press(dialog, u"ChkTime"_q);
            program.On<DatePicker>(dialog, u"DTPicker1"_q).SetValue(QDate(2012, 6, 1));
        });
    });
}

Effects SentAt(int turn, const QString& time)
{
    return {{u"+ sent 1 가 %1 01012345671 "_q.arg(turn) + time},
            {u"+ sent 1 나 %1 01012345672 "_q.arg(turn) + time},
            {u"balance -2"_q}};
}

Effects SentNow(int turn)
{
    return SentAt(turn, u"2012-05-30 14-07"_q);
}

Effects SentLater(int turn)
{
    return SentAt(turn, u"2012-06-01-14-15"_q);
}

QList<Box> SentBoxes(int)
{
    return {SentBox()};
}

// History.

void List(Scene& scene)
{
    scene.Enter(1);
    scene.program.The<DatePicker>(u"DTPSendDt(0)"_q).SetValue(QDate(2012, 1, 1));
    scene.program.The<DatePicker>(u"DTPSendDt(1)"_q).SetValue(QDate(2012, 12, 31));
}

fpSpread& SendList(Scene& scene)
{
    return scene.program.The<fpSpread>(u"fpSpreadSendList"_q);
}

void Search(Scene& scene, int)
{
    List(scene);
    scene.Act([&] { scene.program.Click(u"BtnSendListSerch"_q); });
    scene.last.view = Scene::Column(SendList(scene), 7);
}

void Months(Scene& scene, int)
{
    scene.Enter(1);
    scene.Act([&] { scene.program.Click(u"BtnToolbarDis(2)"_q); });
    const auto& months = scene.program.The<fpSpread>(u"fpSpreadMonth"_q);
    scene.last.view =
        Scene::Column(months, 5) + Scene::Column(scene.program.The<fpSpread>(u"fpSpreadCharge"_q), 2);
}

void WithdrawTwo(Scene& scene, int turn)
{
    const QStringList names{Of(u"첫째 %1"_q, turn), Of(u"둘째 %1"_q, turn)};
    scene.Reserve(names[0], 11); // the later one is listed first
    scene.Reserve(names[1], 10);
    List(scene);
    scene.program.Click(u"BtnSendListSerch"_q);
    for (const QString& name : names)
        ClickCell(SendList(scene), 2, Scene::RowWith(SendList(scene), 5, name));
    scene.Act([&] {
        scene.In(
            u"MakeSMSTransport"_q, [&] { scene.program.Click(u"BtnSendListFun(1)"_q); },
            [&](QWidget& dialog) { scene.Press(dialog, u"BtnSendS(0)"_q); });
    });
}

Effects TwoWithdrawn(int turn)
{
    return {{u"- sent 1 첫째 %1 010-0000-0001 2012-05-31-11-00"_q.arg(turn)},
            {u"- sent 1 둘째 %1 010-0000-0001 2012-05-31-10-00"_q.arg(turn)},
            {u"balance 2"_q}};
}

QList<Box> TwoWithdrawnBoxes(int)
{
    return {{u"예약취소"_q, u"예약취소확인 : 총2건에 대한 문자메시지를 예약취소 하시겠습니까.?"_q,
             MsgBoxQuestion},
            {u"문자메시지 취소 완료!!!"_q, u"정상적으로 문자 메시지를 발송 취소 하였습니다."_q,
             MsgBoxInformation}};
}

void WithdrawOne(Scene& scene, int turn)
{
    scene.Reserve(Of(u"하나 %1"_q, turn), 10);
    List(scene);
    scene.program.Click(u"BtnSendListSerch"_q);
    ClickCell(SendList(scene), 5, Scene::RowWith(SendList(scene), 5, Of(u"하나 %1"_q, turn)));
    scene.In(
        u"dlgSMSShowDetail"_q, [&] { scene.program.Click(u"BtnSendListFun(0)"_q); },
        [&](QWidget& dialog) { scene.Act([&] { scene.Press(dialog, u"BtnSendS(0)"_q); }); });
}

Effects OneWithdrawn(int turn)
{
    return {{u"- sent 1 하나 %1 010-0000-0001 2012-05-31-10-00"_q.arg(turn)}, {u"balance 1"_q}};
}

QList<Box> OneWithdrawnBoxes(int)
{
    return {{u"문자메시지 예약취소"_q, u"정상적으로 문자메시지 예약취소를 완료하였습니다.!!"_q,
             MsgBoxInformation}};
}

Box NothingWithdrawn()
{
    return {u"문자메시지 취소 실패!!!"_q, u"이미 전송이 되었거나 발송된 내역이 없는 문자메시지입니다."_q,
            MsgBoxCritical};
}

// Address book.

fpSpread& Browse(Scene& scene, QWidget& book)
{
    return scene.program.On<fpSpread>(book, u"fpSpreadMst"_q);
}

void OpenBook(Scene& scene, int)
{
    scene.Enter(0);
    QStringList view;
    scene.Act(
        [&] { scene.InBook([&](QWidget& book) { view = Scene::Column(Browse(scene, book), MemberName); }); });
    scene.last.view = view;
}

void ChooseGroup(Scene& scene, int)
{
    scene.Enter(0);
    scene.InBook([&](QWidget& book) {
        scene.Press(book, u"OptType(1)"_q);
        ClickCell(Browse(scene, book), GroupTick,
                  Scene::RowWith(Browse(scene, book), GroupName, u"청년부"_q));
        scene.Act([&] { scene.Press(book, u"BtnFuncAdd(0)"_q); });
        scene.last.view = Scene::Column(scene.program.On<fpSpread>(book, u"fpSpread"_q), ChosenName);
    });
}

void AddGroup(Scene& scene, int turn)
{
    scene.Enter(0);
    scene.InBook([&](QWidget& book) {
        scene.Act([&] {
            scene.In(
                u"dlgSMSGroupMst"_q, [&] { scene.Press(book, u"BtnAdd(1)"_q); },
                [&](QWidget& dialog) {
                    scene.Write(dialog, u"txtGroupNm"_q, Of(u"새 그룹 %1"_q, turn));
                    scene.Press(dialog, u"BtnFunc(0)"_q);
                });
        });
    });
}

Effects GroupAdded(int turn)
{
    return {{u"+ group 새 그룹 %1"_q.arg(turn)}};
}

QList<Box> GroupAddedBoxes(int)
{
    return {{u"그룹등록"_q, u"정상적으로 그룹을 등록 하였습니다."_q, MsgBoxInformation}};
}

void RenameGroup(Scene& scene, int turn)
{
    scene.Enter(0);
    scene.InBook([&](QWidget& book) {
        scene.Press(book, u"OptType(1)"_q);
        const int row = Scene::RowWith(Browse(scene, book), GroupName, Of(u"개명 %1"_q, turn));
        scene.Act([&] {
            scene.In(
                u"dlgSMSGroupMst"_q, [&] { ClickCell(Browse(scene, book), GroupEdit, row); },
                [&](QWidget& dialog) {
                    scene.Write(dialog, u"txtGroupNm"_q, Of(u"새 이름 %1"_q, turn));
                    scene.Press(dialog, u"BtnFunc(0)"_q);
                });
        });
    });
}

Effects GroupRenamed(int turn)
{
    return {{u"+ group 새 이름 %1"_q.arg(turn), u"- group 개명 %1"_q.arg(turn)}};
}

QList<Box> GroupRenamedBoxes(int)
{
    return {{u"그룹수정"_q, u"정상적으로 그룹을 수정 하였습니다."_q, MsgBoxInformation}};
}

void DeleteGroup(Scene& scene, int turn)
{
    scene.Enter(0);
    scene.InBook([&](QWidget& book) {
        scene.Press(book, u"OptType(1)"_q);
        const int row = Scene::RowWith(Browse(scene, book), GroupName, Of(u"폐지 %1"_q, turn));
        scene.Act([&] { ClickCell(Browse(scene, book), GroupDelete, row); });
    });
}

Effects GroupDeleted(int turn)
{
    const QString member = u" member 소속 %1 010-0000-000%2 "_q.arg(turn).arg(turn + 3);
    return {{u"- group 폐지 %1"_q.arg(turn)},
            {u"+"_q + member + u"-"_q, u"-"_q + member + QString::number(turn + 3)}};
}

Box DeletedBox()
{
    return {u"삭제완료"_q, u"삭제완료 : 정상적으로 삭제 되었습니다."_q, MsgBoxInformation};
}

QList<Box> GroupDeletedBoxes(int turn)
{
    return {{u"그룹 삭제"_q, u"삭제확인 : 폐지 %1을(를) 삭제하시겠습니까.?"_q.arg(turn), MsgBoxQuestion},
            DeletedBox()};
}

/// Saves when the dialog shows what it should, the name and the group; leaves it otherwise.
void SaveMember(Scene& scene, QWidget& dialog, const QString& shown, const QString& name,
                const QString& phone)
{
    const auto& field = dynamic_cast<TextField&>(scene.program.On<QWidget>(dialog, u"txtGroupSub(0)"_q));
    if (field.Text() != shown || scene.program.On<ComboBox>(dialog, u"CbGroup"_q).Text() == u"기타"_q)
        return;
    scene.Write(dialog, u"txtGroupSub(0)"_q, name);
    scene.Write(dialog, u"txtGroupSub(1)"_q, phone);
    scene.Press(dialog, u"BtnFunc(0)"_q);
}

void AddMember(Scene& scene, int turn)
{
    scene.Enter(0);
    scene.InBook([&](QWidget& book) {
        scene.Act([&] {
            scene.In(
                u"dlgSMSGroupSub"_q, [&] { scene.Press(book, u"BtnAdd(0)"_q); },
                [&](QWidget& dialog) {
                    SaveMember(scene, dialog, {}, Of(u"새 사람 %1"_q, turn), u"01099999999"_q);
                });
        });
    });
}

Effects MemberAdded(int turn)
{
    return {{u"+ member 새 사람 %1 01099999999 2"_q.arg(turn)}};
}

QList<Box> MemberAddedBoxes(int)
{
    return {{u"발송대상"_q, u"정상적으로 하위 발송대상을 등록 하였습니다."_q, MsgBoxInformation}};
}

void EditMember(Scene& scene, int turn)
{
    scene.Enter(0);
    scene.InBook([&](QWidget& book) {
        const QString old = Of(u"고침 %1"_q, turn);
        const int row = Scene::RowWith(Browse(scene, book), MemberName, old);
        scene.Act([&] {
            scene.In(
                u"dlgSMSGroupSub"_q, [&] { ClickCell(Browse(scene, book), MemberEdit, row); },
                [&](QWidget& dialog) {
                    SaveMember(scene, dialog, old, Of(u"고친 %1"_q, turn), u"01088888888"_q);
                });
        });
    });
}

Effects MemberEdited(int turn)
{
    return {{u"+ member 고친 %1 01088888888 1"_q.arg(turn),
             u"- member 고침 %1 010-0000-000%2 1"_q.arg(turn).arg(turn + 1)}};
}

QList<Box> MemberEditedBoxes(int)
{
    return {{u"발송대상"_q, u"정상적으로 하위 발송대상을 수정 하였습니다."_q, MsgBoxInformation}};
}

void DeleteMember(Scene& scene, int turn)
{
    scene.Enter(0);
    scene.InBook([&](QWidget& book) {
        const int row = Scene::RowWith(Browse(scene, book), MemberName, Of(u"지움 %1"_q, turn));
        scene.Act([&] { ClickCell(Browse(scene, book), MemberDelete, row); });
    });
}

Effects MemberDeleted(int turn)
{
    return {{u"- member 지움 %1 010-0000-000%2 -"_q.arg(turn).arg(turn + 5)}};
}

QList<Box> MemberDeletedBoxes(int turn)
{
    return {{u"구성원 삭제"_q, u"삭제확인 : 지움 %1을(를) 삭제하시겠습니까.?"_q.arg(turn), MsgBoxQuestion},
            DeletedBox()};
}

// Templates.

void WriteTemplate(Scene& scene, const QString& title, const QString& body)
{
    QWidget& form = *scene.program.form;
    scene.Write(form, u"txtEditSubject"_q, title);
    scene.Write(form, u"txtEditBox"_q, body);
}

void LoadTemplate(Scene& scene, const QString& title)
{
    for (int card = 1; card <= 8; ++card)
        if (scene.program.Caption(u"LblTmpSubjectEdit(%1)"_q.arg(card)) == title)
            return scene.program.Click(u"LblTmpContentEdit(%1)"_q.arg(card));
    ADD_FAILURE() << "no card " << title.toStdString();
}

void NewTemplate(Scene& scene, int turn)
{
    scene.Enter(3);
    scene.program.Click(u"BtnFuncDoc(0)"_q);
    WriteTemplate(scene, Of(u"새 서식 %1"_q, turn), u"반갑습니다"_q);
    scene.Act([&] { scene.program.Click(u"BtnFuncDoc(1)"_q); });
}

Effects TemplateAdded(int turn)
{
    return {{u"+ template 1 새 서식 %1 반갑습니다"_q.arg(turn)}};
}

QList<Box> TemplateAddedBoxes(int)
{
    return {{u"문자서식 등록"_q, u"신규 문자서식 등록확인 : 입력한 문자서식을 등록하시겠습니까?"_q,
             MsgBoxQuestion},
            {u"문자서식 등록"_q, u"등록성공알림 : 신규 문자서식 등록이 정상적으로 완료 되었습니다."_q,
             MsgBoxInformation}};
}

void ChangeTemplate(Scene& scene, int turn)
{
    scene.Enter(3);
    LoadTemplate(scene, Of(u"고침 %1"_q, turn));
    WriteTemplate(scene, Of(u"고친 서식 %1"_q, turn), u"반갑습니다"_q);
    scene.Act([&] { scene.program.Click(u"BtnFuncDoc(1)"_q); });
}

Effects TemplateChanged(int turn)
{
    return {{u"+ template 1 고친 서식 %1 반갑습니다"_q.arg(turn),
             u"- template 1 고침 %1 "_q.arg(turn) + (turn == 1 ? u"아침"_q : u"점심"_q)}};
}

QList<Box> TemplateChangedBoxes(int)
{
    return {
        {u"문자서식 수정"_q, u"문자서식 수정확인 : 입력한 문자서식을 수정하시겠습니까?"_q, MsgBoxQuestion},
        {u"문자서식 수정"_q, u"수정성공알림 : 문자서식을 정상적으로 수정완료 되었습니다."_q,
         MsgBoxInformation}};
}

void DeleteTemplate(Scene& scene, int turn)
{
    scene.Enter(3);
    LoadTemplate(scene, Of(u"지움 %1"_q, turn));
    scene.Act([&] { scene.program.Click(u"BtnFuncDoc(2)"_q); });
}

Effects TemplateDeleted(int turn)
{
    return {{u"- template 1 지움 %1 "_q.arg(turn) + (turn == 1 ? u"저녁"_q : u"밤"_q)}};
}

QList<Box> TemplateDeletedBoxes(int turn)
{
    return {{u"문자서식 삭제"_q, u"삭제확인 :[지움 %1]의 문자서식을 삭제하시겠습니까?"_q.arg(turn),
             MsgBoxQuestion},
            {u"문자서식 삭제"_q, u"삭제성공알림 : 문자서식 정상적으로 삭제완료 되었습니다."_q,
             MsgBoxInformation}};
}

void ChooseCategory(Scene& scene, int)
{
    scene.Enter(0);
    auto& list = scene.program.The<ComboBox>(u"CbTempCd"_q);
    list.setFocus();
    scene.Act([&] { PressKey(list, Qt::Key_Down); });
    scene.last.view = {scene.program.Caption(u"LblTmpContent(1)"_q),
                       scene.program.Caption(u"LblTmpContent(2)"_q)};
}

// Account.

void EnterCharge(Scene& scene, int turn)
{
    scene.Enter(2);
    scene.Act([&] {
        scene.In(
            u"dlgSMSCharge"_q, [&] { scene.program.Click(u"BtnChargeFunc(0)"_q); },
            [&](QWidget& dialog) {
                scene.Write(dialog, u"txtUpdate(1)"_q, u"500"_q);
                scene.Write(dialog, u"txtUpdate(2)"_q, u"10000"_q);
                scene.Write(dialog, u"txtUpdate(3)"_q, u"20"_q);
                scene.Write(dialog, u"txtUpdate(4)"_q, Of(u"충전 %1"_q, turn));
                scene.Press(dialog, u"BtnFunc(0)"_q);
            });
    });
}

Effects ChargeEntered(int turn)
{
    return {{u"+ charge 2012-05-30 500 10000 충전 %1"_q.arg(turn)}, {u"balance 500"_q}};
}

QList<Box> ChargeEnteredBoxes(int)
{
    return {
        {u"문자메시지 충전!!!"_q, u"정상적으로 문자메시지 충전내역을 등록하였습니다."_q, MsgBoxInformation}};
}

void DeleteCharge(Scene& scene, int turn)
{
    scene.Enter(2);
    auto& ledger = scene.program.The<fpSpread>(u"fpSpreadCharge"_q);
    ClickCell(ledger, 2, Scene::RowWith(ledger, 2, u"2012-03-0%1"_q.arg(turn)));
    scene.Act([&] { scene.program.Click(u"BtnChargeFunc(1)"_q); });
}

Effects ChargeDeleted(int turn)
{
    return turn == 1 ? Effects{{u"balance -30"_q}, {u"- charge 2012-03-01 30 600 첫째"_q}}
                     : Effects{{u"balance -20"_q}, {u"- charge 2012-03-02 20 400 -"_q}};
}

QList<Box> ChargeDeletedBoxes(int turn)
{
    return {{u"충전현황 삭제"_q, u"삭제확인 : 2012-03-0%1에 등록된 충전내역을 삭제하시겠습니까.?"_q.arg(turn),
             MsgBoxQuestion},
            {u"삭제완료"_q, u"삭제완료 : 정상적으로 문자메시지 충전내역을 삭제 하였습니다."_q,
             MsgBoxInformation}};
}

void SaveSettings(Scene& scene, int turn)
{
    scene.Act([&] {
        scene.In(
            u"dlgSMSSetup"_q,
            [&] {
                const QString button = scene.IsOn(4) ? u"BtnToolbarEn(4)"_q : u"BtnToolbarDis(4)"_q;
                scene.program.Click(button);
            },
            [&](QWidget& dialog) {
                const QStringList texts{u"demo"_q, u"demo"_q, u"sms.example.kr"_q, u"02-1234-5678"_q,
                                        Of(u"새 이름 %1"_q, turn)};
                for (int i = 0; i < texts.size(); ++i)
                    scene.Write(dialog, u"txtUpdate(%1)"_q.arg(i), texts[i]);
                scene.Press(dialog, u"BtnFunc(0)"_q);
            });
    });
    scene.last.view = {scene.program.session.SMSOrgNm};
}

Effects SettingsSaved(int turn)
{
    return {{u"+ account demo demo sms.example.kr 새 이름 %1"_q.arg(turn)}};
}

QList<Box> SettingsSavedBoxes(int)
{
    return {{u"환경설정"_q, u"정상적으로 문자메시지 환경설정을 완료하였습니다."_q, MsgBoxInformation}};
}

} // namespace

void PrintTo(const Operation& operation, std::ostream* out)
{
    *out << operation.name;
}

const QList<Operation>& Operations()
{
    static const QList<Operation> operations{
        {"Launch", 3, 2, Manner::Stops, Launch, NoEffects, NoBoxes, {SignUpBox()}},
        {"Send", 6, 4, Manner::Runs, SendAtOnce, SentNow, SentBoxes},
        {"SendReserved", 6, 4, Manner::Runs, SendReserved, SentLater, SentBoxes},
        {"Search", 1, 1, Manner::Stops, Search, NoEffects, NoBoxes},
        {"Months", 2, 2, Manner::Stops, Months, NoEffects, NoBoxes},
        {"WithdrawTwo", 5, 3, Manner::Runs, WithdrawTwo, TwoWithdrawn, TwoWithdrawnBoxes},
        {"WithdrawOne",
         3,
         2,
         Manner::Stops,
         WithdrawOne,
         OneWithdrawn,
         OneWithdrawnBoxes,
         {NothingWithdrawn()}},
        {"OpenBook", 2, 1, Manner::Stops, OpenBook, NoEffects, NoBoxes, {}, {}, true},
        {"ChooseGroup", 1, 1, Manner::Stops, ChooseGroup, NoEffects, NoBoxes},
        {"AddGroup", 5, 3, Manner::Stops, AddGroup, GroupAdded, GroupAddedBoxes},
        {"RenameGroup", 2, 2, Manner::Stops, RenameGroup, GroupRenamed, GroupRenamedBoxes},
        {"DeleteGroup", 4, 1, Manner::Stops, DeleteGroup, GroupDeleted, GroupDeletedBoxes},
        {"AddMember", 4, 3, Manner::Stops, AddMember, MemberAdded, MemberAddedBoxes, {}, {1}},
        {"EditMember", 5, 4, Manner::Stops, EditMember, MemberEdited, MemberEditedBoxes, {}, {2, 3}},
        {"DeleteMember", 2, 1, Manner::Stops, DeleteMember, MemberDeleted, MemberDeletedBoxes},
        {"NewTemplate", 2, 2, Manner::Stops, NewTemplate, TemplateAdded, TemplateAddedBoxes},
        {"ChangeTemplate", 2, 2, Manner::Stops, ChangeTemplate, TemplateChanged, TemplateChangedBoxes},
        {"DeleteTemplate",
         2,
         2,
         Manner::Stops,
         DeleteTemplate,
         TemplateDeleted,
         TemplateDeletedBoxes,
         {},
         {},
         true},
        {"ChooseCategory", 1, 1, Manner::Stops, ChooseCategory, NoEffects, NoBoxes},
        {"EnterCharge", 4, 3, Manner::Stops, EnterCharge, ChargeEntered, ChargeEnteredBoxes},
        {"DeleteCharge", 4, 3, Manner::Stops, DeleteCharge, ChargeDeleted, ChargeDeletedBoxes},
        {"SaveSettings", 3, 3, Manner::Stops, SaveSettings, SettingsSaved, SettingsSavedBoxes},
    };
    return operations;
}

const Operation& Named(std::string_view name)
{
    return *std::find_if(Operations().begin(), Operations().end(),
                         [&](const Operation& operation) { return operation.name == name; });
}

} // namespace tsms::test
