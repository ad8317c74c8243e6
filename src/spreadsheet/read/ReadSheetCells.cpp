#include "spreadsheet/read/ReadSheetCells.h"

#include "spreadsheet/read/Demand.h"
#include "spreadsheet/read/ReadWorkbookTables.h"

#include <algorithm>
#include <bit>
#include <optional>
#include <utility>
#include <vector>

namespace tsms {

namespace {

/// Of all cells together, as if no two of them shared a text.
constexpr qint64 MostCharacters = 32 << 20;

/// Of all cells with numbers, which share no texts: ten bytes of the file may show as hundreds of characters.
constexpr qint64 MostNumberCharacters = 6 << 20;

class TextCells final : public CellSource
{
public:
    explicit TextCells(int columns) : columns_(static_cast<std::size_t>(columns)) {}

    int Rows() const override { return rows_; }
    int Cols() const override { return static_cast<int>(columns_.size()); }

    QString Text(int col, int row) const override
    {
        const std::vector<QString>& column = columns_[static_cast<std::size_t>(col) - 1];
        const auto place = static_cast<std::size_t>(row) - 1;
        return place < column.size() ? column[place] : QString();
    }

    /// Both numbers from 0, as the file has them.
    void SetText(int col, int row, QString text)
    {
        std::vector<QString>& column = columns_[static_cast<std::size_t>(col)];
        const auto place = static_cast<std::size_t>(row);
        if (place >= column.size()) {
            if (text.isEmpty())
                return;
            column.resize(place + 1);
            rows_ = std::max(rows_, row + 1);
        }
        column[place] = std::move(text);
    }

private:
    std::vector<std::vector<QString>> columns_;
    int rows_ = 0;
};

/// Where a cell stands and how it is formatted: what its record begins with.
struct CellHead
{
    int row;
    int col;
    quint16 format;
};

/// [MS-XLS] 2.5.217
double NumberOfRK(quint32 rk)
{
    constexpr quint32 hundredth = 1;
    constexpr quint32 whole = 2;
    const double number = rk & whole ? static_cast<double>(static_cast<qint32>(rk) >> 2)
                                     : std::bit_cast<double>(quint64{rk & ~3u} << 32);
    return rk & hundredth ? number / 100 : number;
}

/// [MS-XLS] 2.5.10
QString ErrorText(quint8 code)
{
    switch (code) {
    case 0x00:
        return QStringLiteral("#NULL!");
    case 0x07:
        return QStringLiteral("#DIV/0!");
    case 0x0F:
        return QStringLiteral("#VALUE!");
    case 0x17:
        return QStringLiteral("#REF!");
    case 0x1D:
        return QStringLiteral("#NAME?");
    case 0x24:
        return QStringLiteral("#NUM!");
    default:
        return QStringLiteral("#N/A");
    }
}

QString TruthText(quint8 truth)
{
    return truth ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
}

class CellsReader
{
public:
    CellsReader(BiffReader& reader, const WorkbookTables& tables, int columns)
        : reader_(reader), tables_(tables), columns_(columns), cells_(std::make_shared<TextCells>(columns))
    {
    }

    std::shared_ptr<const CellSource> Read()
    {
        // Charts that stand in the sheet are parts within its own.
        int depth = 1;
        while (depth > 0) {
            reader_.Next();
            if (reader_.Record() == BiffRecord::BOF)
                ++depth;
            else if (reader_.Record() == BiffRecord::Eof)
                --depth;
            else if (depth == 1)
                ReadOne();
        }
        return cells_;
    }

private:
    void ReadOne()
    {
        switch (reader_.Record()) {
        case BiffRecord::LabelSst:
            ReadCell(4, [this] { return SharedText(); });
            break;
        case BiffRecord::Label:
        case BiffRecord::RString:
            ReadCell(2, [this] { return OwnText(); });
            break;
        case BiffRecord::Number:
            ReadCell(8, [this] { return Shown(reader_.F64()); });
            break;
        case BiffRecord::RK:
            ReadCell(4, [this] { return Shown(NumberOfRK(reader_.U32())); });
            break;
        case BiffRecord::MulRK:
            ReadRow();
            break;
        case BiffRecord::BoolErr:
            ReadCell(2, [this] { return TruthOrError(); });
            break;
        case BiffRecord::Formula:
            ReadCell(8, [this] { return FormulaResult(); });
            break;
        case BiffRecord::String:
            ReadFormulaText();
            break;
        default:
            break;
        }
    }

