#include "gateway/ServiceDescription.h"

#include "gateway/SoapFault.h"
#include "gateway/XmlReading.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <deque>
#include <optional>

namespace tsms {

namespace {

SoapFault UnreadableFault(const QString& detail)
{
    return LocalFault(QStringLiteral("문자메시지 서비스의 설명을 읽지 못하였습니다."), detail);
}

bool IsWebAddress(const QUrl& url)
{
    return (url.scheme() == u"http" || url.scheme() == u"https") && !url.host().isEmpty();
}

bool IsOnSameHost(const QUrl& a, const QUrl& b)
{
    const auto portOf = [](const QUrl& url) { return url.port(url.scheme() == u"https" ? 443 : 80); };
    return a.scheme() == b.scheme() && a.host() == b.host() && portOf(a) == portOf(b);
}

/// Whether a name may stand as an element of an envelope.
bool IsElementName(const QString& name)
{
    static const QRegularExpression shape(QStringLiteral("\\A[\\p{L}_][\\p{L}\\p{N}._-]*\\z"),
                                          QRegularExpression::UseUnicodePropertiesOption);
    return shape.match(name).hasMatch();
}

/// Whether a text may stand between quotes in one header line.
bool IsHeaderValue(const QString& text)
{
    return std::none_of(text.begin(), text.end(),
                        [](QChar c) { return c < u' ' || c == u'"' || c == u'\x7f'; });
}

/// All documents of a description, with their named parts indexed.
class Documents
{
public:
    struct Named
    {
        XmlElement node;
        QString space;                  ///< target namespace of the document it stands in
        bool qualifiesElements = false; ///< of a schema
    };

    Documents(const QUrl& url, const DocumentSource& fetch) : home_(url), fetch_(fetch)
    {
        Queue(url, {});
        while (!waiting_.isEmpty())
            Load(waiting_.takeFirst());
    }

    /// `kind` is the local name of the WSDL or schema element that defines it.
    const Named* Find(const char* kind, const QualifiedName& name) const
    {
        const auto found = index_.constFind({QLatin1String(kind), name});
        return found == index_.cend() ? nullptr : &*found;
    }

    /// All services in the order of the documents.
    const QList<XmlElement>& Services() const { return services_; }

private:
    struct Wanted
    {
        QUrl url;
        QString includerSpace; ///< for a schema that has no namespace of its own
    };

    struct Key
    {
        QString kind;
        QualifiedName name;

        friend bool operator==(const Key&, const Key&) = default;
        /// Of the namespace only the end: many may share one that is as long as the document.
        friend std::size_t qHash(const Key& key, std::size_t seed)
        {
            constexpr qsizetype hashedCharacters = 64;
            const QStringView space = key.name.space;
            return qHashMulti(seed, key.kind, key.name.local, space.right(hashedCharacters));
        }
    };

    void Queue(const QUrl& url, const QString& includerSpace)
    {
        if (!IsOnSameHost(url, home_) || seen_.contains(url))
            return;
        if (seen_.size() == MaxDocuments)
            throw UnreadableFault(QStringLiteral("설명에 딸린 문서가 너무 많습니다."));
        seen_.insert(url);
        waiting_.append({url, includerSpace});
    }

    void Load(const Wanted& wanted)
    {
        const FetchedDocument fetched = fetch_(wanted.url);
        XmlDocument& document = documents_.emplace_back();
        if (!document.Parse(fetched.bytes, fetched.contentType))
            throw UnreadableFault(QStringLiteral("XML 형식이 아닙니다."));
        const XmlElement root = document.Root();
        if (root.Is(ns::Wsdl, "definitions"))
            TakeDefinitions(root, wanted.url);
        else if (root.Is(ns::Schema, "schema"))
            TakeSchema(root, wanted);
        else
            throw UnreadableFault(QStringLiteral("서비스 설명(WSDL)이 아닙니다."));
    }

