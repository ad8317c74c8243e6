#include "tsms-start/StartWindow.h"

#include "runtime/RuntimeError.h"
#include "session/WhenIdle.h"
#include "store/embedded/EmbeddedTables.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/RaiseEvent.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"
#include "tsms-start/BackgroundWork.h"
#include "tsms-start/ConnectionDialog.h"
#include "tsms-start/PasswordDialog.h"
#include "tsms-start/PrepareDatabase.h"
#include "tsms-start/PrepareDialog.h"
#include "tsms-start/TestDialog.h"

#include <QEventLoop>
#include <QHBoxLayout>

#include <exception>

namespace tsms {

namespace {

enum Column : int { NameColumn = 1, PlaceColumn, ColumnCount = PlaceColumn };

DialogFrame StartFrame()
{
    DialogFrame frame;
    frame.name = QStringLiteral("StartWindow");
    frame.caption = QStringLiteral("문자메시지");
    frame.title = QStringLiteral("문자메시지 시작하기");
    frame.titleLabel = QStringLiteral("lblTitle");
    frame.note = QStringLiteral("일할 데이터베이스를 골라 시작하십시오.");
    frame.noteLabel = QStringLiteral("lblNote");
    frame.buttons = {QStringLiteral("시작(F12)"), QStringLiteral("닫기(ESC)")};
    return frame;
}

} // namespace

StartWindow::StartWindow(StartServices& services)
    : DialogForm(services.session, services.desktop, StartFrame()), services_(services)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    BodyLayout().addLayout(row);
    BuildList();
    row->addWidget(list_);
    BuildCommands();
    ShowList();
}

void StartWindow::BuildList()
{
    constexpr QSize Room(470, 230);
    const GridHelper helper;
    list_ = Named(new fpSpread(&Body()), QStringLiteral("fpSpreadConnections"));
    DescribeBy(*list_, QStringLiteral("연결"));
    helper.PrepareGrid(*list_);
    list_->setFixedSize(Room);
    list_->SetRowCursor(true);
    list_->SetSpaceClicks(false);
    list_->SetRowHeight(0, 16);
    list_->SetRowHeight(SpreadModel::All, 18);
    list_->Cells().SetMaxCols(ColumnCount);
    list_->Cells().SetText(NameColumn, 0, QStringLiteral("연결"));
    list_->Cells().SetText(PlaceColumn, 0, QStringLiteral("데이터베이스"));
    list_->SetColWidth(NameColumn, 20);
    list_->SetColWidth(PlaceColumn, 30);
    list_->SetFillWidth(true);
    const std::function<void()> start = WhenIdle(*this, [this] { WithSelected(&StartWindow::Start); });
    list_->OnKeyPress = [start](int& key) {
        if (key == u'\r')
            start();
    };
    connect(list_, &fpSpread::DblClick, this, [this, start](int, int row) {
        if (row > 0)
            RaiseEvent(*list_, start);
    });
}

void StartWindow::BuildCommands()
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    const QString captions[] = {QStringLiteral("새 연결"), QStringLiteral("고치기"), QStringLiteral("지우기"),
                                QStringLiteral("연결 시험"), QStringLiteral("데이터베이스 준비")};
    for (int index = New; index <= Prepare; ++index) {
        auto* button = new PushButton(&Body(), IndexedName(u"BtnConnection", index), captions[index]);
        button->OnClick = WhenIdle(*this, [this, index] { Do(static_cast<Command>(index)); });
        column->addWidget(button);
    }
    column->addStretch(1);
    static_cast<QHBoxLayout*>(BodyLayout().itemAt(0)->layout())->addLayout(column);
}

void StartWindow::ShowList()
{
    const QList<SavedConnection>& all = services_.connections.All();
    list_->SetReDraw(false);
    list_->Cells().SetMaxRows(static_cast<int>(all.size()));
    int row = 0;
    for (const SavedConnection& connection : all) {
        ++row;
        list_->Cells().SetText(NameColumn, row, connection.name);
        list_->Cells().SetText(PlaceColumn, row, PlaceOf(connection));
    }
    list_->SetReDraw(true);
    list_->SetActiveCell(NameColumn, services_.connections.Chosen() + 1);
    NoteLabel()->SetCaption(
        all.isEmpty() ? QStringLiteral("아직 연결이 없습니다. \"새 연결\"을 눌러 하나를 만드십시오.")
                      : StartFrame().note);
    QWidget* first = all.isEmpty() ? Body().findChild<QWidget*>(IndexedName(u"BtnConnection", New)) : list_;
    first->setFocus(Qt::OtherFocusReason);
}

void StartWindow::WithSelected(void (StartWindow::*act)(const SavedConnection&))
{
    const int at = list_->ActiveRow() - 1;
    const QList<SavedConnection>& all = services_.connections.All();
    if (at < 0 || at >= all.size()) {
        services_.desktop.MsgBox(QStringLiteral("먼저 \"새 연결\"을 눌러 연결을 만드십시오."),
                                 MsgBoxInformation, QStringLiteral("문자메시지 시작하기"));
        return;
    }
    const SavedConnection selected = all[at]; // the list may change meanwhile
    (this->*act)(selected);
}

void StartWindow::OnButton(int index)
{
    if (index == 0)
        WithSelected(&StartWindow::Start);
    else
        DialogForm::OnButton(index);
}

void StartWindow::Do(Command command)
{
    switch (command) {
    case New:
        Edit({});
        break;
    case Change:
        WithSelected(&StartWindow::Edit);
        break;
    case Remove:
        WithSelected(&StartWindow::RemoveConnection);
        break;
    case Test:
        WithSelected(&StartWindow::TestConnection);
        break;
    case Prepare:
        WithSelected(&StartWindow::PrepareConnection);
        break;
    }
}

