#pragma once

#include <QString>
#include <QStringView>

class QWidget;

namespace tsms {

/// The name of an element of a control array: "BtnFuncMain(2)".
QString IndexedName(QStringView base, int index);

/// Gives a control its name, by which tools find it. No person hears it.
void SetName(QWidget& widget, const QString& name);

/// Tells a screen reader in words what a control is that shows none of its own: they are its accessible name.
/// Of a caption the colon behind it and the blanks that space its letters are left out.
void DescribeBy(QWidget& control, const QString& caption);

/// SetName that returns the widget, for use where it is made.
template <class W> W* Named(W* widget, const QString& name)
{
    SetName(*widget, name);
    return widget;
}

} // namespace tsms
