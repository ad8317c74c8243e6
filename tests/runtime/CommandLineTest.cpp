#include "runtime/CommandLine.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace tsms;
using namespace tsms::test;

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
