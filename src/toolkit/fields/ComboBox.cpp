#include "toolkit/fields/ComboBox.h"

#include "runtime/CellSource.h"
#include "runtime/Numbers.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "toolkit/fields/KeyFilter.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/RaiseEvent.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QStyleOptionComboBox>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>

namespace tsms {

ComboBox::ComboBox(QWidget* parent, const QString& name, std::optional<int> width) : QComboBox(parent)
{
    SetName(*this, name);
    setFocusPolicy(Qt::StrongFocus); // the wheel would take the focus first, and then change the list
    setMaxVisibleItems(14);
    if (width)
        setFixedWidth(*width);
    else
        setSizeAdjustPolicy(QComboBox::AdjustToContents);
    connect(this, &QComboBox::activated, this, [this] { RaiseEvent(*this, OnClick); });
}

void ComboBox::AddItem(const QString& text, int number)
{
    InsertItem(ListCount(), text, number);
}

void ComboBox::InsertItem(int index, const QString& text, int number)
{
    if (index < 0 || index > ListCount())
        throw RuntimeError(InvalidProcedureCall);
    const bool selected = ListIndex() >= 0;
    insertItem(index, text, number);
    if (!selected)
        setCurrentIndex(-1); // the control selects the first entry by itself; a new list has nothing selected
}

void ComboBox::AddRows(const CellSource& rows, const QString& first)
{
    for (int row = 1; row <= rows.Rows(); ++row) {
        const QString number = Trim(rows.Text(1, row));
        const bool isFirst = !first.isEmpty() && number == first;
        InsertItem(isFirst ? 0 : ListCount(), rows.Text(2, row), ToLong(number));
    }
}

void ComboBox::Clear()
{
    clear();
}

void ComboBox::SetListIndex(int index)
{
    const int nearest = std::clamp(index, -1, ListCount() - 1);
    if (nearest == ListIndex())
        return;
    setCurrentIndex(nearest);
    if (nearest >= 0)
        RaiseEvent(*this, OnClick);
}

int ComboBox::ItemData(int index) const
{
    if (index < 0 || index >= ListCount())
        throw RuntimeError(InvalidPropertyArrayIndex);
    return itemData(index).toInt();
}

QColor ComboBox::BackColor() const
{
    return palette().color(QPalette::Active, QPalette::Button);
}

void ComboBox::SetBackColor(const QColor& color)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Button, color);
    setPalette(colors);
}

void ComboBox::showPopup()
{
    RaiseEvent(*this, OnDropDown);
    QComboBox::showPopup();
}

void ComboBox::initStyleOption(QStyleOptionComboBox* option) const
{
    QComboBox::initStyleOption(option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, option, QStyle::SC_ComboBoxEditField, this);
    const int room = field.width() - 2; // the style keeps a pixel free on each side
    option->currentText = fontMetrics().elidedText(option->currentText, Qt::ElideRight, room);
}

bool ComboBox::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QComboBox::event(event);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const bool cut = option.currentText != Text();
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       cut ? QStringLiteral("<qt>%1</qt>").arg(Text().toHtmlEscaped()) : QString(), this);
    return true;
}

void ComboBox::keyPressEvent(QKeyEvent* event)
{
    SendFilteredKey(
        *event, [this](QStringView keys) { return OfferKeys(*this, OnKeyPress, keys); },
        [this](QKeyEvent* key) { QComboBox::keyPressEvent(key); });
}

void ComboBox::wheelEvent(QWheelEvent* event)
{
    // A list that only lies under the mouse must not change while its page is scrolled.
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace tsms
