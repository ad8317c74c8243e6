#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace tsms {

/// The styles in which the simulated gateway can describe and speak its service.
enum class ServiceStyle { RpcEncoded, RpcLiteral, DocumentLiteral };

/// The path of the description and of the service below the gateway's address.
QString DescriptionPath();
QString EndpointPath();

/// Names of the parts of an operation, in order; empty for an operation that does not exist.
QStringList PartNames(const QString& operation);

/// The description (WSDL 1.1). Without `operations` it describes a service of the same name that offers
/// something else.
QByteArray DescriptionOf(ServiceStyle style, const QString& endpoint, bool operations = true);

/// A call as it came in.
struct ServiceCall
{
    QString Operation;
    QStringList Arguments;
};

/// Reads an envelope strictly: SOAP 1.1, the service's namespace, part names in order, in the style given.
/// Nothing when it is anything else; `why` then tells.
std::optional<ServiceCall> ReadServiceCall(const QByteArray& envelope, ServiceStyle style, QString& why);

/// The envelope of an answer, and of a fault.
QByteArray ServiceAnswer(const QString& operation, ServiceStyle style, const QString& result);
QByteArray ServiceFault(const QString& code, const QString& string, const QString& detail);

} // namespace tsms
