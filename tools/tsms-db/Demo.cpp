#include "tsms-db/Demo.h"

#include "store/engine/Connection.h"
#include "store/engine/Statement.h"
#include "tsms-db/DemoContent.h"

namespace tsms {

namespace {

constexpr int DaysBack = 365;
constexpr int DaysAhead = 10;
constexpr int UnitPrice = 20;
const QString AccountId = QStringLiteral("demo");
const QString SenderNumber = QStringLiteral("02-1234-5678");
const QString Organisation = QStringLiteral("한빛마을도서관");

struct Person
{
    QString name;
    QString phone;
};

struct LogRow
{
    QDateTime written;
    QDateTime delivery;
    QString status;
    Person to;
    QString words;
};

/// A fault that the gateway tells.
struct Refusal
{
    QString code;
    QString words;
};

Refusal RefusalOf(int number)
{
    switch (number % 3) {
    case 0:
        return {QStringLiteral("E211"), QStringLiteral("결번이거나 사용이 정지된 번호입니다.")};
    case 1:
        return {QStringLiteral("E305"), QStringLiteral("수신자의 휴대전화가 꺼져 있습니다.")};
    default:
        return {QStringLiteral("E107"), QStringLiteral("통신사 사정으로 전송하지 못했습니다.")};
    }
}

class Filler
{
public:
    Filler(Connection& connection, const QDateTime& now, YearRange years)
        : connection_(connection), now_(now), years_(years)
    {
    }

    void Fill()
    {
        FillMembers();
        FillTemplates();
        FillLog();
        FillCharges();
        FillAccount();
    }

private:
    void Execute(const Statement& statement) { connection_.Execute(statement); }

    void FillMembers()
    {
        int groupCode = 0;
        int number = 0;
        for (const DemoGroup& group : DemoGroups()) {
            if (!group.name.isEmpty()) {
                ++groupCode;
                Execute(
                    Statement(u"INSERT INTO SMSGroupMst (GroupNm) VALUES (").Quoted(group.name).Own(u")"));
            }
            for (const QString& name : group.members) {
                const Person person{name,
                                    QStringLiteral("010-0000-%1").arg(++number, 4, 10, QLatin1Char('0'))};
                people_ += {group.name, person};
                const QString code =
                    group.name.isEmpty() ? QStringLiteral("Null") : QString::number(groupCode);
                Execute(Statement(u"INSERT INTO SMSGroupSub (GroupCd, GSubNm, GSPhone) VALUES (")
                            .Own(code)
                            .Own(u",")
                            .Quoted(person.name)
                            .Own(u",")
                            .Quoted(person.phone)
                            .Own(u")"));
            }
        }
    }

    void FillTemplates()
    {
        for (const DemoCategory& category : DemoCategories()) {
            const QString code = QString::number(category.code);
            Execute(Statement(u"INSERT INTO SMSTempLMst (TempLCd, TempLNm) VALUES (")
                        .Bare(code)
                        .Own(u",")
                        .Quoted(category.name)
                        .Own(u")"));
            for (const DemoTemplate& entry : category.templates)
                Execute(Statement(u"INSERT INTO SMSTempLSub (TempLCd, TempLSubNm, TempLContent) VALUES (")
                            .Bare(code)
                            .Own(u",")
                            .Quoted(entry.title)
                            .Own(u",")
                            .Quoted(entry.content)
                            .Own(u")"));
        }
    }

    /// Every occasion on its days: what lies ahead is reserved already, all else was sent on its day.
    void FillLog()
    {
        for (int day = -DaysBack; day <= DaysAhead; ++day)
            for (const DemoOccasion& occasion : DemoOccasions())
                if ((day + DaysBack) % occasion.everyDays == occasion.offset % occasion.everyDays)
                    SendTo(occasion, now_.date().addDays(day));
        // However the days fall, something is reserved for tomorrow and for the day after.
        SendTo(DemoOccasions().constLast(), now_.date().addDays(1));
        SendTo(DemoOccasions().first(), now_.date().addDays(2));
    }

    void SendTo(const DemoOccasion& occasion, QDate day)
    {
        const QDateTime delivery(day, QTime::fromString(occasion.time, QStringLiteral("HH-mm")));
        for (const auto& [group, person] : std::as_const(people_))
            if (group == occasion.group)
                Send({delivery > now_ ? now_.addSecs(-3600) : delivery, delivery, NextStatus(delivery),
                      person, occasion.words});
    }