    void TakeDefinitions(const XmlElement& definitions, const QUrl& url)
    {
        const QString space = definitions.Attribute("targetNamespace");
        for (XmlElement node = definitions.First(); node; node = node.Next()) {
            const QualifiedName name = node.Name();
            if (name.space != QLatin1String(ns::Wsdl))
                continue;
            if (name.local == u"import")
                Follow(node, "location", url, {});
            else if (name.local == u"types")
                TakeTypes(node, url);
            else if (name.local == u"service")
                services_.append(node);
            else
                Enter(name.local, {node, space});
        }
    }

    void TakeTypes(const XmlElement& types, const QUrl& url)
    {
        for (XmlElement node = types.First(); node; node = node.Next())
            if (node.Is(ns::Schema, "schema"))
                TakeSchema(node, {url, {}});
    }

    void TakeSchema(const XmlElement& schema, const Wanted& wanted)
    {
        QString space = schema.Attribute("targetNamespace");
        if (space.isEmpty())
            space = wanted.includerSpace;
        const bool qualified = schema.Attribute("elementFormDefault") == u"qualified";
        for (XmlElement node = schema.First(); node; node = node.Next()) {
            const QualifiedName name = node.Name();
            if (name.space != QLatin1String(ns::Schema))
                continue;
            if (name.local == u"import")
                Follow(node, "schemaLocation", wanted.url, {});
            else if (name.local == u"include")
                Follow(node, "schemaLocation", wanted.url, space);
            else
                Enter(name.local, {node, space, qualified});
        }
    }

    void Follow(const XmlElement& import, const char* attribute, const QUrl& from, const QString& space)
    {
        const QString location = import.Attribute(attribute);
        if (!location.isEmpty())
            Queue(from.resolved(QUrl(location)).adjusted(QUrl::RemoveFragment), space);
    }

    /// Each operation that names it looks through it.
    void Enter(const QString& kind, const Named& named)
    {
        if (named.node.CountBelow(MaxElements + 1) > MaxElements)
            return;
        const Key key{kind, {named.space, named.node.Attribute("name")}};
        if (!index_.contains(key))
            index_.insert(key, named);
    }

