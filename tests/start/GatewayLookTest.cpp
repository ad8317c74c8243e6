#include "tsms-start/GatewayLook.h"

#include "support/gateway/TestGateway.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

const QString Advice = u"\r\n\r\n주소: %1/SMSWS/webservice/xSMSWebService.wsdl\r\n"
                       "인터넷에 연결되어 있는지, 방화벽이 이 주소를 막지 않는지 확인하십시오. 이 주소는 "
                       "프로그램을 만들 때 정해집니다."_q;

} // namespace

TEST(LookAtGateway, FindsNothingWrongWithOneThatDescribesItself)
{
    const TestGateway gateway;
    EXPECT_EQ(LookAtGateway(gateway.Url()), QString());
    EXPECT_EQ(gateway.CallCount(), 0);
}

TEST(LookAtGateway, TellsOfOneThatIsNotThere)
{
    TestGateway gateway;
    gateway.Leave();
    const QString words = LookAtGateway(gateway.Url());
    EXPECT_TRUE(words.startsWith(u"문자메시지 서버에 연결하지 못하였습니다. (")) << words.toStdString();
    EXPECT_TRUE(words.endsWith(Advice.arg(gateway.Url()))) << words.toStdString();
}

TEST(LookAtGateway, LeavesOneAloneThatDoesNotAnswer)
{
    TestGateway gateway;
    gateway.DescribeLate(3000);
    EXPECT_EQ(LookAtGateway(gateway.Url(), std::chrono::milliseconds(100)),
              u"문자메시지 서버가 대답하지 않습니다."_q + Advice.arg(gateway.Url()));
}

} // namespace tsms::test
