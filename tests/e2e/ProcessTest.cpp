// The real program as a process: how it ends where there is no display, no reader, no room and no order.

#include "support/Words.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using namespace tsms::test;

namespace {

constexpr int LongEnough = 20000; // milliseconds, on a busy machine

const QString NoDisplay =
    u"tsms: 화면에 연결할 수 없어 프로그램을 시작하지 못했습니다. 그래픽 화면에서 실행하거나 환경변수 "
    u"DISPLAY, WAYLAND_DISPLAY, QT_QPA_PLATFORM을 확인하여 주십시오.\n"_q;

/// A start of the program without a display, and its end.
class Start
{
public:
    Start()
    {
        for (const QString& name : {u"DISPLAY"_q, u"WAYLAND_DISPLAY"_q, u"QT_QPA_PLATFORM"_q})
            environment_.remove(name);
    }
    Start& With(const QString& name, const QString& value)
    {
        environment_.insert(name, value);
        return *this;
    }
    /// Runs `prepare` in the process before it becomes the program.
    Start& Prepared(std::function<void()> prepare)
    {
        process_.setChildProcessModifier(std::move(prepare));
        return *this;
    }
    /// Its exit status, or -1 for any other end.
    int Status()
    {
        process_.setProcessEnvironment(environment_);
        process_.start(QStringLiteral(TSMS_PROGRAM), {u"a■b■c■d■s3cret-word■1"_q});
        const bool ended = process_.waitForFinished(LongEnough);
        return ended && process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
    }
    QString Words() { return QString::fromUtf8(process_.readAllStandardError()); }

private:
    QProcess process_;
    QProcessEnvironment environment_ = QProcessEnvironment::systemEnvironment();
};

TEST(Process, WithoutADisplayItEndsInOrderAndSaysSo)
{
    Start start;
    EXPECT_EQ(start.Status(), 1);
    EXPECT_TRUE(start.Words().endsWith(NoDisplay)) << start.Words().toStdString();
}

TEST(Process, WithADisplayThatIsNotThereItEndsInOrderAndSaysSo)
{
    for (const QString& platform : {u"xcb"_q, u"wayland"_q, u"none-such"_q}) {
        Start start;
        start.With(u"DISPLAY"_q, u":4711"_q).With(u"WAYLAND_DISPLAY"_q, u"none-such"_q);
        EXPECT_EQ(start.With(u"QT_QPA_PLATFORM"_q, platform).Status(), 1) << platform.toStdString();
        const QString words = start.Words();
        EXPECT_TRUE(words.endsWith(NoDisplay)) << words.toStdString();
        EXPECT_FALSE(words.contains(u"s3cret-word"_q));
    }
}

TEST(Process, WithNobodyToReadItsWordsItEndsInOrder)
{
    EXPECT_EQ(Start().Prepared([] { ::close(STDERR_FILENO); }).Status(), 1);
    const auto toBrokenPipe = [] {
        int ends[2] = {};
        (void)!::pipe(ends);
        ::close(ends[0]);
        ::dup2(ends[1], STDERR_FILENO);
    };
    EXPECT_EQ(Start().Prepared(toBrokenPipe).Status(), 1);
}

TEST(Process, WithNoRoomForItsWordsItEndsInOrder)
{
    const auto toFullFile = [] {
        const rlimit none{0, 0};
        ::setrlimit(RLIMIT_FSIZE, &none);
        ::dup2(::fileno(std::tmpfile()), STDERR_FILENO);
    };
    EXPECT_EQ(Start().Prepared(toFullFile).Status(), 1);
}

/// Runs a program in a folder where cores are kept. Answers how it ended, in the words of wait(2).
int EndWhereCoresAreKept(const std::vector<const char*>& command, const std::function<void(pid_t)>& meanwhile)
{
    const QTemporaryDir folder;
    const QByteArray place = folder.path().toLocal8Bit();
    const pid_t process = ::fork();
    if (process == 0) {
        rlimit cores{};
        ::getrlimit(RLIMIT_CORE, &cores);
        cores.rlim_cur = cores.rlim_max;
        ::setrlimit(RLIMIT_CORE, &cores);
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        if (::chdir(place.constData()) == 0)
            ::execv(command.front(), const_cast<char**>(command.data()));
        ::_exit(127);
    }
    meanwhile(process);
    int end = 0;
    ::waitpid(process, &end, 0);
    return end;
}

bool HasTakenItsLine(pid_t process)
{
    QFile line(u"/proc/%1/cmdline"_q.arg(process));
    const QByteArray words = line.open(QIODevice::ReadOnly) ? line.readAll() : QByteArray();
    const QByteArray program = QByteArrayLiteral(TSMS_PROGRAM) + '\0'; // and not the test of nearly that name
    return words.startsWith(program) && !words.contains("s3cret-word");
}

/// False where the system keeps no cores at all.
bool CoresAreKept()
{
    return WCOREDUMP(
        EndWhereCoresAreKept({"/bin/sh", "-c", "kill -ABRT $$", nullptr}, [](pid_t) { /* by itself */ }));
}

/// Whether it has come to its windows. Nobody but root may see that of a program that keeps to itself.
bool HasCome(pid_t process)
{
    QFile maps(u"/proc/%1/maps"_q.arg(process));
    return !maps.open(QIODevice::ReadOnly) || maps.readAll().contains("libqoffscreen");
}

TEST(Process, OfTheStarterKeepsNoCoreOfItsSecrets)
{
    if (!CoresAreKept())
        GTEST_SKIP() << "this system keeps no cores at all";
    const int end = EndWhereCoresAreKept({TSMS_START_PROGRAM, nullptr}, [](pid_t process) {
        for (int waited = 0; waited < LongEnough && !HasCome(process); waited += 10)
            QThread::msleep(10);
        EXPECT_TRUE(HasCome(process));
        ::kill(process, SIGABRT);
    });
    EXPECT_TRUE(WIFSIGNALED(end));
    EXPECT_EQ(WTERMSIG(end), SIGABRT);
    EXPECT_FALSE(WCOREDUMP(end));
}

TEST(Process, KeepsNoCoreOfItsSecrets)
{
    if (!CoresAreKept())
        GTEST_SKIP() << "this system keeps no cores at all";
    const int end = EndWhereCoresAreKept({TSMS_PROGRAM, "a■b■c■d■s3cret-word■1", nullptr}, [](pid_t process) {
        for (int waited = 0; waited < LongEnough && !HasTakenItsLine(process); waited += 10)
            QThread::msleep(10);
        EXPECT_TRUE(HasTakenItsLine(process));
        ::kill(process, SIGABRT);
    });
    EXPECT_TRUE(WIFSIGNALED(end));
    EXPECT_EQ(WTERMSIG(end), SIGABRT);
    EXPECT_FALSE(WCOREDUMP(end));
}

} // namespace
