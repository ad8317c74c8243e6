#include "tsms-db/DemoContent.h"

namespace tsms {

const QList<DemoCategory>& DemoCategories()
{
    static const QList<DemoCategory> categories{
        {1, QStringLiteral("행사 안내"),
         {{QStringLiteral("정기 모임 안내"), QStringLiteral("[받는사람]님, 이번 주 토요일 오후 2시 정기 모임에 꼭 와 주세요.")},
          {QStringLiteral("작가와의 만남"), QStringLiteral("[받는사람]님, 작가와의 만남이 금요일 저녁 7시 2층 강당에서 열립니다.")},
          {QStringLiteral("벼룩시장"), QStringLiteral("마을 벼룩시장이 일요일 오전 10시 앞마당에서 열립니다. [보내는사람]")},
          {QStringLiteral("영화 상영회"), QStringLiteral("이번 달 영화 상영회는 넷째 주 수요일 저녁 7시입니다. 누구나 환영합니다.")},
          {QStringLiteral("어린이 그림책 교실"), QStringLiteral("그림책 교실 첫 수업은 화요일 오후 3시입니다. 색연필을 챙겨 주세요.")},
          {QStringLiteral("걷기 모임"), QStringLiteral("내일 아침 9시 호수공원 정문에서 만나 함께 걷습니다. 편한 신발을 신고 오세요.")},
          {QStringLiteral("행사 취소"), QStringLiteral("비 예보로 내일 야외 행사를 취소합니다. 양해 부탁드립니다. [보내는사람]")},
          {QStringLiteral("장소 변경"), QStringLiteral("오늘 모임 장소가 3층 세미나실로 바뀌었습니다. 확인해 주세요.")}}},
        {2, QStringLiteral("도서관 안내"),
         {{QStringLiteral("반납일 알림"), QStringLiteral("[받는사람]님, 빌리신 책의 반납일이 내일입니다. [보내는사람]")},
          {QStringLiteral("연체 알림"), QStringLiteral("[받는사람]님, 반납일이 지난 책이 있습니다. 빠른 반납 부탁드립니다.")},
          {QStringLiteral("예약 도서 도착"), QStringLiteral("[받는사람]님, 예약하신 책이 도착했습니다. 3일 안에 찾아가 주세요.")},
          {QStringLiteral("희망 도서 도착"), QStringLiteral("신청하신 희망 도서가 들어왔습니다. 안내 데스크에서 찾으세요.")},
          {QStringLiteral("휴관 안내"), QStringLiteral("다음 주 월요일은 정기 휴관일입니다. 이용에 참고하세요. [보내는사람]")},
          {QStringLiteral("이용 시간 변경"), QStringLiteral("7월부터 평일 이용 시간이 저녁 9시까지로 늘어납니다.")},
          {QStringLiteral("회원증 갱신"), QStringLiteral("[받는사람]님, 회원증 유효 기간이 이번 달 말까지입니다. 갱신해 주세요.")},
          {QStringLiteral("분실물 안내"), QStringLiteral("열람실에서 보관 중인 우산과 안경이 있습니다. 안내 데스크로 오세요.")}}},
        {3, QStringLiteral("강좌 안내"),
         {{QStringLiteral("수강 신청 시작"), QStringLiteral("가을 문화 강좌 수강 신청이 내일 오전 9시에 시작됩니다.")},
          {QStringLiteral("개강 안내"), QStringLiteral("[받는사람]님, 서예 기초반이 다음 주 목요일 오전 10시에 시작합니다.")},
          {QStringLiteral("수강료 안내"), QStringLiteral("수강료 2만원은 이번 주 금요일까지 납부해 주세요. [보내는사람]")},
          {QStringLiteral("준비물 안내"), QStringLiteral("내일 수업 준비물은 붓, 먹물, 화선지입니다. 잊지 마세요.")},
          {QStringLiteral("휴강 안내"), QStringLiteral("강사 사정으로 이번 주 목요일 수업을 쉽니다. 보강일은 따로 알려 드립니다.")},
          {QStringLiteral("보강 안내"), QStringLiteral("지난주 휴강한 수업은 토요일 오전 10시에 보강합니다.")},
          {QStringLiteral("종강 안내"), QStringLiteral("그동안 수고하셨습니다. 마지막 수업 뒤에 작은 다과회가 있습니다.")},
          {QStringLiteral("수료증 안내"), QStringLiteral("[받는사람]님, 수료증이 준비되었습니다. 평일 6시 전에 들러 주세요.")}}},
        {4, QStringLiteral("축하 인사"),
         {{QStringLiteral("생일 축하"), QStringLiteral("[받는사람]님, 생일을 진심으로 축하합니다. 행복한 하루 보내세요!")},
          {QStringLiteral("입학 축하"), QStringLiteral("[받는사람]님, 입학을 축하합니다. 새로운 시작을 응원합니다.")},
          {QStringLiteral("졸업 축하"), QStringLiteral("[받는사람]님, 졸업을 축하드립니다. 앞날에 기쁨이 가득하길 바랍니다.")},
          {QStringLiteral("결혼 축하"), QStringLiteral("[받는사람]님, 결혼을 축하드립니다. 두 분 오래오래 행복하세요.")},
          {QStringLiteral("개업 축하"), QStringLiteral("[받는사람]님, 개업을 축하드립니다. 늘 번창하시길 바랍니다. [보내는사람]")},
          {QStringLiteral("가입 환영"), QStringLiteral("[받는사람]님, 가입을 환영합니다. 앞으로 자주 뵙겠습니다. [보내는사람]")},
          {QStringLiteral("수상 축하"), QStringLiteral("[받는사람]님, 독후감 대회 수상을 축하합니다. 시상식은 토요일 2시입니다.")},
          {QStringLiteral("출산 축하"), QStringLiteral("[받는사람]님, 아기의 탄생을 축하드립니다. 산모와 아기의 건강을 빕니다.")}}},
        {5, QStringLiteral("명절과 계절 인사"),
         {{QStringLiteral("설 인사"), QStringLiteral("[받는사람]님, 새해 복 많이 받으세요. [보내는사람] 드림")},
          {QStringLiteral("추석 인사"), QStringLiteral("[받는사람]님, 넉넉하고 즐거운 한가위 보내세요. [보내는사람] 드림")},
          {QStringLiteral("연말 인사"), QStringLiteral("한 해 동안 보내 주신 사랑에 감사드립니다. [보내는사람] 드림")},
          {QStringLiteral("봄 인사"), QStringLiteral("꽃 피는 봄입니다. 책 한 권과 함께 따뜻한 하루 보내세요.")},
          {QStringLiteral("여름 인사"), QStringLiteral("무더위에 건강 조심하세요. 시원한 열람실에서 기다리겠습니다.")},
          {QStringLiteral("가을 인사"), QStringLiteral("책 읽기 좋은 계절입니다. 새로 들어온 책을 만나러 오세요.")},
          {QStringLiteral("겨울 인사"), QStringLiteral("눈길 조심하시고 따뜻한 겨울 보내세요. [보내는사람]")},
          {QStringLiteral("어버이날 인사"), QStringLiteral("늘 건강하시고 행복하세요. 사랑하고 감사합니다. [보내는사람]")}}},
    };
    return categories;
}

const QList<DemoGroup>& DemoGroups()
{
    static const QList<DemoGroup> groups{
        {QStringLiteral("독서 모임"), {QStringLiteral("김민준"), QStringLiteral("이서연"), QStringLiteral("박지훈"), QStringLiteral("최수빈"), QStringLiteral("정하윤"), QStringLiteral("강도현"), QStringLiteral("조은지"), QStringLiteral("윤태호"), QStringLiteral("장미경"), QStringLiteral("임성준"), QStringLiteral("한소희"), QStringLiteral("오재민"), QStringLiteral("서지우"), QStringLiteral("신동혁")}},
        {QStringLiteral("문화 강좌 수강생"), {QStringLiteral("권영숙"), QStringLiteral("황인철"), QStringLiteral("안혜진"), QStringLiteral("송기태"), QStringLiteral("전미란"), QStringLiteral("홍석진"), QStringLiteral("유정희"), QStringLiteral("고명수"), QStringLiteral("문경아"), QStringLiteral("양승호"), QStringLiteral("손정아"), QStringLiteral("배철수"), QStringLiteral("백은영")}},
        {QStringLiteral("어린이 교실 학부모"), {QStringLiteral("허윤정"), QStringLiteral("남궁민"), QStringLiteral("노현주"), QStringLiteral("하정우"), QStringLiteral("곽지은"), QStringLiteral("성민호"), QStringLiteral("차은경"), QStringLiteral("주영훈"), QStringLiteral("우미선"), QStringLiteral("구본석"), QStringLiteral("민혜원")}},
        {QStringLiteral("자원봉사자"), {QStringLiteral("진선미"), QStringLiteral("엄기준"), QStringLiteral("채수연"), QStringLiteral("원종현"), QStringLiteral("천미숙"), QStringLiteral("방은희"), QStringLiteral("공유진"), QStringLiteral("현승민"), QStringLiteral("함경숙")}},
        {QStringLiteral("운영 위원"), {QStringLiteral("변상철"), QStringLiteral("염정화"), QStringLiteral("여운혁"), QStringLiteral("추성호"), QStringLiteral("도미애")}},
        {QString(), {QStringLiteral("소은주"), QStringLiteral("석진우"), QStringLiteral("선우재"), QStringLiteral("설경자"), QStringLiteral("마동훈"), QStringLiteral("길은정"), QStringLiteral("연제민"), QStringLiteral("표인숙")}},
    };
    return groups;
}

const QList<DemoOccasion>& DemoOccasions()
{
    static const QList<DemoOccasion> occasions{
        {7, 2, QStringLiteral("독서 모임"), QStringLiteral("10-05"), QStringLiteral("이번 주 토요일 오후 2시 독서 모임이 있습니다. 꼭 와 주세요.")},
        {14, 5, QStringLiteral("문화 강좌 수강생"), QStringLiteral("09-30"), QStringLiteral("내일 수업 준비물은 붓, 먹물, 화선지입니다. 잊지 마세요.")},
        {14, 11, QStringLiteral("어린이 교실 학부모"), QStringLiteral("15-20"), QStringLiteral("그림책 교실이 화요일 오후 3시에 있습니다. 색연필을 챙겨 주세요.")},
        {21, 8, QStringLiteral("자원봉사자"), QStringLiteral("17-45"), QStringLiteral("이번 주말 서가 정리 봉사에 함께해 주세요. 오전 10시 1층입니다.")},
        {30, 13, QStringLiteral("운영 위원"), QStringLiteral("13-00"), QStringLiteral("운영 위원회가 금요일 저녁 7시 세미나실에서 열립니다.")},
        {45, 20, QString(), QStringLiteral("11-10"), QStringLiteral("빌리신 책의 반납일이 내일입니다. 한빛마을도서관")},
    };
    return occasions;
}

} // namespace tsms
