#include "account/ChargeRows.h"

#include "account/ModStep3.h"

namespace tsms {

QString ShownMoment(const QString& stored)
{
    return stored.left(QStringView(u"YYYY-MM-DD HH:MM:SS").size());
}

QString ChargeRows::Text(int col, int row) const
{
    const QString text = cells_.Text(col, row);
    return col == ChargeRegistered ? ShownMoment(text) : text;
}

} // namespace tsms
