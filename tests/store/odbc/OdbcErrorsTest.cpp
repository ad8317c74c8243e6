#include "store/odbc/OdbcErrors.h"

#include "store/engine/DatabaseError.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <utility>

namespace tsms::test {

namespace {

/// A record as FreeTDS words it.
OdbcDiagnostic Record(const QString& state, long native, const QString& words = u"words"_q)
{
    return {state, native, u"[FreeTDS][SQL Server]"_q + words};
}

struct NumberCase
{
    const char16_t* state;
    long native;
    long number;
};

long NumberOf(const NumberCase& one, OdbcPhase phase)
{
    return OdbcError({Record(QString::fromUtf16(one.state), one.native)}, phase).Number;
}

} // namespace

TEST(OdbcErrors, AStatementsErrorHasItsNumberByTheServersNumber)
{
    // States as coarse as FreeTDS gives them: most of the server's errors come as 42000.
    const NumberCase cases[] = {
        {u"42S02", 208, NoSuchTable},           {u"42000", 208, NoSuchTable},
        {u"42000", 102, StatementFailure},      {u"42000", 105, StatementFailure},
        {u"42S22", 207, StatementFailure},      {u"42S02", 3701, StatementFailure},
        {u"23000", 2627, IntegrityViolation},   {u"42000", 2601, IntegrityViolation},
        {u"42000", 547, IntegrityViolation},    {u"42000", 515, IntegrityViolation},
        {u"42000", 241, CannotConvert},         {u"22007", 242, CannotConvert},
        {u"42000", 245, CannotConvert},         {u"42000", 295, CannotConvert},
        {u"42000", 235, CannotConvert},         {u"42000", 8114, CannotConvert},
        {u"42000", 220, DataOverflow},          {u"22003", 8115, DataOverflow},
        {u"42000", 248, DataOverflow},          {u"22001", 8152, DataOverflow},
        {u"42000", 2628, DataOverflow},         {u"42000", 50000, UserNotice},
        {u"42000", 50001, StatementFailure},    {u"42000", 1205, StatementFailure},
        {u"08S01", 6005, CommunicationFailure},
    };
    for (const NumberCase& one : cases)
        EXPECT_EQ(NumberOf(one, OdbcPhase::Running), one.number) << one.native;
}

TEST(OdbcErrors, EveryNumberThatIsKnownIsOfItsKindWhereTheStateDoesNotTell)
{
    const std::pair<long, QList<long>> kinds[] = {
        {NoSuchTable, {208}},
        {PermissionDenied, {229, 230, 262}},
        {CannotConvert, {235, 241, 242, 245, 293, 295, 8114}},
        {DataOverflow, {220, 232, 244, 248, 2628, 8115, 8152}},
        {IntegrityViolation, {515, 547, 2601, 2627}},
        {LoginRefused, {18450, 18451, 18452, 18456, 18470, 18486, 18487, 18488}},
        {CommandTimedOut, {20003}},
        {CommunicationFailure,
         {911, 4060, 4064, 6005, 17142, 18401, 20002, 20004, 20006, 20009, 20013, 20017, 20020, 20047}}};
    for (const auto& [number, natives] : kinds)
        for (const long native : natives)
            EXPECT_EQ(NumberOf({u"42000", native, number}, OdbcPhase::Running), number) << native;
}

TEST(OdbcErrors, ADriversOwnErrorHasItsNumberByTheState)
{
    const NumberCase cases[] = {
        {u"HYT00", 0, CommandTimedOut},          {u"HYT01", 0, CommandTimedOut},
        {u"S1T00", 20003, CommandTimedOut},      {u"HY000", 20003, CommandTimedOut},
        {u"08S01", 0, CommunicationFailure},     {u"08S01", 10054, CommunicationFailure},
        {u"08S01", 232, CommunicationFailure},   {u"08S01", 242, CommunicationFailure},
        {u"08003", 0, CommunicationFailure},     {u"HY000", 20004, CommunicationFailure},
        {u"HY000", 20006, CommunicationFailure}, {u"HY000", 20017, CommunicationFailure},
        {u"HY000", 20047, CommunicationFailure}, {u"23000", 0, IntegrityViolation},
        {u"42S02", 0, StatementFailure},         {u"07002", 0, StatementFailure},
        {u"HY000", 0, StatementFailure},
    };
    for (const NumberCase& one : cases)
        EXPECT_EQ(NumberOf(one, OdbcPhase::Running), one.number)
            << QString::fromUtf16(one.state).toStdString() << ' ' << one.native;
}

TEST(OdbcErrors, WhatKeepsAConnectionFromOpeningIsADeadServerOrARefusedLogIn)
{
    const NumberCase cases[] = {
        {u"42000", 18456, LoginRefused},         {u"28000", 18456, LoginRefused},
        {u"28000", 18470, LoginRefused},         {u"28000", 0, LoginRefused},
        {u"08004", 911, CommunicationFailure},   {u"42000", 4060, CommunicationFailure},
        {u"08S01", 20009, CommunicationFailure}, {u"08001", 0, CommunicationFailure},
        {u"HYT00", 0, CommunicationFailure},     {u"S1T00", 20003, CommunicationFailure},
        {u"IM007", 0, CommunicationFailure},     {u"HY000", 0, CommunicationFailure},
        {u"42000", 17892, StatementFailure}, // a log-on trigger: the server has words of its own
        {u"42000", 50000, UserNotice},
    };
    for (const NumberCase& one : cases)
        EXPECT_EQ(NumberOf(one, OdbcPhase::Opening), one.number)
            << QString::fromUtf16(one.state).toStdString() << ' ' << one.native;
}

TEST(OdbcErrors, TheFirstRecordDecides)
{
    const RuntimeError refused = OdbcError({Record(u"42000"_q, 18456, u"Login failed for user 'sms'."_q),
                                            Record(u"08001"_q, 0, u"Unable to connect to data source"_q)},
                                           OdbcPhase::Opening);
    EXPECT_EQ(refused.Number, LoginRefused);
    EXPECT_EQ(refused.Description, u"Login failed for user 'sms'."_q);

    const RuntimeError closed =
        OdbcError({Record(u"08S01"_q, 20009), Record(u"08001"_q, 0)}, OdbcPhase::Opening);
    EXPECT_EQ(closed.Number, CommunicationFailure);

    const RuntimeError trigger = OdbcError(
        {Record(u"42000"_q, 50000, u"오늘은 쉽니다."_q), Record(u"42000"_q, 3609)}, OdbcPhase::Running);
    EXPECT_EQ(trigger.Number, UserNotice);
    EXPECT_EQ(trigger.Description, u"오늘은 쉽니다."_q);
}

TEST(OdbcErrors, AnUnclosedQuoteIsToldBeforeWhatItLeadsTo)
{
    const OdbcDiagnostic near = Record(u"42000"_q, 102, u"Incorrect syntax near 'Brien'."_q);
    const OdbcDiagnostic quote =
        Record(u"42000"_q, 105, u"Unclosed quotation mark after the character string ''."_q);
    for (const QList<OdbcDiagnostic>& records : {QList{near, quote}, QList{quote, near}}) {
        const RuntimeError error = OdbcError(records, OdbcPhase::Running);
        EXPECT_EQ(error.Number, StatementFailure);
        EXPECT_EQ(error.Description, u"Unclosed quotation mark after the character string ''."_q);
    }
}

TEST(OdbcErrors, AMissingDatabaseIsToldBeforeTheLogInThatItEnds)
{
    const OdbcDiagnostic failed = Record(u"42000"_q, 18456, u"Login failed for user 'sms'."_q);
    const OdbcDiagnostic missing = Record(u"42000"_q, 4060, u"Cannot open database."_q);
    for (const QList<OdbcDiagnostic>& records : {QList{failed, missing}, QList{missing, failed}}) {
        const RuntimeError error = OdbcError(records, OdbcPhase::Opening);
        EXPECT_EQ(error.Number, CommunicationFailure);
        EXPECT_EQ(error.Description, u"Cannot open database."_q);
    }
}

TEST(OdbcErrors, WhatADriverCannotNameIsACommunicationFailureWhereTheLinkHasDied)
{
    const OdbcDiagnostic unknown = Record(u"HY000"_q, 0, u"Unknown error"_q);
    EXPECT_EQ(OdbcError({unknown}, OdbcPhase::Cut).Number, CommunicationFailure);
    EXPECT_EQ(OdbcError({unknown}, OdbcPhase::Running).Number, StatementFailure);
    EXPECT_EQ(OdbcError({}, OdbcPhase::Cut).Number, CommunicationFailure);
}

TEST(OdbcErrors, WhatTheServerNamesStandsAlsoWhereTheLinkHasDied)
{
    EXPECT_EQ(OdbcError({Record(u"42000"_q, 50000)}, OdbcPhase::Cut).Number, UserNotice);
    EXPECT_EQ(OdbcError({Record(u"42000"_q, 1205)}, OdbcPhase::Cut).Number, StatementFailure);
    EXPECT_EQ(OdbcError({Record(u"HYT00"_q, 0)}, OdbcPhase::Cut).Number, CommandTimedOut);
}

TEST(OdbcErrors, AFailureBesideASuccessIsSeen)
{
    const OdbcDiagnostic message = Record(u"01000"_q, 0);
    EXPECT_FALSE(IsFailure({}));
    EXPECT_FALSE(IsFailure({message}));
    EXPECT_TRUE(IsFailure({message, Record(u"22018"_q, 245)}));
}

TEST(OdbcErrors, AWarningDoesNotDecideWhereThereIsAnError)
{
    const QList<OdbcDiagnostic> records{Record(u"01000"_q, 5701, u"Changed database context to 'SmsDb'."_q),
                                        Record(u"42000"_q, 547, u"The DELETE statement conflicted."_q),
                                        Record(u"01000"_q, 3621, u"The statement has been terminated."_q)};
    const RuntimeError error = OdbcError(records, OdbcPhase::Running);
    EXPECT_EQ(error.Number, IntegrityViolation);
    EXPECT_EQ(error.Description, u"The DELETE statement conflicted."_q);
}

TEST(OdbcErrors, WarningsAloneAreTheError)
{
    EXPECT_EQ(
        OdbcError({Record(u"01000"_q, 3621, u"The statement has been terminated."_q)}, OdbcPhase::Running)
            .Description,
        u"The statement has been terminated."_q);
}

TEST(OdbcErrors, AFailureWithoutARecordIsToldAllTheSame)
{
    EXPECT_EQ(OdbcError({}, OdbcPhase::Running).Number, StatementFailure);
    EXPECT_EQ(OdbcError({}, OdbcPhase::Opening).Number, CommunicationFailure);
    EXPECT_FALSE(OdbcError({}, OdbcPhase::Running).Description.isEmpty());
}

TEST(OdbcErrors, TheWordsAreTheServersOwn)
{
    struct Case
    {
        const char16_t* text;
        const char16_t* words;
    };
    const Case cases[] = {
        {u"[FreeTDS][SQL Server]Invalid object name 'a'.", u"Invalid object name 'a'."},
        {u"[unixODBC][FreeTDS][SQL Server]Invalid object name 'a'.", u"Invalid object name 'a'."},
        {u"[Microsoft][ODBC Driver 18 for SQL Server][SQL Server]Invalid object name 'a'.",
         u"Invalid object name 'a'."},
        {u"[Microsoft][ODBC Driver 18 for SQL Server]Login timeout expired", u"Login timeout expired"},
        {u"[unixODBC][Driver Manager]Data source name not found", u"Data source name not found"},
        {u"[FreeTDS][SQL Server][공지] 오늘은 쉽니다.", u"[공지] 오늘은 쉽니다."},
        {u"[FreeTDS][SQL Server]", u""},
        {u"[FreeTDS][SQL Server]Incorrect syntax near '['.", u"Incorrect syntax near '['."},
        {u"no brackets", u"no brackets"},
        {u"[open", u"[open"},
        {u"", u""},
    };
    for (const Case& one : cases)
        EXPECT_EQ(
            OdbcError({{u"42000"_q, 102, QString::fromUtf16(one.text)}}, OdbcPhase::Running).Description,
            QString::fromUtf16(one.words));
}

TEST(OdbcErrors, AMissingDriverIsToldFromADeadServer)
{
    EXPECT_TRUE(IsMissingDriver(
        {{u"01000"_q, 0, u"[unixODBC][Driver Manager]Can't open lib 'x' : file not found"_q}}));
    EXPECT_TRUE(IsMissingDriver({{u"IM002"_q, 0, u"[Microsoft][ODBC Driver Manager] not found"_q}}));
    EXPECT_TRUE(IsMissingDriver({{u"IM003"_q, 0, {}}}));
    EXPECT_TRUE(IsMissingDriver({{u"IM004"_q, 0, {}}}));
    EXPECT_FALSE(IsMissingDriver({Record(u"08S01"_q, 20009), Record(u"08001"_q, 0)}));
    EXPECT_FALSE(IsMissingDriver({Record(u"IM007"_q, 0)}));
    EXPECT_FALSE(IsMissingDriver({}));
}

} // namespace tsms::test
