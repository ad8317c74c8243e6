#pragma once

#include "store/engine/Connection.h"

struct sqlite3;
struct sqlite3_stmt;

namespace tsms {

class Clock;

/// The engine that is a file. It takes the server's dialect, knows no characters in a text but those of the
/// server's code page 949 (any other is a "?" for each UTF-16 unit), compares texts in the server's manner
/// and fails with the server's numbers and words.
class EmbeddedConnection final : public Connection
{
public:
    explicit EmbeddedConnection(const Clock& clock);
    ~EmbeddedConnection() override;

    bool IsOpen() const override { return handle_ != nullptr; }
    void Open() override; ///< the file of ConnectionString's Initial Catalog; a missing one is not made
    void Close() override;
    std::unique_ptr<Recordset> Query(const Statement& statement) override;
    void Execute(const Statement& statement) override;
    void ExpectChanges(int changes) override;

    /// Opens a file by its name. `make` makes it when it is missing.
    void OpenFile(const QString& path, bool make = false);

    /// Runs statements of the engine's own dialect.
    void ExecuteNative(const QString& sql);

private:
    class Running;

    /// A statement that stays prepared: a run of many rows has the same words each time.
    struct Kept
    {
        QString words;
        sqlite3_stmt* statement;
    };

    sqlite3* Handle() const;
    sqlite3_stmt* Prepared(const QString& words);
    sqlite3_stmt* Prepare(const QString& words) const;

    const Clock& clock_;
    sqlite3* handle_ = nullptr;
    QList<Kept> kept_; ///< the oldest first
    QString path_;
};

/// Gives a handle everything that a database of this program needs: the collation, the functions of the
/// server's dialect, LIKE in the server's manner.
void PrepareEmbeddedHandle(sqlite3* handle, const Clock& clock);

} // namespace tsms
