#include "gateway/SoapMessage.h"

#include "gateway/SoapFault.h"
#include "runtime/CodePage949.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

CallShape Encoded()
{
    CallShape shape;
    shape.style = CallStyle::RpcEncoded;
    shape.element = u"Op"_q;
    shape.space = u"urn:s"_q;
    const QString xsd = u"http://www.w3.org/2001/XMLSchema"_q;
    shape.parts = {{u"a"_q, {}, xsd, u"string"_q}, {u"b"_q, {}, xsd, u"string"_q}};
    shape.resultName = u"OpReturn"_q;
    return shape;
}

QByteArray Enveloped(const QByteArray& body)
{
    return "<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/'><s:Body>" + body +
           "</s:Body></s:Envelope>";
}

QString Answer(const QByteArray& body)
{
    return ReadAnswer(Encoded(), Enveloped(body), {});
}

/// The fault that reading raises; fails the test when there is none.
SoapFault FaultOfEnvelope(const QByteArray& envelope)
{
    try {
        ReadAnswer(Encoded(), envelope, {});
    } catch (const SoapFault& fault) {
        return fault;
    }
    ADD_FAILURE() << "no fault for " << envelope.constData();
    return LocalFault({});
}

} // namespace

TEST(CallEnvelope, AnRpcEncodedCallNamesItsTypes)
{
    EXPECT_EQ(CallEnvelope(Encoded()).With({u"1 & 2"_q, u""_q}),
              QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                         "<soap:Envelope xmlns:soap=\"http://schemas.xmlsoap.org/soap/envelope/\" "
                         "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\" "
                         "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"><soap:Body>"
                         "<m:Op xmlns:m=\"urn:s\" "
                         "soap:encodingStyle=\"http://schemas.xmlsoap.org/soap/encoding/\">"
                         "<a xsi:type=\"xsd:string\">1 &amp; 2</a><b xsi:type=\"xsd:string\"></b>"
                         "</m:Op></soap:Body></soap:Envelope>\n"));
}

TEST(CallEnvelope, ATypeOfAnotherNamespaceIsDeclaredInPlace)
{
    CallShape shape = Encoded();
    shape.parts = {{u"a"_q, {}, u"urn:types"_q, u"Text"_q}};
    EXPECT_TRUE(
        CallEnvelope(shape).With({u"x"_q}).contains("<a xmlns:t=\"urn:types\" xsi:type=\"t:Text\">x</a>"));
}

TEST(CallEnvelope, AnRpcLiteralCallHasBareParts)
{
    CallShape shape = Encoded();
    shape.style = CallStyle::RpcLiteral;
    EXPECT_TRUE(CallEnvelope(shape)
                    .With({u"1"_q, u"2"_q})
                    .contains("<soap:Body><m:Op xmlns:m=\"urn:s\"><a>1</a><b>2</b></m:Op></soap:Body>"));
}

TEST(CallEnvelope, ADocumentCallQualifiesWhatTheSchemaQualifies)
{
    CallShape shape = Encoded();
    shape.style = CallStyle::DocumentWrapped;
    shape.parts = {{u"a"_q, u"urn:s"_q, {}, {}}, {u"b"_q, {}, {}, {}}};
    EXPECT_TRUE(CallEnvelope(shape)
                    .With({u"1"_q, u"2"_q})
                    .contains("<m:Op xmlns:m=\"urn:s\"><p:a xmlns:p=\"urn:s\">1</p:a><b>2</b></m:Op>"));
}

TEST(ReadAnswer, TheResultBearsItsNameOrComesFirst)
{
    EXPECT_EQ(Answer("<r:OpResponse xmlns:r='urn:s'><other>x</other><OpReturn>y</OpReturn></r:OpResponse>"),
              u"y"_q);
    EXPECT_EQ(Answer("<OpResponse><first>x</first><second>y</second></OpResponse>"), u"x"_q);
}

TEST(ReadAnswer, PrefixesMeanNothing)
{
    EXPECT_EQ(ReadAnswer(Encoded(),
                         "<Envelope xmlns='http://schemas.xmlsoap.org/soap/envelope/'><Header/><Body>"
                         "<x xmlns='urn:s'><OpReturn xmlns=''>답</OpReturn></x></Body></Envelope>",
                         {}),
              u"답"_q);
}

TEST(ReadAnswer, ARightPrefixOfAWrongNamespaceIsNoEnvelope)
{
    EXPECT_EQ(
        FaultOfEnvelope("<soap:Envelope xmlns:soap='http://www.w3.org/2003/05/soap-envelope'><soap:Body>"
                        "<r><v>x</v></r></soap:Body></soap:Envelope>")
            .Detail,
        u"SOAP 1.1 응답이 아닙니다."_q);
}

