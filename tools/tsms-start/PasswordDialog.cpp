#include "tsms-start/PasswordDialog.h"

#include "toolkit/fields/Controls.h"
#include "toolkit/fields/TextBox.h"

namespace tsms {

namespace {

enum PasswordField : int { PasswordBox };

constexpr int MostPassword = 128; // characters that a server takes

DialogFrame PasswordFrame(const SavedConnection& connection)
{
    DialogFrame frame;
    frame.name = QStringLiteral("PasswordDialog");
    frame.caption = QStringLiteral("비밀번호");
    frame.title = frame.caption;
    frame.titleLabel = QStringLiteral("lblTitle");
    frame.note = QStringLiteral("연결 \"%1\"의 데이터베이스 비밀번호를 입력하십시오.").arg(connection.name);
    frame.noteLabel = QStringLiteral("lblNote");
    frame.buttons = {QStringLiteral("확인(F12)"), QStringLiteral("취소(ESC)")};
    return frame;
}

} // namespace

PasswordDialog::PasswordDialog(StartServices& services, const SavedConnection& connection, const QString& why,
                               QWidget* owner)
    : DialogForm(services.session, services.desktop, PasswordFrame(connection), owner),
      textHelper_(services.desktop),
      fields_(Body(), BodyLayout(), textHelper_)
{
    TextBox& box = fields_.AddBox(PasswordBox, QStringLiteral("비밀번호 :"), MostPassword);
    box.setEchoMode(QLineEdit::Password);
    box.SetImeMode(ImeMode::Off);
    box.OnKeyPress = [this](char16_t& key) {
        if (key != u'\r')
            return;
        key = 0;
        Accept();
    };
    if (!why.isEmpty())
        fields_.AddNote(QStringLiteral("lblWhy"), QStringLiteral("※ ") + why);
}

void PasswordDialog::OnButton(int index)
{
    if (index == 0)
        Accept();
    else
        DialogForm::OnButton(index);
}

void PasswordDialog::Accept()
{
    if (!fields_.RequireAll())
        return;
    password_ = fields_.Box(PasswordBox).Text();
    Unload();
}

} // namespace tsms
