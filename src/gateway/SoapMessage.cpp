#include "gateway/SoapMessage.h"

#include "gateway/PlainAnswer.h"
#include "gateway/SoapFault.h"
#include "gateway/XmlReading.h"

#include <optional>

namespace tsms {

namespace {

SoapFault AnswerFault(const QString& detail)
{
    return LocalFault(QStringLiteral("문자메시지 서버의 응답을 읽지 못하였습니다."), detail);
}

/// ` name="value"`
QByteArray WrittenAttribute(const char* name, const QString& value)
{
    return ' ' + QByteArray(name) + "=\"" + EscapeXml(value) + '"';
}

/// The start tag's inside for an element of a namespace: without a prefix where there is none.
struct WrittenName
{
    QByteArray tag;
    QByteArray declaration;
};

WrittenName Write(const QByteArray& prefix, const QString& space, const QString& local)
{
    if (space.isEmpty())
        return {local.toUtf8(), {}};
    return {prefix + ':' + local.toUtf8(), WrittenAttribute(("xmlns:" + prefix).constData(), space)};
}

QByteArray TypeAttribute(const CallPart& part)
{
    if (part.typeSpace == QLatin1String(ns::Schema))
        return WrittenAttribute("xsi:type", QStringLiteral("xsd:") + part.type);
    return WrittenAttribute("xmlns:t", part.typeSpace) +
           WrittenAttribute("xsi:type", QStringLiteral("t:") + part.type);
}

/// The tags around the value of a part.
struct WrittenPart
{
    QByteArray open;
    QByteArray close;
};

WrittenPart Write(CallStyle style, const CallPart& part)
{
    const WrittenName name = Write("p", part.space, part.name);
    const QByteArray type = style == CallStyle::RpcEncoded ? TypeAttribute(part) : QByteArray();
    return {'<' + name.tag + name.declaration + type + '>', "</" + name.tag + '>'};
}

QByteArray WrittenHead(const CallShape& shape, const WrittenName& name)
{
    QByteArray head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<soap:Envelope";
    head += WrittenAttribute("xmlns:soap", QLatin1String(ns::SoapEnvelope).toString());
    if (shape.style == CallStyle::RpcEncoded) {
        head += WrittenAttribute("xmlns:xsd", QLatin1String(ns::Schema).toString());
        head += WrittenAttribute("xmlns:xsi", QLatin1String(ns::SchemaInstance).toString());
    }
    head += "><soap:Body><" + name.tag + name.declaration;
    if (shape.style == CallStyle::RpcEncoded)
        head += WrittenAttribute("soap:encodingStyle", shape.encodingStyle.isEmpty()
                                                           ? QLatin1String(ns::SoapEncoding).toString()
                                                           : shape.encodingStyle);
    return head + '>';
}

QString WithoutPrefix(const QString& name)
{
    return name.sliced(name.indexOf(u':') + 1);
}

SoapFault FaultIn(const XmlElement& fault)
{
    QString code = QStringLiteral("Server"); // of a fault that does not say
    QString string;
    QString detail;
    for (XmlElement node = fault.First(); node; node = node.Next()) {
        const QString local = node.Name().local;
        if (local == u"faultcode" && !node.WholeText().isEmpty())
            code = WithoutPrefix(node.WholeText());
        else if (local == u"faultstring")
            string = node.WholeText();
        else if (local == u"detail")
            detail = node.WholeText();
    }
    return SoapFault(code, string, detail);
}

/// The first element of the body: the answer. A fault there is raised.
XmlElement AnswerElement(const XmlDocument& document)
{
    const XmlElement envelope = document.Root();
    if (!envelope.Is(ns::SoapEnvelope, "Envelope"))
        throw AnswerFault(QStringLiteral("SOAP 1.1 응답이 아닙니다."));
    const XmlElement answer = envelope.Child(ns::SoapEnvelope, "Body").First();
    if (!answer)
        throw AnswerFault(QStringLiteral("내용이 없는 응답입니다."));
    if (answer.Is(ns::SoapEnvelope, "Fault"))
        throw FaultIn(answer);
    return answer;
}

/// The element that holds the result: the one that bears the result's name, else the first.
XmlElement ResultElement(const XmlElement& answer, const QString& name)
{
    const XmlElement first = answer.First();
    for (XmlElement node = first; node && !name.isEmpty(); node = node.Next())
        if (node.Name().local == name)
            return node;
    return first;
}

/// An encoded value may stand apart, beside the answer, under an id.
XmlElement Dereferenced(const XmlElement& result)
{
    const QString reference = result.Attribute("href");
    if (!reference.startsWith(u'#'))
        return result;
    const XmlElement body = result.Parent().Parent();
    for (XmlElement node = body.First(); node; node = node.Next())
        if (node.Attribute("id") == QStringView(reference).sliced(1))
            return node;
    throw AnswerFault(QStringLiteral("응답에 빠진 부분이 있습니다."));
}

} // namespace

CallEnvelope::CallEnvelope(const CallShape& shape)
{
    const WrittenName name = Write("m", shape.space, shape.element);
    QByteArray written = WrittenHead(shape, name);
    for (const CallPart& part : shape.parts) {
        const WrittenPart tags = Write(shape.style, part);
        ahead_ += written + tags.open;
        written = tags.close;
    }
    behind_ = written + "</" + name.tag + "></soap:Body></soap:Envelope>\n";
}

QByteArray CallEnvelope::With(const QStringList& arguments) const
{
    QByteArray envelope;
    envelope.reserve(4096);
    for (qsizetype i = 0; i < ahead_.size(); ++i) {
        envelope += ahead_[i];
        AppendEscapedXml(envelope, arguments[i]);
    }
    envelope += behind_;
    return envelope;
}

QString ReadAnswer(const CallShape& shape, const QByteArray& envelope, const QByteArray& contentType)
{
    if (const std::optional<QString> result = ReadPlainAnswer(envelope))
        return *result;
    XmlDocument document;
    if (!document.Parse(envelope, contentType))
        throw AnswerFault(QStringLiteral("XML 형식이 아닙니다."));
    const XmlElement result = ResultElement(AnswerElement(document), shape.resultName);
    if (!result)
        throw AnswerFault(QStringLiteral("결과가 없는 응답입니다."));
    return Dereferenced(result).Text();
}

} // namespace tsms