TEST(ReadAnswer, AnEncodedValueMayStandApart)
{
    EXPECT_EQ(
        Answer("<r><OpReturn href='#i0'/></r><multiRef id='i9'>no</multiRef><multiRef id='i0'>답</multiRef>"),
        u"답"_q);
    const SoapFault fault = FaultOfEnvelope(Enveloped("<r><OpReturn href='#i0'/></r>"));
    EXPECT_FALSE(fault.IsOfGateway());
    EXPECT_EQ(fault.Detail, u"응답에 빠진 부분이 있습니다."_q);
}

TEST(ReadAnswer, AnEmptyResultIsAnEmptyText)
{
    EXPECT_EQ(Answer("<r><OpReturn/></r>"), QString());
}

TEST(ReadAnswer, AKoreanReplyInItsOwnEncodingIsRead)
{
    const QByteArray bytes =
        "<?xml version='1.0' encoding='EUC-KR'?>" +
        Enveloped("<r><OpReturn>" + ToCodePage949(u"error_msg:잔액 부족") + "</OpReturn></r>");
    EXPECT_EQ(ReadAnswer(Encoded(), bytes, "text/xml"), u"error_msg:잔액 부족"_q);
}

TEST(ReadAnswer, AFaultCarriesCodeStringAndDetail)
{
    const SoapFault fault = FaultOfEnvelope(
        Enveloped("<s:Fault><faultcode>s:Server.Busy</faultcode><faultstring>바쁨</faultstring>"
                  "<detail><e:x xmlns:e='urn:e'><e:y>내일 다시</e:y></e:x></detail></s:Fault>"));
    EXPECT_EQ(fault.Code, u"Server.Busy"_q);
    EXPECT_EQ(fault.Description, u"바쁨"_q);
    EXPECT_EQ(fault.Detail, u"내일 다시"_q);
    EXPECT_EQ(fault.Number, AutomationError);
    EXPECT_TRUE(fault.IsOfGateway());
}

TEST(ReadAnswer, AFaultWithoutAnythingIsStillAFaultOfTheGateway)
{
    EXPECT_TRUE(FaultOfEnvelope(Enveloped("<s:Fault/>")).IsOfGateway());
}

TEST(ReadAnswer, WhatIsNoAnswerIsAFault)
{
    for (const char* text : {"", "garbage", "<html/>", "<a><b></a>"})
        EXPECT_FALSE(FaultOfEnvelope(text).IsOfGateway()) << text;
    EXPECT_EQ(FaultOfEnvelope(Enveloped("")).Detail, u"내용이 없는 응답입니다."_q);
    EXPECT_EQ(FaultOfEnvelope(Enveloped("<r/>")).Detail, u"결과가 없는 응답입니다."_q);
    EXPECT_EQ(FaultOfEnvelope("<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/'/>").Detail,
              u"내용이 없는 응답입니다."_q);
}

TEST(ReadAnswer, DepthIsNoDanger)
{
    const QByteArray open = QByteArray("<d>").repeated(60000);
    const QByteArray close = QByteArray("</d>").repeated(60000);
    EXPECT_EQ(FaultOfEnvelope(Enveloped("<s:Fault><detail>" + open + "깊이" + close + "</detail></s:Fault>"))
                  .Detail,
              u"깊이"_q);
    EXPECT_EQ(Answer("<r><OpReturn>" + open + close + "</OpReturn></r>"), QString());
}

TEST(ReadAnswer, ATruncatedEnvelopeIsAFaultAtEveryByte)
{
    const QByteArray whole =
        "<?xml version='1.0'?>" + Enveloped("<r><OpReturn>return_value:true;답</OpReturn></r>");
    EXPECT_EQ(ReadAnswer(Encoded(), whole, {}), u"return_value:true;답"_q);
    for (qsizetype length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(FaultOfEnvelope(whole.first(length)).IsOfGateway()) << length;
}

TEST(ReadAnswer, AFlippedByteNeverCrashes)
{
    const QByteArray whole = Enveloped("<r><OpReturn href=''>x&amp;y</OpReturn></r>");
    int answers = 0;
    int faults = 0;
    for (qsizetype at = 0; at < whole.size(); ++at)
        for (const char byte : {'\0', '<', '>', '&', '"', '\'', ':', '\xFF'}) {
            QByteArray bytes = whole;
            bytes[at] = byte;
            try {
                ReadAnswer(Encoded(), bytes, {});
                ++answers;
            } catch (const SoapFault&) {
                ++faults;
            }
        }
    EXPECT_GT(answers, 0);
    EXPECT_GT(faults, answers);
}

} // namespace tsms::test
