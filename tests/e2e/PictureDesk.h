#pragma once

#include "toolkit/windows/QtDesktop.h"

#include <QString>

#include <deque>
#include <functional>

class QMessageBox;
class QWidget;

namespace tsms::test {

/// The real desk, whose boxes stand on the screen until their picture is taken and are then answered with
/// their button. A box that nobody awaits, and one that does not come, fail the run.
class PictureDesk final : public Desktop
{
public:
    using TakePicture = std::function<void(QWidget& of, const QString& name)>;

    explicit PictureDesk(TakePicture take) : take_(std::move(take)) {}

    /// The next box gets this name, none for an empty one, and this answer. `meanwhile` runs while it stands.
    void Await(const QString& name, MsgBoxAnswer answer = AnswerOK, std::function<void()> meanwhile = {});

    /// Fails the run for each awaited box that has not come until now.
    void ExpectNoneLeft();

    QString fileToPick; ///< what the file picker answers, without showing itself

    MsgBoxAnswer MsgBox(const QString& text, MsgBoxStyle style, const QString& title) override;
    void SetMousePointer(MousePointer pointer) override { desk_.SetMousePointer(pointer); }
    void OpenPage(const QString&) override {} ///< no browser on this desk
    void OpenDocument(const QString&) override {}
    QString PickFile(const QString&, const QString&) override { return fileToPick; }
    QString PickFolder(const QString&) override { return {}; }

private:
    struct Awaited
    {
        QString name;
        MsgBoxAnswer answer;
        std::function<void()> meanwhile;
    };

    void Attend(QMessageBox& box, const Awaited& awaited);

    TakePicture take_;
    QtDesktop desk_;
    std::deque<Awaited> awaited_;
};

} // namespace tsms::test
