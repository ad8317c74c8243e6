#pragma once

#include "store/engine/Statement.h"

#include <QString>

namespace tsms {

/// What the settings dialog writes of the account row.
struct Settings
{
    QString SMSID;
    QString SMSPWD;
    QString SMSDNS;
    QString SMSTelNo;
    QString SMSOrgNm;
    bool SMSAuto1 = false;
    bool SMSAuto2 = false;
};

/// The account row as the settings dialog shows it.
Statement SettingsQuery();

/// Writes every row of the table, which holds one.
Statement SettingsUpdate(const Settings& settings);

} // namespace tsms