    QString NextStatus(const QDateTime& delivery)
    {
        ++sent_;
        if (sent_ % 17 == 9)
            return QStringLiteral("2");
        // Written by other programs on the same database: waiting for its time.
        if (delivery > now_ && sent_ % 5 == 2)
            return QStringLiteral("0");
        return QStringLiteral("1");
    }

    void Send(const LogRow& row)
    {
        const int year = row.delivery.date().year();
        if (year < years_.first || year > years_.last)
            return;
        const bool refused = row.status == u"2";
        const bool reserved = row.written != row.delivery;
        const Refusal refusal = refused ? RefusalOf(sent_) : Refusal();
        const QString time = row.delivery.toString(reserved ? QStringLiteral("yyyy-MM-dd-HH-mm")
                                                            : QStringLiteral("yyyy-MM-dd HH-mm"));
        Statement insert(u"INSERT INTO SMSLog_");
        insert.Bare(QString::number(year))
            .Own(u" (SMSStatus,SMSNo,SMSID,SendNm,SendTelNo,ReceiveTelNo,SMSContent,SendTime,UserData1,ErrCd,"
                 u"ErrMsg,RegDt) VALUES (");
        const QStringList values{
            row.status,          refused ? QString() : QString::number(730000 + sent_),
            AccountId,           row.to.name,
            row.to.phone,        SenderNumber,
            row.words,           time,
            QStringLiteral("1"), refusal.code,
            refusal.words,       row.written.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))};
        for (qsizetype at = 0; at < values.size(); ++at)
            insert.Own(at == 0 ? QStringView() : QStringView(u",")).Quoted(values[at]);
        Execute(insert.Own(u")"));
        if (!refused)
            ++charged_;
    }

    /// Credit bought every other month, always enough for what was sent.
    void FillCharges()
    {
        const int count = (charged_ / 6 + 200) / 100 * 100;
        for (int entry = 0; entry < 7; ++entry) {
            const QDate day = now_.date().addDays(-DaysBack + entry * 60);
            const QString remark = entry == 0   ? QStringLiteral("첫 충전")
                                   : entry == 6 ? QStringLiteral("행사 안내용 추가 충전")
                                                : QString();
            Execute(
                Statement(
                    u"INSERT INTO SMSCharge (ChargeDt,ChargeCnt,ChargeAmt,ChargeUnit,Remark,RegDt) VALUES (")
                    .Quoted(day.toString(QStringLiteral("yyyy-MM-dd")))
                    .Own(u",")
                    .Bare(QString::number(count))
                    .Own(u",")
                    .Bare(QString::number(count * UnitPrice))
                    .Own(u",")
                    .Quoted(QString::number(UnitPrice))
                    .Own(u",")
                    .Quoted(remark)
                    .Own(u",")
                    .Quoted(day.toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral(" 09:12:00"))
                    .Own(u")"));
            bought_ += count;
        }
    }

    void FillAccount()
    {
        Execute(Statement(u"UPDATE SMSSetup SET SMSID =")
                    .Quoted(AccountId)
                    .Own(u", SMSPWD =")
                    .Quoted(QStringLiteral("demo"))
                    .Own(u", SMSDNS =")
                    .Quoted(QStringLiteral("sms.example.kr"))
                    .Own(u", SMSTelNo =")
                    .Quoted(SenderNumber)
                    .Own(u", SMSOrgNm =")
                    .Quoted(Organisation)
                    .Own(u", SMSWeb1 =")
                    .Quoted(QStringLiteral("http://127.0.0.1:8790/join"))
                    .Own(u", SMSWeb2 =")
                    .Quoted(QStringLiteral("http://127.0.0.1:8790/charge"))
                    .Own(u", SMSRemainCnt =")
                    .Bare(QString::number(bought_ - charged_)));
    }

    Connection& connection_;
    QDateTime now_;
    YearRange years_;
    QList<std::pair<QString, Person>> people_;
    int sent_ = 0;
    int charged_ = 0;
    int bought_ = 0;
};

} // namespace

void FillDemo(Connection& connection, const QDateTime& now, YearRange years)
{
    Filler(connection, now, years).Fill();
}

} // namespace tsms
