// Takes any bytes for the program's arguments, a NUL behind each, and for its launch line.
#include "fuzz/Target.h"
#include "runtime/CommandLine.h"
#include "runtime/RuntimeError.h"
#include "session/Session.h"
#include "shell/LaunchLine.h"
#include "store/engine/ConnectionText.h"
#include "store/engine/DatabaseError.h"

#include <QStringList>

using namespace tsms;
using namespace tsms::test;

namespace {

/// What was given is joined by blanks, and nothing of it is left where it stood.
void TakeArguments(const QByteArray& bytes)
{
    QByteArrayList words = bytes.split('\0');
    QByteArray program("tsms");
    std::vector<char*> arguments = {program.data()};
    QStringList expected;
    for (QByteArray& word : words) {
        expected += QString::fromLocal8Bit(word);
        arguments.push_back(word.data());
    }
    const QString line = TakeCommandLine(static_cast<int>(arguments.size()), arguments.data());
    Require(line == expected.join(u' '));
    for (const QByteArray& word : words)
        Require(word.count(' ') == word.size());
}

/// The fields of a line, or of a session.
QStringList FieldsOf(const QString& line)
{
    QStringList fields = {QString()};
    for (const QChar c : line)
        if (c == LaunchSeparator)
            fields += QString();
        else
            fields.last() += c;
    return fields;
}

QStringList FieldsOf(const Session& session)
{
    return {session.DBCatalog, session.DBServer,   session.DBPort,
            session.DBUser,    session.DBPassword, QString::number(session.UserData1),
            session.UserData2};
}

/// How many fields were stored before the line was found faulty.
qsizetype StoredFields(const QString& line, qsizetype given, Session& session)
{
    constexpr qsizetype numberField = 6;
    constexpr qsizetype needed = 7;
    try {
        StoreLaunchLine(line, session);
        Require(given >= needed);
        return needed;
    } catch (const RuntimeError& error) {
        if (error.Number == SubscriptOutOfRange) {
            Require(given < needed);
            return given;
        }
        Require(given >= numberField && (error.Number == TypeMismatch || error.Number == Overflow));
        return numberField - 1;
    }
}

void ReadConnectionText(const Session& session)
{
    try {
        ParseConnectionText(AssembleConnectionText(session));
    } catch (const RuntimeError& error) {
        Require(error.Number == BadConnectionText);
    }
}

void StoreLine(const QString& line)
{
    constexpr qsizetype numberAt = 5;
    Session session;
    const QStringList before = FieldsOf(session);
    const QStringList given = FieldsOf(line);
    const qsizetype stored = StoredFields(line, given.size(), session);
    const QStringList after = FieldsOf(session);
    for (qsizetype field = 0; field < after.size(); ++field)
        if (field != numberAt || stored <= numberAt)
            Require(after[field] == (field < stored ? given[field] : before[field]));
    ReadConnectionText(session);
}

void ReadLaunch(const QByteArray& bytes)
{
    TakeArguments(bytes);
    StoreLine(QString::fromUtf8(bytes));
}

const Target launchLine("launch-line", ReadLaunch);

} // namespace
