#include "support/server/TestServer.h"

#include "runtime/RuntimeError.h"
#include "session/Session.h"
#include "support/server/ServerEngine.h"
#include "support/server/TdsBytes.h"
#include "support/server/TdsPackets.h"
#include "support/server/TdsTokens.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace tsms::test {

namespace {

constexpr quint32 Tds74 = 0x74000004;
constexpr int SmallestPacket = 512;
constexpr int LargestPacket = 32767;
constexpr int LockPauseMilliseconds = 10;

/// The text of a batch: behind its headers, whose length stands first.
QString BatchText(const QByteArray& data)
{
    const ByteReader batch(data);
    const auto headers = static_cast<qsizetype>(batch.DWord(0));
    return batch.Text(headers, static_cast<int>((data.size() - headers) / 2));
}

/// True when a batch does nothing but set up its connection.
bool IsSetting(const QString& sql)
{
    try {
        const QList<ServerStatement> statements = SplitBatch(sql);
        return std::all_of(statements.begin(), statements.end(),
                           [](const ServerStatement& statement) { return statement.IsSetting(); });
    } catch (const RuntimeError&) {
        return false;
    }
}

int PacketSizeFor(int wish)
{
    return wish >= SmallestPacket && wish <= LargestPacket ? wish : DefaultPacketSize;
}

QByteArray Refusal(const QList<ServerError>& errors)
{
    QByteArray tokens;
    for (const ServerError& error : errors)
        tokens += ErrorToken(error);
    return tokens + FailedToken();
}

} // namespace

/// One connection.
class TestServer::Client : public QObject
{
public:
    Client(TestServer& server, QTcpSocket& socket) : QObject(&socket), server_(server), socket_(socket)
    {
        server_.conduct_.NoteConnection(1);
        wait_.setSingleShot(true);
        connect(&wait_, &QTimer::timeout, this, &Client::Execute);
        connect(&socket_, &QTcpSocket::readyRead, this, &Client::Read);
        connect(&socket_, &QTcpSocket::disconnected, &socket_, &QObject::deleteLater);
    }
    ~Client() override { server_.conduct_.NoteConnection(-1); }

private:
    using Fault = StatementFault::Kind;

    void Read()
    {
        reader_.Take(socket_.readAll());
        while (const std::optional<TdsMessage> message = reader_.Next())
            Take(*message);
        if (reader_.IsBroken())
            socket_.abort();
    }

    void Take(const TdsMessage& message)
    {
        const ServerConduct::LogIn conduct = server_.conduct_.TheLogIn();
        switch (message.type) {
        case MessageType::PreLogIn:
            if (conduct != ServerConduct::LogIn::SilentAtPreLogIn)
                Send(PreLogInAnswer());
            break;
        case MessageType::LogIn:
            if (conduct != ServerConduct::LogIn::SilentAtLogIn)
                LogIn(ReadLogIn(message.data));
            break;
        case MessageType::Batch:
            TakeBatch(BatchText(message.data));
            break;
        case MessageType::Attention:
            wait_.stop();
            Send(CancelledToken());
            break;
        default:
            Send(Refusal({{2812, 16, 62, QStringLiteral("Could not find stored procedure.")}}));
            break;
        }
    }

    void LogIn(const ServerLogin& logIn)
    {
        const std::optional<LogInFault> fault = server_.conduct_.NoteLogIn(logIn);
        if (logIn.Version != Tds74)
            return socket_.abort();
        if (fault == LogInFault::Cut) {
            socket_.disconnectFromHost();
            return LeaveIfTold();
        }
        const QList<ServerError> errors = fault ? QList{LogInFailed(logIn.User)} : ErrorsOf(logIn);
        if (!errors.isEmpty()) {
            Send(Refusal(errors));
            socket_.disconnectFromHost();
            return fault ? LeaveIfTold() : void();
        }
        const QString database = server_.databases_.NameOf(DatabaseOf(logIn));
        const int packetSize = PacketSizeFor(logIn.PacketSize);
        Send(DatabaseChange(database, u"master") + InfoToken(DatabaseIs(database)) + CollationChange() +
             LanguageChange(u"us_english") + InfoToken(LanguageIs(QStringLiteral("us_english"))) +
             LogInAcknowledgement() + PacketSizeChange(packetSize, DefaultPacketSize) +
             DoneToken(StatementKind::Other, -1, false));
        packetSize_ = packetSize;
    }

