#pragma once

#include "store/engine/Statement.h"

#include <cstdint>

namespace tsms {

class fpSpread;
class TemplateCards;
struct Services;

/// Reads the templates of a category, in the order of their numbers.
Statement TemplateQuery(std::int32_t category);

/// Brings the templates of a category into the hidden grid. The caller opens the database before and closes
/// it after; the grid keeps its rows. A failed query has been reported and leaves the grid as it was.
void LoadTemplates(Services& services, fpSpread& cache, std::int32_t category);

/// Shows a page (from 0) of the hidden grid on the cards. Cards without a row are empty; on the template page
/// they keep the Tags of what they showed before. Needs no database.
void ShowTemplateCards(Services& services, const fpSpread& cache, TemplateCards& cards, int page);

} // namespace tsms
