#pragma once

#include "toolkit/fields/TextControl.h"

#include <QLineEdit>

namespace tsms {

/// The single-line text box. Of a pasted text it takes what stands before the first line break.
class TextBox : public TextControl<QLineEdit>
{
    Q_OBJECT

public:
    explicit TextBox(QWidget* parent = nullptr);
    TextBox(QWidget* parent, const QString& name);

    QString Text() const override { return text(); }
    int SelStart() const override;
    void SetSelStart(int position) override;
    int SelLength() const override;
    void Select(int start, int length) override;

protected:
    void Load(const QString& text) override;
    void Replace(const QString& text, int caret) override;
    int Caret() const override { return cursorPosition(); }

    void Press(QKeyEvent& key) override;
    void TakeFocus(QFocusEvent& event) override;

    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void StepOverSeparator(const QKeyEvent& key);

    bool keepsMark_ = false; // the press that brought the focus, which marked the text, leaves the mark
    QPoint pressed_;         // where that was
};

} // namespace tsms
