#include "tsms-start/GatewayLook.h"

#include "gateway/ModSMS.h"
#include "gateway/SoapClient30.h"
#include "gateway/SoapFault.h"

#include <future>
#include <thread>

namespace tsms {

namespace {

/// What a reading of the description ends in; empty when it went well.
QString ReadDescription(const QString& url)
{
    try {
        SoapClient30 client;
        client.mssoapinit(url, {}, {}, {});
        return {};
    } catch (const SoapFault& fault) {
        return fault.Detail.isEmpty() ? fault.Description
                                      : fault.Description + QStringLiteral(" (") + fault.Detail + u')';
    } catch (const RuntimeError& error) {
        return error.Description;
    }
}

QString Advice(const QString& url, const QString& fault)
{
    return fault +
           QStringLiteral("\r\n\r\n주소: %1\r\n"
                          "인터넷에 연결되어 있는지, 방화벽이 이 주소를 막지 않는지 확인하십시오. 이 주소는 "
                          "프로그램을 만들 때 정해집니다.")
               .arg(url);
}

} // namespace

QString LookAtGateway(const QString& gatewayUrl, std::chrono::milliseconds patience)
{
    const QString url = GatewayDescriptionUrl(gatewayUrl);
    // The client waits for as long as the gateway does. So it has a thread, which is left to itself when
    // nobody waits any longer; the future of a task, unlike that of std::async, does not wait for it.
    std::packaged_task<QString()> task([url] { return ReadDescription(url); });
    std::future<QString> fault = task.get_future();
    std::thread(std::move(task)).detach();
    if (fault.wait_for(patience) != std::future_status::ready)
        return Advice(url, QStringLiteral("문자메시지 서버가 대답하지 않습니다."));
    const QString words = fault.get();
    return words.isEmpty() ? QString() : Advice(url, words);
}

} // namespace tsms
