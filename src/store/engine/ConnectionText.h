#pragma once

#include <QString>
#include <QStringView>

namespace tsms {

struct Session;

/// The connection text of the session's launch fields, with nothing escaped.
QString AssembleConnectionText(const Session& session);

/// What an engine needs of a connection text.
struct ConnectionParts
{
    QString catalog;
    QString server; ///< Data Source without the port
    QString port;   ///< behind the last comma of Data Source; empty when there is none
    QString user;
    QString password;
};

/// Takes a text of "keyword=value" pairs joined by ";" apart. Keywords ignore case; a value may stand between
/// quotes; of a keyword given twice the last counts. Raises BadConnectionText.
ConnectionParts ParseConnectionText(QStringView text);

/// True for the server name of the embedded engine.
bool IsEmbeddedServer(QStringView server);

} // namespace tsms
