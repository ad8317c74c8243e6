#include "addressbook/MakeSMSExcel.h"

#include "addressbook/ImportRows.h"
#include "addressbook/SheetOperations.h"
#include "recipients/RecipientList.h"
#include "runtime/CellSource.h"
#include "runtime/Desktop.h"
#include "runtime/RuntimeError.h"
#include "runtime/ScreenPace.h"
#include "runtime/Text.h"
#include "services/ScreenBusy.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"
#include "toolkit/grid/RowsOnView.h"
#include "toolkit/look/Theme.h"

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QScopeGuard>
#include <QStyle>
#include <QStylePainter>
#include <QToolTip>
#include <QVBoxLayout>

#include <utility>

namespace tsms {

namespace {

enum SheetColumnNumber : int { SheetName = 1, SheetPhone = 2, SheetThird = 3, SheetColumns = 3 };

constexpr int SheetRowsOnView = 6;
constexpr int LeastSheetRows = 2; // on a small screen

DialogFrame ImportFrame()
{
    DialogFrame frame;
    frame.name = QStringLiteral("MakeSMSExcel");
    frame.caption = QStringLiteral("문자메시지 엑셀 가져오기");
    frame.title = frame.caption;
    frame.titleLabel = QStringLiteral("lblTitle1(1)");
    frame.note = QStringLiteral("엑셀파일(*.xls)에 있는 데이터를 전송대상에 포함합니다.");
    frame.noteLabel = QStringLiteral("lblTitle1(0)");
    frame.buttons = {QString(), QStringLiteral("취소(ESC)")};
    frame.f12RunsButton0 = false;
    return frame;
}

void InitImportGrid(fpSpread& grid)
{
    GridHelper().SetUpList(grid, 15, 14,
                           {{QStringLiteral("수신자명"), 15},
                            {QStringLiteral("수신 휴대번호"), 15},
                            {QStringLiteral("휴대번호 점검결과"), 34.5}});
}

/// Room for all columns and some rows.
void FixSize(fpSpread& grid)
{
    int width = 2 * grid.frameWidth() + grid.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    for (int col = 0; col < grid.Cells().MaxCols(); ++col)
        width += grid.columnWidth(col);
    grid.setFixedWidth(width);
    ShowRows(grid, SheetRowsOnView);
}

/// A path on a ground of its own; one that is too long shows its beginning and its end, and all of it in the
/// tool tip.
class PathLabel final : public Label
{
public:
    PathLabel(QWidget* parent, const QString& name) : Label(parent, name)
    {
        SetBackColor(theme::Ground);
        setContentsMargins(6, 4, 6, 4);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QStylePainter(this).drawItemText(contentsRect(),
                                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, palette(),
                                         isEnabled(), Shown(), QPalette::WindowText);
    }
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::ToolTip)
            return Label::event(event);
        QToolTip::showText(
            static_cast<QHelpEvent*>(event)->globalPos(),
            Shown() == text() ? QString() : QStringLiteral("<qt>%1</qt>").arg(text().toHtmlEscaped()), this);
        return true;
    }

private:
    QString Shown() const
    {
        return fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
    }
};

} // namespace

MakeSMSExcel::MakeSMSExcel(Services& services, RecipientList& recipients, QWidget* owner)
    : DialogForm(services.session, services.desktop, ImportFrame(), owner),
      services_(services),
      recipients_(recipients)
{
    BuildFile();
    BuildNotes();
    BuildResult();
    Load();
}

void MakeSMSExcel::GiveHeight(int pixels)
{
    ShowRows(*sheet_, SheetRowsOnView, pixels, LeastSheetRows);
}

void MakeSMSExcel::BuildFile()
{
    auto* heading = new Label(&Body(), IndexedName(u"Label1", 0), QStringLiteral("엑셀파일 가져오기"));
    heading->SetBold(true);
    path_ = new PathLabel(&Body(), QStringLiteral("PlExcelPath"));
    search_ = new PushButton(&Body(), QStringLiteral("cmdSearch"), QStringLiteral("찾기"),
                             PushButton::Look::Primary);
    search_->OnClick = [this] { cmdSearchClick(); };
    sheets_ = new ComboBox(&Body(), QStringLiteral("CbExcelSheet"));
    DescribeBy(*sheets_, QStringLiteral("시트"));
    sheets_->setMinimumContentsLength(14);
    sheets_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(new Label(&Body(), IndexedName(u"Label1", 1), QStringLiteral("엑셀파일")));
    row->addWidget(path_, 1);
    row->addWidget(search_);
    row->addWidget(sheets_);
    BodyLayout().addWidget(heading);
    BodyLayout().addLayout(row);
}

