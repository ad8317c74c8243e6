#pragma once

#include "toolkit/grid/fpSpread.h"

#include <QAbstractTableModel>

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace tsms {

/// The cells of a grid. Texts are kept by column and only as far down as one was set; cells of a data source
/// are read through. Numbers of columns and rows are the grid's: from 1, with 0 for the titles.
class SpreadModel final : public QAbstractTableModel
{
public:
    explicit SpreadModel(QObject* parent);

    int MaxRows() const { return maxRows_; }
    int MaxCols() const { return maxCols_; }
    void SetMaxRows(int count);
    void SetMaxCols(int count);
    void Reset();

    /// While off, no change of a cell is announced; switching it on announces all of them.
    void SetAnnouncing(bool on);

    QString Text(int col, int row) const;
    void SetText(int col, int row, const QString& text);
    void SetDataSource(std::shared_ptr<const CellSource> source);

    fpSpread::CellType Type(int col) const;
    void SetType(int col, fpSpread::CellType type);
    int MaxLength(int col) const;
    void SetMaxLength(int col, int characters);
    Qt::Alignment Alignment(int col) const;
    void SetAlignment(int col, Qt::Alignment alignment);
    void SetButton(int col, const QString& caption, const QColor& face, const QColor& text);
    QColor ButtonFace(int col) const;
    QColor ButtonText(int col) const;
    void SetWords(int col, const QString& words);
    bool IsNumber(int col) const;
    void SetNumber(int col, bool number);
    void SetColors(int col, int row, const QColor& back, const QColor& text);

    void SetPictures(const QList<QIcon>& pictures);
    QIcon Picture(int index) const;
    int CellPicture(int col, int row) const;
    void SetCellPicture(int col, int row, int index);

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
        fpSpread::CellType type = fpSpread::CellType::StaticText;
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

    int maxRows_ = fpSpread::DefaultRows;
    int maxCols_ = fpSpread::DefaultCols;
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
