#pragma once

#include "toolkit/fields/RaiseEvent.h"
#include "toolkit/windows/Dimmed.h"

#include <QList>
#include <QPoint>
#include <QPointer>
#include <QSize>
#include <QWidget>

#include <optional>

class QEventLoop;

namespace tsms {

class Desktop;
struct Session;

/// A frameless window drawn by the program, the base of the main window and of all dialogs. A press with any
/// button on its own surface, or on a panel that says so, drags it, also while Busy is set; a click there
/// does nothing. It is never larger than its screen, as far as its contents can be shown at all. While a
/// dialog is on view, the window it stands over is dimmed. A form is loaded from its construction to its
/// unloading (or its end, whichever is first).
class Form : public QWidget, public HandlerFrame
{
    Q_OBJECT

public:
    enum class Kind { Main, Dialog };

    /// A dialog's `owner` is the window it stands over; without one it is the active window.
    Form(Session& session, Desktop& desktop, const QString& name, Kind kind, QWidget* owner = nullptr);
    ~Form() override;

    /// The forms that are loaded, in the order of loading.
    static const QList<Form*>& Loaded();
    static Form* Find(const QString& name);
    bool IsLoaded() const;

    QString Name() const { return objectName(); }
    QString Caption() const { return windowTitle(); }
    void SetCaption(const QString& caption) { setWindowTitle(caption); }

    /// Shows the form and returns when it has been unloaded. The window below it has the keyboard again then.
    void ShowModal();

    void setVisible(bool visible) override;

    /// Asks QueryUnload and, when it agrees, closes the form. True when the form is unloaded.
    bool Unload();

    virtual bool IsBusy() const;

    /// Stores the session's Busy and shows the hourglass over the form while it is set.
    void SetBusy(bool busy);

    /// An error that the handler lets out ends in a box.
    void RunHandler(const std::function<void()>& handler) override;

protected:
    /// Every closing goes through here, whatever began it. False keeps the form.
    virtual bool QueryUnload() { return true; }

    /// Sees each key before the focused control does. True when the key is used up.
    virtual bool KeyDown(int key, Qt::KeyboardModifiers shift);

    /// The first activation of the window.
    virtual void OnFirstActivation() {}

    /// Takes its size, before it is first shown, on a screen with that much room.
    virtual void FitInto(QSize room);

    /// Draws the surface: a white page with a fine frame.
    void paintEvent(QPaintEvent* event) override;

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool PreviewKey(const QWidget& receiver, QKeyEvent& event);
    bool IsDragSurface(QPoint place) const;
    bool HandOverMove();
    void LeaveLoaded();
    void Place();
    void DimBelow(bool dim);

    Session& session_;
    Desktop& desktop_;
    Kind kind_;
    QPointer<QWidget> owner_;
    QPointer<QWidget> over_;       // the window that it was placed over
    std::optional<Dimmed> dimmed_; // that one
    QEventLoop* loop_ = nullptr;
    const void* previewed_ = nullptr;
    bool placed_ = false;
    bool activated_ = false;
    Qt::MouseButton held_ = Qt::NoButton; // the button that drags the form
    QPoint grip_;
    bool moving_ = false;
};

} // namespace tsms
