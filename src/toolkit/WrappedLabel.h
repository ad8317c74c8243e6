#pragma once

#include "toolkit/Controls.h"

class QTextDocument;

namespace tsms {

/// A label whose caption goes on in the next line where it finds no room: between words, and inside a word
/// that is wider than the label. Its height follows from its width.
class WrappedLabel : public Label
{
    Q_OBJECT

public:
    WrappedLabel(QWidget* parent, const QString& name);

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void LayOut(QTextDocument& document, int width) const;
};

} // namespace tsms
