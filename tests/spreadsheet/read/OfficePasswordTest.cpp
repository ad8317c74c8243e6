// The ciphers beside those of a program that is not ours: it opens what the tests encrypt, and what it
// encrypts is read.
#include "runtime/RuntimeError.h"
#include "spreadsheet/read/ReadWorkbook.h"
#include "support/spreadsheet/CompoundMaker.h"
#include "support/spreadsheet/WorkbookEncryptor.h"
#include "support/spreadsheet/WorkbookMaker.h"
#include "support/Words.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

constexpr char DefaultPassword[] = "VelvetSweatshop";

/// Saves a workbook with a password: the program's own command line has no way to.
constexpr char Macro[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE script:module PUBLIC "-//OpenOffice.org//DTD OfficeDocument 1.0//EN" "module.dtd">
<script:module xmlns:script="http://openoffice.org/2000/script" script:name="Module1" script:language="StarBasic">
Sub Save(source As String, target As String, password As String)
  Dim opening(0) As New com.sun.star.beans.PropertyValue
  opening(0).Name = "Hidden"
  opening(0).Value = True
  Dim saving(1) As New com.sun.star.beans.PropertyValue
  saving(0).Name = "FilterName"
  saving(0).Value = "MS Excel 97"
  saving(1).Name = "Password"
  saving(1).Value = password
  document = StarDesktop.loadComponentFromURL(ConvertToUrl(source), "_blank", 0, opening())
  document.storeToURL(ConvertToUrl(target), saving())
  document.close(True)
End Sub
</script:module>
)";

constexpr char MacroLibrary[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE library:library PUBLIC "-//OpenOffice.org//DTD OfficeDocument 1.0//EN" "library.dtd">
<library:library xmlns:library="http://openoffice.org/2000/library" library:name="Standard"
    library:readonly="false" library:passwordprotected="false">
 <library:element library:name="Module1"/>
</library:library>
)";

class OfficePasswords : public ::testing::Test
{
protected:
    QString Path(const QString& name) const { return folder.filePath(name); }

    void Write(const QString& name, const QByteArray& content)
    {
        ASSERT_TRUE(QDir(folder.path()).mkpath(QFileInfo(name).path()));
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }

    void RunOffice(const QStringList& arguments)
    {
        QProcess office;
        office.setProcessChannelMode(QProcess::MergedChannels);
        office.start(u"soffice"_q,
                     QStringList{u"-env:UserInstallation=file://"_q + Path(u"profile"_q), u"--headless"_q} +
                         arguments);
        ASSERT_TRUE(office.waitForStarted()) << "libreoffice-calc-nogui is not installed";
        ASSERT_TRUE(office.waitForFinished(100000));
    }

    static void Fill(WorkbookMaker& book)
    {
        WorkbookMaker::Sheet& sheet = book.AddSheet(u"회원"_q);
        for (int row = 1; row <= Rows; ++row)
            sheet.Text(1, row, Name(row)).Number(2, row, row);
    }

    static QString Name(int row) { return u"이름 %1"_q.arg(row); }

    static constexpr int Rows = 200; // more than a block of the ciphers

    QTemporaryDir folder;
};

TEST_F(OfficePasswords, AnotherProgramOpensWhatTheTestsEncryptWithTheDefaultPassword)
{
    using Method = WorkbookEncryptor::Method;
    using Version = WorkbookMaker::Version;
    QStringList names;
    for (const auto& [version, method] :
         {std::pair(Version::Biff5, Method::Xor), std::pair(Version::Biff8, Method::Xor),
          std::pair(Version::Biff8, Method::Rc4), std::pair(Version::Biff8, Method::CryptoApi)}) {
        const WorkbookEncryptor encryptor(method, DefaultPassword);
        WorkbookMaker book(version);
        book.filePass = encryptor.FilePass(version == Version::Biff8);
        book.codePage = version == Version::Biff8 ? 1200 : 949;
        Fill(book);
        CompoundMaker file;
        file.streams = {
            {version == Version::Biff8 ? u"Workbook"_q : u"Book"_q, encryptor.Encrypted(book.Stream())}};
        names += u"book%1"_q.arg(names.size());
        Write(names.last() + u".xls"_q, file.Make());
    }
    QStringList arguments{u"--convert-to"_q, u"csv:Text - txt - csv (StarCalc):44,34,76"_q, u"--outdir"_q,
                          folder.path()};
    for (const QString& name : names)
        arguments += Path(name + u".xls"_q);
    RunOffice(arguments);
    for (const QString& name : names) {
        QFile csv(Path(name + u".csv"_q));
        ASSERT_TRUE(csv.open(QIODevice::ReadOnly)) << name.toStdString();
        const QStringList lines = QString::fromUtf8(csv.readAll()).split(u'\n', Qt::SkipEmptyParts);
        ASSERT_EQ(lines.size(), Rows);
        for (int row = 1; row <= Rows; ++row)
            ASSERT_EQ(lines[row - 1], u"%1,%2"_q.arg(Name(row)).arg(row));
    }
}

TEST_F(OfficePasswords, WhatAnotherProgramEncryptsIsReadWithTheDefaultPasswordOnly)
{
    WorkbookMaker book;
    Fill(book);
    Write(u"plain.xls"_q, book.File());
    RunOffice({u"--terminate_after_init"_q}); // makes the profile, which has to be there before the macro
    Write(u"profile/user/basic/Standard/script.xlb"_q, MacroLibrary);
    Write(u"profile/user/basic/Standard/Module1.xba"_q, Macro);
    for (const QString& password : {QString::fromLatin1(DefaultPassword), u"secret"_q})
        RunOffice({u"macro:///Standard.Module1.Save(%1,%2,%3)"_q.arg(Path(u"plain.xls"_q),
                                                                     Path(password + u".xls"_q), password)});

    QFile file(Path(QString::fromLatin1(DefaultPassword) + u".xls"_q));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const WorkbookTexts texts = ReadWorkbook(file, 3);
    ASSERT_EQ(texts.firstSheet->Rows(), Rows);
    for (int row = 1; row <= Rows; ++row)
        ASSERT_EQ(texts.firstSheet->Text(1, row), Name(row));
    QFile secret(Path(u"secret.xls"_q));
    ASSERT_TRUE(secret.open(QIODevice::ReadOnly));
    EXPECT_THROW(ReadWorkbook(secret, 3), RuntimeError);
}

} // namespace