    /// A record about one cell, with `least` bytes behind its head: a shorter one says nothing about its
    /// cell. Texts of columns that nobody wants are not read.
    template <class TextOf> void ReadCell(qsizetype least, TextOf&& text)
    {
        constexpr qsizetype headBytes = 6;
        waiting_.reset();
        if (reader_.Left() < headBytes + least)
            return;
        const int row = reader_.U16();
        const int col = reader_.U16();
        head_ = {row, col, reader_.U16()};
        if (head_.col < columns_)
            SetText(text());
    }

    void SetText(QString text)
    {
        characters_ += text.size();
        Demand(characters_ <= MostCharacters);
        cells_->SetText(head_.col, head_.row, std::move(text));
    }

    QString Shown(double number)
    {
        QString text = tables_.Shown(number, head_.format);
        numberCharacters_ += text.size();
        Demand(numberCharacters_ <= MostNumberCharacters);
        return text;
    }

    /// Nothing where the table has no such text.
    QString SharedText()
    {
        const quint32 number = reader_.U32();
        return number < tables_.strings.size() ? tables_.strings[number] : QString();
    }

    /// [MS-XLS] 2.4.148; its formats, where it has some, stand behind it. Of one that is cut the part that
    /// there is, as spreadsheets show it.
    QString OwnText() { return tables_.CellText(reader_, reader_.U16(), head_.format).text; }

    QString TruthOrError()
    {
        const quint8 value = reader_.U8();
        const bool isError = reader_.U8() != 0;
        return isError ? ErrorText(value) : TruthText(value);
    }

    /// [MS-XLS] 2.5.133: a number, or in the place of what can be none the kind of another result.
    QString FormulaResult()
    {
        enum Kind : quint8 { Text, Truth, Error };
        constexpr quint64 noNumber = 0xFFFF;
        const auto result = std::bit_cast<quint64>(reader_.F64());
        if (result >> 48 != noNumber)
            return Shown(std::bit_cast<double>(result));
        const auto value = static_cast<quint8>(result >> 16);
        switch (static_cast<quint8>(result)) {
        case Text:
            waiting_ = head_;
            break;
        case Truth:
            return TruthText(value);
        case Error:
            return ErrorText(value);
        default: // an empty text
            break;
        }
        return {};
    }

    /// The text of the formula before it.
    void ReadFormulaText()
    {
        if (!waiting_)
            return;
        head_ = *waiting_;
        waiting_.reset();
        SetText(OwnText());
    }

    /// [MS-XLS] 2.4.175: numbers side by side; the last column of all ends the record.
    void ReadRow()
    {
        constexpr qsizetype cellBytes = 6;
        waiting_.reset();
        head_.row = reader_.U16();
        head_.col = reader_.U16();
        for (; reader_.Left() >= cellBytes && head_.col < columns_; ++head_.col) {
            head_.format = reader_.U16();
            SetText(Shown(NumberOfRK(reader_.U32())));
        }
    }

    BiffReader& reader_;
    const WorkbookTables& tables_;
    int columns_;
    std::shared_ptr<TextCells> cells_;
    CellHead head_{};
    std::optional<CellHead> waiting_; // the cell of a formula whose text comes later
    qint64 characters_ = 0;
    qint64 numberCharacters_ = 0;
};

/// The parts that follow; what stands in one of them belongs to it.
void MoveToPart(BiffReader& reader, int part)
{
    for (int depth = 0;;) {
        reader.Next();
        if (reader.Record() == BiffRecord::BOF && depth++ == 0 && part-- == 0)
            return;
        if (reader.Record() == BiffRecord::Eof && depth > 0)
            --depth;
    }
}

/// Where its place is told wrongly, the sheet is found by its number: parts stand in the order of their list.
void MoveToSheet(BiffReader& reader, const SheetPlace& sheet, const WorkbookTables& tables)
{
    if (reader.HasRecordAt(sheet.position)) {
        reader.MoveTo(sheet.position);
        reader.Next();
        if (ReadPartHead(reader, Substream::Worksheet))
            return;
    }
    reader.MoveTo(tables.end);
    MoveToPart(reader, sheet.part);
    Demand(ReadPartHead(reader, Substream::Worksheet).has_value());
}

} // namespace

std::shared_ptr<const CellSource> ReadSheetCells(BiffReader& reader, const SheetPlace& sheet,
                                                 const WorkbookTables& tables, int columns)
{
    MoveToSheet(reader, sheet, tables);
    return CellsReader(reader, tables, columns).Read();
}

} // namespace tsms