void MakeSMSExcel::BuildNotes()
{
    const QStringList notes{
        QStringLiteral("▒  엑셀파일(*.xls) 불러오기 양식 설정입니다."),
        QStringLiteral("▒  A셀 : 이름, B셀 :  전화번호순으로 지정하셔야 합니다."),
        QStringLiteral("▒  첫번째 행부터 가지고 옵니다. (제목 필요없음!)"),
        QStringLiteral("▒  여러개의 Sheet일 경우 첫번째 Sheet를 가지고 옵니다."),
        QStringLiteral("▒  최대 6만 6천건까지 엑셀파일 불러오기를 제공합니다."),
    };
    BodyLayout().addWidget(MakeNotes(Body(), QStringLiteral("PlNotes"), u"Label3", notes));
}

void MakeSMSExcel::BuildResult()
{
    auto* heading = new Label(&Body(), IndexedName(u"Label1", 2), QStringLiteral("처리결과"));
    heading->SetBold(true);
    sheet_ = Named(new fpSpread(&Body()), QStringLiteral("TEMPfpSpread"));
    DescribeBy(*sheet_, heading->Caption());
    const auto makeCount = [this](const QString& name, const QColor& color) {
        auto* count = new Label(&Body(), name, ImportCount(0));
        count->SetTextColor(color);
        count->SetBold(true);
        return count;
    };
    goodCount_ = makeCount(QStringLiteral("LblTotalCnt"), theme::Accent);
    loseCount_ = makeCount(QStringLiteral("LblLoseCnt"), theme::Warning);
    auto* counts = new QHBoxLayout;
    counts->setSpacing(8);
    counts->addWidget(
        new Label(&Body(), IndexedName(u"Label2", 0), QStringLiteral("정상 발송이 가능한 건수")));
    counts->addWidget(goodCount_, 1);
    counts->addWidget(
        new Label(&Body(), IndexedName(u"Label2", 1), QStringLiteral("휴대번호 오류로 인한 누락건수")));
    counts->addWidget(loseCount_, 1);
    progress_ = new Label(&Body(), QStringLiteral("lblCountNm"), QStringLiteral("진행상태"));
    bar_ = new ProgressBar(&Body(), QStringLiteral("PB"));
    DescribeBy(*bar_, QStringLiteral("진행상태"));
    BodyLayout().addWidget(heading);
    BodyLayout().addWidget(sheet_);
    BodyLayout().addLayout(counts);
    BodyLayout().addWidget(progress_);
    BodyLayout().addWidget(bar_);
}

void MakeSMSExcel::Load()
{
    SetBusy(true);
    InitImportGrid(*sheet_);
    FixSize(*sheet_);
    bar_->SetMax(100);
    bar_->SetValue(100);
    SetBusy(false);
}

void MakeSMSExcel::cmdSearchClick()
{
    WithHandler(
        [this] {
            if (IsBusy())
                return;
            path_->SetCaption(
                services_.desktop.PickFile(QStringLiteral("문자메세지 대상 엑셀(EXCEL)파일 선택"),
                                           QStringLiteral("엑셀파일 (*.xls)|*.xls")));
            if (!IsBlank(path_->Caption()))
                Import(path_->Caption());
        },
        [this] { SetRunBusy(false); }); // and no word
}

void MakeSMSExcel::Import(const QString& path)
{
    SetRunBusy(true);
    SheetOperations operations(services_.clock, SheetColumns);
    ListSheets(operations, path);
    ReadSheet(operations);
    const std::int32_t total = FindEnd();
    if (total >= 1)
        TakeRows(total);
    SetRunBusy(false);
    services_.desktop.MsgBox(QStringLiteral("엑셀 추출완료 : 엑셀데이터 정상적으로 가져왔습니다."),
                             MsgBoxInformation, QStringLiteral("엑셀데이터 완료!!!"));
    Unload();
}

/// The results of the operations are not looked at.
void MakeSMSExcel::ListSheets(SheetOperations& operations, const QString& path)
{
    // Meant: without a separator the file lies beside the application's folder and begins with its name.
    const QString log = services_.applicationPath + QStringLiteral("log.txt");
    SheetNames names;
    std::int16_t count = 0;
    operations.GetSheetList(path, names, count, log, true);
    if (count - 1 > 1) {
        names.Resize(count);
        operations.GetSheetList(path, names, count, services_.applicationPath + QStringLiteral("/log.txt"),
                                false);
    }
    sheets_->Clear();
    for (int i = 0; i < count; ++i)
        sheets_->AddItem(names.At(i)); // meant: with one or two sheets the run ends here
    if (sheets_->ListCount() == 0)
        throw RuntimeError(InvalidPropertyValue); // an empty list has no first entry to select
    sheets_->SetListIndex(0);
    operations.GetSheetList(path, names, count, log, true);
}

