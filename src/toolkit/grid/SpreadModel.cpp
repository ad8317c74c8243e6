#include "toolkit/grid/SpreadModel.h"

#include "runtime/Numbers.h"
#include "toolkit/fields/LimitRule.h"
#include "toolkit/look/Pictures.h"
#include "toolkit/look/Theme.h"

#include <algorithm>
#include <limits>

namespace tsms {

namespace {

template <class Value> void Shorten(std::vector<Value>& values, int rows)
{
    if (static_cast<int>(values.size()) > rows + 1)
        values.erase(values.begin() + rows + 1, values.end());
}

/// The value of a row of a list of so many rows. The room is taken for all of them: a list that is filled
/// from the top does not move.
template <class Value> Value& Reach(std::vector<Value>& values, int row, int rows, const Value& empty)
{
    const auto place = static_cast<std::size_t>(row);
    if (place >= values.capacity())
        values.reserve(std::max(static_cast<std::size_t>(rows) + 1, 2 * place));
    if (place == values.size())
        values.push_back(empty);
    else if (place > values.size())
        values.resize(place + 1, empty);
    return values[place];
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
        rowColors_.erase(rowColors_.upper_bound(count), rowColors_.end());
        cellColors_.erase(cellColors_.lower_bound({count + 1, 0}), cellColors_.end());
        boundRows_ = std::min(boundRows_, count);
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
        std::erase_if(cellColors_, [count](const auto& entry) { return entry.first.second > count; });
        endRemoveColumns();
    }
}

void SpreadModel::Reset()
{
    beginResetModel();
    maxRows_ = DefaultRows;
    maxCols_ = DefaultCols;
    columns_.clear();
    rowColors_.clear();
    cellColors_.clear();
    source_.reset();
    boundRows_ = 0;
    boundCols_ = 0;
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
    if (QString text = SourceText(col, row); !text.isNull())
        return text;
    return column ? column->caption : QString();
}

void SpreadModel::SetText(int col, int row, QString text)
{
    if (!Has(col, row))
        return;
    QString& own = Reach(At(col).texts, row, maxRows_, QString());
    if (!own.isNull() && own == text)
        return;
    own = text.isNull() ? QStringLiteral("") : std::move(text);
    Announce(col, row);
}

void SpreadModel::EnterText(int col, int row, const QString& text)
{
    const int limit = MaxLength(col);
    SetText(col, row, limit > 0 ? text.left(CharactersMeasure.fitting(text, limit)) : text);
}

void SpreadModel::SetDataSource(std::shared_ptr<const CellSource> source)
{
    source_ = std::move(source);
    boundRows_ = source_ ? source_->Rows() : 0;
    boundCols_ = source_ ? source_->Cols() : 0;
    for (int col = 1; col <= boundCols_ && col < static_cast<int>(columns_.size()); ++col)
        Shorten(At(col).texts, 0);
    SetAnnouncing(announcing_);
}

SpreadModel::CellType SpreadModel::Type(int col) const
{
    const Column* column = Find(col);
    return column ? column->type : CellType::StaticText;
}

void SpreadModel::SetType(int col, CellType type)
{
    if (!Has(col, 0))
        return;
    At(col).type = type;
    Announce(col, All);
}

int SpreadModel::MaxLength(int col) const
{
    const Column* column = Find(col);
    return column ? column->maxLength : 0;
}

void SpreadModel::SetMaxLength(int col, int characters)
{
    if (Has(col, 0))
        At(col).maxLength = characters;
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
    Announce(col, All);
}

void SpreadModel::SetButton(int col, const QString& caption, const QColor& face, const QColor& text)
{
    if (!Has(col, 0))
        return;
    Column& column = At(col);
    column.type = CellType::Button;
    column.alignment = Qt::AlignCenter;
    column.caption = caption;
    column.face = face;
    column.faceText = text;
    Announce(col, All);
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
    if (col == All && row == All) {
        rowColors_.clear();
        cellColors_.clear();
        for (int each = 1; each <= maxCols_; ++each)
            At(each).colors = colors;
    } else if (col == All) {
        if (Has(1, row))
            rowColors_[row] = colors;
    } else if (row == All) {
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
    if (row == All && Has(col, 0)) {
        At(col).picture = index;
        At(col).pictures.clear();
    } else if (row >= 1 && Has(col, row)) {
        Reach(At(col).pictures, row, maxRows_, Unset) = static_cast<qint8>(index);
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
    return Type(index.column() + 1) == CellType::Edit ? flags | Qt::ItemIsEditable : flags;
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
    if (col < 1 || col > boundCols_ || row > boundRows_)
        return {};
    QString text = source_->Text(col, row);
    if (text.isNull())
        text = QStringLiteral("");
    return text;
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
