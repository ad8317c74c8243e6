#include "runtime/RuntimeError.h"
#include "session/Session.h"
#include "store/ContractEngine.h"
#include "store/engine/ConnectionText.h"
#include "store/engine/DatabaseError.h"
#include "support/database/SqlServerWords.h"
#include "support/database/TestDatabase.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

/// What every engine has to do alike. The statements are those of the program, to the letter.
class Contract : public ::testing::TestWithParam<ContractEngine>
{
protected:
    Contract() : database_(GetParam().makeDatabase()), connection_(database_->NewConnection())
    {
        connection_->Open();
    }

    void Execute(const QString& sql) { connection_->Execute(sql); }

    QList<QStringList> Rows(const QString& sql)
    {
        const std::unique_ptr<Recordset> records = connection_->Query(sql);
        QList<QStringList> rows;
        for (int row = 0; row < records->RecordCount(); ++row) {
            QStringList fields;
            for (int column = 0; column < records->FieldCount(); ++column)
                fields += records->IsNull(row, column) ? u"(null)"_q : records->Text(row, column);
            rows += fields;
        }
        return rows;
    }

    QString Value(const QString& sql)
    {
        const QList<QStringList> rows = Rows(sql);
        return rows.isEmpty() ? u"(no row)"_q : rows.first().first();
    }

    QStringList Column(const QString& sql)
    {
        QStringList values;
        for (const QStringList& row : Rows(sql))
            values += row.first();
        return values;
    }

    RuntimeError ErrorOf(const QString& sql)
    {
        try {
            connection_->Execute(sql);
        } catch (const RuntimeError& error) {
            return error;
        }
        return RuntimeError(NoError, u"(none)"_q);
    }

    QDate Today()
    {
        return QDate::fromString(Value(u"SELECT CONVERT(varchar(10),getdate(),111)"_q), u"yyyy/MM/dd"_q);
    }

    void AddLog(const QString& status, const QString& sendTime, const QString& name = u"김민준"_q,
                const QString& words = u"안녕하세요"_q)
    {
        AddLogTo(sendTime.left(4), status, sendTime, name, words);
    }

    void AddLogTo(const QString& year, const QString& status, const QString& sendTime,
                  const QString& name = u"김민준"_q, const QString& words = u"안녕하세요"_q)
    {
        Execute(
            u"Insert INTO SMSLog_"_q + year +
            u" (SMSStatus, SMSNo, SMSID,SendNm,SendTelNo,ReceiveTelNo,SMSContent,SendTime,UserData1,UserData2,UserData3,ErrCd,ErrMsg,RegDt )  VALUES ('"_q +
            status + u"','7','demo','"_q + name + u"','010-0000-0001','02-1234-5678','"_q + words + u"','"_q +
            sendTime + u"','1',Null,Null,Null,Null,getdate())"_q);
    }

    static QString History(const QString& year, const QString& conditions, const QString& first,
                           const QString& behindLast)
    {
        return u"SELECT  SMSKey, SMSStatus, SMSNo, (CASE WHEN SMSStatus ='0' THEN '예약중' ELSE (CASE WHEN SMSStatus ='1' THEN '성공' ELSE '실패' END) END), SendNm, SendTelNo, (LEFT(SendTime,10) + ' ' + REPLACE(RIGHT(SendTime,5),'-',':')) AS nSendTime,  SMSContent, ErrCd, ErrMsg  FROM SMSLog_"_q +
               year + u" AS P WHERE  1 = 1 "_q + conditions + u" AND (LEFT(SendTime,10) >= '"_q + first +
               u"' AND  LEFT(SendTime,10) < '"_q + behindLast + u"') ORDER BY SendTime DESC "_q;
    }

    QStringList Times(const QString& sql)
    {
        const std::unique_ptr<Recordset> records = connection_->Query(sql);
        QStringList times;
        for (; !records->Eof(); records->MoveNext())
            times += records->Field(u"nSendTime");
        return times;
    }

    std::unique_ptr<ContractDatabase> database_;
    std::unique_ptr<Connection> connection_;
};

using ContractInSqlServerWords = InSqlServerWords<Contract>;

} // namespace

// Connection and result

TEST_P(Contract, AConnectionIsOpenBetweenOpenAndClose)
{
    EXPECT_TRUE(connection_->IsOpen());
    connection_->Close();
    EXPECT_FALSE(connection_->IsOpen());
    connection_->Close();
    connection_->Open();
    EXPECT_EQ(Value(u"SELECT COUNT(*) FROM SMSSetup"_q), u"1"_q);
}

