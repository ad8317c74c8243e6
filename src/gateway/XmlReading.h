#pragma once

#include <QByteArray>
#include <QString>

#include <pugixml.hpp>

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <utility>

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
    QString space;
    QString local;

    friend bool operator==(const QualifiedName&, const QualifiedName&) = default;
};

class XmlDocument;

/// An element of a document, or none: then it has no name, no text and no child. Valid as long as its
/// document is.
class XmlElement
{
public:
    XmlElement() = default;
    explicit operator bool() const { return !node_.empty(); }

    QualifiedName Name() const;
    bool Is(const char* space, const char* local) const;

    /// The name that an attribute's value stands for here.
    QualifiedName NameIn(const char* attribute) const;

    /// An attribute without a prefix; empty when there is none.
    QString Attribute(const char* name) const;
    bool Has(const char* attribute) const;

    XmlElement Parent() const;
    XmlElement First() const; ///< child of any name
    XmlElement Next() const;  ///< sibling of any name

    /// The first child of that name.
    XmlElement Child(const char* space, const char* local) const;

    /// All text directly in it.
    QString Text() const;

    /// The text in it and in all below it, without blanks around; of a text of more than 2,000 characters
    /// only the beginning.
    QString WholeText() const;

    /// How many elements stand below it, at any depth; `most` if they are more.
    int CountBelow(int most) const;

private:
    friend class XmlDocument;
    XmlElement(const XmlDocument* document, pugi::xml_node node) : document_(document), node_(node) {}
    XmlElement Element(pugi::xml_node node) const { return {document_, node}; }
    QualifiedName Resolved(const char* text) const;

    const XmlDocument* document_ = nullptr;
    pugi::xml_node node_;
};

/// A parsed document. A namespace is found in the same time however many are declared.
class XmlDocument
{
public:
    XmlDocument() = default;
    XmlDocument(const XmlDocument&) = delete;
    XmlDocument& operator=(const XmlDocument&) = delete;

    /// Parses XML in the encoding that it declares, else in the charset of `contentType`, else UTF-8. Fetches
    /// nothing and knows no entities but XML's own. False when it is no XML document, or one with a document
    /// type declaration.
    bool Parse(const QByteArray& bytes, const QByteArray& contentType);

    XmlElement Root() const { return {this, document_.document_element()}; }

private:
    friend class XmlElement;
    using Declaration = std::pair<std::size_t, std::string_view>; ///< the element where it stands, its prefix
    struct DeclarationHash
    {
        std::size_t operator()(const Declaration& declaration) const noexcept;
    };

    void IndexNamespaces();
    QString NamespaceAt(pugi::xml_node element, std::string_view prefix) const;

    pugi::xml_document document_;
    std::unordered_map<Declaration, QString, DeclarationHash> namespaces_;
};

/// Text as content or attribute value of an XML document in UTF-8. What XML 1.0 cannot hold becomes a
/// blank; a carriage return survives.
QByteArray EscapeXml(QStringView text);
void AppendEscapedXml(QByteArray& into, QStringView text); ///< the same, behind what is there

} // namespace tsms
