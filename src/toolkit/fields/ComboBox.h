#pragma once

#include <QComboBox>

#include <functional>
#include <optional>

namespace tsms {

class CellSource;

/// A list to choose from. Entries count from 0; each carries a text and a number. An entry that does not fit
/// ends with a sign of it, and the tool tip tells it whole.
class ComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// As wide as its entries, or of a width in pixels, for which it needs no view of them before it opens.
    ComboBox(QWidget* parent, const QString& name, std::optional<int> width = {});

    void AddItem(const QString& text, int number = 0);
    /// Raises 5 when `index` is outside 0 to ListCount().
    void InsertItem(int index, const QString& text, int number = 0);
    /// Adds an entry for each row: its first column is the number, its second the text. The entry of the
    /// number `first` (empty for none) goes before all others.
    void AddRows(const CellSource& rows, const QString& first = QString());
    void Clear();
    int ListCount() const { return count(); }

    /// -1 when nothing is selected.
    int ListIndex() const { return currentIndex(); }
    /// Selects an entry; past the end the last one, -1 (and below) none. On an empty list nothing is
    /// selected. Raises OnClick when the selection changes to another entry.
    void SetListIndex(int index);

    /// The text of the selected entry, or nothing.
    QString Text() const { return currentText(); }
    /// The text of an entry, or nothing when there is no such entry.
    QString List(int index) const { return itemText(index); }

    /// The number of an entry. Raises 381 when there is no such entry, so also for ListIndex() with nothing
    /// selected.
    int ItemData(int index) const;
    /// ItemData of the selected entry.
    int SelectedData() const { return ItemData(ListIndex()); }

    QColor BackColor() const;
    void SetBackColor(const QColor& color);

    /// An entry was chosen, by a person (also the same again) or by SetListIndex.
    std::function<void()> OnClick;
    /// Each character before it acts on the closed list, also Enter (13). Set to 0 it is swallowed.
    std::function<void(char16_t& key)> OnKeyPress;
    /// Before the entries are shown. They have no view() before the first time, unless somebody asks for it.
    std::function<void()> OnDropDown;
    QString Tag;

    void showPopup() override;

protected:
    bool event(QEvent* event) override;
    /// What is drawn.
    void initStyleOption(QStyleOptionComboBox* option) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace tsms
