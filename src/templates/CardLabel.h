#pragma once

#include "toolkit/fields/Controls.h"

#include <QStringList>

namespace tsms {

/// A text in the lines of a place.
struct WrappedText
{
    QStringList lines;
    bool cut = false; ///< there is more of it than the place takes; the last line, full, says so by "…"
};

/// Breaks a text into lines of `width` pixels: at its line breaks (LF), else between words, else inside a
/// word that is wider than a line. At least one line and at most `most` of them.
WrappedText WrapText(const QString& text, const QFont& font, int width, int most);

/// A label of a template card: its caption in as many lines as there is room for, with the whole caption at
/// hand as a tool tip where it is cut.
class CardLabel : public Label
{
    Q_OBJECT

public:
    CardLabel(QWidget* parent, const QString& name);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    /// The caption as it stands on the label now.
    WrappedText Shown() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

} // namespace tsms
