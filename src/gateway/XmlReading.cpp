#include "gateway/XmlReading.h"

#include "runtime/CodePage949.h"

#include <QRegularExpression>

#include <algorithm>
#include <cstring>
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

/// The address bound to a prefix at an element; the default namespace for an empty prefix.
QString NamespaceFor(pugi::xml_node element, std::string_view prefix)
{
    for (; element.type() == pugi::node_element; element = element.parent())
        for (const pugi::xml_attribute& attribute : element.attributes()) {
            const std::string_view name = attribute.name();
            if (prefix.empty() ? name == "xmlns" : name.starts_with("xmlns:") && name.substr(6) == prefix)
                return QString::fromUtf8(attribute.value());
        }
    return {};
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

} // namespace

bool ParseXml(const QByteArray& bytes, const QByteArray& contentType, pugi::xml_document& into)
{
    constexpr unsigned int options = pugi::parse_default | pugi::parse_ws_pcdata | pugi::parse_doctype;
    QString encoding = DeclaredEncoding(bytes);
    if (encoding.isEmpty())
        encoding = CharsetOf(contentType);
    pugi::xml_parse_result result;
    if (IsKorean(encoding)) {
        const QByteArray text = FromCodePage949(bytes).toUtf8();
        result = into.load_buffer(text.constData(), static_cast<std::size_t>(text.size()), options,
                                  pugi::encoding_utf8);
    } else {
        // The parser knows the Unicode encodings by their first bytes and reads Latin-1 where it is declared.
        result = into.load_buffer(bytes.constData(), static_cast<std::size_t>(bytes.size()), options);
    }
    return result && !HasDocumentType(into);
}

QualifiedName NameInText(const pugi::xml_node& element, const char* text)
{
    const std::string_view name = text;
    const std::size_t colon = name.find(':');
    const bool hasPrefix = colon != std::string_view::npos;
    const std::string_view local = hasPrefix ? name.substr(colon + 1) : name;
    return {NamespaceFor(element, hasPrefix ? name.substr(0, colon) : std::string_view()),
            QString::fromUtf8(local.data(), static_cast<qsizetype>(local.size()))};
}

QualifiedName NameOf(const pugi::xml_node& element)
{
    return NameInText(element, element.name());
}

bool Is(const pugi::xml_node& node, const char* space, const char* local)
{
    return node.type() == pugi::node_element &&
           NameOf(node) == QualifiedName{QString::fromLatin1(space), QString::fromLatin1(local)};
}

pugi::xml_node Child(const pugi::xml_node& parent, const char* space, const char* local)
{
    return parent.find_child([&](const pugi::xml_node& child) { return Is(child, space, local); });
}

pugi::xml_node FirstElement(const pugi::xml_node& parent)
{
    return parent.find_child([](const pugi::xml_node& child) { return child.type() == pugi::node_element; });
}

pugi::xml_node NextElement(const pugi::xml_node& sibling)
{
    pugi::xml_node next = sibling.next_sibling();
    while (next && next.type() != pugi::node_element)
        next = next.next_sibling();
    return next;
}

QString TextOf(const pugi::xml_node& element)
{
    QString text;
    for (const pugi::xml_node& child : element.children())
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            text += QString::fromUtf8(child.value());
    return text;
}

QString Attribute(const pugi::xml_node& element, const char* name)
{
    return QString::fromUtf8(element.attribute(name).value());
}

QByteArray EscapeXml(QStringView text)
{
    const auto isPlain = [](QChar c) {
        return c >= u' ' && c < u'\xD800' && c != u'&' && c != u'<' && c != u'>' && c != u'"';
    };
    if (std::all_of(text.begin(), text.end(), isPlain))
        return text.toUtf8();
    QString escaped;
    escaped.reserve(text.size() + 16);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (!IsXmlCharacter(text, i))
            escaped += u' ';
        else if (c == u'&')
            escaped += u"&amp;";
        else if (c == u'<')
            escaped += u"&lt;";
        else if (c == u'>')
            escaped += u"&gt;";
        else if (c == u'"')
            escaped += u"&quot;";
        else if (c == u'\r')
            escaped += u"&#13;"; // a parser turns a bare CR LF into LF
        else
            escaped += c;
    }
    return escaped.toUtf8();
}

} // namespace tsms
