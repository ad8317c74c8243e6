#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace tsms::test {

/// The width of a text that has none.
inline constexpr int Endless = 0x3FFFFFFF;

/// A data type of the server, as far as the tables and the statements over them have it.
struct ServerType
{
    enum class Kind { Int, Numeric, Money, Float, DateTime, VarChar, NVarChar };

    Kind kind = Kind::Int;
    int width = 0; ///< of a VarChar in bytes, of an NVarChar in characters; Endless for "max"
    int precision = 0;
    int scale = 0;
    bool nullable = true;

    bool IsText() const { return kind == Kind::VarChar || kind == Kind::NVarChar; }
    bool operator==(const ServerType&) const = default;
};

/// A column of a result.
struct ServerColumn
{
    QString Name; ///< empty for an expression without one
    ServerType Type;
    bool IsKey = false;      ///< its value is given by the server
    bool IsComputed = false; ///< an expression

    bool operator==(const ServerColumn&) const = default;
};

/// Korean_Wansung_CI_AS: code page 949, LCID 0x0412, without regard to case, kana and width.
QByteArray KoreanCollationBytes();

/// The Flags of a column in COLMETADATA.
int ColumnFlags(const ServerColumn& column);

/// TYPE_INFO of a type (MS-TDS, 2.2.5.6).
QByteArray TypeInfo(const ServerType& type);

/// A value in a row (MS-TDS, 2.2.5.5), from its text: a number in plain digits, a moment as
/// "YYYY-MM-DD HH:MM:SS" or the date alone, with "/" or "-". Raises the server's error for a text that is no
/// value of the type, and for one that is wider.
QByteArray ValueBytes(const ServerType& type, const QString& value);
QByteArray NullBytes(const ServerType& type);

} // namespace tsms::test