TEST_P(Contract, AResultHasItsNamesAndItsExactCount)
{
    Execute(u"Insert into SMSGroupMst (GroupNm) values ('가')"_q);
    Execute(u"Insert into SMSGroupMst (GroupNm) values ('나')"_q);
    const std::unique_ptr<Recordset> records =
        connection_->Query(u"SELECT GroupCd,GroupNm FROM SMSGroupMst ORDER BY GroupNm"_q);
    EXPECT_EQ(records->RecordCount(), 2);
    EXPECT_EQ(records->FieldCount(), 2);
    EXPECT_EQ(records->FieldName(1), u"GroupNm"_q);
    EXPECT_EQ(records->Field(u"GROUPNM"), u"가"_q);
}

TEST_P(Contract, AResultOutlivesItsConnection)
{
    Execute(u"Insert into SMSGroupMst (GroupNm) values ('가')"_q);
    const std::unique_ptr<Recordset> records =
        connection_->Query(u" SELECT  GroupCd , GroupNm FROM SMSGroupMst  "_q);
    connection_.reset();
    EXPECT_EQ(records->Field(u"GroupNm"), u"가"_q);
}

// The account

TEST_P(Contract, TheAccountRowBeginsEmptyWithABalanceOfZero)
{
    const std::unique_ptr<Recordset> records = connection_->Query(u"SELECT * FROM SMSSetup"_q);
    ASSERT_EQ(records->RecordCount(), 1);
    EXPECT_EQ(records->Field(u"SMSRemainCnt"), u"0"_q);
    for (const QString& name :
         {u"SMSTelNo"_q, u"SMSID"_q, u"SMSPWD"_q, u"SMSDNS"_q, u"SMSOrgNm"_q, u"SMSWeb1"_q, u"SMSWeb2"_q})
        EXPECT_EQ(records->Field(name), QString()) << name.toStdString();
}

