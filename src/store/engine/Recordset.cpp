#include "store/engine/Recordset.h"

#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"

#include <limits>

namespace tsms {

namespace {

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
    return TextOf(ColumnAt(row, column), static_cast<std::size_t>(row));
}

bool Recordset::IsNull(int row, int column) const
{
    return IsNull(ColumnAt(row, column), static_cast<std::size_t>(row));
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
        column.integers.push_back(0);
        break;
    case Kind::Real:
        column.reals.push_back(0);
        break;
    case Kind::Text:
        Append(column, {});
        break;
    }
    Filled();
}

void Recordset::AddInteger(std::int64_t value)
{
    Column& column = Next(Kind::Integer);
    if (column.kind == Kind::Text) {
        Append(column, QByteArray::number(static_cast<qlonglong>(value)).toStdString());
    } else if (column.kind == Kind::Real) {
        column.reals.push_back(static_cast<double>(value));
    } else {
        column.integers.push_back(value);
    }
    Filled();
}

void Recordset::AddReal(double value)
{
    Column& column = Next(Kind::Real);
    if (column.kind == Kind::Text) {
        Append(column, QByteArray::number(value, 'g', 15).toStdString());
    } else {
        column.reals.push_back(value);
    }
    Filled();
}

void Recordset::AddText(const char* utf8, qsizetype size)
{
    Append(Next(Kind::Text), {utf8, static_cast<std::size_t>(size)});
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
    const auto rows = static_cast<std::size_t>(rows_);
    Column wider;
    wider.kind = kind;
    wider.nulls = column.nulls;
    for (std::size_t row = 0; row < rows; ++row) {
        switch (kind) {
        case Kind::Nothing:
            break;
        case Kind::Integer:
            wider.integers.push_back(0);
            break;
        case Kind::Real:
            wider.reals.push_back(column.kind == Kind::Integer ? static_cast<double>(column.integers[row])
                                                               : 0);
            break;
        case Kind::Text:
            Append(wider, TextOf(column, row).toStdString());
            break;
        }
    }
    column = std::move(wider);
}

void Recordset::Append(Column& column, std::string_view utf8)
{
    const std::size_t end = column.text.size() + utf8.size();
    if (end > std::numeric_limits<std::uint32_t>::max())
        throw RuntimeError(Overflow);
    // By itself the text would double its room: half of that of a long result could be air.
    if (end > column.text.capacity())
        column.text.reserve(end + end / 4 + 64);
    column.text.insert(column.text.end(), utf8.begin(), utf8.end());
    column.ends.push_back(static_cast<std::uint32_t>(end));
}

bool Recordset::IsNull(const Column& column, std::size_t row)
{
    return row < column.nulls.size() && column.nulls[row];
}

QString Recordset::TextOf(const Column& column, std::size_t row)
{
    if (IsNull(column, row))
        return {};
    switch (column.kind) {
    case Kind::Nothing:
        return {};
    case Kind::Integer:
        return QString::number(static_cast<qlonglong>(column.integers[row]));
    case Kind::Real:
        return QString::number(column.reals[row], 'g', 15);
    case Kind::Text:
        break;
    }
    const std::uint32_t from = row == 0 ? 0 : column.ends[row - 1];
    return QString::fromUtf8(column.text.data() + from, column.ends[row] - from);
}

} // namespace tsms
