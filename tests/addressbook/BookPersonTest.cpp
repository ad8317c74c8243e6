#include "addressbook/BookPerson.h"

#include "runtime/Text.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <random>

using namespace tsms;
using namespace tsms::test;

namespace {

BookPerson Person(const QString& phone)
{
    return {u"1"_q, u"김하늘"_q, phone};
}

QList<BookPerson> People(const QStringList& phones)
{
    QList<BookPerson> people;
    for (const QString& phone : phones)
        people += Person(phone);
    return people;
}

QStringList Phones(const QList<BookPerson>& people)
{
    QStringList phones;
    for (const BookPerson& person : people)
        phones += person.phone;
    return phones;
}

TEST(TakenPeople, AMemberIsTakenUnlessItsNumberIsChosen)
{
    PhoneSet chosen;
    chosen.Insert(u"010-1");
    EXPECT_EQ(Phones(TakeUnchosen(People({u"0101"_q, u"010-2"_q, u"010-3"_q}), chosen)),
              QStringList({u"010-2"_q, u"010-3"_q}));
}

TEST(TakenPeople, AMemberKeepsOutALaterOneOfItsNumberAndNoOther)
{
    PhoneSet chosen;
    EXPECT_EQ(Phones(TakeUnchosen(People({u"010-1"_q, u"010.1"_q, u"010-2"_q}), chosen)),
              QStringList({u"010-1"_q, u"010-2"_q}));
    EXPECT_TRUE(chosen.Contains(u"0102"));
}

TEST(TakenPeople, TheFirstChosenMemberOfAGroupKeepsAllLaterOnesOut)
{
    PhoneSet chosen;
    chosen.Insert(u"010-2");
    EXPECT_EQ(Phones(TakeUpToChosen(People({u"010-1"_q, u"0102"_q, u"010-3"_q}), chosen)),
              QStringList({u"010-1"_q}));
    EXPECT_FALSE(chosen.Contains(u"010-3"));
}

TEST(TakenPeople, AMemberOfTheGroupItselfKeepsLaterOnesOutToo)
{
    PhoneSet chosen;
    EXPECT_EQ(Phones(TakeUpToChosen(People({u"010-1"_q, u"010.1"_q, u"010-3"_q}), chosen)),
              QStringList({u"010-1"_q}));
}

TEST(TakenPeople, TwoBlankNumbersAreTheSame)
{
    PhoneSet chosen;
    EXPECT_EQ(TakeUnchosen(People({u""_q, u"  "_q, u"--"_q}), chosen).size(), 1);
}

/// The chosen list and the add, told as they are: a scan of all rows for each candidate.
struct ScannedList
{
    struct Row
    {
        QString phone;
        bool hidden;
    };
    QList<Row> rows;

    bool Marks(const QString& phone) const
    {
        bool mark = false;
        for (const Row& row : rows)
            if (!row.hidden && ComparedNumber(row.phone) == ComparedNumber(phone))
                mark = true;
        return mark;
    }
    void AddMembers(const QList<BookPerson>& members)
    {
        for (const BookPerson& member : members)
            if (!Marks(member.phone))
                rows += {Trim(member.phone), false};
    }
    void AddGroup(const QList<BookPerson>& group)
    {
        bool mark = false;
        for (const BookPerson& member : group) {
            mark = mark || Marks(member.phone);
            if (!mark)
                rows += {Trim(member.phone), false};
        }
    }
};

TEST(TakenPeople, EveryAddEqualsThatOfAFullScanWhateverWasAddedAndRemovedBefore)
{
    std::mt19937 random(20120530);
    const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    const QStringList signs{u""_q, u"-"_q, u"."_q, u"/"_q, u" "_q};
    int taken = 0;
    for (int round = 0; round < 200; ++round) {
        ScannedList scanned;
        QStringList rows; // what the quick way made of it
        PhoneSet chosen;
        for (int step = 0; step < 12; ++step) {
            QList<BookPerson> people;
            for (int i = below(8); i > 0; --i)
                people += Person(signs[below(5)] + u"010"_q + signs[below(5)] + QString::number(below(12)));
            if (below(3) == 0 && !scanned.rows.isEmpty()) {
                ScannedList::Row& row = scanned.rows[below(static_cast<int>(scanned.rows.size()))];
                if (!row.hidden)
                    chosen.Remove(row.phone);
                row.hidden = true;
            } else if (below(2) == 0) {
                scanned.AddMembers(people);
                rows += Phones(TakeUnchosen(people, chosen));
            } else {
                scanned.AddGroup(people);
                rows += Phones(TakeUpToChosen(people, chosen));
            }
            ASSERT_EQ(rows.size(), scanned.rows.size());
            for (qsizetype i = 0; i < rows.size(); ++i)
                ASSERT_EQ(Trim(rows[i]), scanned.rows[i].phone);
        }
        taken += static_cast<int>(rows.size());
    }
    EXPECT_GT(taken, 1000);
}

} // namespace
