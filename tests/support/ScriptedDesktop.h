#pragma once

#include "runtime/Desktop.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <deque>
#include <functional>
#include <optional>
#include <ostream>

namespace tsms::test {

/// A box as a person would have seen it.
struct Box
{
    QString title;
    QString text;
    MsgBoxStyle style = MsgBoxPlain;

    friend bool operator==(const Box&, const Box&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Box& box)
    {
        return out << "[" << box.style << "] " << box.title.toStdString() << " | " << box.text.toStdString();
    }
};

/// A desk that plays a script. Every question is recorded word for word; one that the script does not expect
/// fails the test. At its end the test fails when something expected was never asked.
class ScriptedDesktop final : public Desktop
{
public:
    ~ScriptedDesktop() override;

    /// The next box must be this one; answers `answer`. `meanwhile` runs while the box stands.
    void Expect(Box box, MsgBoxAnswer answer = AnswerOK, std::function<void()> meanwhile = {});

    /// From here on boxes that the script does not expect are only recorded. Those that ask are answered so,
    /// the others with OK.
    void AllowBoxes(MsgBoxAnswer toQuestions = AnswerOK)
    {
        allowBoxes_ = true;
        toQuestions_ = toQuestions;
    }

    QList<Box> boxes;             ///< all boxes so far
    QStringList events;           ///< boxes ("box <title>") and pages ("page <url>") in their order
    QStringList pages;            ///< all pages opened so far
    QStringList documents;        ///< all documents opened so far
    QList<MousePointer> pointers; ///< all settings of the screen's pointer so far
    QStringList filePicks;        ///< all file pickers so far ("<title> | <filter>")
    QString fileToPick;           ///< what the file picker answers
    QString folderToPick;         ///< what the folder picker answers
    QStringList folderPrompts;    ///< what the folder picker was opened with so far

    MsgBoxAnswer MsgBox(const QString& text, MsgBoxStyle style, const QString& title) override;
    void SetMousePointer(MousePointer pointer) override;
    void OpenPage(const QString& url) override;
    void OpenDocument(const QString& path) override;
    QString PickFile(const QString& title, const QString& filter) override;
    QString PickFolder(const QString& prompt) override;

private:
    struct Expectation
    {
        Box box;
        MsgBoxAnswer answer;
        std::function<void()> meanwhile;
    };
    std::deque<Expectation> script_;
    bool allowBoxes_ = false;
    MsgBoxAnswer toQuestions_ = AnswerOK;
};

} // namespace tsms::test
