#include "gateway/ModSMS.h"

#include "gateway/LogStatement.h"
#include "gateway/ReplyGrammar.h"
#include "gateway/SoapClient30.h"
#include "runtime/Clock.h"
#include "runtime/Desktop.h"
#include "runtime/DoEvents.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "session/Session.h"
#include "store/DBConnect.h"

namespace tsms {

ModSMS::ModSMS(Session& session, DBConnect& db, Desktop& desktop, const Clock& clock, QString wsdlUrl)
    : session_(session), db_(db), desktop_(desktop), clock_(clock), wsdlUrl_(std::move(wsdlUrl))
{
}

ModSMS::~ModSMS() = default;

SoapClient30& ModSMS::Client()
{
    if (!client_)
        throw RuntimeError(ObjectNotSet);
    return *client_;
}

bool ModSMS::InitSOAP()
{
    return WithHandler(
        [&] {
            client_ = std::make_unique<SoapClient30>();
            client_->mssoapinit(wsdlUrl_, {}, {}, {});
            return true;
        },
        [&] {
            desktop_.MsgBox(client_->FaultString() + CrLf + client_->Detail(), MsgBoxPlain,
                            QStringLiteral("문자메시지 통신환경 연결실패!!!"));
            return false;
        });
}

void ModSMS::InitWithRetry()
{
    if (!InitSOAP())
        InitSOAP();
}

void ModSMS::ReleaseSOAP()
{
    WithHandler(
        [&] {
            if (!client_)
                return;
            DoEvents();
            client_.reset();
            DoEvents();
        },
        [&] { db_.ReportDBError(); });
}

void ModSMS::ReleaseAfterFailure()
{
    ReleaseSOAP();
    // Meant: ReleaseSOAP has cleared the current error, so this closes the database and shows nothing.
    db_.ReportDBError();
}

bool ModSMS::SubmitSMS(const QString& recvNm, const QString& recvTelNo, const QString& senderTelNo,
                       const QString& content, const QString& sendTime, const QString& extra1,
                       const QString& extra2, const QString& extra3, const std::function<void()>& meanwhile)
{
    Reply reply;
    const bool isAccepted = WithHandler(
        [&] {
            const QString answer =
                Client().Call(QStringLiteral("SendSMS"),
                              {session_.SMSID, session_.SMSPWD, session_.SMSDNS, senderTelNo, recvTelNo,
                               content, QString(), sendTime, extra1, extra2, extra3},
                              meanwhile);
            ReadReply(answer, reply);
            const LogEntry entry{recvNm, recvTelNo, senderTelNo, content, LogTime(sendTime, clock_.Now())};
            // Meant: a message that left counts as sent also when its log row could not be written.
            db_.ExecuteSQL(LogInsert(session_, entry, reply));
            return reply.IsAccepted();
        },
        [] { return false; });
    if (isAccepted)
        return true;

    if (meanwhile)
        meanwhile(); // there may have been no client to do it
    desktop_.MsgBox(QStringLiteral("문자발송 실패!!! :  실패코드 = ") + reply.ErrorCode +
                        QStringLiteral(" 실패사유 = ") + reply.ErrorMsg,
                    MsgBoxCritical, QStringLiteral("문자메시지 발송실패!!!"));
    ReleaseAfterFailure();
    return false;
}

bool ModSMS::WithdrawSMS(const QString& smsKey, const QString& smsNo, const QString& logYear,
                         const QString& extra1, const QString& extra2, const QString& extra3)
{
    return WithHandler(
        [&] {
            const QString answer =
                Client().Call(QStringLiteral("DeleteSMS"), {session_.SMSID, session_.SMSPWD, session_.SMSDNS,
                                                            smsNo, extra1, extra2, extra3});
            Reply reply;
            ReadReply(answer, reply);
            const Statement removal = LogDelete(smsKey, logYear);
            if (!reply.IsAccepted())
                return false;
            // Meant: withdrawn is withdrawn, also when the row stays.
            db_.ExecuteSQL(removal);
            return true;
        },
        [&] {
            ReleaseAfterFailure();
            return false;
        });
}

QString GatewayDescriptionUrl(const QString& gatewayUrl)
{
    QString base = gatewayUrl;
    while (base.endsWith(u'/'))
        base.chop(1);
    return base + QStringLiteral("/SMSWS/webservice/xSMSWebService.wsdl");
}

} // namespace tsms
