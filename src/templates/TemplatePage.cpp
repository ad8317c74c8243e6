#include "templates/TemplatePage.h"

#include "services/Services.h"
#include "session/WhenIdle.h"
#include "templates/TemplateCards.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/look/Theme.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tsms {

namespace {

constexpr int PhoneWidth = 196; // ends where the popups of the editor begin
constexpr int ButtonWidth = 52; // three in a row

enum Command : int { NewCommand, SaveCommand, DeleteCommand };

/// The editor was made before the page: its fields take their place in the order of reading.
QWidget* PlaceInTabOrder(QWidget* previous, const QWidget& editor)
{
    for (QWidget* field : editor.findChildren<QWidget*>()) {
        if (field->focusPolicy() & Qt::TabFocus) {
            QWidget::setTabOrder(previous, field);
            previous = field;
        }
    }
    return previous;
}

} // namespace

TemplatePage::TemplatePage(Services& services, fpSpread& cache, const Editor& editor, QWidget* parent)
    : Panel(parent, IndexedName(u"PlToolBg", 3)), services_(services)
{
    SetBackColor(theme::Page);
    auto* page = new QHBoxLayout(this);
    page->setContentsMargins(12, 12, 12, 12);
    page->setSpacing(14);
    page->addWidget(BuildPhone(editor.widget));
    cards_ = new TemplateCards(services_, TemplateCards::TemplateSide, this);
    auto* right = new QVBoxLayout;
    right->setSpacing(10);
    right->addWidget(cards_, 1);
    right->addWidget(BuildNotes());
    page->addLayout(right, 1);
    picker_ = std::make_unique<TemplatePicker>(services_, cache, *cards_,
                                               [this](int card) { commands_->Take(*cards_, card); });
    commands_ = std::make_unique<TemplateCommands>(
        services_, TemplateFields{editor.body, editor.subject, *category_, editor.clear},
        [this] { picker_->ChooseCategory(); });
}

QWidget* TemplatePage::BuildPhone(QWidget* editor)
{
    auto* phone = new Panel(this, QStringLiteral("PlPhoneEdit"), Panel::Border::Line);
    phone->setFixedWidth(PhoneWidth);
    auto* heading = new Label(phone, IndexedName(u"Label2", 4), QStringLiteral("문자메시지 서식편집"));
    heading->SetBold(true);
    // In line with the heading of the cards, which has a list beside it.
    heading->setMinimumHeight(theme::ControlHeight(heading->fontMetrics()));

    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    category_ = new ComboBox(phone, IndexedName(u"CbSMSGroup", 1));
    category_->setPlaceholderText(QStringLiteral("전체")); // until the categories are read
    category_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon); // names of any length
    category_->setIconSize(QSize(0, 0));
    auto* caption = new Label(phone, QStringLiteral("Label10"), QStringLiteral("분류"));
    caption->Describes(*category_);
    row->addWidget(caption);
    row->addWidget(category_, 1);

    editor->setParent(phone);
    const QStringList captions{QStringLiteral("신규"), QStringLiteral("저장"), QStringLiteral("삭제")};
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(6);
    for (int i = 0; i < captions.size(); ++i) {
        auto* button = new PushButton(phone, IndexedName(u"BtnFuncDoc", i), captions[i],
                                      i == SaveCommand ? PushButton::Look::Primary : PushButton::Look::Plain);
        button->setMinimumWidth(ButtonWidth);
        button->OnClick = WhenIdle(services_.session, [this, i] { BtnFuncDocClick(i); });
        buttons_[static_cast<std::size_t>(i)] = button;
        buttons->addWidget(button, 1);
    }

    auto* column = new QVBoxLayout(phone);
    column->setContentsMargins(12, 10, 12, 12);
    column->setSpacing(8);
    column->addWidget(heading);
    column->addLayout(row);
    column->addWidget(editor, 1);
    column->addLayout(buttons);
    QWidget* previous = PlaceInTabOrder(category_, *editor);
    for (PushButton* button : buttons_) {
        QWidget::setTabOrder(previous, button);
        previous = button;
    }
    return phone;
}

QWidget* TemplatePage::BuildNotes()
{
    const QStringList notes{
        QStringLiteral("문구자동변환 : [받는사람]은 수신성명으로 자동변환 되어 발송됩니다."),
        QStringLiteral(
            "문구자동변환 : [보내는사람]은 환경설정에 지정된 회신명칭으로 자동변환 되어 발송됩니다."),
        QStringLiteral("문구자동변환을 하실때는 문자서식에 반드시 \"[\",\"]\" 표기를 하시고 "
                       "\"받는사람\",\"보내는사람\"을 기재"),
        QStringLiteral(
            "한글은 2Bytes, 영문,숫자 1 Bytes로 책정이 됩니다. (총 80 Bytes 단문 문자메세지 입니다. )"),
        QStringLiteral("자주 사용하시는 문자메시지 문구를 저장하여 사용하시면 됩니다."),
    };
    return MakeNotes(*this, QStringLiteral("PlNotesEdit"), u"Label5", notes);
}

void TemplatePage::BtnFuncDocClick(int index)
{
    switch (index) {
    case NewCommand:
        commands_->New();
        break;
    case SaveCommand:
        commands_->Save();
        break;
    case DeleteCommand:
        commands_->Delete();
        break;
    }
}

} // namespace tsms
