#include "tsms-gateway/HttpListener.h"

#include <QSslServer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <memory>
#include <optional>
#include <utility>

namespace tsms {

namespace {

constexpr qsizetype MaxHeadBytes = 64 << 10;
constexpr qsizetype MaxBodyBytes = 4 << 20;

QByteArray Reason(int status)
{
    switch (status) {
    case 200:
        return "OK";
    case 400:
        return "Bad Request";
    case 404:
        return "Not Found";
    case 405:
        return "Method Not Allowed";
    default:
        return "Internal Server Error";
    }
}

} // namespace

/// Collects the bytes of one connection into requests.
class HttpListener::RequestReader
{
public:
    void Take(const QByteArray& bytes) { buffer_ += bytes; }

    /// True when no request can come out of these bytes any more.
    bool IsBroken() const { return isBroken_; }

    /// The next whole request; none as long as bytes are missing.
    std::optional<HttpRequest> Next()
    {
        if (!request_ && !ReadHead())
            return std::nullopt;
        if (buffer_.size() < bodySize_)
            return std::nullopt;
        request_->Body = buffer_.first(bodySize_);
        buffer_.remove(0, bodySize_);
        return std::exchange(request_, std::nullopt);
    }

private:
    bool ReadHead()
    {
        const qsizetype end = buffer_.indexOf("\r\n\r\n");
        if (end < 0) {
            isBroken_ = buffer_.size() > MaxHeadBytes;
            return false;
        }
        const QList<QByteArray> lines = buffer_.first(end).replace("\r\n", "\n").split('\n');
        buffer_.remove(0, end + 4);
        const QList<QByteArray> words = lines.first().split(' ');
        HttpRequest request;
        for (const QByteArray& line : lines.sliced(1)) {
            const qsizetype colon = line.indexOf(':');
            request.Headers.insert(line.left(colon).toLower(), line.mid(colon + 1).trimmed());
        }
        bool isNumber = true;
        bodySize_ = 0;
        if (request.Headers.contains("content-length"))
            bodySize_ = request.Headers.value("content-length").toLongLong(&isNumber);
        isBroken_ = words.size() != 3 || !isNumber || bodySize_ < 0 || bodySize_ > MaxBodyBytes ||
                    request.Headers.contains("transfer-encoding");
        if (isBroken_)
            return false;
        request.Method = words[0];
        request.Path = words[1];
        request_ = request;
        return true;
    }

    QByteArray buffer_;
    std::optional<HttpRequest> request_; ///< the one whose body is awaited
    qsizetype bodySize_ = 0;
    bool isBroken_ = false;
};

HttpAnswer WholeAnswer(int status, const QByteArray& contentType, const QByteArray& body)
{
    HttpAnswer answer;
    answer.Bytes = "HTTP/1.1 " + QByteArray::number(status) + ' ' + Reason(status) +
                   "\r\nContent-Type: " + contentType +
                   "\r\nContent-Length: " + QByteArray::number(body.size()) +
                   "\r\nCache-Control: no-store\r\n\r\n" + body;
    return answer;
}

/// Lives in the listener's thread with all its sockets.
class HttpListener::Worker : public QObject
{
public:
    explicit Worker(HttpListener& listener) : listener_(listener), server_(NewServer())
    {
        connect(server_, &QTcpServer::pendingConnectionAvailable, this, &Worker::Accept);
    }

    quint16 Listen(quint16 port)
    {
        return server_->listen(QHostAddress::LocalHost, port) ? server_->serverPort() : 0;
    }

    void Leave() { server_->close(); }
    bool Return(quint16 port) { return server_->isListening() || Listen(port) != 0; }

private:
    QTcpServer* NewServer()
    {
        if (!listener_.tls_)
            return new QTcpServer(this);
        auto* server = new QSslServer(this);
        server->setSslConfiguration(*listener_.tls_);
        return server;
    }

    void Accept()
    {
        while (QTcpSocket* socket = server_->nextPendingConnection()) {
            ++listener_.connections_;
            socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            connect(socket, &QTcpSocket::readyRead, socket,
                    [this, socket, reader = std::make_shared<RequestReader>()] { Read(*socket, *reader); });
        }
    }

    void Read(QTcpSocket& socket, RequestReader& reader)
    {
        reader.Take(socket.readAll());
        while (std::optional<HttpRequest> request = reader.Next()) {
            request->Number = ++listener_.requests_;
            Send(socket, listener_.handler_(*request));
        }
        if (reader.IsBroken())
            socket.abort();
    }

    void Send(QTcpSocket& socket, const HttpAnswer& answer)
    {
        WriteAfter(answer.DelayMilliseconds, socket, answer);
        if (answer.AgainMilliseconds)
            WriteAfter(answer.DelayMilliseconds + *answer.AgainMilliseconds, socket, answer);
    }

    void WriteAfter(int milliseconds, QTcpSocket& socket, const HttpAnswer& answer)
    {
        if (milliseconds > 0)
            QTimer::singleShot(milliseconds, Qt::PreciseTimer, &socket,
                               [this, &socket, answer] { Write(socket, answer); });
        else
            Write(socket, answer);
    }

    void Write(QTcpSocket& socket, const HttpAnswer& answer)
    {
        if (answer.After == HttpAnswer::Then::Leave)
            Leave(); // before the client reads the answer and comes back
        if (!answer.Bytes.isEmpty()) {
            socket.write(answer.Bytes);
            socket.flush();
        }
        switch (answer.After) {
        case HttpAnswer::Then::Keep:
            break;
        case HttpAnswer::Then::Close:
        case HttpAnswer::Then::Leave:
            socket.disconnectFromHost();
            break;
        case HttpAnswer::Then::Reset:
            socket.abort();
            break;
        }
    }

    HttpListener& listener_;
    QTcpServer* server_;
};

HttpListener::HttpListener(Handler handler) : handler_(std::move(handler)) {}

HttpListener::HttpListener(Handler handler, const QSslConfiguration& tls)
    : handler_(std::move(handler)), tls_(tls)
{
}

HttpListener::~HttpListener()
{
    thread_.quit(); // the worker goes with its thread
    thread_.wait();
}

bool HttpListener::Listen(quint16 port)
{
    worker_ = new Worker(*this);
    worker_->moveToThread(&thread_);
    QObject::connect(&thread_, &QThread::finished, worker_, &QObject::deleteLater);
    thread_.start();
    QMetaObject::invokeMethod(
        worker_, [this, port] { port_ = worker_->Listen(port); }, Qt::BlockingQueuedConnection);
    return port_ != 0;
}

void HttpListener::Leave()
{
    const auto leave = [this] { worker_->Leave(); };
    QMetaObject::invokeMethod(worker_, leave, Qt::BlockingQueuedConnection);
}

bool HttpListener::Return()
{
    bool listens = false;
    QMetaObject::invokeMethod(
        worker_, [this, &listens] { listens = worker_->Return(port_); }, Qt::BlockingQueuedConnection);
    return listens;
}

} // namespace tsms
