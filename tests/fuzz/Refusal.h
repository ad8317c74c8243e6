#pragma once

#include "fuzz/Target.h"
#include "runtime/RuntimeError.h"
#include "spreadsheet/read/ReadWorkbook.h"

namespace tsms::test {

/// A workbook is read into cells that can all be looked at, or it is refused in the one way there is.
template <class Read> void ExpectReadOrRefused(Read&& read)
{
    try {
        const WorkbookTexts texts = read();
        Require(texts.sheets.isEmpty() == !texts.firstSheet);
        if (!texts.firstSheet)
            return;
        Require(texts.firstSheet->Rows() <= 65536);
        for (int row = 1; row <= texts.firstSheet->Rows(); ++row)
            for (int col = 1; col <= texts.firstSheet->Cols(); ++col)
                texts.firstSheet->Text(col, row);
    } catch (const RuntimeError& error) {
        Require(error.Number == InvalidFileFormat);
    }
}

} // namespace tsms::test
