#include "store/engine/ConnectionText.h"

#include "runtime/RuntimeError.h"
#include "session/Session.h"
#include "store/engine/DatabaseError.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

TEST(ConnectionText, IsAssembledInItsExactOrder)
{
    Session session;
    session.DBCatalog = u"SmsDb"_q;
    session.DBServer = u"10.0.0.5"_q;
    session.DBPort = u"1433"_q;
    session.DBUser = u"sa"_q;
    session.DBPassword = u" p w"_q;
    EXPECT_EQ(
        AssembleConnectionText(session),
        u"Provider=SQLOLEDB.1;Password= p w;Persist Security Info=True;User ID=sa;Initial Catalog=SmsDb;Data Source=10.0.0.5,1433"_q);
}

TEST(ConnectionText, AssembledTextsAreTakenApartAgain)
{
    Session session;
    session.DBCatalog = u"/home/사무실/문자 메시지.db"_q;
    session.DBServer = u"(embedded)"_q;
    session.DBPort = u"0"_q;
    session.DBUser = u"sa"_q;
    session.DBPassword = u"p=w'x\"y"_q;
    const ConnectionParts parts = ParseConnectionText(AssembleConnectionText(session));
    EXPECT_EQ(parts.catalog, session.DBCatalog);
    EXPECT_EQ(parts.server, session.DBServer);
    EXPECT_EQ(parts.port, session.DBPort);
    EXPECT_EQ(parts.user, session.DBUser);
    EXPECT_EQ(parts.password, session.DBPassword);
}

TEST(ConnectionText, ThePortStandsBehindTheLastComma)
{
    EXPECT_EQ(ParseConnectionText(u"Data Source=a,b,1433").server, u"a,b"_q);
    EXPECT_EQ(ParseConnectionText(u"Data Source=,1433").server, QString());
    EXPECT_EQ(ParseConnectionText(u"Data Source=,1433").port, u"1433"_q);
    EXPECT_EQ(ParseConnectionText(u"Data Source=host").server, u"host"_q);
    EXPECT_EQ(ParseConnectionText(u"Data Source=host").port, QString());
}

TEST(ConnectionText, KeywordsIgnoreCaseAndBlanksAround)
{
    EXPECT_EQ(ParseConnectionText(u" data source = host,1 ; USER id=x").server, u"host"_q);
    EXPECT_EQ(ParseConnectionText(u" data source = host,1 ; USER id=x").user, u"x"_q);
}

TEST(ConnectionText, OfAKeywordGivenTwiceTheLastCounts)
{
    // A password with ";Data Source=" in it does not lead elsewhere.
    EXPECT_EQ(ParseConnectionText(u"Password=x;Data Source=evil,1;Data Source=good,2").server, u"good"_q);
}

TEST(ConnectionText, AQuotedValueMayHoldASemicolon)
{
    EXPECT_EQ(ParseConnectionText(u"Password=\"a;b\"\"c\";User ID='d''e'").password, u"a;b\"c"_q);
    EXPECT_EQ(ParseConnectionText(u"Password=\"a;b\"\"c\";User ID='d''e'").user, u"d'e"_q);
}

TEST(ConnectionText, ATextThatIsNoPairsRaises)
{
    for (const QString& broken : {u"x"_q, u"=x"_q, u"Password='x"_q, u"Password='x'y;a=b"_q}) {
        try {
            ParseConnectionText(broken);
            ADD_FAILURE() << broken.toStdString();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, BadConnectionText);
        }
    }
}

} // namespace tsms::test
