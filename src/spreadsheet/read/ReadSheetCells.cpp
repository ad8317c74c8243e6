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

/// The number of no text: an empty cell's.
constexpr quint32 NoText = 0xFFFFFFFF;

/// Cells hold the numbers of their texts: those that the workbook shares, and behind them those of single
/// cells.
class TextCells final : public CellSource
{
public:
    TextCells(int columns, TextTable shared)
        : shared_(std::move(shared)), columns_(static_cast<std::size_t>(columns))
    {
    }

    int Rows() const override { return rows_; }
    int Cols() const override { return static_cast<int>(columns_.size()); }

    QString Text(int col, int row) const override
    {
        const std::vector<quint32>& column = columns_[static_cast<std::size_t>(col) - 1];
        const auto place = static_cast<std::size_t>(row) - 1;
        if (place >= column.size() || column[place] == NoText)
            return {};
        return IsShared(column[place]) ? shared_.At(column[place]).toString() : Own(column[place]);
    }

    bool IsShared(quint32 number) const { return number < shared_.Size(); }

    qsizetype LengthOf(quint32 number) const
    {
        return number == NoText ? 0 : IsShared(number) ? shared_.At(number).size() : Own(number).size();
    }

    /// Gives its number: that of the cell's former text where it had one of its own. Column and row from 0.
    quint32 TakeOwn(int col, int row, QString text)
    {
        const std::vector<quint32>& column = columns_[static_cast<std::size_t>(col)];
        const auto place = static_cast<std::size_t>(row);
        if (place < column.size() && column[place] != NoText && !IsShared(column[place])) {
            own_[column[place] - shared_.Size()] = std::move(text);
            return column[place];
        }
        if (text.isEmpty())
            return NoText;
        own_.push_back(std::move(text));
        return static_cast<quint32>(shared_.Size() + own_.size() - 1);
    }

    /// Column and row from 0, as the file has them.
    void SetText(int col, int row, quint32 number)
    {
        std::vector<quint32>& column = columns_[static_cast<std::size_t>(col)];
        const auto place = static_cast<std::size_t>(row);
        if (place >= column.size()) {
            if (LengthOf(number) == 0)
                return;
            column.resize(place + 1, NoText);
            rows_ = std::max(rows_, row + 1);
        }
        column[place] = number;
    }

private:
    const QString& Own(quint32 number) const { return own_[number - shared_.Size()]; }

    TextTable shared_;
    std::vector<QString> own_;
    std::vector<std::vector<quint32>> columns_;
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
    CellsReader(BiffReader& reader, WorkbookTables& tables, int columns)
        : reader_(reader),
          tables_(tables),
          columns_(columns),
          cells_(std::make_shared<TextCells>(columns, std::move(tables.strings)))
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
            ReadCell(4, [this] { SetShared(reader_.U32()); });
            break;
        case BiffRecord::Label:
        case BiffRecord::RString:
            ReadCell(2, [this] { SetOwn(OwnText()); });
            break;
        case BiffRecord::Number:
            ReadCell(8, [this] { SetOwn(Shown(reader_.F64())); });
            break;
        case BiffRecord::RK:
            ReadCell(4, [this] { SetOwn(Shown(NumberOfRK(reader_.U32()))); });
            break;
        case BiffRecord::MulRK:
            ReadRow();
            break;
        case BiffRecord::BoolErr:
            ReadCell(2, [this] { SetOwn(TruthOrError()); });
            break;
        case BiffRecord::Formula:
            ReadCell(8, [this] { SetOwn(FormulaResult()); });
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
    template <class SetCell> void ReadCell(qsizetype least, SetCell&& setCell)
    {
        constexpr qsizetype headBytes = 6;
        waiting_.reset();
        if (reader_.Left() < headBytes + least)
            return;
        const int row = reader_.U16();
        const int col = reader_.U16();
        head_ = {row, col, reader_.U16()};
        if (head_.col < columns_)
            setCell();
    }

    /// Nothing where the table has no such text.
    void SetShared(quint32 number) { SetText(cells_->IsShared(number) ? number : NoText); }

    void SetOwn(QString text) { SetText(cells_->TakeOwn(head_.col, head_.row, std::move(text))); }

    void SetText(quint32 number)
    {
        characters_ += cells_->LengthOf(number);
        Demand(characters_ <= MostCharacters);
        cells_->SetText(head_.col, head_.row, number);
    }

    QString Shown(double number)
    {
        QString text = tables_.Shown(number, head_.format);
        numberCharacters_ += text.size();
        Demand(numberCharacters_ <= MostNumberCharacters);
        return text;
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
        SetOwn(OwnText());
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
            SetOwn(Shown(NumberOfRK(reader_.U32())));
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
                                                 WorkbookTables& tables, int columns)
{
    MoveToSheet(reader, sheet, tables);
    return CellsReader(reader, tables, columns).Read();
}

} // namespace tsms
