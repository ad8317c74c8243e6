#include "tsms-gateway/GatewayPages.h"
#include "tsms-gateway/SimulatedGateway.h"

#include "runtime/Clock.h"
#include "runtime/ProcessRules.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>

#include <cstdio>

namespace {

const QString Usage = QStringLiteral(
    "사용법:\n"
    "  tsms-gateway [옵션]\n"
    "      시험용 문자메시지 서버: 문자를 실제로 보내지 않고, 받은 대로 보여 줍니다.\n"
    "\n"
    "옵션:\n"
    "  --port N            들을 포트 (기본값 8790). 0이면 빈 포트를 고릅니다.\n"
    "  --hold 파일         이미 예약된 문자의 파일. tsms-db reservations가 출력한 JSON이며,\n"
    "                      그 문자들은 시간이 될 때까지 예약을 취소할 수 있습니다.\n"
    "  --fault 종류[@N]    정해 둔 잘못. 여러 번 쓸 수 있습니다. 뒤에 @N을 붙이면 N번째 호출에만,\n"
    "                      붙이지 않으면 모든 호출에 적용합니다. 종류:\n"
    "                        refuse, short, bad-boolean, late=밀리초, twice=밀리초, drop, cut,\n"
    "                        soap-fault, http500, garbage, leave,\n"
    "                        wsdl-missing, wsdl-garbage, wsdl-no-operation, wsdl-late=밀리초,\n"
    "                        wsdl-drop, wsdl-cut, wsdl-http500, wsdl-leave\n"
    "  -h, --help          이 도움말을 봅니다.");

void PrintLine(std::FILE* stream, const QString& line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stream);
    std::fflush(stream);
}

int Fail(const QString& words)
{
    PrintLine(stderr, words);
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    tsms::EndThreadsInOrder();
    tsms::TakeWordsAsUtf8();
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tsms-gateway"));

    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    const QCommandLineOption port(QStringLiteral("port"), {}, QStringLiteral("port"), QStringLiteral("8790"));
    const QCommandLineOption faults(QStringLiteral("fault"), {}, QStringLiteral("fault"));
    const QCommandLineOption hold(QStringLiteral("hold"), {}, QStringLiteral("hold"));
    QCommandLineParser parser;
    parser.addOptions({help, port, faults, hold});
    if (!parser.parse(QCoreApplication::arguments()))
        return Fail(QStringLiteral("알 수 없는 옵션이거나 값이 빠졌습니다.\n\n") + Usage);
    if (parser.isSet(help)) {
        PrintLine(stdout, Usage);
        return 0;
    }

    bool isPort = false;
    tsms::SimulatedGateway::Settings settings;
    settings.Port = parser.value(port).toUShort(&isPort);
    if (!isPort)
        return Fail(QStringLiteral("포트가 올바르지 않습니다: ") + parser.value(port));
    settings.OnMessage = [](const tsms::GatewayMessage& message) {
        PrintLine(stdout, tsms::MessageLine(message));
    };

    const tsms::SystemClock clock;
    tsms::SimulatedGateway gateway(clock, settings);
    for (const QString& text : parser.values(faults)) {
        const auto fault = tsms::ReadGatewayFault(text);
        if (!fault)
            return Fail(QStringLiteral("모르는 잘못입니다: ") + text);
        gateway.Script(*fault);
    }
    if (parser.isSet(hold)) {
        QFile file(parser.value(hold));
        if (!file.open(QIODevice::ReadOnly))
            return Fail(QStringLiteral("예약 파일을 읽을 수 없습니다: ") + file.fileName());
        const auto held = tsms::ReadHeldMessages(file.readAll());
        if (!held)
            return Fail(QStringLiteral("예약 파일의 내용이 올바르지 않습니다: ") + file.fileName());
        gateway.Hold(*held);
    }
    if (!gateway.Start())
        return Fail(
            QStringLiteral("포트 %1을(를) 쓸 수 없습니다. 다른 프로그램이 쓰고 있는지 확인하여 주십시오.")
                .arg(settings.Port));
    PrintLine(stdout, QStringLiteral("ready ") + gateway.Url());
    return QCoreApplication::exec();
}