    /// Empty when the log-in passes; then there is an engine.
    QList<ServerError> ErrorsOf(const ServerLogin& logIn)
    {
        const ServerAccount& account = server_.account_;
        const auto isSame = [](const QString& a, const QString& b) {
            return a.compare(b, Qt::CaseInsensitive) == 0;
        };
        const ServerError failed = LogInFailed(logIn.User);
        if (server_.conduct_.TheLogIn() == ServerConduct::LogIn::Refuse) {
            const QList<ServerError> errors = server_.conduct_.Refusal();
            return errors.isEmpty() ? QList{failed} : errors;
        }
        const bool isOwner = isSame(logIn.User, account.User);
        if (logIn.Password != (isOwner ? account.Password : server_.users_.PasswordOf(logIn.User)))
            return {failed};
        const QString& database = DatabaseOf(logIn);
        const bool isLetIn =
            isOwner || isSame(database, account.Database) || isSame(database, ServersOwnDatabase);
        if (!isLetIn || !server_.databases_.PathOf(database))
            return {UnknownDatabase(database), failed};
        try {
            engine_ = std::make_unique<ServerEngine>(server_.databases_, database, server_.clock_,
                                                     server_.users_, isOwner ? QString() : logIn.User);
        } catch (const RuntimeError&) {
            return {UnknownDatabase(database), failed};
        }
        return {};
    }

    /// The name that the client asks for.
    const QString& DatabaseOf(const ServerLogin& logIn) const
    {
        return logIn.Database.isEmpty() ? server_.account_.Database : logIn.Database;
    }

    void TakeBatch(const QString& sql)
    {
        if (!engine_)
            return socket_.abort();
        batch_ = sql;
        fault_ = IsSetting(sql) ? std::nullopt : server_.conduct_.NoteStatement(sql);
        if (!fault_)
            return Execute();
        GoWrong();
        LeaveIfTold();
    }

    void GoWrong()
    {
        switch (fault_->kind) {
        case Fault::Silent:
            break;
        case Fault::Late:
            wait_.start(fault_->amount);
            break;
        case Fault::CutBefore:
            socket_.disconnectFromHost();
            break;
        case Fault::Error:
            Send(Refusal({fault_->error}));
            break;
        case Fault::Answer:
            Send(fault_->answer);
            break;
        case Fault::CutInAnswer:
        case Fault::CutInMiddle:
        case Fault::CutAfter:
            Execute();
            break;
        }
    }

    void Execute()
    {
        const std::optional<QByteArray> answer = engine_->Run(batch_);
        if (!answer)
            wait_.start(LockPauseMilliseconds);
        else if (fault_ && fault_->kind == Fault::CutInAnswer)
            SendPart(*answer, fault_->amount);
        else if (fault_ && fault_->kind == Fault::CutInMiddle)
            SendPart(*answer, static_cast<int>(answer->size() / 2));
        else if (fault_ && fault_->kind == Fault::CutAfter)
            socket_.disconnectFromHost();
        else
            Send(*answer);
    }

    void Send(const QByteArray& tokens) { socket_.write(AnswerPackets(tokens, packetSize_)); }

    void SendPart(const QByteArray& tokens, int bytes)
    {
        socket_.write(AnswerPackets(tokens, packetSize_).left(bytes));
        socket_.disconnectFromHost();
    }

    void LeaveIfTold();

    TestServer& server_;
    QTcpSocket& socket_;
    PacketReader reader_;
    std::unique_ptr<ServerEngine> engine_;
    int packetSize_ = DefaultPacketSize;
    QString batch_; ///< the one in hand
    std::optional<StatementFault> fault_;
    QTimer wait_;
};

