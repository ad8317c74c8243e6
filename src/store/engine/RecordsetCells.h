#pragma once

#include "runtime/CellSource.h"
#include "store/engine/Recordset.h"

#include <memory>

namespace tsms {

/// The rows of a query as a grid reads them: the fields by position, a NULL as an empty text.
class RecordsetCells final : public CellSource
{
public:
    explicit RecordsetCells(std::shared_ptr<const Recordset> records) : records_(std::move(records)) {}

    int Rows() const override { return records_->RecordCount(); }
    int Cols() const override { return records_->FieldCount(); }
    QString Text(int col, int row) const override { return records_->Text(row - 1, col - 1); }

private:
    std::shared_ptr<const Recordset> records_;
};

} // namespace tsms