void StartWindow::Start(const SavedConnection& connection)
{
    const std::optional<QString> password = PasswordFor(connection);
    if (!password)
        return;
    if (const QString fault = FaultOf(connection, *password); !fault.isEmpty()) {
        passwords_.remove(connection.id);
        services_.desktop.MsgBox(fault, MsgBoxExclamation, QStringLiteral("문자메시지 시작하기"));
        return;
    }
    services_.connections.Choose(connection.id);
    if (services_.launch(LaunchLineOf(connection, *password)))
        Unload();
    else
        services_.desktop.MsgBox(
            QStringLiteral("문자메시지 프로그램(tsms)을 시작하지 못했습니다. 이 프로그램과 "
                           "같은 폴더에 있어야 합니다."),
            MsgBoxCritical, QStringLiteral("문자메시지 시작하기"));
}

void StartWindow::Edit(const SavedConnection& connection)
{
    ConnectionDialog dialog(services_, connection, this);
    dialog.ShowModal();
    if (!dialog.Saved())
        return;
    const QString id = services_.connections.All()[services_.connections.Chosen()].id;
    if (dialog.Password().isEmpty())
        passwords_.remove(id);
    else
        passwords_[id] = dialog.Password();
    ShowList();
}

void StartWindow::RemoveConnection(const SavedConnection& connection)
{
    const QString question = QStringLiteral("연결 \"%1\"을(를) 지우시겠습니까?\r\n\r\n"
                                            "데이터베이스와 그 안의 자료는 그대로 남습니다.")
                                 .arg(connection.name);
    if (services_.desktop.MsgBox(question, MsgBoxQuestion, QStringLiteral("연결 지우기")) != AnswerYes)
        return;
    if (connection.keepsPassword)
        services_.passwords.Remove(connection.id);
    passwords_.remove(connection.id);
    services_.connections.Remove(connection.id);
    ShowList();
}

void StartWindow::TestConnection(const SavedConnection& connection)
{
    const std::optional<QString> password = PasswordFor(connection);
    if (!password)
        return;
    TestDialog dialog(services_, connection, *password, this);
    dialog.ShowModal();
    if (dialog.HasRefusedPassword())
        passwords_.remove(connection.id);
}

void StartWindow::PrepareConnection(const SavedConnection& connection)
{
    if (connection.IsServer())
        PrepareDialog(services_, connection, passwords_.value(connection.id), this).ShowModal();
    else
        PrepareFile(connection.file);
}

void StartWindow::PrepareFile(const QString& file)
{
    try {
        AddLogs(file);
    } catch (const RuntimeError&) {
        Tell(QStringLiteral("이 파일에 만들지 못했습니다. \"연결 시험\"에서 원인을 볼 수 있습니다.\r\n\r\n") +
                 file,
             MsgBoxCritical);
    }
}

/// A database file has all its other tables from the beginning.
void StartWindow::AddLogs(const QString& file)
{
    QList<int> years;
    Aside([&] { years = MissingLogYears(file, services_.clock); });
    if (years.isEmpty())
        return Tell(QStringLiteral("없는 것이 없습니다. 만들 것도 없습니다."), MsgBoxInformation);
    QStringList names;
    for (const int year : years)
        names += LogTable(year).name;
    const QString question = QStringLiteral("이 파일에 없는 발송내역 테이블을 만드시겠습니까?\r\n\r\n") +
                             names.join(QStringLiteral(", "));
    if (services_.desktop.MsgBox(question, MsgBoxQuestion, QStringLiteral("데이터베이스 준비")) != AnswerYes)
        return;
    Aside([&] {
        for (const int year : years)
            AddEmbeddedLogYear(file, year, services_.clock);
    });
    Tell(QStringLiteral("데이터베이스를 준비했습니다."), MsgBoxInformation);
}

/// Another program may hold the file for a while: the window is drawn and can be moved meanwhile. Raises what
/// `act` does.
void StartWindow::Aside(const std::function<void()>& act)
{
    std::exception_ptr fault;
    QEventLoop loop;
    BackgroundWork work(*this);
    SetBusy(true);
    work.Begin([&act](const BackgroundWork::Line&) { act(); },
               [&](const std::exception_ptr& raised) {
                   fault = raised;
                   loop.quit();
               });
    loop.exec();
    SetBusy(false);
    if (fault)
        std::rethrow_exception(fault);
}

void StartWindow::Tell(const QString& words, MsgBoxStyle style)
{
    services_.desktop.MsgBox(words, style, QStringLiteral("데이터베이스 준비"));
}

std::optional<QString> StartWindow::PasswordFor(const SavedConnection& connection)
{
    if (!connection.IsServer())
        return QString();
    if (passwords_.contains(connection.id))
        return passwords_[connection.id];
    if (!connection.keepsPassword)
        return AskPassword(connection, {});
    const PasswordStore::Answer kept = services_.passwords.Read(connection.id);
    if (kept.outcome == PasswordStore::Outcome::Done)
        return kept.password;
    if (kept.outcome == PasswordStore::Outcome::Missing)
        return AskPassword(connection, QStringLiteral("암호 보관함에 이 연결의 비밀번호가 없습니다."));
    return AskPassword(connection, QStringLiteral("데스크톱에 암호 보관함이 없거나 열리지 않았습니다."));
}

std::optional<QString> StartWindow::AskPassword(const SavedConnection& connection, const QString& note)
{
    PasswordDialog dialog(services_, connection, note, this);
    dialog.ShowModal();
    if (!dialog.Password())
        return std::nullopt;
    passwords_[connection.id] = *dialog.Password();
    return dialog.Password();
}

} // namespace tsms
