#include "tsms-gateway/ServiceWords.h"

#include <pugixml.hpp>

#include <string>
#include <string_view>

namespace tsms {

namespace {

constexpr const char* ServiceSpace = "urn:xSMSWebService";
constexpr const char* EnvelopeSpace = "http://schemas.xmlsoap.org/soap/envelope/";

QString Escaped(const QString& text)
{
    return text.toHtmlEscaped();
}

/// A template with {names} filled in.
QByteArray Filled(QString words, const QList<std::pair<const char*, QString>>& values)
{
    for (const auto& [name, value] : values)
        words.replace(u'{' + QString::fromLatin1(name) + u'}', value);
    return words.toUtf8();
}

QStringList Operations(bool real)
{
    return real ? QStringList{QStringLiteral("SendSMS"), QStringLiteral("DeleteSMS")}
                : QStringList{QStringLiteral("GetNotice")};
}

QString RpcMessages(const QStringList& operations)
{
    QString text;
    for (const QString& operation : operations) {
        text += QStringLiteral("  <wsdl:message name=\"%1Request\">\n").arg(operation);
        for (const QString& part : PartNames(operation))
            text += QStringLiteral("    <wsdl:part name=\"%1\" type=\"xsd:string\"/>\n").arg(part);
        text += QStringLiteral("  </wsdl:message>\n  <wsdl:message name=\"%1Response\">\n"
                               "    <wsdl:part name=\"%1Return\" type=\"xsd:string\"/>\n  </wsdl:message>\n")
                    .arg(operation);
    }
    return text;
}

QString DocumentMessages(const QStringList& operations)
{
    QString schema;
    QString messages;
    for (const QString& operation : operations) {
        QString parts;
        for (const QString& part : PartNames(operation))
            parts += QStringLiteral("<xsd:element name=\"%1\" type=\"xsd:string\"/>").arg(part);
        schema += QStringLiteral("      <xsd:element name=\"%1\"><xsd:complexType><xsd:sequence>%2"
                                 "</xsd:sequence></xsd:complexType></xsd:element>\n"
                                 "      <xsd:element name=\"%1Response\"><xsd:complexType><xsd:sequence>"
                                 "<xsd:element name=\"%1Return\" type=\"xsd:string\"/>"
                                 "</xsd:sequence></xsd:complexType></xsd:element>\n")
                      .arg(operation, parts);
        messages += QStringLiteral("  <wsdl:message name=\"%1Request\"><wsdl:part name=\"parameters\" "
                                   "element=\"tns:%1\"/></wsdl:message>\n"
                                   "  <wsdl:message name=\"%1Response\"><wsdl:part name=\"parameters\" "
                                   "element=\"tns:%1Response\"/></wsdl:message>\n")
                        .arg(operation);
    }
    return QStringLiteral("  <wsdl:types>\n    <xsd:schema targetNamespace=\"") +
           QLatin1String(ServiceSpace) + QStringLiteral("\" elementFormDefault=\"qualified\">\n") + schema +
           QStringLiteral("    </xsd:schema>\n  </wsdl:types>\n") + messages;
}

QString PortType(const QStringList& operations)
{
    QString text = QStringLiteral("  <wsdl:portType name=\"xSMSWebServicePort\">\n");
    for (const QString& operation : operations)
        text += QStringLiteral("    <wsdl:operation name=\"%1\"><wsdl:input message=\"tns:%1Request\"/>"
                               "<wsdl:output message=\"tns:%1Response\"/></wsdl:operation>\n")
                    .arg(operation);
    return text + QStringLiteral("  </wsdl:portType>\n");
}

QString BodyWords(ServiceStyle style)
{
    switch (style) {
    case ServiceStyle::RpcEncoded:
        return QStringLiteral("<soap:body use=\"encoded\" namespace=\"urn:xSMSWebService\" "
                              "encodingStyle=\"http://schemas.xmlsoap.org/soap/encoding/\"/>");
    case ServiceStyle::RpcLiteral:
        return QStringLiteral("<soap:body use=\"literal\" namespace=\"urn:xSMSWebService\"/>");
    case ServiceStyle::DocumentLiteral:
        break;
    }
    return QStringLiteral("<soap:body use=\"literal\"/>");
}

QString Binding(const QStringList& operations, ServiceStyle style)
{
    QString text =
        QStringLiteral(
            "  <wsdl:binding name=\"xSMSWebServiceBinding\" type=\"tns:xSMSWebServicePort\">\n"
            "    <soap:binding style=\"%1\" transport=\"http://schemas.xmlsoap.org/soap/http\"/>\n")
            .arg(style == ServiceStyle::DocumentLiteral ? u"document" : u"rpc");
    for (const QString& operation : operations)
        text += QStringLiteral("    <wsdl:operation name=\"%1\"><soap:operation soapAction=\"urn:%1\"/>"
                               "<wsdl:input>%2</wsdl:input><wsdl:output>%2</wsdl:output></wsdl:operation>\n")
                    .arg(operation, BodyWords(style));
    return text + QStringLiteral("  </wsdl:binding>\n");
}

/// Whether an element bears this name, whatever its prefix.
bool IsNamed(const pugi::xml_node& node, std::string_view space, std::string_view local)
{
    const std::string name = node.name();
    const std::size_t colon = name.find(':');
    const std::string declared = colon == std::string::npos ? "xmlns" : "xmlns:" + name.substr(0, colon);
    if ((colon == std::string::npos ? name : name.substr(colon + 1)) != local)
        return false;
    for (pugi::xml_node at = node; at; at = at.parent())
        if (const pugi::xml_attribute attribute = at.attribute(declared.c_str()))
            return space == attribute.value();
    return space.empty();
}

std::optional<ServiceCall> Refuse(QString& why, const QString& words)
{
    why = words;
    return std::nullopt;
}

} // namespace

QString DescriptionPath()
{
    return QStringLiteral("/SMSWS/webservice/xSMSWebService.wsdl");
}

QString EndpointPath()
{
    return QStringLiteral("/SMSWS/webservice/xSMSWebService");
}

QStringList PartNames(const QString& operation)
{
    if (operation == u"SendSMS")
        return {QStringLiteral("id"),       QStringLiteral("pwd"),         QStringLiteral("domain"),
                QStringLiteral("send_num"), QStringLiteral("receive_num"), QStringLiteral("content"),
                QStringLiteral("reserved"), QStringLiteral("send_time"),   QStringLiteral("extra1"),
                QStringLiteral("extra2"),   QStringLiteral("extra3")};
    if (operation == u"DeleteSMS")
        return {QStringLiteral("id"),     QStringLiteral("pwd"),    QStringLiteral("domain"),
                QStringLiteral("unique"), QStringLiteral("extra1"), QStringLiteral("extra2"),
                QStringLiteral("extra3")};
    return {};
}

QByteArray DescriptionOf(ServiceStyle style, const QString& endpoint, bool operations)
{
    const QStringList names = Operations(operations);
    return Filled(
        QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<wsdl:definitions name=\"xSMSWebService\" targetNamespace=\"{space}\"\n"
                       "    xmlns:tns=\"{space}\" xmlns:wsdl=\"http://schemas.xmlsoap.org/wsdl/\"\n"
                       "    xmlns:soap=\"http://schemas.xmlsoap.org/wsdl/soap/\"\n"
                       "    xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\">\n"
                       "{messages}{portType}{binding}"
                       "  <wsdl:service name=\"xSMSWebService\">\n"
                       "    <wsdl:port name=\"xSMSWebService\" binding=\"tns:xSMSWebServiceBinding\">\n"
                       "      <soap:address location=\"{endpoint}\"/>\n"
                       "    </wsdl:port>\n"
                       "  </wsdl:service>\n"
                       "</wsdl:definitions>\n"),
        {{"messages", style == ServiceStyle::DocumentLiteral ? DocumentMessages(names) : RpcMessages(names)},
         {"portType", PortType(names)},
         {"binding", Binding(names, style)},
         {"space", QLatin1String(ServiceSpace).toString()},
         {"endpoint", Escaped(endpoint)}});
}

