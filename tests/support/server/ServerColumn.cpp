#include "support/server/ServerColumn.h"

#include "runtime/CodePage949.h"
#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"
#include "support/server/ServerError.h"
#include "support/server/TdsBytes.h"

#include <QDateTime>
#include <QRegularExpression>

#include <array>

namespace tsms::test {

namespace {

using TypeKind = ServerType::Kind;

constexpr int NullText = 0xFFFF;
constexpr int EndlessWidth = 0xFFFF; // as the type's description tells it
constexpr int MoneyScale = 4;

/// Type codes: those of a column that may be NULL, and of one that may not where there is one of its own.
int TypeCode(const ServerType& type)
{
    switch (type.kind) {
    case TypeKind::Int:
        return type.nullable ? 0x26 : 0x38;
    case TypeKind::Numeric:
        return 0x6C;
    case TypeKind::Money:
        return type.nullable ? 0x6E : 0x3C;
    case TypeKind::Float:
        return type.nullable ? 0x6D : 0x3E;
    case TypeKind::DateTime:
        return type.nullable ? 0x6F : 0x3D;
    case TypeKind::VarChar:
        return 0xA7;
    case TypeKind::NVarChar:
        break;
    }
    return 0xE7;
}

int NumericSize(int precision)
{
    return precision < 10 ? 5 : precision < 20 ? 9 : precision < 29 ? 13 : 17;
}

int FixedSize(TypeKind kind)
{
    return kind == TypeKind::Int ? 4 : 8;
}

[[noreturn]] void RefuseValue(const QString& value, const char* typeName)
{
    throw RuntimeError(CannotConvert, QStringLiteral("Conversion failed when converting the varchar value "
                                                     "'%1' to data type %2.")
                                          .arg(value, QLatin1String(typeName)));
}

/// A decimal as a whole number of its last digits.
struct Scaled
{
    bool isNegative;
    QString digits;
};

Scaled ScaledNumber(const QString& value, int scale)
{
    static const QRegularExpression plainNumber(QStringLiteral("^(-?)(\\d*)(?:\\.(\\d*))?$"));
    const QString plain = value.contains(u'e') ? QString::number(value.toDouble(), 'f', scale) : value;
    const QRegularExpressionMatch parts = plainNumber.match(plain);
    if (!parts.hasMatch())
        RefuseValue(value, "numeric");
    return {!parts.captured(1).isEmpty(),
            parts.captured(2) + parts.captured(3).left(scale).leftJustified(scale, u'0')};
}

/// Decimal digits as a little-endian number of `size` bytes.
QByteArray WholeNumber(const QString& digits, int size)
{
    QByteArray number(size, '\0');
    for (const QChar digit : digits) {
        int carry = digit.digitValue();
        for (char& byte : number) {
            const int value = static_cast<quint8>(byte) * 10 + carry;
            byte = static_cast<char>(value & 0xFF);
            carry = value >> 8;
        }
        if (carry != 0)
            throw RuntimeError(DataOverflow,
                               QStringLiteral("Arithmetic overflow error converting expression to data "
                                              "type numeric."));
    }
    return number;
}

QByteArray IntBytes(const QString& value)
{
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    if (!isNumber)
        RefuseValue(value, "int");
    return ByteWriter().DWord(static_cast<quint32>(number)).Data();
}

/// The sign, and the digits behind it.
QByteArray NumericBytes(const ServerType& type, const QString& value)
{
    const Scaled scaled = ScaledNumber(value, type.scale);
    return ByteWriter()
        .Byte(scaled.isNegative ? 0 : 1)
        .Bytes(WholeNumber(scaled.digits, NumericSize(type.precision) - 1))
        .Data();
}

/// Ten-thousandths in 64 bits, the upper half in front.
QByteArray MoneyBytes(const QString& value)
{
    const Scaled scaled = ScaledNumber(value, MoneyScale);
    const qint64 amount = (scaled.isNegative ? -1 : 1) * scaled.digits.toLongLong();
    const auto bits = static_cast<quint64>(amount);
    return ByteWriter().DWord(static_cast<quint32>(bits >> 32)).DWord(static_cast<quint32>(bits)).Data();
}

QByteArray FloatBytes(const QString& value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber)
        RefuseValue(value, "float");
    quint64 bits = 0;
    memcpy(&bits, &number, sizeof bits);
    return ByteWriter().QWord(bits).Data();
}

/// Days since 1900, and the time of day in 300ths of a second.
QByteArray DateTimeBytes(const QString& value)
{
    const QString plain = QString(value).replace(u'/', u'-');
    const QDate day = QDate::fromString(plain.left(10), QStringLiteral("yyyy-MM-dd"));
    const QTime time = plain.size() == 10 ? QTime(0, 0) : QTime::fromString(plain.mid(11), Qt::ISODateWithMs);
    if (!day.isValid() || !time.isValid())
        throw RuntimeError(CannotConvert, QStringLiteral("Conversion failed when converting date and/or "
                                                         "time from character string."));
    return ByteWriter()
        .DWord(static_cast<quint32>(QDate(1900, 1, 1).daysTo(day)))
        .DWord(static_cast<quint32>(time.msecsSinceStartOfDay() * 3LL / 10))
        .Data();
}

/// A value without a width: its size, then pieces, of which one is enough, and an empty one.
QByteArray Pieces(const QByteArray& bytes)
{
    ByteWriter pieces;
    pieces.QWord(static_cast<quint64>(bytes.size()));
    if (!bytes.isEmpty())
        pieces.DWord(static_cast<quint32>(bytes.size())).Bytes(bytes);
    return pieces.DWord(0).Data();
}

QByteArray TextBytes(const ServerType& type, const QString& value)
{
    const bool isWide = type.kind == TypeKind::NVarChar;
    const qsizetype room = qsizetype{isWide ? 2 : 1} * type.width;
    QByteArray bytes = isWide ? ByteWriter().Text(value).Data() : ToCodePage949(value);
    while (bytes.size() > room &&
           bytes.endsWith(isWide ? QByteArrayView("\x20\x00", 2) : QByteArrayView(" ")))
        bytes.chop(isWide ? 2 : 1);
    if (bytes.size() > room)
        throw RuntimeError(StatementFailure, QString::fromUtf16(TruncationWords));
    return type.width == Endless ? Pieces(bytes)
                                 : ByteWriter().Word(static_cast<int>(bytes.size())).Bytes(bytes).Data();
}

QByteArray BareValue(const ServerType& type, const QString& value)
{
    switch (type.kind) {
    case TypeKind::Int:
        return IntBytes(value);
    case TypeKind::Numeric:
        return NumericBytes(type, value);
    case TypeKind::Money:
        return MoneyBytes(value);
    case TypeKind::Float:
        return FloatBytes(value);
    case TypeKind::DateTime:
        return DateTimeBytes(value);
    case TypeKind::VarChar:
    case TypeKind::NVarChar:
        break;
    }
    return TextBytes(type, value);
}

} // namespace

