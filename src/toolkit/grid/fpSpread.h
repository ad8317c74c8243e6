#pragma once

#include "toolkit/grid/ColumnWidths.h"
#include "toolkit/grid/SpreadModel.h"
#include "toolkit/grid/SpreadMouse.h"

#include <QAccessible>
#include <QColor>
#include <QTableView>

#include <functional>
#include <memory>

namespace tsms {

class SpreadDelegate;
class SpreadEditing;

/// The grid of all pages and dialogs: what is seen of its cells, and what a person does with them. Cells are
/// told as the model tells them, by column and row from 1.
///
/// Widths are in units of a little more than a digit of the grid's font, heights in points.
///
/// Behaviour: a click or an arrow key makes a cell the active one. Typing (also by an input method) in an
/// edit cell replaces its text, F2 and a double click edit it in place. A drag, Shift and a click, Shift and
/// the keys that walk, and Ctrl+A select a block; the active cell stays where it is. Ctrl+C copies what is
/// selected, Ctrl+X and Delete empty its edit cells, Ctrl+V pastes at the active cell; a menu has all but
/// Ctrl+X. The space bar in any other cell counts as a click on it. Tab leaves the grid; from a cell that is
/// being edited it goes on as Enter does, and Shift+Tab back to the edit cell before it.
class fpSpread : public QTableView
{
    Q_OBJECT

public:
    explicit fpSpread(QWidget* parent = nullptr);
    ~fpSpread() override;

    /// How many there are, what they hold, how they look.
    SpreadModel& Cells() { return *model_; }
    const SpreadModel& Cells() const { return *model_; }

    /// Back to the defaults: no content, no source, no hidden rows or columns, no formats, default sizes,
    /// active cell (1, 1), space clicks on. Pictures, FillWidth and the state of ReDraw stay.
    void Reset();

    /// While off, nothing is drawn and cells are filled at no cost for the screen.
    void SetReDraw(bool on);
    bool ReDraw() const { return reDraw_; }

    /// Makes changes of many cells with it off. What is on view follows when they are done, also where they
    /// raise.
    void InOneGo(const std::function<void()>& changes);

    /// Has the cells show the source's, and drops what is being typed into one.
    void SetDataSource(std::shared_ptr<const CellSource> source);

    // The active cell. It is (1, 1) until something else makes another one active.
    int ActiveRow() const;
    int ActiveCol() const;

    /// Outside the grid or in a hidden column: stays where it is. In a hidden row: the next one on view
    /// below.
    void SetActiveCell(int col, int row);

    // Sizes and what is on view.
    void SetColWidth(int col, double width);
    double ColWidth(int col) const;
    double ColWidthInDigits(int col) const;    ///< how many digits of the grid's font have room side by side
    void SetRowHeight(int row, double points); ///< row 0: the title row; All: all but the title row
    bool RowHidden(int row) const;
    void SetRowHidden(int row, bool hidden); ///< a hidden row keeps its content and may stay the active one
    bool ColHidden(int col) const;
    void SetColHidden(int col, bool hidden);
    void SetHeadersVisible(bool columns, bool rows);
    void SetGridColor(const QColor& color);
    void SetBackgroundColor(const QColor& color); ///< of the area beyond the cells
    /// Where the columns leave room all of them are widened in proportion; off: the last one has it, as it
    /// has what a person takes from another one.
    void SetFillWidth(bool on);
    /// Off: the space bar does nothing in cells without text entry.
    void SetSpaceClicks(bool on);
    void SetRowCursor(bool on); ///< tints the whole active row, for lists whose buttons act on it

    /// Typing in a cell that is no edit cell does not jump about in the grid.
    void keyboardSearch(const QString&) override {}

    /// Ends an edit that is under way; the text that stands in the editor goes into the cell.
    void CommitEdit();
    bool IsEditing() const;

    /// A person can write into the cell: it is on view, in an edit column.
    bool IsEditable(const QModelIndex& index) const;

    /// Each key that makes a character, before the grid acts, by its character code; Enter is 13, also while
    /// a cell is edited (the edit is committed first). Set it to 0 to swallow the key.
    std::function<void(int& key)> OnKeyPress;

    /// A text that is pasted onto the active cell, whether it can be edited or not; pastes into an editor are
    /// its own. True: it has been taken, and the grid does nothing.
    std::function<bool(const QString& text)> OnPaste;

    /// The keyboard comes to the grid from another control, by Tab or Shift+Tab.
    std::function<void()> OnTabInto;

Q_SIGNALS:
    /// A click, or the space bar, on a cell. The cell is the active one by then. A double click is one Click
    /// and one DblClick; on a button, where what follows the first press stands for nothing, one Click alone.
    void Click(int col, int row);
    /// Anywhere in the grid: on a title its row or column is 0, beside all cells both are -1.
    void DblClick(int col, int row);

protected:
    using QTableView::edit;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

private:
    friend class SpreadDelegate;
    friend class SpreadEditing;
    friend class SpreadMouse;

    bool HasCell(int col, int row) const;
    bool IsOnView(const QModelIndex& index) const;
    bool OwnerTakes(int key);
    void ClickCell(const QModelIndex& index);
    void TellOfSelection(const QItemSelection& cells, QAccessible::Event what);
    void KeepActiveCell();
    void ShowFocus();
    void UpdateRow(const QModelIndex& index);

    SpreadEditing* editing_ = nullptr; // first of all: the making of the others is an event to the grid
    SpreadModel* model_;
    ColumnWidths widths_{*this};
    SpreadMouse mouse_{*this};
    QColor gridColor_;
    bool reDraw_ = true;
    bool rowCursor_ = false;
    bool spaceClicks_ = true;
};

} // namespace tsms
