#include "toolkit/windows/Form.h"

#include "runtime/Desktop.h"
#include "session/Session.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/look/Elements.h"
#include "toolkit/look/Placing.h"
#include "toolkit/look/Theme.h"
#include "toolkit/windows/Guarded.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLayout>
#include <QMouseEvent>
#include <QScreen>
#include <QStylePainter>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace tsms {

namespace {

QList<Form*>& LoadedForms()
{
    static QList<Form*> forms;
    return forms;
}

Qt::WindowFlags FlagsOf(Form::Kind kind)
{
    const Qt::WindowFlags frameless = Qt::FramelessWindowHint | Qt::WindowSystemMenuHint;
    return kind == Form::Kind::Main ? Qt::Window | frameless | Qt::WindowMinimizeButtonHint
                                    : Qt::Dialog | frameless;
}

/// The platform takes a form for a filler.
QAccessibleInterface* MakeAccessibleForm(const QString& className, QObject* object)
{
    if (className != QLatin1String(Form::staticMetaObject.className()))
        return nullptr;
    auto& form = static_cast<Form&>(*object);
    const bool dialog = form.windowType() == Qt::Dialog;
    return new QAccessibleWidget(&form, dialog ? QAccessible::Dialog : QAccessible::Window);
}

void TellOfForms()
{
    static const bool told = (QAccessible::installFactory(MakeAccessibleForm), true);
    Q_UNUSED(told)
}

} // namespace

Form::Form(Session& session, Desktop& desktop, const QString& name, Kind kind, QWidget* owner)
    : QWidget(nullptr, FlagsOf(kind)), session_(session), desktop_(desktop), kind_(kind), owner_(owner)
{
    TellOfForms();
    SetName(*this, name);
    if (kind_ == Kind::Dialog)
        setWindowModality(Qt::ApplicationModal);
    LoadedForms() += this;
    qApp->installEventFilter(this);
}

Form::~Form()
{
    LeaveLoaded();
}

const QList<Form*>& Form::Loaded()
{
    return LoadedForms();
}

Form* Form::Find(const QString& name)
{
    const QList<Form*>& forms = LoadedForms();
    const auto found =
        std::find_if(forms.begin(), forms.end(), [&](Form* form) { return form->Name() == name; });
    return found == forms.end() ? nullptr : *found;
}

bool Form::IsLoaded() const
{
    return LoadedForms().contains(const_cast<Form*>(this));
}

bool Form::IsBusy() const
{
    return session_.IsBusy();
}

void Form::SetBusy(bool busy)
{
    session_.Busy = busy;
    if (busy)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

void Form::RunHandler(const std::function<void()>& handler)
{
    RunGuarded(session_, desktop_, handler);
}

void Form::ShowModal()
{
    if (!IsLoaded())
        LoadedForms() += this; // shown again after it was unloaded
    QEventLoop loop;
    loop_ = &loop;
    show();
    raise();
    activateWindow();
    if (IsLoaded()) // its own start may have unloaded it
        loop.exec();
    loop_ = nullptr;
    // The desk may be about to give the keyboard back to this form, behind a box that it showed at its end.
    if (over_ && over_->isVisible())
        over_->activateWindow();
}

bool Form::Unload()
{
    return close();
}

void Form::closeEvent(QCloseEvent* event)
{
    bool agreed = !IsLoaded();
    if (!agreed)
        RunHandler([&] { agreed = QueryUnload(); });
    event->setAccepted(agreed);
    if (!agreed)
        return;
    LeaveLoaded();
    if (loop_)
        loop_->quit();
}

void Form::LeaveLoaded()
{
    LoadedForms().removeAll(this);
}

bool Form::KeyDown(int, Qt::KeyboardModifiers)
{
    return false;
}

bool Form::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate && !std::exchange(activated_, true))
        RunHandler([this] { OnFirstActivation(); });
    return QWidget::event(event);
}

