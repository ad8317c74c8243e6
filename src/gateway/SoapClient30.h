#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace tsms {

/// A SOAP 1.1 client that learns the service from its description (WSDL 1.1) at run time: rpc/encoded,
/// rpc/literal and wrapped document/literal. One connection is kept alive for the description and all calls.
/// A call is put on the wire once: whatever happens to the connection, it is never repeated. A service whose
/// description came over https is called over https or not at all.
class SoapClient30
{
public:
    /// `authorities` is a file of certificates (PEM) to judge an https service by; without one they are the
    /// system's.
    explicit SoapClient30(QString authorities = {});
    ~SoapClient30();
    SoapClient30(const SoapClient30&) = delete;
    SoapClient30& operator=(const SoapClient30&) = delete;

    /// Reads the description at `wsdlUrl`. An empty `service` or `port` takes the first that speaks SOAP.
    /// `wsml` must be empty. Raises a SoapFault, whose texts the client keeps.
    void mssoapinit(const QString& wsdlUrl, const QString& service, const QString& port, const QString& wsml);

    /// Calls an operation with text arguments in the order of the description and gives its one text result.
    /// `meanwhile` is called as HttpLink::Post does. Raises a SoapFault, whose texts the client keeps. Sets
    /// no time-out.
    QString Call(const QString& operation, const QStringList& arguments,
                 const std::function<void()>& meanwhile = {});

    /// The texts of the last fault; empty after a success.
    QString FaultCode() const { return faultCode_; }
    QString FaultString() const { return faultString_; }
    QString Detail() const { return detail_; }

private:
    template <class Work> auto KeepingFaults(Work&& work) -> decltype(work());

    struct Service;
    QString authorities_;
    std::unique_ptr<Service> service_;
    QString faultCode_;
    QString faultString_;
    QString detail_;
};

} // namespace tsms
