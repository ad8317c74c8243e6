#pragma once

#include "runtime/Desktop.h"

namespace tsms {

/// The desk of the real program: message boxes, pickers, pointer, browser. No other file names them.
class QtDesktop final : public Desktop
{
public:
    MsgBoxAnswer MsgBox(const QString& text, MsgBoxStyle style, const QString& title) override;
    void SetMousePointer(MousePointer pointer) override;
    void OpenPage(const QString& url) override;
    void OpenDocument(const QString& path) override;
    QString PickFile(const QString& title, const QString& filter) override;
    QString PickFolder(const QString& prompt) override;

private:
    // Where the last picker of either kind was left, for as long as the program runs.
    QString filesFolder_;
    QString foldersFolder_;
};

} // namespace tsms
