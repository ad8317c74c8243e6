#pragma once

#include "store/engine/Statement.h"

namespace tsms {

/// The groups of that name, which the database compares in its own way. The name goes in trimmed.
Statement GroupsNamed(const QString& name);

/// The name goes in trimmed; the code is assigned by the database.
Statement InsertGroup(const QString& name);

/// Meant: the name goes in as it was typed, with its blanks, unlike that of a new group.
Statement RenameGroup(const QString& groupCode, const QString& name);

} // namespace tsms
