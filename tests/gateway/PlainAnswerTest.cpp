#include "gateway/PlainAnswer.h"

#include "gateway/SoapFault.h"
#include "gateway/SoapMessage.h"
#include "support/Words.h"
#include "tsms-gateway/ServiceWords.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

const QByteArray Declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

QByteArray PlainlyEnveloped(const QByteArray& body)
{
    return Declaration + "<s:Envelope xmlns:s=\"http://schemas.xmlsoap.org/soap/envelope/\"><s:Body>" + body +
           "</s:Body></s:Envelope>\n";
}

/// What the tree says: a comment behind the root takes the envelope there.
std::optional<QString> ByTheTree(const QByteArray& envelope)
{
    EXPECT_FALSE(ReadPlainAnswer(envelope + "<!---->"));
    try {
        return ReadAnswer(CallShape(), envelope + "<!---->", {});
    } catch (const SoapFault&) {
        return std::nullopt;
    }
}

} // namespace

TEST(PlainAnswer, TheAnswersOfAServiceAreReadFromTheirBytes)
{
    const QString reply = u"return_value:True;a;b;unique_num:100001;;;;error_code:;error_msg:정상"_q;
    for (const ServiceStyle style :
         {ServiceStyle::RpcEncoded, ServiceStyle::RpcLiteral, ServiceStyle::DocumentLiteral})
        EXPECT_EQ(ReadPlainAnswer(ServiceAnswer(u"SendSMS"_q, style, reply)), reply);
}

TEST(PlainAnswer, AnEmptyResultIsAnEmptyText)
{
    EXPECT_EQ(ReadPlainAnswer(PlainlyEnveloped("<a><b></b></a>")), QString());
}

TEST(PlainAnswer, WhatNeedsTheTreeIsLeftToIt)
{
    const QByteArray good = PlainlyEnveloped("<a><b>x</b></a>");
    ASSERT_TRUE(ReadPlainAnswer(good));
    for (const char* body : {"<a><b>x &amp; y</b></a>",
                             "<a><b>x\r\n</b></a>",
                             "<a><b><![CDATA[x]]></b></a>",
                             "<a><b>x<!-- --></b></a>",
                             "<a><b><c>x</c></b></a>",
                             "<a><b>x</b><c>y</c></a>",
                             "<a><b/></a>",
                             "<a/>",
                             "<a>x</a>",
                             "",
                             "<a><b href=\"#1\"/></a>",
                             "<a><b href=\"#1\">x</b></a><b id=\"1\">y</b>",
                             "<s:Fault><faultstring>x</faultstring></s:Fault>",
                             "<a><b>x</b></c>",
                             "<a><b>x</b></a",
                             "<a><b>x</b>",
                             "<a b><b>x</b></a>",
                             "<a b='c'><b>x</b></a>",
                             "<a b=\"<\"><b>x</b></a>",
                             "<a ><b>x</b></a>"})
        EXPECT_FALSE(ReadPlainAnswer(PlainlyEnveloped(body))) << body;
    for (const QByteArray& envelope :
         {good.sliced(Declaration.size()), QByteArray(good).replace("UTF-8", "EUC-KR"),
          QByteArray(good).replace("schemas", "schemes"), QByteArray(good).replace("s:Body", "t:Body"),
          QByteArray(good).replace("<s:Body", "<s:Body xmlns:s=\"urn:x\""),
          QByteArray(good).replace("<s:Body", "<s:Header></s:Header><s:Body"), good + "x", good + good,
          "\xEF\xBB\xBF" + good, QByteArray()})
        EXPECT_FALSE(ReadPlainAnswer(envelope)) << envelope.constData();
}

TEST(PlainAnswer, SaysWhatTheTreeSaysWhateverByteIsAnotherOrMissing)
{
    const QByteArray good = ServiceAnswer(u"SendSMS"_q, ServiceStyle::RpcEncoded, u"정상;unique_num:1"_q);
    int read = 0;
    for (qsizetype at = 0; at < good.size(); ++at)
        for (const QByteArray& other : {QByteArray(), QByteArray(" "), QByteArray("x"), QByteArray("<"),
                                        QByteArray(">"), QByteArray("\""), QByteArray("/"), QByteArray(":"),
                                        QByteArray("&"), QByteArray("\xB0"), QByteArray(1, '\0')}) {
            const QByteArray envelope = QByteArray(good).replace(at, 1, other);
            if (const std::optional<QString> plain = ReadPlainAnswer(envelope)) {
                EXPECT_EQ(plain, ByTheTree(envelope)) << envelope.constData();
                ++read;
            }
        }
    EXPECT_GT(read, 100);
}

} // namespace tsms::test
