#include "store/odbc/OdbcRows.h"

#include "store/engine/DatabaseError.h"
#include "store/odbc/OdbcHandle.h"

#include <QStringConverter>

#include <algorithm>
#include <array>
#include <cstddef>

namespace tsms {

namespace {

constexpr std::size_t BlockBytes = 1 << 20;
constexpr std::size_t MostRows = 256;
constexpr std::size_t LikelyUnits = 1000; ///< that values without a limit nearly always stay below
constexpr std::size_t PieceUnits = 4096;

SQLSMALLINT FetchedType(OdbcColumn::Form form)
{
    switch (form) {
    case OdbcColumn::Form::Integer:
        return SQL_C_SBIGINT;
    case OdbcColumn::Form::Real:
        return SQL_C_DOUBLE;
    case OdbcColumn::Form::Moment:
        return SQL_C_TYPE_TIMESTAMP;
    case OdbcColumn::Form::Decimal:
    case OdbcColumn::Form::Text:
        break;
    }
    return SQL_C_WCHAR;
}

/// The bytes of one value; of a text with the zero that the driver writes behind it.
std::size_t RoomOf(const OdbcColumn& column)
{
    switch (column.form) {
    case OdbcColumn::Form::Integer:
        return sizeof(SQLBIGINT);
    case OdbcColumn::Form::Real:
        return sizeof(SQLDOUBLE);
    case OdbcColumn::Form::Moment:
        return sizeof(SQL_TIMESTAMP_STRUCT);
    case OdbcColumn::Form::Decimal:
    case OdbcColumn::Form::Text:
        break;
    }
    return ((column.width > 0 ? static_cast<std::size_t>(column.width) : LikelyUnits) + 1) * sizeof(SQLWCHAR);
}

/// Puts fetched values into a recordset.
class Filler
{
public:
    Filler(const std::vector<OdbcColumn>& columns, const std::function<void()>& whileReading)
        : whileReading_(whileReading)
    {
        QStringList names;
        for (const OdbcColumn& column : columns)
            names += column.name;
        records_ = std::make_unique<Recordset>(names);
    }

    std::unique_ptr<Recordset> Take() { return std::move(records_); }

    /// Between what is fetched and what is fetched next.
    void Pause() const
    {
        if (whileReading_)
            whileReading_();
    }

    void AddNull() { records_->AddNull(); }

    void AddNumber(OdbcColumn::Form form, const std::byte* value)
    {
        switch (form) {
        case OdbcColumn::Form::Integer:
            records_->AddInteger(*reinterpret_cast<const SQLBIGINT*>(value));
            break;
        case OdbcColumn::Form::Real:
            records_->AddReal(*reinterpret_cast<const SQLDOUBLE*>(value));
            break;
        default:
            AddBytes(MomentText(*reinterpret_cast<const SQL_TIMESTAMP_STRUCT*>(value)));
        }
    }

    void AddText(OdbcColumn::Form form, QStringView text)
    {
        const qsizetype most = utf8_.requiredSpace(text.size());
        if (static_cast<std::size_t>(most) > bytes_.size())
            bytes_.resize(static_cast<std::size_t>(most));
        const char* const end = utf8_.appendToBuffer(bytes_.data(), text);
        if (form == OdbcColumn::Form::Decimal)
            AddBytes(PlainDecimal({bytes_.data(), end}));
        else
            records_->AddText(bytes_.data(), end - bytes_.data());
    }

private:
    void AddBytes(const QByteArray& text) { records_->AddText(text.constData(), text.size()); }

