#include "runtime/RuntimeError.h"

namespace tsms {

namespace {

QString StandardWords(long number)
{
    switch (number) {
    case InvalidProcedureCall:
        return QStringLiteral("프로시저 호출 또는 인수가 잘못되었습니다.");
    case Overflow:
        return QStringLiteral("오버플로");
    case SubscriptOutOfRange:
        return QStringLiteral("아래 첨자 사용이 잘못되었습니다.");
    case TypeMismatch:
        return QStringLiteral("형식이 일치하지 않습니다.");
    case DeviceFault:
        return QStringLiteral("장치 입출력 오류가 발생하였습니다.");
    case DiskFull:
        return QStringLiteral("디스크가 꽉 찼습니다.");
    case PathFileAccess:
        return QStringLiteral("경로/파일을 액세스하는 동안 오류가 발생하였습니다.");
    case PathNotFound:
        return QStringLiteral("경로를 찾을 수 없습니다.");
    case ObjectNotSet:
        return QStringLiteral("개체 변수가 설정되지 않았습니다.");
    case InvalidFileFormat:
        return QStringLiteral("파일 형식이 잘못되었습니다.");
    case InvalidPropertyValue:
        return QStringLiteral("속성 값이 잘못되었습니다.");
    case InvalidPropertyArrayIndex:
        return QStringLiteral("속성 배열 인덱스가 잘못되었습니다.");
    default:
        return QStringLiteral("실행 중에 오류가 발생하였습니다.");
    }
}

} // namespace

RuntimeError::RuntimeError(long number) : RuntimeError(number, StandardWords(number)) {}

RuntimeError::RuntimeError(long number, QString description)
    : Number(number), Description(std::move(description))
{
}

void CurrentError::Clear()
{
    Number = NoError;
    Description.clear();
}

CurrentError& Err()
{
    static CurrentError current;
    return current;
}

} // namespace tsms
