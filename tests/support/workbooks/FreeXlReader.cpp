#include "support/workbooks/FreeXlReader.h"

#include <QFile>

#include <freexl.h>
#include <gtest/gtest.h>

namespace tsms::test {

namespace {

QVariant ToVariant(const FreeXL_CellValue& cell)
{
    switch (cell.type) {
    case FREEXL_CELL_NULL:
        return {};
    case FREEXL_CELL_INT:
        return static_cast<double>(cell.value.int_value);
    case FREEXL_CELL_DOUBLE:
        return cell.value.double_value;
    case FREEXL_CELL_TEXT:
    case FREEXL_CELL_SST_TEXT:
        return QString::fromUtf8(cell.value.text_value);
    default:
        ADD_FAILURE() << "a cell of type " << int(cell.type);
        return {};
    }
}

void ReadSheet(const void* book, ReadBook& into)
{
    unsigned int rows = 0;
    unsigned short columns = 0;
    ASSERT_EQ(freexl_worksheet_dimensions(book, &rows, &columns), FREEXL_OK);
    for (unsigned int row = 0; row < rows; ++row) {
        QVariantList cells;
        for (unsigned short column = 0; column < columns; ++column) {
            FreeXL_CellValue cell;
            ASSERT_EQ(freexl_get_cell_value(book, row, column, &cell), FREEXL_OK);
            cells += ToVariant(cell);
        }
        into.rows += cells;
    }
}

void ReadBookInto(const void* book, ReadBook& into)
{
    unsigned int sheets = 0;
    ASSERT_EQ(freexl_get_info(book, FREEXL_BIFF_SHEET_COUNT, &sheets), FREEXL_OK);
    for (unsigned short sheet = 0; sheet < sheets; ++sheet) {
        const char* name = nullptr;
        ASSERT_EQ(freexl_get_worksheet_name(book, sheet, &name), FREEXL_OK);
        into.sheets += QString::fromUtf8(name);
    }
    ASSERT_EQ(freexl_select_active_worksheet(book, 0), FREEXL_OK);
    ReadSheet(book, into);
}

} // namespace

ReadBook ReadWithFreeXl(const QString& path)
{
    ReadBook read;
    const void* book = nullptr;
    const int result = freexl_open(QFile::encodeName(path).constData(), &book);
    EXPECT_EQ(result, FREEXL_OK);
    EXPECT_TRUE(book);
    if (!book)
        return read;
    ReadBookInto(book, read);
    freexl_close(book);
    return read;
}

} // namespace tsms::test
