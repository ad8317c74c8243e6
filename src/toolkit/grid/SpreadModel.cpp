#include "toolkit/grid/SpreadModel.h"

#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "toolkit/look/Pictures.h"
#include "toolkit/look/Theme.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace tsms {

namespace {

/// Makes room in a list that is kept only as far down as something was set.
template <class Value>
void OpenIn(std::vector<Value>& values, int row, int count, int rows, const Value& empty)
{
    if (static_cast<int>(values.size()) <= row)
        return;
    values.insert(values.begin() + row, static_cast<std::size_t>(count), empty);
    if (static_cast<int>(values.size()) > rows + 1)
        values.resize(static_cast<std::size_t>(rows) + 1, empty);
}

template <class Value> void CloseIn(std::vector<Value>& values, int row, int count)
{
    const int size = static_cast<int>(values.size());
    if (size > row)
        values.erase(values.begin() + row, values.begin() + std::min(size, row + count));
}

template <class Value> void Shorten(std::vector<Value>& values, int rows)
{
    if (static_cast<int>(values.size()) > rows + 1)
        values.erase(values.begin() + rows + 1, values.end());
}

template <class Value> Value& Reach(std::vector<Value>& values, int row, const Value& empty)
{
    const auto place = static_cast<std::size_t>(row);
    if (values.size() == place)
        values.push_back(empty); // lists are mostly filled from the top
    else if (values.size() < place)
        values.resize(place + 1, empty);
    return values[place];
}

int RowOf(int row)
{
    return row;
}

int RowOf(const std::pair<int, int>& place)
{
    return place.first;
}

int AtRow(int, int row)
{
    return row;
}

std::pair<int, int> AtRow(const std::pair<int, int>& place, int row)
{
    return {row, place.second};
}

/// Moves what belongs to rows from `from` on by `by` rows; what would come to stand before `from` or behind
/// `last` is dropped.
template <class Map> void ShiftRows(Map& map, int from, int by, int last)
{
    Map shifted;
    for (auto& [key, value] : map) {
        const int row = RowOf(key);
        if (row < from) {
            shifted.emplace(key, std::move(value));
        } else if (row + by >= from && row + by <= last) {
            shifted.emplace(AtRow(key, row + by), std::move(value));
        }
    }
    map.swap(shifted);
}

/// A cell name in the manner A1. Column and row are 0 when the text is none.
std::pair<int, int> CellNamed(QStringView letters, QStringView digits)
{
    int col = 0;
    for (const QChar letter : letters)
        col = col * 26 + (letter.toUpper().unicode() - u'A' + 1);
    return {col, digits.toInt()};
}

} // namespace

SpreadModel::SpreadModel(QObject* parent) : QAbstractTableModel(parent) {}

void SpreadModel::SetMaxRows(int count)
{
    count = std::max(count, 0);
    if (count > maxRows_) {
        beginInsertRows({}, maxRows_, count - 1);
        maxRows_ = count;
        endInsertRows();
    } else if (count < maxRows_) {
        beginRemoveRows({}, count, maxRows_ - 1);
        maxRows_ = count;
        for (Column& column : columns_) {
            Shorten(column.texts, count);
            Shorten(column.pictures, count);
        }
        ShiftRows(rowColors_, count + 1, 0, count);
        ShiftRows(cellColors_, count + 1, 0, count);
        ShiftRows(formulas_, count + 1, 0, count);
        boundRows_ = std::min(boundRows_, count);
        Shorten(sourceRows_, count);
        endRemoveRows();
    }
}

void SpreadModel::SetMaxCols(int count)
{
    count = std::max(count, 0);
    if (count > maxCols_) {
        beginInsertColumns({}, maxCols_, count - 1);
        maxCols_ = count;
        endInsertColumns();
    } else if (count < maxCols_) {
        beginRemoveColumns({}, count, maxCols_ - 1);
        maxCols_ = count;
        if (static_cast<int>(columns_.size()) > count + 1)
            columns_.resize(static_cast<std::size_t>(count) + 1);
        const auto beyond = [count](const auto& entry) { return entry.first.second > count; };
        std::erase_if(cellColors_, beyond);
        std::erase_if(formulas_, beyond);
        endRemoveColumns();
    }
}

void SpreadModel::InsertRows(int row, int count)
{
    if (row < 1 || row > maxRows_ || count < 1)
        return;
    count = std::min(count, maxRows_ - row + 1);
    // The end falls off first, so that no row is ever announced twice.
    beginRemoveRows({}, maxRows_ - count, maxRows_ - 1);
    const int rows = maxRows_;
    maxRows_ = rows - count;
    endRemoveRows();
    beginInsertRows({}, row - 1, row + count - 2);
    maxRows_ = rows;
    OpenRows(row, count);
    endInsertRows();
}