std::optional<ServiceCall> ReadServiceCall(const QByteArray& envelope, ServiceStyle style, QString& why)
{
    pugi::xml_document document;
    if (!document.load_buffer(envelope.constData(), static_cast<std::size_t>(envelope.size()),
                              pugi::parse_default | pugi::parse_ws_pcdata, pugi::encoding_utf8))
        return Refuse(why, QStringLiteral("no XML"));
    const pugi::xml_node root = document.document_element();
    const pugi::xml_node body = root.first_child();
    if (!IsNamed(root, EnvelopeSpace, "Envelope") || !IsNamed(body, EnvelopeSpace, "Body"))
        return Refuse(why, QStringLiteral("no SOAP 1.1 envelope"));

    const pugi::xml_node wrapper = body.first_child();
    ServiceCall call;
    for (const QString& operation : Operations(true))
        if (IsNamed(wrapper, ServiceSpace, operation.toStdString()))
            call.Operation = operation;
    if (call.Operation.isEmpty())
        return Refuse(why, QStringLiteral("no such operation"));

    const std::string_view partSpace = style == ServiceStyle::DocumentLiteral ? ServiceSpace : "";
    pugi::xml_node part = wrapper.first_child();
    for (const QString& name : PartNames(call.Operation)) {
        if (!IsNamed(part, partSpace, name.toStdString()))
            return Refuse(why, QStringLiteral("argument %1 is missing").arg(name));
        if (style == ServiceStyle::RpcEncoded && part.attribute("xsi:type").empty())
            return Refuse(why, QStringLiteral("argument %1 has no type").arg(name));
        call.Arguments.append(QString::fromUtf8(part.child_value()));
        part = part.next_sibling();
    }
    if (part)
        return Refuse(why, QStringLiteral("too many arguments"));
    return call;
}

