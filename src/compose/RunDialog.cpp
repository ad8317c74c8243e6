#include "compose/RunDialog.h"

#include "services/Services.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/look/Theme.h"

#include <QGridLayout>
#include <QScopedValueRollback>
#include <QVBoxLayout>

namespace tsms {

namespace {

enum Number : std::size_t { Total, Succeeded, Failed, Remainder };

DialogFrame RunFrame(const QString& title, const QString& runCaption)
{
    DialogFrame frame;
    frame.name = QStringLiteral("MakeSMSTransport");
    frame.caption = title;
    frame.title = title;
    frame.titleLabel = QStringLiteral("lblTitle(1)");
    frame.buttonBase = QStringLiteral("BtnSendS");
    frame.buttons = {runCaption, QStringLiteral("취소(ESC)")};
    return frame;
}

/// From a colour value 0xBBGGRR.
QColor FromBlueGreenRed(unsigned value)
{
    return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
}

} // namespace

RunDialog::RunDialog(Services& services, const Words& words, std::int32_t total, QWidget* owner)
    : DialogForm(services.session, services.desktop, RunFrame(words.title, words.runCaption), owner),
      services_(services)
{
    BuildCounts(words.totalCaption);
    BuildProgress(words);
    ShowTotal(total);
}

void RunDialog::BuildCounts(const QString& totalCaption)
{
    const QStringList captions{totalCaption, QStringLiteral("성공 건수"), QStringLiteral("실패 건수"),
                               QStringLiteral("잔여 건수")};
    const std::array<QColor, 4> colors{theme::Text, FromBlueGreenRed(0xC00000), FromBlueGreenRed(0x0000FF),
                                       FromBlueGreenRed(0x363636)};
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(1, 1);
    for (int i = 0; i < captions.size(); ++i) {
        auto* number = new Label(&Body(), IndexedName(u"LblSendSMS", i), QStringLiteral("0"));
        number->SetTextColor(colors[static_cast<std::size_t>(i)]);
        number->SetBold(true);
        number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        numbers_[static_cast<std::size_t>(i)] = number;
        grid->addWidget(new Label(&Body(), IndexedName(u"Label1", i), captions[i]), i, 0);
        grid->addWidget(number, i, 1);
        grid->addWidget(new Label(&Body(), IndexedName(u"Label1", i + 4), QStringLiteral("건")), i, 2);
    }
    BodyLayout().addLayout(grid);
}

void RunDialog::BuildProgress(const Words& words)
{
    status_ = new Label(&Body(), QStringLiteral("lblStatus"), words.firstStatus);
    // The line has the width of its last words from the start: during the run it keeps its place.
    status_->setMinimumWidth(status_->fontMetrics().horizontalAdvance(words.lastStatus));
    bar_ = new ProgressBar(&Body(), QStringLiteral("PB"));
    DescribeBy(*bar_, QStringLiteral("진행상태"));
    bar_->SetMax(100);
    bar_->SetValue(0);
    BodyLayout().addWidget(status_);
    BodyLayout().addWidget(bar_);
}

void RunDialog::ShowTotal(std::int32_t total)
{
    numbers_[Total]->Tag = QString::number(total);
    numbers_[Total]->SetCaption(numbers_[Total]->Tag);
}

/// A failed row takes Busy away from the run, and a press that comes from no key and no mouse, as a screen
/// reader's does, is kept back by no box: nothing else begins from the first press to the last box.
bool RunDialog::IsBusy() const
{
    return running_ || !IsLoaded() || DialogForm::IsBusy();
}

void RunDialog::OnButton(int index)
{
    if (index != 0) {
        Unload();
        return;
    }
    const QScopedValueRollback running(running_, true);
    Run();
}

void RunDialog::SetRunBusy(bool busy)
{
    SetBusy(busy);
    SetUsable(!busy);
    if (!busy)
        return;
    // They change with each row: on a ground of their own and in a fixed place that draws nothing else anew.
    for (Label* label : {numbers_[Succeeded], numbers_[Failed], status_}) {
        label->SetBackColor(theme::Page);
        label->KeepSize();
    }
}

void RunDialog::SetBarMaximum(int maximum)
{
    bar_->SetMax(maximum);
}

void RunDialog::SetBarValue(int value)
{
    bar_->SetValue(value);
    if (value > 0)          // the beginning is drawn while the run connects
        status_->Refresh(); // the last thing of a row: all that has changed is drawn in one go
}

void RunDialog::ShowCounts(const QString& succeeded, const QString& failed)
{
    numbers_[Succeeded]->SetCaption(succeeded);
    numbers_[Failed]->SetCaption(failed);
}

void RunDialog::ShowStatus(const QString& text)
{
    status_->SetCaption(text);
}

} // namespace tsms
