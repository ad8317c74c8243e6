#include "documents/Document.h"
#include "store/engine/Tables.h"
#include "support/FixedClock.h"
#include "support/Words.h"
#include "tsms-db/Command.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

namespace tsms::test {

TEST(DatabaseDocument, ItsRightsAreThoseThatTheToolPrints)
{
    EXPECT_EQ(Blocks(u"database.md"_q, u"sql"_q).value(0), ServerGrants(u"sms"_q, {2026, 2026}));
}

TEST(DatabaseDocument, ItsCommandsAreUnderstood)
{
    static const QRegularExpression command(u"^    tsms-db ([^>]*) > "_q,
                                            QRegularExpression::MultilineOption);
    const FixedClock clock;
    int commands = 0;
    const QString text = DocumentText(u"database.md"_q);
    for (const QRegularExpressionMatch& match : command.globalMatch(text)) {
        QString out;
        QString err;
        QTextStream outStream(&out);
        QTextStream errStream(&err);
        const QStringList words = u"tsms-db "_q.append(match.captured(1)).split(u' ', Qt::SkipEmptyParts);
        EXPECT_EQ(RunDatabaseTool(words, clock, outStream, errStream), 0)
            << match.captured().toStdString() << err.toStdString();
        EXPECT_FALSE(out.isEmpty());
        ++commands;
    }
    EXPECT_EQ(commands, 5);
}

TEST(DatabaseDocument, ItListsEveryIndex)
{
    const QString text = DocumentText(u"database.md"_q);
    for (const TableDescription& table : AllTables({2026, 2026}))
        for (const QString& index : table.indexes)
            EXPECT_TRUE(text.contains(u"` | `"_q + index + u"` |"_q)) << index.toStdString();
}

} // namespace tsms::test
