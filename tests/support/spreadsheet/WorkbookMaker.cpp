#include "support/spreadsheet/WorkbookMaker.h"

#include "runtime/CodePage949.h"
#include "support/spreadsheet/CompoundMaker.h"
#include "support/spreadsheet/LittleEndian.h"
#include "support/Words.h"

#include <algorithm>
#include <limits>

namespace tsms::test {

namespace {

constexpr int FirstOwnFormat = 164;

/// The content of a record that goes on in others when it is full.
class LongRecord
{
public:
    LongRecord(int record, int limit, QByteArray between = {})
        : record_(record), limit_(limit), between_(std::move(between))
    {
    }

    int Room() const { return limit_ - static_cast<int>(part_.size()); }
    void Add(const QByteArray& bytes) { part_ += bytes; }

    /// Keeps these bytes together.
    void AddWhole(const QByteArray& bytes)
    {
        if (bytes.size() > Room())
            NextPart();
        Add(bytes);
    }

    void NextPart()
    {
        done_ += WorkbookMaker::OneRecord(record_, part_) + between_;
        part_.clear();
        record_ = 0x003C;
    }

    QByteArray Bytes()
    {
        NextPart();
        return done_;
    }

private:
    int record_;
    int limit_;
    QByteArray between_;
    QByteArray part_;
    QByteArray done_;
};

/// Characters run over into the next part, which begins with flags of its own.
void AddCharacters(LongRecord& record, const QString& text)
{
    const bool narrow = WorkbookMaker::IsNarrow(text);
    const qsizetype size = narrow ? 1 : 2;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype count = std::min<qsizetype>(text.size() - at, record.Room() / size);
        LittleEndian characters;
        for (const QChar c : text.mid(at, count))
            narrow ? characters.U8(c.unicode()) : characters.U16(c.unicode());
        record.Add(characters.bytes);
        at += count;
        if (at < text.size()) {
            record.NextPart();
            record.Add(QByteArray(1, narrow ? '\0' : '\1'));
        }
    }
}

} // namespace

WorkbookMaker::Sheet::Sheet(WorkbookMaker& book, QString name, Visibility visibility, Kind kind)
    : book_(book), name_(std::move(name)), visibility_(visibility), kind_(kind)
{
}

QByteArray WorkbookMaker::Sheet::Head(int col, int row, int format)
{
    Reach(col, row);
    return LittleEndian().U16(row - 1).U16(col - 1).U16(format).bytes;
}

void WorkbookMaker::Sheet::Reach(int col, int row)
{
    cols_ = std::max(cols_, col);
    rows_ = std::max(rows_, row);
}

WorkbookMaker::Sheet& WorkbookMaker::Sheet::Record(int record, const QByteArray& content)
{
    records_ += OneRecord(record, content);
    return *this;
}

WorkbookMaker::Sheet& WorkbookMaker::Sheet::Text(int col, int row, const QString& text)
{
    if (book_.version() == Version::Biff5)
        return OwnText(col, row, text);
    return Record(0x00FD, LittleEndian().Raw(Head(col, row, 0)).U32(book_.Share(text)).bytes);
}

WorkbookMaker::Sheet& WorkbookMaker::Sheet::OwnText(int col, int row, const QString& text)
{
    LittleEndian out;
    out.Raw(Head(col, row, 0));
    if (book_.version() == Version::Biff8) {
        out.U16(static_cast<int>(text.size())).Raw(UnicodeText(text));
    } else {
        const QByteArray bytes = book_.ByteText(text);
        out.U16(static_cast<int>(bytes.size())).Raw(bytes);
    }
    return Record(0x0204, out.bytes);
}

WorkbookMaker::Sheet& WorkbookMaker::Sheet::Number(int col, int row, double value, int format)
{
    return Record(0x0203, LittleEndian().Raw(Head(col, row, format)).F64(value).bytes);
}

WorkbookMaker::Sheet& WorkbookMaker::Sheet::RK(int col, int row, quint32 rk, int format)
{
    return Record(0x027E, LittleEndian().Raw(Head(col, row, format)).U32(rk).bytes);
}

WorkbookMaker::Sheet& WorkbookMaker::Sheet::MulRK(int col, int row, const std::vector<quint32>& rks,
                                                  int format)
{
    Reach(col - 1 + static_cast<int>(rks.size()), row);
    LittleEndian out;
    out.U16(row - 1).U16(col - 1);
    for (const quint32 rk : rks)
        out.U16(format).U32(rk);
    return Record(0x00BD, out.U16(col - 2 + static_cast<int>(rks.size())).bytes);
}

