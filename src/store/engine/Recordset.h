#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tsms {

/// The result of a SELECT: a snapshot on the client's side with an exact count, read by position or through a
/// cursor. Each column is stored by its type, in blocks of many rows: what stands in a full one does not move
/// while more is read.
class Recordset
{
public:
    explicit Recordset(QStringList fieldNames = {});

    int RecordCount() const { return rows_; }
    int FieldCount() const { return static_cast<int>(names_.size()); }
    const QString& FieldName(int column) const { return names_[column]; }

    /// The position (from 0) of a field; case is ignored. Raises ItemNotFound.
    int FieldIndex(QStringView name) const;

    /// One value by row and column, both from 0. Numbers come in plain digits, a NULL as empty text. Raises
    /// NoCurrentRecord and ItemNotFound outside.
    QString Text(int row, int column) const;
    bool IsNull(int row, int column) const;

    // The cursor. It stands on the first record of a new result.
    bool Eof() const { return current_ >= rows_; }
    void MoveNext(); ///< does nothing at the end

    /// A value of the current record. Raises ItemNotFound, and NoCurrentRecord when there is none.
    QString Field(QStringView name) const;
    QString Field(int column) const;
    bool IsNull(QStringView name) const;

    // Filling, by the engines: values in the order of the fields, record by record. Raises 6 when the texts
    // of a column pass 4 GiB in one block.
    void AddNull();
    void AddInteger(std::int64_t value);
    void AddReal(double value);
    void AddText(const char* utf8, qsizetype size);

private:
    enum class Kind { Nothing, Integer, Real, Text };

    /// The values of a column in some rows.
    struct Block
    {
        std::vector<std::int64_t> integers;
        std::vector<double> reals;
        std::vector<char> text;          ///< all texts, in UTF-8, one behind the other
        std::vector<std::uint32_t> ends; ///< where each of them ends
    };
    struct Column
    {
        Kind kind = Kind::Nothing;
        std::vector<Block> blocks;
        std::vector<bool> nulls; ///< down to the last that is one
    };

    Column& Next(Kind kind);
    void Filled();
    void Promote(Column& column, Kind kind) const;
    static bool IsNull(const Column& column, int row);
    static Block& BlockFor(Column& column, int row); ///< for its value, which comes next
    static void Append(Block& block, std::string_view utf8);
    const Column& ColumnAt(int row, int column) const; ///< raises 3021 and 3265 for what is not there
    static QString TextOf(const Column& column, int row);

    QStringList names_;
    std::vector<Column> columns_;
    int filling_ = 0;
    int rows_ = 0;
    int current_ = 0;
};

} // namespace tsms