QByteArray ServiceAnswer(const QString& operation, ServiceStyle style, const QString& result)
{
    const bool isDocument = style == ServiceStyle::DocumentLiteral;
    const bool isEncoded = style == ServiceStyle::RpcEncoded;
    return Filled(
        QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<soapenv:Envelope xmlns:soapenv=\"http://schemas.xmlsoap.org/soap/envelope/\" "
                       "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\" "
                       "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"><soapenv:Body>"
                       "<s:{operation}Response xmlns:s=\"{space}\">"
                       "<{prefix}{operation}Return{type}>{result}</{prefix}{operation}Return>"
                       "</s:{operation}Response></soapenv:Body></soapenv:Envelope>\n"),
        {{"space", QLatin1String(ServiceSpace).toString()},
         {"prefix", isDocument ? QStringLiteral("s:") : QString()},
         {"type", isEncoded ? QStringLiteral(" xsi:type=\"xsd:string\"") : QString()},
         {"operation", operation},
         {"result", Escaped(result)}});
}

QByteArray ServiceFault(const QString& code, const QString& string, const QString& detail)
{
    return Filled(
        QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<soapenv:Envelope xmlns:soapenv=\"http://schemas.xmlsoap.org/soap/envelope/\">"
                       "<soapenv:Body><soapenv:Fault><faultcode>soapenv:{code}</faultcode>"
                       "<faultstring>{string}</faultstring><detail><reason>{detail}</reason></detail>"
                       "</soapenv:Fault></soapenv:Body></soapenv:Envelope>\n"),
        {{"code", Escaped(code)}, {"string", Escaped(string)}, {"detail", Escaped(detail)}});
}

} // namespace tsms
