#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <optional>

struct sqlite3;
struct sqlite3_stmt;

namespace tsms {

/// An INSERT with a mark in place of each literal, and the literals.
struct LiftedInsert
{
    QString shape;
    QByteArrayList literals; ///< in UTF-8
};

/// Lifts the literals out of an INSERT in the server's dialect. Nothing for any other statement, and for one
/// that holds a comment, a quoted name or a joining of texts.
std::optional<LiftedInsert> LiftLiterals(const QString& sql);

/// The INSERT that a connection ran last, kept ready: a run of many rows inserts the same shape each time.
class EmbeddedInsert
{
public:
    EmbeddedInsert() = default;
    ~EmbeddedInsert() { Forget(); }
    EmbeddedInsert(const EmbeddedInsert&) = delete;
    EmbeddedInsert& operator=(const EmbeddedInsert&) = delete;

    /// Inserts. False when the engine refuses; its error is the handle's. Raises what ToEmbeddedDialect
    /// raises.
    bool Run(sqlite3* handle, const LiftedInsert& insert);

    /// Lets the statement go, before its handle does.
    void Forget();

private:
    bool Prepare(sqlite3* handle, const QString& shape);

    QString shape_;
    sqlite3_stmt* statement_ = nullptr;
};

} // namespace tsms
