#pragma once

#include "store/engine/Statement.h"

namespace tsms {

/// What the member dialog stores of a person.
struct MemberFields
{
    int groupCode = 0; ///< 0: no group
    QString name;
    QString phone;
};

Statement MemberByCode(const QString& memberCode);

/// The members of that name in all groups. The name goes in trimmed.
Statement MembersNamed(const QString& name);

Statement InsertMember(const MemberFields& fields);
Statement UpdateMember(const QString& memberCode, const MemberFields& fields);

} // namespace tsms
