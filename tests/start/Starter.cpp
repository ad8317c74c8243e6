#include "start/Starter.h"

#include "runtime/RuntimeError.h"
#include "store/MakeConnections.h"
#include "tsms-start/BackgroundWork.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QtTest/QTest>

namespace tsms::test {

Starter::Starter(const QString& folder)
    : settings(home.filePath(u"settings.ini"_q), QSettings::IniFormat),
      connections(settings),
      services{session,
               desktop,
               clock,
               connections,
               passwords,
               MakeConnections(clock),
               [this] { return gatewayFault; },
               [this](const QString& line) {
                   if (programIsThere)
                       launched += line;
                   return programIsThere;
               },
               true,
               folder.isEmpty() ? home.filePath(u"data"_q) : folder}
{
}

Starter::~Starter()
{
    window.reset();
    AwaitWork(); // which has all of this in its hands
}

void Starter::Open()
{
    window = std::make_unique<StartWindow>(services);
    window->show();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
}

QList<QStringList> Starter::Rows()
{
    QList<QStringList> rows;
    for (int row = 1; row <= List().Cells().MaxRows(); ++row)
        rows += {List().Cells().Text(1, row), List().Cells().Text(2, row)};
    return rows;
}

void Starter::Within(const QString& dialog, const QString& button, const std::function<void(QWidget&)>& act)
{
    WhenShown(dialog, act);
    Click(button);
}

void Starter::Type(QWidget& dialog, int field, const QString& text)
{
    auto& box = On<QWidget>(dialog, u"txtUpdate(%1)"_q.arg(field));
    box.setFocus();
    PressKey(box, Qt::Key_A, Qt::ControlModifier);
    PressKey(box, Qt::Key_Delete);
    TypeText(box, text);
}

QString Starter::Text(QWidget& dialog, int field)
{
    return On<TextField>(dialog, u"txtUpdate(%1)"_q.arg(field)).Text();
}

SavedConnection Starter::Add(const TestDatabase& database, const QString& name)
{
    Session described;
    database.Describe(described);
    SavedConnection connection;
    connection.name = name;
    if (described.DBServer == u"(embedded)") {
        connection.file = described.DBCatalog;
    } else {
        connection.kind = SavedConnection::Kind::Server;
        connection.server = described.DBServer;
        connection.port = described.DBPort;
        connection.database = described.DBCatalog;
        connection.login = described.DBUser;
    }
    connection.id = connections.Put(connection);
    return connection;
}

QString PasswordOf(const TestDatabase& database)
{
    Session described;
    database.Describe(described);
    return described.DBPassword;
}

void AwaitWork()
{
    EXPECT_TRUE(QTest::qWaitFor([] { return !BackgroundWork::IsAnyLeft(); }));
    Settle();
}

Box StartBox(const QString& words, MsgBoxStyle style)
{
    return {u"문자메시지 시작하기"_q, words, style};
}

Box UnforeseenBox(const QString& what)
{
    return {u"프로그램 오류"_q,
            u"오류번호 : %1\r\n오류내용 : 프로그램 내부에서 예기치 않은 오류가 발생하였습니다. (%2)"_q
                .arg(AutomationError)
                .arg(what),
            MsgBoxCritical};
}

} // namespace tsms::test
