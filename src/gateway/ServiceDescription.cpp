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

bool LiesOnSameHost(const QUrl& a, const QUrl& b)
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
        pugi::xml_node node;
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
        const auto found = index_.constFind(KeyOf(kind, name));
        return found == index_.cend() ? nullptr : &*found;
    }

    /// All services in the order of the documents.
    const QList<pugi::xml_node>& Services() const { return services_; }

private:
    struct Wanted
    {
        QUrl url;
        QString includerSpace; ///< for a schema that has no namespace of its own
    };

    static QString KeyOf(const char* kind, const QualifiedName& name)
    {
        return QString::fromLatin1(kind) + u'{' + name.Namespace + u'}' + name.Local;
    }

    void Queue(const QUrl& url, const QString& includerSpace)
    {
        if (!LiesOnSameHost(url, home_) || seen_.contains(url))
            return;
        if (seen_.size() == MaxDocuments)
            throw UnreadableFault(QStringLiteral("설명에 딸린 문서가 너무 많습니다."));
        seen_.insert(url);
        waiting_.append({url, includerSpace});
    }

    void Load(const Wanted& wanted)
    {
        const FetchedDocument fetched = fetch_(wanted.url);
        pugi::xml_document& document = documents_.emplace_back();
        if (!ParseXml(fetched.Bytes, fetched.ContentType, document))
            throw UnreadableFault(QStringLiteral("XML 형식이 아닙니다."));
        const pugi::xml_node root = document.document_element();
        if (Is(root, ns::Wsdl, "definitions"))
            TakeDefinitions(root, wanted.url);
        else if (Is(root, ns::Schema, "schema"))
            TakeSchema(root, wanted);
        else
            throw UnreadableFault(QStringLiteral("서비스 설명(WSDL)이 아닙니다."));
    }

    void TakeDefinitions(const pugi::xml_node& definitions, const QUrl& url)
    {
        const QString space = Attribute(definitions, "targetNamespace");
        for (const pugi::xml_node& node : definitions.children()) {
            if (node.type() != pugi::node_element)
                continue;
            const QualifiedName name = NameOf(node);
            if (name.Namespace != QLatin1String(ns::Wsdl))
                continue;
            if (name.Local == u"import")
                Follow(node, "location", url, {});
            else if (name.Local == u"types")
                TakeTypes(node, url);
            else if (name.Local == u"service")
                services_.append(node);
            else
                Enter(name.Local, {node, space});
        }
    }

    void TakeTypes(const pugi::xml_node& types, const QUrl& url)
    {
        for (const pugi::xml_node& node : types.children())
            if (Is(node, ns::Schema, "schema"))
                TakeSchema(node, {url, {}});
    }

    void TakeSchema(const pugi::xml_node& schema, const Wanted& wanted)
    {
        QString space = Attribute(schema, "targetNamespace");
        if (space.isEmpty())
            space = wanted.includerSpace;
        const bool qualified = Attribute(schema, "elementFormDefault") == u"qualified";
        for (const pugi::xml_node& node : schema.children()) {
            if (node.type() != pugi::node_element)
                continue;
            const QualifiedName name = NameOf(node);
            if (name.Namespace != QLatin1String(ns::Schema))
                continue;
            if (name.Local == u"import")
                Follow(node, "schemaLocation", wanted.url, {});
            else if (name.Local == u"include")
                Follow(node, "schemaLocation", wanted.url, space);
            else
                Enter(name.Local, {node, space, qualified});
        }
    }

    void Follow(const pugi::xml_node& import, const char* attribute, const QUrl& from, const QString& space)
    {
        const QString location = Attribute(import, attribute);
        if (!location.isEmpty())
            Queue(from.resolved(QUrl(location)).adjusted(QUrl::RemoveFragment), space);
    }

    void Enter(const QString& kind, const Named& named)
    {
        const QString key = KeyOf(kind.toLatin1().constData(), {named.space, Attribute(named.node, "name")});
        if (!index_.contains(key))
            index_.insert(key, named);
    }

    QUrl home_;
    const DocumentSource& fetch_;
    std::deque<pugi::xml_document> documents_;
    QList<Wanted> waiting_;
    QSet<QUrl> seen_;
    QHash<QString, Named> index_;
    QList<pugi::xml_node> services_;
};

