#include "guard/GuardedFields.h"

#include "toolkit/fields/LimitRule.h"

namespace tsms::test {

namespace {

const QString AccountQuery = u"SELECT * FROM SMSSetup"_q;
const QString LogTail = u",Null,Null,Null,getdate())"_q;

Box Information(const QString& title, const QString& text)
{
    return {title, text, MsgBoxInformation};
}

const Asked GroupAdded{Information(u"그룹등록"_q, u"정상적으로 그룹을 등록 하였습니다."_q)};
const Asked GroupRenamed{Information(u"그룹수정"_q, u"정상적으로 그룹을 수정 하였습니다."_q)};
const Asked MemberAdded{Information(u"발송대상"_q, u"정상적으로 하위 발송대상을 등록 하였습니다."_q)};
const Asked MemberChanged{Information(u"발송대상"_q, u"정상적으로 하위 발송대상을 수정 하였습니다."_q)};
const Asked AskNew{
    {u"문자서식 등록"_q, u"신규 문자서식 등록확인 : 입력한 문자서식을 등록하시겠습니까?"_q, MsgBoxQuestion},
    AnswerYes};
const Asked AskChange{
    {u"문자서식 수정"_q, u"문자서식 수정확인 : 입력한 문자서식을 수정하시겠습니까?"_q, MsgBoxQuestion},
    AnswerYes};
const Asked NewStored{
    Information(u"문자서식 등록"_q, u"등록성공알림 : 신규 문자서식 등록이 정상적으로 완료 되었습니다."_q)};
const Asked ChangeStored{
    Information(u"문자서식 수정"_q, u"수정성공알림 : 문자서식을 정상적으로 수정완료 되었습니다."_q)};
const Asked Charged{
    Information(u"문자메시지 충전!!!"_q, u"정상적으로 문자메시지 충전내역을 등록하였습니다."_q)};
const Asked SettingsSaved{Information(u"환경설정"_q, u"정상적으로 문자메시지 환경설정을 완료하였습니다."_q)};
const Asked Sent{SentBox()};

GuardedField AddressBookField(const std::string& name, decltype(GuardedField::work) work, const Asked& done,
                              const QString& tail, const QString& stored, const QString& table)
{
    return {.name = name,
            .work = std::move(work),
            .done = {done},
            .tail = tail,
            .stored = stored,
            .changes = {table, u"sqlite_sequence"_q}};
}

QList<GuardedField> AddressBookFields()
{
    const auto road = [](auto member) {
        return [member](GuardBench& bench, const QString& text, Way way) { (bench.*member)(text, way); };
    };
    return {
        AddressBookField("NewGroup", road(&GuardBench::AddGroup), GroupAdded, {},
                         u"SELECT GroupNm FROM SMSGroupMst ORDER BY GroupCd DESC"_q, u"SMSGroupMst"_q),
        AddressBookField("GroupsName", road(&GuardBench::RenameGroup), GroupRenamed, u" WHERE GroupCd=1"_q,
                         u"SELECT GroupNm FROM SMSGroupMst WHERE GroupCd = 1"_q, u"SMSGroupMst"_q),
        AddressBookField("NewMember", road(&GuardBench::AddMember), MemberAdded, {},
                         u"SELECT GSubNm FROM SMSGroupSub ORDER BY GSubCd DESC"_q, u"SMSGroupSub"_q),
        AddressBookField("MembersName", road(&GuardBench::ChangeMember), MemberChanged, u" WHERE GSubCd=1"_q,
                         u"SELECT GSubNm FROM SMSGroupSub WHERE GSubCd = 1"_q, u"SMSGroupSub"_q),
    };
}

GuardedField TemplateField(const std::string& name, bool isNew, bool isTitle)
{
    const auto work = [=](GuardBench& bench, const QString& text, Way way) {
        const QString title = isTitle ? text : u"제목"_q;
        const QString body = isTitle ? u"내용"_q : text;
        const QString watched = isTitle ? u"txtEditSubject"_q : u"txtEditBox"_q;
        if (isNew)
            bench.AddTemplate(title, body, watched, way);
        else
            bench.ChangeTemplate(title, body, watched, way);
    };
    return {.name = name,
            .work = work,
            .typesLines = !isTitle,
            .takesLines = !isTitle,
            .ahead = {isNew ? AskNew : AskChange},
            .done = {isNew ? NewStored : ChangeStored},
            .tail = isNew ? u")"_q : u" WHERE TempLSeq=1"_q,
            .stored = u"SELECT %1 FROM SMSTempLSub ORDER BY TempLSeq %2"_q.arg(
                isTitle ? u"TempLSubNm"_q : u"TempLContent"_q, isNew ? u"DESC"_q : u"ASC"_q),
            .changes = {u"SMSTempLSub"_q, u"sqlite_sequence"_q}};
}

QList<GuardedField> AccountFields()
{
    QList<GuardedField> fields;
    const auto enterCharge = [](int index) {
        return [index](GuardBench& bench, const QString& text, Way way) {
            bench.Charge({{index, text}}, index, way);
        };
    };
    fields += {.name = "ChargesUnit",
               .work = enterCharge(3),
               .ways = {Way::Pasted}, // its keys are filtered
               .room = 4,
               .tail = u",getdate())"_q};
    fields += {.name = "ChargesRemark",
               .work = enterCharge(4),
               .takesLines = true,
               .done = {Charged},
               .tail = u",getdate())"_q,
               .stored = u"SELECT Remark FROM SMSCharge ORDER BY SMSChargeKey DESC"_q,
               .changes = {u"SMSCharge"_q, u"SMSSetup"_q, u"sqlite_sequence"_q}};
    const QList<std::tuple<std::string, int, QString>> settings = {{"AccountsId", 0, u"SMSID"_q},
                                                                   {"AccountsPassword", 1, u"SMSPWD"_q},
                                                                   {"AccountsDomain", 2, u"SMSDNS"_q},
                                                                   {"AccountsName", 4, u"SMSOrgNm"_q}};
    const auto changeSetting = [](int index) {
        return [index](GuardBench& bench, const QString& text, Way way) {
            bench.ChangeSettings({{index, text}}, index, way);
        };
    };
    for (const auto& [name, index, column] : settings)
        fields += {.name = name,
                   .work = changeSetting(index),
                   .done = {SettingsSaved},
                   .stored = u"SELECT %1 FROM SMSSetup"_q.arg(column),
                   .changes = {u"SMSSetup"_q}};
    return fields;
}

QList<GuardedField> HistoryFields()
{
    QList<GuardedField> fields;
    const QList<std::pair<std::string, int>> searches = {
        {"SearchedName", 0}, {"SearchedNumber", 1}, {"SearchedMessage", 2}};
    for (const auto& [name, index] : searches)
        fields += {.name = name,
                   .work = [at = index](GuardBench& bench, const QString& text,
                                        Way way) { bench.SearchHistory(at, text, way); },
                   .tail = u") ORDER BY SendTime DESC "_q};
    return fields;
}

GuardedField SendField(const std::string& name, decltype(GuardedField::work) work, const QString& column)
{
    return {.name = name,
            .work = std::move(work),
            .failed = {Sent},
            .done = {Sent},
            .tail = LogTail,
            .around = {AccountQuery, AccountQuery},
            .stored = u"SELECT %1 FROM SMSLog_2012 ORDER BY SMSKey DESC"_q.arg(column),
            .changes = {u"SMSLog_2012"_q, u"SMSSetup"_q, u"sqlite_sequence"_q}};
}

QList<GuardedField> SendFields()
{
    GuardedField message = SendField(
        "Message", [](GuardBench& bench, const QString& text, Way way) { bench.SendMessage(text, way); },
        u"SMSContent"_q);
    message.typesLines = true;
    message.takesLines = true;

    const auto sendToName = [](GuardBench& bench, const QString& text, Way way) {
        bench.SendToName(text, way);
    };
    GuardedField name = SendField("RecipientsName", sendToName, u"SendNm"_q);
    name.room = 6;
    GuardedField listedName = SendField("RecipientsNameFromAList", sendToName, u"SendNm"_q);
    listedName.ways = {Way::Given};
    listedName.takesLines = true;

    GuardedField number = SendField(
        "RecipientsNumber",
        [](GuardBench& bench, const QString& text, Way way) { bench.SendToNumber(text, way); },
        u"SendTelNo"_q);
    number.room = 4;
    number.lead = u"010000000"_q;

    GuardedField launchText = SendField(
        "LaunchText", [](GuardBench& bench, const QString& text, Way) { bench.SendForLaunchText(text); },
        u"UserData2"_q);
    launchText.ways = {Way::Given};
    launchText.takesLines = true;
    return {message, name, listedName, number, launchText};
}

} // namespace

QString GuardedField::Fit(const QString& text, const QString& brief) const
{
    return lead + (room > 0 && text.size() > room ? brief : text);
}

QString GuardedField::Kept(const QString& text) const
{
    return takesLines ? text : text.first(FirstLineLength(text));
}

const QList<GuardedField>& GuardedFields()
{
    static const QList<GuardedField> fields =
        AddressBookFields() +
        QList<GuardedField>{
            TemplateField("NewTemplatesTitle", true, true), TemplateField("NewTemplatesBody", true, false),
            TemplateField("TemplatesTitle", false, true), TemplateField("TemplatesBody", false, false)} +
        AccountFields() + HistoryFields() + SendFields();
    return fields;
}

} // namespace tsms::test
