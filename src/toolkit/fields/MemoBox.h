#pragma once

#include "toolkit/fields/TextControl.h"

#include <QPlainTextEdit>

namespace tsms {

/// The multi-line text box. Enter makes a line break, Tab leaves the box. It has no border: the panel that it
/// stands on draws one.
class MemoBox : public TextControl<QPlainTextEdit>
{
    Q_OBJECT

public:
    explicit MemoBox(QWidget* parent = nullptr);
    MemoBox(QWidget* parent, const QString& name);

    /// Gives the text from there on a ground of its own.
    void MarkFrom(int position, const QColor& ground);

    QString Text() const override;
    int SelStart() const override;
    void SetSelStart(int position) override;
    int SelLength() const override;
    void Select(int start, int length) override;

protected:
    void Load(const QString& text) override;
    void Replace(const QString& text, int caret) override;
    int Caret() const override;

    void Press(QKeyEvent& key) override;

    void inputMethodEvent(QInputMethodEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    int ToText(int documentPosition) const;
    int ToDocument(int textPosition) const;
};

} // namespace tsms
