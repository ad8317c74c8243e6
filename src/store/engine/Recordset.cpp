#include "store/engine/Recordset.h"

#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"

#include <algorithm>
#include <limits>

namespace tsms {

namespace {

constexpr std::size_t BlockRows = 1024;
constexpr std::size_t MostTextAhead = 1 << 20; ///< bytes; one huge text tells nothing of the rows behind it

std::size_t BlockAt(int row)
{
    return static_cast<std::size_t>(row) / BlockRows;
}

std::size_t PlaceAt(int row)
{
    return static_cast<std::size_t>(row) % BlockRows;
}

RuntimeError NoSuchItem()
{
    return RuntimeError(
        ItemNotFound, QStringLiteral("요청한 이름이나 서수에 해당하는 항목을 컬렉션에서 찾을 수 없습니다."));
}

} // namespace

Recordset::Recordset(QStringList fieldNames)
    : names_(std::move(fieldNames)), columns_(static_cast<std::size_t>(names_.size()))
{
}

int Recordset::FieldIndex(QStringView name) const
{
    for (int column = 0; column < FieldCount(); ++column)
        if (names_[column].compare(name, Qt::CaseInsensitive) == 0)
            return column;
    throw NoSuchItem();
}

const Recordset::Column& Recordset::ColumnAt(int row, int column) const
{
    if (row < 0 || row >= rows_)
        throw RuntimeError(NoCurrentRecord, QStringLiteral("BOF나 EOF가 참이거나 현재 레코드가 없습니다."));
    if (column < 0 || column >= FieldCount())
        throw NoSuchItem();
    return columns_[static_cast<std::size_t>(column)];
}

QString Recordset::Text(int row, int column) const
{
    return TextOf(ColumnAt(row, column), row);
}

bool Recordset::IsNull(int row, int column) const
{
    return IsNull(ColumnAt(row, column), row);
}

void Recordset::MoveNext()
{
    if (!Eof())
        ++current_;
}

QString Recordset::Field(QStringView name) const
{
    return Field(FieldIndex(name));
}

QString Recordset::Field(int column) const
{
    return Text(current_, column);
}

bool Recordset::IsNull(QStringView name) const
{
    return IsNull(current_, FieldIndex(name));
}

void Recordset::AddNull()
{
    Column& column = Next(Kind::Nothing);
    column.nulls.resize(static_cast<std::size_t>(rows_));
    column.nulls.push_back(true);
    switch (column.kind) {
    case Kind::Nothing:
        break;
    case Kind::Integer:
        BlockFor(column, rows_).integers.push_back(0);
        break;
    case Kind::Real:
        BlockFor(column, rows_).reals.push_back(0);
        break;
    case Kind::Text:
        Append(BlockFor(column, rows_), {});
        break;
    }
    Filled();
}

void Recordset::AddInteger(std::int64_t value)
{
    Column& column = Next(Kind::Integer);
    Block& block = BlockFor(column, rows_);
    if (column.kind == Kind::Text) {
        Append(block, QByteArray::number(static_cast<qlonglong>(value)).toStdString());
    } else if (column.kind == Kind::Real) {
        block.reals.push_back(static_cast<double>(value));
    } else {
        block.integers.push_back(value);
    }
    Filled();
}

void Recordset::AddReal(double value)
{
    Column& column = Next(Kind::Real);
    Block& block = BlockFor(column, rows_);
    if (column.kind == Kind::Text) {
        Append(block, QByteArray::number(value, 'g', 15).toStdString());
    } else {
        block.reals.push_back(value);
    }
    Filled();
}

void Recordset::AddText(const char* utf8, qsizetype size)
{
    Append(BlockFor(Next(Kind::Text), rows_), {utf8, static_cast<std::size_t>(size)});
    Filled();
}

Recordset::Column& Recordset::Next(Kind kind)
{
    Column& column = columns_[static_cast<std::size_t>(filling_)];
    if (kind > column.kind)
        Promote(column, kind);
    return column;
}

void Recordset::Filled()
{
    if (++filling_ == FieldCount()) {
        filling_ = 0;
        ++rows_;
    }
}

// A column takes the widest of the types that its values came in.
void Recordset::Promote(Column& column, Kind kind) const
{
    const auto integerAt = [&column](int row) {
        return column.kind == Kind::Integer ? column.blocks[BlockAt(row)].integers[PlaceAt(row)] : 0;
    };
    Column wider;
    wider.kind = kind;
    wider.nulls = column.nulls;
    for (int row = 0; row < rows_; ++row) {
        Block& block = BlockFor(wider, row);
        switch (kind) {
        case Kind::Nothing:
            break;
        case Kind::Integer:
            block.integers.push_back(0);
            break;
        case Kind::Real:
            block.reals.push_back(static_cast<double>(integerAt(row)));
            break;
        case Kind::Text:
            Append(block, TextOf(column, row).toStdString());
            break;
        }
    }
    column = std::move(wider);
}

/// A new block gets the room that the one before it took: rows of one result are much alike.
Recordset::Block& Recordset::BlockFor(Column& column, int row)
{
    std::vector<Block>& blocks = column.blocks;
    if (BlockAt(row) < blocks.size())
        return blocks.back();
    Block next;
    if (!blocks.empty()) {
        const Block& former = blocks.back();
        next.integers.reserve(former.integers.size());
        next.reals.reserve(former.reals.size());
        next.text.reserve(std::min(former.text.size() + former.text.size() / 8, MostTextAhead));
        next.ends.reserve(former.ends.size());
    }
    return blocks.emplace_back(std::move(next));
}

void Recordset::Append(Block& block, std::string_view utf8)
{
    const std::size_t end = block.text.size() + utf8.size();
    if (end > std::numeric_limits<std::uint32_t>::max())
        throw RuntimeError(Overflow);
    block.text.insert(block.text.end(), utf8.begin(), utf8.end());
    block.ends.push_back(static_cast<std::uint32_t>(end));
}

bool Recordset::IsNull(const Column& column, int row)
{
    const auto place = static_cast<std::size_t>(row);
    return place < column.nulls.size() && column.nulls[place];
}

QString Recordset::TextOf(const Column& column, int row)
{
    if (IsNull(column, row) || column.kind == Kind::Nothing)
        return {};
    const Block& block = column.blocks[BlockAt(row)];
    const std::size_t place = PlaceAt(row);
    switch (column.kind) {
    case Kind::Nothing:
        break;
    case Kind::Integer:
        return QString::number(static_cast<qlonglong>(block.integers[place]));
    case Kind::Real:
        return QString::number(block.reals[place], 'g', 15);
    case Kind::Text:
        break;
    }
    const std::uint32_t from = place == 0 ? 0 : block.ends[place - 1];
    return QString::fromUtf8(block.text.data() + from, block.ends[place] - from);
}

} // namespace tsms
