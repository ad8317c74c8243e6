#pragma once

#include "addressbook/BookGrids.h"
#include "support/program/Program.h"
#include "toolkit/fields/ComboBox.h"

#include <gtest/gtest.h>

namespace tsms {
class Form;
} // namespace tsms

namespace tsms::test {

/// The program with a small address book in its database:
///   1 청년부: 1 김하늘 010-0000-0001, 2 이바다 01000000002
///   2 성가대: 3 박나무 011-000-0003
///   none:     4 최구름 016-000-0004
class AddressBookTest : public ::testing::Test
{
protected:
    void SetUp() override;

    /// Opens the address book, runs `act` in it, and leaves it by Esc unless it is gone by then.
    void InBook(const std::function<void()>& act);

    QWidget& Book() { return *book_; }
    bool BookIsOpen() const;
    QWidget& At(const QString& name) { return program.On<QWidget>(Book(), name); }
    fpSpread& Browse() { return program.On<fpSpread>(Book(), u"fpSpreadMst"_q); }
    fpSpread& Chosen() { return program.On<fpSpread>(Book(), u"fpSpread"_q); }
    ComboBox& Filter() { return program.On<ComboBox>(Book(), u"CbGroup"_q); }

    void Press(const QString& name) { ClickOn(At(name)); }
    void ShowGroups() { Press(u"OptType(1)"_q); }
    void ShowMembers() { Press(u"OptType(0)"_q); }
    /// Chooses an entry of the filter as a person does.
    void ChooseFilter(int entry);

    /// Rows of a grid that are on view: the texts of these columns.
    static QList<QStringList> RowsOf(fpSpread& grid, const QList<int>& columns);
    QList<QStringList> Members() { return RowsOf(Browse(), {MemberGroup, MemberName, MemberPhone}); }
    QStringList Groups();
    QList<QStringList> People() { return RowsOf(Chosen(), {ChosenName, ChosenPhone}); }
    /// The row with that text in a column; fails when there is none.
    static int RowWith(fpSpread& grid, int column, const QString& text);
    int MemberRow(const QString& name) { return RowWith(Browse(), MemberName, name); }
    int GroupRow(const QString& name) { return RowWith(Browse(), GroupName, name); }

    /// Ticks these rows of the browse list and presses "add".
    void AddMembers(const QStringList& names);
    void AddGroups(const QStringList& names);

    /// Clicks a cell of the browse list that opens a dialog, and runs `act` in that dialog.
    void InDialog(const QString& form, int column, int row, const std::function<void(QWidget&)>& act);
    /// The same with a button.
    void InDialog(const QString& form, const QString& button, const std::function<void(QWidget&)>& act);

    void Fill(int groups, int membersOfEach); ///< in place of what is there
    QList<QStringList> Stored(const QString& table, const QString& columns);

    Program program;

private:
    Form* book_ = nullptr;
};

/// What the server says of a statement that it cannot read.
Box RefusedBox(const QString& words);

} // namespace tsms::test
