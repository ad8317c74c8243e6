#pragma once

#include <QStringList>

class QWidget;

namespace tsms::test {

/// What a person finds cut, laid over something else, out of its panel or off the screen in a window, or in a
/// part of one. Words count as cut when they need more room than they have, but for those that end with a
/// sign of it and stand in a tool tip: long cells, template cards, the entry of a list, the path of a file.
struct LayoutFaults
{
    explicit LayoutFaults(const QWidget& window);

    QStringList faults;
    int looked = 0; ///< places with words

private:
    void Look(const QWidget& widget);
    void LookAtWords(const QWidget& widget);
    void LookAtPlace(const QWidget& parent, const QWidget& child, const QList<QWidget*>& siblings);
    void LookAtSize(const QWidget& window);
};

} // namespace tsms::test