/// Lives in the server's thread with all its connections.
class TestServer::Worker : public QObject
{
public:
    explicit Worker(TestServer& server) : server_(server)
    {
        connect(&listener_, &QTcpServer::newConnection, this, &Worker::Accept);
    }

    quint16 Listen(quint16 port)
    {
        const bool listens = listener_.isListening() || listener_.listen(QHostAddress::LocalHost, port);
        return listens ? listener_.serverPort() : 0;
    }

    void Leave()
    {
        listener_.close();
        for (QTcpSocket* socket : listener_.findChildren<QTcpSocket*>())
            socket->disconnectFromHost();
    }

    void Stop()
    {
        listener_.close();
        for (QTcpSocket* socket : listener_.findChildren<QTcpSocket*>())
            socket->abort();
    }

private:
    void Accept()
    {
        while (QTcpSocket* socket = listener_.nextPendingConnection()) {
            socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            new Client(server_, *socket); // goes with its socket
        }
    }

    TestServer& server_;
    QTcpServer listener_{this};
};

/// What is written goes out first.
void TestServer::Client::LeaveIfTold()
{
    if (server_.conduct_.TakeLeave())
        server_.worker_->Leave();
}

TestServer::TestServer(const QString& path, const Clock& clock, ServerAccount account)
    : clock_(clock),
      account_(std::move(account)),
      databases_(account_.Database, path, clock),
      worker_(new Worker(*this))
{
    worker_->moveToThread(&thread_);
    QObject::connect(&thread_, &QThread::finished, worker_, &QObject::deleteLater);
    thread_.start();
    Start();
}

TestServer::~TestServer()
{
    thread_.quit(); // the worker goes with its thread
    thread_.wait();
}

void TestServer::Start()
{
    QMetaObject::invokeMethod(
        worker_, [this] { port_ = worker_->Listen(port_); }, Qt::BlockingQueuedConnection);
    if (port_ != 0)
        return;
    std::fputs("the test server found no port\n", stderr);
    std::abort();
}

void TestServer::Stop()
{
    const auto stop = [this] { worker_->Stop(); };
    QMetaObject::invokeMethod(worker_, stop, Qt::BlockingQueuedConnection);
}

void TestServer::Describe(Session& session) const
{
    session.DBCatalog = account_.Database;
    session.DBServer = QStringLiteral("127.0.0.1");
    session.DBPort = QString::number(port_);
    session.DBUser = account_.User;
    session.DBPassword = account_.Password;
}

void TestServer::AnswerLate(int milliseconds, int nth)
{
    conduct_.AddFault({StatementFault::Kind::Late, milliseconds, {}}, nth);
}

void TestServer::StaySilent(int nth)
{
    conduct_.AddFault({StatementFault::Kind::Silent, 0, {}}, nth);
}

void TestServer::CutBefore(int nth)
{
    conduct_.AddFault({StatementFault::Kind::CutBefore, 0, {}}, nth);
}

void TestServer::CutInAnswer(int bytes, int nth)
{
    conduct_.AddFault({StatementFault::Kind::CutInAnswer, bytes, {}}, nth);
}

void TestServer::CutInMiddle(int nth)
{
    conduct_.AddFault({StatementFault::Kind::CutInMiddle, 0, {}}, nth);
}

void TestServer::CutAfter(int nth)
{
    conduct_.AddFault({StatementFault::Kind::CutAfter, 0, {}}, nth);
}

void TestServer::Fail(const ServerError& error, int nth)
{
    conduct_.AddFault({StatementFault::Kind::Error, 0, error}, nth);
}

void TestServer::FailWhere(const QString& part, const ServerError& error)
{
    conduct_.AddFault({StatementFault::Kind::Error, 0, error}, part);
}

void TestServer::AnswerWith(const QByteArray& tokens, int nth)
{
    conduct_.AddFault({StatementFault::Kind::Answer, 0, {}, tokens}, nth);
}

void TestServer::AnswerWhere(const QString& part, const QByteArray& tokens)
{
    conduct_.AddFault({StatementFault::Kind::Answer, 0, {}, tokens}, part);
}

void TestServer::BehaveAgain()
{
    conduct_.BehaveAgain();
}

} // namespace tsms::test