WorkbookMaker::Sheet& WorkbookMaker::Sheet::Truth(int col, int row, bool truth)
{
    return Record(0x0205, LittleEndian().Raw(Head(col, row, 0)).U8(truth).U8(0).bytes);
}

WorkbookMaker::Sheet& WorkbookMaker::Sheet::Error(int col, int row, int code)
{
    return Record(0x0205, LittleEndian().Raw(Head(col, row, 0)).U8(code).U8(1).bytes);
}

WorkbookMaker::Sheet& WorkbookMaker::Sheet::Blank(int col, int row)
{
    return Record(0x0201, Head(col, row, 0));
}

WorkbookMaker::Sheet& WorkbookMaker::Sheet::Formula(int col, int row, int format, const QByteArray& result)
{
    // The formula itself is the number 1.
    return Record(
        0x0006,
        LittleEndian().Raw(Head(col, row, format)).Raw(result).U16(0).U32(0).U16(3).U8(0x1E).U16(1).bytes);
}

WorkbookMaker::Sheet& WorkbookMaker::Sheet::NumberFormula(int col, int row, double result, int format)
{
    return Formula(col, row, format, LittleEndian().F64(result).bytes);
}

WorkbookMaker::Sheet& WorkbookMaker::Sheet::OtherFormula(int col, int row, int kind, int value, int format)
{
    return Formula(col, row, format, LittleEndian().U8(kind).U8(0).U8(value).Fill(3).U16(0xFFFF).bytes);
}

WorkbookMaker::Sheet& WorkbookMaker::Sheet::TextFormula(int col, int row, const QString& result)
{
    OtherFormula(col, row, 0, 0);
    if (book_.version() == Version::Biff5) {
        const QByteArray bytes = book_.ByteText(result);
        return Record(0x0207, LittleEndian().U16(static_cast<int>(bytes.size())).Raw(bytes).bytes);
    }
    LongRecord record(0x0207, book_.recordLimit);
    record.Add(LittleEndian().U16(static_cast<int>(result.size())).U8(IsNarrow(result) ? 0 : 1).bytes);
    AddCharacters(record, result);
    records_ += record.Bytes();
    return *this;
}

WorkbookMaker::WorkbookMaker(Version version) : version_(version) {}

WorkbookMaker::Sheet& WorkbookMaker::AddSheet(const QString& name, Visibility visibility, Kind kind)
{
    return sheets_.emplace_back(*this, name, visibility, kind);
}

int WorkbookMaker::AddFormat(const QString& code)
{
    const int number = FirstOwnFormat + static_cast<int>(codes_.size());
    codes_.emplace_back(number, code);
    return AddBuiltInFormat(number);
}

int WorkbookMaker::AddBuiltInFormat(int number, int font)
{
    formats_.emplace_back(number, font);
    return static_cast<int>(formats_.size()) - 1;
}

int WorkbookMaker::AddFont(int charset)
{
    charsets_.push_back(charset);
    const int number = static_cast<int>(charsets_.size()) - 1;
    return number < 4 ? number : number + 1; // there is no font 4
}

quint32 WorkbookMaker::Share(const QString& text, int runs)
{
    strings_.push_back({text, runs});
    return static_cast<quint32>(strings_.size()) - 1;
}

QByteArray WorkbookMaker::OneRecord(int record, const QByteArray& content)
{
    return LittleEndian().U16(record).U16(static_cast<int>(content.size())).Raw(content).bytes;
}

bool WorkbookMaker::IsNarrow(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x100; });
}

QByteArray WorkbookMaker::UnicodeText(const QString& text)
{
    LongRecord all(0, std::numeric_limits<int>::max());
    all.Add(QByteArray(1, IsNarrow(text) ? '\0' : '\1'));
    AddCharacters(all, text);
    return all.Bytes().mid(4);
}

QByteArray WorkbookMaker::ByteText(const QString& text) const
{
    return codePage == 1252 ? text.toLatin1() : ToCodePage949(text);
}

QByteArray WorkbookMaker::Bof(int kind) const
{
    LittleEndian out;
    out.U16(static_cast<int>(version_)).U16(kind).U16(0x0DBB).U16(0x07CC);
    if (version_ == Version::Biff8)
        out.U32(0).U32(6);
    return OneRecord(0x0809, out.bytes);
}

