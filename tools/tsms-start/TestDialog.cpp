#include "tsms-start/TestDialog.h"

#include "toolkit/fields/Controls.h"
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

const QString TestAgain = QStringLiteral("다시 시험(F12)");
const QString StopTest = QStringLiteral("멈춤(F12)");

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
    frame.buttons = {TestAgain, QStringLiteral("닫기(ESC)")};
    return frame;
}

QString VerdictWords(TestStep::Verdict verdict)
{
    switch (verdict) {
    case TestStep::Verdict::Good:
        return QStringLiteral("이상 없음");
    case TestStep::Verdict::Bad:
        return QStringLiteral("고쳐야 합니다");
    case TestStep::Verdict::Trying:
        return QStringLiteral("확인하는 중…");
    case TestStep::Verdict::NotSeen:
        break;
    }
    return QStringLiteral("아직 확인하지 못함");
}

} // namespace

TestDialog::TestDialog(StartServices& services, const SavedConnection& connection, const QString& password,
                       QWidget* owner)
    : DialogForm(services.session, services.desktop, TestFrame(connection), owner),
      services_(services),
      connection_(connection),
      password_(password)
{
    BuildList();
    BuildWords();
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
    auto* backing = new FieldPanel(&Body(), QStringLiteral("PLtxtWords"));
    words_ = new MemoBox(backing, QStringLiteral("txtWords"));
    words_->setReadOnly(true);
    DescribeBy(*words_, QStringLiteral("할 일"));
    backing->Hold(*words_);
    backing->setFixedHeight(WordsHeight);
    BodyLayout().addWidget(backing);
}

void TestDialog::OnFirstActivation()
{
    Run();
}

void TestDialog::OnButton(int index)
{
    if (index != 0)
        DialogForm::OnButton(index);
    else if (work_.IsRunning())
        Stop();
    else
        Run();
}

void TestDialog::Run()
{
    const auto test = std::make_shared<ConnectionTest>(connection_, password_, services_.clock,
                                                       services_.makeConnection, services_.gateway);
    const auto run = [this, test](const BackgroundWork::Line& line) {
        test->Run([&] { line.Say([this, steps = test->Steps()] { ShowSteps(steps); }); });
    };
    ShowRunning(true);
    work_.Begin(run, [this](const std::exception_ptr& fault) { End(fault); });
}

void TestDialog::End(const std::exception_ptr& fault)
{
    if (fault) {
        ShowStopped();
        std::rethrow_exception(fault);
    }
    ShowRunning(false);
    ChooseFirstFault();
}

void TestDialog::Stop()
{
    work_.GiveUp();
    ShowStopped();
}

void TestDialog::ShowStopped()
{
    stopped_ = true;
    for (TestStep& step : steps_)
        if (step.verdict == TestStep::Verdict::Trying)
            step.verdict = TestStep::Verdict::NotSeen;
    ShowRunning(false);
    ShowSteps(steps_);
}

void TestDialog::ShowRunning(bool running)
{
    if (running)
        stopped_ = false;
    Button(0)->SetCaption(running ? StopTest : TestAgain);
}

void TestDialog::ShowSteps(const QList<TestStep>& steps)
{
    steps_ = steps;
    list_->Cells().SetMaxRows(static_cast<int>(steps_.size()));
    int row = 0;
    for (const TestStep& step : std::as_const(steps_)) {
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
    if (at >= 0 && at < steps_.size())
        words_->SetText(WordsOf(steps_[at]));
}

QString TestDialog::WordsOf(const TestStep& step) const
{
    switch (step.verdict) {
    case TestStep::Verdict::Bad:
        return step.words;
    case TestStep::Verdict::Good:
        return step.title + QStringLiteral(": 이상이 없습니다.");
    case TestStep::Verdict::Trying:
        return step.title + QStringLiteral(": 확인하고 있습니다. 대답이 없으면 \"멈춤\"을 누르십시오.");
    case TestStep::Verdict::NotSeen:
        break;
    }
    return step.title + (stopped_ ? QStringLiteral(": 확인하기 전에 멈추었습니다.")
                                  : QStringLiteral(": 위의 것을 고친 다음에 확인할 수 있습니다."));
}

void TestDialog::ChooseFirstFault()
{
    int row = 0;
    for (const TestStep& step : std::as_const(steps_)) {
        ++row;
        if (step.verdict != TestStep::Verdict::Bad)
            continue;
        list_->SetActiveCell(TitleColumn, row);
        break;
    }
    ShowWords();
}

} // namespace tsms
