#pragma once

#include "gateway/ServiceDescription.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tsms {

/// The envelope of a call. `arguments` are as many as the shape has parts.
QByteArray CallEnvelope(const CallShape& shape, const QStringList& arguments);

/// The text result in the envelope of an answer. Raises a SoapFault: the one that the envelope carries, or
/// one of its own when it is no answer.
QString ReadAnswer(const CallShape& shape, const QByteArray& envelope, const QByteArray& contentType);

} // namespace tsms
