#include "bench/export/Cells.h"

#include <QDateTime>
#include <QTimeZone>

namespace tsms::bench {

namespace {

QString Name(int row)
{
    const QStringView families = u"김이박최정강조윤장임한오서신권";
    const QStringView first = u"민서지현수영도윤하준예은시우";
    return QString(families[row % families.size()]) + first[row % first.size()] +
           first[row / 7 % first.size()];
}

QStringList Row(int row)
{
    const QDateTime sent = QDateTime(QDate(2024, 2, 29), QTime(9, 0), QTimeZone::utc()).addSecs(row * 3);
    const bool failed = row % 40 == 0;
    return {
        QString::number(row),
        failed ? QStringLiteral("전송실패") : QStringLiteral("전송완료"),
        sent.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")),
        Name(row),
        QStringLiteral("010-%1-%2")
            .arg(row % 10000, 4, 10, QChar(u'0'))
            .arg(row * 7 % 10000, 4, 10, QChar(u'0')),
        QStringLiteral("02-1234-5678"),
        QStringLiteral("%1님, 이번 주일 오후 2시 찬양연습이 있습니다. \"꼭\" 참석해 주세요.").arg(Name(row)),
        row % 5 == 0 ? QStringLiteral("예약") : QString(),
        failed ? QStringLiteral("결번") : QString(),
        QString::number(row * 31 % 100000)};
}

} // namespace

Cells::Cells(int rows)
{
    texts_ = {QStringLiteral("번호"),     QStringLiteral("결과"),     QStringLiteral("발송일시"),
              QStringLiteral("받는사람"), QStringLiteral("휴대번호"), QStringLiteral("회신번호"),
              QStringLiteral("내용"),     QStringLiteral("구분"),     QStringLiteral("사유"),
              QStringLiteral("건수")};
    for (int row = 2; row <= rows; ++row)
        texts_ += Row(row);
}

} // namespace tsms::bench
