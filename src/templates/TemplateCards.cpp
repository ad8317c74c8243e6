#include "templates/TemplateCards.h"

#include "services/Services.h"
#include "session/Session.h"
#include "templates/CardLabel.h"
#include "toolkit/ComboBox.h"
#include "toolkit/Naming.h"
#include "toolkit/Theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace tsms {

namespace {

constexpr int CardsInRow = 4;
constexpr int EarPiece = 14; // height of a card's top, with the slit to listen at
constexpr int HomeKey = 12;  // height of its foot
constexpr int PageButtonWidth = 40;
constexpr QColor PhoneBody{112, 130, 138};

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

/// The background of a card: a small phone.
class CardPicture final : public Panel
{
public:
    using Panel::Panel;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(PhoneBody);
        painter.drawRoundedRect(QRectF(rect()), 10, 10);
        painter.setBrush(PhoneBody.lighter(150));
        const qreal middle = width() / 2.0;
        painter.drawRoundedRect(QRectF(middle - 14, EarPiece / 2.0 - 1.5, 28, 3), 1.5, 1.5);
        painter.drawEllipse(QPointF(middle, height() - HomeKey / 2.0), 3, 3);
    }
};

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
    column->setContentsMargins(12, 10, 12, 12);
    column->setSpacing(10);
    column->addLayout(head);
    column->addLayout(cards, 1);
    column->addWidget(pageCount_);
    ShowPressed(0);
}

void TemplateCards::BuildHead(QHBoxLayout& row)
{
    const CardNames names = NamesOf(side_);
    auto* heading = new Label(this, names.heading, QStringLiteral("문자메시지 서식선택"));
    heading->SetBold(true);
    category_ = new ComboBox(this, names.category);
    category_->setPlaceholderText(QStringLiteral("전체")); // until the categories are read
    category_->setMinimumWidth(180);
    category_->OnClick = [this] {
        if (handlers_.chooseCategory)
            handlers_.chooseCategory();
    };
    if (side_ == ComposeSide)
        category_->installEventFilter(this);
    row.addWidget(heading);
    row.addStretch(1);
    row.addWidget(category_);
}

QWidget* TemplateCards::BuildCard(int card)
{
    const CardNames names = NamesOf(side_);
    auto* picture = new CardPicture(this, IndexedName(u"PicTmpContent", names.firstPicture + card - 1));
    auto* subject = new CardLabel(picture, IndexedName(names.subject, card));
    subject->SetBackColor(theme::White);
    subject->SetTextColor(QColor(0, 0, 128));
    subject->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    auto* content = new CardLabel(picture, IndexedName(names.content, card));
    content->SetBackColor(theme::Phone);
    content->SetTextColor(QColor(64, 64, 64));
    content->setCursor(Qt::PointingHandCursor);
    content->OnClick = [this, card] {
        if (handlers_.takeCard)
            handlers_.takeCard(card);
    };
    subjects_[static_cast<std::size_t>(card - 1)] = subject;
    contents_[static_cast<std::size_t>(card - 1)] = content;
    subject->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // one line
    auto* column = new QVBoxLayout(picture);
    column->setContentsMargins(6, EarPiece, 6, HomeKey);
    column->setSpacing(1);
    column->addWidget(subject);
    column->addWidget(content, 1);
    return picture;
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
                                      QString::number(page + 1), PushButton::Look::Flat);
        button->setMinimumWidth(PageButtonWidth); // the same for all, whatever their look asks for
        button->setEnabled(false);
        button->OnClick = [this, page] { BtnPageCountClick(page); };
        pages_[static_cast<std::size_t>(page)] = button;
        row->addWidget(button, 1);
    }
}

void TemplateCards::Serve(Handlers handlers)
{
    handlers_ = std::move(handlers);
    for (PushButton* button : pages_)
        button->setEnabled(static_cast<bool>(handlers_.showPage));
}

Label& TemplateCards::Subject(int card)
{
    return *subjects_.at(static_cast<std::size_t>(card - 1));
}

Label& TemplateCards::Content(int card)
{
    return *contents_.at(static_cast<std::size_t>(card - 1));
}

int TemplateCards::Page() const
{
    return pageCount_->Tag.toInt();
}

void TemplateCards::BtnPageCountClick(int page)
{
    if (services_.session.IsBusy())
        return;
    pageCount_->Tag = QString::number(page);
    ShowPressed(page);
    handlers_.showPage(page);
}

void TemplateCards::ShowPressed(int page)
{
    for (PushButton* button : pages_)
        button->SetLook(PushButton::Look::Flat);
    pages_.at(static_cast<std::size_t>(page))->SetLook(PushButton::Look::Primary);
}

/// The list of the compose page cannot be typed in; the keys that walk in it and open it pass.
bool TemplateCards::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != category_ || event->type() != QEvent::KeyPress)
        return Panel::eventFilter(watched, event);
    const QString text = static_cast<QKeyEvent*>(event)->text();
    return !text.isEmpty() && text.front().isPrint();
}

} // namespace tsms
