#pragma once

#include "toolkit/Controls.h"

namespace tsms {

/// A label of a template card: its caption in as many lines as there is room for, the last one ended by "…"
/// where the caption goes on.
class CardLabel : public Label
{
    Q_OBJECT

public:
    CardLabel(QWidget* parent, const QString& name);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    int LinesShown() const;

    mutable bool cut_ = false; // the caption went on beyond the last line drawn
};

} // namespace tsms
