#pragma once

#include <QPointer>
#include <QWidget>

namespace tsms {

/// Dims a window as long as it lives: the window waits for what stands over it. No window, nothing dimmed.
class Dimmed
{
public:
    explicit Dimmed(QWidget* window);
    ~Dimmed();
    Dimmed(const Dimmed&) = delete;
    Dimmed& operator=(const Dimmed&) = delete;

private:
    QPointer<QWidget> veil_; // ends with its window too
};

} // namespace tsms