void SpreadModel::DeleteRows(int row, int count)
{
    if (row < 1 || row > maxRows_ || count < 1)
        return;
    count = std::min(count, maxRows_ - row + 1);
    const int rows = maxRows_;
    beginRemoveRows({}, row - 1, row + count - 2);
    maxRows_ = rows - count;
    CloseRows(row, count);
    endRemoveRows();
    beginInsertRows({}, rows - count, rows - 1);
    maxRows_ = rows;
    endInsertRows();
}

void SpreadModel::Reset()
{
    beginResetModel();
    maxRows_ = fpSpread::DefaultRows;
    maxCols_ = fpSpread::DefaultCols;
    columns_.clear();
    rowColors_.clear();
    cellColors_.clear();
    formulas_.clear();
    source_.reset();
    boundRows_ = 0;
    boundCols_ = 0;
    sourceRows_.clear();
    endResetModel();
}

void SpreadModel::SetAnnouncing(bool on)
{
    announcing_ = on;
    if (!on || maxCols_ == 0)
        return;
    if (maxRows_ > 0)
        Q_EMIT dataChanged(index(0, 0), index(maxRows_ - 1, maxCols_ - 1));
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, maxCols_ - 1);
    if (maxRows_ > 0)
        Q_EMIT headerDataChanged(Qt::Vertical, 0, maxRows_ - 1);
}

QString SpreadModel::Text(int col, int row) const
{
    if (!Has(col, row))
        return {};
    const Column* column = Find(col);
    if (column && row < static_cast<int>(column->texts.size())) {
        const QString& text = column->texts[static_cast<std::size_t>(row)];
        if (!text.isNull())
            return text;
    }
    if (row == 0)
        return {};
    if (const auto formula = formulas_.find({row, col}); formula != formulas_.end())
        return Sum(formula->second);
    if (QString text = SourceText(col, row); !text.isNull())
        return text;
    return column ? column->caption : QString();
}

void SpreadModel::SetText(int col, int row, const QString& text)
{
    if (!Has(col, row))
        return;
    formulas_.erase({row, col});
    Reach(At(col).texts, row, QString()) = text.isNull() ? QStringLiteral("") : text;
    Announce(col, row);
}

void SpreadModel::SetFormula(int col, int row, const QString& formula)
{
    if (!Has(col, row) || row == 0)
        return;
    Column& column = At(col);
    if (row < static_cast<int>(column.texts.size()))
        column.texts[static_cast<std::size_t>(row)] = QString();
    formulas_[{row, col}] = formula;
    Announce(col, row);
}

void SpreadModel::SetDataSource(std::shared_ptr<const CellSource> source)
{
    source_ = std::move(source);
    sourceRows_.clear();
    boundRows_ = source_ ? source_->Rows() : 0;
    boundCols_ = source_ ? source_->Cols() : 0;
    for (int col = 1; col <= boundCols_ && col < static_cast<int>(columns_.size()); ++col)
        Shorten(At(col).texts, 0);
    std::erase_if(formulas_, [this](const auto& entry) { return entry.first.second <= boundCols_; });
    SetAnnouncing(announcing_);
}

fpSpread::CellType SpreadModel::Type(int col) const
{
    const Column* column = Find(col);
    return column ? column->type : fpSpread::CellType::StaticText;
}

void SpreadModel::SetType(int col, fpSpread::CellType type)
{
    if (!Has(col, 0))
        return;
    At(col).type = type;
    Announce(col, fpSpread::All);
}

int SpreadModel::MaxLength(int col) const
{
    const Column* column = Find(col);
    return column ? column->maxLength : 0;
}

void SpreadModel::SetMaxLength(int col, int characters)
{
    if (Has(col, 0))
        At(col).maxLength = std::max(characters, 0);
}

Qt::Alignment SpreadModel::Alignment(int col) const
{
    const Column* column = Find(col);
    return column ? column->alignment : Qt::AlignLeft | Qt::AlignVCenter;
}

void SpreadModel::SetAlignment(int col, Qt::Alignment alignment)
{
    if (!Has(col, 0))
        return;
    if (!(alignment & Qt::AlignVertical_Mask))
        alignment |= Qt::AlignVCenter;
    At(col).alignment = alignment;
    Announce(col, fpSpread::All);
}

void SpreadModel::SetButton(int col, const QString& caption, const QColor& face, const QColor& text)
{
    if (!Has(col, 0))
        return;
    Column& column = At(col);
    column.type = fpSpread::CellType::Button;
    column.alignment = Qt::AlignCenter;
    column.caption = caption;
    column.face = face;
    column.faceText = text;
    Announce(col, fpSpread::All);
}

QColor SpreadModel::ButtonFace(int col) const
{
    const Column* column = Find(col);
    return column && column->face.isValid() ? column->face : theme::ButtonFace;
}

