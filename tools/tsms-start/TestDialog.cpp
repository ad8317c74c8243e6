#include "tsms-start/TestDialog.h"

#include "runtime/DoEvents.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"
#include "toolkit/look/Pictures.h"
#include "toolkit/look/Theme.h"

#include <QItemSelectionModel>
#include <QVBoxLayout>

namespace tsms {

namespace {

enum TestColumn : int { TickColumn = 1, TitleColumn, VerdictColumn, TestColumnCount = VerdictColumn };

DialogFrame TestFrame(const SavedConnection& connection)
{
    DialogFrame frame;
    frame.name = QStringLiteral("TestDialog");
    frame.caption = QStringLiteral("연결 시험");
    frame.title = frame.caption;
    frame.titleLabel = QStringLiteral("lblTitle");
    frame.note =
        QStringLiteral("연결 \"%1\"을(를) 프로그램과 같은 방법으로 확인합니다.").arg(connection.name);
    frame.noteLabel = QStringLiteral("lblNote");
    frame.buttons = {QStringLiteral("다시 시험(F12)"), QStringLiteral("닫기(ESC)")};
    return frame;
}

QString VerdictWords(TestStep::Verdict verdict)
{
    switch (verdict) {
    case TestStep::Verdict::Good:
        return QStringLiteral("이상 없음");
    case TestStep::Verdict::Bad:
        return QStringLiteral("고쳐야 합니다");
    case TestStep::Verdict::NotSeen:
        break;
    }
    return QStringLiteral("아직 확인하지 못함");
}

} // namespace

TestDialog::TestDialog(StartServices& services, const SavedConnection& connection, const QString& password,
                       QWidget* owner)
    : DialogForm(services.session, services.desktop, TestFrame(connection), owner),
      test_(connection, password, services.clock, services.makeConnection, services.gateway)
{
    BuildList();
    BuildWords();
    ShowSteps();
}

void TestDialog::BuildList()
{
    constexpr QSize Room(520, 214);
    const GridHelper helper;
    list_ = Named(new fpSpread(&Body()), QStringLiteral("fpSpreadSteps"));
    DescribeBy(*list_, QStringLiteral("확인 목록"));
    helper.PrepareGrid(*list_);
    list_->setFixedSize(Room);
    list_->SetRowCursor(true);
    list_->SetSpaceClicks(false);
    list_->Cells().SetPictures(PlainCheckPictures());
    list_->SetRowHeight(0, 16);
    list_->SetRowHeight(SpreadModel::All, 16);
    list_->Cells().SetMaxCols(TestColumnCount);
    list_->Cells().SetType(TickColumn, SpreadModel::CellType::Picture);
    const std::pair<QString, double> columns[] = {
        {QStringLiteral("확인"), 6}, {QStringLiteral("항목"), 22}, {QStringLiteral("결과"), 22}};
    int col = 0;
    for (const auto& [title, width] : columns) {
        ++col;
        list_->Cells().SetText(col, 0, title);
        list_->SetColWidth(col, width);
    }
    helper.FormatColumn(*list_, TickColumn, 2);
    list_->SetFillWidth(true);
    BodyLayout().addWidget(list_);
    connect(list_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] { ShowWords(); });
}

void TestDialog::BuildWords()
{
    constexpr int WordsHeight = 170;
    words_ = new MemoBox(&Body(), QStringLiteral("txtWords"));
    words_->setReadOnly(true);
    words_->setFixedHeight(WordsHeight);
    DescribeBy(*words_, QStringLiteral("할 일"));
    BodyLayout().addWidget(words_);
}

void TestDialog::OnFirstActivation()
{
    Run();
}

void TestDialog::OnButton(int index)
{
    if (index == 0)
        Run();
    else
        DialogForm::OnButton(index);
}

void TestDialog::Run()
{
    SetBusy(true);
    test_.Run([this] {
        ShowSteps();
        DoEvents();
    });
    SetBusy(false);
    ChooseFirstFault();
}

void TestDialog::ShowSteps()
{
    const QList<TestStep>& steps = test_.Steps();
    list_->Cells().SetMaxRows(static_cast<int>(steps.size()));
    int row = 0;
    for (const TestStep& step : steps) {
        ++row;
        const bool isBad = step.verdict == TestStep::Verdict::Bad;
        list_->Cells().SetCellPicture(TickColumn, row,
                                      step.verdict == TestStep::Verdict::Good ? CheckTicked : CheckEmpty);
        list_->Cells().SetText(TitleColumn, row, step.title);
        list_->Cells().SetText(VerdictColumn, row, VerdictWords(step.verdict));
        list_->Cells().SetColors(VerdictColumn, row, {}, isBad ? theme::Warning : QColor());
    }
    ShowWords();
}

void TestDialog::ShowWords()
{
    const int at = list_->ActiveRow() - 1;
    const QList<TestStep>& steps = test_.Steps();
    if (at < 0 || at >= steps.size())
        return;
    const TestStep& step = steps[at];
    if (step.verdict == TestStep::Verdict::Bad)
        words_->SetText(step.words);
    else if (step.verdict == TestStep::Verdict::Good)
        words_->SetText(step.title + QStringLiteral(": 이상이 없습니다."));
    else
        words_->SetText(step.title + QStringLiteral(": 위의 것을 고친 다음에 확인할 수 있습니다."));
}

void TestDialog::ChooseFirstFault()
{
    int row = 0;
    for (const TestStep& step : test_.Steps()) {
        ++row;
        if (step.verdict != TestStep::Verdict::Bad)
            continue;
        list_->SetActiveCell(TitleColumn, row);
        break;
    }
    ShowWords();
}

} // namespace tsms
