#include "support/program/AddressBook.h"

#include "toolkit/windows/Form.h"

#include <QtTest/QTest>

namespace tsms::test {

void AddressBookTest::SetUp()
{
    program.database.Execute(u"INSERT INTO SMSGroupMst (GroupNm) VALUES ('청년부'), ('성가대')"_q);
    program.database.Execute(u"INSERT INTO SMSGroupSub (GroupCd, GSubNm, GSPhone) VALUES "
                             "(1, '김하늘', '010-0000-0001'), (1, '이바다', '01000000002'), "
                             "(2, '박나무', '011-000-0003'), (NULL, '최구름', '016-000-0004')"_q);
    ASSERT_TRUE(program.Start());
}

void AddressBookTest::InBook(const std::function<void()>& act)
{
    WhenShown(u"dlgSMSGroupSelect"_q, [this, act](QWidget& dialog) {
        book_ = static_cast<Form*>(&dialog);
        act();
        if (BookIsOpen())
            PressKey(dialog, Qt::Key_Escape);
        EXPECT_FALSE(BookIsOpen());
    });
    program.Click(u"BtnFuncMain(0)"_q);
    EXPECT_NE(book_, nullptr);
    book_ = nullptr;
}

bool AddressBookTest::BookIsOpen() const
{
    return Form::Find(u"dlgSMSGroupSelect"_q) == book_;
}

void AddressBookTest::ChooseFilter(int entry)
{
    Filter().setFocus();
    PressKey(Filter(), Qt::Key_Home);
    for (int i = 0; i < entry; ++i)
        PressKey(Filter(), Qt::Key_Down);
}

QList<QStringList> AddressBookTest::RowsOf(fpSpread& grid, const QList<int>& columns)
{
    QList<QStringList> rows;
    for (int row = 1; row <= grid.Cells().MaxRows(); ++row) {
        if (grid.RowHidden(row))
            continue;
        QStringList texts;
        for (const int column : columns)
            texts += grid.Cells().Text(column, row);
        rows += texts;
    }
    return rows;
}

QStringList AddressBookTest::Groups()
{
    QStringList names;
    for (const QStringList& row : RowsOf(Browse(), {GroupName}))
        names += row.first();
    return names;
}

int AddressBookTest::RowWith(fpSpread& grid, int column, const QString& text)
{
    for (int row = 1; row <= grid.Cells().MaxRows(); ++row)
        if (grid.Cells().Text(column, row) == text)
            return row;
    ADD_FAILURE() << "no row with " << text.toStdString();
    return 1;
}

void AddressBookTest::AddMembers(const QStringList& names)
{
    for (const QString& name : names)
        ClickCell(Browse(), MemberTick, MemberRow(name));
    Press(u"BtnFuncAdd(0)"_q);
}

void AddressBookTest::AddGroups(const QStringList& names)
{
    for (const QString& name : names)
        ClickCell(Browse(), GroupTick, GroupRow(name));
    Press(u"BtnFuncAdd(0)"_q);
}

void AddressBookTest::InDialog(const QString& form, int column, int row,
                               const std::function<void(QWidget&)>& act)
{
    bool shown = false;
    WhenShown(form, [&shown, act](QWidget& dialog) {
        shown = true;
        act(dialog);
    });
    ClickCell(Browse(), column, row);
    EXPECT_TRUE(shown);
}

void AddressBookTest::InDialog(const QString& form, const QString& button,
                               const std::function<void(QWidget&)>& act)
{
    bool shown = false;
    WhenShown(form, [&shown, act](QWidget& dialog) {
        shown = true;
        act(dialog);
    });
    Press(button);
    EXPECT_TRUE(shown);
}

void AddressBookTest::Fill(int groups, int membersOfEach)
{
    program.database.Execute(u"DELETE FROM SMSGroupMst"_q);
    program.database.Execute(u"DELETE FROM SMSGroupSub"_q);
    QStringList names;
    for (int group = 1; group <= groups; ++group)
        names += u"'그룹%1'"_q.arg(group);
    program.database.Insert(u"SMSGroupMst (GroupNm)"_q, names);
    QStringList members;
    for (const QStringList& group : Stored(u"SMSGroupMst"_q, u"GroupCd"_q))
        for (int i = 0; i < membersOfEach; ++i)
            members +=
                u"%1, '이름%2', '010-%2'"_q.arg(group.first()).arg(members.size() + 1, 8, 10, QChar(u'0'));
    program.database.Insert(u"SMSGroupSub (GroupCd, GSubNm, GSPhone)"_q, members);
}

QList<QStringList> AddressBookTest::Stored(const QString& table, const QString& columns)
{
    return program.database.Rows(u"SELECT %1 FROM %2 ORDER BY 1"_q.arg(columns, table));
}

Box RefusedBox(const QString& words)
{
    return {u" - 오류!!!"_q, u"☞ : "_q + words, MsgBoxCritical};
}

} // namespace tsms::test
