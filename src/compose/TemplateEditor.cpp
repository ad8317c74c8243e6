#include "compose/TemplateEditor.h"

#include "compose/MessageCounter.h"
#include "compose/MessageScreen.h"
#include "compose/Placeholders.h"
#include "compose/SymbolGrid.h"
#include "services/Services.h"
#include "session/WhenIdle.h"
#include "toolkit/fields/LimitRule.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/RaiseEvent.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"
#include "toolkit/look/Theme.h"
#include "toolkit/look/Twips.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tsms {

namespace {

constexpr int BodyCharacters = 160;
constexpr int SubjectCharacters = 50;
constexpr int SubjectLimit = 40; // bytes
constexpr QColor BeyondLimit{255, 205, 196};
const QPoint PopupCorner(FromTwips(3360), FromTwips(7020));

enum Popup : int { Symbols, Placeholders };
constexpr int Rewrite = 2;

} // namespace

void InitSymbolGrid(fpSpread& grid)
{
    GridHelper().PrepareGrid(grid);
    grid.SetHeadersVisible(false, false);
    grid.SetSpaceClicks(false);
    grid.SetGridColor(theme::Line);
    grid.SetRowHeight(SpreadModel::All, 13);
    for (int column = 1; column <= SymbolColumns; ++column) {
        grid.SetColWidth(column, 3.0);
        grid.Cells().SetAlignment(column, Qt::AlignCenter);
    }
    grid.Cells().SetMaxCols(SymbolColumns);
    grid.Cells().SetMaxRows(SymbolRows);
    for (int column = 1; column <= SymbolColumns; ++column)
        for (int row = 1; row <= SymbolRows; ++row)
            grid.Cells().SetText(column, row, SymbolAt(column, row));
}

TemplateEditor::TemplateEditor(Services& services, QWidget& popupParent, QWidget* parent)
    : QWidget(parent), services_(services)
{
    BuildFields();
    BuildSymbolPopup(popupParent);
    BuildPlaceholderPopup(popupParent);
    RefreshSymbols();
}

void TemplateEditor::BuildFields()
{
    // The title has no border of its own; the panel that it stands on shows where it is.
    auto* back = new FieldPanel(this, QStringLiteral("PlEditSubject"));
    subject_ = new TextBox(back, QStringLiteral("txtEditSubject"));
    subject_->setFrame(false);
    subject_->SetMaxLength(SubjectCharacters);
    subject_->SetImeMode(ImeMode::Hangul);
    subject_->SetByteLimit(SubjectLimit);
    subject_->OnKeyPress = [](char16_t& key) {
        if (key == u'\r')
            key = 0;
    };

    body_ = new MemoBox(this, QStringLiteral("txtEditBox"));
    DescribeBy(*body_, QStringLiteral("문자메시지 내용"));
    body_->SetBackColor(theme::Phone);
    body_->SetMaxLength(BodyCharacters);
    body_->SetImeMode(ImeMode::Hangul);
    auto* screen = new MessageScreen(*body_, QStringLiteral("PlEditBox"), this);
    // What no message holds is marked: a template may be longer.
    body_->OnChange = [this] {
        const qsizetype message = BytesMeasure.fitting(body_->Text(), MessageLimit);
        body_->MarkFrom(static_cast<int>(message), BeyondLimit);
    };
    counter_ = new MessageCounter(*body_, {CharactersMeasure, BodyCharacters},
                                  QStringLiteral("LblEditLength"), QStringLiteral("Label13"), this);

    const QStringList captions{QStringLiteral("특수문자"), QStringLiteral("변환문구"),
                               QStringLiteral("다시쓰기")};
    auto* buttons = new QGridLayout;
    buttons->setSpacing(6);
    for (int i = 0; i < captions.size(); ++i) {
        auto* button = new PushButton(this, IndexedName(u"BtnFuncDocEdit", i), captions[i]);
        button->OnClick = WhenIdle(services_.session, [this, i] { BtnFuncDocEditClick(i); });
        buttons->addWidget(button, i / 2, i % 2, 1, i == Rewrite ? 2 : 1);
    }

    auto* place = new QHBoxLayout(back);
    place->setContentsMargins(3, 3, 3, 3);
    place->addWidget(subject_);
    back->Follow(*subject_);

    auto* title = new QHBoxLayout;
    title->setSpacing(8);
    auto* caption = new Label(this, QStringLiteral("Label11"), QStringLiteral("제목"));
    caption->Describes(*subject_);
    title->addWidget(caption);
    title->addWidget(back, 1);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addLayout(title);
    column->addWidget(screen, 1);
    column->addWidget(counter_);
    column->addLayout(buttons);
}

