#include "toolkit/fields/AccessibleFields.h"

#include "runtime/Text.h"
#include "toolkit/fields/AccessibleButton.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"

#include <QAbstractItemView>

namespace tsms {

namespace {

/// Without words it says nothing.
class AccessibleLabel final : public QAccessibleWidget
{
public:
    explicit AccessibleLabel(Label& label) : QAccessibleWidget(&label, QAccessible::StaticText), label_(label)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        if (IsBlank(label_.Caption()))
            state.invisible = true;
        return state;
    }
    QList<std::pair<QAccessibleInterface*, QAccessible::Relation>>
    relations(QAccessible::Relation match) const override
    {
        auto related = QAccessibleWidget::relations(match);
        if (label_.buddy() && match.testFlag(QAccessible::Labelled))
            related += {QAccessible::queryAccessibleInterface(label_.buddy()), QAccessible::Labelled};
        return related;
    }

private:
    Label& label_;
};

/// Its name is what the list is for, and its text the entry that is chosen. The platform tells the entry in
/// place of the name.
class AccessibleComboBox final : public QAccessibleWidget, public QAccessibleTextInterface
{
public:
    explicit AccessibleComboBox(ComboBox& box) : QAccessibleWidget(&box, QAccessible::ComboBox), box_(box) {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? box_.Text() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = box_.view()->isVisible();
        state.collapsed = !state.expanded;
        state.hasPopup = true;
        return state;
    }

    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override
    {
        return index == 0 ? QAccessible::queryAccessibleInterface(box_.view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* part) const override
    {
        return part && part->object() == box_.view() ? 0 : -1;
    }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; } // the open list is a window

    QStringList actionNames() const override
    {
        QStringList actions = QAccessibleWidget::actionNames();
        if (box_.isEnabled())
            actions = QStringList{showMenuAction(), pressAction()} + actions;
        return actions;
    }
    void doAction(const QString& action) override
    {
        if (action != showMenuAction() && action != pressAction())
            QAccessibleWidget::doAction(action);
        else if (box_.view()->isVisible())
            box_.hidePopup();
        else if (box_.isEnabled())
            box_.showPopup();
    }

    void selection(int, int* start, int* end) const override { *start = *end = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QString text(int start, int end) const override { return box_.Text().mid(start, end - start); }
    int characterCount() const override { return static_cast<int>(box_.Text().size()); }
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int, int* start, int* end) const override
    {
        *start = 0;
        *end = characterCount();
        return {};
    }

private:
    ComboBox& box_;
};

class AccessiblePictureButton final : public AccessibleButton
{
public:
    explicit AccessiblePictureButton(PictureButton& button)
        : AccessibleButton(button, [&button] { button.click(); }), button_(button)
    {
    }

    QAccessible::Role role() const override
    {
        return IsSign() ? QAccessible::Graphic : AccessibleButton::role();
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = AccessibleButton::state();
        if (IsSign()) // it means nothing
            state.invisible = true;
        state.pressed = button_.isDown();
        state.selectable = button_.LookOf() == PictureButton::Look::Selected;
        state.selected = state.selectable;
        return state;
    }
    QStringList actionNames() const override
    {
        return IsSign() ? QStringList() : AccessibleButton::actionNames();
    }

private:
    bool IsSign() const { return button_.LookOf() == PictureButton::Look::Sign; }

    PictureButton& button_;
};

/// Asked for the class of the object, and then for each of its bases.
QAccessibleInterface* MakeAccessibleField(const QString& className, QObject* object)
{
    const auto is = [&](const QMetaObject& type) { return className == QLatin1String(type.className()); };
    if (is(Panel::staticMetaObject)) // of which the platform says what it says of a window
        return new QAccessibleWidget(static_cast<Panel*>(object), QAccessible::Grouping);
    if (is(Label::staticMetaObject))
        return new AccessibleLabel(static_cast<Label&>(*object));
    if (is(PictureButton::staticMetaObject)) // the platform knows buttons with a text only
        return new AccessiblePictureButton(static_cast<PictureButton&>(*object));
    if (is(ComboBox::staticMetaObject))
        return new AccessibleComboBox(static_cast<ComboBox&>(*object));
    return nullptr;
}

} // namespace

void TellOfFields()
{
    static const bool told = (QAccessible::installFactory(MakeAccessibleField), true);
    Q_UNUSED(told)
}

} // namespace tsms
