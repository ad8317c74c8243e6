#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace tsms {

struct ConnectionParts;

/// A driver that reaches a SQL Server.
struct OdbcDriver
{
    enum class Kind { Microsoft, FreeTds };

    QString name; ///< under which it is registered, or its file
    Kind kind;

    bool operator==(const OdbcDriver&) const = default;
};

/// Of the drivers on a machine those that will do, the best first: those that are registered under their
/// usual names, then files of FreeTDS, which need not be registered.
QList<OdbcDriver> SuitableOdbcDrivers(const QStringList& registered, const QStringList& freeTdsFiles);

/// Where FreeTDS's driver lies on a machine of that architecture (QSysInfo::buildCpuArchitecture) that has
/// it.
QStringList FreeTdsPlaces(const QString& architecture);

/// The drivers of this machine that will do. Raises NoDriver when there is no driver manager.
QList<OdbcDriver> InstalledOdbcDrivers();

/// The connection text of a driver: keywords and quoting are those that it understands. The log-in goes over
/// an encrypted link where the server can do that, whatever certificate it shows. Raises BadConnectionText
/// for a value that the driver cannot be told.
QString OdbcConnectionText(const OdbcDriver& driver, const ConnectionParts& parts);

/// Says which drivers would do, of those that can be had on this system.
QString WantedOdbcDrivers();

} // namespace tsms
