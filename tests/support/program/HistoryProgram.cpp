#include "support/program/HistoryProgram.h"

#include "toolkit/fields/Controls.h"
#include "toolkit/fields/DatePicker.h"
#include "toolkit/look/Pictures.h"

#include <QtTest/QTest>

namespace tsms::test {

namespace {

QString Literal(const QString& text)
{
    return text.isEmpty() ? u"NULL"_q : u"'"_q + QString(text).replace(u"'"_q, u"''"_q) + u"'"_q;
}

} // namespace

Box NothingTickedBox()
{
    return {u"문자메시지 예약취소"_q,
            u"문자메시지 예약취소 : 예약취소 대상을 선택하지 않았습니다. 취소할 대상을 체크하여 주십시오."_q,
            MsgBoxCritical};
}

Box CancelQuestion(int count)
{
    return {u"예약취소"_q, u"예약취소확인 : 총%1건에 대한 문자메시지를 예약취소 하시겠습니까.?"_q.arg(count),
            MsgBoxQuestion};
}

Box CancelledBox()
{
    return {u"문자메시지 취소 완료!!!"_q, u"정상적으로 문자 메시지를 발송 취소 하였습니다."_q,
            MsgBoxInformation};
}

Box NothingCancelledBox()
{
    return {u"문자메시지 취소 실패!!!"_q, u"이미 전송이 되었거나 발송된 내역이 없는 문자메시지입니다."_q,
            MsgBoxCritical};
}

Box LockedBox()
{
    return {u"문자메세지 예약취소"_q,
            u"문자메시지 예약확인 : 이미 전송된 문자메시지는 취소가 불가능합니다."_q, MsgBoxCritical};
}

Box DatabaseBox(const QString& words)
{
    return {u" - 오류!!!"_q, u"☞ : "_q + words, MsgBoxCritical};
}

int HistoryProgram::Log(const SentMessage& message)
{
    LogMany(1, message);
    return program.database.Value(u"SELECT MAX(SMSKey) FROM SMSLog_"_q + message.time.left(4)).toInt();
}

void HistoryProgram::LogMany(int count, const SentMessage& message)
{
    QStringList values;
    for (const QString& text : {message.status, message.number, message.name, message.phone, message.content,
                                message.time, message.errorCode, message.errorText})
        values += Literal(text);
    program.database.Insert(
        u"SMSLog_%1 (SMSStatus, SMSNo, SendNm, SendTelNo, SMSContent, SendTime, ErrCd, ErrMsg)"_q.arg(
            message.time.left(4)),
        QStringList(count, values.join(u", "_q)));
}

int HistoryProgram::Reserve(const QString& name, const QString& until)
{
    program.db.ConnectDB();
    program.sms.InitSOAP();
    EXPECT_TRUE(program.sms.SubmitSMS(name, u"010-0000-0001"_q, u"02-1234-5678"_q, u"내일 뵙겠습니다."_q,
                                      until, {}, {}, {}));
    program.sms.ReleaseSOAP();
    program.db.CloseDB();
    return program.database.Value(u"SELECT MAX(SMSKey) FROM SMSLog_"_q + until.left(4)).toInt();
}

void HistoryProgram::SetPeriod(const QString& first, const QString& last)
{
    program.The<DatePicker>(u"DTPSendDt(0)"_q).SetValue(QDate::fromString(first, Qt::ISODate));
    program.The<DatePicker>(u"DTPSendDt(1)"_q).SetValue(QDate::fromString(last, Qt::ISODate));
}

void HistoryProgram::EnterAndList(const QString& first, const QString& last)
{
    Enter();
    SetPeriod(first, last);
    Search();
}

QStringList HistoryProgram::Column(int col)
{
    QStringList texts;
    for (int row = 1; row <= List().Cells().MaxRows(); ++row)
        texts += List().Cells().Text(col, row);
    return texts;
}

QString HistoryProgram::Marks()
{
    QString marks;
    for (int row = 0; row < List().Cells().MaxRows(); ++row) {
        const QVariant mark = List().model()->index(row, 1).data(Qt::UserRole);
        marks += !mark.isValid()               ? u'-'
                 : mark.toInt() == CheckEmpty  ? u'e'
                 : mark.toInt() == CheckTicked ? u't'
                                               : u'l';
    }
    return marks;
}

bool HistoryProgram::ChkAllTicked()
{
    return program.The<CheckBox>(u"chkAll"_q).Value();
}

void HistoryProgram::ClickChkAll()
{
    QWidget& all = program.Control(u"chkAll"_q);
    QTest::mouseClick(&all, Qt::LeftButton, Qt::NoModifier, QPoint(12, all.height() / 2));
}

QStringList HistoryProgram::Keys(int year)
{
    QStringList keys;
    for (const QStringList& row :
         program.database.Rows(u"SELECT SMSKey FROM SMSLog_%1 ORDER BY SMSKey"_q.arg(year)))
        keys += row.first();
    return keys;
}

QList<ServiceCall> HistoryProgram::Withdrawals()
{
    QList<ServiceCall> withdrawals;
    for (const ServiceCall& call : program.gateway.Calls())
        if (call.Operation == u"DeleteSMS")
            withdrawals += call;
    return withdrawals;
}

void HistoryProgram::ExpectOutcome(const Box& box)
{
    program.desktop.Expect(box, AnswerOK, [this] { EXPECT_EQ(program.connections.OpenNow(), 0); });
}

void HistoryProgram::ExpectNoGatewayClient()
{
    const int calls = program.gateway.CallCount();
    EXPECT_FALSE(program.sms.WithdrawSMS(u"1"_q, u"100001"_q, u"2012"_q, {}, {}, {}));
    EXPECT_EQ(program.gateway.CallCount(), calls);
}

} // namespace tsms::test
