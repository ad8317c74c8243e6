#pragma once

#include "runtime/NetworkLinks.h"
#include "store/engine/Connection.h"
#include "store/odbc/OdbcDrivers.h"
#include "store/odbc/OdbcHandle.h"

namespace tsms {

/// The engine that is a SQL Server, reached by ODBC. A statement with all its rows has CommandTimeout and no
/// more, whatever the driver makes of that: then its link is cut, and it fails with CommandTimedOut.
class OdbcConnection final : public Connection
{
public:
    /// `drivers` are tried in their order until one is there.
    explicit OdbcConnection(QList<OdbcDriver> drivers);
    ~OdbcConnection() override;

    /// True from Open to Close, also when the link has died meanwhile: that shows at the next statement.
    bool IsOpen() const override { return static_cast<bool>(handle_); }
    void Open() override;
    void Close() override;

    /// The first result with columns. Where a column has no width, a long value has the statement run once
    /// more.
    std::unique_ptr<Recordset> Query(const Statement& statement) override;

    void Execute(const Statement& statement) override;

private:
    class Running;

    bool OpenBy(const OdbcDriver& driver);
    int DriverSeconds() const; ///< after which the driver cancels a statement
    template <class Act> auto InTime(const Act& act);

    QList<OdbcDriver> drivers_;
    OdbcHandle handle_;        ///< set while connected
    QList<NetworkLink> links_; ///< that the driver has made for it; none where they cannot be told
};

} // namespace tsms
