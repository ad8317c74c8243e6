// Writes good bytes for the fuzzers to begin with, a folder a target:
//   fuzz-seeds <folder>
#include "runtime/CodePage949.h"
#include "support/RecipientFile.h"
#include "support/spreadsheet/CompoundMaker.h"
#include "support/spreadsheet/WorkbookEncryptor.h"
#include "support/spreadsheet/WorkbookMaker.h"
#include "support/Words.h"
#include "tsms-gateway/ServiceWords.h"

#include <QDir>
#include <QFile>

#include <cstring>

using namespace tsms;
using namespace tsms::test;

namespace {

/// Syllables of KS X 1001 and beyond it, signs, Hanja, wide letters, and what has no code.
const QString DoubleByteText = u"가힣 똠방각하 펲시콜라 뷁 ㄱㅏ ☎☆※℡◇ 大韓民國 ①㈜㎏ ａｂｃ 、。 €® é 😀"_q;

void Write(const QDir& folder, const QString& name, const QByteArray& content)
{
    if (!folder.mkpath(u"."_q))
        qFatal("%s cannot be made", qPrintable(folder.path()));
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("%s cannot be written", qPrintable(file.fileName()));
}

/// A workbook with all kinds of records that are read.
QByteArray Stream(WorkbookMaker::Version version, int recordLimit)
{
    WorkbookMaker book(version);
    book.recordLimit = recordLimit;
    book.codePage = version == WorkbookMaker::Version::Biff5 ? 949 : 1200;
    book.from1904 = recordLimit > 1000;
    const int hyphens = book.AddFormat(u"[<=9999999]###-####;(0##) ###-####"_q);
    const int date = book.AddFormat(u"yyyy\"년\" m\"월\""_q);
    const int plain = book.AddBuiltInFormat(4);
    book.Share(u"모양이 여럿인 글"_q, 3);
    book.AddSheet(u"회원"_q)
        .Text(1, 1, u"홍길동과 그의 긴 이름"_q)
        .Number(2, 1, 1012345678, hyphens)
        .TextFormula(3, 1, u"값입니다 값입니다"_q)
        .MulRK(1, 2, {6, 10, 14}, plain)
        .RK(1, 3, (12345u << 2) | 3, date)
        .Truth(2, 3, true)
        .Error(3, 3, 7)
        .NumberFormula(1, 4, 41059.5, date)
        .OtherFormula(2, 4, 1, 1)
        .OtherFormula(3, 4, 3, 0)
        .Text(1, 5, u"plain latin"_q)
        .Text(2, 5, DoubleByteText);
    book.AddSheet(u"둘"_q, WorkbookMaker::Visibility::Hidden);
    book.AddSheet(u"그림"_q, WorkbookMaker::Visibility::Shown, WorkbookMaker::Kind::Chart);
    return book.Stream();
}

void WriteWorkbooks(const QDir& files, const QDir& streams)
{
    int number = 0;
    for (const auto version : {WorkbookMaker::Version::Biff5, WorkbookMaker::Version::Biff8})
        for (const int recordLimit : {20, 8224}) {
            const QByteArray stream = Stream(version, recordLimit);
            Write(streams, u"stream%1"_q.arg(++number), stream);
            for (const int sectorBytes : {512, 4096})
                for (const qsizetype size : {stream.size(), qsizetype(5000)}) { // in mini sectors or not
                    CompoundMaker file;
                    file.sectorBytes = sectorBytes;
                    file.backwards = sectorBytes == 512;
                    file.spareEntries = recordLimit == 20 ? 5 : 0;
                    file.streams = {{u"Other"_q, "other", true},
                                    {version == WorkbookMaker::Version::Biff5 ? u"Book"_q : u"Workbook"_q,
                                     stream + QByteArray(size - stream.size(), '\0')}};
                    Write(files, u"book%1-%2-%3.xls"_q.arg(number).arg(sectorBytes).arg(size), file.Make());
                }
        }
}

/// Workbooks that are hidden, that miscount, and in other code pages.
void WriteOddStreams(const QDir& streams)
{
    using Method = WorkbookEncryptor::Method;
    using Version = WorkbookMaker::Version;
    for (const Method method : {Method::Xor, Method::Rc4, Method::CryptoApi}) {
        const WorkbookEncryptor encryptor(method, "VelvetSweatshop");
        WorkbookMaker book;
        book.filePass = encryptor.FilePass(true);
        book.AddSheet(u"회원"_q).Text(1, 1, u"홍길동"_q).Number(2, 1, 1012345678);
        Write(streams, u"encrypted%1"_q.arg(static_cast<int>(method)), encryptor.Encrypted(book.Stream()));
    }
    WorkbookMaker miscounted;
    miscounted.recordLimit = 20;
    miscounted.emptyContinues = true;
    miscounted.toldStrings = 1;
    miscounted.AddSheet(u"회원"_q).Text(1, 1, u"홍길동과 그의 긴 이름"_q).Text(2, 1, u"010-1234-5678"_q);
    Write(streams, u"miscounted"_q, miscounted.Stream());
    for (const int codePage : {932, 1252, 1361}) {
        WorkbookMaker book(Version::Biff5);
        book.codePage = codePage;
        book.AddBuiltInFormat(1, book.AddFont(129));
        book.AddSheet(u"Sheet1"_q).Text(1, 1, u"\x20AC abc"_q).Number(2, 1, 1012345678, 1);
        Write(streams, u"page%1"_q.arg(codePage), book.Stream());
    }
}

void WriteRecipientFiles(const QDir& folder)
{
    const auto record = [](const QString& name, const QByteArray& phone) {
        return RecipientRecordBytes(ToCodePage949(name), phone);
    };
    const QByteArray records = record(u"김하늘"_q, "010-1111-1111") + record(u"이바다"_q, "01011111111") +
                               record(u"가나다라마바사아자a차"_q, "02-1") + record(u""_q, "011/2.2") +
                               record(u"박나무"_q, "016 3");
    Write(folder, u"none"_q, QByteArray(1, '\0'));
    Write(folder, u"few"_q, '\0' + records);
    Write(folder, u"listed"_q, '\4' + records + records);
    Write(folder, u"cut"_q, '\1' + records.chopped(100));
    // No blank behind a name of ten syllables, and names that a cut halved.
    Write(folder, u"full"_q,
          '\2' + record(u"똠방각하펲시콜라뷁힣"_q, "010-1234-5678") + record(u"a똠방각하펲시콜라뷁힣"_q, "") +
              RecipientRecordBytes("\xC9\xA1\xFE\xA1\x81\x5B\x80\xFF\xA1", "011"));
}

void WriteCodePage(const QDir& folder)
{
    const QByteArray bytes = ToCodePage949(DoubleByteText);
    Write(folder, u"whole"_q, bytes);
    Write(folder, u"halved"_q, bytes.first(7) + bytes.sliced(12));
    Write(folder, u"broken"_q,
          "\xC9\xA1"
          "a\xFE\xA1\xB0\xA1\x81\x5B\x80\xFF" +
              bytes.first(9));
    Write(folder, u"units"_q,
          QByteArray(reinterpret_cast<const char*>(DoubleByteText.utf16()),
                     DoubleByteText.size() * qsizetype(sizeof(QChar))));
    Write(folder, u"lines"_q, bytes + "\r\n" + bytes + "\r\n\n\r");
}

void WriteNumberFormats(const QDir& folder)
{
    struct Case
    {
        double value;
        QString code;
    };
    const Case cases[] = {
        {1012345678, u"000-0000-0000"_q},
        {1012345678, u"[<=9999999]###-####;(0##) ###-####"_q},
        {-1234567.891, u"#,##0.00_-;[Red]-#,##0.00_-"_q},
        {0.125, u"0.0%"_q},
        {41059.5, u"yyyy\"년\" m\"월\" d\"일\" AM/PM h:mm:ss"_q},
        {1.75, u"[h]:mm:ss.00"_q},
        {123456789012345678.0, u"General"_q},
        {5, u"G/표준\"명\""_q},
        {1e300, u"#,##0,,\\a\\b"_q},
        {0.333, u"# #?/??"_q},
        {12345, u"0.00E+00"_q},
        {7, u"[$-412]0;\"음\"0;\"영\";@"_q},
        {3, u"0-0.0.0"_q},
    };
    int number = 0;
    for (const Case& each : cases) {
        ++number;
        QByteArray value(sizeof each.value, '\0');
        std::memcpy(value.data(), &each.value, sizeof each.value);
        Write(folder, u"code%1"_q.arg(number), value + static_cast<char>(number % 2) + each.code.toUtf8());
    }
}

/// A document of UTF-8 as one that is declared as Korean, and encoded so.
QByteArray InKorean(const QByteArray& document)
{
    return ToCodePage949(QString::fromUtf8(document)).replace("UTF-8", "EUC-KR");
}

void WriteReplies(const QDir& folder)
{
    const QString reply =
        u"return_value:true;sms_id:x;dest:010-1234-5678;unique_num:20120530140709001;a:;b:;c:;error_code:;error_msg:"_q;
    const QByteArray type = "text/xml; charset=utf-8\n";
    for (const ServiceStyle style :
         {ServiceStyle::RpcEncoded, ServiceStyle::RpcLiteral, ServiceStyle::DocumentLiteral}) {
        const QString name = QString::number(static_cast<int>(style));
        Write(folder, u"answer"_q + name, type + ServiceAnswer(u"SendSMS"_q, style, reply));
        Write(folder, u"korean"_q + name,
              '\n' + InKorean(ServiceAnswer(u"SendSMS"_q, style, reply + DoubleByteText)));
    }
    const QByteArray fault = ServiceFault(u"Server"_q, u"잔액이 부족합니다."_q, DoubleByteText);
    Write(folder, u"fault"_q, type + fault);
    Write(folder, u"korean-fault"_q, "text/xml; charset=euc-kr\n" + InKorean(fault));
    Write(folder, u"apart"_q,
          "\n<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/'><s:Body><r><v href='#a'/></r>"
          "<m id='a'>return_value:1;;;;;;;error_code:9;error_msg:</m></s:Body></s:Envelope>");
}

void WriteDescriptions(const QDir& folder)
{
    const QByteArray type = "text/xml\n";
    for (const ServiceStyle style :
         {ServiceStyle::RpcEncoded, ServiceStyle::RpcLiteral, ServiceStyle::DocumentLiteral}) {
        const QString name = QString::number(static_cast<int>(style));
        const QByteArray whole = DescriptionOf(style, u"http://gateway.test/s"_q);
        Write(folder, u"whole"_q + name, type + whole);
        Write(folder, u"korean"_q + name,
              type + InKorean(QByteArray(whole).replace("SendSMS", "문자보내기")));
        Write(folder, u"imported"_q + name,
              type +
                  "<d:definitions xmlns:d='http://schemas.xmlsoap.org/wsdl/'><d:import location='b.wsdl'/>"
                  "</d:definitions>\f" +
                  whole);
    }
    Write(folder, u"without"_q,
          type + DescriptionOf(ServiceStyle::RpcEncoded, u"http://gateway.test/s"_q, false));
}

void WriteLaunchLines(const QDir& folder)
{
    const auto line = [](const QStringList& fields) { return fields.join(u'■').toUtf8(); };
    const QStringList fields = {u"SMS"_q, u"server\\office"_q, u"1433"_q, u"sa"_q, u"p'w;d \"가\""_q,
                                u"12"_q,  u"사무실"_q};
    Write(folder, u"whole"_q, line(fields));
    Write(folder, u"more"_q, line(fields + QStringList{u"x"_q, u""_q}));
    Write(folder, u"less"_q, line(fields.first(5)));
    Write(folder, u"embedded"_q,
          line({u"/tmp/a b.db"_q, u"(embedded)"_q, u""_q, u""_q, u""_q, u" -1.5e3 "_q, u""_q}));
    Write(folder, u"large"_q, line(fields.first(5) + QStringList{u"2147483648"_q, u""_q}));
    Write(folder, u"words"_q, line(fields).replace(' ', '\0'));
}

void WriteStatements(const QDir& folder)
{
    const auto values = [](char how, const QStringList& list) { return how + list.join(u'\x1E').toUtf8(); };
    Write(folder, u"insert"_q, values(0, {u"2012"_q, u" 홍길동 "_q, u"안녕하세요\r\n"_q, u"  "_q}));
    Write(folder, u"select"_q, values(1, {u"2012"_q, u"010-1234"_q, u"20120530"_q}));
    Write(folder, u"update"_q, values(2, {u"O'Neill"_q, u"a''b"_q, u"- 1.5e3 * 2 / 7"_q}));
    Write(folder, u"delete"_q, values(3, {u"'; DROP TABLE T --"_q, u"[a] \"b\" /* c */"_q}));
    const QStringList dialect = {
        u"DELETE SMSLog_2012 WHERE SMSKey = 1"_q,
        u"SELECT LEFT(REPLACE(A,'-','') + ISNULL(B,'x'),4) AS C FROM T AS P WHERE RIGHT(A,1) + '1' <> B"_q,
        u"SELECT CONVERT(VARCHAR(10),A,120), COUNT(*) FROM T WHERE DATEADD(DAY, -1, getdate()) <= ('2012' + '05')"_q,
        u"INSERT INTO [T] (\"A\",B) VALUES ('가''나', Null)"_q,
        u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - 3"_q};
    for (const QString& sql : dialect)
        Write(folder, u"dialect%1"_q.arg(dialect.indexOf(sql)), '\4' + sql.toUtf8());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    WriteCodePage(folder.filePath(u"code-page"_q));
    WriteLaunchLines(folder.filePath(u"launch-line"_q));
    WriteNumberFormats(folder.filePath(u"number-format"_q));
    WriteRecipientFiles(folder.filePath(u"recipient-file"_q));
    WriteDescriptions(folder.filePath(u"service-description"_q));
    WriteReplies(folder.filePath(u"soap-reply"_q));
    WriteStatements(folder.filePath(u"statement"_q));
    WriteWorkbooks(folder.filePath(u"workbook"_q), folder.filePath(u"workbook-stream"_q));
    WriteOddStreams(folder.filePath(u"workbook-stream"_q));
    return 0;
}
