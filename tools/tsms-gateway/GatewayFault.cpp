#include "tsms-gateway/GatewayFault.h"

#include <QHash>
#include <QRegularExpression>

namespace tsms {

namespace {

const QHash<QString, FaultKind>& Kinds()
{
    static const QHash<QString, FaultKind> kinds = {
        {QStringLiteral("refuse"), FaultKind::Refuse},
        {QStringLiteral("short"), FaultKind::Short},
        {QStringLiteral("bad-boolean"), FaultKind::BadTruth},
        {QStringLiteral("late"), FaultKind::Late},
        {QStringLiteral("twice"), FaultKind::Twice},
        {QStringLiteral("drop"), FaultKind::Drop},
        {QStringLiteral("cut"), FaultKind::Cut},
        {QStringLiteral("soap-fault"), FaultKind::SoapFault},
        {QStringLiteral("http500"), FaultKind::Http500},
        {QStringLiteral("garbage"), FaultKind::Garbage},
        {QStringLiteral("leave"), FaultKind::Leave},
        {QStringLiteral("wsdl-missing"), FaultKind::WsdlMissing},
        {QStringLiteral("wsdl-garbage"), FaultKind::WsdlGarbage},
        {QStringLiteral("wsdl-no-operation"), FaultKind::WsdlNoOperation},
        {QStringLiteral("wsdl-late"), FaultKind::WsdlLate},
        {QStringLiteral("wsdl-drop"), FaultKind::WsdlDrop},
        {QStringLiteral("wsdl-cut"), FaultKind::WsdlCut},
        {QStringLiteral("wsdl-http500"), FaultKind::WsdlHttp500},
        {QStringLiteral("wsdl-leave"), FaultKind::WsdlLeave},
    };
    return kinds;
}

std::optional<FaultKind> KindOf(const QString& name)
{
    const auto found = Kinds().constFind(name);
    return found == Kinds().cend() ? std::nullopt : std::optional(*found);
}

} // namespace

QString FaultName(FaultKind kind)
{
    return Kinds().key(kind);
}

std::optional<GatewayFault> ReadGatewayFault(const QString& text)
{
    static const QRegularExpression shape(
        QStringLiteral("\\A([a-z0-9-]+)(?:=([0-9]{1,6}))?(?:@([1-9][0-9]{0,6}))?\\z"));
    const QRegularExpressionMatch match = shape.match(text);
    const std::optional<FaultKind> kind = KindOf(match.captured(1));
    if (!match.hasMatch() || !kind)
        return std::nullopt;
    const GatewayFault fault{*kind, match.captured(3).toInt(), match.captured(2).toInt()};
    const bool hasTime = !match.captured(2).isEmpty();
    if (hasTime != fault.TakesTime() || (fault.IsOfDescription() && fault.Call != 0))
        return std::nullopt;
    return fault;
}

} // namespace tsms