QByteArray KoreanCollationBytes()
{
    // The LCID in 20 bits, then: 0x10 no case, 0x20 no accents, 0x40 no kana, 0x80 no width; no sort order.
    return QByteArray("\x12\x04\xD0\x00\x00", 5);
}

int ColumnFlags(const ServerColumn& column)
{
    constexpr int nullable = 0x01;
    constexpr int updateUnknown = 0x08;
    constexpr int identity = 0x10;
    constexpr int computed = 0x20;
    return (column.Type.nullable ? nullable : 0) | (column.IsKey ? identity : 0) |
           (column.IsComputed ? computed : 0) | (column.IsKey || column.IsComputed ? 0 : updateUnknown);
}

QByteArray TypeInfo(const ServerType& type)
{
    ByteWriter info;
    info.Byte(TypeCode(type));
    if (type.kind == TypeKind::Numeric)
        info.Byte(NumericSize(type.precision)).Byte(type.precision).Byte(type.scale);
    else if (type.IsText() && type.width == Endless)
        info.Word(EndlessWidth).Bytes(KoreanCollationBytes());
    else if (type.kind == TypeKind::VarChar)
        info.Word(type.width).Bytes(KoreanCollationBytes());
    else if (type.kind == TypeKind::NVarChar)
        info.Word(2 * type.width).Bytes(KoreanCollationBytes());
    else if (type.nullable)
        info.Byte(FixedSize(type.kind));
    return info.Data();
}

QByteArray ValueBytes(const ServerType& type, const QString& value)
{
    const QByteArray bare = BareValue(type, value);
    const bool tellsItsSize = type.kind == TypeKind::Numeric || (type.nullable && !type.IsText());
    return tellsItsSize ? static_cast<char>(bare.size()) + bare : bare;
}

QByteArray NullBytes(const ServerType& type)
{
    if (type.IsText() && type.width == Endless)
        return ByteWriter().QWord(~quint64{0}).Data();
    return type.IsText() ? ByteWriter().Word(NullText).Data() : ByteWriter().Byte(0).Data();
}

} // namespace tsms::test