QByteArray WorkbookMaker::SharedTexts() const
{
    LongRecord record(0x00FC, recordLimit, emptyContinues ? OneRecord(0x003C, {}) : QByteArray());
    const quint32 told = toldStrings > 0 ? toldStrings : static_cast<quint32>(strings_.size());
    record.Add(LittleEndian().U32(told).U32(told).bytes);
    for (const Shared& string : strings_) {
        LittleEndian head;
        head.U16(static_cast<int>(string.text.size()));
        head.U8((IsNarrow(string.text) ? 0 : 1) | (string.runs > 0 ? 8 : 0));
        if (string.runs > 0)
            head.U16(string.runs);
        record.AddWhole(head.bytes);
        AddCharacters(record, string.text);
        for (int run = 0; run < string.runs; ++run)
            record.AddWhole(LittleEndian().U16(run).U16(0).bytes);
    }
    return record.Bytes();
}

QByteArray WorkbookMaker::Globals(const std::vector<quint32>& positions) const
{
    QByteArray out = Bof(0x0005);
    if (!filePass.isEmpty())
        out += OneRecord(0x002F, filePass);
    if (codePage != 0)
        out += OneRecord(0x0042, LittleEndian().U16(codePage).bytes);
    out += OneRecord(0x0022, LittleEndian().U16(from1904).bytes);
    for (const int charset : charsets_) {
        LittleEndian font;
        font.U16(200).U16(0).U16(0x7FFF).U16(400).U16(0).U8(0).U8(0).U8(charset).U8(0).U8(1);
        out += OneRecord(0x0031, font.Raw(version_ == Version::Biff8 ? UnicodeText(u"F"_q) : "F").bytes);
    }
    for (const auto& [number, code] : codes_) {
        LittleEndian format;
        format.U16(number);
        if (version_ == Version::Biff8)
            format.U16(static_cast<int>(code.size())).Raw(UnicodeText(code));
        else
            format.U8(static_cast<int>(ByteText(code).size())).Raw(ByteText(code));
        out += OneRecord(0x041E, format.bytes);
    }
    for (const auto& [number, font] : formats_)
        out += OneRecord(
            0x00E0, LittleEndian().U16(font).U16(number).Fill(version_ == Version::Biff8 ? 16 : 12).bytes);
    for (std::size_t i = 0; i < sheets_.size(); ++i) {
        const Sheet& sheet = sheets_[i];
        LittleEndian place;
        place.U32(positions[i]).U8(static_cast<int>(sheet.visibility_)).U8(static_cast<int>(sheet.kind_));
        if (version_ == Version::Biff8)
            place.U8(static_cast<int>(sheet.name_.size())).Raw(UnicodeText(sheet.name_));
        else
            place.U8(static_cast<int>(ByteText(sheet.name_).size())).Raw(ByteText(sheet.name_));
        out += OneRecord(0x0085, place.bytes);
    }
    if (version_ == Version::Biff8 && !strings_.empty())
        out += SharedTexts();
    return out + OneRecord(0x000A, {});
}

/// Which rows and columns there are; the last ones are counted from 1.
QByteArray WorkbookMaker::Dimensions(const Sheet& sheet) const
{
    LittleEndian out;
    if (version_ == Version::Biff8)
        out.U32(0).U32(sheet.rows_);
    else
        out.U16(0).U16(sheet.rows_);
    return OneRecord(0x0200, out.U16(0).U16(sheet.cols_).U16(0).bytes);
}

QByteArray WorkbookMaker::Stream() const
{
    std::vector<quint32> positions(sheets_.size());
    quint32 position = static_cast<quint32>(Globals(positions).size());
    QByteArray parts;
    for (std::size_t i = 0; i < sheets_.size(); ++i) {
        positions[i] = position + static_cast<quint32>(parts.size());
        parts += Bof(sheets_[i].kind_ == Kind::Worksheet ? 0x0010 : 0x0020);
        parts += Dimensions(sheets_[i]) + sheets_[i].records_ + OneRecord(0x000A, {});
    }
    return Globals(positions) + parts;
}

QByteArray WorkbookMaker::File() const
{
    CompoundMaker file;
    file.streams = {
        {version_ == Version::Biff8 ? QStringLiteral("Workbook") : QStringLiteral("Book"), Stream()}};
    return file.Make();
}

QByteArray WorkbookOf(const std::vector<std::vector<QString>>& rows)
{
    WorkbookMaker book;
    WorkbookMaker::Sheet& sheet = book.AddSheet(QStringLiteral("회원"));
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t col = 0; col < rows[row].size(); ++col)
            if (!rows[row][col].isEmpty())
                sheet.Text(static_cast<int>(col) + 1, static_cast<int>(row) + 1, rows[row][col]);
    book.AddSheet(QStringLiteral("Sheet2"));
    book.AddSheet(QStringLiteral("Sheet3"));
    return book.File();
}

} // namespace tsms::test
