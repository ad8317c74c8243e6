#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <optional>

struct sqlite3;
struct sqlite3_stmt;

namespace tsms {

/// An INSERT with a mark in place of each literal, and the literals.
struct LiftedInsert
{
    QByteArray shape;
    QByteArrayList literals;
};

/// Lifts the literals out of an INSERT in the engine's dialect. Nothing for any other statement, and for one
/// that holds a comment or a quoted name.
std::optional<LiftedInsert> LiftLiterals(const QByteArray& text);

/// The INSERT that a connection ran last, kept ready: a run of many rows inserts the same shape each time.
class EmbeddedInsert
{
public:
    EmbeddedInsert() = default;
    ~EmbeddedInsert() { Forget(); }
    EmbeddedInsert(const EmbeddedInsert&) = delete;
    EmbeddedInsert& operator=(const EmbeddedInsert&) = delete;

    /// Inserts. False when the engine refuses; its error is the handle's.
    bool Run(sqlite3* handle, const LiftedInsert& insert);

    /// Lets the statement go, before its handle does.
    void Forget();

private:
    bool Prepare(sqlite3* handle, const QByteArray& shape);

    QByteArray shape_;
    sqlite3_stmt* statement_ = nullptr;
};

} // namespace tsms