PushButton* TemplateEditor::BuildCloseButton(int index, PopupPanel& popup)
{
    auto* button = new PushButton(&popup, IndexedName(u"BtnDocEdit", index), QStringLiteral("닫기"));
    button->OnClick = WhenIdle(services_.session, [&popup] { popup.hide(); });
    return button;
}

void TemplateEditor::BuildSymbolPopup(QWidget& parent)
{
    auto* popup = new PopupPanel(&parent, IndexedName(u"PlDocEdit", Symbols));
    popups_[Symbols] = popup;
    symbols_ = Named(new fpSpread(popup), QStringLiteral("fpSpreadScDoc"));
    DescribeBy(*symbols_, QStringLiteral("특수문자"));
    symbols_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    symbols_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    symbols_->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    connect(symbols_, &fpSpread::Click, this,
            [this] { RaiseEvent(*symbols_, WhenIdle(services_.session, [this] { InsertActiveSymbol(); })); });
    symbols_->OnKeyPress = [this](int& key) { SymbolKeyPress(key); };
    auto* column = new QVBoxLayout(popup);
    column->setContentsMargins(8, 8, 8, 8);
    column->setSpacing(6);
    column->addWidget(symbols_);
    column->addWidget(BuildCloseButton(Symbols, *popup), 0, Qt::AlignRight);
}

void TemplateEditor::BuildPlaceholderPopup(QWidget& parent)
{
    auto* popup = new PopupPanel(&parent, IndexedName(u"PlDocEdit", Placeholders));
    popups_[Placeholders] = popup;
    const QStringList captions{RecipientPlaceholder.toString(), SenderPlaceholder.toString()};
    const QStringList notes{QStringLiteral("(발송시 수신성명으로 변환)"),
                            QStringLiteral("(발송시 회신명칭으로 변환)")};
    auto* grid = new QGridLayout(popup);
    grid->setContentsMargins(8, 8, 8, 8);
    grid->setSpacing(6);
    for (int i = 0; i < 2; ++i) {
        auto* button = new PushButton(popup, IndexedName(u"BtnAutoChangeChr", i), captions[i]);
        button->OnClick = WhenIdle(services_.session, [this, button] { InsertAtCaret(button->Caption()); });
        placeholders_[i] = button;
        grid->addWidget(button, i, 0);
        grid->addWidget(new Label(popup, IndexedName(u"Label15", i), notes[i]), i, 1);
    }
    grid->addWidget(BuildCloseButton(Placeholders, *popup), 2, 1, Qt::AlignRight);
}

void TemplateEditor::Clear()
{
    counter_->ShowNone();
    for (TextField* field : {static_cast<TextField*>(body_), static_cast<TextField*>(subject_)}) {
        field->PutText(QString());
        field->Tag.clear();
    }
    body_->SetFocus();
}

void TemplateEditor::RefreshSymbols()
{
    symbols_->SetReDraw(false);
    InitSymbolGrid(*symbols_);
    symbols_->SetReDraw(true);
}

void TemplateEditor::BtnFuncDocEditClick(int index)
{
    if (index == Rewrite) {
        Clear();
        return;
    }
    popups_[1 - index]->hide();
    popups_[index]->Open(PopupCorner);
    if (index == Symbols)
        symbols_->setFocus(Qt::OtherFocusReason);
    else
        placeholders_[0]->setFocus(Qt::OtherFocusReason);
}

void TemplateEditor::InsertAtCaret(const QString& piece)
{
    // A piece that no longer fits stays out: in its place the end of what was written would be lost.
    if (body_->Text().size() + piece.size() > BodyCharacters)
        return;
    // The selection is not replaced, and the caret goes to the end of the whole text: both are meant.
    body_->PutText(WithInsertion(body_->Text(), body_->SelStart(), piece));
    counter_->KeyUp(0, 0);
    body_->SetSelStart(static_cast<int>(body_->Text().size()));
    body_->SetFocus();
}

void TemplateEditor::InsertActiveSymbol()
{
    InsertAtCaret(GridHelper().GetCellText(*symbols_, symbols_->ActiveCol(), symbols_->ActiveRow()));
}

void TemplateEditor::SymbolKeyPress(int& key)
{
    if (key != '\r')
        return;
    key = 0;
    if (!services_.session.IsBusy())
        InsertActiveSymbol();
    counter_->KeyUp(0, 0);
    popups_[Symbols]->hide();
}

} // namespace tsms
