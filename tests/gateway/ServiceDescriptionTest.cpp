#include "gateway/ServiceDescription.h"

#include "gateway/SoapFault.h"
#include "support/Words.h"
#include "tsms-gateway/ServiceWords.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

#include <map>

namespace tsms::test {

namespace {

const QUrl Home(u"http://gateway.test/a/service.wsdl"_q);

/// Documents by their addresses; whatever else is asked for is a fault. Keeps what was asked.
class Web
{
public:
    Web& Put(const QString& url, const QByteArray& bytes)
    {
        documents_[url] = bytes;
        return *this;
    }

    ServiceDescription Read(const QString& service = {}, const QString& port = {})
    {
        return ReadServiceDescription(Home, service, port, [this](const QUrl& url) {
            asked += url.toString();
            const auto found = documents_.find(url.toString());
            if (found == documents_.end())
                throw LocalFault(u"not here"_q);
            return FetchedDocument{found->second, "text/xml"};
        });
    }

    QStringList asked;

private:
    std::map<QString, QByteArray> documents_;
};

ServiceDescription Read(const QByteArray& wsdl)
{
    return Web().Put(Home.toString(), wsdl).Read();
}

SoapFault FaultOfDescription(const QByteArray& wsdl)
{
    try {
        Read(wsdl);
    } catch (const SoapFault& fault) {
        return fault;
    }
    ADD_FAILURE() << "no fault";
    return LocalFault({});
}

/// The description of the simulated gateway, with one text replaced.
QByteArray With(ServiceStyle style, const char* from, const char* to)
{
    const QByteArray wsdl = DescriptionOf(style, u"http://gateway.test/s"_q);
    EXPECT_TRUE(wsdl.contains(from)) << from;
    return QByteArray(wsdl).replace(from, to);
}

QStringList NamesOf(const CallShape& shape)
{
    QStringList names;
    for (const CallPart& part : shape.parts)
        names += part.name;
    return names;
}

/// A description with one operation "Op"; `types` and `message` are its schemas and the parts of its input.
QByteArray Small(const QByteArray& types, const QByteArray& message, const QByteArray& style = "document",
                 const QByteArray& body = "<soap:body use='literal' namespace='urn:t'/>")
{
    return "<w:definitions targetNamespace='urn:t' xmlns:t='urn:t' "
           "xmlns:w='http://schemas.xmlsoap.org/wsdl/' "
           "xmlns:soap='http://schemas.xmlsoap.org/wsdl/soap/' xmlns:x='http://www.w3.org/2001/XMLSchema'>"
           "<w:types>" +
           types + "</w:types><w:message name='In'>" + message +
           "</w:message><w:portType name='P'><w:operation name='Op'><w:input message='t:In'/></w:operation>"
           "</w:portType><w:binding name='B' type='t:P'><soap:binding style='" +
           style +
           "' transport='http://schemas.xmlsoap.org/soap/http'/><w:operation name='Op'>"
           "<soap:operation soapAction='act'/><w:input>" +
           body +
           "</w:input></w:operation></w:binding><w:service name='S'><w:port name='P1' binding='t:B'>"
           "<soap:address location='http://gateway.test/s'/></w:port></w:service></w:definitions>";
}

const QByteArray WrappedPart = "<w:part name='p' element='t:Op'/>";

QByteArray Schema(const QByteArray& content, const QByteArray& attributes = {})
{
    return "<x:schema targetNamespace='urn:t' " + attributes + ">" + content + "</x:schema>";
}

QByteArray Wrapper(const QByteArray& type)
{
    return "<x:element name='Op'>" + type + "</x:element>";
}

QByteArray Sequence(const QByteArray& elements)
{
    return "<x:complexType><x:sequence>" + elements + "</x:sequence></x:complexType>";
}

const QByteArray ElementA = "<x:element name='a' type='x:string'/>";

} // namespace

class EveryStyle : public ::testing::TestWithParam<ServiceStyle>
{
};

INSTANTIATE_TEST_SUITE_P(Styles, EveryStyle,
                         ::testing::Values(ServiceStyle::RpcEncoded, ServiceStyle::RpcLiteral,
                                           ServiceStyle::DocumentLiteral));

TEST_P(EveryStyle, TellsTheOperationsWithTheirPartsInOrder)
{
    const ServiceDescription service = Read(DescriptionOf(GetParam(), u"http://gateway.test/s"_q));
    EXPECT_EQ(service.endpoint, QUrl(u"http://gateway.test/s"_q));
    EXPECT_EQ(QStringList(service.operations.keys()), (QStringList{u"DeleteSMS"_q, u"SendSMS"_q}));
    const CallShape send = service.operations.value(u"SendSMS"_q);
    EXPECT_EQ(NamesOf(send), PartNames(u"SendSMS"_q));
    EXPECT_EQ(send.element, u"SendSMS"_q);
    EXPECT_EQ(send.space, u"urn:xSMSWebService"_q);
    EXPECT_EQ(send.action, u"urn:SendSMS"_q);
    EXPECT_EQ(NamesOf(service.operations.value(u"DeleteSMS"_q)), PartNames(u"DeleteSMS"_q));
}

TEST_P(EveryStyle, PrefixesMeanNothing)
{
    QByteArray wsdl = DescriptionOf(GetParam(), u"http://gateway.test/s"_q);
    wsdl.replace("xmlns:wsdl", "xmlns:soapX").replace("wsdl:", "soapX:");
    wsdl.replace("xmlns:soap=", "xmlns:xsdX=").replace("<soap:", "<xsdX:");
    wsdl.replace("xmlns:tns", "xmlns:q").replace("\"tns:", "\"q:");
    EXPECT_EQ(NamesOf(Read(wsdl).operations.value(u"SendSMS"_q)), PartNames(u"SendSMS"_q));
}

TEST_P(EveryStyle, ATruncatedDescriptionIsAFaultAtEveryByte)
{
    const QByteArray wsdl = DescriptionOf(GetParam(), u"http://gateway.test/s"_q).trimmed();
    for (qsizetype length = 0; length < wsdl.size(); length += 7)
        EXPECT_NE(FaultOfDescription(wsdl.first(length)).Description, QString()) << length;
}

TEST_P(EveryStyle, AFlippedByteIsReadOrRefused)
{
    const QByteArray whole = DescriptionOf(GetParam(), u"http://gateway.test/s"_q);
    int read = 0;
    int refused = 0;
    for (qsizetype at = 0; at < whole.size(); at += 3) {
        QByteArray bytes = whole;
        bytes[at] = "<\">:\xFFx"[at % 6];
        try {
            Read(bytes);
            ++read;
        } catch (const SoapFault&) {
            ++refused;
        }
    }
    EXPECT_GT(read, 0);
    EXPECT_GT(refused, 0);
}

TEST(ServiceDescription, StylesAreTold)
{
    const auto styleOf = [](ServiceStyle style) {
        return Read(DescriptionOf(style, u"http://gateway.test/s"_q)).operations.value(u"SendSMS"_q).style;
    };
    EXPECT_EQ(styleOf(ServiceStyle::RpcEncoded), CallStyle::RpcEncoded);
    EXPECT_EQ(styleOf(ServiceStyle::RpcLiteral), CallStyle::RpcLiteral);
    EXPECT_EQ(styleOf(ServiceStyle::DocumentLiteral), CallStyle::DocumentWrapped);
}

TEST(ServiceDescription, AnRpcOperationTellsItsResultAndEncoding)
{
    const CallShape shape = Read(DescriptionOf(ServiceStyle::RpcEncoded, u"http://gateway.test/s"_q))
                                .operations.value(u"SendSMS"_q);
    EXPECT_EQ(shape.resultName, u"SendSMSReturn"_q);
    EXPECT_EQ(shape.encodingStyle, u"http://schemas.xmlsoap.org/soap/encoding/"_q);
    EXPECT_EQ(shape.parts.first().typeSpace, u"http://www.w3.org/2001/XMLSchema"_q);
    EXPECT_EQ(shape.parts.first().type, u"string"_q);
}

TEST(ServiceDescription, AnOperationsOwnStylePrecedesTheBindings)
{
    const QByteArray wsdl = With(ServiceStyle::RpcLiteral, "style=\"rpc\"", "style=\"document\"");
    EXPECT_TRUE(Read(wsdl).operations.isEmpty());
    EXPECT_EQ(
        Read(QByteArray(wsdl).replace("<soap:operation", "<soap:operation style=\"rpc\"")).operations.size(),
        2);
}

TEST(ServiceDescription, ARelativeEndpointLiesBesideTheDescription)
{
    EXPECT_EQ(Read(With(ServiceStyle::RpcEncoded, "http://gateway.test/s", "../here")).endpoint,
              QUrl(u"http://gateway.test/here"_q));
}

TEST(ServiceDescription, AnEndpointThatIsNoWebAddressIsAFault)
{
    for (const char* address : {"file:///etc/passwd", "ftp://gateway.test/", "http://", "gopher://a/b"})
        EXPECT_EQ(FaultOfDescription(With(ServiceStyle::RpcEncoded, "http://gateway.test/s", address)).Detail,
                  u"서비스의 주소가 올바르지 않습니다."_q)
            << address;
}

TEST(ServiceDescription, WhatIsNoDescriptionIsAFault)
{
    EXPECT_EQ(FaultOfDescription("no").Detail, u"XML 형식이 아닙니다."_q);
    EXPECT_EQ(FaultOfDescription("<html/>").Detail, u"서비스 설명(WSDL)이 아닙니다."_q);
    EXPECT_EQ(FaultOfDescription("<definitions xmlns='http://schemas.xmlsoap.org/wsdl/'/>").Detail,
              u"SOAP으로 부를 수 있는 서비스가 없습니다."_q);
    EXPECT_EQ(
        FaultOfDescription(With(ServiceStyle::RpcEncoded, "portType name=\"", "portType name=\"x")).Detail,
        u"설명에 빠진 부분이 있습니다."_q);
    EXPECT_EQ(FaultOfDescription(With(ServiceStyle::RpcEncoded, "http://schemas.xmlsoap.org/soap/http",
                                      "http://schemas.xmlsoap.org/soap/smtp"))
                  .Detail,
              u"SOAP으로 부를 수 있는 서비스가 없습니다."_q);
}

TEST(ServiceDescription, AnAddressThatIsNoWebAddressIsNotFetched)
{
    bool isFetched = false;
    const auto fetch = [&](const QUrl&) {
        isFetched = true;
        return FetchedDocument();
    };
    EXPECT_THROW(ReadServiceDescription(QUrl(u"file:///etc/passwd"_q), {}, {}, fetch), SoapFault);
    EXPECT_THROW(ReadServiceDescription(QUrl(), {}, {}, fetch), SoapFault);
    EXPECT_FALSE(isFetched);
}

TEST(ServiceDescription, ServiceAndPortAreChosenByName)
{
    Web web;
    web.Put(Home.toString(), With(ServiceStyle::RpcEncoded, "</wsdl:service>",
                                  "<wsdl:port name=\"second\" binding=\"tns:xSMSWebServiceBinding\">"
                                  "<soap:address location=\"http://gateway.test/second\"/></wsdl:port>"
                                  "</wsdl:service>"));
    EXPECT_EQ(web.Read().endpoint.path(), u"/s"_q);
    EXPECT_EQ(web.Read({}, u"second"_q).endpoint.path(), u"/second"_q);
    EXPECT_EQ(web.Read(u"xSMSWebService"_q).endpoint.path(), u"/s"_q);
    EXPECT_THROW(web.Read(u"other"_q), SoapFault);
    EXPECT_THROW(web.Read({}, u"other"_q), SoapFault);
}

TEST(ServiceDescription, APortThatDoesNotSpeakSoapIsPassedOver)
{
    EXPECT_EQ(Read(With(ServiceStyle::RpcEncoded, "<wsdl:port name=\"xSMSWebService\"",
                        "<wsdl:port name=\"get\" binding=\"tns:none\"/><wsdl:port name=\"xSMSWebService\""))
                  .endpoint.path(),
              u"/s"_q);
}

TEST(ServiceDescription, ATypeMayStandInline)
{
    const CallShape shape =
        Read(
            Small(Schema(Wrapper(Sequence(ElementA + "<x:element name='b' type='x:string'/>"))), WrappedPart))
            .operations.value(u"Op"_q);
    EXPECT_EQ(NamesOf(shape), (QStringList{u"a"_q, u"b"_q}));
    EXPECT_EQ(shape.parts.first().space, QString());
}

TEST(ServiceDescription, ATypeMayStandApart)
{
    const QByteArray types = Schema("<x:element name='Op' type='t:OpType'/><x:complexType name='OpType'>"
                                    "<x:annotation/><x:all>" +
                                    ElementA + "</x:all></x:complexType>");
    EXPECT_EQ(NamesOf(Read(Small(types, WrappedPart)).operations.value(u"Op"_q)), (QStringList{u"a"_q}));
}

TEST(ServiceDescription, AnElementMaySayItsFormItselfOrReferToAnother)
{
    const QByteArray types =
        Schema(Wrapper(Sequence("<x:element name='a' form='unqualified'/><x:element ref='t:b'/>"
                                "<x:element name='c'/>")),
               "elementFormDefault='qualified'");
    const CallShape shape = Read(Small(types, WrappedPart)).operations.value(u"Op"_q);
    ASSERT_EQ(NamesOf(shape), (QStringList{u"a"_q, u"b"_q, u"c"_q}));
    EXPECT_EQ(shape.parts[0].space, QString());
    EXPECT_EQ(shape.parts[1].space, u"urn:t"_q);
    EXPECT_EQ(shape.parts[2].space, u"urn:t"_q);
}

TEST(ServiceDescription, AnOperationWithoutArgumentsIsOne)
{
    EXPECT_TRUE(Read(Small(Schema(Wrapper("<x:complexType/>")), WrappedPart)).operations.contains(u"Op"_q));
}

class UnspokenForm : public ::testing::TestWithParam<QByteArray>
{
};

TEST_P(UnspokenForm, IsLeftOut)
{
    EXPECT_TRUE(Read(GetParam()).operations.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Descriptions, UnspokenForm,
    ::testing::Values(
        Small(Schema(Wrapper(Sequence("<x:any/>"))), WrappedPart),
        Small(Schema(Wrapper(Sequence("<x:choice/>"))), WrappedPart),
        Small(Schema(Wrapper("<x:complexType><x:complexContent/></x:complexType>")), WrappedPart),
        Small(Schema("<x:element name='Op' type='x:string'/>"), WrappedPart),
        Small(Schema("<x:element name='Other'/>"), WrappedPart), Small({}, {}),
        Small(Schema(Wrapper(Sequence(ElementA))), WrappedPart + "<w:part name='q' element='t:Op'/>"),
        Small(Schema(Wrapper(Sequence(ElementA))), WrappedPart, "document", "<soap:body use='encoded'/>"),
        Small(Schema(Wrapper(Sequence(ElementA))), WrappedPart, "rpc"),
        Small(Schema(Wrapper(Sequence(ElementA))), WrappedPart, "document", ""),
        Small({}, "<w:part name='bad name&gt;&lt;x' type='x:string'/>", "rpc"),
        Small({}, "<w:part name='' type='x:string'/>", "rpc"),
        Small({}, "<w:part name='a' type='x:string'/>", "rpc").replace("'act'", "'a&#13;&#10;Evil: 1'"),
        Small({}, "<w:part name='a' type='x:string'/>", "rpc").replace("'act'", "'a&quot;b'"),
        Small({}, "<w:part name='a' type='x:string'/>", "rpc").replace("message='t:In'", "message='t:Out'")));

TEST(ServiceDescription, TheSameRpcFormWithoutAFlawIsKept)
{
    EXPECT_TRUE(Read(Small({}, "<w:part name='a' type='x:string'/>", "rpc")).operations.contains(u"Op"_q));
}

TEST(ServiceDescription, AnOperationOfAtMost64ArgumentsIsOne)
{
    const QByteArray part = "<w:part name='a' type='x:string'/>";
    EXPECT_EQ(Read(Small({}, part.repeated(64), "rpc")).operations.size(), 1);
    EXPECT_EQ(Read(Small({}, part.repeated(65), "rpc")).operations.size(), 0);
    EXPECT_EQ(Read(Small(Schema(Wrapper(Sequence(ElementA.repeated(64)))), WrappedPart)).operations.size(),
              1);
    EXPECT_EQ(Read(Small(Schema(Wrapper(Sequence(ElementA.repeated(65)))), WrappedPart)).operations.size(),
              0);
}

TEST(ServiceDescription, AServiceOfMoreThan256OperationsIsRefused)
{
    const auto withOperations = [](int count) {
        QByteArray more;
        for (int i = 1; i < count; ++i)
            more += "<w:operation name='O" + QByteArray::number(i) + "'/>";
        return Small({}, "<w:part name='a' type='x:string'/>", "rpc")
            .replace("<w:portType name='P'>", "<w:portType name='P'>" + more);
    };
    EXPECT_TRUE(Read(withOperations(256)).operations.contains(u"Op"_q));
    EXPECT_EQ(FaultOfDescription(withOperations(257)).Detail, u"서비스의 기능이 너무 많습니다."_q);
}

TEST(ServiceDescription, AMessageOfMoreThan10000ElementsIsNone)
{
    const auto withDocumentation = [](int count) {
        return Small({},
                     QByteArray("<w:documentation/>").repeated(count) + "<w:part name='a' type='x:string'/>",
                     "rpc");
    };
    EXPECT_TRUE(Read(withDocumentation(9'999)).operations.contains(u"Op"_q));
    EXPECT_TRUE(Read(withDocumentation(10'000)).operations.isEmpty());
}

/// No figure of speed: where each operation looks through all of it, this takes a hundred times as long.
TEST(ServiceDescription, AnEndlessMessageOfAllOperationsDoesNotHoldTheWindow)
{
    QByteArray operations;
    QByteArray bindings;
    for (int i = 1; i < MaxOperations; ++i) {
        const QByteArray name = "<w:operation name='O" + QByteArray::number(i) + "'>";
        operations += name + "<w:input message='t:In'/></w:operation>";
        bindings += name + "<w:input><soap:body use='literal'/></w:input></w:operation>";
    }
    QElapsedTimer time;
    time.start();
    EXPECT_TRUE(Read(Small({}, QByteArray("<part/>").repeated(130'000), "rpc")
                         .replace("<w:portType name='P'>", "<w:portType name='P'>" + operations)
                         .replace("<w:operation name='Op'><soap", bindings + "<w:operation name='Op'><soap"))
                    .operations.isEmpty());
    EXPECT_LT(time.elapsed(), 3000);
}

/// No figure of speed: where each of them looks at all others, this takes a hundred times as long.
TEST(ServiceDescription, OneNameInManyNamespacesDoesNotHoldTheWindow)
{
    QByteArray schemas;
    for (int i = 0; i < 12'000; ++i)
        schemas += "<x:schema targetNamespace='urn:" + QByteArray::number(100'000 + i) +
                   "'><x:element name='a'/></x:schema>";
    QElapsedTimer time;
    time.start();
    EXPECT_TRUE(
        Read(Small(schemas, "<w:part name='a' type='x:string'/>", "rpc")).operations.contains(u"Op"_q));
    EXPECT_LT(time.elapsed(), 3000);
}

/// No figure of speed: where each name looks through all declarations, this takes minutes under a sanitizer
/// and 14 s without.
TEST(ServiceDescription, AThicketOfNamespacesDoesNotHoldTheWindow)
{
    QByteArray declarations;
    for (int i = 0; i < 30000; ++i)
        declarations += " xmlns:n" + QByteArray::number(i) + "='urn:n'";
    QByteArray elements;
    for (int i = 0; i < 60000; ++i)
        elements += "<n" + QByteArray::number(29999 - i % 100) + ":e/>";
    const QByteArray plain = Small({}, "<w:part name='a' type='x:string'/>", "rpc");
    QElapsedTimer time;
    time.start();
    EXPECT_TRUE(Read(QByteArray(plain)
                         .replace("<w:definitions", "<w:definitions" + declarations)
                         .replace("<w:portType", elements + "<w:portType"))
                    .operations.contains(u"Op"_q));
    EXPECT_LT(time.elapsed(), 3000);
}

TEST(ServiceDescription, ImportsOnTheSameHostAreFollowed)
{
    const QByteArray schema = "<x:schema xmlns:x='http://www.w3.org/2001/XMLSchema' targetNamespace='urn:t'>"
                              "<x:include schemaLocation='more.xsd#frag'/>" +
                              Wrapper("").replace("'Op'", "'Op' type='t:OpType' xmlns:t='urn:t'") +
                              "</x:schema>";
    const QByteArray more =
        "<x:schema xmlns:x='http://www.w3.org/2001/XMLSchema'><x:complexType name='OpType'><x:sequence>" +
        ElementA + "</x:sequence></x:complexType></x:schema>";
    Web web;
    web.Put(Home.toString(), "<w:definitions xmlns:w='http://schemas.xmlsoap.org/wsdl/'>"
                             "<w:import namespace='urn:t' location='rest/service.wsdl'/></w:definitions>");
    web.Put(u"http://gateway.test/a/rest/service.wsdl"_q,
            Small("<x:schema><x:import namespace='urn:t' schemaLocation='/t.xsd'/></x:schema>", WrappedPart));
    web.Put(u"http://gateway.test/t.xsd"_q, schema);
    web.Put(u"http://gateway.test/more.xsd"_q, more);
    EXPECT_EQ(NamesOf(web.Read().operations.value(u"Op"_q)), (QStringList{u"a"_q}));
}

TEST(ServiceDescription, ImportsFromElsewhereAreNotFetched)
{
    Web web;
    web.Put(Home.toString(),
            Small("<x:schema><x:import namespace='urn:a' schemaLocation='http://other.test/a.xsd'/>"
                  "<x:import namespace='urn:b' schemaLocation='https://gateway.test/b.xsd'/>"
                  "<x:import namespace='urn:c' schemaLocation='http://gateway.test:81/c.xsd'/>"
                  "<x:import namespace='urn:d' schemaLocation='file:///etc/passwd'/>"
                  "<x:import namespace='urn:e' schemaLocation='//other.test/e.xsd'/>"
                  "<x:import namespace='http://schemas.xmlsoap.org/soap/encoding/'/></x:schema>",
                  "<w:part name='a' type='x:string'/>", "rpc"));
    EXPECT_TRUE(web.Read().operations.contains(u"Op"_q));
    EXPECT_EQ(web.asked, QStringList(Home.toString()));
}

TEST(ServiceDescription, ImportsInACircleAreReadOnce)
{
    Web web;
    web.Put(Home.toString(), Small({}, "<w:part name='a' type='x:string'/>", "rpc")
                                 .replace("<w:types>", "<w:import location='service.wsdl'/>"
                                                       "<w:import location='b.wsdl'/><w:types>"));
    web.Put(u"http://gateway.test/a/b.wsdl"_q,
            "<w:definitions xmlns:w='http://schemas.xmlsoap.org/wsdl/'><w:import location='service.wsdl'/>"
            "</w:definitions>");
    EXPECT_TRUE(web.Read().operations.contains(u"Op"_q));
    EXPECT_EQ(web.asked.size(), 2);
}

TEST(ServiceDescription, AChainOfImportsEndsInAFault)
{
    int fetched = 0;
    const auto fetch = [&](const QUrl&) {
        const QByteArray next = QByteArray::number(++fetched);
        return FetchedDocument{
            "<w:definitions xmlns:w='http://schemas.xmlsoap.org/wsdl/'><w:import location='" + next +
                ".wsdl'/></w:definitions>",
            {}};
    };
    EXPECT_THROW(ReadServiceDescription(Home, {}, {}, fetch), SoapFault);
    EXPECT_EQ(fetched, MaxDocuments);
}

TEST(ServiceDescription, AMissingImportIsAFault)
{
    EXPECT_EQ(
        FaultOfDescription(Small({}, {}).replace("<w:types>", "<w:import location='gone.wsdl'/><w:types>"))
            .Description,
        u"not here"_q);
}

} // namespace tsms::test
