#pragma once

#include "toolkit/fields/Controls.h"

class QTextDocument;

namespace tsms {

/// A label whose caption goes on in the next line where it finds no room: between words, and inside a word
/// that is wider than the label. Its height follows from its width. Words of it can be selected by the mouse,
/// in one label of a window at a time, and copied by its menu.
class WrappedLabel : public Label
{
    Q_OBJECT

public:
    WrappedLabel(QWidget* parent, const QString& name);

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    QString SelectedText() const;
    /// Of the label of the window that has some; empty without.
    static QString SelectedIn(const QWidget& window);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void LayOut(QTextDocument& document, int width) const;
    int PositionAt(QPoint place) const;
    void Select(int anchor, int caret);

    int anchor_ = 0; // the selection is between these two
    int caret_ = 0;
    bool drags_ = false; // the mouse draws it
};

} // namespace tsms
