#pragma once

#include <QString>

namespace tsms {

/// Styles of message boxes, and the answers to those that ask.
enum MsgBoxStyle : int {
    MsgBoxPlain = 0,          ///< no sign, OK
    MsgBoxCritical = 16,      ///< critical sign, OK
    MsgBoxCriticalYesNo = 20, ///< critical sign, Yes and No
    MsgBoxQuestion = 36,      ///< question mark, Yes and No
    MsgBoxExclamation = 48,   ///< warning sign, OK
    MsgBoxInformation = 64,   ///< information sign, OK
};
enum MsgBoxAnswer : int { AnswerOK = 1, AnswerYes = 6, AnswerNo = 7 };

/// Mouse pointers, by the numbers that operations use.
enum class MousePointer : int { Default = 0, Hourglass = 11 };

/// All that the program asks of the desk it runs on. The Qt side is toolkit/windows/QtDesktop; tests
/// script their own.
class Desktop
{
public:
    virtual ~Desktop() = default;

    /// Shows a box and waits for the answer. `text` may hold CR LF line breaks.
    virtual MsgBoxAnswer MsgBox(const QString& text, MsgBoxStyle style, const QString& title) = 0;

    /// The pointer of the whole screen.
    virtual void SetMousePointer(MousePointer pointer) = 0;

    /// Opens a web page in the user's browser. An empty address, and one that is no http or https address,
    /// does nothing.
    virtual void OpenPage(const QString& url) = 0;

    /// Opens a file in the program that the user has for it.
    virtual void OpenDocument(const QString& path) = 0;

    /// Asks for a file; `filter` is in the manner "words|*.ext". Empty when the user cancels.
    virtual QString PickFile(const QString& title, const QString& filter) = 0;

    /// Asks for a folder. Empty when the user cancels.
    virtual QString PickFolder(const QString& prompt) = 0;
};

} // namespace tsms
