#include "addressbook/ImportRows.h"

#include "recipients/MobileNumber.h"
#include "runtime/Text.h"

namespace tsms {

ImportVerdict JudgeImportRow(const QString& name, const QString& number)
{
    if (IsBlank(name))
        return ImportVerdict::Blank;
    return IsMobileNumber(number) ? ImportVerdict::Good : ImportVerdict::Lost;
}

QString ImportCount(std::int16_t count)
{
    return QString::number(count) + QStringLiteral("건");
}

QString ImportProgress(std::int32_t total, int row)
{
    return QStringLiteral("■ 엑셀데이터에 있는 휴대번호를 검증합니다....      총 : ") +
           QString::number(total) + QStringLiteral(", 현 : ") + QString::number(row);
}

} // namespace tsms
