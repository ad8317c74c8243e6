// The program on a demo database of the user's own, with the simulated gateway: what scripts/demo.sh is where
// there is a shell.
#include "toolkit/look/Theme.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QMessageBox>
#include <QProcess>
#include <QStandardPaths>

namespace {

int Refuse(const QString& words)
{
    QMessageBox(QMessageBox::Information, QStringLiteral("문자메시지 체험하기"), words, QMessageBox::Ok)
        .exec();
    return 1;
}

/// The path of a program that lies beside this one.
QString Beside(const QString& program)
{
    return QApplication::applicationDirPath() + u'/' + program + QStringLiteral(".exe");
}

/// Runs the database tool to its end; what it prints goes into a file.
bool RunDatabaseTool(const QStringList& arguments, const QString& output)
{
    QProcess tool;
    tool.setStandardOutputFile(output);
    tool.start(Beside(QStringLiteral("tsms-db")), arguments);
    return tool.waitForFinished(-1) && tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 0;
}

/// The simulated gateway; it ends with this object.
class Gateway
{
public:
    ~Gateway()
    {
        process_.kill();
        process_.waitForFinished();
    }

    /// Waits until it listens. False when it ends first, as it does where its port is taken.
    bool Start(const QString& reservations, const QString& log)
    {
        process_.setStandardOutputFile(log);
        process_.start(Beside(QStringLiteral("tsms-gateway")), {QStringLiteral("--hold"), reservations});
        process_.waitForStarted();
        for (int patience = 100; patience > 0 && process_.state() == QProcess::Running; --patience) {
            if (Listens(log))
                return true;
            process_.waitForFinished(100);
        }
        return false;
    }

private:
    static bool Listens(const QString& log)
    {
        QFile said(log);
        return said.open(QIODevice::ReadOnly) && said.readAll().startsWith("ready ");
    }

    QProcess process_;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    tsms::theme::ApplyTheme(application);

    const QString data =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/tsms");
    if (!QDir().mkpath(data))
        return Refuse(QStringLiteral("체험용 자료를 둘 폴더를 만들지 못하였습니다: ") + data);
    QLockFile lock(data + QStringLiteral("/demo.lock"));
    lock.setStaleLockTime(0); // a demo may be open for days
    if (!lock.tryLock())
        return Refuse(QStringLiteral("문자메시지 체험판이 이미 실행 중입니다.\n"
                                     "열려 있는 창을 쓰시거나, 그 창을 닫은 다음 다시 실행하여 주십시오."));

    const QString database = QDir::toNativeSeparators(data + QStringLiteral("/demo.db"));
    const QString reservations = data + QStringLiteral("/reservations.json");
    const bool isThere = QFile::exists(database) ||
                         RunDatabaseTool({QStringLiteral("create"), database, QStringLiteral("--demo")},
                                         QProcess::nullDevice());
    if (!isThere || !RunDatabaseTool({QStringLiteral("reservations"), database}, reservations))
        return Refuse(QStringLiteral("체험용 데이터베이스를 만들거나 읽지 못하였습니다: ") + database);

    Gateway gateway;
    if (!gateway.Start(reservations, data + QStringLiteral("/gateway.log")))
        return Refuse(QStringLiteral("모의 문자메시지 서버를 시작하지 못하였습니다.\n"
                                     "8790번 포트를 다른 프로그램이 쓰고 있을 수 있습니다."));
    QProcess program;
    program.start(Beside(QStringLiteral("tsms")),
                  {database + QStringLiteral("■(embedded)■0■demo■demo■1■demo")});
    program.waitForFinished(-1);
    return program.exitCode();
}