/// The operation elements of a port type or binding by their names; of several of one name the first.
QHash<QString, pugi::xml_node> OperationsIn(const pugi::xml_node& parent)
{
    QHash<QString, pugi::xml_node> operations;
    for (const pugi::xml_node& node : parent.children())
        if (Is(node, ns::Wsdl, "operation") && !operations.contains(Attribute(node, "name")))
            operations.insert(Attribute(node, "name"), node);
    return operations;
}

/// The message that an operation's input or output names.
const Documents::Named* MessageOf(const Documents& documents, const pugi::xml_node& operation,
                                  const char* direction)
{
    const pugi::xml_node node = Child(operation, ns::Wsdl, direction);
    return documents.Find("message", NameInText(node, node.attribute("message").value()));
}

QList<pugi::xml_node> PartsOf(const pugi::xml_node& message)
{
    QList<pugi::xml_node> parts;
    for (pugi::xml_node node = FirstElement(message); node && parts.size() <= MaxParts;
         node = NextElement(node))
        if (Is(node, ns::Wsdl, "part"))
            parts.append(node);
    return parts;
}

/// Many operations that share one endless message would otherwise fill the memory.
std::optional<QList<CallPart>> WithinBounds(const QList<CallPart>& parts)
{
    return parts.size() <= MaxParts ? std::optional(parts) : std::nullopt;
}

std::optional<QList<CallPart>> RpcParts(const pugi::xml_node& message)
{
    QList<CallPart> parts;
    for (const pugi::xml_node& node : PartsOf(message)) {
        if (!node.attribute("type") || !IsElementName(Attribute(node, "name")))
            return std::nullopt;
        const QualifiedName type = NameInText(node, node.attribute("type").value());
        parts.append({Attribute(node, "name"), {}, type.Namespace, type.Local});
    }
    return WithinBounds(parts);
}

/// The one element of a wrapped sequence as an argument.
std::optional<CallPart> WrappedPart(const pugi::xml_node& element, const Documents::Named& type)
{
    if (!Is(element, ns::Schema, "element"))
        return std::nullopt;
    CallPart part;
    if (const pugi::xml_attribute ref = element.attribute("ref")) {
        const QualifiedName name = NameInText(element, ref.value());
        part.Name = name.Local;
        part.Namespace = name.Namespace;
    } else {
        const QString form = Attribute(element, "form");
        part.Name = Attribute(element, "name");
        if (form.isEmpty() ? type.qualifiesElements : form == u"qualified")
            part.Namespace = type.space;
    }
    if (!IsElementName(part.Name))
        return std::nullopt;
    return part;
}