    const std::function<void()>& whileReading_;
    std::unique_ptr<Recordset> records_;
    QStringEncoder utf8_{QStringConverter::Utf8, QStringConverter::Flag::Stateless};
    std::vector<char> bytes_;
};

/// Rows in blocks, each column in one piece.
class BlockFetch
{
public:
    BlockFetch(const OdbcHandle& statement, const std::vector<OdbcColumn>& columns)
        : statement_(statement), columns_(columns)
    {
        std::size_t width = 0;
        for (const OdbcColumn& column : columns)
            width += RoomOf(column);
        rows_ = std::clamp<std::size_t>(BlockBytes / width, 1, MostRows);
        states_.resize(rows_);
        Set(SQL_ATTR_ROW_ARRAY_SIZE, OdbcNumber(rows_));
        Set(SQL_ATTR_ROW_STATUS_PTR, states_.data());
        Set(SQL_ATTR_ROWS_FETCHED_PTR, &fetched_);
        for (std::size_t column = 0; column < columns.size(); ++column)
            Bind(column);
    }

    BlockFetch(const BlockFetch&) = delete;
    BlockFetch& operator=(const BlockFetch&) = delete;

    /// The statement goes on, and must not find its way back into this memory.
    ~BlockFetch()
    {
        odbc_.FreeStatement(statement_.Get(), SQL_UNBIND);
        odbc_.SetStatementAttribute(statement_.Get(), SQL_ATTR_ROW_STATUS_PTR, nullptr, 0);
        odbc_.SetStatementAttribute(statement_.Get(), SQL_ATTR_ROWS_FETCHED_PTR, nullptr, 0);
    }

    /// False when a value without a limit has no room.
    bool TakeAll(Filler& filler)
    {
        while (Next()) {
            for (std::size_t row = 0; row < fetched_; ++row)
                if (!TakeRow(row, filler))
                    return false;
            filler.Pause();
        }
        return true;
    }

private:
    struct Bound
    {
        std::unique_ptr<std::byte[]> values;
        std::vector<SQLLEN> sizes; ///< bytes of each value, or SQL_NULL_DATA
    };

    void Set(SQLINTEGER attribute, SQLPOINTER value)
    {
        statement_.Pass(odbc_.SetStatementAttribute(statement_.Get(), attribute, value, 0));
    }

    void Bind(std::size_t column)
    {
        const std::size_t room = RoomOf(columns_[column]);
        Bound& bound = bound_.emplace_back();
        bound.values = std::make_unique_for_overwrite<std::byte[]>(rows_ * room);
        bound.sizes.resize(rows_);
        statement_.Pass(odbc_.BindCol(statement_.Get(), static_cast<SQLUSMALLINT>(column + 1),
                                      FetchedType(columns_[column].form), bound.values.get(),
                                      static_cast<SQLLEN>(room), bound.sizes.data()));
    }

    bool Next()
    {
        fetched_ = 0;
        if (!statement_.Pass(odbc_.Fetch(statement_.Get())))
            return false;
        fetched_ = std::min<SQLULEN>(fetched_, rows_);
        const auto end = states_.begin() + static_cast<std::ptrdiff_t>(fetched_);
        if (std::find(states_.begin(), end, SQL_ROW_ERROR) != end)
            statement_.Fail();
        return true;
    }

    bool TakeRow(std::size_t row, Filler& filler)
    {
        for (std::size_t column = 0; column < columns_.size(); ++column) {
            const OdbcColumn::Form form = columns_[column].form;
            const SQLLEN size = bound_[column].sizes[row];
            const std::size_t room = RoomOf(columns_[column]);
            const std::byte* value = bound_[column].values.get() + row * room;
            if (size == SQL_NULL_DATA)
                filler.AddNull();
            else if (FetchedType(form) != SQL_C_WCHAR)
                filler.AddNumber(form, value);
            else if (IsWhole(size, room))
                filler.AddText(form, Text(value, size));
            else if (columns_[column].width > 0)
                throw RuntimeError(StatementFailure, QStringLiteral("String data, right truncation"));
            else
                return false;
        }
        return true;
    }

