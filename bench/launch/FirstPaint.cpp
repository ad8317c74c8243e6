// Linked to a program with windows: prints when its first window has been painted for the first time, and
// ends the process. The words are: nanoseconds, peak memory in KiB, width and height of the window, and the
// nanoseconds from a key to its painted answer. The key goes in as soon as the window is painted, and only
// where TSMS_BENCH_KEY is in the environment; 0 otherwise. TSMS_BENCH_MAPS names a file that gets the
// process's table of mapped files.
#include "bench/Measure.h"

#include <QApplication>
#include <qpa/qwindowsysteminterface.h>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace tsms::bench {

namespace {

class FirstPaint : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        answering_ = answering_ || (painted_ != 0 && event->type() == QEvent::KeyRelease);
        const bool due = painted_ == 0 || answering_;
        if (!due || event->type() != QEvent::Paint || !watched->isWidgetType())
            return false;
        window_ = static_cast<QWidget*>(watched)->window();
        qApp->removeEventFilter(this);
        // The children are painted and the picture is handed to the screen before the event loop turns again.
        QTimer::singleShot(0, window_, [this] { Painted(); });
        return false;
    }

private:
    void Painted()
    {
        const std::int64_t now = Nanoseconds();
        if (painted_ != 0)
            End(now - pressed_);
        painted_ = now;
        if (!qEnvironmentVariableIsSet("TSMS_BENCH_KEY"))
            End(0);
        qApp->installEventFilter(this);
        PressKey();
    }

    /// Through the queue of the window system, as a person's.
    void PressKey()
    {
        pressed_ = Nanoseconds();
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
            QWindowSystemInterface::handleKeyEvent<QWindowSystemInterface::AsynchronousDelivery>(
                window_->windowHandle(), type, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
    }

    [[noreturn]] void End(std::int64_t answer) const
    {
        std::printf("%lld %ld %d %d %lld\n", static_cast<long long>(painted_), PeakMemory(), window_->width(),
                    window_->height(), static_cast<long long>(answer));
        std::fflush(stdout);
        if (const char* copy = std::getenv("TSMS_BENCH_MAPS"))
            std::ofstream(copy) << std::ifstream("/proc/self/maps").rdbuf() << std::flush;
        std::_Exit(0);
    }

    const QWidget* window_ = nullptr;
    std::int64_t painted_ = 0; // when; 0: not yet
    std::int64_t pressed_ = 0;
    bool answering_ = false;
};

void Watch()
{
    qApp->installEventFilter(new FirstPaint(qApp));
}

} // namespace

} // namespace tsms::bench

using tsms::bench::Watch;
Q_COREAPP_STARTUP_FUNCTION(Watch)
