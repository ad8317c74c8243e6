#pragma once

#include "toolkit/windows/Form.h"

#include <array>

class QHBoxLayout;
class QVBoxLayout;

namespace tsms {

class Label;
class Panel;
class PictureButton;
class PushButton;

/// What tells the frames of the eight dialogs apart.
struct DialogFrame
{
    QString name;       ///< of the form
    QString caption;    ///< of the window
    QString title;      ///< words in the title strip
    QString titleLabel; ///< name of the label that shows them, such as "lblTitle(1)"
    QString note;       ///< what the dialog is for; empty: no note line
    QString noteLabel;  ///< name of the note line
    QString buttonBase = QStringLiteral("BtnFunc");
    std::array<QString, 2> buttons{}; ///< captions; empty: no such button
    bool f12RunsButton0 = true;
    bool arrowsWalk = false; ///< arrow keys leave a text box at its ends
};

/// The frame of a dialog: title strip Picture1 with BtnTopFunc(0) and (1), note line, body, buttons at the
/// foot, and the keys and clicks that all dialogs share. While Busy is set all of them are dead but moving
/// the window.
class DialogForm : public Form
{
    Q_OBJECT

public:
    DialogForm(Session& session, Desktop& desktop, const DialogFrame& frame, QWidget* owner = nullptr);

    Label* NoteLabel() const { return noteLabel_; }
    void SetTitle(const QString& title);
    /// Null where the frame has no such button.
    PushButton* Button(int index) const { return buttons_.at(static_cast<std::size_t>(index)); }

protected:
    /// The place of the dialog's own controls. Give it a layout, or fill BodyLayout().
    QWidget& Body() const { return *body_; }
    QVBoxLayout& BodyLayout() const { return *bodyLayout_; }

    /// Whether what is there to be pressed and chosen can be, in its looks too. A run, which
    /// holds the event loop, has them drawn dead at once.
    virtual void SetUsable(bool usable);

    /// Lets the dialog be lower by `pixels`, or by as much as it can: it is higher than the screen.
    virtual void GiveHeight(int pixels);

    void FitInto(QSize room) override;

    /// A click on a button at the foot, or its key, while Busy is not set. Any but 0 unloads the dialog.
    virtual void OnButton(int index);

    /// After F12, Esc and the arrow keys, while Busy is not set. True when the key is used up.
    bool KeyDown(int key, Qt::KeyboardModifiers shift) override;

    /// Gives the first control of the body the focus where nothing has it yet.
    void showEvent(QShowEvent* event) override;

private:
    void MakeTitleStrip(const DialogFrame& frame);
    void MakeFoot(const DialogFrame& frame);
    bool WalkByArrow(int key);
    void FocusFirst();

    bool f12RunsButton0_;
    bool arrowsWalk_;
    Panel* strip_ = nullptr;
    Label* titleLabel_ = nullptr;
    Label* noteLabel_ = nullptr;
    QWidget* body_ = nullptr;
    QVBoxLayout* bodyLayout_ = nullptr;
    QHBoxLayout* footLayout_ = nullptr;
    std::array<PictureButton*, 2> topFunc_{};
    std::array<PushButton*, 2> buttons_{};
};

} // namespace tsms
