#include "templates/TemplateCards.h"

#include "runtime/Text.h"
#include "services/Services.h"
#include "session/WhenIdle.h"
#include "templates/CardBody.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/PhonePanel.h"
#include "toolkit/look/Theme.h"

#include <QAbstractItemView>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace tsms {

namespace {

constexpr int CardsInRow = 4;
constexpr int PageButtonWidth = 40;
constexpr int CategoryWidth = 220;

/// The names of one card set.
struct CardNames
{
    QString panel;
    QString heading;
    QString category;
    QString subject;
    QString content;
    int firstPicture;
    int firstPage;
    int pagePanel;
};

CardNames NamesOf(TemplateCards::Side side)
{
    if (side == TemplateCards::ComposeSide)
        return {QStringLiteral("Panel3"),
                IndexedName(u"Label2", 1),
                QStringLiteral("CbTempCd"),
                QStringLiteral("LblTmpSubject"),
                QStringLiteral("LblTmpContent"),
                0,
                0,
                0};
    return {QStringLiteral("Panel14"),
            IndexedName(u"Label2", 2),
            IndexedName(u"CbSMSGroup", 0),
            QStringLiteral("LblTmpSubjectEdit"),
            QStringLiteral("LblTmpContentEdit"),
            TemplateCards::Cards,
            TemplateCards::Pages,
            1};
}

std::size_t SlotOf(int card)
{
    return static_cast<std::size_t>(card - 1);
}

} // namespace

TemplateCards::TemplateCards(Services& services, Side side, QWidget* parent)
    : Panel(parent, NamesOf(side).panel, Border::Line), services_(services), side_(side)
{
    auto* head = new QHBoxLayout;
    BuildHead(*head);
    auto* cards = new QGridLayout;
    cards->setSpacing(10);
    for (int card = 1; card <= Cards; ++card)
        cards->addWidget(BuildCard(card), (card - 1) / CardsInRow, (card - 1) % CardsInRow);
    BuildPageButtons();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(12, 10, 12, 10);
    column->setSpacing(8);
    column->addLayout(head);
    column->addLayout(cards, 1);
    column->addWidget(pageCount_);
    ShowPressed(0);
    StopTabAt(1);
    StopTabAtPage(0);
}

void TemplateCards::BuildHead(QHBoxLayout& row)
{
    const CardNames names = NamesOf(side_);
    auto* heading = new Label(this, names.heading, QStringLiteral("문자메시지 서식선택"));
    heading->SetBold(true);
    category_ = new ComboBox(this, names.category, CategoryWidth); // names of any length
    DescribeBy(*category_, QStringLiteral("서식 분류"));
    category_->setPlaceholderText(QStringLiteral("전체")); // until the categories are read
    category_->OnClick = [this] {
        if (handlers_.chooseCategory)
            handlers_.chooseCategory();
    };
    if (side_ == ComposeSide) {
        category_->installEventFilter(this);
        category_->OnDropDown = [this] { category_->view()->installEventFilter(this); };
    }
    row.addWidget(heading);
    row.addStretch(1);
    row.addWidget(category_);
}

QWidget* TemplateCards::BuildCard(int card)
{
    const CardNames names = NamesOf(side_);
    auto* phone = new PhonePanel(this, IndexedName(u"PicTmpContent", names.firstPicture + card - 1));
    auto* subject = new CardLabel(phone, IndexedName(names.subject, card));
    subject->SetBackColor(theme::White);
    subject->SetTextColor(QColor(0, 0, 128));
    subject->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    subject->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // one line
    subject->setContentsMargins(5, 2, 5, 2);
    phones_[SlotOf(card)] = phone;
    subjects_[SlotOf(card)] = subject;
    BuildBody(card, *phone);
    auto* column = new QVBoxLayout(phone);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(subject);
    column->addWidget(contents_[SlotOf(card)], 1);
    Show(card, QString(), QString());
    return phone;
}

void TemplateCards::BuildBody(int card, PhonePanel& phone)
{
    auto* content = new CardBody(phone, IndexedName(NamesOf(side_).content, card));
    content->SetTextColor(QColor(64, 64, 64));
    content->OnClick = [this, card] {
        if (handlers_.takeCard)
            handlers_.takeCard(card);
    };
    content->OnArrow = [this, card](int key) { WalkFrom(card, key); };
    content->OnGotFocus = [this, card] { StopTabAt(card); };
    contents_[SlotOf(card)] = content;
}

