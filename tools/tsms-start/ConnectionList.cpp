#include "tsms-start/ConnectionList.h"

#include <QSettings>
#include <QUuid>

#include <algorithm>

namespace tsms {

namespace {

// The keys of the settings.
const QString ListKey = QStringLiteral("connections");
const QString ChosenKey = QStringLiteral("chosen");
const QString ServerKind = QStringLiteral("server");
const QString FileKind = QStringLiteral("file");

using TextMember = QString SavedConnection::*;

struct SavedText
{
    QString key;
    TextMember field;
};

const QList<SavedText>& SavedTexts()
{
    static const QList<SavedText> fields{{QStringLiteral("id"), &SavedConnection::id},
                                         {QStringLiteral("name"), &SavedConnection::name},
                                         {QStringLiteral("file"), &SavedConnection::file},
                                         {QStringLiteral("server"), &SavedConnection::server},
                                         {QStringLiteral("port"), &SavedConnection::port},
                                         {QStringLiteral("database"), &SavedConnection::database},
                                         {QStringLiteral("login"), &SavedConnection::login},
                                         {QStringLiteral("number"), &SavedConnection::number},
                                         {QStringLiteral("text"), &SavedConnection::text}};
    return fields;
}

SavedConnection Read(const QSettings& settings)
{
    SavedConnection connection;
    for (const SavedText& one : SavedTexts())
        connection.*one.field = settings.value(one.key).toString();
    connection.kind = settings.value(QStringLiteral("kind")) == ServerKind ? SavedConnection::Kind::Server
                                                                           : SavedConnection::Kind::File;
    connection.keepsPassword = settings.value(QStringLiteral("keepsPassword")).toBool();
    return connection;
}

void Write(QSettings& settings, const SavedConnection& connection)
{
    for (const SavedText& one : SavedTexts())
        settings.setValue(one.key, connection.*one.field);
    settings.setValue(QStringLiteral("kind"), connection.IsServer() ? ServerKind : FileKind);
    settings.setValue(QStringLiteral("keepsPassword"), connection.keepsPassword);
}

} // namespace

ConnectionList::ConnectionList(QSettings& settings) : settings_(settings)
{
    const int count = settings_.beginReadArray(ListKey);
    for (int at = 0; at < count; ++at) {
        settings_.setArrayIndex(at);
        connections_ += Read(settings_);
    }
    settings_.endArray();
    chosen_ = settings_.value(ChosenKey).toString();
}

int ConnectionList::PositionOf(const QString& id) const
{
    const auto found = std::find_if(connections_.begin(), connections_.end(),
                                    [&id](const SavedConnection& one) { return one.id == id; });
    return found == connections_.end() ? -1 : static_cast<int>(found - connections_.begin());
}

int ConnectionList::Chosen() const
{
    const int position = PositionOf(chosen_);
    return position < 0 && !connections_.isEmpty() ? 0 : position;
}

QString ConnectionList::Put(SavedConnection connection)
{
    if (connection.id.isEmpty())
        connection.id = QUuid::createUuid().toString(QUuid::Id128);
    chosen_ = connection.id;
    if (const int position = PositionOf(connection.id); position >= 0)
        connections_[position] = connection;
    else
        connections_ += connection;
    Save();
    return connection.id;
}

void ConnectionList::Choose(const QString& id)
{
    chosen_ = id;
    Save();
}

void ConnectionList::Remove(const QString& id)
{
    const int position = PositionOf(id);
    if (position < 0)
        return;
    connections_.removeAt(position);
    const int next = std::min(position, static_cast<int>(connections_.size()) - 1);
    chosen_ = next < 0 ? QString() : connections_[next].id;
    Save();
}

void ConnectionList::Save()
{
    settings_.remove(ListKey); // entries of a longer list would stay
    settings_.beginWriteArray(ListKey, static_cast<int>(connections_.size()));
    for (int at = 0; at < connections_.size(); ++at) {
        settings_.setArrayIndex(at);
        Write(settings_, connections_[at]);
    }
    settings_.endArray();
    settings_.setValue(ChosenKey, chosen_);
    settings_.sync();
}

} // namespace tsms
