#include "bench/dispatch/Workload.h"

#include "gateway/HttpLink.h"
#include "gateway/ServiceDescription.h"
#include "gateway/SoapMessage.h"
#include "runtime/Clock.h"
#include "store/embedded/EmbeddedConnection.h"

#include <curl/curl.h>
#include <sqlite3.h>

#include <ctime>
#include <string>
#include <vector>

namespace tsms::bench {

namespace {

/// One call and its log row, as bytes.
struct Message
{
    QByteArray envelope;
    QByteArray name;
    QByteArray number;
    QByteArray content;
};

struct Prepared
{
    QByteArray endpoint;
    std::vector<Message> messages;
};

/// The envelopes that the program would make; outside the time that counts.
Prepared Prepare(const World& world)
{
    HttpLink link;
    const ServiceDescription service =
        ReadServiceDescription(QUrl(world.wsdlUrl), {}, {}, [&](const QUrl& url) {
            const HttpReply reply = link.Get(url.toString());
            return FetchedDocument{reply.body, reply.contentType};
        });
    Prepared prepared{service.endpoint.toEncoded(), {}};
    const CallShape shape = service.operations.value(QStringLiteral("SendSMS"));
    for (int row = 1; row <= world.rows; ++row) {
        const QString content = MessageTemplate().replace(QStringLiteral("[받는사람]"), RecipientName(row));
        const QStringList arguments{QStringLiteral("demo"),
                                    QStringLiteral("demo"),
                                    QStringLiteral("sms.example.kr"),
                                    SenderNumber(),
                                    RecipientNumber(row),
                                    content,
                                    {},
                                    {},
                                    {},
                                    {},
                                    {}};
        prepared.messages.push_back({CallEnvelope(shape).With(arguments), RecipientName(row).toUtf8(),
                                     RecipientNumber(row).toUtf8(), content.toUtf8()});
    }
    return prepared;
}

std::size_t Append(char* bytes, std::size_t size, std::size_t count, void* user)
{
    static_cast<std::string*>(user)->append(bytes, size * count);
    return size * count;
}

/// What stands behind a word of the reply up to the next ";".
std::string ItemOf(const std::string& reply, const std::string& word)
{
    const std::size_t at = reply.find(word);
    Demand(at != std::string::npos, "the reply lacks an item");
    const std::size_t from = at + word.size();
    return reply.substr(from, reply.find(';', from) - from);
}

class Poster
{
public:
    explicit Poster(const QByteArray& endpoint) : curl_(curl_easy_init())
    {
        headers_ = curl_slist_append(headers_, "Content-Type: text/xml; charset=utf-8");
        headers_ = curl_slist_append(headers_, "SOAPAction: \"urn:SendSMS\"");
        headers_ = curl_slist_append(headers_, "Expect:");
        curl_easy_setopt(curl_, CURLOPT_URL, endpoint.constData());
        curl_easy_setopt(curl_, CURLOPT_PROXY, "");
        curl_easy_setopt(curl_, CURLOPT_HTTPHEADER, headers_);
        curl_easy_setopt(curl_, CURLOPT_WRITEFUNCTION, &Append);
        curl_easy_setopt(curl_, CURLOPT_WRITEDATA, &reply_);
    }
    ~Poster()
    {
        curl_easy_cleanup(curl_);
        curl_slist_free_all(headers_);
    }
    Poster(const Poster&) = delete;
    Poster& operator=(const Poster&) = delete;

    const std::string& Post(const QByteArray& envelope)
    {
        reply_.clear();
        curl_easy_setopt(curl_, CURLOPT_POSTFIELDS, envelope.constData());
        curl_easy_setopt(curl_, CURLOPT_POSTFIELDSIZE, static_cast<long>(envelope.size()));
        Demand(curl_easy_perform(curl_) == CURLE_OK, "the bare loop could not post");
        return reply_;
    }

private:
    CURL* curl_;
    curl_slist* headers_ = nullptr;
    std::string reply_;
};

std::string LocalTime(const char* pattern)
{
    char buffer[32];
    const std::time_t now = std::time(nullptr);
    return {buffer, std::strftime(buffer, sizeof buffer, pattern, std::localtime(&now))};
}

class LogTable
{
public:
    explicit LogTable(const QString& path)
    {
        Demand(sqlite3_open_v2(path.toUtf8().constData(), &handle_,
                               SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) == SQLITE_OK,
               "the bare loop could not open the log");
        PrepareEmbeddedHandle(handle_, clock_); // an index of the table needs the collation
        sqlite3_exec(handle_, "PRAGMA synchronous=FULL", nullptr, nullptr, nullptr);
        const std::string sql =
            "INSERT INTO SMSLog_" + LocalTime("%Y") +
            " (SMSStatus,SMSNo,SMSID,SendNm,SendTelNo,ReceiveTelNo,SMSContent,SendTime,UserData1,UserData2,"
            "UserData3,ErrCd,ErrMsg,RegDt) VALUES ('1',?,'demo',?,?,?,?,?,?,?,NULL,NULL,NULL,?)";
        Demand(sqlite3_prepare_v2(handle_, sql.c_str(), -1, &insert_, nullptr) == SQLITE_OK,
               "the bare loop could not prepare its statement");
        Bind(4, SenderNumber().toStdString());
        Bind(7, std::to_string(UserData1));
        Bind(8, UserData2().toStdString());
    }
    ~LogTable()
    {
        sqlite3_finalize(insert_);
        sqlite3_close(handle_);
    }
    LogTable(const LogTable&) = delete;
    LogTable& operator=(const LogTable&) = delete;

    void Insert(const Message& message, const std::string& number)
    {
        Bind(1, number);
        Bind(2, message.name);
        Bind(3, message.number);
        Bind(5, message.content);
        Bind(6, LocalTime("%Y-%m-%d %H-%M"));
        Bind(9, LocalTime("%Y-%m-%d %H:%M:%S"));
        Demand(sqlite3_step(insert_) == SQLITE_DONE, sqlite3_errmsg(handle_));
        sqlite3_reset(insert_);
    }

private:
    template <class Bytes> void Bind(int place, const Bytes& bytes)
    {
        sqlite3_bind_text(insert_, place, bytes.data(), static_cast<int>(bytes.size()), SQLITE_TRANSIENT);
    }

    SystemClock clock_;
    sqlite3* handle_ = nullptr;
    sqlite3_stmt* insert_ = nullptr;
};

} // namespace

Cost RunBareLoop(const World& world)
{
    const Prepared prepared = Prepare(world);
    const std::int64_t from = Nanoseconds();
    {
        Poster poster(prepared.endpoint);
        LogTable log(world.database);
        for (const Message& message : prepared.messages) {
            const std::string& reply = poster.Post(message.envelope);
            Demand(ItemOf(reply, "error_code:").find_first_not_of(' ') == std::string::npos,
                   "the bare loop was refused");
            log.Insert(message, ItemOf(reply, "unique_num:"));
        }
    }
    return {static_cast<double>(Nanoseconds() - from), PeakMemory()};
}

} // namespace tsms::bench
