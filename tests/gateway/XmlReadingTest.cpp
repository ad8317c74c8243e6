#include "gateway/XmlReading.h"

#include "runtime/CodePage949.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

bool Parses(const QByteArray& bytes)
{
    return XmlDocument().Parse(bytes, {});
}

/// The text of the root element, or "(no XML)".
QString RootText(const QByteArray& bytes, const QByteArray& contentType = {})
{
    XmlDocument document;
    return document.Parse(bytes, contentType) ? document.Root().Text() : u"(no XML)"_q;
}

} // namespace

TEST(EscapeXml, MarkupIsEscaped)
{
    EXPECT_EQ(EscapeXml(u"a<b>&\"c\"'"), QByteArray("a&lt;b&gt;&amp;&quot;c&quot;'"));
}

TEST(EscapeXml, ALineBreakSurvivesAParser)
{
    EXPECT_EQ(RootText("<a>" + EscapeXml(u"첫 줄\r\n둘째 줄\n\t끝") + "</a>"), u"첫 줄\r\n둘째 줄\n\t끝"_q);
}

TEST(EscapeXml, WhatXmlCannotHoldBecomesABlank)
{
    const QString text = u"a\u0001b\u0000c\u000Bd\uFFFEe\uFFFFf"_q;
    EXPECT_EQ(EscapeXml(text), QByteArray("a b c d e f"));
}

TEST(EscapeXml, ALoneSurrogateBecomesABlankAndAPairStays)
{
    const QString text = QString(QChar(0xD83D)) + u"a"_q + QString(QChar(0xDE00)) + u"😀"_q + QChar(0xD83D);
    EXPECT_EQ(QString::fromUtf8(EscapeXml(text)), u" a 😀 "_q);
    EXPECT_EQ(QString::fromUtf8(EscapeXml(u"😀")), u"😀"_q);
}

TEST(EscapeXml, CharactersOfOneToFourBytesAreThoseOfUtf8)
{
    const QString text = u"a\u007F\u0080·Ω\u07FF\u0800가\uFFFD\U00010000😀\U0010FFFF"_q;
    EXPECT_EQ(EscapeXml(text), text.toUtf8());
}

TEST(XmlElement, CountsTheElementsBelowItAndNoFurtherThanItIsAsked)
{
    XmlDocument document;
    ASSERT_TRUE(document.Parse("<a><b>x<c/></b><d/></a>", {}));
    EXPECT_EQ(document.Root().CountBelow(4), 3);
    EXPECT_EQ(document.Root().CountBelow(3), 3);
    EXPECT_EQ(document.Root().CountBelow(2), 2);
    EXPECT_EQ(document.Root().CountBelow(1), 1);
}

TEST(XmlDocument, ADeclaredKoreanEncodingIsHonoured)
{
    for (const char* name : {"EUC-KR", "euc-kr", "CP949", "ks_c_5601-1987", "ms949"}) {
        const QByteArray head = QByteArray("<?xml version='1.0' encoding='") + name + "'?>";
        EXPECT_EQ(RootText(head + "<a>" + ToCodePage949(u"가나다 뷁") + "</a>"), u"가나다 뷁"_q) << name;
    }
}

TEST(XmlDocument, TheCharsetOfTheContentTypeServesWhereNothingIsDeclared)
{
    const QByteArray bytes = "<a>" + ToCodePage949(u"가나다") + "</a>";
    EXPECT_EQ(RootText(bytes, "text/xml; charset=EUC-KR"), u"가나다"_q);
}

TEST(XmlDocument, TheDeclarationPrecedesTheContentType)
{
    EXPECT_EQ(RootText("<?xml version=\"1.0\" encoding=\"UTF-8\"?><a>가</a>", "text/xml; charset=euc-kr"),
              u"가"_q);
}

TEST(XmlDocument, Utf8IsTheDefault)
{
    EXPECT_EQ(RootText("<a>가나다</a>"), u"가나다"_q);
    EXPECT_EQ(RootText("\xEF\xBB\xBF<a>가나다</a>"), u"가나다"_q);
}

TEST(XmlDocument, Utf16IsRead)
{
    const QString text = u"\uFEFF<?xml version=\"1.0\" encoding=\"UTF-16\"?><a>가나다</a>"_q;
    EXPECT_EQ(RootText(QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2)),
              u"가나다"_q);
}

TEST(XmlDocument, PlainTextIsNoXml)
{
    EXPECT_FALSE(Parses("return_value:true"));
    EXPECT_FALSE(Parses(""));
    EXPECT_FALSE(Parses("<a><b></a>"));
    EXPECT_FALSE(Parses("<a>"));
}

TEST(XmlDocument, ADocumentTypeIsRefused)
{
    EXPECT_FALSE(Parses("<!DOCTYPE a [<!ENTITY x SYSTEM \"file:///etc/passwd\">]><a>&x;</a>"));
    EXPECT_FALSE(Parses("<!DOCTYPE a SYSTEM \"http://127.0.0.1:1/a.dtd\"><a/>"));
}

TEST(XmlDocument, AnUnknownEntityIsNotReplaced)
{
    EXPECT_EQ(RootText("<a>&x;</a>"), u"&x;"_q);
}

TEST(XmlElement, TextJoinsTextAndCharacterData)
{
    EXPECT_EQ(RootText("<a>x &amp; <![CDATA[<y>]]> <!-- no --> z</a>"), u"x & <y>  z"_q);
}

TEST(XmlElement, APrefixMeansWhatIsNearest)
{
    XmlDocument document;
    ASSERT_TRUE(document.Parse("<p:a xmlns:p='one' xmlns='two'><b><p:c xmlns:p='three'/></b></p:a>", {}));
    const XmlElement a = document.Root();
    const XmlElement b = a.First();
    EXPECT_EQ(a.Name(), (QualifiedName{u"one"_q, u"a"_q}));
    EXPECT_EQ(b.Name(), (QualifiedName{u"two"_q, u"b"_q}));
    EXPECT_EQ(b.First().Name(), (QualifiedName{u"three"_q, u"c"_q}));
}

TEST(XmlElement, AnUnboundPrefixHasNoNamespace)
{
    XmlDocument document;
    ASSERT_TRUE(document.Parse("<p:a/>", {}));
    EXPECT_EQ(document.Root().Name(), (QualifiedName{QString(), u"a"_q}));
}

} // namespace tsms::test
