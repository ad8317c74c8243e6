#pragma once

#include "gateway/ServiceDescription.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QString>
#include <QStringList>

namespace tsms {

/// The envelope of the calls of one operation. What all of them share is written once.
class CallEnvelope
{
public:
    explicit CallEnvelope(const CallShape& shape);

    /// The envelope of one call. `arguments` are as many as the shape has parts.
    QByteArray With(const QStringList& arguments) const;

private:
    QByteArrayList ahead_; ///< of each argument
    QByteArray behind_;    ///< the last
};

/// The text result in the envelope of an answer. Raises a SoapFault: the one that the envelope carries, or
/// one of its own when it is no answer.
QString ReadAnswer(const CallShape& shape, const QByteArray& envelope, const QByteArray& contentType);

} // namespace tsms