bool Form::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        if (watched->isWidgetType() && static_cast<QWidget*>(watched)->window() == this)
            return PreviewKey(*static_cast<QWidget*>(watched), static_cast<QKeyEvent&>(*event));
        break;
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
        previewed_ = nullptr;
        break;
    default:
        break;
    }
    return false;
}

bool Form::PreviewKey(const QWidget& receiver, QKeyEvent& event)
{
    // A key that the focused control does not use comes by again on its way up to the form.
    const bool first = &receiver == focusWidget() || (&receiver == this && previewed_ != &event);
    if (!first || !IsLoaded())
        return false;
    previewed_ = &event;
    bool usedUp = false;
    RunHandler([&] { usedUp = KeyDown(event.key(), event.modifiers()); });
    if (usedUp)
        event.accept();
    return usedUp;
}

void Form::setVisible(bool visible)
{
    if (visible && !placed_) {
        placed_ = true;
        Place();
    }
    DimBelow(visible);
    QWidget::setVisible(visible);
}

void Form::DimBelow(bool dim)
{
    dimmed_.reset();
    if (dim && kind_ == Kind::Dialog)
        dimmed_.emplace(over_);
}

void Form::Place()
{
    ensurePolished();
    if (layout())
        layout()->activate();
    FitInto(screen()->availableSize());
    QWidget* over = owner_ ? owner_->window() : QApplication::activeWindow();
    if (over == this)
        over = nullptr;
    over_ = over;
    if (over && kind_ == Kind::Dialog) {
        winId(); // makes the window's handle
        windowHandle()->setTransientParent(over->windowHandle());
    }
    const QRect around = over ? over->geometry() : screen()->availableGeometry();
    QRect place(QPoint(), size());
    place.moveCenter(around.center());
    move(MovedInto(place, screen()->availableGeometry()).topLeft());
}

void Form::FitInto(QSize)
{
    if (!testAttribute(Qt::WA_Resized))
        adjustSize();
}

void Form::paintEvent(QPaintEvent*)
{
    theme::SurfaceOption page;
    page.initFrom(this);
    page.face = theme::Page;
    page.border = PanelBorder::Edge;
    QStylePainter(this).drawPrimitive(theme::SurfaceElement, page);
}

void Form::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    // On anything else a control had no use for the press.
    held_ = IsDragSurface(event->position().toPoint()) ? event->button() : Qt::NoButton;
    moving_ = false;
    grip_ = event->globalPosition().toPoint() - pos();
}

bool Form::IsDragSurface(QPoint place) const
{
    const QWidget* hit = childAt(place);
    const auto* panel = qobject_cast<const Panel*>(hit);
    return !hit || (panel && panel->DragsWindow());
}

void Form::mouseMoveEvent(QMouseEvent* event)
{
    if (!event->buttons().testFlag(held_))
        held_ = Qt::NoButton; // its release went elsewhere
    if (held_ == Qt::NoButton)
        return;
    const QPoint place = event->globalPosition().toPoint() - grip_;
    if (!moving_ && (place - pos()).manhattanLength() < QApplication::startDragDistance())
        return; // the hand of a click
    if (!moving_ && HandOverMove())
        held_ = Qt::NoButton;
    else
        move(place);
    moving_ = true;
}

/// Wayland leaves it to the desk where a window stands, and Windows brings one to a screen of another scale
/// without a jump. Elsewhere the form moves itself: a window manager that is asked waits for the release of
/// the left button, and keeps the window at the pointer when that release was over before it heard of the
/// move.
bool Form::HandOverMove()
{
    const QString platform = QGuiApplication::platformName();
    return held_ == Qt::LeftButton && (platform.startsWith(u"wayland") || platform == u"windows") &&
           windowHandle() && windowHandle()->startSystemMove();
}

void Form::mouseReleaseEvent(QMouseEvent*)
{
    held_ = Qt::NoButton;
}

} // namespace tsms
