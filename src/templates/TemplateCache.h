#pragma once

namespace tsms {

class fpSpread;

/// The columns of the hidden grid that holds the templates of the category last loaded.
enum TemplateCacheColumn : int {
    CacheSeq = 1,
    CacheCategory = 2,
    CacheSubject = 3,
    CacheContent = 4,
};

/// Lays the hidden grid out.
void InitTemplateCache(fpSpread& grid);

} // namespace tsms
