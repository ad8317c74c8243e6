#include "bench/ChildProcess.h"
#include "bench/Measure.h"

#include "runtime/Clock.h"
#include "store/embedded/EmbeddedTables.h"
#include "tsms-db/Demo.h"

#include <QCoreApplication>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <fcntl.h>
#include <unistd.h>

namespace tsms::bench {

namespace {

constexpr int Starts = 11;
constexpr int ColdStarts = 5;
constexpr double DemandedOffscreen = 2;
constexpr double DemandedOnScreen = 1.5; // where the empty window takes longer, too

/// Takes a file out of the system's cache, but for what other running programs have mapped of it.
void Forget(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;                 // gone since
    ::fdatasync(file.handle()); // what is not written yet would stay
    ::posix_fadvise(file.handle(), 0, 0, POSIX_FADV_DONTNEED);
}

/// A program that ends with its first painted window, or with its answer to a key.
class Program
{
public:
    explicit Program(QString name, QStringList arguments = {})
        : name_(std::move(name)), arguments_(std::move(arguments))
    {
    }

    /// From the start of its process to its first painted window.
    Cost Start()
    {
        const ChildReport report = Run();
        return {static_cast<double>(report.words[0].toLongLong() - report.started), report.words[1].toLong()};
    }

    /// The same with the files that it maps out of the system's cache.
    Cost StartCold()
    {
        if (files_.isEmpty())
            FindFiles();
        for (const QString& file : std::as_const(files_))
            Forget(file);
        return Start();
    }

    /// From a key to its painted answer.
    Cost AnswerKey()
    {
        qputenv("TSMS_BENCH_KEY", "1");
        const ChildReport report = Run();
        qunsetenv("TSMS_BENCH_KEY");
        return {report.words[4].toDouble()};
    }

    /// Of its window.
    const QByteArrayList& Size() const { return size_; }

private:
    ChildReport Run()
    {
        const ChildReport report =
            RunChild(QCoreApplication::applicationDirPath() + u'/' + name_, arguments_, 5);
        size_ = report.words.sliced(2, 2);
        return report;
    }

    void FindFiles()
    {
        const QTemporaryDir folder;
        const QString maps = folder.filePath(QStringLiteral("maps"));
        qputenv("TSMS_BENCH_MAPS", QFile::encodeName(maps));
        Run();
        qunsetenv("TSMS_BENCH_MAPS");
        QFile file(maps);
        Demand(file.open(QIODevice::ReadOnly), "bench_launch: a program did not tell what it maps");
        const QList<QByteArray> lines = file.readAll().split('\n');
        for (const QByteArray& line : lines)
            if (const qsizetype path = line.indexOf('/'); path >= 0)
                files_ += QFile::decodeName(line.sliced(path));
        Demand(!files_.isEmpty(), "bench_launch: a program maps no file");
    }

    QString name_;
    QStringList arguments_;
    QByteArrayList size_;
    QSet<QString> files_;
};

void MakeDemo(const QString& path)
{
    const SystemClock clock;
    const YearRange years;
    CreateEmbeddedDatabase(path, years, clock,
                           [&](Connection& connection) { FillDemo(connection, clock.Now(), years); });
}

/// Both starts on one platform of the toolkit.
void CompareOn(Program& program, const QByteArray& platform, double limit)
{
    qputenv("QT_QPA_PLATFORM", platform); // the processes inherit it
    Program empty(QStringLiteral("bench_launch_empty"));
    const auto sameSize = [&] {
        Demand(program.Size() == empty.Size(), "bench_launch: the first windows are not of one size");
    };
    const std::string size = "demo database, " + platform.toStdString();
    Compare(
        {.what = "start to first painted window", .size = size, .rounds = Starts, .limit = limit},
        [&] { return program.Start(); }, [&] { return empty.Start(); }, sameSize);
    Program words(QStringLiteral("bench_launch_empty"), {QStringLiteral("문자메시지")});
    Compare(
        {.what = "start, beside a window with one word", .size = size, .rounds = Starts},
        [&] { return program.Start(); }, [&] { return words.Start(); });
    Compare(
        {.what = "cold start", .size = size, .rounds = ColdStarts, .warmUp = false},
        [&] { return program.StartCold(); }, [&] { return empty.StartCold(); }, sameSize);
}

/// Offscreen, where a window has the keyboard at once; on a bare X server nobody gives it to it.
void CompareKey(Program& program)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Program field(QStringLiteral("bench_launch_field"));
    Compare(
        {.what = "first key's answer", .size = "demo database, offscreen", .rounds = Starts},
        [&] { return program.AnswerKey(); }, [&] { return field.AnswerKey(); });
}

} // namespace

} // namespace tsms::bench

int main(int argc, char** argv)
{
    using namespace tsms::bench;
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString database = folder.filePath(QStringLiteral("demo.db"));
    MakeDemo(database);
    Program program(QStringLiteral("bench_launch_program"),
                    {database + QStringLiteral("■(embedded)■0■demo■demo■1■demo")});
    CompareOn(program, "offscreen", DemandedOffscreen);
    if (qEnvironmentVariableIsSet("DISPLAY"))
        CompareOn(program, "xcb", DemandedOnScreen);
    CompareKey(program);
    PrintNote("start: the empty window shows no text");
    return 0;
}