QColor SpreadModel::ButtonText(int col) const
{
    const Column* column = Find(col);
    return column && column->faceText.isValid() ? column->faceText : theme::Text;
}

void SpreadModel::SetWords(int col, const QString& words)
{
    if (Has(col, 0))
        At(col).words = words;
}

bool SpreadModel::IsNumber(int col) const
{
    const Column* column = Find(col);
    return column && column->number;
}

void SpreadModel::SetNumber(int col, bool number)
{
    if (!Has(col, 0))
        return;
    At(col).number = number;
    SetAlignment(col, number ? Qt::AlignRight : Qt::AlignLeft);
}

void SpreadModel::SetColors(int col, int row, const QColor& back, const QColor& text)
{
    const Colors colors{back, text};
    if (col == fpSpread::All && row == fpSpread::All) {
        rowColors_.clear();
        cellColors_.clear();
        for (int each = 1; each <= maxCols_; ++each)
            At(each).colors = colors;
    } else if (col == fpSpread::All) {
        if (Has(1, row))
            rowColors_[row] = colors;
    } else if (row == fpSpread::All) {
        if (Has(col, 0))
            At(col).colors = colors;
    } else if (Has(col, row)) {
        cellColors_[{row, col}] = colors;
    }
    SetAnnouncing(announcing_);
}

void SpreadModel::SetPictures(const QList<QIcon>& pictures)
{
    pictures_ = pictures;
    SetAnnouncing(announcing_);
}

QIcon SpreadModel::Picture(int index) const
{
    return pictures_.value(index);
}

int SpreadModel::CellPicture(int col, int row) const
{
    const Column* column = Find(col);
    if (!column || row < 1 || !Has(col, row))
        return -1;
    if (row < static_cast<int>(column->pictures.size())) {
        const qint8 own = column->pictures[static_cast<std::size_t>(row)];
        if (own != Unset)
            return own;
    }
    return column->picture;
}

void SpreadModel::SetCellPicture(int col, int row, int index)
{
    index = std::clamp(index, -1, int{std::numeric_limits<qint8>::max()});
    if (row == fpSpread::All && Has(col, 0)) {
        At(col).picture = index;
        At(col).pictures.clear();
    } else if (row >= 1 && Has(col, row)) {
        Reach(At(col).pictures, row, Unset) = static_cast<qint8>(index);
    } else {
        return;
    }
    Announce(col, row);
}

int SpreadModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : maxRows_;
}

int SpreadModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : maxCols_;
}

QVariant SpreadModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const int col = index.column() + 1;
    const int row = index.row() + 1;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return Text(col, row);
    case Qt::DecorationRole:
        if (const int picture = CellPicture(col, row); picture >= 0)
            return Picture(picture);
        return {};
    case Qt::AccessibleTextRole:
        if (const int picture = CellPicture(col, row); picture >= 0)
            return CheckWords(picture);
        return IsNumber(col) ? GroupDigits(Text(col, row)) : QString();
    case Qt::UserRole:
        if (const int picture = CellPicture(col, row); picture >= 0)
            return picture;
        return {};
    case Qt::TextAlignmentRole:
        return QVariant(static_cast<int>(Alignment(col)));
    case Qt::BackgroundRole:
        if (const QColor back = ColorsAt(col, row).back; back.isValid())
            return back;
        return {};
    case Qt::ForegroundRole:
        if (const QColor text = ColorsAt(col, row).text; text.isValid())
            return text;
        return {};
    default:
        return {};
    }
}

QVariant SpreadModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const int number = section + 1;
    const bool titles = orientation == Qt::Horizontal;
    switch (role) {
    case Qt::DisplayRole:
        return titles ? Text(number, 0) : Text(0, number);
    case Qt::AccessibleTextRole:
        if (const Column* column = Find(number); titles && column && !column->words.isEmpty())
            return column->words;
        return headerData(section, orientation, Qt::DisplayRole);
    case Qt::TextAlignmentRole:
        return QVariant(static_cast<int>(Qt::AlignCenter));
    case Qt::BackgroundRole:
    case Qt::ForegroundRole: {
        const Colors colors = titles ? ColorsAt(number, 0) : ColorsAt(0, number);
        const QColor color = role == Qt::BackgroundRole ? colors.back : colors.text;
        return color.isValid() ? QVariant(color) : QVariant();
    }
    default:
        return {};
    }
}

Qt::ItemFlags SpreadModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return Type(index.column() + 1) == fpSpread::CellType::Edit ? flags | Qt::ItemIsEditable : flags;
}

bool SpreadModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || role != Qt::EditRole)
        return false;
    SetText(index.column() + 1, index.row() + 1, value.toString());
    return true;
}

bool SpreadModel::Has(int col, int row) const
{
    return col >= 0 && col <= maxCols_ && row >= 0 && row <= maxRows_;
}

