#pragma once

#include "runtime/CellSource.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QIcon>
#include <QList>

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace tsms {

/// The cells of a grid. They are told by column and row, both from 1; row 0 holds the column titles, column 0
/// the row titles. Whatever names a cell outside the grid is ignored, and reads as empty.
///
/// Texts are kept by column and only as far down as one was set; cells of a data source are read through.
class SpreadModel final : public QAbstractTableModel
{
public:
    /// Number: a text that other programs are to take for a number. It is shown as it stands.
    enum class CellType { StaticText, Edit, Button, Picture, Number };

    static constexpr int All = -1;          ///< all rows or all columns
    static constexpr int DefaultRows = 500; ///< after Reset, until the set-up says otherwise
    static constexpr int DefaultCols = 500;

    explicit SpreadModel(QObject* parent);

    // Size. Rows and columns beyond a smaller size lose their content.
    int MaxRows() const { return maxRows_; }
    int MaxCols() const { return maxCols_; }
    void SetMaxRows(int count);
    void SetMaxCols(int count);

    /// Back to the defaults: no content, no source, no formats. Pictures stay.
    void Reset();

    /// While off, no change of a cell is announced; switching it on announces all of them.
    void SetAnnouncing(bool on);

    // Content.
    QString Text(int col, int row) const;
    void SetText(int col, int row, QString text);
    void EnterText(int col, int row, const QString& text); ///< as a person does: up to the column's limit

    /// Shows the source's rows by position, from row 1 and column 1. Neither size changes. Texts set before
    /// in its columns are gone; SetText overrides a cell afterwards. Null: none.
    void SetDataSource(std::shared_ptr<const CellSource> source);

    // Formats of whole columns.
    CellType Type(int col) const;
    void SetType(int col, CellType type);
    int MaxLength(int col) const;
    void SetMaxLength(int col, int characters); ///< what a person can type or paste; 0: no limit
    Qt::Alignment Alignment(int col) const;
    void SetAlignment(int col, Qt::Alignment alignment);

    /// What a screen reader says of the column where its title says nothing.
    void SetWords(int col, const QString& words);

    /// Makes the column one of buttons, all with the same caption, which is also the text of its cells.
    void SetButton(int col, const QString& caption, const QColor& face, const QColor& text);
    QColor ButtonFace(int col) const;
    QColor ButtonText(int col) const;

    /// Digits are shown in groups of three, at the right. The texts of the cells stay as they are.
    void SetNumber(int col, bool number);
    bool IsNumber(int col) const;

    /// Colours of a cell, a column (row All), a row with its title (column All) or everything. A cell's own
    /// colours go before those of its row, and these before those of its column. Invalid colours mean the
    /// default.
    void SetColors(int col, int row, const QColor& back, const QColor& text);

    // Mark cells. Any cell that holds a picture shows it in place of its text.
    void SetPictures(const QList<QIcon>& pictures);
    QIcon Picture(int index) const;
    void SetCellPicture(int col, int row, int index); ///< row All: of every row, also of later ones; -1: none
    int CellPicture(int col, int row) const;          ///< -1: none

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    struct Colors
    {
        QColor back;
        QColor text;
    };
    struct Column
    {
        std::vector<QString> texts;  // by row, 0 the title; a null text was never set
        std::vector<qint8> pictures; // by row; Unset where the column's own counts
        CellType type = CellType::StaticText;
        Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
        int maxLength = 0;
        int picture = -1;
        bool number = false;
        Colors colors;
        QString words; // for a screen reader
        QString caption;
        QColor face;
        QColor faceText;
    };
    using Place = std::pair<int, int>; // row, column: a row's places stand together

    static constexpr qint8 Unset = -2;

    bool Has(int col, int row) const;
    const Column* Find(int col) const;
    Column& At(int col);
    QString SourceText(int col, int row) const;
    Colors ColorsAt(int col, int row) const;
    void Announce(int col, int row);

    int maxRows_ = DefaultRows;
    int maxCols_ = DefaultCols;
    bool announcing_ = true;
    std::vector<Column> columns_; // as far as one was touched
    std::map<int, Colors> rowColors_;
    std::map<Place, Colors> cellColors_;
    QList<QIcon> pictures_;
    std::shared_ptr<const CellSource> source_;
    int boundRows_ = 0; // rows beyond this one show nothing of the source
    int boundCols_ = 0; // nor do columns beyond this one
};

} // namespace tsms
