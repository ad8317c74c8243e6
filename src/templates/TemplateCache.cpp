#include "templates/TemplateCache.h"

#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"

#include <QString>

namespace tsms {

void InitTemplateCache(fpSpread& grid)
{
    const GridHelper helper;
    helper.PrepareGrid(grid);
    const std::vector<GridColumn> columns{
        {QStringLiteral("기본키"), 7.0},
        {QStringLiteral("그룹키"), 7.0},
        {QStringLiteral("제목"), 20.0},
        {QStringLiteral("내용"), 60.0},
    };
    helper.LayOut(grid, columns);
}

} // namespace tsms
