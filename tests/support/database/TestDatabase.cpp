#include "support/database/TestDatabase.h"

#include "session/Session.h"
#include "store/embedded/EmbeddedConnection.h"
#include "store/embedded/EmbeddedTables.h"
#include "support/database/ScratchDatabase.h"
#include "support/server/TestServer.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QFile>

namespace tsms::test {

namespace {

constexpr qsizetype RowsOfAnInsert = 1000; // a server takes no more in one statement

QList<QStringList> TextsOf(const Recordset& records)
{
    QList<QStringList> rows;
    for (int row = 0; row < records.RecordCount(); ++row) {
        QStringList fields;
        for (int column = 0; column < records.FieldCount(); ++column)
            fields += records.IsNull(row, column) ? QStringLiteral("(null)") : records.Text(row, column);
        rows += fields;
    }
    return rows;
}

} // namespace

TestDatabase::TestDatabase(const Clock& clock, YearRange years, TestEngine engine, const QString& original)
    : clock_(clock)
{
    if (engine == TestEngine::Live) {
        scratch_ = BorrowScratchDatabase(years);
        return;
    }
    if (original.isEmpty())
        CreateEmbeddedDatabase(Path(), years, clock_);
    else
        EXPECT_TRUE(QFile::copy(original, Path())) << original.toStdString();
    if (engine == TestEngine::Server)
        server_ = std::make_unique<TestServer>(Path(), clock_);
}

TestDatabase::~TestDatabase()
{
    sqlite3_close(handle_);
    if (scratch_)
        GiveBack(std::move(scratch_));
}

QString TestDatabase::Path() const
{
    return folder_.filePath(QStringLiteral("문자메시지.db"));
}

QString TestDatabase::Folder() const
{
    return folder_.path();
}

void TestDatabase::Describe(Session& session) const
{
    if (scratch_)
        return scratch_->Describe(session);
    if (server_)
        return server_->Describe(session);
    session.DBCatalog = Path();
    session.DBServer = QStringLiteral("(embedded)");
    session.DBPort = QStringLiteral("1433");
    session.DBUser = QStringLiteral("sms");
    session.DBPassword = QStringLiteral("secret");
}

void TestDatabase::SetAccount(int balance)
{
    Execute(QStringLiteral("UPDATE SMSSetup SET SMSID='demo', SMSPWD='demo', SMSDNS='sms.example.kr', "
                           "SMSTelNo='02-1234-5678', SMSOrgNm='한빛교회', SMSRemainCnt=%1, "
                           "SMSWeb1='http://127.0.0.1:8790/join', SMSWeb2='http://127.0.0.1:8790/charge'")
                .arg(balance));
}

void TestDatabase::Execute(const QString& sql)
{
    if (scratch_)
        return scratch_->Link().Execute(sql);
    char* words = nullptr;
    if (sqlite3_exec(Handle(), sql.toUtf8().constData(), nullptr, nullptr, &words) != SQLITE_OK)
        ADD_FAILURE() << words << " in " << sql.toStdString();
    sqlite3_free(words);
}

void TestDatabase::Insert(const QString& into, const QStringList& rows)
{
    for (qsizetype first = 0; first < rows.size(); first += RowsOfAnInsert)
        Execute(QStringLiteral("INSERT INTO ") + into + QStringLiteral(" VALUES (") +
                rows.mid(first, RowsOfAnInsert).join(QStringLiteral("), (")) + u')');
}

QList<QStringList> TestDatabase::Rows(const QString& sql)
{
    if (scratch_)
        return TextsOf(*scratch_->Link().Query(sql));
    QList<QStringList> rows;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(Handle(), sql.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK)
        ADD_FAILURE() << sqlite3_errmsg(Handle()) << " in " << sql.toStdString();
    while (sqlite3_step(statement) == SQLITE_ROW) {
        QStringList row;
        for (int column = 0; column < sqlite3_column_count(statement); ++column) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
            row += text ? QString::fromUtf8(text) : QStringLiteral("(null)");
        }
        rows += row;
    }
    sqlite3_finalize(statement);
    return rows;
}

QString TestDatabase::Value(const QString& sql)
{
    const QList<QStringList> rows = Rows(sql);
    return rows.isEmpty() ? QStringLiteral("(no row)") : rows.first().first();
}

int TestDatabase::Count(const QString& table)
{
    return Value(QStringLiteral("SELECT COUNT(*) FROM ") + table).toInt();
}

// Opened at its first use, so that a test which wants the file to itself has it.
sqlite3* TestDatabase::Handle()
{
    if (handle_)
        return handle_;
    if (sqlite3_open_v2(Path().toUtf8().constData(), &handle_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK)
        ADD_FAILURE() << sqlite3_errmsg(handle_);
    sqlite3_busy_timeout(handle_, 5000);
    PrepareEmbeddedHandle(handle_, clock_);
    return handle_;
}

} // namespace tsms::test
