#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace tsms::test {

class TestServer;

/// A client of the test server through ODBC and the driver that programs use, with nothing in between.
class OdbcClient
{
public:
    struct Diagnostic
    {
        QString State;
        int Number; ///< the server's
        QString Words;
    };

    /// A column as the driver describes it.
    struct Column
    {
        QString Name;
        int Type; ///< SQL_INTEGER and so on
        int Size;
        int Digits;
        bool Nullable;
        bool Identity;

        bool operator==(const Column&) const = default;
    };

    OdbcClient();
    ~OdbcClient();
    OdbcClient(const OdbcClient&) = delete;
    OdbcClient& operator=(const OdbcClient&) = delete;

    /// Logs in with the server's account. `differences` ("PWD=x;") count before it.
    bool Connect(const TestServer& server, const QString& differences = {}, int timeoutSeconds = 20);
    void Disconnect();

    /// Runs a batch; true when it went well. 0 seconds wait for ever.
    bool Execute(const QString& sql, int timeoutSeconds = 20);

    QList<Column> Columns() const; ///< of the present result
    QList<QStringList> Rows();     ///< of the present result, the rest of them; a NULL reads as "(null)"
    int RowCount() const;          ///< rows that the last statement touched
    bool NextResult();
    QString Database() const; ///< that the server has told

    /// What the last call said, also when it went well.
    const QList<Diagnostic>& Diagnostics() const { return diagnostics_; }
    Diagnostic First() const; ///< the one that decides; number 0 without one

private:
    void TakeDiagnostics(int handleType, void* handle);
    bool Note(int result, int handleType, void* handle);
    void DropStatement();

    void* environment_ = nullptr;
    void* connection_ = nullptr;
    void* statement_ = nullptr;
    QList<Diagnostic> diagnostics_;
};

} // namespace tsms::test
