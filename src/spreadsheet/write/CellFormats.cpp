#include "spreadsheet/write/CellFormats.h"

#include "spreadsheet/write/BiffStream.h"

namespace tsms {

namespace {

constexpr int StyleFormats = 15; // the format of the style Normal and those of outlines come first
constexpr int Kinds = 4;
constexpr int Alignments = 4;
constexpr quint16 FirstFormat = StyleFormats + 1; // behind that of empty cells

// [MS-XLS] 2.4.122. The font with the number 4 does not exist: the fifth one has the number 5.
constexpr quint16 PlainFont = 0;
constexpr quint16 BoldFont = 5;

void WriteFont(BiffStream& stream, bool bold)
{
    constexpr quint16 height = 9 * 20;
    constexpr quint16 automaticColour = 0x7FFF;
    const quint16 boldBit = bold ? 1 : 0; // for readers that do not look at the weight
    const quint16 weight = bold ? 700 : 400;
    stream.Begin(BiffRecord::Font);
    for (const quint16 value : {height, boldBit, automaticColour, weight, quint16(0)})
        stream.U16(value);
    stream.U8(0);   // not underlined
    stream.U8(2);   // a family without serifs
    stream.U8(129); // Korean
    stream.U8(0);
    stream.ShortText(u"굴림");
    stream.End();
}

struct Format
{
    quint16 font = PlainFont;
    quint16 number = 0; // of the built-in number format: General
    quint16 protection = 1;
    quint8 alignment = 0x20; // at the bottom
    quint8 differs = 0;      // what of it is not that of the style
    quint32 pattern = 0;
    quint16 colours = 0x20C0; // of the pattern: automatic on automatic
};

void WriteFormat(BiffStream& stream, const Format& format)
{
    stream.Begin(BiffRecord::XF);
    stream.U16(format.font);
    stream.U16(format.number);
    stream.U16(format.protection);
    stream.U8(format.alignment);
    stream.U8(0); // not turned
    stream.U8(0); // not indented
    stream.U8(format.differs);
    stream.U32(0); // no borders
    stream.U32(format.pattern);
    stream.U16(format.colours);
    stream.End();
}

// Bits of Format::differs.
constexpr quint8 OwnNumber = 0x04;
constexpr quint8 OwnFont = 0x08;
constexpr quint8 OwnAlignment = 0x10;
constexpr quint8 OwnPattern = 0x40;
constexpr quint8 AllButNumberAndFont = 0xF0;

Format StyleFormat(int number)
{
    Format format;
    format.protection = 0xFFF5; // locked, a style, without a parent
    format.differs = number == 0 ? 0 : AllButNumberAndFont | OwnNumber;
    return format;
}

Format FormatOf(CellKind kind, int alignment)
{
    constexpr quint16 groupsOfThree = 3; // the built-in format #,##0
    constexpr quint32 solid = 1u << 26;
    constexpr quint16 yellow = 13; // of the default palette: RGB 255, 255, 0
    constexpr quint16 automatic = 65;
    Format format;
    // At the top, so that a text of several lines begins in view; 0 to 3 as in SheetAlignment.
    format.alignment = static_cast<quint8>(alignment);
    format.differs = OwnAlignment;
    if (kind == CellKind::Whole) {
        format.number = groupsOfThree;
        format.differs |= OwnNumber;
    }
    if (kind == CellKind::Title) {
        format.font = BoldFont;
        format.pattern = solid;
        format.colours = yellow | automatic << 7;
        format.differs |= OwnFont | OwnPattern;
    }
    return format;
}

} // namespace

quint16 CellFormat(CellKind kind, SheetAlignment alignment)
{
    return static_cast<quint16>(FirstFormat + static_cast<int>(kind) * Alignments +
                                static_cast<int>(alignment));
}

void WriteFormats(BiffStream& stream)
{
    for (const bool bold : {false, false, false, false, true})
        WriteFont(stream, bold);
    for (int number = 0; number < StyleFormats; ++number)
        WriteFormat(stream, StyleFormat(number));
    WriteFormat(stream, Format());
    for (int kind = 0; kind < Kinds; ++kind)
        for (int alignment = 0; alignment < Alignments; ++alignment)
            WriteFormat(stream, FormatOf(static_cast<CellKind>(kind), alignment));
    stream.Put(BiffRecord::Style, {0x8000, 0xFF00}); // the format 0 is that of the built-in style Normal
}

} // namespace tsms
