#include "runtime/RuntimeError.h"
#include "spreadsheet/ReadWorkbook.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

using namespace tsms;

namespace {

/// Streams on which the reader once failed, whoever found them.
QFileInfoList FoundStreams()
{
    return QDir(QStringLiteral(TSMS_FOUND_WORKBOOKS)).entryInfoList(QDir::Files);
}

void ReadOrRefuse(const QByteArray& stream)
{
    try {
        const WorkbookTexts texts = ReadWorkbookStream(stream, 3);
        EXPECT_EQ(texts.sheets.isEmpty(), texts.firstSheet == nullptr);
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, InvalidFileFormat);
    }
}

TEST(FoundWorkbooks, EachIsReadOrRefused)
{
    ASSERT_FALSE(FoundStreams().isEmpty());
    for (const QFileInfo& found : FoundStreams()) {
        SCOPED_TRACE(found.fileName().toStdString());
        QFile file(found.filePath());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        ReadOrRefuse(file.readAll());
    }
}

} // namespace
