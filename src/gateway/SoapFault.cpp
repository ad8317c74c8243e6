#include "gateway/SoapFault.h"

namespace tsms {

SoapFault::SoapFault(QString code, QString string, QString detail, long number)
    : RuntimeError(number, std::move(string)), Code(std::move(code)), Detail(std::move(detail))
{
}

SoapFault LocalFault(QString string, QString detail, long number)
{
    return SoapFault({}, std::move(string), std::move(detail), number);
}

} // namespace tsms
