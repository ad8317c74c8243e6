#pragma once

#include <QStringView>
#include <QtGlobal>

#include <initializer_list>
#include <memory>

namespace tsms {

class CompoundFile;

/// The records that the program writes, by the names and numbers of [MS-XLS] 2.3.
enum class BiffRecord : quint16 {
    Eof = 0x000A,
    CalcCount = 0x000C,
    CalcMode = 0x000D,
    CalcPrecision = 0x000E,
    CalcRefMode = 0x000F,
    CalcDelta = 0x0010,
    CalcIter = 0x0011,
    Protect = 0x0012,
    Password = 0x0013,
    Header = 0x0014,
    Footer = 0x0015,
    WinProtect = 0x0019,
    Selection = 0x001D,
    Date1904 = 0x0022,
    PrintRowCol = 0x002A,
    PrintGrid = 0x002B,
    Font = 0x0031,
    Continue = 0x003C,
    Window1 = 0x003D,
    Backup = 0x0040,
    CodePage = 0x0042,
    DefColWidth = 0x0055,
    WriteAccess = 0x005C,
    CalcSaveRecalc = 0x005F,
    ColInfo = 0x007D,
    Guts = 0x0080,
    WsBool = 0x0081,
    GridSet = 0x0082,
    HCenter = 0x0083,
    VCenter = 0x0084,
    BoundSheet8 = 0x0085,
    Country = 0x008C,
    HideObj = 0x008D,
    Setup = 0x00A1,
    Mms = 0x00C1,
    DBCell = 0x00D7,
    BookBool = 0x00DA,
    XF = 0x00E0,
    InterfaceHdr = 0x00E1,
    InterfaceEnd = 0x00E2,
    SST = 0x00FC,
    LabelSst = 0x00FD,
    ExtSST = 0x00FF,
    RRTabId = 0x013D,
    UsesELFs = 0x0160,
    DSF = 0x0161,
    Prot4Rev = 0x01AF,
    RefreshAll = 0x01B7,
    Prot4RevPass = 0x01BC,
    Dimensions = 0x0200,
    Blank = 0x0201,
    Number = 0x0203,
    Row = 0x0208,
    Index = 0x020B,
    DefaultRowHeight = 0x0225,
    Window2 = 0x023E,
    RK = 0x027E,
    Style = 0x0293,
    BOF = 0x0809,
};

/// The parts of a workbook's stream: [MS-XLS] 2.4.21.
enum class Substream : quint16 { Globals = 0x0005, Worksheet = 0x0010 };

/// The records of a workbook on their way into its file. Numbers are little-endian; positions count from the
/// beginning of the stream.
class BiffStream
{
public:
    static constexpr int MaxRecord = 8224; ///< the most that a record holds behind its head of four bytes

    explicit BiffStream(CompoundFile& file);

    /// A record is begun, filled with at most MaxRecord bytes, and ended.
    void Begin(BiffRecord record);
    void U8(quint8 value);
    void U16(quint16 value);
    void U32(quint32 value);
    void F64(double value);
    void Bytes(const char* bytes, qsizetype size);
    /// A length of 8 bits and the characters of 16 bits: [MS-XLS] 2.5.240.
    void ShortText(QStringView text);
    void End();

    /// A whole record of 16-bit numbers.
    void Put(BiffRecord record, std::initializer_list<quint16> values);

    /// The records that begin and end a part.
    void BeginSubstream(Substream substream);
    void EndSubstream();

    int Room() const;         ///< what the record can still take
    int RecordOffset() const; ///< from the head of the record to the next byte
    quint32 Position() const; ///< of the next byte

    /// Writes over four bytes of a record that has ended.
    void Patch(quint32 position, quint32 value);

    /// Hands over all that is still in the buffer. Not inside a record.
    void Flush();

private:
    static constexpr int BufferSize = 1 << 16;

    CompoundFile& file_;
    std::unique_ptr<char[]> buffer_;
    quint32 flushed_ = 0; ///< bytes that the file has
    int used_ = 0;        ///< bytes in the buffer
    int record_ = 0;      ///< where the head of the record stands in the buffer
};

} // namespace tsms
