#include "addressbook/RecipientRecord.h"
#include "addressbook/UserSMSFileRead.h"
#include "documents/Document.h"
#include "session/Session.h"
#include "shell/LaunchLine.h"
#include "support/ListOfRows.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace tsms::test {

namespace {

/// Runs an example of the document in an empty folder.
class MainProgramDocument : public ::testing::Test
{
protected:
    void Run(const QString& script)
    {
        QProcess shell;
        shell.setWorkingDirectory(folder.path());
        shell.start(u"sh"_q, {u"-c"_q, script});
        ASSERT_TRUE(shell.waitForFinished());
        EXPECT_EQ(shell.exitCode(), 0);
        EXPECT_EQ(shell.readAllStandardError(), QByteArray());
    }
    QByteArray Content(const QString& name)
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return file.readAll();
    }

    const QStringList examples = Blocks(u"main-program.md"_q, u"sh"_q);
    QTemporaryDir folder;
};

} // namespace

TEST_F(MainProgramDocument, ItsLaunchLineIsUnderstood)
{
    Run(u"tsms() { [ $# = 1 ] && printf '%s' \"$1\" > line; }\n"_q + examples.value(0));
    Session session;
    StoreLaunchLine(QString::fromUtf8(Content(u"line"_q)), session);
    EXPECT_EQ(session.DBCatalog, u"SmsDb"_q);
    EXPECT_EQ(session.DBServer, u"10.0.0.5"_q);
    EXPECT_EQ(session.DBPort, u"1433"_q);
    EXPECT_EQ(session.DBUser, u"sms"_q);
    EXPECT_EQ(session.DBPassword, u"p$ss \"word"_q);
    EXPECT_EQ(session.UserData1, 1);
    EXPECT_EQ(session.UserData2, u"본사 3층"_q);
}

TEST_F(MainProgramDocument, ItsRecipientFileIsRead)
{
    Run(examples.value(1));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"SMSData"_q});
    QFile file(folder.filePath(u"SMSData"_q));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.size(), 2 * RecipientRecord::Size);
    ListOfRows list;
    ReadRecipientRecords(file, list);
    ASSERT_EQ(list.rows.size(), 22U);
    EXPECT_EQ(list.rows[0], (ListOfRows::Row{u"1"_q, u"김하늘"_q, u"010-0000-0001"_q}));
    EXPECT_EQ(list.rows[1], (ListOfRows::Row{u"2"_q, u"이바다"_q, u"01000000002"_q}));
    EXPECT_EQ(list.rows[2], ListOfRows::Row());
}

TEST_F(MainProgramDocument, ItsRecipientFileCutsWhatIsTooLong)
{
    Run(QString(examples.value(1)).replace(u"김하늘"_q, u"a가나다라마바사아자차"_q));
    QFile file(folder.filePath(u"SMSData"_q));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.size(), 2 * RecipientRecord::Size);
    ListOfRows list;
    ReadRecipientRecords(file, list);
    EXPECT_EQ(list.rows[0].name, u"a가나다라마바사아자"_q);
    EXPECT_EQ(list.rows[1].name, u"이바다"_q);
}

} // namespace tsms::test
