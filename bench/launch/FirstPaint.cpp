// Linked to a program with windows: prints when its first window has been painted for the first time, and
// ends the process. The words are: nanoseconds, peak memory in KiB, width and height of the window.
#include "bench/Measure.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <cstdlib>

namespace tsms::bench {

namespace {

class FirstPaint : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Paint || !watched->isWidgetType())
            return false;
        const QWidget* window = static_cast<QWidget*>(watched)->window();
        qApp->removeEventFilter(this);
        // The children are painted and the picture is handed to the screen before the event loop turns again.
        QTimer::singleShot(0, window, [window] { Announce(*window); });
        return false;
    }

private:
    static void Announce(const QWidget& window)
    {
        const std::int64_t now = Nanoseconds();
        std::printf("%lld %ld %d %d\n", static_cast<long long>(now), PeakMemory(), window.width(),
                    window.height());
        std::fflush(stdout);
        std::_Exit(0);
    }
};

void Watch()
{
    qApp->installEventFilter(new FirstPaint(qApp));
}

} // namespace

} // namespace tsms::bench

using tsms::bench::Watch;
Q_COREAPP_STARTUP_FUNCTION(Watch)
