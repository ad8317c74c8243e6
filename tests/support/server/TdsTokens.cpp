#include "support/server/TdsTokens.h"

#include "support/server/TdsBytes.h"

namespace tsms::test {

namespace {

QByteArray Token(int code, const QByteArray& body)
{
    return ByteWriter().Byte(code).Word(static_cast<int>(body.size())).Bytes(body).Data();
}

QByteArray Change(int type, QStringView now, QStringView former)
{
    return Token(0xE3, ByteWriter().Byte(type).ShortText(now).ShortText(former).Data());
}

constexpr int LongestMessage = 2047;

QByteArray Message(int code, const ServerError& error)
{
    return Token(code, ByteWriter()
                           .DWord(static_cast<quint32>(error.Number))
                           .Byte(error.State)
                           .Byte(error.Class)
                           .LongText(error.Words.left(LongestMessage))
                           .ShortText(u"TESTSERVER")
                           .ShortText(u"") // the procedure
                           .DWord(1)       // the line
                           .Data());
}

constexpr int MoreFollows = 0x01;
constexpr int Failed = 0x02;
constexpr int HasCount = 0x10;
constexpr int Cancelled = 0x20;

QByteArray Done(int status, StatementKind kind, qint64 count)
{
    return ByteWriter()
        .Byte(0xFD)
        .Word(status)
        .Word(static_cast<quint16>(kind))
        .QWord(static_cast<quint64>(count))
        .Data();
}

} // namespace

QByteArray DatabaseChange(QStringView name, QStringView former)
{
    return Change(1, name, former);
}

QByteArray LanguageChange(QStringView name)
{
    return Change(2, name, u"");
}

QByteArray PacketSizeChange(int size, int former)
{
    return Change(4, QString::number(size), QString::number(former));
}

QByteArray CollationChange()
{
    const QByteArray collation = KoreanCollationBytes();
    return Token(0xE3, ByteWriter()
                           .Byte(7)
                           .Byte(static_cast<int>(collation.size()))
                           .Bytes(collation)
                           .Byte(0) // none before
                           .Data());
}

QByteArray LogInAcknowledgement()
{
    return Token(0xAD, ByteWriter()
                           .Byte(1) // Transact-SQL
                           .DWord(qToBigEndian(0x74000004U))
                           .ShortText(u"Microsoft SQL Server")
                           .DWord(qToBigEndian(0x0A320640U)) // 10.50.1600
                           .Data());
}

QByteArray ErrorToken(const ServerError& error)
{
    return Message(0xAA, error);
}

QByteArray InfoToken(const ServerError& message)
{
    return Message(0xAB, message);
}

QByteArray ColumnsToken(const QList<ServerColumn>& columns)
{
    ByteWriter token;
    token.Byte(0x81).Word(static_cast<int>(columns.size()));
    for (const ServerColumn& column : columns)
        token
            .DWord(0) // the user's type
            .Word(ColumnFlags(column))
            .Bytes(TypeInfo(column.Type))
            .ShortText(column.Name);
    return token.Data();
}

QByteArray DoneToken(StatementKind kind, qint64 count, bool moreFollows)
{
    const int status = (moreFollows ? MoreFollows : 0) | (count < 0 ? 0 : HasCount);
    return Done(status, kind, count < 0 ? 0 : count);
}

QByteArray FailedToken()
{
    return Done(Failed, StatementKind::Other, 0);
}

QByteArray CancelledToken()
{
    return Done(Cancelled, StatementKind::Other, 0);
}

} // namespace tsms::test
