#include "spreadsheet/read/ReadWorkbookTables.h"

#include "spreadsheet/read/Demand.h"

#include <algorithm>
#include <limits>
#include <map>
#include <memory>
#include <utility>

namespace tsms {

namespace {

constexpr std::size_t MostWorksheets = std::numeric_limits<qint16>::max(); // their count has 16 bits
constexpr std::size_t MostStrings = 1 << 20;
constexpr std::size_t MostCellFormats = 8192; // spreadsheets make half of them at most

/// That of texts in bytes, by what the workbook tells of it. All that is none reads as Korean: what Korean
/// programs write, also those that tell nothing.
int CodePageOf(quint16 told)
{
    constexpr int western = 1252;
    constexpr quint16 westernInBiff5 = 0x8001;
    if (told == westernInBiff5)
        return western;
    return IsCodePage(told) ? told : KoreanCodePage;
}

RecordText ReadByteText(BiffReader& reader, int length, int codePage)
{
    const QByteArrayView bytes = reader.Bytes(length);
    return {FromCodePage(bytes, codePage), bytes.size() == length};
}

class TablesReader
{
public:
    explicit TablesReader(BiffReader& reader) : reader_(reader) {}

    WorkbookTables Read()
    {
        reader_.Next();
        const std::optional<BiffVersion> version = ReadPartHead(reader_, Substream::Globals);
        Demand(version.has_value());
        tables_.version = *version;
        for (reader_.Next(); reader_.Record() != BiffRecord::Eof; reader_.Next())
            ReadOne();
        tables_.end = reader_.End();
        AddFormats();
        AddFonts();
        return std::move(tables_);
    }

private:
    bool IsBiff8() const { return tables_.version == BiffVersion::Biff8; }

    void ReadOne()
    {
        switch (reader_.Record()) {
        case BiffRecord::FilePass:
            Unlock();
            break;
        case BiffRecord::CodePage:
            tables_.codePage = CodePageOf(reader_.U16());
            break;
        case BiffRecord::Date1904:
            tables_.firstDay = reader_.U16() == 0 ? FirstDay::Of1900 : FirstDay::Of1904;
            break;
        case BiffRecord::BoundSheet8:
            ReadSheet();
            break;
        case BiffRecord::SST:
            ReadStrings();
            break;
        case BiffRecord::Font:
            ReadFont();
            break;
        case BiffRecord::Format:
            ReadFormat();
            break;
        case BiffRecord::XF:
            ReadCellFormat();
            break;
        default:
            break;
        }
    }

    void Unlock()
    {
        std::unique_ptr<RecordCipher> cipher = OpenWithDefaultPassword(reader_);
        Demand(cipher != nullptr);
        reader_.Decrypt(std::move(cipher));
    }

    /// [MS-XLS] 2.4.28
    void ReadSheet()
    {
        constexpr quint8 worksheet = 0;
        constexpr qsizetype headBytes = 6; // up to its kind
        SheetPlace sheet;
        sheet.part = sheets_++;
        if (reader_.Left() < headBytes)
            return;
        sheet.position = reader_.U32();
        reader_.Skip(1); // whether it is hidden
        const quint8 kind = reader_.U8();
        const quint8 length = reader_.U8();
        sheet.name = tables_.Text(reader_, length).text;
        if (kind != worksheet)
            return;
        Demand(tables_.worksheets.size() < MostWorksheets);
        tables_.worksheets.push_back(std::move(sheet));
    }

    /// [MS-XLS] 2.4.265. All texts that there are, up to one that is cut: writers miscount them.
    void ReadStrings()
    {
        constexpr qsizetype leastBytes = 3; // of a text
        reader_.Skip(4);                    // how often they are used
        const std::size_t told = reader_.U32();
        const auto possible = static_cast<std::size_t>(reader_.LeftInStream() / leastBytes);
        tables_.strings.Reserve(std::min({told, possible, MostStrings}));
        const auto append = [this](QString& to) { return AppendRichText(reader_, to); };
        while ((reader_.Left() > 0 || reader_.NextPart()) && tables_.strings.AddBy(append))
            Demand(tables_.strings.Size() <= MostStrings);
    }

    /// [MS-XLS] 2.4.353
    void ReadCellFormat()
    {
        Demand(cellFormats_.size() < MostCellFormats);
        cellFonts_.push_back(reader_.U16());
        cellFormats_.push_back(reader_.U16());
    }

    /// [MS-XLS] 2.4.126
    void ReadFormat()
    {
        const int number = reader_.U16();
        RecordText code = tables_.Text(reader_, IsBiff8() ? reader_.U16() : reader_.U8());
        if (code.whole)
            codes_[number] = std::move(code.text);
    }

    /// [MS-XLS] 2.4.122
    void ReadFont()
    {
        constexpr quint8 korean = 129;
        reader_.Skip(12); // its looks
        koreanFonts_.push_back(reader_.U8() == korean);
    }

    /// As with formats. A font with the number 4 does not exist: the fifth one has the number 5.
    void AddFonts()
    {
        constexpr std::size_t missing = 4;
        for (const std::size_t number : cellFonts_) {
            const std::size_t font = number > missing ? number - 1 : number;
            tables_.koreanFonts.push_back(font < koreanFonts_.size() && koreanFonts_[font]);
        }
    }

    /// What cells tell is not the number of a format but that of a record that names it. Thousands of these
    /// may name the same format.
    void AddFormats()
    {
        std::map<QString, std::shared_ptr<const XlsNumberFormat>> formats;
        for (const int number : cellFormats_) {
            const auto own = codes_.find(number);
            const QString code = own != codes_.end() ? own->second : XlsNumberFormat::BuiltInCode(number);
            auto& format = formats[code];
            if (!format)
                format = std::make_shared<const XlsNumberFormat>(code);
            tables_.formats.push_back(format);
        }
    }

    BiffReader& reader_;
    WorkbookTables tables_;
    int sheets_ = 0; // of all kinds
    std::map<int, QString> codes_;
    std::vector<bool> koreanFonts_;
    std::vector<std::size_t> cellFonts_;
    std::vector<int> cellFormats_;
};

} // namespace

RecordText WorkbookTables::Text(BiffReader& reader, int length) const
{
    return version == BiffVersion::Biff8 ? ReadUnicodeText(reader, length)
                                         : ReadByteText(reader, length, codePage);
}

RecordText WorkbookTables::CellText(BiffReader& reader, int length, quint16 format) const
{
    const bool isKorean = format < koreanFonts.size() && koreanFonts[format];
    return version == BiffVersion::Biff5 && isKorean ? ReadByteText(reader, length, KoreanCodePage)
                                                     : Text(reader, length);
}

QString WorkbookTables::Shown(double number, quint16 format) const
{
    static const XlsNumberFormat general;
    return (format < formats.size() ? *formats[format] : general).Shown(number, firstDay);
}

std::optional<BiffVersion> ReadPartHead(BiffReader& reader, Substream part)
{
    if (reader.Record() != BiffRecord::BOF)
        return {};
    const auto version = static_cast<BiffVersion>(reader.U16() & 0xFF00);
    const bool isKnown = version == BiffVersion::Biff5 || version == BiffVersion::Biff8;
    if (!isKnown || static_cast<Substream>(reader.U16()) != part)
        return {};
    return version;
}

WorkbookTables ReadWorkbookTables(BiffReader& reader)
{
    return TablesReader(reader).Read();
}

} // namespace tsms
