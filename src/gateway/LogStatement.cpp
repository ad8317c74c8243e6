#include "gateway/LogStatement.h"

#include "runtime/Clock.h"
#include "runtime/Text.h"
#include "session/Session.h"

namespace tsms {

namespace {

QString YearOf(const QString& time)
{
    return Trim(time).first(qMin<qsizetype>(4, Trim(time).size()));
}

} // namespace

QString LogTime(const QString& sendTime, const QDateTime& now)
{
    return IsBlank(sendTime) ? MomentText(now).chopped(3) : sendTime;
}

Statement LogInsert(const Session& session, const LogEntry& entry, const Reply& reply)
{
    Statement insert;
    insert.Own(u"Insert INTO SMSLog_").Bare(YearOf(entry.SendTime));
    insert.Own(u" (SMSStatus, SMSNo, SMSID,SendNm,SendTelNo,ReceiveTelNo,SMSContent,SendTime,"
               u"UserData1,UserData2,UserData3,ErrCd,ErrMsg,RegDt ) ");
    insert.Own(u" VALUES (");
    insert.InQuotes(reply.ReturnValue ? u"1" : u"2").Own(u",");
    insert.Quoted(reply.UniqueNum).Own(u",");
    insert.Quoted(session.SMSID).Own(u",");
    // Meant: the recipient goes under SendNm and SendTelNo, the sender's number under ReceiveTelNo. All that
    // reads the log reads it that way.
    insert.Quoted(entry.RecvNm).Own(u",");
    insert.Quoted(entry.RecvTelNo).Own(u",");
    insert.Quoted(entry.SenderTelNo).Own(u",");
    insert.Quoted(entry.Content).Own(u",");
    insert.Quoted(QString(entry.SendTime).replace(u':', u'-')).Own(u",");
    insert.Quoted(QString::number(session.UserData1)).Own(u",");
    insert.Quoted(session.UserData2).Own(u",");
    insert.Own(u"Null,");
    insert.Quoted(reply.ErrorCode).Own(u",");
    insert.Quoted(reply.ErrorMsg).Own(u",");
    insert.Own(u"getdate())");
    return insert;
}

Statement LogDelete(const QString& smsKey, const QString& logYear)
{
    Statement remove;
    remove.Own(u"DELETE SMSLog_").Bare(YearOf(logYear)).Own(u" WHERE SMSKey = ").Bare(smsKey);
    return remove;
}

} // namespace tsms
