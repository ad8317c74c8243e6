#pragma once

#include <QString>

#include <functional>
#include <memory>

namespace tsms {

class Clock;
class DBConnect;
class Desktop;
struct Session;
class SoapClient30;

/// The program's only contact with the message gateway. A client stands between InitSOAP and ReleaseSOAP.
class ModSMS
{
public:
    ModSMS(Session& session, DBConnect& db, Desktop& desktop, const Clock& clock, QString wsdlUrl);
    ~ModSMS();
    ModSMS(const ModSMS&) = delete;
    ModSMS& operator=(const ModSMS&) = delete;

    /// Creates the client and has it read the service description. A failure shows its box; the client
    /// then stands all the same, but every call through it fails.
    bool InitSOAP();

    /// InitSOAP, and once more if that failed; the second result is not looked at.
    void InitWithRetry();

    /// Lets the client go, if there is one. Clears the current error, so that a report after it is silent.
    void ReleaseSOAP();

    /// Sends one message and writes its log row. True when the reply names no failure, whatever becomes of
    /// the log row. Any failure shows a box, releases the client and closes the database. `sendTime` is
    /// blank for at once, else "YYYY:MM:DD:HH:MM"; `extra1` to `extra3` go to the gateway as they are.
    /// `meanwhile` is called before this ends and before it shows anything, as a rule while the answer is on
    /// its way, and perhaps more than once. Never raises.
    bool SubmitSMS(const QString& recvNm, const QString& recvTelNo, const QString& senderTelNo,
                   const QString& content, const QString& sendTime, const QString& extra1,
                   const QString& extra2, const QString& extra3, const std::function<void()>& meanwhile = {});

    /// Withdraws one reserved message and removes its log row. False, without a word, when the gateway
    /// refuses; after an error also the client is released and the database closed. Never raises.
    bool WithdrawSMS(const QString& smsKey, const QString& smsNo, const QString& logYear,
                     const QString& extra1, const QString& extra2, const QString& extra3);

private:
    SoapClient30& Client(); ///< raises 91 when there is none
    void ReleaseAfterFailure();

    Session& session_;
    DBConnect& db_;
    Desktop& desktop_;
    const Clock& clock_;
    QString wsdlUrl_;
    std::unique_ptr<SoapClient30> client_;
};

/// Where the service description lies below a gateway's address.
QString GatewayDescriptionUrl(const QString& gatewayUrl);

} // namespace tsms
