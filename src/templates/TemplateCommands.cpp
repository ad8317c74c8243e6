#include "templates/TemplateCommands.h"

#include "runtime/Desktop.h"
#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "services/Services.h"
#include "store/WithDatabase.h"
#include "templates/ModStep4.h"
#include "templates/TemplateCards.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/TextBox.h"

namespace tsms {

namespace {

void FillField(TextField& field, const QString& text, const QString& tag)
{
    field.PutText(text);
    field.Tag = tag;
}

/// What a save asks and tells.
struct SaveWords
{
    QString title;
    QString question;
    QString done;
};

SaveWords WordsOf(bool isNew)
{
    if (isNew)
        return {QStringLiteral("문자서식 등록"),
                QStringLiteral("신규 문자서식 등록확인 : 입력한 문자서식을 등록하시겠습니까?"),
                QStringLiteral("등록성공알림 : 신규 문자서식 등록이 정상적으로 완료 되었습니다.")};
    return {QStringLiteral("문자서식 수정"),
            QStringLiteral("문자서식 수정확인 : 입력한 문자서식을 수정하시겠습니까?"),
            QStringLiteral("수정성공알림 : 문자서식을 정상적으로 수정완료 되었습니다.")};
}

} // namespace

TemplateCommands::TemplateCommands(Services& services, TemplateFields fields, std::function<void()> reload)
    : services_(services), fields_(std::move(fields)), reload_(std::move(reload))
{
}

void TemplateCommands::New()
{
    fields_.clear();
}

void TemplateCommands::Save()
{
    if (!HasBody() || !HasSubject())
        return;
    const bool isNew = IsNew();
    const SaveWords words = WordsOf(isNew);
    if (services_.desktop.MsgBox(words.question, MsgBoxQuestion, words.title) != AnswerYes)
        return;
    if (!Store(isNew))
        return;
    services_.desktop.MsgBox(words.done, MsgBoxInformation, words.title);
    reload_();
    New();
}

void TemplateCommands::Delete()
{
    if (IsNew() || !AskDelete())
        return;
    IfConnected(services_.db, [this] {
        if (!services_.db.ExecuteSQL(TemplateDelete(fields_.body.Tag)))
            return;
        services_.desktop.MsgBox(QStringLiteral("삭제성공알림 : 문자서식 정상적으로 삭제완료 되었습니다."),
                                 MsgBoxInformation, QStringLiteral("문자서식 삭제"));
        reload_();
        New();
        ForgetHistory(); // taken back, it would belong to a template that is gone, and no save would store it
    });
}

void TemplateCommands::Take(TemplateCards& cards, int card)
{
    const Label& subject = cards.Subject(card);
    const Label& content = cards.Content(card);
    const bool replacesStored = !IsNew();
    if (IsBlank(content.Caption())) {
        FillField(fields_.body, QString(), QString());
        FillField(fields_.subject, QString(), QString());
    } else {
        FillField(fields_.body, content.Caption(), content.Tag);
        FillField(fields_.subject, subject.Caption(), subject.Tag);
    }
    if (replacesStored) // taken back alone, its body would be saved with the title of this one
        ForgetHistory();
    fields_.category.SetListIndex(cards.Category().ListIndex());
    fields_.body.SetFocus();
}

void TemplateCommands::ForgetHistory()
{
    fields_.body.ForgetHistory();
    fields_.subject.ForgetHistory();
}

bool TemplateCommands::IsNew() const
{
    return IsBlank(fields_.body.Tag);
}

bool TemplateCommands::HasBody()
{
    if (!IsBlank(fields_.body.Text()))
        return true;
    services_.desktop.MsgBox(QStringLiteral("문자서식 :'문자메시지 내용'을 입력해 주십시오."),
                             MsgBoxExclamation, QStringLiteral("문자서식"));
    fields_.body.SetFocus();
    return false;
}

bool TemplateCommands::HasSubject()
{
    if (!IsBlank(fields_.subject.Text()))
        return true;
    services_.desktop.MsgBox(QStringLiteral("문자서식 :'문자메시지 제목'을 입력해 주십시오."),
                             MsgBoxExclamation, QStringLiteral("문자서식"));
    fields_.subject.SetFocus();
    return false;
}

bool TemplateCommands::Store(bool isNew)
{
    const std::int32_t category = fields_.category.SelectedData();
    const std::int32_t key = isNew ? 0 : ToLong(fields_.body.Tag);
    return SaveTemplate(services_, isNew, category, fields_.subject.Text(), fields_.body.Text(), key);
}

bool TemplateCommands::AskDelete()
{
    const QString question = QStringLiteral("삭제확인 :") + QStringLiteral("[") + fields_.subject.Text() +
                             QStringLiteral("]의 문자서식을 삭제하시겠습니까?");
    return services_.desktop.MsgBox(question, MsgBoxQuestion, QStringLiteral("문자서식 삭제")) == AnswerYes;
}

} // namespace tsms
