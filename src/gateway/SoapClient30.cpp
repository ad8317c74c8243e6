#include "gateway/SoapClient30.h"

#include "gateway/HttpLink.h"
#include "gateway/ServiceDescription.h"
#include "gateway/SoapFault.h"
#include "gateway/SoapMessage.h"

#include <map>
#include <utility>

namespace tsms {

namespace {

constexpr long HttpOk = 200;
constexpr long HttpServerError = 500; // the status of an answer that is a SOAP fault

SoapFault StatusFault(long status)
{
    return LocalFault(QStringLiteral("문자메시지 서버가 요청을 처리하지 못하였습니다."),
                      QStringLiteral("HTTP %1").arg(status));
}

FetchedDocument Fetch(HttpLink& link, const QUrl& url)
{
    const HttpReply reply = link.Get(url.toString(QUrl::FullyEncoded));
    if (reply.status != HttpOk)
        throw StatusFault(reply.status);
    return {reply.body, reply.contentType};
}

/// What is the same in all calls of one operation.
struct Operation
{
    explicit Operation(const CallShape& described)
        : shape(described),
          envelope(described),
          headers{QByteArrayLiteral("Content-Type: text/xml; charset=utf-8"),
                  "SOAPAction: \"" + described.action.toUtf8() + '"'}
    {
    }

    CallShape shape;
    CallEnvelope envelope;
    QList<QByteArray> headers;
};

/// The result of an answer that came with an error status can only be the fault that it carries.
void RaiseFaultOf(const CallShape& shape, const HttpReply& reply)
{
    try {
        ReadAnswer(shape, reply.body, reply.contentType);
    } catch (const SoapFault& fault) {
        if (fault.IsOfGateway())
            throw;
    }
}

QString Exchange(HttpLink& link, const QString& endpoint, const Operation& operation,
                 const QStringList& arguments, const std::function<void()>& meanwhile)
{
    const HttpReply reply =
        link.Post(endpoint, operation.headers, operation.envelope.With(arguments), meanwhile);
    if (reply.status == HttpServerError)
        RaiseFaultOf(operation.shape, reply);
    if (reply.status != HttpOk)
        throw StatusFault(reply.status);
    return ReadAnswer(operation.shape, reply.body, reply.contentType);
}

} // namespace

struct SoapClient30::Service
{
    explicit Service(const QString& authorities) : link(authorities) {}

    HttpLink link;
    ServiceDescription description;
    QString endpoint;
    std::map<QString, Operation> operations; ///< called so far

    const Operation& OperationOf(const QString& name, const CallShape& shape)
    {
        return operations.try_emplace(name, shape).first->second;
    }
};

SoapClient30::SoapClient30(QString authorities) : authorities_(std::move(authorities)) {}
SoapClient30::~SoapClient30() = default;

template <class Work> auto SoapClient30::KeepingFaults(Work&& work) -> decltype(work())
{
    faultCode_.clear();
    faultString_.clear();
    detail_.clear();
    try {
        return work();
    } catch (const SoapFault& fault) {
        faultCode_ = fault.Code;
        faultString_ = fault.Description;
        detail_ = fault.Detail;
        throw;
    }
}

void SoapClient30::mssoapinit(const QString& wsdlUrl, const QString& service, const QString& port,
                              const QString& wsml)
{
    service_.reset();
    KeepingFaults([&] {
        if (!wsml.isEmpty())
            throw LocalFault(QStringLiteral("WSML은 쓰이지 않습니다."));
        auto reading = std::make_unique<Service>(authorities_);
        reading->description = ReadServiceDescription(
            QUrl(wsdlUrl), service, port, [&](const QUrl& url) { return Fetch(reading->link, url); });
        reading->endpoint = reading->description.endpoint.toString(QUrl::FullyEncoded);
        service_ = std::move(reading);
    });
}

QString SoapClient30::Call(const QString& operation, const QStringList& arguments,
                           const std::function<void()>& meanwhile)
{
    return KeepingFaults([&] {
        if (!service_)
            throw LocalFault(QStringLiteral("문자메시지 서비스의 설명을 아직 읽지 못하였습니다."));
        const auto shape = service_->description.operations.constFind(operation);
        if (shape == service_->description.operations.cend())
            throw LocalFault(QStringLiteral("문자메시지 서비스에 없는 기능입니다."), operation,
                             UnknownOperation);
        if (shape->parts.size() != arguments.size())
            throw LocalFault(QStringLiteral("문자메시지 서비스의 인수 개수가 맞지 않습니다."), operation,
                             WrongArgumentCount);
        return Exchange(service_->link, service_->endpoint, service_->OperationOf(operation, *shape),
                        arguments, meanwhile);
    });
}

} // namespace tsms
