// Workbooks that are encrypted with the password that spreadsheet programs try before they ask for one.
#include "runtime/RuntimeError.h"
#include "spreadsheet/read/ReadWorkbook.h"
#include "support/spreadsheet/LittleEndian.h"
#include "support/spreadsheet/WorkbookEncryptor.h"
#include "support/spreadsheet/WorkbookMaker.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

using Method = WorkbookEncryptor::Method;
using Version = WorkbookMaker::Version;

constexpr char DefaultPassword[] = "VelvetSweatshop";

struct Cipher
{
    Version version;
    Method method;
    int keyBits;
};

void PrintTo(const Cipher& cipher, std::ostream* out)
{
    *out << (cipher.version == Version::Biff5 ? "Biff5" : "Biff8");
    *out << (cipher.method == Method::Xor ? "Xor" : cipher.method == Method::Rc4 ? "Rc4" : "CryptoApi");
    *out << cipher.keyBits;
}

class EncryptedWorkbooks : public ::testing::TestWithParam<Cipher>
{
protected:
    /// Two sheets of which the first runs over many blocks, with texts in several records.
    QByteArray Stream(const QByteArray& password) const
    {
        const WorkbookEncryptor encryptor(GetParam().method, password, GetParam().keyBits);
        WorkbookMaker book(GetParam().version);
        book.filePass = encryptor.FilePass(GetParam().version == Version::Biff8);
        book.codePage = GetParam().version == Version::Biff8 ? 1200 : 949;
        book.recordLimit = 3000;
        const int hyphens = book.AddFormat(u"000-0000-0000"_q);
        WorkbookMaker::Sheet& sheet = book.AddSheet(u"회원 명단"_q);
        for (int row = 1; row <= Rows; ++row)
            sheet.Text(1, row, Name(row)).Number(2, row, Phone + row, hyphens).TextFormula(3, row, u"식"_q);
        book.AddSheet(u"둘"_q).Text(1, 1, u"다른"_q);
        return encryptor.Encrypted(book.Stream());
    }

    static QString Name(int row) { return u"이름 %1"_q.arg(row); }
    static constexpr int Rows = 120;
    static constexpr double Phone = 1012340000;
};

INSTANTIATE_TEST_SUITE_P(All, EncryptedWorkbooks,
                         ::testing::Values(Cipher{Version::Biff5, Method::Xor, 0},
                                           Cipher{Version::Biff8, Method::Xor, 0},
                                           Cipher{Version::Biff8, Method::Rc4, 0},
                                           Cipher{Version::Biff8, Method::CryptoApi, 40},
                                           Cipher{Version::Biff8, Method::CryptoApi, 56},
                                           Cipher{Version::Biff8, Method::CryptoApi, 128}),
                         ::testing::PrintToStringParamName());

TEST_P(EncryptedWorkbooks, OneWithTheDefaultPasswordIsRead)
{
    const WorkbookTexts texts = ReadWorkbookStream(Stream(DefaultPassword), 3);
    EXPECT_EQ(texts.sheets, (QStringList{u"회원 명단"_q, u"둘"_q}));
    ASSERT_EQ(texts.firstSheet->Rows(), Rows);
    for (int row = 1; row <= Rows; ++row) {
        ASSERT_EQ(texts.firstSheet->Text(1, row), Name(row));
        ASSERT_EQ(texts.firstSheet->Text(2, row), u"010-1234-%1"_q.arg(row, 4, 10, QChar(u'0')));
        ASSERT_EQ(texts.firstSheet->Text(3, row), u"식"_q);
    }
}

TEST_P(EncryptedWorkbooks, OneWithAPasswordOfItsOwnIsRefused)
{
    for (const char* password : {"secret", "velvetsweatshop", "VelvetSweatsho", "x"})
        EXPECT_THROW(ReadWorkbookStream(Stream(password), 3), RuntimeError) << password;
}

TEST_P(EncryptedWorkbooks, OneWhoseHeadIsCutOrDamagedIsReadRightlyOrRefused)
{
    const QByteArray stream = Stream(DefaultPassword);
    const qsizetype head = stream.indexOf(QByteArray("\x2F\x00", 2));
    const qsizetype size = qFromLittleEndian<quint16>(stream.constData() + head + 2);
    for (qsizetype left = 0; left < size; ++left) {
        QByteArray cut = stream;
        qToLittleEndian(static_cast<quint16>(left), cut.data() + head + 2);
        cut.remove(head + 4 + left, size - left);
        EXPECT_THROW(ReadWorkbookStream(cut, 3), RuntimeError) << left;
    }
    for (qsizetype at = head + 4; at < head + 4 + size; ++at) {
        QByteArray damaged = stream;
        damaged[at] = static_cast<char>(~damaged[at]);
        try {
            const WorkbookTexts texts = ReadWorkbookStream(damaged, 3);
            EXPECT_EQ(texts.firstSheet->Text(1, Rows), Name(Rows)) << at; // a byte that says nothing
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, InvalidFileFormat);
        }
    }
}

TEST(EncryptedWorkbook, ACipherThatThereIsNotIsRefused)
{
    for (const QByteArray& filePass :
         {QByteArray(), QByteArray("\x01"), LittleEndian().U16(2).U16(1).U16(1).Fill(48).bytes,
          LittleEndian().U16(1).U16(9).U16(9).Fill(200).bytes,
          LittleEndian().U16(1).U16(2).U16(2).U32(4).U32(0xFFFFFFFF).Fill(200, '\xFF').bytes}) {
        WorkbookMaker book;
        book.filePass = filePass;
        book.AddSheet(u"하나"_q).Text(1, 1, u"글"_q);
        QByteArray stream = book.Stream();
        if (filePass.isEmpty())
            stream.insert(20, WorkbookMaker::OneRecord(0x2F, {}));
        EXPECT_THROW(ReadWorkbookStream(stream, 3), RuntimeError) << filePass.toHex().toStdString();
    }
}

} // namespace
