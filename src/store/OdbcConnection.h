#pragma once

#include "store/Connection.h"
#include "store/OdbcDrivers.h"
#include "store/OdbcHandle.h"

namespace tsms {

/// The engine that is a SQL Server, reached by ODBC.
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
    std::unique_ptr<Recordset> Query(const QString& sql) override; ///< the first result with columns
    void Execute(const QString& sql) override;

private:
    class Running;

    bool OpenBy(const OdbcDriver& driver);

    QList<OdbcDriver> drivers_;
    OdbcHandle handle_; ///< set while connected
};

} // namespace tsms
