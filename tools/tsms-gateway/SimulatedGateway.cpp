#include "tsms-gateway/SimulatedGateway.h"

#include "tsms-gateway/GatewayPages.h"

#include <algorithm>

namespace tsms {

namespace {

constexpr const char* Html = "text/html; charset=utf-8";
constexpr const char* Xml = "text/xml; charset=utf-8";
constexpr int HttpOk = 200;
constexpr int HttpNotFound = 404;
constexpr int HttpNotAllowed = 405;
constexpr int HttpServerError = 500;

/// The first eight items of a reply.
QString WithoutLastItem(const QString& reply)
{
    return reply.left(reply.lastIndexOf(u';'));
}

HttpAnswer FaultAnswer(const QString& code, const QString& string, const QString& detail)
{
    return WholeAnswer(HttpServerError, Xml, ServiceFault(code, string, detail));
}

/// What goes back in place of a whole right answer.
HttpAnswer Spoilt(const HttpAnswer& right, const GatewayFault& fault)
{
    HttpAnswer answer = right;
    switch (fault.Kind) {
    case FaultKind::Late:
    case FaultKind::WsdlLate:
        answer.DelayMilliseconds = fault.Milliseconds;
        break;
    case FaultKind::Twice:
        answer.AgainMilliseconds = fault.Milliseconds;
        break;
    case FaultKind::Drop:
    case FaultKind::WsdlDrop:
        answer = {{}, HttpAnswer::Then::Close};
        break;
    case FaultKind::Cut:
    case FaultKind::WsdlCut:
        answer.Bytes.chop(60); // inside the envelope
        answer.After = HttpAnswer::Then::Close;
        break;
    case FaultKind::SoapFault:
        answer = FaultAnswer(QStringLiteral("Server"), QStringLiteral("서비스를 잠시 쓸 수 없습니다."),
                             QStringLiteral("점검 중입니다."));
        break;
    case FaultKind::Http500:
    case FaultKind::WsdlHttp500:
        answer = WholeAnswer(HttpServerError, Html, "<html><body><h1>500</h1></body></html>");
        break;
    case FaultKind::Garbage:
        answer = WholeAnswer(HttpOk, Xml, "\x01\x02 this is no XML <<<");
        break;
    case FaultKind::Leave:
    case FaultKind::WsdlLeave:
        answer.Bytes.replace(answer.Bytes.indexOf("\r\n\r\n"), 2, "\r\nConnection: close\r\n");
        answer.After = HttpAnswer::Then::Leave;
        break;
    case FaultKind::WsdlMissing:
        answer = WholeAnswer(HttpNotFound, Html, "<html><body>404</body></html>");
        break;
    case FaultKind::WsdlGarbage:
        answer = WholeAnswer(HttpOk, Xml, "this is no XML <<<");
        break;
    default:
        break; // of the reply's text, or of what the description names
    }
    return answer;
}

} // namespace

SimulatedGateway::SimulatedGateway(const Clock& clock, Settings settings)
    : book_(clock, settings.Account),
      settings_(std::move(settings)),
      listener_([this](const HttpRequest& request) { return Answer(request); })
{
}

SimulatedGateway::~SimulatedGateway() = default;

bool SimulatedGateway::Start()
{
    return listener_.Listen(settings_.Port);
}

QString SimulatedGateway::Url() const
{
    return QStringLiteral("http://127.0.0.1:%1").arg(Port());
}

void SimulatedGateway::Script(const GatewayFault& fault)
{
    const std::lock_guard lock(mutex_);
    faults_.append(fault);
}

void SimulatedGateway::ClearFaults()
{
    const std::lock_guard lock(mutex_);
    faults_.clear();
}

QList<ServiceCall> SimulatedGateway::Calls() const
{
    const std::lock_guard lock(mutex_);
    return calls_;
}

HttpAnswer SimulatedGateway::Answer(const HttpRequest& request)
{
    const QByteArray path = request.Path.split('?').first();
    if (path == EndpointPath().toUtf8())
        return request.Method == "POST" ? AnswerCall(request) : WholeAnswer(HttpNotAllowed, Html, {});
    if (request.Method != "GET")
        return WholeAnswer(HttpNotAllowed, Html, {});
    if (path == DescriptionPath().toUtf8())
        return AnswerDescription();
    return AnswerPage(path);
}

HttpAnswer SimulatedGateway::AnswerDescription()
{
    const std::lock_guard lock(mutex_);
    const auto fault = std::find_if(faults_.cbegin(), faults_.cend(),
                                    [](const GatewayFault& scripted) { return scripted.IsOfDescription(); });
    const bool namesOperations = fault == faults_.cend() || fault->Kind != FaultKind::WsdlNoOperation;
    const HttpAnswer right =
        WholeAnswer(HttpOk, Xml, DescriptionOf(settings_.Style, Url() + EndpointPath(), namesOperations));
    return fault == faults_.cend() ? right : Spoilt(right, *fault);
}

HttpAnswer SimulatedGateway::AnswerCall(const HttpRequest& request)
{
    QString why;
    const std::optional<ServiceCall> call = ReadServiceCall(request.Body, settings_.Style, why);
    if (!call)
        return FaultAnswer(QStringLiteral("Client"), QStringLiteral("올바르지 않은 요청입니다."), why);
    if (request.Headers.value("soapaction") != "\"urn:" + call->Operation.toUtf8() + '"')
        return FaultAnswer(QStringLiteral("Client"), QStringLiteral("올바르지 않은 요청입니다."),
                           QStringLiteral("SOAPAction"));
    std::optional<GatewayFault> fault;
    {
        const std::lock_guard lock(mutex_);
        calls_.append(*call);
        fault = FaultOfCall(static_cast<int>(calls_.size()));
    }
    const HttpAnswer right =
        WholeAnswer(HttpOk, Xml, ServiceAnswer(call->Operation, settings_.Style, Serve(*call, fault)));
    return fault ? Spoilt(right, *fault) : right;
}

std::optional<GatewayFault> SimulatedGateway::FaultOfCall(int call) const
{
    const auto fault = std::find_if(faults_.begin(), faults_.end(), [call](const GatewayFault& scripted) {
        return !scripted.IsOfDescription() && (scripted.Call == 0 || scripted.Call == call);
    });
    return fault == faults_.end() ? std::nullopt : std::optional(*fault);
}

QString SimulatedGateway::Serve(const ServiceCall& call, const std::optional<GatewayFault>& fault)
{
    if (fault && fault->Kind == FaultKind::Refuse)
        return MessageBook::Refusal(QStringLiteral("E99"), QStringLiteral("수신이 거부된 번호입니다."));
    // A gateway that answers with a SOAP fault, an error page or nonsense has not taken the message; one
    // whose answer gets lost on the way has.
    if (fault && (fault->Kind == FaultKind::SoapFault || fault->Kind == FaultKind::Http500 ||
                  fault->Kind == FaultKind::Garbage))
        return {};
    const qsizetype before = book_.Messages().size();
    QString reply =
        call.Operation == u"SendSMS" ? book_.SendSMS(call.Arguments) : book_.DeleteSMS(call.Arguments);
    const QList<GatewayMessage> messages = book_.Messages();
    if (messages.size() > before && settings_.OnMessage)
        settings_.OnMessage(messages.last());
    if (fault && fault->Kind == FaultKind::Short)
        return WithoutLastItem(reply);
    if (fault && fault->Kind == FaultKind::BadTruth)
        return reply.replace(QStringLiteral("return_value:true"), QStringLiteral("return_value:maybe"));
    return reply;
}

HttpAnswer SimulatedGateway::AnswerPage(const QByteArray& path) const
{
    if (path == "/")
        return WholeAnswer(HttpOk, Html, PhonesPage(book_.Messages(), book_.Now()));
    if (path == "/messages.json")
        return WholeAnswer(HttpOk, "application/json; charset=utf-8",
                           MessagesJson(book_.Messages(), book_.Now()));
    if (path == "/join")
        return WholeAnswer(
            HttpOk, Html,
            PlainPage(QStringLiteral("회원 가입"),
                      QStringLiteral("문자메시지 서비스에 가입하는 페이지입니다. 시험용 서버에서는 "
                                     "가입 없이 demo 계정을 씁니다.")));
    if (path == "/charge")
        return WholeAnswer(
            HttpOk, Html,
            PlainPage(QStringLiteral("문자메시지 충전"),
                      QStringLiteral("문자메시지 건수를 충전하는 페이지입니다. 시험용 서버에서는 "
                                     "결제되지 않습니다.")));
    return WholeAnswer(
        HttpNotFound, Html,
        PlainPage(QStringLiteral("없는 페이지"), QStringLiteral("찾으시는 페이지가 없습니다.")));
}

} // namespace tsms
