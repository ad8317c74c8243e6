#pragma once

#include <QByteArray>
#include <QString>

#include <pugixml.hpp>

namespace tsms {

/// Namespaces, by their addresses. No prefix means anything here.
namespace ns {
inline constexpr const char* Wsdl = "http://schemas.xmlsoap.org/wsdl/";
inline constexpr const char* WsdlSoap = "http://schemas.xmlsoap.org/wsdl/soap/";
inline constexpr const char* SoapEnvelope = "http://schemas.xmlsoap.org/soap/envelope/";
inline constexpr const char* SoapEncoding = "http://schemas.xmlsoap.org/soap/encoding/";
inline constexpr const char* SoapHttp = "http://schemas.xmlsoap.org/soap/http";
inline constexpr const char* Schema = "http://www.w3.org/2001/XMLSchema";
inline constexpr const char* SchemaInstance = "http://www.w3.org/2001/XMLSchema-instance";
} // namespace ns

/// A name with the address of its namespace in place of its prefix.
struct QualifiedName
{
    QString Namespace;
    QString Local;

    friend bool operator==(const QualifiedName&, const QualifiedName&) = default;
};

/// Parses XML in the encoding that it declares, else in the charset of `contentType`, else UTF-8. Fetches
/// nothing and knows no entities but XML's own. False when it is no XML document, or one with a document
/// type declaration.
bool ParseXml(const QByteArray& bytes, const QByteArray& contentType, pugi::xml_document& into);

/// The name of an element.
QualifiedName NameOf(const pugi::xml_node& element);

/// The name that a text such as an attribute's value stands for at `element`.
QualifiedName NameInText(const pugi::xml_node& element, const char* text);

bool Is(const pugi::xml_node& node, const char* space, const char* local);

/// The first child element of that name; null when there is none.
pugi::xml_node Child(const pugi::xml_node& parent, const char* space, const char* local);

/// The first child element of any name, or the next such sibling; null when there is none.
pugi::xml_node FirstElement(const pugi::xml_node& parent);
pugi::xml_node NextElement(const pugi::xml_node& sibling);

/// All text directly in an element.
QString TextOf(const pugi::xml_node& element);

/// An attribute without a prefix; empty when there is none.
QString Attribute(const pugi::xml_node& element, const char* name);

/// Text as content or attribute value of an XML document in UTF-8. What XML 1.0 cannot hold becomes a
/// blank; a carriage return survives.
QByteArray EscapeXml(QStringView text);

} // namespace tsms
