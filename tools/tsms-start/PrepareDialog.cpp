#include "tsms-start/PrepareDialog.h"

#include "runtime/Text.h"
#include "store/engine/DatabaseError.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/TextBox.h"
#include "tsms-start/PrepareDatabase.h"

#include <QVBoxLayout>

namespace tsms {

namespace {

enum PrepareField : int { OwnerField, OwnerPasswordField, YearsField, UserField };

constexpr int MostOwner = 128; // characters of a name on a server
constexpr int MostYears = 9;

const QString MakeCaption = QStringLiteral("만들기(F12)");
const QString StopCaption = QStringLiteral("멈춤(F12)");

DialogFrame PrepareFrame(const SavedConnection& connection)
{
    DialogFrame frame;
    frame.name = QStringLiteral("PrepareDialog");
    frame.caption = QStringLiteral("데이터베이스 준비");
    frame.title = frame.caption;
    frame.titleLabel = QStringLiteral("lblFrameTitle");
    frame.note = QStringLiteral("데이터베이스 주인이 %1 에 없는 것만 만듭니다. 있는 것은 건드리지 않습니다.")
                     .arg(connection.database);
    frame.noteLabel = QStringLiteral("lblNote");
    frame.buttons = {MakeCaption, QStringLiteral("닫기(ESC)")};
    return frame;
}

QString ServersWords(const RuntimeError& error)
{
    return QStringLiteral("\r\n\r\n서버의 말: ") + error.Description;
}

/// What the database has raised, if that is what it was. Other errors go on.
std::optional<RuntimeError> DatabaseFault(const std::exception_ptr& raised)
{
    try {
        if (raised)
            std::rethrow_exception(raised);
        return {};
    } catch (const RuntimeError& error) {
        return error;
    }
}

} // namespace

PrepareDialog::PrepareDialog(StartServices& services, SavedConnection connection, const QString& password,
                             QWidget* owner)
    : DialogForm(services.session, services.desktop, PrepareFrame(connection), owner),
      services_(services),
      textHelper_(services.desktop),
      fields_(Body(), BodyLayout(), textHelper_),
      connection_(std::move(connection))
{
    BuildFields(password);
    BuildScript();
}

void PrepareDialog::BuildFields(const QString& password)
{
    const auto add = [this](int index, const QString& caption, int limit, const QString& text) -> TextBox& {
        TextBox& box = fields_.AddBox(index, caption, limit);
        box.SetImeMode(ImeMode::Latin);
        box.SetText(text);
        box.OnKeyPress = [this, index](char16_t& key) { KeyPress(index, key); };
        box.OnChange = [this] { ForgetScript(); };
        return box;
    };
    const YearRange years;
    add(OwnerField, QStringLiteral("주인의 로그인 :"), MostOwner, connection_.login);
    TextBox& owner = add(OwnerPasswordField, QStringLiteral("주인의 비밀번호 :"), MostOwner, password);
    owner.setEchoMode(QLineEdit::Password);
    owner.SetImeMode(ImeMode::Off);
    add(YearsField, QStringLiteral("발송내역 연도 :"), MostYears,
        QStringLiteral("%1-%2").arg(years.first).arg(years.last));
    add(UserField, QStringLiteral("권한을 줄 사용자 :"), MostOwner, {});
    fields_.AddNote(QStringLiteral("lblUserNote"), QStringLiteral("※ 비워 두면 권한은 주지 않습니다."));
}

void PrepareDialog::BuildScript()
{
    constexpr QSize Room(560, 240);
    look_ = new PushButton(&Body(), QStringLiteral("BtnLook"), QStringLiteral("살펴보기"));
    look_->OnClick = [this] { Look(); };
    BodyLayout().addWidget(look_, 0, Qt::AlignLeft);
    auto* backing = new FieldPanel(&Body(), QStringLiteral("PLtxtScript"));
    shown_ = new MemoBox(backing, QStringLiteral("txtScript"));
    shown_->setReadOnly(true);
    DescribeBy(*shown_, QStringLiteral("실행할 스크립트"));
    backing->Hold(*shown_);
    backing->setFixedSize(Room);
    BodyLayout().addWidget(backing);
    ForgetScript();
}

void PrepareDialog::KeyPress(int index, char16_t& key)
{
    if (key != u'\r')
        return;
    key = 0;
    if (index == UserField)
        Look();
    else
        focusNextChild();
}

void PrepareDialog::OnButton(int index)
{
    if (index != 0)
        DialogForm::OnButton(index);
    else if (work_.IsRunning())
        Stop();
    else
        Run();
}

bool PrepareDialog::QueryUnload()
{
    if (work_.IsRunning())
        Stop();
    return true;
}

/// What was looked at does not hold for other fields.
void PrepareDialog::ForgetScript()
{
    script_.clear();
    if (shown_)
        shown_->SetText(QStringLiteral("\"살펴보기\"를 누르면 실행할 스크립트가 여기에 그대로 보입니다."));
}

void PrepareDialog::Tell(const QString& words, MsgBoxStyle style)
{
    services_.desktop.MsgBox(words, style, Caption());
}

/// Set up, and not open yet.
std::unique_ptr<Connection> PrepareDialog::OwnersConnection() const
{
    constexpr int OwnerSecondsToConnect = 10;
    constexpr int OwnerSecondsToAnswer = 120;
    SavedConnection owner = connection_;
    owner.login = Trim(fields_.Box(OwnerField).Text());
    std::unique_ptr<Connection> connection = services_.makeConnection();
    connection->ConnectionString = ConnectionTextOf(owner, fields_.Box(OwnerPasswordField).Text());
    connection->ConnectionTimeout = OwnerSecondsToConnect;
    connection->CommandTimeout = OwnerSecondsToAnswer;
    return connection;
}

void PrepareDialog::Begin(bool makes, const Task& task)
{
    makes_ = makes;
    const std::shared_ptr<Connection> connection = OwnersConnection();
    const auto run = [connection, task](const BackgroundWork::Line& line) {
        connection->Open();
        line.GoOn();
        task(*connection, line);
    };
    ShowWorking(true);
    work_.Begin(run, [this](const std::exception_ptr& raised) { End(raised); });
}

void PrepareDialog::ShowWorking(bool working)
{
    for (const int index : {OwnerField, OwnerPasswordField, YearsField, UserField})
        static_cast<TextBox&>(fields_.Box(index)).setReadOnly(working);
    Button(0)->SetCaption(working ? StopCaption : MakeCaption);
    if (working && look_->hasFocus())
        Button(0)->setFocus();
    look_->setEnabled(!working);
}

void PrepareDialog::Look()
{
    if (work_.IsRunning())
        return;
    YearRange years;
    if (!ReadYearRange(Trim(fields_.Box(YearsField).Text()), years))
        return Tell(QStringLiteral("연도는 2010-2030 또는 2026처럼 적어 주십시오."), MsgBoxExclamation);
    const QString user = Trim(fields_.Box(UserField).Text());
    shown_->SetText(QStringLiteral("데이터베이스를 살펴보는 중입니다. 대답이 없으면 \"멈춤\"을 누르십시오."));
    Begin(false, [this, years, user](Connection& connection, const BackgroundWork::Line& line) {
        const QString script = PreparingScript(connection, years, user);
        line.Say([this, script] { script_ = script; });
    });
}

void PrepareDialog::Run()
{
    if (script_.isEmpty())
        return Tell(QStringLiteral("먼저 \"살펴보기\"를 눌러 실행할 스크립트를 보십시오."),
                    MsgBoxInformation);
    Begin(true, [script = script_](Connection& connection, const BackgroundWork::Line& line) {
        RunScript(connection, script, [&line] { line.GoOn(); });
    });
}

void PrepareDialog::End(const std::exception_ptr& raised)
{
    ShowWorking(false);
    if (raised && !makes_)
        ForgetScript();
    const Fault fault = DatabaseFault(raised);
    if (makes_)
        EndRun(fault);
    else
        EndLook(fault);
}

void PrepareDialog::EndLook(const Fault& fault)
{
    if (!fault) {
        shown_->SetText(script_.isEmpty() ? QStringLiteral("없는 것이 없습니다. 만들 것도 없습니다.")
                                          : QString(script_).replace(u'\n', QStringLiteral("\r\n")));
        return;
    }
    Tell(QStringLiteral("데이터베이스를 살펴보지 못했습니다. \"연결 시험\"에서 원인을 볼 수 있습니다.") +
             ServersWords(*fault),
         MsgBoxCritical);
}

void PrepareDialog::EndRun(const Fault& fault)
{
    if (fault && (fault->Number == CommunicationFailure || fault->Number == CommandTimedOut))
        return Tell(QStringLiteral("데이터베이스의 대답을 끝까지 듣지 못했습니다. 만들어졌는지 "
                                   "\"살펴보기\"로 확인하십시오.") +
                        ServersWords(*fault),
                    MsgBoxCritical);
    if (fault)
        return Tell(QStringLiteral("데이터베이스가 거절하여 아무것도 만들지 않았습니다.") +
                        ServersWords(*fault),
                    MsgBoxCritical);
    Tell(QStringLiteral("데이터베이스를 준비했습니다."), MsgBoxInformation);
    ForgetScript();
}

/// What has not come to the end of its transaction is taken back; whether it has, only the server knows.
void PrepareDialog::Stop()
{
    work_.GiveUp();
    ShowWorking(false);
    if (makes_)
        Tell(QStringLiteral("멈추었습니다. 만들어졌는지 \"살펴보기\"로 확인하십시오."), MsgBoxExclamation);
    ForgetScript();
}

} // namespace tsms
