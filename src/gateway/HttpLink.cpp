#include "gateway/HttpLink.h"

#include "gateway/CurlLibrary.h"
#include "gateway/SoapFault.h"
#include "runtime/IdleSocket.h"

#include <QFile>

#include <array>
#include <utility>

namespace tsms {

namespace {

const CurlLibrary& Curl()
{
    return CurlLibrary::Get();
}

struct Incoming
{
    HttpReply reply;
    qsizetype received = 0;
    bool tooLong = false;

    bool Take(std::size_t count)
    {
        received += static_cast<qsizetype>(count);
        tooLong = received > HttpLink::MaxReplyBytes;
        return !tooLong;
    }
};

/// Asked before a request goes out over a connection. After a kept one died, the library would send the
/// message again over a new one. The gateway may have taken it by then, so there is no second time.
int RefuseSecondTime(void* isOut, char*, char*, int, int)
{
    return std::exchange(*static_cast<bool*>(isOut), true) ? CURL_PREREQFUNC_ABORT : CURL_PREREQFUNC_OK;
}

std::size_t ReceiveHead(char*, std::size_t size, std::size_t count, void* user)
{
    return static_cast<Incoming*>(user)->Take(size * count) ? size * count : 0;
}

std::size_t ReceiveBody(char* bytes, std::size_t size, std::size_t count, void* user)
{
    auto& in = *static_cast<Incoming*>(user);
    if (!in.Take(size * count))
        return 0;
    in.reply.body.append(bytes, static_cast<qsizetype>(size) * static_cast<qsizetype>(count));
    return size * count;
}

/// Of the library's own texts about addresses and connections only: they hold nothing of a message.
QString WordsOf(CURLcode code, const char* words)
{
    return QString::fromLocal8Bit(*words != '\0' ? words : Curl().Words(code));
}

SoapFault FaultOf(CURLcode code, const char* words, bool tooLong)
{
    if (tooLong)
        return LocalFault(QStringLiteral("문자메시지 서버의 응답이 너무 깁니다."));
    switch (code) {
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_CONNECT:
    case CURLE_SSL_CONNECT_ERROR:
        return LocalFault(QStringLiteral("문자메시지 서버에 연결하지 못하였습니다."), WordsOf(code, words));
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE: // nobody to know it by
        return LocalFault(QStringLiteral("문자메시지 서버의 인증서를 믿을 수 없습니다."),
                          WordsOf(code, words));
    case CURLE_URL_MALFORMAT:
    case CURLE_UNSUPPORTED_PROTOCOL:
        return LocalFault(QStringLiteral("문자메시지 서버의 주소가 올바르지 않습니다."),
                          WordsOf(code, words));
    default:
        return LocalFault(QStringLiteral("문자메시지 서버와의 통신이 끊어졌습니다."), WordsOf(code, words));
    }
}

} // namespace

/// What there is to do while an answer is awaited: once.
class HttpLink::Meanwhile
{
public:
    explicit Meanwhile(const std::function<void()>& work) : work_(work) {}
    ~Meanwhile() { Run(); }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

    void Run()
    {
        if (!std::exchange(isDone_, true) && work_)
            work_();
    }

    /// The library asks with each step of a transfer whether it should go on.
    static int OnProgress(void* meanwhile, curl_off_t, curl_off_t, curl_off_t size, curl_off_t sent) noexcept
    {
        if (size > 0 && sent == size)
            static_cast<Meanwhile*>(meanwhile)->Run();
        return 0;
    }

private:
    const std::function<void()>& work_;
    bool isDone_ = false;
};

/// The head lines of calls, as the library takes them.
class HttpLink::HeaderList
{
public:
    explicit HeaderList(const QList<QByteArray>& lines) : lines_(lines)
    {
        for (const QByteArray& line : lines)
            Add(line.constData());
        Add("Expect:"); // empty: no asking first, which costs a round trip for each message
    }
    ~HeaderList() { Curl().FreeAll(first_); }
    HeaderList(const HeaderList&) = delete;
    HeaderList& operator=(const HeaderList&) = delete;

    bool IsOf(const QList<QByteArray>& lines) const { return lines_ == lines; }
    curl_slist* Get() const { return first_; }

private:
    void Add(const char* line) { first_ = Curl().Append(first_, line); }