    /// A value that is wider than its room has lost its end: better none than half.
    static bool IsWhole(SQLLEN size, std::size_t room)
    {
        return size >= 0 && static_cast<std::size_t>(size) + sizeof(SQLWCHAR) <= room;
    }

    static QStringView Text(const std::byte* value, SQLLEN size)
    {
        return {reinterpret_cast<const char16_t*>(value),
                static_cast<qsizetype>(static_cast<std::size_t>(size) / sizeof(SQLWCHAR))};
    }

    const OdbcLibrary& odbc_ = OdbcLibrary::Get();
    const OdbcHandle& statement_;
    const std::vector<OdbcColumn>& columns_;
    std::size_t rows_ = 0;
    SQLULEN fetched_ = 0;
    std::vector<SQLUSMALLINT> states_;
    std::vector<Bound> bound_;
};

/// Values one by one.
class PieceFetch
{
public:
    PieceFetch(const OdbcHandle& statement, const std::vector<OdbcColumn>& columns)
        : statement_(statement), columns_(columns)
    {
    }

    void TakeAll(Filler& filler)
    {
        while (statement_.Pass(OdbcLibrary::Get().Fetch(statement_.Get()))) {
            for (std::size_t column = 0; column < columns_.size(); ++column)
                TakeValue(static_cast<SQLUSMALLINT>(column + 1), columns_[column].form, filler);
            filler.Pause();
        }
    }

private:
    void TakeValue(SQLUSMALLINT column, OdbcColumn::Form form, Filler& filler)
    {
        if (FetchedType(form) == SQL_C_WCHAR) {
            TakeText(column, form, filler);
            return;
        }
        alignas(std::max_align_t) std::array<std::byte, sizeof(SQL_TIMESTAMP_STRUCT)> value;
        SQLLEN size = 0;
        if (Piece(column, FetchedType(form), value.data(), value.size(), size) && size != SQL_NULL_DATA)
            filler.AddNumber(form, value.data());
        else
            filler.AddNull();
    }

    void TakeText(SQLUSMALLINT column, OdbcColumn::Form form, Filler& filler)
    {
        std::array<SQLWCHAR, PieceUnits> piece;
        QString text;
        SQLLEN size = 0;
        while (Piece(column, SQL_C_WCHAR, piece.data(), sizeof piece, size)) {
            if (size == SQL_NULL_DATA) {
                filler.AddNull();
                return;
            }
            // Of a value that goes on `size` is what is still to come, this piece included, or unknown.
            const bool goesOn = size == SQL_NO_TOTAL || size >= static_cast<SQLLEN>(sizeof piece);
            text += OdbcText(piece, goesOn ? PieceUnits - 1 : size / static_cast<SQLLEN>(sizeof(SQLWCHAR)));
            if (!goesOn)
                break;
        }
        filler.AddText(form, text);
    }

    /// False when nothing of the value is left.
    bool Piece(SQLUSMALLINT column, SQLSMALLINT type, SQLPOINTER into, std::size_t room, SQLLEN& size)
    {
        return statement_.Pass(OdbcLibrary::Get().GetData(statement_.Get(), column, type, into,
                                                          static_cast<SQLLEN>(room), &size));
    }

    const OdbcHandle& statement_;
    const std::vector<OdbcColumn>& columns_;
};

} // namespace

std::unique_ptr<Recordset> TakeOdbcRows(const OdbcHandle& statement, const std::vector<OdbcColumn>& columns,
                                        const std::function<void()>& whileReading)
{
    Filler filler(columns, whileReading);
    return BlockFetch(statement, columns).TakeAll(filler) ? filler.Take() : nullptr;
}

std::unique_ptr<Recordset> TakeLongOdbcRows(const OdbcHandle& statement,
                                            const std::vector<OdbcColumn>& columns,
                                            const std::function<void()>& whileReading)
{
    Filler filler(columns, whileReading);
    PieceFetch(statement, columns).TakeAll(filler);
    return filler.Take();
}

} // namespace tsms