    QUrl home_;
    const DocumentSource& fetch_;
    std::deque<XmlDocument> documents_;
    QList<Wanted> waiting_;
    QSet<QUrl> seen_;
    QHash<Key, Named> index_;
    QList<XmlElement> services_;
};

/// The operation elements of a port type or binding by their names; of several of one name the first.
QHash<QString, XmlElement> OperationsIn(const XmlElement& parent)
{
    QHash<QString, XmlElement> operations;
    for (XmlElement node = parent.First(); node; node = node.Next())
        if (node.Is(ns::Wsdl, "operation") && !operations.contains(node.Attribute("name")))
            operations.insert(node.Attribute("name"), node);
    return operations;
}

/// The message that an operation's input or output names.
const Documents::Named* MessageOf(const Documents& documents, const XmlElement& operation,
                                  const char* direction)
{
    const XmlElement node = operation.Child(ns::Wsdl, direction);
    return documents.Find("message", node.NameIn("message"));
}

QList<XmlElement> PartsOf(const XmlElement& message)
{
    QList<XmlElement> parts;
    for (XmlElement node = message.First(); node && parts.size() <= MaxParts; node = node.Next())
        if (node.Is(ns::Wsdl, "part"))
            parts.append(node);
    return parts;
}

/// Many operations that share one endless message would otherwise fill the memory.
std::optional<QList<CallPart>> WithinBounds(const QList<CallPart>& parts)
{
    return parts.size() <= MaxParts ? std::optional(parts) : std::nullopt;
}

std::optional<QList<CallPart>> RpcParts(const XmlElement& message)
{
    QList<CallPart> parts;
    for (const XmlElement& node : PartsOf(message)) {
        if (!node.Has("type") || !IsElementName(node.Attribute("name")))
            return std::nullopt;
        const QualifiedName type = node.NameIn("type");
        parts.append({node.Attribute("name"), {}, type.space, type.local});
    }
    return WithinBounds(parts);
}

/// The one element of a wrapped sequence as an argument.
std::optional<CallPart> WrappedPart(const XmlElement& element, const Documents::Named& type)
{
    if (!element.Is(ns::Schema, "element"))
        return std::nullopt;
    CallPart part;
    if (element.Has("ref")) {
        const QualifiedName name = element.NameIn("ref");
        part.name = name.local;
        part.space = name.space;
    } else {
        const QString form = element.Attribute("form");
        part.name = element.Attribute("name");
        if (form.isEmpty() ? type.qualifiesElements : form == u"qualified")
            part.space = type.space;
    }
    if (!IsElementName(part.name))
        return std::nullopt;
    return part;
}

/// The elements that a wrapper element holds in a row.
std::optional<QList<CallPart>> WrappedParts(const Documents& documents, const Documents::Named& wrapper)
{
    Documents::Named type = wrapper;
    type.node = wrapper.node.Child(ns::Schema, "complexType");
    if (!type.node) {
        const Documents::Named* named = documents.Find("complexType", wrapper.node.NameIn("type"));
        if (named == nullptr)
            return std::nullopt;
        type = *named;
    }
    QList<CallPart> parts;
    for (XmlElement group = type.node.First(); group; group = group.Next()) {
        if (group.Is(ns::Schema, "annotation"))
            continue;
        if (!group.Is(ns::Schema, "sequence") && !group.Is(ns::Schema, "all"))
            return std::nullopt;
        for (XmlElement element = group.First(); element; element = element.Next()) {
            const std::optional<CallPart> part = WrappedPart(element, type);
            if (!part || parts.size() > MaxParts)
                return std::nullopt;
            parts.append(*part);
        }
    }
    return WithinBounds(parts);
}

/// Fills in what wraps the arguments of a document style call and the arguments. False for any form but one
/// part that names an element.
bool ShapeWrapped(const Documents& documents, const XmlElement& message, CallShape& shape)
{
    const QList<XmlElement> parts = PartsOf(message);
    if (parts.size() != 1 || !parts.first().Has("element"))
        return false;
    const QualifiedName name = parts.first().NameIn("element");
    const Documents::Named* wrapper = documents.Find("element", name);
    if (wrapper == nullptr)
        return false;
    const std::optional<QList<CallPart>> arguments = WrappedParts(documents, *wrapper);
    shape.style = CallStyle::DocumentWrapped;
    shape.element = name.local;
    shape.space = name.space;
    shape.parts = arguments.value_or(QList<CallPart>());
    return arguments.has_value();
}

bool ShapeRpc(const Documents& documents, const XmlElement& operation, const XmlElement& message,
              const XmlElement& body, CallShape& shape)
{
    const std::optional<QList<CallPart>> arguments = RpcParts(message);
    shape.style = body.Attribute("use") == u"encoded" ? CallStyle::RpcEncoded : CallStyle::RpcLiteral;
    shape.element = operation.Attribute("name");
    shape.space = body.Attribute("namespace");
    shape.encodingStyle = body.Attribute("encodingStyle");
    shape.parts = arguments.value_or(QList<CallPart>());
    if (const Documents::Named* answer = MessageOf(documents, operation, "output"))
        shape.resultName = answer->node.Child(ns::Wsdl, "part").Attribute("name");
    return arguments.has_value();
}

/// The shape of one operation; none when the client does not speak its form.
std::optional<CallShape> ShapeOf(const Documents& documents, const XmlElement& operation,
                                 const XmlElement& bound, const QString& bindingStyle)
{
    const XmlElement soap = bound.Child(ns::WsdlSoap, "operation");
    const XmlElement body = bound.Child(ns::Wsdl, "input").Child(ns::WsdlSoap, "body");
    const Documents::Named* message = MessageOf(documents, operation, "input");
    if (!body || message == nullptr)
        return std::nullopt;

    CallShape shape;
    shape.action = soap.Attribute("soapAction");
    const QString ownStyle = soap.Attribute("style");
    const QString style = ownStyle.isEmpty() ? bindingStyle : ownStyle;
    const bool isShaped = style == u"rpc" ? ShapeRpc(documents, operation, message->node, body, shape)
                                          : body.Attribute("use") != u"encoded" &&
                                                ShapeWrapped(documents, message->node, shape);
    if (!isShaped || !IsElementName(shape.element) || !IsHeaderValue(shape.action))
        return std::nullopt;
    return shape;
}

/// The binding of a port, when that port speaks SOAP 1.1 over HTTP.
const Documents::Named* SoapBindingOf(const Documents& documents, const XmlElement& port)
{
    const Documents::Named* binding = documents.Find("binding", port.NameIn("binding"));
    if (!port.Child(ns::WsdlSoap, "address") || binding == nullptr)
        return nullptr;
    const XmlElement soap = binding->node.Child(ns::WsdlSoap, "binding");
    return soap && soap.Attribute("transport") == QLatin1String(ns::SoapHttp) ? binding : nullptr;
}

struct BoundPort
{
    XmlElement port;
    XmlElement binding;
};

BoundPort ChoosePort(const Documents& documents, const QString& serviceName, const QString& portName)
{
    const auto isWanted = [](const XmlElement& node, const char* kind, const QString& name) {
        return node.Is(ns::Wsdl, kind) && (name.isEmpty() || node.Attribute("name") == name);
    };
    for (const XmlElement& service : documents.Services())
        if (isWanted(service, "service", serviceName))
            for (XmlElement port = service.First(); port; port = port.Next())
                if (isWanted(port, "port", portName))
                    if (const Documents::Named* binding = SoapBindingOf(documents, port))
                        return {port, binding->node};
    throw UnreadableFault(QStringLiteral("SOAP으로 부를 수 있는 서비스가 없습니다."));
}

} // namespace

ServiceDescription ReadServiceDescription(const QUrl& url, const QString& service, const QString& port,
                                          const DocumentSource& fetch)
{
    if (!IsWebAddress(url))
        throw UnreadableFault(QStringLiteral("주소가 올바르지 않습니다."));
    const Documents documents(url, fetch);
    const BoundPort bound = ChoosePort(documents, service, port);
    const Documents::Named* portType = documents.Find("portType", bound.binding.NameIn("type"));
    if (portType == nullptr)
        throw UnreadableFault(QStringLiteral("설명에 빠진 부분이 있습니다."));

    ServiceDescription description;
    description.endpoint =
        url.resolved(QUrl(bound.port.Child(ns::WsdlSoap, "address").Attribute("location")));
    if (!IsWebAddress(description.endpoint))
        throw UnreadableFault(QStringLiteral("서비스의 주소가 올바르지 않습니다."));
    if (url.scheme() == u"https" && description.endpoint.scheme() != u"https")
        throw UnreadableFault(QStringLiteral("서비스의 주소가 https가 아닙니다."));

    const QString style = bound.binding.Child(ns::WsdlSoap, "binding").Attribute("style");
    const QHash<QString, XmlElement> operations = OperationsIn(portType->node);
    if (operations.size() > MaxOperations)
        throw UnreadableFault(QStringLiteral("서비스의 기능이 너무 많습니다."));
    const QHash<QString, XmlElement> bindings = OperationsIn(bound.binding);
    for (auto operation = operations.cbegin(); operation != operations.cend(); ++operation)
        if (const auto shape = ShapeOf(documents, operation.value(), bindings.value(operation.key()), style))
            description.operations.insert(operation.key(), *shape);
    return description;
}

} // namespace tsms
