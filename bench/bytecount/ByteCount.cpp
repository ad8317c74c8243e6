#include "bench/Measure.h"
#include "bench/ProgramDesk.h"

#include "compose/MessageCounter.h"
#include "runtime/CodePage949.h"
#include "toolkit/fields/LimitRule.h"
#include "toolkit/fields/MemoBox.h"

#include <QKeyEvent>
#include <QVBoxLayout>

namespace tsms::bench {

namespace {

constexpr int Limit = 80; // bytes
constexpr int Rounds = 21;
constexpr double DemandedRatio = 0.1;

/// Keys that go into a field, each with press and release.
struct Typing
{
    std::string what;
    QString before; ///< what the field holds at first
    QString keys;
    bool eachAnew; ///< it holds `before` again ahead of each key
};

/// What one key costs, in nanoseconds.
struct KeyCost
{
    double whole;    ///< from its press until all that follows is done, the painting too
    double handlers; ///< of that, in what counts and limits
};

/// Adds the time of its own life to a sum.
class Stopwatch
{
public:
    explicit Stopwatch(std::int64_t& sum) : sum_(sum), from_(Nanoseconds()) {}
    ~Stopwatch() { sum_ += Nanoseconds() - from_; }
    Stopwatch(const Stopwatch&) = delete;
    Stopwatch& operator=(const Stopwatch&) = delete;

private:
    std::int64_t& sum_;
    std::int64_t from_;
};

void PressKey(QWidget& field, QChar key)
{
    const int code = key.unicode() < 0x80 ? key.toUpper().unicode() : 0;
    QKeyEvent press(QEvent::KeyPress, code, Qt::NoModifier, QString(key));
    QApplication::sendEvent(&field, &press);
    QKeyEvent release(QEvent::KeyRelease, code, Qt::NoModifier, QString(key));
    QApplication::sendEvent(&field, &release);
    QApplication::processEvents();
}

void Refill(QPlainTextEdit& field, const QString& text)
{
    field.setPlainText(text);
    field.moveCursor(QTextCursor::End);
    QApplication::processEvents();
}

/// A window as large as the message field's surroundings, with a field in it. `inHandlers` is the time that
/// the field's handlers have taken so far.
class FieldWindow
{
public:
    QPlainTextEdit* field = nullptr;
    std::int64_t inHandlers = 0;

    KeyCost Type(const Typing& typing)
    {
        window_.activateWindow();
        field->setFocus();
        Refill(*field, typing.before);
        std::int64_t whole = 0;
        std::int64_t handlers = 0;
        for (const QChar key : typing.keys) {
            if (typing.eachAnew)
                Refill(*field, typing.before);
            const std::int64_t handlersBefore = inHandlers;
            {
                const Stopwatch watch(whole);
                PressKey(*field, key);
            }
            handlers += inHandlers - handlersBefore;
        }
        const auto keys = static_cast<double>(typing.keys.size());
        return {static_cast<double>(whole) / keys, static_cast<double>(handlers) / keys};
    }

protected:
    void Show(QWidget* below)
    {
        auto* column = new QVBoxLayout(&window_);
        column->addWidget(field);
        if (below)
            column->addWidget(below);
        window_.resize(276, 190);
        window_.show();
    }

    QWidget window_;
};

/// What the toolkit itself does with a key.
class BareField : public FieldWindow
{
public:
    BareField()
    {
        field = new QPlainTextEdit(&window_);
        Show(nullptr);
    }
};

/// The message field as it stands on its page, its counting and its limit under the stopwatch.
class LimitedField : public FieldWindow
{
public:
    LimitedField()
    {
        auto* memo = new MemoBox(&window_, QStringLiteral("TxtPerSendMsg"));
        auto* counter = new MessageCounter(*memo, {BytesMeasure, Limit}, QStringLiteral("LblPerSendMsg"),
                                           QStringLiteral("LblPerSendCnt"), &window_);
        memo->SetByteLimit(Limit);
        // The field has just held the change to its limit: once more, to be measured.
        memo->OnChange = [this, memo, before = QString()]() mutable {
            const Stopwatch watch(inHandlers);
            FieldLimits limits;
            limits.bytes = Limit;
            before = Admit(before, {memo->Text(), memo->SelStart()}, limits, false).text;
        };
        memo->OnKeyUp = [this, counter](int key, int shift) {
            const Stopwatch watch(inHandlers);
            counter->KeyUp(key, shift);
        };
        field = memo;
        Show(counter);
    }
};

QList<Typing> Typings()
{
    const QString latin = QStringLiteral("The choir meets on Sunday at 2 pm; ").repeated(3);
    const QString korean = QStringLiteral("이번주일오후에모임이있으니꼭참석하여주십시오").repeated(3);
    const QString fullLatin = latin.first(Limit);
    const QString fullKorean = korean.first(Limit / 2);
    return {{"80 Latin keys into an empty field", {}, fullLatin, false},
            {"40 Korean keys into an empty field", {}, fullKorean, false},
            {"Latin keys refused by a full field", fullLatin, fullLatin, true},
            {"Korean keys refused by a full field", fullKorean, fullKorean, true}};
}

void CompareTyping(const Typing& typing, BareField& bare, LimitedField& limited)
{
    const Comparison comparison{
        .what = "count and limit, per key", .size = typing.what, .rounds = Rounds, .limit = DemandedRatio};
    const std::vector<Cost> medians = RunInTurn(
        comparison,
        {[&] { return Cost{limited.Type(typing).handlers}; },
         [&] { return Cost{limited.Type(typing).whole}; }, [&] { return Cost{bare.Type(typing).whole}; }},
        [&] {
            Demand(MessageBytes(limited.field->toPlainText()) == Limit,
                   "bench_bytecount: the field does not hold its limit");
        });
    const int rounds = RoundsOf(comparison);
    PrintRow(comparison.what, comparison.size, {medians[0], medians[2], rounds}, comparison.limit);
    PrintRow("whole key, for comparison", comparison.size, {medians[1], medians[2], rounds}, NoLimit);
}

void CompareAll()
{
    BareField bare;
    LimitedField limited;
    for (const Typing& typing : Typings())
        CompareTyping(typing, bare, limited);
    PrintNote("byte count: in one process, peak memory " + std::to_string(PeakMemory() / 1024) + " MiB");
}

} // namespace

} // namespace tsms::bench

int main()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const tsms::bench::ThemedApplication application;
    tsms::bench::CompareAll();
    return 0;
}