    QList<QByteArray> lines_;
    curl_slist* first_ = nullptr;
};

/// Its kept connection goes with it.
struct HttpLink::Handle
{
    explicit Handle(const QByteArray& authorities) : curl(Curl().Init())
    {
        if (curl == nullptr)
            throw LocalFault(QStringLiteral("통신 기능을 시작하지 못하였습니다."));
        SetRules(authorities);
    }
    ~Handle() { Curl().Cleanup(curl); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    template <class Value> void Set(CURLoption option, Value value) { Curl().SetOption(curl, option, value); }

    CURL* curl;

private:
    /// What holds for each request.
    void SetRules(const QByteArray& authorities)
    {
        Set(CURLOPT_PROTOCOLS_STR, "http,https");
        Set(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2)); // at least
        Set(CURLOPT_SSL_VERIFYPEER, 1L);
        Set(CURLOPT_SSL_VERIFYHOST, 2L);
        if (!authorities.isEmpty())
            Set(CURLOPT_CAINFO, authorities.constData());
        Set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
        Set(CURLOPT_PROXY, ""); // also none from the environment
        Set(CURLOPT_FOLLOWLOCATION, 0L);
        Set(CURLOPT_TCP_NODELAY, 1L);
        Set(CURLOPT_TCP_KEEPALIVE, 1L); // notices a dead host, and leaves a slow one its time
        Set(CURLOPT_NOSIGNAL, 1L);
        Set(CURLOPT_USERAGENT, "tsms");
        Set(CURLOPT_NOPROGRESS, 0L);
        Set(CURLOPT_XFERINFOFUNCTION, &Meanwhile::OnProgress);
        Set(CURLOPT_HEADERFUNCTION, &ReceiveHead);
        Set(CURLOPT_WRITEFUNCTION, &ReceiveBody);
    }
};

HttpLink::HttpLink(const QString& authorities)
    : authorities_(QFile::encodeName(authorities)), handle_(std::make_unique<Handle>(authorities_))
{
}

HttpLink::~HttpLink() = default;

HttpReply HttpLink::Get(const QString& url)
{
    PrepareConnection();
    handle_->Set(CURLOPT_HTTPGET, 1L);
    handle_->Set(CURLOPT_PREREQFUNCTION, curl_prereq_callback(nullptr)); // may be asked for again
    handle_->Set(CURLOPT_HTTPHEADER, static_cast<curl_slist*>(nullptr));
    const std::function<void()> nothing;
    Meanwhile meanwhile(nothing);
    return Perform(url, meanwhile);
}

HttpReply HttpLink::Post(const QString& url, const QList<QByteArray>& headers, const QByteArray& body,
                         const std::function<void()>& meanwhile)
{
    Meanwhile during(meanwhile);
    if (!listening_.hasExpired())
        during.Run();
    PrepareConnection();
    if (KeptSocket() < 0)
        during.Run();
    bool isOut = false;
    handle_->Set(CURLOPT_POST, 1L);
    handle_->Set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body.size()));
    handle_->Set(CURLOPT_POSTFIELDS, body.constData()); // head and body leave in one piece
    handle_->Set(CURLOPT_PREREQFUNCTION, &RefuseSecondTime);
    handle_->Set(CURLOPT_PREREQDATA, &isOut);
    if (!headers_ || !headers_->IsOf(headers))
        headers_ = std::make_unique<HeaderList>(headers);
    handle_->Set(CURLOPT_HTTPHEADER, headers_->Get());
    HttpReply reply = Perform(url, during);
    if (!std::exchange(isTried_, true))
        listening_.setRemainingTime(ListeningMilliseconds, Qt::PreciseTimer);
    return reply;
}

/// Leaves a kept connection that does not wait for a request in silence.
void HttpLink::PrepareConnection()
{
    if (const qintptr socket = KeptSocket(); socket >= 0) {
        const IdleSocket kept = WatchIdleSocket(socket, static_cast<int>(listening_.remainingTime()));
        if (kept == IdleSocket::Speaks)
            answersUnasked_ = true;
        if (kept != IdleSocket::Quiet)
            handle_ = std::make_unique<Handle>(authorities_);
    }
}

qintptr HttpLink::KeptSocket() const
{
    curl_socket_t socket = CURL_SOCKET_BAD;
    Curl().GetInfo(handle_->curl, CURLINFO_ACTIVESOCKET, &socket);
    return socket == CURL_SOCKET_BAD ? -1 : static_cast<qintptr>(socket);
}

HttpReply HttpLink::Perform(const QString& url, Meanwhile& meanwhile)
{
    Incoming in;
    std::array<char, CURL_ERROR_SIZE> words{};
    const QByteArray address = url.toUtf8();
    handle_->Set(CURLOPT_URL, address.constData());
    handle_->Set(CURLOPT_FORBID_REUSE, answersUnasked_ ? 1L : 0L);
    handle_->Set(CURLOPT_XFERINFODATA, &meanwhile);
    handle_->Set(CURLOPT_HEADERDATA, &in);
    handle_->Set(CURLOPT_WRITEDATA, &in);
    handle_->Set(CURLOPT_ERRORBUFFER, words.data());

    CURL* curl = handle_->curl;
    const CURLcode code = Curl().Perform(curl);
    handle_->Set(CURLOPT_ERRORBUFFER, static_cast<char*>(nullptr));
    if (code != CURLE_OK) {
        handle_ = std::make_unique<Handle>(authorities_);
        throw FaultOf(code, words.data(), in.tooLong);
    }

    long connections = 0;
    Curl().GetInfo(curl, CURLINFO_NUM_CONNECTS, &connections);
    if (connections > 0)
        isTried_ = false;
    Curl().GetInfo(curl, CURLINFO_RESPONSE_CODE, &in.reply.status);
    const char* contentType = nullptr;
    Curl().GetInfo(curl, CURLINFO_CONTENT_TYPE, &contentType);
    in.reply.contentType = contentType;
    return std::move(in.reply);
}

} // namespace tsms
