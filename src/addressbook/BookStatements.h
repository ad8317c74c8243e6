#pragma once

#include "store/engine/Statement.h"

namespace tsms {

/// All groups by name, for the lists to choose from.
Statement GroupList();

/// All groups in the database's order, for the browse list.
Statement BrowseGroups();

/// Which members the browse list shows: the entry that is selected in the filter, and its ItemData.
struct MemberFilter
{
    int entry = 0;     ///< below 1: all members
    int groupCode = 0; ///< 0: those without a group
};

/// The members that pass the filter, each with its group's name, in the database's order.
Statement BrowseMembers(const MemberFilter& filter);

/// The members of one group; an empty code stands for those without a group.
Statement MembersOfGroup(const QString& groupCode);

Statement DeleteMember(const QString& memberCode);
Statement DeleteGroup(const QString& groupCode);

/// Leaves the members of a group without one.
Statement ReleaseMembers(const QString& groupCode);

} // namespace tsms
