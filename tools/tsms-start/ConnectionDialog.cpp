#include "tsms-start/ConnectionDialog.h"

#include "runtime/Clock.h"
#include "runtime/Desktop.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "store/embedded/EmbeddedTables.h"
#include "store/engine/DatabaseError.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/look/Placing.h"
#include "tsms-db/Demo.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QScreen>

#include <algorithm>

namespace tsms {

namespace {

enum ConnectionField : int {
    NameField,
    KindField,
    FileField,
    ServerField,
    PortField,
    DatabaseField,
    LoginField,
    PasswordField,
    CallerNumberField,
    CallerTextField,
};

constexpr int MostName = 128; // characters of a name on a server, and so here
constexpr int MostPath = 1000;
constexpr int MostPort = 5;
constexpr int MostNumber = 11;
constexpr int MostText = 4000;

const QString KindHint = QStringLiteral("※ 없는 파일이면 새로 만듭니다.");

DialogFrame ConnectionFrame(bool isNew)
{
    DialogFrame frame;
    frame.name = QStringLiteral("ConnectionDialog");
    frame.caption = isNew ? QStringLiteral("새 연결") : QStringLiteral("연결 고치기");
    frame.title = frame.caption;
    frame.titleLabel = QStringLiteral("lblFrameTitle");
    frame.note = QStringLiteral("문자메시지가 일할 데이터베이스를 입력하십시오.");
    frame.noteLabel = QStringLiteral("lblNote");
    frame.buttons = {QStringLiteral("저장(F12)"), QStringLiteral("취소(ESC)")};
    frame.arrowsWalk = true;
    return frame;
}

/// The years of `tsms-db create`, and some that are still to come.
YearRange YearsFor(int year)
{
    constexpr int YearsAhead = 4;
    YearRange years;
    years.last = std::max(years.last, year + YearsAhead);
    return years;
}

} // namespace

ConnectionDialog::ConnectionDialog(StartServices& services, SavedConnection connection, QWidget* owner)
    : DialogForm(services.session, services.desktop, ConnectionFrame(connection.id.isEmpty()), owner),
      services_(services),
      textHelper_(services.desktop),
      fields_(Body(), BodyLayout(), textHelper_),
      connection_(std::move(connection))
{
    BuildFields();
    Show();
}

void ConnectionDialog::BuildFields()
{
    AddBox(NameField, QStringLiteral("연결 이름 :"), MostName);
    BuildKinds();
    BuildFile();
    BuildServer();
    BuildCaller();
}

void ConnectionDialog::AddBox(int index, const QString& caption, int limit)
{
    TextBox& box = fields_.AddBox(index, caption, limit);
    box.OnKeyPress = [this, index](char16_t& key) { KeyPress(index, key); };
    if (index == NameField || index == CallerTextField)
        box.SetImeMode(ImeMode::Hangul);
    else
        box.SetImeMode(ImeMode::Latin);
}

void ConnectionDialog::BuildKinds()
{
    auto* kinds = new QWidget(&Body());
    auto* row = new QHBoxLayout(kinds);
    row->setContentsMargins({});
    row->setSpacing(12);
    fileKind_ = new RadioButton(kinds, QStringLiteral("OptKind(0)"), QStringLiteral("데이터베이스 파일"));
    serverKind_ = new RadioButton(kinds, QStringLiteral("OptKind(1)"), QStringLiteral("SQL Server"));
    row->addWidget(fileKind_);
    row->addWidget(serverKind_);
    row->addStretch(1);
    fields_.AddControl(KindField, QStringLiteral("종류 :"), *kinds);
    for (RadioButton* kind : {fileKind_, serverKind_})
        kind->OnClick = [this] { ShowKind(); };
}

void ConnectionDialog::BuildFile()
{
    AddBox(FileField, QStringLiteral("파일 :"), MostPath);
    auto* below = new QWidget(&Body());
    auto* row = new QHBoxLayout(below);
    row->setContentsMargins({});
    row->setSpacing(12);
    auto* pick = new PushButton(below, QStringLiteral("BtnPickFile"), QStringLiteral("찾아보기"));
    pick->OnClick = [this] { PickFile(); };
    row->addWidget(pick);
    if (services_.offersDemo) {
        demo_ =
            new CheckBox(below, QStringLiteral("ChkDemo"), QStringLiteral("새 파일에 시연용 자료 채우기"));
        row->addWidget(demo_);
    }
    row->addStretch(1);
    fields_.AddBelow(*below);
    fields_.AddNote(QStringLiteral("lblFileNote"), KindHint);
    fileWidgets_ = {Body().findChild<QWidget*>(IndexedName(u"lblTitle", FileField)),
                    Body().findChild<QWidget*>(IndexedName(u"PLtxtBack", FileField)), below,
                    Body().findChild<QWidget*>(QStringLiteral("lblFileNote"))};
}

void ConnectionDialog::BuildServer()
{
    AddBox(ServerField, QStringLiteral("서버 :"), MostName * 2);
    AddBox(PortField, QStringLiteral("포트 :"), MostPort);
    AddBox(DatabaseField, QStringLiteral("데이터베이스 :"), MostName);
    AddBox(LoginField, QStringLiteral("로그인 :"), MostName);
    AddBox(PasswordField, QStringLiteral("비밀번호 :"), MostName);
    auto& password = static_cast<TextBox&>(fields_.Box(PasswordField));
    password.setEchoMode(QLineEdit::Password);
    password.SetImeMode(ImeMode::Off);
    keepsPassword_ = new CheckBox(&Body(), QStringLiteral("ChkKeep"),
                                  QStringLiteral("비밀번호를 데스크톱의 암호 보관함에 저장"));
    fields_.AddBelow(*keepsPassword_);
    fields_.AddNote(QStringLiteral("lblPasswordNote"),
                    QStringLiteral("※ 저장하지 않으면 시작할 때마다 묻습니다."));
    for (int index = ServerField; index <= PasswordField; ++index) {
        serverWidgets_ += Body().findChild<QWidget*>(IndexedName(u"lblTitle", index));
        serverWidgets_ += Body().findChild<QWidget*>(IndexedName(u"PLtxtBack", index));
    }
    serverWidgets_ += {keepsPassword_, Body().findChild<QWidget*>(QStringLiteral("lblPasswordNote"))};
}

void ConnectionDialog::BuildCaller()
{
    AddBox(CallerNumberField, QStringLiteral("호출 번호 :"), MostNumber);
    AddBox(CallerTextField, QStringLiteral("호출 문구 :"), MostText);
    fields_.AddNote(QStringLiteral("lblCallerNote"),
                    QStringLiteral("※ 보낸 문자마다 함께 기록됩니다. 보통은 그대로 두십시오."));
}

void ConnectionDialog::Show()
{
    const bool isNew = connection_.id.isEmpty();
    const std::pair<int, QString> texts[] = {
        {NameField, connection_.name},           {FileField, isNew ? ProposedFile() : connection_.file},
        {ServerField, connection_.server},       {PortField, connection_.port},
        {DatabaseField, connection_.database},   {LoginField, connection_.login},
        {CallerNumberField, connection_.number}, {CallerTextField, connection_.text},
    };
    for (const auto& [index, text] : texts)
        fields_.Box(index).SetText(text);
    keepsPassword_->SetValue(connection_.keepsPassword);
    if (connection_.keepsPassword)
        Body()
            .findChild<Label*>(QStringLiteral("lblPasswordNote"))
            ->SetCaption(QStringLiteral("※ 비워 두면 보관된 비밀번호를 그대로 씁니다."));
    (connection_.IsServer() ? serverKind_ : fileKind_)->SetValue(true);
    ShowKind();
}

void ConnectionDialog::ShowKind()
{
    for (QWidget* widget : std::as_const(fileWidgets_))
        widget->setVisible(fileKind_->Value());
    for (QWidget* widget : std::as_const(serverWidgets_))
        widget->setVisible(serverKind_->Value());
    // The fields of a server need more room, which may be below the screen.
    BodyLayout().activate();
    layout()->activate();
    if (isVisible())
        move(MovedInto(geometry(), screen()->availableGeometry()).topLeft());
}

/// The first name of its folder that is not taken.
QString ConnectionDialog::ProposedFile() const
{
    const QDir folder(services_.dataFolder);
    QString file = folder.filePath(QStringLiteral("문자메시지.db"));
    for (int number = 2; QFileInfo::exists(file); ++number)
        file = folder.filePath(QStringLiteral("문자메시지%1.db").arg(number));
    return file;
}

QString ConnectionDialog::Password() const
{
    return serverKind_->Value() ? fields_.Box(PasswordField).Text() : QString();
}

SavedConnection ConnectionDialog::Typed() const
{
    SavedConnection typed;
    typed.id = connection_.id;
    typed.name = Trim(fields_.Box(NameField).Text());
    typed.kind = serverKind_->Value() ? SavedConnection::Kind::Server : SavedConnection::Kind::File;
    const QString file = Trim(fields_.Box(FileField).Text());
    if (typed.IsServer()) {
        typed.server = Trim(fields_.Box(ServerField).Text());
        typed.port = Trim(fields_.Box(PortField).Text());
        typed.database = Trim(fields_.Box(DatabaseField).Text());
        typed.login = Trim(fields_.Box(LoginField).Text());
        typed.keepsPassword = keepsPassword_->Value();
    } else if (!file.isEmpty()) {
        typed.file = QDir::cleanPath(QDir(services_.dataFolder).absoluteFilePath(file));
    }
    typed.number = Trim(fields_.Box(CallerNumberField).Text());
    typed.text = fields_.Box(CallerTextField).Text();
    return typed;
}

void ConnectionDialog::PickFile()
{
    const QString file = services_.desktop.PickFile(QStringLiteral("데이터베이스 파일 고르기"),
                                                    QStringLiteral("데이터베이스 파일(*.db)|*.db"));
    if (!file.isEmpty())
        fields_.Box(FileField).PutText(file);
}

void ConnectionDialog::OnButton(int index)
{
    if (index == 0)
        Save();
    else
        DialogForm::OnButton(index);
}

void ConnectionDialog::KeyPress(int index, char16_t& key)
{
    if (index == PortField)
        FilterNumberKey(key);
    if (key != u'\r')
        return;
    key = 0;
    if (index == CallerTextField)
        Save();
    else
        focusNextChild();
}

void ConnectionDialog::Save()
{
    const SavedConnection typed = Typed();
    if (const QString fault = FaultOf(typed, Password()); !fault.isEmpty()) {
        services_.desktop.MsgBox(fault, MsgBoxExclamation, Caption());
        return;
    }
    if (!typed.IsServer() && !HasFile(typed.file))
        return;
    Keep(typed);
    saved_ = true;
    Unload();
}

bool ConnectionDialog::HasFile(const QString& file)
{
    if (QFileInfo::exists(file))
        return true;
    const QString question =
        QStringLiteral("아직 없는 파일입니다. 새 데이터베이스를 만드시겠습니까?\r\n\r\n") + file;
    return services_.desktop.MsgBox(question, MsgBoxQuestion, Caption()) == AnswerYes && MakeFile(file);
}

bool ConnectionDialog::MakeFile(const QString& file)
{
    const YearRange years = YearsFor(services_.clock.Date().year());
    const bool demo = demo_ && demo_->Value();
    SetBusy(true);
    QDir().mkpath(QFileInfo(file).absolutePath());
    QString fault;
    try {
        CreateEmbeddedDatabase(file, years, services_.clock, [&](Connection& connection) {
            if (demo)
                FillDemo(connection, services_.clock.Now(), years);
        });
    } catch (const RuntimeError& error) {
        fault = error.Number == CommunicationFailure
                    ? QStringLiteral("이 위치에 파일을 쓸 수 없습니다: ") + file
                    : error.Description;
    }
    SetBusy(false);
    if (fault.isEmpty())
        return true;
    services_.desktop.MsgBox(QStringLiteral("데이터베이스를 만들지 못했습니다.\r\n\r\n") + fault,
                             MsgBoxCritical, Caption());
    return false;
}

/// The password goes to the key store and nowhere else.
void ConnectionDialog::Keep(SavedConnection connection)
{
    connection.id = services_.connections.Put(connection);
    if (connection_.keepsPassword && !connection.keepsPassword)
        services_.passwords.Remove(connection.id);
    if (!connection.keepsPassword || Password().isEmpty())
        return; // what is kept already stays
    if (services_.passwords.Write(connection.id, Password()) == PasswordStore::Outcome::Done)
        return;
    connection.keepsPassword = false;
    services_.connections.Put(connection);
    services_.desktop.MsgBox(QStringLiteral("데스크톱의 암호 보관함에 저장하지 못했습니다. 비밀번호는 시작할 "
                                            "때마다 묻습니다."),
                             MsgBoxExclamation, Caption());
}

} // namespace tsms
