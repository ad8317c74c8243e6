#include "tsms-start/ConnectionList.h"

#include "support/Words.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

namespace tsms::test {

namespace {

class SavedConnections : public ::testing::Test
{
protected:
    QString Put(const QString& name)
    {
        SavedConnection connection;
        connection.name = name;
        return ConnectionList(settings_).Put(connection);
    }
    QStringList Names()
    {
        const ConnectionList list(settings_);
        QStringList names;
        for (const SavedConnection& one : list.All())
            names += one.name;
        return names;
    }

    QTemporaryDir folder_;
    QSettings settings_{folder_.filePath(u"a.ini"_q), QSettings::IniFormat};
};

} // namespace

TEST_F(SavedConnections, AreNoneAtFirst)
{
    EXPECT_EQ(Names(), QStringList());
    EXPECT_EQ(ConnectionList(settings_).Chosen(), -1);
}

TEST_F(SavedConnections, ComeBackWithEveryField)
{
    SavedConnection connection{{},          u"본사; \"1\""_q, SavedConnection::Kind::Server,
                               u"/a"_q,     u"s\\i"_q,        u"1434"_q,
                               u"Sms,Db"_q, u"로그인"_q,      true,
                               u"-7"_q,     u" 3층 "_q};
    connection.id = ConnectionList(settings_).Put(connection);
    EXPECT_FALSE(connection.id.isEmpty());
    EXPECT_EQ(ConnectionList(settings_).All(), QList{connection});
}

TEST_F(SavedConnections, StandInTheOrderInWhichTheyCame)
{
    Put(u"나"_q);
    Put(u"가"_q);
    EXPECT_EQ(Names(), (QStringList{u"나"_q, u"가"_q}));
}

TEST_F(SavedConnections, TakeTheirOwnPlaceWhenTheyAreChanged)
{
    SavedConnection first;
    first.name = u"가"_q;
    first.id = Put(u"가"_q);
    Put(u"나"_q);
    first.name = u"다"_q;
    ConnectionList(settings_).Put(first);
    EXPECT_EQ(Names(), (QStringList{u"다"_q, u"나"_q}));
}

TEST_F(SavedConnections, RememberTheChosenOne)
{
    const QString first = Put(u"가"_q);
    Put(u"나"_q);
    EXPECT_EQ(ConnectionList(settings_).Chosen(), 1);
    ConnectionList(settings_).Choose(first);
    EXPECT_EQ(ConnectionList(settings_).Chosen(), 0);
}

TEST_F(SavedConnections, LeaveNothingBehindOfOneThatIsRemoved)
{
    Put(u"가"_q);
    const QString second = Put(u"나"_q);
    ConnectionList(settings_).Remove(second);
    EXPECT_EQ(Names(), QStringList{u"가"_q});
    EXPECT_EQ(ConnectionList(settings_).Chosen(), 0);
    settings_.sync();
    QFile file(settings_.fileName());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_FALSE(file.readAll().contains(second.toUtf8()));
}

TEST_F(SavedConnections, HaveTheFirstOneChosenWhenNobodyKnows)
{
    Put(u"가"_q);
    settings_.remove(u"chosen"_q);
    EXPECT_EQ(ConnectionList(settings_).Chosen(), 0);
}

} // namespace tsms::test