/// The elements that a wrapper element holds in a row.
std::optional<QList<CallPart>> WrappedParts(const Documents& documents, const Documents::Named& wrapper)
{
    Documents::Named type = wrapper;
    type.node = Child(wrapper.node, ns::Schema, "complexType");
    if (!type.node) {
        const Documents::Named* named =
            documents.Find("complexType", NameInText(wrapper.node, wrapper.node.attribute("type").value()));
        if (named == nullptr)
            return std::nullopt;
        type = *named;
    }
    QList<CallPart> parts;
    for (pugi::xml_node group = FirstElement(type.node); group; group = NextElement(group)) {
        if (Is(group, ns::Schema, "annotation"))
            continue;
        if (!Is(group, ns::Schema, "sequence") && !Is(group, ns::Schema, "all"))
            return std::nullopt;
        for (pugi::xml_node element = FirstElement(group); element; element = NextElement(element)) {
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
bool ShapeWrapped(const Documents& documents, const pugi::xml_node& message, CallShape& shape)
{
    const QList<pugi::xml_node> parts = PartsOf(message);
    if (parts.size() != 1 || !parts.first().attribute("element"))
        return false;
    const QualifiedName name = NameInText(parts.first(), parts.first().attribute("element").value());
    const Documents::Named* wrapper = documents.Find("element", name);
    if (wrapper == nullptr)
        return false;
    const std::optional<QList<CallPart>> arguments = WrappedParts(documents, *wrapper);
    shape.Style = CallStyle::DocumentWrapped;
    shape.Element = name.Local;
    shape.Namespace = name.Namespace;
    shape.Parts = arguments.value_or(QList<CallPart>());
    return arguments.has_value();
}

bool ShapeRpc(const Documents& documents, const pugi::xml_node& operation, const pugi::xml_node& message,
              const pugi::xml_node& body, CallShape& shape)
{
    const std::optional<QList<CallPart>> arguments = RpcParts(message);
    shape.Style = Attribute(body, "use") == u"encoded" ? CallStyle::RpcEncoded : CallStyle::RpcLiteral;
    shape.Element = Attribute(operation, "name");
    shape.Namespace = Attribute(body, "namespace");
    shape.EncodingStyle = Attribute(body, "encodingStyle");
    shape.Parts = arguments.value_or(QList<CallPart>());
    if (const Documents::Named* answer = MessageOf(documents, operation, "output"))
        shape.ResultName = Attribute(Child(answer->node, ns::Wsdl, "part"), "name");
    return arguments.has_value();
}

/// The shape of one operation; none when the client does not speak its form.
std::optional<CallShape> ShapeOf(const Documents& documents, const pugi::xml_node& operation,
                                 const pugi::xml_node& bound, const QString& bindingStyle)
{
    const pugi::xml_node soap = Child(bound, ns::WsdlSoap, "operation");
    const pugi::xml_node body = Child(Child(bound, ns::Wsdl, "input"), ns::WsdlSoap, "body");
    const Documents::Named* message = MessageOf(documents, operation, "input");
    if (!body || message == nullptr)
        return std::nullopt;

    CallShape shape;
    shape.Action = Attribute(soap, "soapAction");
    const QString ownStyle = Attribute(soap, "style");
    const QString style = ownStyle.isEmpty() ? bindingStyle : ownStyle;
    const bool isShaped = style == u"rpc" ? ShapeRpc(documents, operation, message->node, body, shape)
                                          : Attribute(body, "use") != u"encoded" &&
                                                ShapeWrapped(documents, message->node, shape);
    if (!isShaped || !IsElementName(shape.Element) || !IsHeaderValue(shape.Action))
        return std::nullopt;
    return shape;
}

/// The binding of a port, when that port speaks SOAP 1.1 over HTTP.
const Documents::Named* SoapBindingOf(const Documents& documents, const pugi::xml_node& port)
{
    const Documents::Named* binding =
        documents.Find("binding", NameInText(port, port.attribute("binding").value()));
    if (!Child(port, ns::WsdlSoap, "address") || binding == nullptr)
        return nullptr;
    const pugi::xml_node soap = Child(binding->node, ns::WsdlSoap, "binding");
    return soap && Attribute(soap, "transport") == QLatin1String(ns::SoapHttp) ? binding : nullptr;
}

struct BoundPort
{
    pugi::xml_node port;
    pugi::xml_node binding;
};

BoundPort ChoosePort(const Documents& documents, const QString& serviceName, const QString& portName)
{
    const auto isWanted = [](const pugi::xml_node& node, const char* kind, const QString& name) {
        return Is(node, ns::Wsdl, kind) && (name.isEmpty() || Attribute(node, "name") == name);
    };
    for (const pugi::xml_node& service : documents.Services())
        if (isWanted(service, "service", serviceName))
            for (const pugi::xml_node& port : service.children())
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
    const Documents::Named* portType =
        documents.Find("portType", NameInText(bound.binding, bound.binding.attribute("type").value()));
    if (portType == nullptr)
        throw UnreadableFault(QStringLiteral("설명에 빠진 부분이 있습니다."));

    ServiceDescription description;
    description.Endpoint =
        url.resolved(QUrl(Attribute(Child(bound.port, ns::WsdlSoap, "address"), "location")));
    if (!IsWebAddress(description.Endpoint))
        throw UnreadableFault(QStringLiteral("서비스의 주소가 올바르지 않습니다."));

    const QString style = Attribute(Child(bound.binding, ns::WsdlSoap, "binding"), "style");
    const QHash<QString, pugi::xml_node> operations = OperationsIn(portType->node);
    const QHash<QString, pugi::xml_node> bindings = OperationsIn(bound.binding);
    for (auto operation = operations.cbegin(); operation != operations.cend(); ++operation)
        if (const auto shape = ShapeOf(documents, operation.value(), bindings.value(operation.key()), style))
            description.Operations.insert(operation.key(), *shape);
    return description;
}

} // namespace tsms