TEST_P(Contract, TheBalanceMovesByRelativeStatements)
{
    Execute(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 500"_q);
    Execute(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - 3"_q);
    Execute(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"_q);
    Execute(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + -5"_q);
    EXPECT_EQ(Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q), u"493"_q);
}

TEST_P(Contract, TakingANegativeCountAwayAddsIt)
{
    Execute(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - -5"_q);
    EXPECT_EQ(Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q), u"5"_q);
}

TEST_P(Contract, TheBalanceMayGoBelowZero)
{
    Execute(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - 7"_q);
    EXPECT_EQ(Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q), u"-7"_q);
}

TEST_P(Contract, TheBalanceStaysAWholeNumber)
{
    Execute(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 10"_q);
    Execute(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1.9"_q);
    EXPECT_EQ(Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q), u"11"_q);
}

TEST_P(ContractInSqlServerWords, ABalanceOutOf32BitsIsRefused)
{
    Execute(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 2147483647"_q);
    const RuntimeError error = ErrorOf(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"_q);
    EXPECT_EQ(error.Number, DataOverflow);
    EXPECT_TRUE(error.Description.startsWith(u"Arithmetic overflow error"))
        << error.Description.toStdString();
    EXPECT_EQ(Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q), u"2147483647"_q);
}

TEST_P(Contract, TheSettingsAreWrittenAndRead)
{
    Execute(
        u"UPDATE SMSSetup SET  SMSID ='hanbit', SMSPWD ='secret', SMSDNS ='sms.example.kr', SMSTelNo ='02-1234-5678', SMSOrgNm ='한빛교회', SMSAuto1 ='0', SMSAuto2 ='1'"_q);
    EXPECT_EQ(Rows(u"SELECT SMSID,SMSPWD,SMSDNS,SMSOrgNm,SMSTelNo,SMSAuto1,SMSAuto2 FROM SMSSetup"_q),
              (QList<QStringList>{{u"hanbit"_q, u"secret"_q, u"sms.example.kr"_q, u"한빛교회"_q,
                                   u"02-1234-5678"_q, u"0"_q, u"1"_q}}));
}

TEST_P(Contract, TwoConnectionsKeepTheBalanceExact)
{
    const std::unique_ptr<Connection> other = database_->NewConnection();
    other->Open();
    for (int turn = 0; turn < 20; ++turn) {
        Execute(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 3"_q);
        other->Execute(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - 1"_q);
    }
    EXPECT_EQ(Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q), u"40"_q);
    EXPECT_EQ(other->Query(u"SELECT SMSRemainCnt FROM SMSSetup"_q)->Field(0), u"40"_q);
}

// Groups and members

TEST_P(Contract, GroupsAreAddedFoundRenamedAndDeleted)
{
    Execute(u"Insert into SMSGroupMst (GroupNm) values ('독서 모임')"_q);
    EXPECT_EQ(Column(u"SELECT GroupNm FROM SMSGroupMst WHERE GroupNm ='독서 모임'"_q),
              QStringList{u"독서 모임"_q});
    EXPECT_EQ(Column(u"SELECT GroupNm FROM SMSGroupMst WHERE GroupNm ='독서'"_q), QStringList());
    const QString code = Value(u"SELECT GroupCd FROM SMSGroupMst"_q);
    Execute(u"UPDATE SMSGroupMst set GroupNm=' 글쓰기 ' WHERE GroupCd="_q + code);
    EXPECT_EQ(Value(u"SELECT GroupNm FROM SMSGroupMst"_q), u" 글쓰기 "_q);
    Execute(u"DELETE FROM SMSGroupMst WHERE GroupCd ="_q + code);
    EXPECT_EQ(Value(u"SELECT COUNT(*) FROM SMSGroupMst"_q), u"0"_q);
}

TEST_P(Contract, AKeyIsNeverGivenTwice)
{
    Execute(u"Insert into SMSGroupMst (GroupNm) values ('가')"_q);
    const QString code = Value(u"SELECT GroupCd FROM SMSGroupMst"_q);
    Execute(u"DELETE FROM SMSGroupMst WHERE GroupCd ="_q + code);
    Execute(u"Insert into SMSGroupMst (GroupNm) values ('나')"_q);
    EXPECT_NE(Value(u"SELECT GroupCd FROM SMSGroupMst"_q), code);
}

TEST_P(Contract, NamesAreFoundWithoutRegardToCase)
{
    Execute(u"Insert into SMSGroupMst (GroupNm) values ('VIP')"_q);
    EXPECT_EQ(Column(u"SELECT GroupNm FROM SMSGroupMst WHERE GroupNm ='vip'"_q), QStringList{u"VIP"_q});
    EXPECT_EQ(Column(u"SELECT GroupNm FROM SMSGroupMst WHERE GroupNm ='vip  '"_q), QStringList{u"VIP"_q});
}

TEST_P(Contract, GroupsAreOrderedByTheirNames)
{
    for (const QString& name : {u"하늘"_q, u"b반"_q, u"가온"_q, u"A반"_q, u"1반"_q, u"나래"_q})
        Execute(u"Insert into SMSGroupMst (GroupNm) values ('"_q + name + u"')"_q);
    EXPECT_EQ((Rows(u"SELECT GroupCd,GroupNm FROM SMSGroupMst ORDER BY GroupNm"_q).size()), 6);
    EXPECT_EQ(Column(u"SELECT GroupNm FROM SMSGroupMst ORDER BY GroupNm"_q),
              (QStringList{u"1반"_q, u"A반"_q, u"b반"_q, u"가온"_q, u"나래"_q, u"하늘"_q}));
}

TEST_P(Contract, MembersAreListedWithTheirGroupsNames)
{
    Execute(u"Insert into SMSGroupMst (GroupNm) values ('독서 모임')"_q);
    const QString code = Value(u"SELECT GroupCd FROM SMSGroupMst"_q);
    Execute(u"INSERT INTO SMSGroupSub (GroupCd,GSubNm,GSPhone) VALUES ("_q + code +
            u",'김민준','010-0000-0001')"_q);
    Execute(u"INSERT INTO SMSGroupSub (GroupCd,GSubNm,GSPhone) VALUES (Null,'이서연','010-0000-0002')"_q);
    const QString list =
        u" SELECT GSubCd, (CASE WHEN P.GroupCd IS NULL THEN '기타' ELSE (SELECT  GroupNm FROM SMSGroupMst WHERE GroupCd = P.GroupCd) END) AS GroupNm,  GSubNm, GSPhone FROM SMSGroupSub AS P "_q;
    const QStringList first{u"1"_q, u"독서 모임"_q, u"김민준"_q, u"010-0000-0001"_q};
    const QStringList second{u"2"_q, u"기타"_q, u"이서연"_q, u"010-0000-0002"_q};
    EXPECT_EQ(Rows(list), (QList<QStringList>{first, second}));
    EXPECT_EQ(Rows(list + u" WHERE P.GroupCd IS NULL"_q), QList<QStringList>{second});
    EXPECT_EQ(Rows(list + u" WHERE P.GroupCd = "_q + code), QList<QStringList>{first});
    EXPECT_EQ(connection_->Query(u"SELECT * FROM SMSGroupSub WHERE GroupCd IS NULL"_q)->Field(u"GSPhone"),
              u"010-0000-0002"_q);
    EXPECT_EQ(connection_->Query(u"SELECT * FROM SMSGroupSub WHERE GroupCd ="_q + code)->Field(u"GSubNm"),
              u"김민준"_q);
}

TEST_P(Contract, AMemberIsReadChangedAndDeleted)
{
    Execute(u"INSERT INTO SMSGroupSub (GroupCd,GSubNm,GSPhone) VALUES (3,'김민준','010-0000-0001')"_q);
    EXPECT_EQ(Value(u"SELECT GSubNm FROM SMSGroupSub   WHERE GSubNm ='김민준'"_q), u"김민준"_q);
    Execute(u"UPDATE SMSGroupSub SET  GroupCd =Null, GSubNm ='김민수', GSPhone =Null WHERE GSubCd=1"_q);
    EXPECT_EQ(Rows(u"SELECT GSubCd,GroupCd, GSubNm,GSPhone FROM SMSGroupSub WHERE GSubCd=1"_q),
              (QList<QStringList>{{u"1"_q, u"(null)"_q, u"김민수"_q, u"(null)"_q}}));
    Execute(u"DELETE FROM SMSGroupSub WHERE GSubCd =1"_q);
    EXPECT_EQ(Value(u"SELECT COUNT(*) FROM SMSGroupSub"_q), u"0"_q);
}

TEST_P(Contract, MembersOfADeletedGroupBelongToNone)
{
    Execute(u"INSERT INTO SMSGroupSub (GroupCd,GSubNm,GSPhone) VALUES (3,'김민준','010-0000-0001')"_q);
    Execute(u"UPDATE SMSGroupSub SET GroupCd = NULL WHERE GroupCd =3"_q);
    EXPECT_EQ(Value(u"SELECT GroupCd FROM SMSGroupSub"_q), u"(null)"_q);
}

// Characters

TEST_P(Contract, ACharacterOutsideCodePage949IsOneQuestionMarkForEachUtf16Unit)
{
    AddLog(u"1"_q, u"2012-05-30 14-07"_q, u"李😀龘"_q, u"a☃ñ뷁\U0002070E끝"_q);
    EXPECT_EQ(Rows(u"SELECT SendNm, SMSContent FROM SMSLog_2012"_q),
              (QList<QStringList>{{u"李???"_q, u"a??뷁??끝"_q}}));
}

TEST_P(Contract, ACharacterOutsideCodePage949IsComparedAsItIsStored)
{
    Execute(u"Insert into SMSGroupMst (GroupNm) values ('모임 😀')"_q);
    EXPECT_EQ(Column(u"SELECT GroupNm FROM SMSGroupMst WHERE GroupNm ='모임 😀'"_q),
              QStringList{u"모임 ??"_q});
    EXPECT_EQ(Column(u"SELECT GroupNm FROM SMSGroupMst WHERE GroupNm Like '%☃☃%'"_q),
              QStringList{u"모임 ??"_q});
    Execute(u"UPDATE SMSGroupMst set GroupNm='😀'  + '뷁' WHERE GroupNm='모임 ☃☃'"_q);
    EXPECT_EQ(Value(u"SELECT GroupNm FROM SMSGroupMst"_q), u"??뷁"_q);
}

TEST_P(Contract, TheCharactersOfCodePage949AreKept)
{
    const QString kept = u"가힣뷁똠 ㅎ 李金 ＡｚＦ￦ ☆☎♪ €® ø ß °C \\ ~ `"_q;
    Execute(u"Insert into SMSGroupMst (GroupNm) values ('"_q + kept + u"')"_q);
    EXPECT_EQ(Value(u"SELECT GroupNm FROM SMSGroupMst"_q), kept);
}

// Templates

TEST_P(Contract, TemplatesAreWrittenReadChangedAndDeleted)
{
    Execute(u"INSERT INTO SMSTempLMst (TempLCd, TempLNm) VALUES (2, '인사')"_q);
    Execute(u"INSERT INTO SMSTempLMst (TempLCd, TempLNm) VALUES (1, '안내')"_q);
    EXPECT_EQ(Rows(u"SELECT TempLCd,TempLNm FROM SMSTempLMst ORDER BY TempLCd"_q),
              (QList<QStringList>{{u"1"_q, u"안내"_q}, {u"2"_q, u"인사"_q}}));
    Execute(
        u"Insert INTO SMSTempLSub  (TempLCd, TempLSubNm, TempLContent) VALUES (1,'제목','첫째\r\n둘째')"_q);
    Execute(
        u"UPDATE SMSTempLSub SET  TempLCd =2, TempLSubNm =Null, TempLContent ='[받는사람]님' WHERE TempLSeq=1"_q);
    EXPECT_EQ(
        Rows(
            u"SELECT  TempLSeq, TempLCd, TempLSubNm, TempLContent  FROM SMSTempLSub AS P WHERE  1 = 1  AND TempLCd=2 ORDER BY TempLSeq"_q),
        (QList<QStringList>{{u"1"_q, u"2"_q, u"(null)"_q, u"[받는사람]님"_q}}));
    Execute(u"DELETE SMSTempLSub WHERE TempLSeq = 1"_q);
    EXPECT_EQ(Value(u"SELECT COUNT(*) FROM SMSTempLSub"_q), u"0"_q);
}

TEST_P(Contract, LineBreaksInATextAreKept)
{
    Execute(
        u"Insert INTO SMSTempLSub  (TempLCd, TempLSubNm, TempLContent) VALUES (1,'제목','첫째\r\n둘째')"_q);
    EXPECT_EQ(Value(u"SELECT TempLContent FROM SMSTempLSub"_q), u"첫째\r\n둘째"_q);
}

// Charges

TEST_P(Contract, ChargesAreListedWithTheLatestFirst)
{
    const QString insert =
        u"Insert INTO SMSCharge  (ChargeDt, ChargeCnt, ChargeAmt,ChargeUnit,Remark,RegDt )  VALUES ("_q;
    Execute(insert + u"'2012-05-01',500,10000,'20','첫 충전',getdate())"_q);
    Execute(insert + u"'2012-05-30',-5,Null,Null,Null,getdate())"_q);
    const QList<QStringList> rows = Rows(
        u"SELECT  SMSChargeKey, ChargeDt, ChargeCnt, ChargeAmt, ChargeUnit, Remark, RegDt  FROM SMSCharge ORDER BY ChargeDt DESC "_q);
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0].first(6),
              (QStringList{u"2"_q, u"2012-05-30"_q, u"-5"_q, u"(null)"_q, u"(null)"_q, u"(null)"_q}));
    EXPECT_EQ(rows[1][1], u"2012-05-01"_q);
    EXPECT_EQ(rows[1][3].toDouble(), 10000);
    EXPECT_EQ(rows[1][4].toDouble(), 20);
    EXPECT_NE(rows[1][6], u"(null)"_q);
    Execute(u"DELETE FROM SMSCharge WHERE SMSChargeKey =1"_q);
    EXPECT_EQ(Value(u"SELECT COUNT(*) FROM SMSCharge"_q), u"1"_q);
}

TEST_P(Contract, AnAmountIsComputedByTheServer)
{
    Execute(
        u"Insert INTO SMSCharge  (ChargeDt, ChargeCnt, ChargeAmt,ChargeUnit,Remark,RegDt )  VALUES ('2012-05-01',1,1-2,'1',Null,getdate())"_q);
    EXPECT_EQ(Value(u"SELECT ChargeAmt FROM SMSCharge"_q).toDouble(), -1);
}

TEST_P(Contract, AUnitPriceWithDigitGroupsIsANumber)
{
    Execute(
        u"Insert INTO SMSCharge  (ChargeDt, ChargeCnt, ChargeAmt,ChargeUnit,Remark,RegDt )  VALUES ('2012-05-01',1,1000,'1,000',Null,getdate())"_q);
    EXPECT_EQ(Value(u"SELECT ChargeUnit FROM SMSCharge"_q).toDouble(), 1000);
}

TEST_P(ContractInSqlServerWords, AUnitPriceThatIsNoNumberIsRefused)
{
    const RuntimeError error = ErrorOf(
        u"Insert INTO SMSCharge  (ChargeDt, ChargeCnt, ChargeAmt,ChargeUnit,Remark,RegDt )  VALUES ('2012-05-01',1,1000,'1-2',Null,getdate())"_q);
    EXPECT_EQ(error.Number, CannotConvert) << error.Description.toStdString();
    EXPECT_EQ(Value(u"SELECT COUNT(*) FROM SMSCharge"_q), u"0"_q);
}

// The send log

TEST_P(Contract, HistoryShowsARowInItsColumns)
{
    AddLog(u"1"_q, u"2012-05-30 14-07"_q);
    EXPECT_EQ(Rows(History(u"2012"_q, {}, u"20120530"_q, u"20120531"_q)),
              (QList<QStringList>{{u"1"_q, u"1"_q, u"7"_q, u"성공"_q, u"김민준"_q, u"010-0000-0001"_q,
                                   u"2012-05-30 14:07"_q, u"안녕하세요"_q, u"(null)"_q, u"(null)"_q}}));
}

TEST_P(Contract, ARowOfTheLogTakesWhateverACellOfAWorkbookHolds)
{
    const QString cell(32'767, u'가'); // the most that there is room for
    const QString words = cell + u"님, "_q + cell;
    AddLog(u"1"_q, u"2012-05-30 14-07"_q, u"이서연"_q);
    AddLog(u"1"_q, u"2012-05-30 14-08"_q, cell, words);
    Execute(u"UPDATE SMSLog_2012 SET SendTelNo ='010"_q + cell + u"' WHERE SMSKey=2"_q);
    const QList<QStringList> rows = Rows(History(u"2012"_q, {}, u"20120530"_q, u"20120531"_q));
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0][4], cell);
    EXPECT_EQ(rows[0][5], u"010"_q + cell);
    EXPECT_EQ(rows[0][7], words);
    EXPECT_EQ(rows[1][4], u"이서연"_q);
    EXPECT_EQ(Times(History(u"2012"_q, u" AND SendNm Like '%"_q + cell.left(101) + u"%'"_q, u"20120530"_q,
                            u"20120531"_q)),
              QStringList{u"2012-05-30 14:08"_q});
}

TEST_P(Contract, ARowOfTheLogTakesWhateverTheCallerAndTheGatewaySay)
{
    const QString words(20'000, u'가');
    Execute(
        u"Insert INTO SMSLog_2012 (SMSStatus, SMSNo, SMSID,SendNm,SendTelNo,ReceiveTelNo,SMSContent,SendTime,UserData1,UserData2,UserData3,ErrCd,ErrMsg,RegDt )  VALUES ('2','%1','demo','김민준','010-0000-0001','02-1234-5678','안녕하세요','2012-05-30 14-07','1','%1',Null,'%1','%1',getdate())"_q
            .arg(words));
    EXPECT_EQ(Rows(u"SELECT SMSNo, UserData2, ErrCd, ErrMsg FROM SMSLog_2012"_q),
              (QList<QStringList>{{words, words, words, words}}));
}

TEST_P(Contract, HistoryTellsTheStatusInWords)
{
    AddLog(u"0"_q, u"2012-05-30 14-01"_q);
    AddLog(u"1"_q, u"2012-05-30 14-02"_q);
    AddLog(u"2"_q, u"2012-05-30 14-03"_q);
    QStringList words;
    for (const QStringList& row : Rows(History(u"2012"_q, {}, u"20120530"_q, u"20120531"_q)))
        words += row[3];
    EXPECT_EQ(words, (QStringList{u"실패"_q, u"성공"_q, u"예약중"_q}));
}

TEST_P(Contract, HistoryTakesTheFirstAndTheLastDayAndNoOther)
{
    for (const QString& time : {u"2012-05-28 23-59"_q, u"2012-05-29 00-00"_q, u"2012-05-30-12-00"_q,
                                u"2012-05-31 23-59"_q, u"2012-06-01 00-00"_q})
        AddLog(u"1"_q, time);
    EXPECT_EQ(Times(History(u"2012"_q, {}, u"20120529"_q, u"20120601"_q)),
              (QStringList{u"2012-05-31 23:59"_q, u"2012-05-30 12:00"_q, u"2012-05-29 00:00"_q}));
}

TEST_P(Contract, HistoryFindsWhatWasSentToday)
{
    const QDate today = Today();
    AddLog(u"1"_q, today.toString(u"yyyy-MM-dd"_q) + u" 09-30"_q);
    EXPECT_EQ(Times(History(today.toString(u"yyyy"_q), {}, today.toString(u"yyyyMMdd"_q),
                            today.addDays(1).toString(u"yyyyMMdd"_q))),
              QStringList{today.toString(u"yyyy-MM-dd"_q) + u" 09:30"_q});
}

TEST_P(Contract, ARangeToTheEndOfTheYearTakesItsLastDay)
{
    AddLog(u"1"_q, u"2012-12-30 10-00"_q);
    AddLog(u"1"_q, u"2012-12-31 23-59"_q);
    EXPECT_EQ(Times(History(u"2012"_q, {}, u"20121231"_q, u"20130101"_q)),
              QStringList{u"2012-12-31 23:59"_q});
}

TEST_P(Contract, ARangeThatRunsBackwardsFindsNothing)
{
    AddLog(u"1"_q, u"2012-05-30 14-07"_q);
    EXPECT_EQ(Times(History(u"2012"_q, {}, u"20120531"_q, u"20120530"_q)), QStringList());
}

TEST_P(Contract, HistoryFindsPartsOfTexts)
{
    AddLog(u"1"_q, u"2012-05-30 14-01"_q, u"김민준"_q, u"Book 안내"_q);
    AddLog(u"1"_q, u"2012-05-30 14-02"_q, u"이서연"_q, u"휴관 안내"_q);
    const auto find = [this](const QString& condition) {
        return Times(History(u"2012"_q, condition, u"20120530"_q, u"20120531"_q));
    };
    EXPECT_EQ(find(u" AND SendNm Like '%민%'"_q), QStringList{u"2012-05-30 14:01"_q});
    EXPECT_EQ(find(u" AND SMSContent Like '%book%'"_q), QStringList{u"2012-05-30 14:01"_q});
    EXPECT_EQ(find(u" AND SMSContent Like '%안내%'"_q).size(), 2);
    EXPECT_EQ(find(u" AND SendTelNo Like '%0000-0001%'"_q).size(), 2);
    EXPECT_EQ(find(u" AND SendTelNo Like '%9999%'"_q), QStringList());
}

TEST_P(Contract, TheReservedFilterPartsAtTomorrow)
{
    // All rows go into the table that is asked: which one a time belongs to is not the question here.
    const QDate today = Today();
    const QDate tomorrow = today.addDays(1);
    const QString year = today.toString(u"yyyy"_q);
    const QString todayText = today.toString(u"yyyy-MM-dd"_q);
    const QString tomorrowText = tomorrow.toString(u"yyyy-MM-dd"_q);
    AddLogTo(year, u"1"_q, todayText + u" 23-59"_q);
    AddLogTo(year, u"1"_q, tomorrowText + u"-00-00"_q);
    AddLogTo(year, u"0"_q, tomorrowText + u"-00-05"_q);
    AddLogTo(year, u"2"_q, tomorrowText + u"-00-10"_q);
    const auto find = [&](const QString& condition) {
        return Times(History(year, condition, today.addDays(-1).toString(u"yyyyMMdd"_q),
                             today.addDays(2).toString(u"yyyyMMdd"_q)));
    };
    EXPECT_EQ(
        find(
            u" AND (SMSStatus='1' AND DATEADD(DAY, -1, LEFT(SendTime,10)) >= CONVERT(varchar(10),getdate(),111))"_q),
        QStringList{tomorrowText + u" 00:00"_q});
    EXPECT_EQ(
        find(
            u" AND (SMSStatus='1' AND DATEADD(DAY, -1, LEFT(SendTime,10)) < CONVERT(varchar(10),getdate(),111))"_q),
        QStringList{todayText + u" 23:59"_q});
    EXPECT_EQ(find(u" AND SMSStatus='2'"_q), QStringList{tomorrowText + u" 00:10"_q});
}

TEST_P(Contract, TheMonthsAreCountedBySuccess)
{
    AddLog(u"0"_q, u"2012-01-05-10-00"_q);
    AddLog(u"1"_q, u"2012-01-06 10-00"_q);
    AddLog(u"2"_q, u"2012-01-07 10-00"_q);
    AddLog(u"2"_q, u"2012-11-07 10-00"_q);
    QList<QStringList> rows = Rows(
        u"SELECT  LEFT(SendTime,7) AS ppMonth, Count(*) AS ToTalCnt,  ISNULL(SUM(CASE WHEN SMSStatus IN ('0','1') THEN 1 ELSE 0 END),0) AS SMS0 , ISNULL(SUM(CASE WHEN SMSStatus ='2' THEN 1 ELSE 0 END),0) AS SMS1   FROM SMSLog_2012 GROUP BY LEFT(SendTime,7) "_q);
    std::sort(rows.begin(), rows.end());
    EXPECT_EQ(rows, (QList<QStringList>{{u"2012-01"_q, u"3"_q, u"2"_q, u"1"_q},
                                        {u"2012-11"_q, u"1"_q, u"0"_q, u"1"_q}}));
}

TEST_P(Contract, OneMessageIsReadByItsKeyAndDeleted)
{
    AddLog(u"1"_q, u"2012-05-30-14-05"_q);
    EXPECT_EQ(
        Rows(
            u"SELECT  SMSKey, (CASE WHEN SMSStatus ='0' THEN '예약중' ELSE (CASE WHEN SMSStatus ='1' THEN '전송성공' ELSE '전송실패' END) END) AS SMSStatus, SMSNo, SendNm,SendTelNo, SMSContent,SendTime,ErrCd,ErrMsg  FROM SMSLog_2012 WHERE SMSKey=1"_q),
        (QList<QStringList>{{u"1"_q, u"전송성공"_q, u"7"_q, u"김민준"_q, u"010-0000-0001"_q, u"안녕하세요"_q,
                             u"2012-05-30-14-05"_q, u"(null)"_q, u"(null)"_q}}));
    Execute(u"DELETE SMSLog_2012 WHERE SMSKey = 1"_q);
    EXPECT_EQ(Value(u"SELECT COUNT(*) FROM SMSLog_2012"_q), u"0"_q);
}

// Failures

TEST_P(ContractInSqlServerWords, AMissingTableHasItsNumber)
{
    const RuntimeError error = ErrorOf(u"SELECT * FROM SMSLog_1999"_q);
    EXPECT_EQ(error.Number, NoSuchTable);
    EXPECT_EQ(error.Description, u"Invalid object name 'SMSLog_1999'."_q);
    EXPECT_EQ(ErrorOf(u"DELETE SMSLog_1999 WHERE SMSKey = 1"_q).Description,
              u"Invalid object name 'SMSLog_1999'."_q);
    EXPECT_EQ(ErrorOf(u"Insert INTO SMSLog_1999 (SMSStatus) VALUES ('1')"_q).Number, NoSuchTable);
}

TEST_P(ContractInSqlServerWords, AMissingColumnHasItsWords)
{
    for (const QString& sql : {u"SELECT Nope FROM SMSSetup"_q, u"UPDATE SMSSetup SET Nope=1"_q,
                               u"Insert INTO SMSSetup (Nope) VALUES (1)"_q}) {
        const RuntimeError error = ErrorOf(sql);
        EXPECT_EQ(error.Number, StatementFailure) << sql.toStdString();
        EXPECT_EQ(error.Description, u"Invalid column name 'Nope'."_q) << sql.toStdString();
    }
}

TEST_P(ContractInSqlServerWords, AnUnclosedQuoteChangesNothing)
{
    const RuntimeError error = ErrorOf(u"UPDATE SMSSetup SET SMSID ='O'Brien'"_q);
    EXPECT_EQ(error.Number, StatementFailure);
    EXPECT_TRUE(error.Description.contains(u"Unclosed quotation mark after the character string '"))
        << error.Description.toStdString();
    EXPECT_EQ(Value(u"SELECT SMSID FROM SMSSetup"_q), QString());
}

TEST_P(ContractInSqlServerWords, ATextThatBreaksOffIsASyntaxError)
{
    for (const QString& sql :
         {u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - "_q, u"DELETE SMSTempLSub WHERE TempLSeq = "_q,
          u"SELECT GSubCd FROM SMSGroupSub WHERE GSubCd="_q}) {
        const RuntimeError error = ErrorOf(sql);
        EXPECT_EQ(error.Number, StatementFailure) << sql.toStdString();
        EXPECT_TRUE(error.Description.startsWith(u"Incorrect syntax near '"))
            << error.Description.toStdString();
    }
}

TEST_P(ContractInSqlServerWords, AKeyThatIsThereIsAnIntegrityFailure)
{
    Execute(u"INSERT INTO SMSTempLMst (TempLCd, TempLNm) VALUES (1, '안내')"_q);
    EXPECT_EQ(ErrorOf(u"INSERT INTO SMSTempLMst (TempLCd, TempLNm) VALUES (1, '인사')"_q).Number,
              IntegrityViolation);
}

TEST_P(ContractInSqlServerWords, AStatusIsRequired)
{
    const RuntimeError error = ErrorOf(u"Insert INTO SMSLog_2012 (SMSStatus) VALUES (Null)"_q);
    EXPECT_EQ(error.Number, IntegrityViolation);
    EXPECT_TRUE(error.Description.startsWith(u"Cannot insert the value NULL into column 'SMSStatus'"))
        << error.Description.toStdString();
}

TEST_P(ContractInSqlServerWords, ASendTimeThatIsNoDateFailsTheReservedFilter)
{
    AddLog(u"1"_q, u"2012-99-99 10-00"_q);
    const RuntimeError error = ErrorOf(History(
        u"2012"_q,
        u" AND (SMSStatus='1' AND DATEADD(DAY, -1, LEFT(SendTime,10)) >= CONVERT(varchar(10),getdate(),111))"_q,
        u"20120101"_q, u"20130101"_q));
    EXPECT_EQ(error.Number, CannotConvert);
    EXPECT_TRUE(error.Description.startsWith(u"Conversion failed when converting"))
        << error.Description.toStdString();
}

TEST_P(Contract, AFailedStatementLeavesTheConnectionUsable)
{
    ErrorOf(u"SELECT * FROM SMSLog_1999"_q);
    EXPECT_EQ(Value(u"SELECT COUNT(*) FROM SMSSetup"_q), u"1"_q);
}

namespace {

class EngineDatabase final : public ContractDatabase
{
public:
    explicit EngineDatabase(TestEngine engine) : database_(clock_, {2010, 2030}, engine) {}

    std::unique_ptr<Connection> NewConnection() override
    {
        Session session;
        database_.Describe(session);
        std::unique_ptr<Connection> connection = database_.Connections()();
        connection->ConnectionString = AssembleConnectionText(session);
        return connection;
    }

private:
    FixedClock clock_;
    TestDatabase database_;
};

ContractEngine Over(const char* name, TestEngine engine)
{
    return {name, [engine] { return std::make_unique<EngineDatabase>(engine); }};
}

/// A real server takes part when one is named.
std::vector<ContractEngine> Engines()
{
    std::vector<ContractEngine> engines{Over("Embedded", TestEngine::Embedded),
                                        Over("Odbc", TestEngine::Server)};
    if (!LiveServer().isEmpty())
        engines.push_back(Over("Live", TestEngine::Live));
    return engines;
}

std::string NameOf(const ::testing::TestParamInfo<ContractEngine>& engine)
{
    return engine.param.name;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Engine, Contract, ::testing::ValuesIn(Engines()), NameOf);
INSTANTIATE_TEST_SUITE_P(Engine, ContractInSqlServerWords, ::testing::ValuesIn(Engines()), NameOf);

} // namespace tsms::test
