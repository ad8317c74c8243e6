#pragma once

#include "store/engine/Statement.h"

#include <QString>

#include <optional>

namespace tsms {

/// A charge as it is entered.
struct ChargeEntry
{
    QString ChargeDt;                 ///< "YYYY-MM-DD"
    std::optional<QString> ChargeCnt; ///< the plain number; none where nothing was entered
    std::optional<QString> ChargeAmt; ///< the same
    QString ChargeUnit;
    QString Remark;
};

/// The whole ledger, the latest date first. Its fields are the columns of the ledger's grid.
Statement ChargeQuery();

Statement ChargeInsert(const ChargeEntry& entry);
Statement ChargeDelete(const QString& key);

/// The balance moved by a plain number, which may be negative.
Statement BalancePlus(const QString& count);
Statement BalanceMinus(const QString& count);

} // namespace tsms
