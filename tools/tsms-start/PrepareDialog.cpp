#include "tsms-start/PrepareDialog.h"

#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
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
    frame.buttons = {QStringLiteral("만들기(F12)"), QStringLiteral("닫기(ESC)")};
    return frame;
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
    auto* look = new PushButton(&Body(), QStringLiteral("BtnLook"), QStringLiteral("살펴보기"));
    look->OnClick = [this] {
        if (!IsBusy())
            Look();
    };
    BodyLayout().addWidget(look, 0, Qt::AlignLeft);
    shown_ = new MemoBox(&Body(), QStringLiteral("txtScript"));
    shown_->setReadOnly(true);
    shown_->setFixedSize(Room);
    DescribeBy(*shown_, QStringLiteral("실행할 스크립트"));
    BodyLayout().addWidget(shown_);
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
    if (index == 0)
        Run();
    else
        DialogForm::OnButton(index);
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

std::unique_ptr<Connection> PrepareDialog::Open() const
{
    constexpr int OwnerSecondsToConnect = 10;
    constexpr int OwnerSecondsToAnswer = 120;
    SavedConnection owner = connection_;
    owner.login = Trim(fields_.Box(OwnerField).Text());
    std::unique_ptr<Connection> opened = services_.makeConnection();
    opened->ConnectionString = ConnectionTextOf(owner, fields_.Box(OwnerPasswordField).Text());
    opened->ConnectionTimeout = OwnerSecondsToConnect;
    opened->CommandTimeout = OwnerSecondsToAnswer;
    opened->Open();
    return opened;
}

void PrepareDialog::Look()
{
    YearRange years;
    if (!ReadYearRange(Trim(fields_.Box(YearsField).Text()), years))
        return Tell(QStringLiteral("연도는 2010-2030 또는 2026처럼 적어 주십시오."), MsgBoxExclamation);
    QString fault;
    SetBusy(true);
    try {
        script_ = PreparingScript(*Open(), years, Trim(fields_.Box(UserField).Text()));
    } catch (const RuntimeError& error) {
        fault = error.Description;
    }
    SetBusy(false);
    if (!fault.isEmpty())
        return Tell(
            QStringLiteral("데이터베이스를 살펴보지 못했습니다. \"연결 시험\"에서 원인을 볼 수 있습니다.") +
                QStringLiteral("\r\n\r\n서버의 말: ") + fault,
            MsgBoxCritical);
    shown_->SetText(script_.isEmpty() ? QStringLiteral("없는 것이 없습니다. 만들 것도 없습니다.")
                                      : QString(script_).replace(u'\n', QStringLiteral("\r\n")));
}

void PrepareDialog::Run()
{
    if (script_.isEmpty())
        return Tell(QStringLiteral("먼저 \"살펴보기\"를 눌러 실행할 스크립트를 보십시오."),
                    MsgBoxInformation);
    QString fault;
    SetBusy(true);
    try {
        RunScript(*Open(), script_);
    } catch (const RuntimeError& error) {
        fault = error.Description;
    }
    SetBusy(false);
    if (!fault.isEmpty())
        return Tell(QStringLiteral("데이터베이스가 거절하여 아무것도 만들지 않았습니다.\r\n\r\n서버의 말: ") +
                        fault,
                    MsgBoxCritical);
    Tell(QStringLiteral("데이터베이스를 준비했습니다."), MsgBoxInformation);
    ForgetScript();
}

} // namespace tsms
