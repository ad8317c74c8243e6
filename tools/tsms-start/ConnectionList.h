#pragma once

#include "tsms-start/SavedConnection.h"

#include <QList>

class QSettings;

namespace tsms {

/// The connections that a user has set up, in the order in which they came, and which of them was chosen
/// last. Every change is written at once to where the desk keeps settings.
class ConnectionList
{
public:
    /// Reads what is there. `settings` outlives the list.
    explicit ConnectionList(QSettings& settings);

    const QList<SavedConnection>& All() const { return connections_; }

    /// The position of the chosen one, from 0; -1 without any.
    int Chosen() const;

    /// In place of the one of the same id, or behind all others; one without an id is given its own. It is
    /// the chosen one then. Answers with the id.
    QString Put(SavedConnection connection);

    void Choose(const QString& id);

    /// The one that takes its place is the chosen one then.
    void Remove(const QString& id);

private:
    int PositionOf(const QString& id) const;
    void Save();

    QSettings& settings_;
    QList<SavedConnection> connections_;
    QString chosen_;
};

} // namespace tsms
