#include "store/odbc/OdbcErrors.h"

#include "store/engine/DatabaseError.h"

#include <algorithm>
#include <optional>

namespace tsms {

namespace {

/// Error numbers of the server (sys.messages), and those that FreeTDS gives its own errors (from 20000).
struct NativeNumber
{
    long native;
    long number;
};

constexpr NativeNumber NativeNumbers[] = {
    {208, NoSuchTable},
    {220, DataOverflow},
    {229, PermissionDenied},
    {230, PermissionDenied},
    {232, DataOverflow},
    {235, CannotConvert},
    {241, CannotConvert},
    {242, CannotConvert},
    {244, DataOverflow},
    {245, CannotConvert},
    {248, DataOverflow},
    {262, PermissionDenied},
    {293, CannotConvert},
    {295, CannotConvert},
    {515, IntegrityViolation},
    {547, IntegrityViolation},
    {911, CommunicationFailure}, // no such database: to its user a server that is not there
    {2601, IntegrityViolation},
    {2627, IntegrityViolation},
    {2628, DataOverflow},
    {4060, CommunicationFailure},
    {4064, CommunicationFailure},
    {6005, CommunicationFailure}, // shuts down
    {8114, CannotConvert},
    {8115, DataOverflow},
    {8152, DataOverflow},
    {17142, CommunicationFailure}, // paused
    {18401, CommunicationFailure}, // starts up
    {18450, LoginRefused},
    {18451, LoginRefused},
    {18452, LoginRefused},
    {18456, LoginRefused},
    {18470, LoginRefused},
    {18486, LoginRefused},
    {18487, LoginRefused},
    {18488, LoginRefused},
    {20002, CommunicationFailure},
    {20003, CommandTimedOut},
    {20004, CommunicationFailure},
    {20006, CommunicationFailure},
    {20009, CommunicationFailure},
    {20013, CommunicationFailure},
    {20017, CommunicationFailure},
    {20020, CommunicationFailure},
    {20047, CommunicationFailure},
    {UserNotice, UserNotice},
};

std::optional<long> NumberOfNative(long native)
{
    for (const NativeNumber& one : NativeNumbers)
        if (one.native == native)
            return one.number;
    return std::nullopt;
}

std::optional<long> NumberOfState(QStringView state)
{
    if (state == u"HYT00" || state == u"HYT01" || state == u"S1T00")
        return CommandTimedOut;
    if (state.startsWith(u"08"))
        return CommunicationFailure;
    if (state == u"28000")
        return LoginRefused;
    if (state == u"23000")
        return IntegrityViolation;
    return std::nullopt;
}

bool IsOfAValue(long number)
{
    return number == CannotConvert || number == DataOverflow;
}

long NumberOf(const OdbcDiagnostic& record, OdbcPhase phase)
{
    std::optional<long> number = NumberOfNative(record.native);
    // Where the link is at fault, what looks like a value's error is the operating system's own number.
    if (!number || (IsOfAValue(*number) && record.state.startsWith(u"08")))
        number = NumberOfState(record.state);
    if (phase == OdbcPhase::Opening && number == CommandTimedOut)
        return CommunicationFailure;
    // Where there is no link, what a driver has to say of its own accord is why there is none.
    if (phase != OdbcPhase::Running && !number && record.native == 0)
        return CommunicationFailure;
    return number.value_or(StatementFailure);
}

/// Without the names in brackets that stand before it. What the server says comes behind its own name, and
/// may begin with a bracket too.
QString OwnWords(const QString& text)
{
    QStringView rest = text;
    while (rest.startsWith(u'[') && rest.contains(u']')) {
        const qsizetype end = rest.indexOf(u']') + 1;
        const bool last = rest.first(end) == u"[SQL Server]";
        rest = rest.sliced(end);
        if (last)
            break;
    }
    return rest.toString();
}

bool IsWarning(const OdbcDiagnostic& record)
{
    return record.state.startsWith(u"01");
}

/// Errors that the server tells together with what follows from them, in either order: a quote that is not
/// closed with the word behind it, a missing database with the log-in that it ends.
constexpr long Causes[] = {105, 911, 4060, 4064};

/// The record that tells what went wrong.
const OdbcDiagnostic& Deciding(const QList<OdbcDiagnostic>& records)
{
    for (const OdbcDiagnostic& record : records)
        if (std::find(std::begin(Causes), std::end(Causes), record.native) != std::end(Causes))
            return record;
    const auto failure = std::find_if_not(records.begin(), records.end(), IsWarning);
    return failure == records.end() ? records.first() : *failure;
}

} // namespace

RuntimeError OdbcError(const QList<OdbcDiagnostic>& records, OdbcPhase phase)
{
    if (records.isEmpty())
        return RuntimeError(phase == OdbcPhase::Running ? StatementFailure : CommunicationFailure,
                            QStringLiteral("ODBC 드라이버가 원인을 알리지 않은 오류입니다."));
    const OdbcDiagnostic& record = Deciding(records);
    return RuntimeError(NumberOf(record, phase), OwnWords(record.text));
}

bool IsFailure(const QList<OdbcDiagnostic>& records)
{
    return !std::all_of(records.begin(), records.end(), IsWarning);
}

bool IsMissingDriver(const QList<OdbcDiagnostic>& records)
{
    // The driver manager's own states, and the way in which unixODBC tells of a library that is not there.
    return std::any_of(records.begin(), records.end(), [](const OdbcDiagnostic& record) {
        return record.state == u"IM002" || record.state == u"IM003" || record.state == u"IM004" ||
               (IsWarning(record) && record.text.contains(u"Can't open lib"));
    });
}

} // namespace tsms
