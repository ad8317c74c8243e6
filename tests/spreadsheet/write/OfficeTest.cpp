#include "spreadsheet/write/WriteWorkbook.h"

#include "spreadsheet/write/TableSheet.h"
#include "support/Words.h"

#include <QFile>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

/// Rows of a file of comma separated values whose texts stand in quotes where needed.
QList<QStringList> ParseCsv(const QString& content)
{
    QList<QStringList> rows;
    QStringList row;
    QString field;
    bool quoted = false;
    for (qsizetype i = 0; i < content.size(); ++i) {
        const QChar c = content[i];
        if (quoted && c == u'"' && content.mid(i + 1, 1) == u"\"") {
            field += c;
            ++i;
        } else if (c == u'"') {
            quoted = !quoted;
        } else if (!quoted && (c == u',' || c == u'\n')) {
            row += field;
            field.clear();
            if (c == u'\n') {
                rows += row;
                row.clear();
            }
        } else {
            field += c;
        }
    }
    return rows;
}

/// What the first table of a flat OpenDocument file says about looks.
struct Looks
{
    QMap<QString, QXmlStreamAttributes> styles; ///< all properties of a style, by its name
    QList<QXmlStreamAttributes> columns;        ///< each column, once as often as it is repeated
    QList<QStringList> cellStyles;              ///< of the cells of each row
};

QString Value(const QXmlStreamAttributes& attributes, const QString& name)
{
    return attributes.value(name).toString();
}

Looks ReadLooks(QFile& file)
{
    Looks looks;
    QString style;
    for (QXmlStreamReader xml(&file); !xml.atEnd(); xml.readNext()) {
        if (!xml.isStartElement())
            continue;
        const QXmlStreamAttributes attributes = xml.attributes();
        const QString name = xml.qualifiedName().toString();
        if (name == u"style:style")
            style = Value(attributes, u"style:name"_q);
        else if (name.startsWith(u"style:") && name.endsWith(u"-properties"))
            looks.styles[style] += attributes;
        else if (name == u"table:table-column")
            looks.columns += QList<QXmlStreamAttributes>(
                qMax(1, Value(attributes, u"table:number-columns-repeated"_q).toInt()), attributes);
        else if (name == u"table:table-row")
            looks.cellStyles += QStringList();
        else if (name == u"table:table-cell")
            looks.cellStyles.last() +=
                QStringList(qMax(1, Value(attributes, u"table:number-columns-repeated"_q).toInt()),
                            Value(attributes, u"table:style-name"_q));
    }
    return looks;
}

/// Opens a workbook in the office program and has it say what it sees.
class Office : public ::testing::Test
{
protected:
    /// Writes the sheet, has it converted, and opens the result.
    void Convert(const Sheet& sheet, const QString& filter, QFile& into)
    {
        const QString book = folder.filePath(u"내역.xls"_q);
        WriteWorkbook(book, sheet);
        QProcess office;
        office.setProcessChannelMode(QProcess::MergedChannels);
        office.start(u"soffice"_q,
                     {u"-env:UserInstallation=file://"_q + folder.filePath(u"profile"_q), u"--headless"_q,
                      u"--convert-to"_q, filter, u"--outdir"_q, folder.path(), book});
        ASSERT_TRUE(office.waitForStarted()) << "libreoffice-calc-nogui is not installed";
        ASSERT_TRUE(office.waitForFinished(100000));
        into.setFileName(folder.filePath(u"내역."_q + filter.section(u':', 0, 0)));
        ASSERT_TRUE(into.open(QIODevice::ReadOnly)) << office.readAll().toStdString();
    }

    QTemporaryDir folder;
};

TEST_F(Office, SeesEveryCellAsItWasWritten)
{
    QList<QStringList> rows{{u"이름"_q, u"건수"_q, u"내용"_q, u"1"_q}};
    for (int i = 1; i <= 200; ++i)
        rows += QStringList{u"받는사람 %1"_q.arg(i), QString::number(i * 617),
                            u"내용 "_q + QString(i * 41, u'한'), u"010%1"_q.arg(i, 8, 10, QChar(u'0'))};
    rows += QStringList{u"\"따옴표\""_q, u"99.5"_q, u"여러\n줄,\n쉼표"_q, u"=1+1"_q};
    rows += QStringList{u"가,나"_q, u"글자"_q, u"😀 é ÿ 뷁"_q, u""_q};
    rows += QStringList{u" 빈칸 "_q, u"-1234567"_q, QString(32767, u'가'), QString(32767, u'x')};
    Sheet sheet = TableSheet(rows);
    sheet.columns[1].number = true;
    sheet.columns[2].hidden = true;
    QFile csv;
    ASSERT_NO_FATAL_FAILURE(Convert(sheet, u"csv:Text - txt - csv (StarCalc):44,34,76"_q, csv));
    const QList<QStringList> read = ParseCsv(QString::fromUtf8(csv.readAll()));
    ASSERT_EQ(read.size(), rows.size());
    for (qsizetype row = 0; row < rows.size(); ++row) {
        QStringList expected = rows[row];
        bool isNumber = false;
        if (const int number = expected[1].toInt(&isNumber); isNumber)
            expected[1] = QLocale(QLocale::English).toString(number); // in groups of three
        EXPECT_EQ(read[row], expected) << "row " << row + 1;
    }
}

TEST_F(Office, SeesTheLooksOfTitlesAndColumns)
{
    Sheet sheet = TableSheet({{u"이름"_q, u"숨김"_q, u"수"_q}, {u"가"_q, u"나"_q, u"1234"_q}});
    sheet.columns[0].width = 20;
    sheet.columns[0].alignment = SheetAlignment::Center;
    sheet.columns[1].hidden = true;
    sheet.columns[2].width = 10;
    sheet.columns[2].number = true;
    QFile document;
    ASSERT_NO_FATAL_FAILURE(Convert(sheet, u"fods"_q, document));
    const Looks looks = ReadLooks(document);
    ASSERT_GE(looks.columns.size(), 3);
    ASSERT_GE(looks.cellStyles.size(), 2);

    const auto styleOf = [&](int col, int row) {
        const QString own = looks.cellStyles[row - 1][col - 1];
        const QString ofColumn = Value(looks.columns[col - 1], u"table:default-cell-style-name"_q);
        return looks.styles[own.isEmpty() ? ofColumn : own];
    };
    for (const int col : {1, 2, 3}) {
        EXPECT_EQ(Value(styleOf(col, 1), u"fo:background-color"_q), u"#ffff00"_q);
        EXPECT_EQ(Value(styleOf(col, 1), u"fo:font-weight"_q), u"bold"_q);
    }
    EXPECT_NE(Value(styleOf(1, 2), u"fo:background-color"_q), u"#ffff00"_q);
    EXPECT_NE(Value(styleOf(1, 2), u"fo:font-weight"_q), u"bold"_q);
    EXPECT_EQ(Value(styleOf(1, 2), u"fo:text-align"_q), u"center"_q);

    EXPECT_EQ(Value(looks.columns[0], u"table:visibility"_q), QString());
    EXPECT_EQ(Value(looks.columns[1], u"table:visibility"_q), u"collapse"_q);
    const auto inches = [&](int col) {
        const QXmlStreamAttributes style = looks.styles[Value(looks.columns[col - 1], u"table:style-name"_q)];
        return Value(style, u"style:column-width"_q).chopped(2).toDouble();
    };
    EXPECT_NEAR(inches(1) / inches(3), 2, 0.01);
}

} // namespace