const SpreadModel::Column* SpreadModel::Find(int col) const
{
    return col >= 0 && col < static_cast<int>(columns_.size()) ? &columns_[static_cast<std::size_t>(col)]
                                                               : nullptr;
}

SpreadModel::Column& SpreadModel::At(int col)
{
    if (col >= static_cast<int>(columns_.size()))
        columns_.resize(static_cast<std::size_t>(col) + 1);
    return columns_[static_cast<std::size_t>(col)];
}

/// Null where the source has no such cell.
QString SpreadModel::SourceText(int col, int row) const
{
    const int from = col >= 1 && col <= boundCols_ ? SourceRow(row) : 0;
    if (from < 1)
        return {};
    QString text = source_->Text(col, from);
    if (text.isNull())
        text = QStringLiteral("");
    return text;
}

QString SpreadModel::Sum(const QString& formula) const
{
    static const QRegularExpression Pattern(
        QStringLiteral(
            "^\\s*=?\\s*SUM\\(\\s*([A-Z]{1,3})([0-9]{1,6})\\s*:\\s*([A-Z]{1,3})([0-9]{1,6})\\s*\\)\\s*$"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = Pattern.match(formula);
    if (!match.hasMatch())
        return {};
    const auto [firstCol, firstRow] = CellNamed(match.capturedView(1), match.capturedView(2));
    const auto [lastCol, lastRow] = CellNamed(match.capturedView(3), match.capturedView(4));
    double sum = 0;
    for (int row = std::max(firstRow, 1); row <= std::min(lastRow, maxRows_); ++row) {
        for (int col = std::max(firstCol, 1); col <= std::min(lastCol, maxCols_); ++col) {
            if (formulas_.contains({row, col}))
                continue;
            bool number = false;
            const double value = Trim(Text(col, row)).toDouble(&number);
            if (number && std::isfinite(value))
                sum += value;
        }
    }
    return QString::number(sum, 'g', 15);
}

SpreadModel::Colors SpreadModel::ColorsAt(int col, int row) const
{
    Colors colors;
    const auto fill = [&colors](const Colors& from) {
        if (!colors.back.isValid())
            colors.back = from.back;
        if (!colors.text.isValid())
            colors.text = from.text;
    };
    if (const auto cell = cellColors_.find({row, col}); cell != cellColors_.end())
        fill(cell->second);
    if (const auto whole = rowColors_.find(row); whole != rowColors_.end())
        fill(whole->second);
    const Column* column = Find(col);
    if (column && row != 0 && col != 0)
        fill(column->colors);
    return colors;
}

void SpreadModel::OpenRows(int row, int count)
{
    TraceSourceRows();
    for (Column& column : columns_) {
        OpenIn(column.texts, row, count, maxRows_, QString());
        OpenIn(column.pictures, row, count, maxRows_, Unset);
    }
    OpenIn(sourceRows_, row, count, maxRows_, 0);
    ShiftRows(rowColors_, row, count, maxRows_);
    ShiftRows(cellColors_, row, count, maxRows_);
    ShiftRows(formulas_, row, count, maxRows_);
}

void SpreadModel::CloseRows(int row, int count)
{
    TraceSourceRows();
    for (Column& column : columns_) {
        CloseIn(column.texts, row, count);
        CloseIn(column.pictures, row, count);
    }
    CloseIn(sourceRows_, row, count);
    const int last = maxRows_ + count;
    ShiftRows(rowColors_, row, -count, last);
    ShiftRows(cellColors_, row, -count, last);
    ShiftRows(formulas_, row, -count, last);
}

/// From here on the grid's rows and the source's rows go apart.
void SpreadModel::TraceSourceRows()
{
    if (!source_ || !sourceRows_.empty())
        return;
    sourceRows_.resize(static_cast<std::size_t>(boundRows_) + 1);
    std::iota(sourceRows_.begin(), sourceRows_.end(), 0);
}

int SpreadModel::SourceRow(int row) const
{
    if (sourceRows_.empty())
        return row <= boundRows_ ? row : 0;
    return row < static_cast<int>(sourceRows_.size()) ? sourceRows_[static_cast<std::size_t>(row)] : 0;
}

void SpreadModel::Announce(int col, int row)
{
    if (!announcing_)
        return;
    if (row == 0 && col > 0) {
        Q_EMIT headerDataChanged(Qt::Horizontal, col - 1, col - 1);
    } else if (col == 0 && row > 0) {
        Q_EMIT headerDataChanged(Qt::Vertical, row - 1, row - 1);
    } else if (col > 0 && row > 0) {
        Q_EMIT dataChanged(index(row - 1, col - 1), index(row - 1, col - 1));
    } else if (col > 0 && maxRows_ > 0) {
        Q_EMIT dataChanged(index(0, col - 1), index(maxRows_ - 1, col - 1));
    }
}

} // namespace tsms
