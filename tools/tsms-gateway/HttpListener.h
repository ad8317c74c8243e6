#pragma once

#include <QByteArray>
#include <QHash>
#include <QSslConfiguration>
#include <QString>
#include <QThread>

#include <atomic>
#include <functional>
#include <optional>

namespace tsms {

/// A request that arrived whole.
struct HttpRequest
{
    QByteArray Method;
    QByteArray Path;
    QHash<QByteArray, QByteArray> Headers; ///< names in lower case
    QByteArray Body;
    int Number = 0; ///< counted over all connections, from 1
};

/// The very bytes that go back, and what becomes of the connection then.
struct HttpAnswer
{
    enum class Then {
        Keep,
        Close,
        Reset,
        Leave, ///< closes it, and listens no more
    };

    QByteArray Bytes;
    Then After = Then::Keep;
    int DelayMilliseconds = 0;
    std::optional<int> AgainMilliseconds = {}; ///< the same bytes once more, so much later
};

/// A whole answer with its Content-Length. Without a body for HEAD.
HttpAnswer WholeAnswer(int status, const QByteArray& contentType, const QByteArray& body);

/// An HTTP/1.1 listener on 127.0.0.1 in a thread of its own, with kept connections and no limit to their
/// requests. What goes back is up to the handler byte for byte, so that it can misbehave. The handler runs
/// in the listener's thread.
class HttpListener
{
public:
    using Handler = std::function<HttpAnswer(const HttpRequest&)>;

    explicit HttpListener(Handler handler);

    /// Speaks TLS with this certificate and key.
    HttpListener(Handler handler, const QSslConfiguration& tls);
    ~HttpListener(); ///< closes every connection and does not wait for anyone
    HttpListener(const HttpListener&) = delete;
    HttpListener& operator=(const HttpListener&) = delete;

    /// Listens on `port`, or on a free one for 0. False when the port is taken.
    bool Listen(quint16 port);

    /// Refuses connections. Those that are there go on.
    void Leave();
    /// Listens again on its port. False when somebody else has taken it meanwhile.
    bool Return();

    quint16 Port() const { return port_; }
    int ConnectionCount() const { return connections_; } ///< accepted so far, of TLS those that came about
    int RequestCount() const { return requests_; }       ///< arrived whole so far

private:
    class RequestReader;
    class Worker;
    friend class Worker;

    Handler handler_;
    std::optional<QSslConfiguration> tls_;
    std::atomic<int> connections_ = 0;
    std::atomic<int> requests_ = 0;
    quint16 port_ = 0;
    QThread thread_;
    Worker* worker_ = nullptr;
};

} // namespace tsms
