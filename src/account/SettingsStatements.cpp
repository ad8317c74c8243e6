#include "account/SettingsStatements.h"

namespace tsms {

namespace {

QStringView Digit(bool ticked)
{
    return ticked ? u"1" : u"0";
}

} // namespace

Statement SettingsQuery()
{
    return u"SELECT SMSID,SMSPWD,SMSDNS,SMSOrgNm,SMSTelNo,SMSAuto1,SMSAuto2 FROM SMSSetup";
}

Statement SettingsUpdate(const Settings& settings)
{
    Statement update(u"UPDATE SMSSetup");
    update.Own(u" SET ");
    update.Own(u" SMSID =").Quoted(settings.SMSID).Own(u",");
    update.Own(u" SMSPWD =").Quoted(settings.SMSPWD).Own(u",");
    update.Own(u" SMSDNS =").Quoted(settings.SMSDNS).Own(u",");
    update.Own(u" SMSTelNo =").Quoted(settings.SMSTelNo).Own(u",");
    update.Own(u" SMSOrgNm =").Quoted(settings.SMSOrgNm).Own(u",");
    update.Own(u" SMSAuto1 =").InQuotes(Digit(settings.SMSAuto1)).Own(u",");
    update.Own(u" SMSAuto2 =").InQuotes(Digit(settings.SMSAuto2));
    return update;
}

} // namespace tsms
