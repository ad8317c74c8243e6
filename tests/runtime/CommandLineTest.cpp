#include "runtime/CommandLine.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

#include <string>
#include <vector>

using namespace tsms;
using namespace tsms::test;

#ifdef Q_OS_WIN

TEST(CommandLine, WithoutQuotationMarksItIsTakenAsItStands)
{
    EXPECT_EQ(TextBehindProgram(u"tsms.exe  db■C:\\a\\■1433■id■p\"w  d■7■본사 "),
              u"db■C:\\a\\■1433■id■p\"w  d■7■본사 "_q);
    EXPECT_EQ(TextBehindProgram(u"\"C:\\Program Files\\tsms.exe\" a■b"), u"a■b"_q);
}

TEST(CommandLine, QuotationMarksAroundItAreNoPartOfIt)
{
    EXPECT_EQ(TextBehindProgram(u"tsms.exe \"  a■b c■d \""), u"  a■b c■d "_q);
    EXPECT_EQ(TextBehindProgram(u"tsms.exe \"a■\\\"b\" c"), u"a■\"b c"_q);
}

TEST(CommandLine, NothingBehindTheProgramIsAnEmptyLine)
{
    for (const QStringView line : {u"tsms.exe", u"tsms.exe  ", u"\"C:\\Program Files\\tsms.exe\"", u""})
        EXPECT_EQ(TextBehindProgram(line), QString()) << qPrintable(line.toString());
}

TEST(CommandLine, TheSystemsCopyIsOverwritten)
{
    const QString before = QString::fromWCharArray(GetCommandLineW());
    ASSERT_FALSE(TextBehindProgram(before).isEmpty()) << "start it with an option";
    EXPECT_EQ(TakeCommandLine(0, nullptr), TextBehindProgram(before));
    const QString after = QString::fromWCharArray(GetCommandLineW());
    EXPECT_EQ(after.size(), before.size());
    EXPECT_EQ(TextBehindProgram(after), QString());
}

#else

namespace {

struct Arguments
{
    explicit Arguments(std::vector<std::string> given) : words(std::move(given))
    {
        for (std::string& word : words)
            pointers.push_back(word.data());
        pointers.push_back(nullptr);
    }
    QString Take() { return TakeCommandLine(static_cast<int>(words.size()), pointers.data()); }

    std::vector<std::string> words;
    std::vector<char*> pointers;
};

} // namespace

TEST(CommandLine, OneArgumentIsTakenAsItStands)
{
    Arguments arguments({"tsms", "  db■server■1433■id■pw■7■본사 "});
    EXPECT_EQ(arguments.Take(), u"  db■server■1433■id■pw■7■본사 "_q);
}

TEST(CommandLine, SeveralArgumentsAreJoinedAgain)
{
    Arguments arguments({"tsms", "a■b■c", "d■e"});
    EXPECT_EQ(arguments.Take(), u"a■b■c d■e"_q);
}

TEST(CommandLine, NoArgumentIsAnEmptyLine)
{
    Arguments arguments({"tsms"});
    EXPECT_EQ(arguments.Take(), QString());
}

TEST(CommandLine, TheSystemsCopyIsOverwritten)
{
    Arguments arguments({"tsms", "secret"});
    arguments.Take();
    EXPECT_EQ(arguments.words[1], std::string(6, ' '));
    EXPECT_EQ(arguments.words[0], "tsms");
}

#endif
