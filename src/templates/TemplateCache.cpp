#include "templates/TemplateCache.h"

#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"

#include <QString>

#include <utility>

namespace tsms {

void InitTemplateCache(fpSpread& grid)
{
    const std::pair<QString, double> columns[] = {
        {QStringLiteral("기본키"), 7.0},
        {QStringLiteral("그룹키"), 7.0},
        {QStringLiteral("제목"), 20.0},
        {QStringLiteral("내용"), 60.0},
    };
    GridHelper().PrepareGrid(grid);
    int col = 0;
    for (const auto& [title, width] : columns) {
        ++col;
        grid.SetText(col, 0, title);
        grid.SetColWidth(col, width);
    }
    grid.SetMaxCols(col);
}

} // namespace tsms
