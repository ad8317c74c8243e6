#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <memory>

namespace tsms {

/// What came back.
struct HttpReply
{
    long Status = 0;
    QByteArray ContentType;
    QByteArray Body;
};

/// One HTTP/1.1 connection that is kept alive from request to request and made anew when it has died.
/// Goes to the address it is given and nowhere else: no proxy, no redirection, no other protocol than http
/// and https. Raises a SoapFault when no whole reply of at most MaxReplyBytes came.
class HttpLink
{
public:
    static constexpr qsizetype MaxReplyBytes = 1 << 20; ///< heads and body together

    HttpLink();
    ~HttpLink();
    HttpLink(const HttpLink&) = delete;
    HttpLink& operator=(const HttpLink&) = delete;

    HttpReply Get(const QString& url);

    /// Puts `body` on the wire once. A connection that dies under it ends in a fault, never in a repetition.
    HttpReply Post(const QString& url, const QList<QByteArray>& headers, const QByteArray& body);

private:
    struct Handle;
    HttpReply Perform(const QString& url);

    std::unique_ptr<Handle> handle_;
};

} // namespace tsms
