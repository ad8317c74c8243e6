#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QList>
#include <QString>

#include <functional>
#include <memory>

namespace tsms {

/// What came back.
struct HttpReply
{
    long status = 0;
    QByteArray contentType;
    QByteArray body;
};

/// One HTTP/1.1 connection that is kept alive from request to request and made anew when it has died.
/// Goes to the address it is given and nowhere else: no proxy, no redirection, no other protocol than http
/// and https. Over https nothing is sent before the other side has shown a certificate of its name that is
/// valid today and comes from a known authority, in TLS 1.2 or later. Raises a SoapFault when no whole reply
/// of at most MaxReplyBytes came.
///
/// HTTP/1.1 tells by nothing but the order which answer belongs to which request. So a kept connection is
/// looked at before it is used again, and left when it is not quiet; and once something came that nobody had
/// asked for, every further request gets a connection of its own.
class HttpLink
{
public:
    static constexpr qsizetype MaxReplyBytes = 1 << 20; ///< heads and body together
    /// For so long after the first reply to a Post, a connection is not used again but listened to: a
    /// gateway that answers twice shows itself before its second answer can be taken for another's.
    static constexpr int ListeningMilliseconds = 30;

    /// `authorities` is a file of certificates (PEM); without one they are the system's.
    explicit HttpLink(const QString& authorities = {});
    ~HttpLink();
    HttpLink(const HttpLink&) = delete;
    HttpLink& operator=(const HttpLink&) = delete;

    HttpReply Get(const QString& url);

    /// Puts `body` on the wire once. A connection that dies under it ends in a fault, never in a repetition.
    /// `meanwhile`, which raises nothing, is called once before this returns or raises: while the answer is
    /// on its way, or earlier where it takes a while until the request can go out.
    HttpReply Post(const QString& url, const QList<QByteArray>& headers, const QByteArray& body,
                   const std::function<void()>& meanwhile = {});

private:
    struct Handle;
    class HeaderList;
    class Meanwhile;
    void PrepareConnection();
    qintptr KeptSocket() const; ///< -1: none
    HttpReply Perform(const QString& url, Meanwhile& meanwhile);

    QByteArray authorities_;
    std::unique_ptr<HeaderList> headers_; ///< of the last Post, which calls of a run share
    std::unique_ptr<Handle> handle_;
    QDeadlineTimer listening_;    ///< until then the kept connection is on trial
    bool isTried_ = false;        ///< a Post has been answered over the kept connection
    bool answersUnasked_ = false; ///< the other side has been heard to
};

} // namespace tsms
