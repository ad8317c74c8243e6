#include "runtime/RuntimeError.h"

#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

TEST(RuntimeError, HasTheStandardWordsOfItsNumber)
{
    const std::pair<long, QString> words[] = {
        {InvalidProcedureCall, u"프로시저 호출 또는 인수가 잘못되었습니다."_q},
        {Overflow, u"오버플로"_q},
        {SubscriptOutOfRange, u"아래 첨자 사용이 잘못되었습니다."_q},
        {TypeMismatch, u"형식이 일치하지 않습니다."_q},
        {DeviceFault, u"장치 입출력 오류가 발생하였습니다."_q},
        {DiskFull, u"디스크가 꽉 찼습니다."_q},
        {PathFileAccess, u"경로/파일을 액세스하는 동안 오류가 발생하였습니다."_q},
        {PathNotFound, u"경로를 찾을 수 없습니다."_q},
        {ObjectNotSet, u"개체 변수가 설정되지 않았습니다."_q},
        {InvalidFileFormat, u"파일 형식이 잘못되었습니다."_q},
        {InvalidPropertyValue, u"속성 값이 잘못되었습니다."_q},
        {InvalidPropertyArrayIndex, u"속성 배열 인덱스가 잘못되었습니다."_q},
        {7, u"실행 중에 오류가 발생하였습니다."_q}, // one that the program never raises
    };
    for (const auto& [number, text] : words) {
        EXPECT_EQ(RuntimeError(number).Number, number);
        EXPECT_EQ(RuntimeError(number).Description, text) << number;
    }
}

TEST(CurrentError, IsClearedOnEntryToAnOperationWithAHandler)
{
    Err().Number = 91;
    Err().Description = QStringLiteral("x");
    WithHandler([] { EXPECT_EQ(Err().Number, 0); }, [] { FAIL(); });
    EXPECT_EQ(Err().Number, 0);
    EXPECT_TRUE(Err().Description.isEmpty());
}

TEST(CurrentError, IsTheRaisedOneInTheHandlerAndAfterIt)
{
    const int result = WithHandler([]() -> int { throw RuntimeError(6); },
                                   [] {
                                       EXPECT_EQ(Err().Number, 6);
                                       return 3;
                                   });
    EXPECT_EQ(result, 3);
    EXPECT_EQ(Err().Number, 6);
}

TEST(CurrentError, IsGoneForAHandlerThatFirstEntersAnotherOperation)
{
    long seen = -1;
    WithHandler([] { throw RuntimeError(91); },
                [&] {
                    WithHandler([] {}, [] {});
                    seen = Err().Number;
                });
    EXPECT_EQ(seen, 0);
}

TEST(CurrentError, AnErrorOfTheHandlerGoesToTheCaller)
{
    EXPECT_THROW(WithHandler([] { throw RuntimeError(6); }, [] { throw RuntimeError(13); }), RuntimeError);
}
