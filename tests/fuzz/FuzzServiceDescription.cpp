// Takes any bytes for a service description: a line with the content type, then the documents in the order in
// which they are asked for, form feeds between them. Each operation found is called.
#include "fuzz/Target.h"
#include "gateway/ServiceDescription.h"
#include "gateway/SoapFault.h"
#include "gateway/SoapMessage.h"
#include "gateway/XmlReading.h"

using namespace tsms;
using namespace tsms::test;

namespace {

/// As an attribute's value comes back from a document: control characters are blanks there.
QString InDocument(QString text)
{
    for (QChar& c : text)
        if ((c < u' ' && c != u'\r') || c >= u'\xFFFE')
            c = u' ';
    return text;
}

QualifiedName InDocument(const QString& space, const QString& local)
{
    return {InDocument(space), local};
}

void RequireReadable(const CallShape& shape)
{
    QStringList arguments;
    for (qsizetype part = 0; part < shape.parts.size(); ++part)
        arguments += QStringLiteral("<가&\"']]>\r\n %1").arg(part);
    XmlDocument document;
    Require(document.Parse(CallEnvelope(shape).With(arguments), "text/xml"));
    const XmlElement call = document.Root().Child(ns::SoapEnvelope, "Body").First();
    Require(call.Name() == InDocument(shape.space, shape.element));
    XmlElement argument = call.First();
    for (qsizetype part = 0; part < shape.parts.size(); ++part, argument = argument.Next()) {
        Require(argument.Name() == InDocument(shape.parts[part].space, shape.parts[part].name));
        Require(argument.Text() == arguments[part]);
    }
    Require(!argument && !call.Next());
}

void ReadDescription(const QByteArray& bytes)
{
    const qsizetype line = qMax<qsizetype>(bytes.indexOf('\n'), 0);
    const QByteArray contentType = bytes.first(line);
    QByteArrayList documents = bytes.sliced(line).split('\f');
    const auto fetch = [&](const QUrl&) {
        if (documents.isEmpty())
            throw LocalFault(QStringLiteral("not here"));
        return FetchedDocument{documents.takeFirst(), contentType};
    };
    try {
        const ServiceDescription service =
            ReadServiceDescription(QUrl(QStringLiteral("http://gateway.test/a/service.wsdl")), {}, {}, fetch);
        Require(!service.endpoint.host().isEmpty());
        for (const CallShape& shape : service.operations) {
            Require(shape.parts.size() <= MaxParts);
            RequireReadable(shape);
        }
    } catch (const SoapFault& fault) {
        Require(!fault.IsOfGateway() && !fault.Description.isEmpty());
    }
}

const Target serviceDescription("service-description", ReadDescription);

} // namespace
