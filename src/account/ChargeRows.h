#pragma once

#include "store/engine/RecordsetCells.h"

namespace tsms {

/// A date with its time of day as a person reads it: "YYYY-MM-DD HH:MM:SS". Parts of a second, which some
/// servers tell, are left out.
QString ShownMoment(const QString& stored);

/// The rows of the charge query as the ledger shows them.
class ChargeRows final : public CellSource
{
public:
    explicit ChargeRows(std::shared_ptr<const Recordset> records) : cells_(std::move(records)) {}
    int Rows() const override { return cells_.Rows(); }
    int Cols() const override { return cells_.Cols(); }
    QString Text(int col, int row) const override;

private:
    RecordsetCells cells_;
};

} // namespace tsms
