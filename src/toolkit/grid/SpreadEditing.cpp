#include "toolkit/grid/SpreadEditing.h"

#include "toolkit/fields/Composition.h"
#include "toolkit/fields/LimitRule.h"
#include "toolkit/grid/AccessibleGrid.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/SpreadModel.h"
#include "toolkit/look/Theme.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QScopeGuard>

#include <memory>

namespace tsms {

namespace {

bool IsKey(const QEvent& event)
{
    return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease ||
           event.type() == QEvent::ShortcutOverride;
}

/// Never has the focus, but looks as if it had, and says so to a screen reader. Knows whether the input
/// method is composing in it.
class CellEditor final : public QLineEdit
{
public:
    using QLineEdit::QLineEdit;

    bool IsComposing() const { return composing_; }

protected:
    void showEvent(QShowEvent* event) override
    {
        QLineEdit::showEvent(event);
        QFocusEvent comes(QEvent::FocusIn, Qt::OtherFocusReason);
        focusInEvent(&comes);
        QAccessibleEvent told(this, QAccessible::Focus);
        QAccessible::updateAccessibility(&told);
    }
    void inputMethodEvent(QInputMethodEvent* event) override
    {
        composing_ = !event->preeditString().isEmpty();
        QLineEdit::inputMethodEvent(event);
    }

private:
    bool composing_ = false;
};

/// Holds what a person puts into an editor to its cell's limit. The control's own limit would halve a pair of
/// units, and cut the end of a full cell in place of what is put into its middle.
void HoldLimit(QLineEdit& line, int limit)
{
    const auto before = std::make_shared<QString>();
    QObject::connect(&line, &QLineEdit::textEdited, &line, [&line, before, limit] {
        const CaretText kept =
            LimitChange(*before, line.text(), line.cursorPosition(), CharactersMeasure, limit);
        if (kept.text == line.text())
            return;
        line.setText(kept.text);
        line.setModified(true);
        line.setCursorPosition(static_cast<int>(kept.caret));
    });
    QObject::connect(&line, &QLineEdit::textChanged, &line, [&line, before] { *before = line.text(); });
}

} // namespace

SpreadEditing::SpreadEditing(fpSpread& grid) : QStyledItemDelegate(&grid), grid_(grid) {}

QWidget* SpreadEditing::Editor() const
{
    return grid_.state() == fpSpread::EditingState ? grid_.indexWidget(grid_.currentIndex()) : nullptr;
}

bool SpreadEditing::IsComposing() const
{
    const auto* editor = dynamic_cast<const CellEditor*>(Editor());
    return editor && editor->IsComposing();
}

bool SpreadEditing::HasAttention() const
{
    return grid_.hasFocus() || grid_.state() == fpSpread::EditingState;
}

void SpreadEditing::Commit()
{
    const QPointer editor = Editor();
    // The keys of a composition that has not reached the editor yet belong to the next cell.
    if (IsComposing())
        EndComposition();
    if (editor && editor == Editor()) { // the end of a composition may let keys in, which walk on
        Q_EMIT commitData(editor);
        Q_EMIT closeEditor(editor, NoHint);
    }
}

void SpreadEditing::Cancel()
{
    if (QWidget* editor = Editor())
        Q_EMIT closeEditor(editor, RevertModelCache);
}

bool SpreadEditing::HandOn(QEvent& event)
{
    if (!IsKey(event) || handsOn_ || !Editor())
        return false;
    handsOn_ = true;
    const auto isBack = qScopeGuard([this, grid = QPointer(&grid_)] { // a key may end the grid
        if (grid)
            handsOn_ = false;
    });
    QCoreApplication::sendEvent(Editor(), &event);
    return true;
}

void SpreadEditing::Compose(QInputMethodEvent& event)
{
    const bool writes = !event.preeditString().isEmpty() || !event.commitString().isEmpty();
    if (!Editor() && writes && grid_.IsEditable(grid_.currentIndex()))
        grid_.edit(grid_.currentIndex(), fpSpread::AnyKeyPressed, nullptr);
    if (QWidget* editor = Editor()) {
        QCoreApplication::sendEvent(editor, &event);
        grid_.updateMicroFocus(); // the caret has moved
    }
}

QVariant SpreadEditing::Answer(Qt::InputMethodQuery query) const
{
    QVariant answer = Editor()->inputMethodQuery(query);
    if (answer.typeId() == QMetaType::QRect)
        return answer.toRect().translated(Editor()->mapTo(&grid_, QPoint()));
    return answer;
}

QWidget* SpreadEditing::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                     const QModelIndex& index) const
{
    const int col = index.column() + 1;
    auto* line = new CellEditor(parent);
    line->setFocusProxy(&grid_);
    line->setAccessibleName(
        index.model()->headerData(index.column(), Qt::Horizontal, Qt::AccessibleTextRole).toString());
    line->setMaxLength(MostGiven);
    line->setFrame(false);
    line->setTextMargins(0, 0, 0, 0);
    line->setAlignment(grid_.Cells().Alignment(col));
    if (const int limit = grid_.model_->MaxLength(col); limit > 0)
        HoldLimit(*line, limit);
    QPalette colors = line->palette();
    colors.setColor(QPalette::Base, theme::Focus);
    colors.setColor(QPalette::Text, theme::Text);
    line->setPalette(colors);
    return line;
}

void SpreadEditing::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    // A change of the cell by the program leaves alone what is being typed into it.
    auto* line = static_cast<QLineEdit*>(editor);
    if (!line->isModified() && line->text().isEmpty()) {
        line->setText(index.data(Qt::EditRole).toString());
        line->selectAll(); // to be replaced by what is typed
    }
}

void SpreadEditing::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    const auto* line = static_cast<QLineEdit*>(editor);
    if (!line->isModified())
        return;
    const QString text = line->text();
    model->setData(index, text.first(FirstLineLength(text)), Qt::EditRole);
}

void SpreadEditing::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                         const QModelIndex&) const
{
    editor->setGeometry(option.rect.adjusted(1, 1, -1, -1)); // the frame of the active cell stays on view
}

/// Without this the end of an editor whose proxy is the grid would take the grid's focus.
void SpreadEditing::destroyEditor(QWidget* editor, const QModelIndex& index) const
{
    editor->setFocusProxy(nullptr);
    QStyledItemDelegate::destroyEditor(editor, index);
    if (grid_.hasFocus())
        TellOfCell(grid_, index, QAccessible::Focus);
}

/// Keys in the editor that belong to the grid: the edit ends first.
bool SpreadEditing::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QStyledItemDelegate::eventFilter(object, event);
    auto* key = static_cast<QKeyEvent*>(event);
    switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        Commit();
        grid_.keyPressEvent(key);
        return true;
    case Qt::Key_Tab:
        Commit();
        grid_.OwnerTakes('\r');
        return true;
    case Qt::Key_Backtab:
        Commit();
        WalkBack();
        return true;
    default:
        return QStyledItemDelegate::eventFilter(object, event);
    }
}

/// To the edit cell before the active one, in its row or one above.
void SpreadEditing::WalkBack()
{
    int col = grid_.ActiveCol();
    int row = grid_.ActiveRow();
    do {
        if (--col < 1) {
            col = grid_.Cells().MaxCols();
            --row;
        }
    } while (row >= 1 && !grid_.IsEditable(grid_.model()->index(row - 1, col - 1)));
    grid_.SetActiveCell(col, row);
}

} // namespace tsms
