#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QUrl>

#include <functional>

namespace tsms {

/// How a call is put into its envelope.
enum class CallStyle { RpcEncoded, RpcLiteral, DocumentWrapped };

/// One argument of an operation.
struct CallPart
{
    QString name;
    QString space;     ///< of its element; empty for an unqualified one
    QString typeSpace; ///< of rpc
    QString type;
};

/// One operation as a caller needs it.
struct CallShape
{
    CallStyle style = CallStyle::RpcEncoded;
    QString element; ///< the element that wraps the arguments
    QString space;
    QString action;
    QString encodingStyle;
    QList<CallPart> parts;
    QString resultName; ///< the result part of rpc; empty when the description does not name it
};

/// A service as its description tells it.
struct ServiceDescription
{
    QUrl endpoint;
    QMap<QString, CallShape> operations;
};

/// A document as it came.
struct FetchedDocument
{
    QByteArray bytes;
    QByteArray contentType;
};
/// Fetches a document. Raises a SoapFault when it cannot.
using DocumentSource = std::function<FetchedDocument(const QUrl&)>;

/// Reads the description at `url` and the imports that lie on the same host (at most MaxDocuments in all;
/// others are passed over). Empty names take the first service with a port that speaks SOAP 1.1 over HTTP.
/// What came over https must name an https address for the calls, or it is refused. Operations in a form that
/// the client does not speak are left out, and so are parts of a description with more than MaxElements; a
/// service of more than MaxOperations is refused. The time it takes grows as the documents do. Raises a
/// SoapFault.
ServiceDescription ReadServiceDescription(const QUrl& url, const QString& service, const QString& port,
                                          const DocumentSource& fetch);

inline constexpr int MaxDocuments = 16;
inline constexpr int MaxOperations = 256;
inline constexpr int MaxParts = 64;        ///< of an operation that is not left out
inline constexpr int MaxElements = 10'000; ///< in a message, a port type, an element of a schema and so on

} // namespace tsms
