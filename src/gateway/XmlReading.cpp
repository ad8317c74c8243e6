#include "gateway/XmlReading.h"

#include "runtime/CodePage949.h"

#include <QByteArrayView>
#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <optional>
#include <string_view>

namespace tsms {

namespace {

/// The encoding that the bytes declare, in lower case; empty when they declare none.
QString DeclaredEncoding(const QByteArray& bytes)
{
    static const QRegularExpression declaration(
        QStringLiteral("^<\\?xml\\s[^>]*?encoding\\s*=\\s*[\"']([A-Za-z0-9._-]+)[\"']"));
    return declaration.match(QString::fromLatin1(bytes.first(qMin<qsizetype>(bytes.size(), 200))))
        .captured(1)
        .toLower();
}

QString CharsetOf(const QByteArray& contentType)
{
    static const QRegularExpression charset(QStringLiteral("charset\\s*=\\s*[\"']?([A-Za-z0-9._-]+)"),
                                            QRegularExpression::CaseInsensitiveOption);
    return charset.match(QString::fromLatin1(contentType)).captured(1).toLower();
}

bool IsKorean(const QString& encoding)
{
    static const QStringList names = {QStringLiteral("euc-kr"),         QStringLiteral("euckr"),
                                      QStringLiteral("cp949"),          QStringLiteral("ms949"),
                                      QStringLiteral("windows-949"),    QStringLiteral("x-windows-949"),
                                      QStringLiteral("ks_c_5601-1987"), QStringLiteral("uhc")};
    return names.contains(encoding);
}

/// The prefix that an attribute binds, which is empty for the default namespace; nothing for another
/// attribute.
std::optional<std::string_view> BoundPrefix(std::string_view attribute)
{
    if (attribute == "xmlns")
        return std::string_view();
    return attribute.starts_with("xmlns:") ? std::optional(attribute.substr(6)) : std::nullopt;
}

struct SplitName
{
    std::string_view prefix;
    std::string_view local;
};

SplitName Split(std::string_view name)
{
    const std::size_t colon = name.find(':');
    if (colon == std::string_view::npos)
        return {{}, name};
    return {name.substr(0, colon), name.substr(colon + 1)};
}

pugi::xml_node ElementFrom(pugi::xml_node node)
{
    while (node && node.type() != pugi::node_element)
        node = node.next_sibling();
    return node;
}

bool HasDocumentType(const pugi::xml_document& document)
{
    for (const pugi::xml_node& node : document.children())
        if (node.type() == pugi::node_doctype)
            return true;
    return false;
}

/// Whether XML 1.0 has a place for the unit at `i`; a pair of surrogates counts with its first.
bool IsXmlCharacter(QStringView text, qsizetype i)
{
    const QChar c = text[i];
    if (c.isHighSurrogate())
        return i + 1 < text.size() && text[i + 1].isLowSurrogate();
    if (c.isLowSurrogate())
        return i > 0 && text[i - 1].isHighSurrogate();
    return c == u'\t' || c == u'\n' || c == u'\r' || (c >= u' ' && c < u'\xFFFE');
}

/// What stands for a character that cannot stand for itself; nothing for any other.
std::string_view EscapeOf(char16_t c)
{
    switch (c) {
    case u'&':
        return "&amp;";
    case u'<':
        return "&lt;";
    case u'>':
        return "&gt;";
    case u'"':
        return "&quot;";
    case u'\r':
        return "&#13;"; // a parser turns a bare CR LF into LF
    default:
        return {};
    }
}

/// Writes a character at `end` and gives the end behind it.
char* PutUtf8(char* end, char32_t code)
{
    const auto put = [&](char32_t lead, int shift) {
        *end++ = static_cast<char>(lead | (code >> shift));
        while ((shift -= 6) >= 0)
            *end++ = static_cast<char>(0x80 | ((code >> shift) & 0x3F));
    };
    if (code < 0x80)
        put(0, 0);
    else if (code < 0x800)
        put(0xC0, 6);
    else if (code < 0x10000)
        put(0xE0, 12);
    else
        put(0xF0, 18);
    return end;
}

} // namespace

bool XmlDocument::Parse(const QByteArray& bytes, const QByteArray& contentType)
{
    constexpr unsigned int options = pugi::parse_default | pugi::parse_ws_pcdata | pugi::parse_doctype;
    QString encoding = DeclaredEncoding(bytes);
    if (encoding.isEmpty())
        encoding = CharsetOf(contentType);
    pugi::xml_parse_result result;
    if (IsKorean(encoding)) {
        const QByteArray text = FromCodePage949(bytes).toUtf8();
        result = document_.load_buffer(text.constData(), static_cast<std::size_t>(text.size()), options,
                                       pugi::encoding_utf8);
    } else {
        // The parser knows the Unicode encodings by their first bytes and reads Latin-1 where it is declared.
        result = document_.load_buffer(bytes.constData(), static_cast<std::size_t>(bytes.size()), options);
    }
    IndexNamespaces();
    return result && !HasDocumentType(document_);
}

void XmlDocument::IndexNamespaces()
{
    struct Walker : pugi::xml_tree_walker
    {
        std::unordered_map<Declaration, QString, DeclarationHash>& namespaces;
        explicit Walker(std::unordered_map<Declaration, QString, DeclarationHash>& into) : namespaces(into) {}
        bool for_each(pugi::xml_node& node) override
        {
            for (const pugi::xml_attribute& attribute : node.attributes())
                if (const auto prefix = BoundPrefix(attribute.name()))
                    namespaces.try_emplace({node.hash_value(), *prefix},
                                           QString::fromUtf8(attribute.value()));
            return true;
        }
    } walker(namespaces_);
    namespaces_.clear();
    document_.traverse(walker);
}

QString XmlDocument::NamespaceAt(pugi::xml_node element, std::string_view prefix) const
{
    for (; element.type() == pugi::node_element; element = element.parent()) {
        const auto found = namespaces_.find({element.hash_value(), prefix});
        if (found != namespaces_.end())
            return found->second;
    }
    return {};
}

std::size_t XmlDocument::DeclarationHash::operator()(const Declaration& declaration) const noexcept
{
    const QByteArrayView prefix(declaration.second.data(), static_cast<qsizetype>(declaration.second.size()));
    return qHash(prefix, declaration.first ^ QHashSeed::globalSeed());
}

QualifiedName XmlElement::Resolved(const char* text) const
{
    if (document_ == nullptr)
        return {};
    const auto [prefix, local] = Split(text);
    return {document_->NamespaceAt(node_, prefix),
            QString::fromUtf8(local.data(), static_cast<qsizetype>(local.size()))};
}

QualifiedName XmlElement::Name() const
{
    return Resolved(node_.name());
}

QualifiedName XmlElement::NameIn(const char* attribute) const
{
    return Resolved(node_.attribute(attribute).value());
}

bool XmlElement::Is(const char* space, const char* local) const
{
    const SplitName name = Split(node_.name());
    return name.local == local && document_->NamespaceAt(node_, name.prefix) == QLatin1String(space);
}

QString XmlElement::Attribute(const char* name) const
{
    return QString::fromUtf8(node_.attribute(name).value());
}

bool XmlElement::Has(const char* attribute) const
{
    return !node_.attribute(attribute).empty();
}

XmlElement XmlElement::Parent() const
{
    return Element(node_.parent());
}

XmlElement XmlElement::First() const
{
    return Element(ElementFrom(node_.first_child()));
}

XmlElement XmlElement::Next() const
{
    return Element(ElementFrom(node_.next_sibling()));
}

XmlElement XmlElement::Child(const char* space, const char* local) const
{
    XmlElement child = First();
    while (child && !child.Is(space, local))
        child = child.Next();
    return child;
}

QString XmlElement::Text() const
{
    QString text;
    for (const pugi::xml_node& child : node_.children())
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            text += QString::fromUtf8(child.value());
    return text;
}

QString XmlElement::WholeText() const
{
    struct Walker : pugi::xml_tree_walker // without recursion: the depth is the sender's choice
    {
        QString text;
        bool for_each(pugi::xml_node& node) override
        {
            if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata)
                text += QString::fromUtf8(node.value());
            return text.size() < 2000;
        }
    } walker;
    pugi::xml_node(node_).traverse(walker);
    return walker.text.trimmed();
}