void TemplateCards::BuildPageButtons()
{
    const CardNames names = NamesOf(side_);
    pageCount_ = new Panel(this, IndexedName(u"PLPageCount", names.pagePanel));
    pageCount_->Tag = QStringLiteral("0");
    auto* row = new QHBoxLayout(pageCount_);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    for (int page = 0; page < Pages; ++page) {
        auto* button = new PushButton(pageCount_, IndexedName(u"BtnPageCount", names.firstPage + page),
                                      QString::number(page + 1));
        button->setAccessibleDescription(QStringLiteral("서식 %1쪽").arg(page + 1));
        button->setMinimumWidth(PageButtonWidth); // the same for all, whatever their look asks for
        button->OnClick = WhenIdle(services_.session, [this, page] { BtnPageCountClick(page); });
        button->installEventFilter(this);
        pages_[static_cast<std::size_t>(page)] = button;
        row->addWidget(button, 1);
    }
}

void TemplateCards::Serve(Handlers handlers)
{
    handlers_ = std::move(handlers);
}

void TemplateCards::Show(int card, const QString& subject, const QString& content)
{
    Subject(card).SetCaption(subject);
    Content(card).SetCaption(content);
    const bool empty = IsBlank(content);
    if (empty)
        Content(card).setAccessibleName(QStringLiteral("빈 서식"));
    Content(card).setAccessibleDescription(subject);
    phones_.at(SlotOf(card))->SetOn(!empty);
    // On the template page an empty card begins a new template.
    contents_.at(SlotOf(card))->SetUsable(!empty || side_ == TemplateSide);
}

Label& TemplateCards::Subject(int card)
{
    return *subjects_.at(SlotOf(card));
}

Label& TemplateCards::Content(int card)
{
    return *contents_.at(SlotOf(card));
}

int TemplateCards::Page() const
{
    return pageCount_->Tag.toInt();
}

void TemplateCards::BtnPageCountClick(int page)
{
    pageCount_->Tag = QString::number(page);
    ShowPressed(page);
    if (handlers_.showPage)
        handlers_.showPage(page);
}

void TemplateCards::ShowPressed(int page)
{
    for (PushButton* button : pages_)
        button->SetLook(PushButton::Look::Plain);
    pages_.at(static_cast<std::size_t>(page))->SetLook(PushButton::Look::Chosen);
}

/// To the neighbour that an arrow key points at, and at the rim nowhere.
void TemplateCards::WalkFrom(int card, int key)
{
    const int step = key == Qt::Key_Left    ? -1
                     : key == Qt::Key_Right ? 1
                     : key == Qt::Key_Up    ? -CardsInRow
                                            : CardsInRow;
    if (card + step >= 1 && card + step <= Cards)
        contents_.at(SlotOf(card + step))->setFocus(Qt::TabFocusReason);
}

/// The Tab key visits one card, the one that had the focus last.
void TemplateCards::StopTabAt(int card)
{
    for (CardBody* content : contents_)
        content->setFocusPolicy(content == contents_.at(SlotOf(card)) ? Qt::TabFocus : Qt::NoFocus);
}

/// The Tab key visits one button, the one that had the focus last; the mouse brings the focus to each.
void TemplateCards::StopTabAtPage(int page)
{
    for (PushButton* button : pages_)
        button->setFocusPolicy(Qt::ClickFocus);
    pages_.at(static_cast<std::size_t>(page))->setFocusPolicy(Qt::StrongFocus);
}

/// True for an arrow key, which goes to the neighbour and at the rim nowhere.
bool TemplateCards::PageButtonEvent(int page, const QEvent& event)
{
    if (event.type() == QEvent::FocusIn)
        StopTabAtPage(page);
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    const bool back = key == Qt::Key_Left || key == Qt::Key_Up;
    const bool forward = key == Qt::Key_Right || key == Qt::Key_Down;
    const int to = page + (back ? -1 : 1);
    if ((back || forward) && to >= 0 && to < Pages)
        pages_.at(static_cast<std::size_t>(to))->setFocus(Qt::TabFocusReason);
    return back || forward;
}

/// The list of the compose page cannot be typed in, open or closed; the keys that walk in it and open it
/// pass.
bool TemplateCards::eventFilter(QObject* watched, QEvent* event)
{
    const auto button = std::find(pages_.begin(), pages_.end(), watched);
    if (button != pages_.end())
        return PageButtonEvent(static_cast<int>(button - pages_.begin()), *event);
    const bool list = watched == category_ || watched == category_->view();
    if (!list || event->type() != QEvent::KeyPress)
        return Panel::eventFilter(watched, event);
    const QString text = static_cast<QKeyEvent*>(event)->text();
    return !text.isEmpty() && text.front().isPrint();
}

} // namespace tsms
