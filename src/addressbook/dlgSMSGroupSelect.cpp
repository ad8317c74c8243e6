#include "addressbook/dlgSMSGroupSelect.h"

#include "addressbook/BookControls.h"
#include "addressbook/BookGrids.h"
#include "addressbook/BookStatements.h"
#include "addressbook/BrowseList.h"
#include "addressbook/ChosenList.h"
#include "addressbook/dlgSMSGroupMst.h"
#include "addressbook/dlgSMSGroupSub.h"
#include "addressbook/HandOver.h"
#include "runtime/Desktop.h"
#include "runtime/RuntimeError.h"
#include "services/Services.h"
#include "session/WhenIdle.h"
#include "store/engine/RecordsetCells.h"
#include "store/WithDatabase.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/RaiseEvent.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/RowsOnView.h"

namespace tsms {

namespace {

constexpr int RowsOnView = 20; // of each list
constexpr int LeastRows = 6;   // of each list, on a small screen

DialogFrame SelectFrame()
{
    DialogFrame frame;
    frame.name = QStringLiteral("dlgSMSGroupSelect");
    frame.caption = QStringLiteral("주소록");
    frame.title = frame.caption;
    frame.titleLabel = QStringLiteral("lblTitle1(1)");
    frame.note = QStringLiteral("문자메시지 발송 주소록");
    frame.noteLabel = QStringLiteral("lblTitle1(0)");
    frame.buttons = {QStringLiteral("포함(F12)"), QStringLiteral("취소(ESC)")};
    frame.f12RunsButton0 = false; // meant, in spite of the caption
    return frame;
}

} // namespace

dlgSMSGroupSelect::dlgSMSGroupSelect(Services& services, RecipientList& recipients, QWidget* owner)
    : DialogForm(services.session, services.desktop, SelectFrame(), owner),
      services_(services),
      recipients_(recipients)
{
    const BookControls controls = BuildBookControls(Body(), BodyLayout());
    view_ = controls.view;
    filter_ = controls.filter;
    browse_ = controls.browse;
    chosen_ = controls.chosen;
    book_ = std::make_unique<BrowseList>(*browse_);
    Connect(controls);
    Load();
}

dlgSMSGroupSelect::~dlgSMSGroupSelect() = default;

void dlgSMSGroupSelect::Connect(const BookControls& controls)
{
    filter_->OnClick = WhenIdle(*this, [this] {
        LayOutBrowse(true);
        Reload();
    });
    for (std::size_t i = 0; i < view_.size(); ++i) {
        const int index = static_cast<int>(i);
        view_[i]->OnClick = WhenIdle(*this, [this, index] { OptTypeClick(index); });
        controls.add[i]->OnClick = WhenIdle(*this, [this, index] { BtnAddClick(index); });
        controls.transfer[i]->OnClick = WhenIdle(*this, [this, index] { BtnFuncAddClick(index); });
    }
    connect(browse_, &fpSpread::Click, this, [this](int column) {
        RaiseEvent(*browse_, WhenIdle(*this, [this, column] { BrowseClick(column); }));
    });
    connect(chosen_, &fpSpread::Click, this, [this](int column) {
        RaiseEvent(*chosen_, WhenIdle(*this, [this, column] { ChosenClick(column); }));
    });
}

void dlgSMSGroupSelect::Load()
{
    SetBusy(true);
    InitMemberGrid();
    InitChosenGrid();
    for (fpSpread* grid : {browse_, chosen_})
        ShowRows(*grid, RowsOnView);
    SetBusy(false);
}

void dlgSMSGroupSelect::GiveHeight(int pixels)
{
    for (fpSpread* grid : {browse_, chosen_})
        ShowRows(*grid, RowsOnView, pixels, LeastRows);
}

void dlgSMSGroupSelect::OnFirstActivation()
{
    SetBusy(true);
    IfConnected(services_.db, [this] {
        FillGroupCombo();
        GetGroupMst();
    });
    SetBusy(false);
}

bool dlgSMSGroupSelect::IsShowingMembers() const
{
    return view_[0]->Value();
}

void dlgSMSGroupSelect::InitMemberGrid()
{
    Trapped([this] { tsms::InitMemberGrid(*browse_); });
}

void dlgSMSGroupSelect::InitGroupGrid()
{
    Trapped([this] { tsms::InitGroupGrid(*browse_); });
}

void dlgSMSGroupSelect::InitChosenGrid()
{
    Trapped([this] { list_ = std::make_unique<ChosenList>(*chosen_); });
}

void dlgSMSGroupSelect::FillGroupCombo()
{
    // Meant: Busy is clear behind this, also for a caller that had set it.
    Trapped([this] {
        SetBusy(true);
        filter_->Clear();
        filter_->AddItem(QStringLiteral("전체"), 0);
        if (services_.db.OpenRecordset(GroupList()))
            filter_->AddRows(RecordsetCells(services_.db.ShareRecords()));
        // A failure has cleared it by now, and the choice below is none of a person's.
        SetBusy(true);
        filter_->AddItem(OtherGroup(), 0);
        filter_->SetListIndex(0);
        SetBusy(false);
    });
}

void dlgSMSGroupSelect::GetGroupMst()
{
    Trapped([this] {
        SetBusy(true);
        services_.db.Select(BrowseStatement(), [this](Recordset&) {
            if (IsShowingMembers())
                book_->ShowMembers(services_.db.ShareRecords());
            else
                book_->ShowGroups(services_.db.ShareRecords());
        });
        SetBusy(false);
    });
}

Statement dlgSMSGroupSelect::BrowseStatement() const
{
    if (!IsShowingMembers())
        return BrowseGroups();
    MemberFilter filter{filter_->ListIndex()};
    if (filter.entry >= 1)
        filter.groupCode = filter_->SelectedData();
    return BrowseMembers(filter);
}

void dlgSMSGroupSelect::LayOutBrowse(bool members)
{
    browse_->SetReDraw(false);
    filter_->setVisible(members);
    if (members)
        InitMemberGrid();
    else
        InitGroupGrid();
    browse_->SetReDraw(true);
}

void dlgSMSGroupSelect::Reload()
{
    WithDatabase(services_.db, [this] { GetGroupMst(); });
}

void dlgSMSGroupSelect::OptTypeClick(int index)
{
    LayOutBrowse(index == 0);
    WithDatabase(services_.db, [this] {
        FillGroupCombo();
        GetGroupMst();
    });
}

void dlgSMSGroupSelect::BtnAddClick(int index)
{
    view_[static_cast<std::size_t>(index)]->SetValue(true);
    const auto reload = [this] { Reload(); };
    if (index == 0) {
        dlgSMSGroupSub dialog(services_, reload, this);
        dialog.AddMode = true;
        dialog.ShowModal();
    } else {
        dlgSMSGroupMst dialog(services_, reload, this);
        dialog.AddMode = true;
        dialog.ShowModal();
    }
}

void dlgSMSGroupSelect::BrowseClick(int column)
{
    if (IsShowingMembers())
        BrowseMemberClick(column);
    else
        BrowseGroupClick(column);
}

void dlgSMSGroupSelect::BrowseMemberClick(int column)
{
    if (column >= MemberTick && column <= MemberPhone)
        TurnTick(*browse_, MemberTick, browse_->ActiveRow());
    else if (column == MemberEdit && browse_->Cells().MaxRows() > 0)
        EditMember();
    else if (column == MemberDelete && browse_->Cells().MaxRows() > 0)
        DeleteMember();
}

void dlgSMSGroupSelect::BrowseGroupClick(int column)
{
    if (column == GroupTick || column == GroupName)
        TurnTick(*browse_, GroupTick, browse_->ActiveRow());
    else if (column == GroupEdit && browse_->Cells().MaxRows() > 0)
        EditGroup();
    else if (column == GroupDelete && browse_->Cells().MaxRows() > 0)
        DeleteGroup();
}

void dlgSMSGroupSelect::ChosenClick(int column)
{
    if (column != ChosenDelete)
        TurnTick(*chosen_, ChosenTick, chosen_->ActiveRow());
    else if (chosen_->Cells().MaxRows() > 0)
        list_->HideActiveRow();
}

void dlgSMSGroupSelect::EditMember()
{
    const QString title = QStringLiteral("구성원 수정");
    const QString code = book_->ActiveText(MemberCode);
    if (code.isEmpty()) {
        services_.desktop.MsgBox(QStringLiteral("수정확인 : 수정할 대상을 선택하여 주십시오."),
                                 MsgBoxExclamation, title);
        return;
    }
    const auto reload = [this] { Reload(); };
    dlgSMSGroupSub dialog(services_, reload, this);
    dialog.SetCaption(title);
    dialog.SetTitle(title);
    dialog.AddMode = false;
    dialog.GetGroupSubData(code);
    dialog.ShowModal();
}

void dlgSMSGroupSelect::DeleteMember()
{
    const QString title = QStringLiteral("구성원 삭제");
    const QString code = book_->ActiveText(MemberCode);
    if (code.isEmpty()) {
        services_.desktop.MsgBox(QStringLiteral("삭제확인 : 삭제하실 대상을 선택하여 주십시오.!!!"),
                                 MsgBoxCritical, title);
        return;
    }
    if (!ConfirmDelete(book_->ActiveText(MemberName), title))
        return;
    WithDatabase(services_.db, [&] {
        if (!services_.db.ExecuteSQL(tsms::DeleteMember(code)))
            return;
        GetGroupMst();
        TellDeleted();
    });
}

void dlgSMSGroupSelect::EditGroup()
{
    const QString title = QStringLiteral("그룹 수정");
    // "기타" is recognised by its place here, and by its empty code where a group is deleted.
    if (browse_->ActiveRow() == browse_->Cells().MaxRows()) {
        services_.desktop.MsgBox(QStringLiteral("수정확인 : 기타그룹은 수정을 하실수가 없습니다."),
                                 MsgBoxCritical, title);
        return;
    }
    const auto reload = [this] { Reload(); };
    dlgSMSGroupMst dialog(services_, reload, this);
    dialog.SetCaption(title);
    dialog.SetTitle(title);
    dialog.AddMode = false;
    dialog.SetGroup(book_->ActiveText(GroupCode), book_->ActiveText(GroupName));
    dialog.ShowModal();
}

void dlgSMSGroupSelect::DeleteGroup()
{
    const QString title = QStringLiteral("그룹 삭제");
    const QString code = book_->ActiveText(GroupCode);
    if (code.isEmpty()) {
        services_.desktop.MsgBox(QStringLiteral("삭제확인 : 기타그룹은 삭제를 하실수가 없습니다."),
                                 MsgBoxCritical, title);
        return;
    }
    if (!ConfirmDelete(book_->ActiveText(GroupName), title))
        return;
    WithDatabase(services_.db, [&] {
        if (!services_.db.ExecuteSQL(tsms::DeleteGroup(code)) ||
            !services_.db.ExecuteSQL(ReleaseMembers(code)))
            return;
        FillGroupCombo();
        GetGroupMst();
        TellDeleted();
    });
}

bool dlgSMSGroupSelect::ConfirmDelete(const QString& name, const QString& title)
{
    const QString question =
        QStringLiteral("삭제확인 : ") + name + QStringLiteral("을(를) 삭제하시겠습니까.?");
    return services_.desktop.MsgBox(question, MsgBoxQuestion, title) == AnswerYes;
}

void dlgSMSGroupSelect::TellDeleted()
{
    services_.desktop.MsgBox(QStringLiteral("삭제완료 : 정상적으로 삭제 되었습니다."), MsgBoxInformation,
                             QStringLiteral("삭제완료"));
}

void dlgSMSGroupSelect::BtnFuncAddClick(int index)
{
    Trapped([this, index] {
        SetBusy(true);
        if (index == 0)
            AddTicked();
        else
            EmptyChosen();
        SetBusy(false);
    });
}

void dlgSMSGroupSelect::AddTicked()
{
    if (IsShowingMembers())
        list_->AddMembers(book_->TickedMembers());
    else
        AddTickedGroups();
}

void dlgSMSGroupSelect::AddTickedGroups()
{
    const QStringList codes = book_->TickedGroups();
    WithDatabase(services_.db, [&] {
        for (const QString& code : codes)
            if (!AddGroup(code))
                break;
    });
}

/// False when its members could not be read, which has been reported.
bool dlgSMSGroupSelect::AddGroup(const QString& code)
{
    return services_.db.Select(MembersOfGroup(code), [this](Recordset& members) {
        QList<BookPerson> group;
        for (; !members.Eof(); members.MoveNext())
            group +=
                BookPerson{members.Field(u"GSubCd"), members.Field(u"GSubNm"), members.Field(u"GSPhone")};
        list_->AddGroup(group);
    });
}

void dlgSMSGroupSelect::EmptyChosen()
{
    const MsgBoxAnswer answer = services_.desktop.MsgBox(
        QStringLiteral("전체삭제 확인 : 발송대상에 포함된 리스트를 전부 삭제 하시겠습니까?"), MsgBoxQuestion,
        QStringLiteral("전체삭제"));
    if (answer == AnswerYes)
        list_->Clear();
}

void dlgSMSGroupSelect::OnButton(int index)
{
    if (index != 0)
        Unload();
    else
        Include();
}

void dlgSMSGroupSelect::Include()
{
    if (CountChosen(*chosen_) <= 0) {
        services_.desktop.MsgBox(QStringLiteral("문자메시지 발송대상 : 선택된 발송대상이 없습니다."),
                                 MsgBoxCritical, QStringLiteral("발송대상 선택"));
        return;
    }
    SetBusy(true);
    HandOver(*chosen_, recipients_);
    SetBusy(false);
    Unload();
}

/// The error trap of the routines that have one.
void dlgSMSGroupSelect::Trapped(const std::function<void()>& body)
{
    WithHandler(body, [this] {
        SetBusy(false);
        services_.db.ReportDBError();
    });
}

} // namespace tsms
