#include "support/ScriptedDesktop.h"

#include <gtest/gtest.h>

namespace tsms::test {

ScriptedDesktop::~ScriptedDesktop()
{
    for (const Expectation& left : script_)
        ADD_FAILURE() << "this box was expected and never shown: " << left.box;
}

void ScriptedDesktop::Expect(Box box, MsgBoxAnswer answer, std::function<void()> meanwhile)
{
    script_.push_back({std::move(box), answer, std::move(meanwhile)});
}

MsgBoxAnswer ScriptedDesktop::MsgBox(const QString& text, MsgBoxStyle style, const QString& title)
{
    const Box shown{title, text, style};
    boxes += shown;
    events += QStringLiteral("box ") + title;
    if (script_.empty()) {
        if (!allowBoxes_)
            ADD_FAILURE() << "unexpected box: " << shown;
        return style == MsgBoxQuestion || style == MsgBoxCriticalYesNo ? toQuestions_ : AnswerOK;
    }
    const Expectation next = std::move(script_.front());
    script_.pop_front();
    EXPECT_EQ(shown, next.box);
    if (next.meanwhile)
        next.meanwhile();
    return next.answer;
}

void ScriptedDesktop::SetMousePointer(MousePointer pointer)
{
    pointers += pointer;
}

void ScriptedDesktop::OpenPage(const QString& url)
{
    pages += url;
    events += QStringLiteral("page ") + url;
}

void ScriptedDesktop::OpenDocument(const QString& path)
{
    documents += path;
}

QString ScriptedDesktop::PickFile(const QString& title, const QString& filter)
{
    filePicks += title + QStringLiteral(" | ") + filter;
    return fileToPick;
}

QString ScriptedDesktop::PickFolder(const QString& prompt)
{
    folderPrompts += prompt;
    return folderToPick;
}

} // namespace tsms::test
