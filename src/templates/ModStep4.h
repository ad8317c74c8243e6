#pragma once

#include "store/engine/Statement.h"

#include <cstdint>

namespace tsms {

struct Services;

/// Stores a new template. Title and body are trimmed, and Null when nothing is left.
Statement TemplateInsert(std::int32_t category, const QString& title, const QString& body);

/// Changes the template of that key, its category included. Texts as for TemplateInsert.
Statement TemplateUpdate(std::int32_t category, const QString& title, const QString& body, std::int32_t key);

/// Removes the template of that key, which is a key as the editor holds it.
Statement TemplateDelete(const QString& key);

/// Stores a new template, or changes the one of that key. Returns -1 when the statement ran; a failure has
/// been reported. An update with the key 0 changes nothing and returns 0 without a word.
bool SaveTemplate(Services& services, bool isNew, std::int32_t category, const QString& title,
                  const QString& body, std::int32_t key);

} // namespace tsms
