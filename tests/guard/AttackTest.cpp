#include "guard/GuardedFields.h"
#include "support/AttackTexts.h"
#include "support/database/TestEngine.h"
#include "support/EveryCase.h"

using namespace tsms;
using namespace tsms::test;

namespace {

/// A text that is data, whatever it reminds of.
struct HarmlessText
{
    QString text;
    QString brief;
};

const QList<HarmlessText> HarmlessTexts = {
    {u"a -- b"_q, u"--a"_q},
    {u"a; DROP TABLE SMSSetup;"_q, u"a;b"_q},
    {u"/* a */ *"_q, u"/**/"_q},
    {u"SELECT SMSPWD FROM SMSSetup"_q, u"SET"_q},
    {u"[a] ]b["_q, u"[a]"_q},
    {u"100% _a_ %"_q, u"%_"_q},
    {u"\"a\" `b`"_q, u"\"`a"_q},
    {u"? {call x} @a :b $1"_q, u"?{a}"_q},
    {u"’x＇,＇y‘ OR ＇1＇"_q, u"’＇’"_q},
    {u"a\\b \\"_q, u"\\a\\"_q},
    {u"첫 줄\r\nGO\r\n둘째 줄"_q, u"GO"_q},
};

/// The ways in which a person, or the program, puts this text into the field.
QList<Way> WaysFor(const GuardedField& field, const QString& text)
{
    QList<Way> ways = field.ways;
    // No key makes a NUL or half a pair, and in a box of one line the Enter key goes on to the next.
    if (text.contains(QChar(QChar::Null)) || !text.isValidUtf16() ||
        (text.contains(u'\n') && !field.typesLines))
        ways.removeAll(Way::Typed);
    return ways;
}

QString NameOf(Way way)
{
    return way == Way::Typed ? u"typed"_q : way == Way::Pasted ? u"pasted"_q : u"given"_q;
}

class GuardedFieldTest : public GuardBench
{
protected:
    void ExpectFailure(const GuardedField& field, const QString& words)
    {
        ExpectBoxes(field.ahead);
        ExpectBoxes({{RefusedBox(words)}});
        ExpectBoxes(field.failed);
    }
    void Store(const GuardedField& field, const QString& text, Way way)
    {
        ExpectBoxes(field.ahead);
        ExpectBoxes(field.done);
        field.work(*this, text, way);
    }
};

using Attempt = std::tuple<GuardedField, AttackText>;

/// Every attack on every field, or one on each field: the statements themselves meet all of them in any case.
QList<Attempt> Attempts()
{
    const QList<GuardedField> fields = GuardedFields();
    QList<Attempt> attempts;
    for (int field = 0; field < fields.size(); ++field)
        for (int attack = 0; attack < AttackTexts.size(); ++attack)
            // The second engine meets the other half of the attacks.
            if (IsEveryCaseAsked() ||
                attack == (field + (ChosenTestEngine() == TestEngine::Embedded ? 0 : 8)) % AttackTexts.size())
                attempts += {fields[field], AttackTexts[attack]};
    return attempts;
}

class AttackOnAField : public GuardedFieldTest, public ::testing::WithParamInterface<Attempt>
{
};

TEST_P(AttackOnAField, IsRefusedAsASyntaxErrorReachesNoServerAndChangesNoTable)
{
    const auto& [field, attack] = GetParam();
    const QString text = field.Fit(attack.text, attack.brief);
    const QString near = text == field.lead + attack.text ? attack.near : attack.nearBrief;
    for (const Way way : WaysFor(field, text)) {
        SCOPED_TRACE(NameOf(way).toStdString());
        const TableContents before = Tables();
        ExpectFailure(field, u"Incorrect syntax near '%1'."_q.arg(near));
        field.work(*this, text, way);
        EXPECT_EQ(held, field.Kept(text));
        EXPECT_EQ(seen, field.around);
        EXPECT_EQ(ChangedSince(before), QStringList());
        ExpectAtRest();
    }
}

INSTANTIATE_TEST_SUITE_P(Fields, AttackOnAField, ::testing::ValuesIn(Attempts()), [](const auto& attempt) {
    return std::get<0>(attempt.param).name + "_" + std::get<1>(attempt.param).name;
});

class AField : public GuardedFieldTest, public ::testing::WithParamInterface<GuardedField>
{
protected:
    QStringList ToldOfTheText() const { return seen.filter(held); }
};

TEST_P(AField, LeavesALoneApostropheToTheServerWhichRefusesTheStatementInItsOwnWords)
{
    const GuardedField& field = GetParam();
    const QString text = field.Fit(u"O'Neil"_q, u"x'y"_q);
    for (const Way way : field.ways) {
        SCOPED_TRACE(NameOf(way).toStdString());
        const TableContents before = Tables();
        ExpectFailure(field, u"Unclosed quotation mark after the character string '%1'."_q.arg(field.tail));
        field.work(*this, text, way);
        EXPECT_EQ(held, text);
        const QStringList refused = ToldOfTheText();
        ASSERT_EQ(refused.size(), 1);
        EXPECT_TRUE(refused[0].contains(u'\'' + text) || refused[0].contains(u'%' + text));
        EXPECT_EQ(refused[0].section(u'\'', -1), field.tail);
        seen.removeAll(refused[0]);
        EXPECT_EQ(seen, field.around);
        EXPECT_EQ(ChangedSince(before), QStringList());
        ExpectAtRest();
    }
}

INSTANTIATE_TEST_SUITE_P(Fields, AField, ::testing::ValuesIn(GuardedFields()),
                         [](const auto& field) { return field.param.name; });

QList<GuardedField> StoredFields()
{
    QList<GuardedField> fields = GuardedFields();
    fields.removeIf([](const GuardedField& field) { return field.stored.isEmpty(); });
    return fields;
}

using AStoredField = AField;

TEST_P(AStoredField, KeepsMarksOfTheLanguageAsTheyStand)
{
    const GuardedField& field = GetParam();
    for (const HarmlessText& harmless : HarmlessTexts) {
        const QString text = field.Fit(harmless.text, harmless.brief);
        for (const Way way : WaysFor(field, text)) {
            SCOPED_TRACE(text.toStdString() + ", " + NameOf(way).toStdString());
            program.database.Execute(u"DELETE FROM SMSGroupSub WHERE GSubCd > 4"_q); // a name is there once
            program.database.Execute(u"DELETE FROM SMSGroupMst WHERE GroupCd > 2"_q);
            const TableContents before = Tables();
            Store(field, text, way);
            EXPECT_EQ(held, field.Kept(text));
            EXPECT_EQ(program.database.Value(field.stored), field.Kept(text));
            for (const QString& table : ChangedSince(before))
                EXPECT_TRUE(field.changes.contains(table)) << table.toStdString();
        }
    }
}

TEST_P(AStoredField, CanBeStoredAfterARefusal)
{
    const GuardedField& field = GetParam();
    const Way way = field.ways.first();
    ExpectFailure(field, u"Incorrect syntax near ','."_q);
    field.work(*this, field.Fit(u"x','y"_q, u"','"_q), way);
    const QString text = field.Fit(u"새 이름"_q, u"새"_q);
    Store(field, text, way);
    EXPECT_EQ(program.database.Value(field.stored), text);
    ExpectAtRest();
}

INSTANTIATE_TEST_SUITE_P(Fields, AStoredField, ::testing::ValuesIn(StoredFields()),
                         [](const auto& field) { return field.param.name; });

using RenameOfAGroup = GuardedFieldTest;

TEST_F(RenameOfAGroup, ReachesTheServerWholeOrNotAtAllWhateverStandsBehindAnApostrophe)
{
    const QStringList texts = {u"\u0001"_q, u"\u001A"_q, u"\u007F"_q,     u"\u0085"_q,   u"\u00A0"_q,
                               u"\u02BC"_q, u"\u2019"_q, u"\u2028"_q,     u"\uFEFF"_q,   u"\uFF07"_q,
                               u"\uFFFE"_q, u"\uFFFF"_q, u"\U0001F600"_q, QChar(0xD800), QChar(0xDC00)};
    for (const QString& text : texts) {
        SCOPED_TRACE(static_cast<int>(text.front().unicode()));
        const TableContents before = Tables();
        const qsizetype boxes = program.desktop.boxes.size();
        program.desktop.AllowBoxes();
        RenameGroup(u"x'"_q + text + u"y"_q, Way::Pasted);
        ASSERT_EQ(program.desktop.boxes.size(), boxes + 1);
        EXPECT_EQ(program.desktop.boxes.last().style, MsgBoxCritical);
        for (const QString& statement : seen)
            EXPECT_TRUE(statement.endsWith(u" WHERE GroupCd=1"_q)) << statement.toStdString();
        EXPECT_EQ(ChangedSince(before), QStringList());
    }
}

using HistorySearch = GuardedFieldTest;

TEST_F(HistorySearch, FindsWhatHoldsMarksOfTheLanguage)
{
    const QStringList columns{u"SendNm"_q, u"SendTelNo"_q, u"SMSContent"_q};
    for (const HarmlessText& harmless : HarmlessTexts) {
        const QString& text = harmless.text;
        if (text.contains(u'[') ||
            text.contains(u'\n')) // a bracket is a pattern's, and the box holds one line
            continue;
        for (int field = 0; field < columns.size(); ++field) {
            SCOPED_TRACE(columns[field].toStdString() + ": " + text.toStdString());
            program.database.Execute(u"DELETE FROM SMSLog_2012"_q);
            program.database.Execute(u"INSERT INTO SMSLog_2012 (SMSStatus, SendTime, %1) VALUES ('1', "
                                     u"'2012-05-30 10-00', 'a %2 b'), "
                                     "('1', '2012-05-30 11-00', 'ab')"_q.arg(columns[field], text));
            const TableContents before = Tables();
            SearchHistory(field, text, Way::Pasted);
            EXPECT_EQ(held, text);
            EXPECT_EQ(program.The<fpSpread>(u"fpSpreadSendList"_q).Cells().MaxRows(), 1);
            EXPECT_EQ(seen.size(), 1);
            EXPECT_EQ(ChangedSince(before), QStringList());
        }
    }
}

} // namespace