void MakeSMSExcel::ReadSheet(const SheetOperations& operations)
{
    const std::shared_ptr<const CellSource> cells = operations.ImportSheet(sheets_->Text());
    if (!cells)
        return;
    sheet_->Cells().SetMaxRows(cells->Rows());
    sheet_->SetDataSource(cells);
}

/// The first row without a name ends the data; what follows is dropped.
std::int32_t MakeSMSExcel::FindEnd()
{
    std::int32_t total = 0;
    for (int i = 1; i <= sheet_->Cells().MaxRows(); ++i) {
        if (IsBlank(SheetText(SheetName, i))) {
            total = i - 1;
            sheet_->Cells().SetMaxRows(total);
            break;
        }
        total = sheet_->Cells().MaxRows();
    }
    return total;
}

void MakeSMSExcel::TakeRows(std::int32_t total)
{
    sheet_->Cells().SetMaxRows(total);
    recipients_.InOneGo([&] { // nobody sees the list before the end
        recipients_.Reset();
        recipients_.Resize(0);
        recipients_.Resize(total);
        bar_->SetMax(total);
        const Counts counts = JudgeRows(total);
        recipients_.Resize(counts.good.Value());
        sheet_->Cells().SetMaxRows(counts.good.Value());
    });
}

/// Draws each row that the screen could show. The last one that was done, also where a count overflows, is
/// drawn by the event loop, to which the import returns at once or in its box.
MakeSMSExcel::Counts MakeSMSExcel::JudgeRows(std::int32_t total)
{
    Counts counts;
    int row = 0;
    const auto showLast = qScopeGuard([&] { ShowProgress(total, row, counts); });
    constexpr int rowsBetweenLooks = 32; // at the clock: a look takes as long as some rows
    ScreenPace pace;
    pace.IsDue(); // it begins now: the start of the run has just been drawn
    while (row < sheet_->Cells().MaxRows()) {
        TakeRow(row + 1, counts);
        ++row;
        if (row % rowsBetweenLooks == 0 && pace.IsDue()) {
            ShowProgress(total, row, counts);
            goodCount_->Refresh(); // and with it whatever else has changed
        }
    }
    return counts;
}

void MakeSMSExcel::TakeRow(int row, Counts& counts)
{
    QString name = SheetText(SheetName, row);
    QString phone = SheetText(SheetPhone, row);
    switch (JudgeImportRow(name, phone)) {
    case ImportVerdict::Good:
        WriteGoodRow(row, std::move(name), std::move(phone), counts);
        break;
    case ImportVerdict::Lost:
        ++counts.lose;
        break;
    case ImportVerdict::Blank:
        break;
    }
}

void MakeSMSExcel::WriteGoodRow(int row, QString name, QString phone, Counts& counts)
{
    ++counts.good; // where it overflows, the row is not written
    const int to = counts.good.Value();
    recipients_.WriteRunningNumber(to, TwoDigits(to));
    recipients_.Write(to, Trim(std::move(name)), Trim(std::move(phone)));
    recipients_.WriteThirdValue(to, Trim(SheetText(SheetThird, row)));
}

void MakeSMSExcel::ShowProgress(std::int32_t total, int row, const Counts& counts)
{
    goodCount_->SetCaption(ImportCount(counts.good.Value()));
    loseCount_->SetCaption(ImportCount(counts.lose.Value()));
    progress_->SetCaption(ImportProgress(total, row));
    bar_->SetValue(row);
}

void MakeSMSExcel::SetRunBusy(bool busy)
{
    SetScreenBusy(services_, busy);
    search_->setEnabled(!busy);
    SetUsable(!busy);
    if (!busy)
        return;
    // They change with each row: on a ground of their own and in a fixed place that draws nothing else anew.
    for (Label* label : {goodCount_, loseCount_, progress_}) {
        label->SetBackColor(theme::Page);
        label->KeepSize();
    }
}

QString MakeSMSExcel::SheetText(int column, int row) const
{
    return GridHelper().GetCellText(*sheet_, column, row);
}

} // namespace tsms