int XmlElement::CountBelow(int most) const
{
    struct Walker : pugi::xml_tree_walker
    {
        int left;
        explicit Walker(int most) : left(most) {}
        bool for_each(pugi::xml_node& node) override
        {
            if (node.type() == pugi::node_element)
                --left;
            return left > 0;
        }
    } walker(most);
    pugi::xml_node(node_).traverse(walker);
    return most - walker.left;
}

QByteArray EscapeXml(QStringView text)
{
    QByteArray escaped;
    AppendEscapedXml(escaped, text);
    return escaped;
}

void AppendEscapedXml(QByteArray& into, QStringView text)
{
    constexpr qsizetype mostBytes = 6; // that come of a unit: "&quot;"
    const qsizetype from = into.size();
    into.resize(from + mostBytes * text.size());
    char* end = into.data() + from;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        if (const std::string_view escape = EscapeOf(c); !escape.empty())
            end = std::copy(escape.begin(), escape.end(), end);
        else if (c >= u' ' && c < 0x80)
            *end++ = static_cast<char>(c);
        else if (!IsXmlCharacter(text, i))
            *end++ = ' ';
        else if (QChar::isHighSurrogate(c))
            end = PutUtf8(end, QChar::surrogateToUcs4(c, text[++i].unicode()));
        else
            end = PutUtf8(end, c);
    }
    into.resize(end - into.constData());
}

} // namespace tsms
