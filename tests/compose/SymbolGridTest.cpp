#include "compose/SymbolGrid.h"
#include "runtime/RuntimeError.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QSet>
#include <QStringList>

using namespace tsms;
using namespace tsms::test;

TEST(SymbolGrid, ReadsAsTheProductOfColumnAndRow)
{
    const QStringList rows{u"☆☎☏☜＠♪℡※"_q, u"☎☜♪※○◎◆■"_q,  u"☏♪★◎□▲→↓"_q,
                           u"☜※◎■▼↓◀♠"_q,  u"＠○□▼↔▶♧◐"_q, u"♪◎▲↓▶♣▒÷"_q};
    for (int row = 1; row <= SymbolRows; ++row)
        for (int column = 1; column <= SymbolColumns; ++column)
            EXPECT_EQ(SymbolAt(column, row), QString(rows[row - 1][column - 1])) << column << "," << row;
}

TEST(SymbolGrid, TwentyTwoSymbolsOfTheTableStandInNoCell)
{
    QSet<QString> shown;
    for (int row = 1; row <= SymbolRows; ++row)
        for (int column = 1; column <= SymbolColumns; ++column)
            shown += SymbolAt(column, row);
    const QString absent = u"●◇△▽←↑〓◁▷♤♡♥⊙◈▣◑▤▥▨▧§≠"_q;
    ASSERT_EQ(absent.size(), 22);
    for (const QChar symbol : absent)
        EXPECT_FALSE(shown.contains(QString(symbol))) << QString(symbol).toStdString();
    EXPECT_EQ(shown.size(), 49 - 22);
}

TEST(SymbolGrid, HasFortyNineEntriesAndNoMore)
{
    EXPECT_EQ(SymbolTable(0), u"☆"_q);
    EXPECT_EQ(SymbolTable(9), u"○"_q);
    EXPECT_EQ(SymbolTable(48), u"≠"_q);
    EXPECT_THROW(SymbolTable(49), RuntimeError);
    EXPECT_THROW(SymbolTable(-1), RuntimeError);
}
