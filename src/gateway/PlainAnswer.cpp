#include "gateway/PlainAnswer.h"

#include "gateway/XmlReading.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace tsms {

namespace {

constexpr auto IsPadding = [](char c) { return c == ' ' || c == '\t' || c == '\n'; };

/// True for what stands for itself, in a text and in the value of an attribute.
constexpr auto IsLiteralCharacter = [](char c) { return c != '<' && c != '&' && c != '\r' && c != '\0'; };

constexpr auto IsNameBeginning = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
};

constexpr auto IsNameCharacter = [](char c) {
    return IsNameBeginning(c) || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == ':';
};

/// A start tag; it has no name where none of the plain kind stands.
struct StartTag
{
    std::string_view name;
    std::string_view attributes;

    /// What stands before the colon, and the rest.
    std::string_view Prefix() const { return name.substr(0, Colon()); }
    std::string_view Local() const { return name.substr(Colon() == 0 ? 0 : Colon() + 1); }

private:
    std::size_t Colon() const
    {
        const std::size_t colon = name.find(':');
        return colon == std::string_view::npos ? 0 : colon;
    }
};

/// Pulls one piece after the other. What is not of the plain kind leaves it where it was.
class PlainReader
{
public:
    explicit PlainReader(std::string_view text) : rest_(text) {}

    bool AtEnd() const { return rest_.empty(); }

    bool Take(std::string_view words)
    {
        if (!rest_.starts_with(words))
            return false;
        rest_.remove_prefix(words.size());
        return true;
    }

    void SkipBlanks() { TakeWhile(IsPadding); }

    bool TakeEnd(std::string_view name)
    {
        SkipBlanks();
        return Take("</") && Take(name) && Take(">");
    }

    StartTag TakeStart()
    {
        SkipBlanks();
        if (!Take("<"))
            return {};
        const std::string_view name = TakeName();
        const char* from = rest_.data();
        while (TakeAttribute()) {
        }
        const std::string_view attributes(from, static_cast<std::size_t>(rest_.data() - from));
        return Take(">") ? StartTag{name, attributes} : StartTag{};
    }

    std::string_view TakeText() { return TakeWhile(IsLiteralCharacter); }

private:
    template <class Is> std::string_view TakeWhile(Is is)
    {
        const auto end = std::find_if_not(rest_.begin(), rest_.end(), is);
        const std::string_view taken(rest_.begin(), end);
        rest_.remove_prefix(taken.size());
        return taken;
    }

    std::string_view TakeName()
    {
        const bool begins = !rest_.empty() && IsNameBeginning(rest_[0]);
        return begins ? TakeWhile(IsNameCharacter) : std::string_view();
    }

    bool TakeAttribute()
    {
        const std::string_view before = rest_;
        SkipBlanks();
        if (rest_.size() < before.size() && !TakeName().empty() && Take("=\"")) {
            TakeWhile([](char c) { return IsLiteralCharacter(c) && c != '"'; });
            if (Take("\""))
                return true;
        }
        rest_ = before;
        return false;
    }

    std::string_view rest_;
};

/// An envelope's first attribute that binds the prefix binds it to the SOAP envelope, and is the only one.
bool IsEnvelope(const StartTag& tag)
{
    if (tag.Local() != "Envelope" || tag.Prefix().empty())
        return false;
    const std::string binding = "xmlns:" + std::string(tag.Prefix()) + "=\"";
    const std::size_t at = tag.attributes.find(binding);
    if (at == std::string_view::npos || tag.attributes.find(binding, at + 1) != std::string_view::npos)
        return false;
    const std::string_view bound = tag.attributes.substr(at + binding.size());
    const std::size_t end = bound.find('"');
    return end != std::string_view::npos && bound.substr(0, end) == ns::SoapEnvelope;
}

} // namespace

std::optional<QString> ReadPlainAnswer(const QByteArray& envelope)
{
    PlainReader reader({envelope.constData(), static_cast<std::size_t>(envelope.size())});
    if (!reader.Take("<?xml version=\"1.0\" encoding=\"UTF-8\"?>") &&
        !reader.Take("<?xml version=\"1.0\" encoding=\"utf-8\"?>"))
        return std::nullopt;
    const StartTag root = reader.TakeStart();
    if (!IsEnvelope(root))
        return std::nullopt;
    const StartTag body = reader.TakeStart();
    if (body.Local() != "Body" || body.Prefix() != root.Prefix() ||
        body.attributes.find("xmlns") != std::string_view::npos)
        return std::nullopt;
    const StartTag answer = reader.TakeStart();
    if (answer.name.empty() || answer.Local() == "Fault")
        return std::nullopt;
    const StartTag result = reader.TakeStart();
    if (result.name.empty() || result.attributes.find("href") != std::string_view::npos)
        return std::nullopt;
    const std::string_view text = reader.TakeText();
    if (!reader.Take("</") || !reader.Take(result.name) || !reader.Take(">") ||
        !reader.TakeEnd(answer.name) || !reader.TakeEnd(body.name) || !reader.TakeEnd(root.name))
        return std::nullopt;
    reader.SkipBlanks();
    if (!reader.AtEnd())
        return std::nullopt;
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace tsms
