#include "toolkit/grid/SpreadCommands.h"

#include "toolkit/fields/LimitRule.h"
#include "toolkit/fields/RaiseEvent.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/PastedRows.h"
#include "toolkit/grid/SpreadSelection.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMenu>

namespace tsms {

namespace {

void Copy(fpSpread& grid)
{
    const QList<QStringList> texts = SelectedTexts(grid);
    if (!texts.isEmpty())
        QApplication::clipboard()->setText(CopiedText(texts));
}

void ClearSelected(fpSpread& grid)
{
    for (const QModelIndex& cell : SelectedEditCells(grid))
        grid.Cells().SetText(cell.column() + 1, cell.row() + 1, QString());
}

void Cut(fpSpread& grid)
{
    if (SelectedEditCells(grid).isEmpty())
        return;
    Copy(grid);
    ClearSelected(grid);
}

bool OwnerTakesPaste(fpSpread& grid, const QString& text)
{
    bool taken = false;
    if (grid.OnPaste)
        RaiseEvent(grid, [&] { taken = grid.OnPaste(text); });
    return taken;
}

void Paste(fpSpread& grid)
{
    const QString text = QApplication::clipboard()->text();
    if (OwnerTakesPaste(grid, text) || !grid.IsEditable(grid.currentIndex()))
        return;
    // A cell takes what stands before a line break.
    grid.Cells().EnterText(grid.ActiveCol(), grid.ActiveRow(), text.first(FirstLineLength(text)));
}

bool HasEditColumn(const fpSpread& grid)
{
    for (int col = 1; col <= grid.Cells().MaxCols(); ++col)
        if (grid.Cells().Type(col) == SpreadModel::CellType::Edit)
            return true;
    return false;
}

} // namespace

bool DoCommand(fpSpread& grid, const QKeyEvent& key)
{
    if (key.matches(QKeySequence::Copy))
        Copy(grid);
    else if (key.matches(QKeySequence::Cut))
        Cut(grid);
    else if (key.matches(QKeySequence::Paste))
        Paste(grid);
    else if (key.matches(QKeySequence::Delete))
        ClearSelected(grid);
    else
        return false;
    return true;
}

void OpenMenu(fpSpread& grid, QPoint place)
{
    auto* menu = new QMenu(&grid);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString& words, QKeySequence::StandardKey key, bool enabled,
                         void (*act)(fpSpread&)) {
        QAction* entry = menu->addAction(words, &grid, [&grid, act] { act(grid); });
        entry->setShortcut(key);
        entry->setShortcutContext(Qt::WidgetShortcut); // only to be seen: the grid has the keys
        entry->setShortcutVisibleInContextMenu(true);
        entry->setEnabled(enabled);
    };
    add(QStringLiteral("복사"), QKeySequence::Copy, !SelectedTexts(grid).isEmpty(), Copy);
    if (HasEditColumn(grid)) {
        add(QStringLiteral("붙여넣기"), QKeySequence::Paste, !QApplication::clipboard()->text().isEmpty(),
            Paste);
        add(QStringLiteral("지우기"), QKeySequence::Delete, !SelectedEditCells(grid).isEmpty(),
            ClearSelected);
    }
    menu->popup(place);
}

void OpenMenuAtCell(fpSpread& grid)
{
    OpenMenu(grid, grid.viewport()->mapToGlobal(grid.visualRect(grid.currentIndex()).bottomLeft()));
}

} // namespace tsms
