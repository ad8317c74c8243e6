#include "spreadsheet/write/WorkbookGlobals.h"

#include "spreadsheet/write/BiffStream.h"
#include "spreadsheet/write/CellFormats.h"
#include "spreadsheet/write/SharedStrings.h"

namespace tsms {

namespace {

constexpr quint16 Utf16 = 1200; // the code page of all texts
constexpr quint16 Korea = 82;

void WriteInterface(BiffStream& stream)
{
    stream.Put(BiffRecord::InterfaceHdr, {Utf16});
    stream.Put(BiffRecord::Mms, {0});
    stream.Put(BiffRecord::InterfaceEnd, {});
}

/// The user that wrote the file: two blanks are nobody.
void WriteUser(BiffStream& stream)
{
    constexpr int size = 112;
    stream.Begin(BiffRecord::WriteAccess);
    stream.U16(2); // characters
    stream.U8(0);  // of 8 bits
    for (int i = 3; i < size; ++i)
        stream.U8(' ');
    stream.End();
}

void WriteNoProtection(BiffStream& stream)
{
    for (const BiffRecord record : {BiffRecord::WinProtect, BiffRecord::Protect, BiffRecord::Password,
                                    BiffRecord::Prot4Rev, BiffRecord::Prot4RevPass})
        stream.Put(record, {0});
}

void WriteWindow(BiffStream& stream)
{
    constexpr quint16 width = 0x4B00; // twentieths of a point
    constexpr quint16 height = 0x2D00;
    constexpr quint16 scrollBarsAndTabs = 0x0038;
    constexpr quint16 tabsShare = 600; // of a thousand, beside the scroll bar
    stream.Put(BiffRecord::Window1, {0, 0, width, height, scrollBarsAndTabs, 0, 0, 1, tabsShare});
}

void WriteBookSettings(BiffStream& stream)
{
    stream.Put(BiffRecord::Backup, {0});
    stream.Put(BiffRecord::HideObj, {0});
    stream.Put(BiffRecord::Date1904, {0});
    stream.Put(BiffRecord::CalcPrecision, {1});
    stream.Put(BiffRecord::RefreshAll, {0});
    stream.Put(BiffRecord::BookBool, {0});
}

/// Returns where the position of the sheet has to be written.
quint32 WriteSheetEntry(BiffStream& stream, const QString& name)
{
    stream.Begin(BiffRecord::BoundSheet8);
    const quint32 place = stream.Position();
    stream.U32(0);
    stream.U16(0); // a visible worksheet
    stream.ShortText(name);
    stream.End();
    return place;
}

} // namespace

void WriteGlobals(BiffStream& stream, const QString& sheetName, const SharedStrings& strings)
{
    stream.BeginSubstream(Substream::Globals);
    WriteInterface(stream);
    WriteUser(stream);
    stream.Put(BiffRecord::CodePage, {Utf16});
    stream.Put(BiffRecord::DSF, {0});
    stream.Put(BiffRecord::RRTabId, {1});
    WriteNoProtection(stream);
    WriteWindow(stream);
    WriteBookSettings(stream);
    WriteFormats(stream);
    stream.Put(BiffRecord::UsesELFs, {0});
    const quint32 sheetPlace = WriteSheetEntry(stream, sheetName);
    stream.Put(BiffRecord::Country, {Korea, Korea});
    strings.Write(stream);
    stream.EndSubstream();
    stream.Patch(sheetPlace, stream.Position());
}

} // namespace tsms
