#include "toolkit/windows/Dimmed.h"

#include <QPainter>

namespace tsms {

namespace {

/// Lies over all that a window holds.
class Veil final : public QWidget
{
public:
    explicit Veil(QWidget& window) : QWidget(&window)
    {
        setObjectName(QStringLiteral("PlVeil"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setGeometry(window.rect());
        show();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        constexpr QColor shade{30, 52, 62, 72};
        QPainter(this).fillRect(rect(), shade);
    }
};

} // namespace

Dimmed::Dimmed(QWidget* window) : veil_(window ? new Veil(*window) : nullptr) {}

Dimmed::~Dimmed()
{
    delete veil_;
}

} // namespace tsms
