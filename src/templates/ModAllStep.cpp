#include "templates/ModAllStep.h"

#include "runtime/Text.h"
#include "services/ScreenBusy.h"
#include "services/Services.h"
#include "store/engine/RecordsetCells.h"
#include "store/WithDatabase.h"
#include "templates/CardRows.h"
#include "templates/TemplateCache.h"
#include "templates/TemplateCards.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"

namespace tsms {

namespace {

void ShowTemplate(const fpSpread& cache, int row, TemplateCards& cards, int card)
{
    const auto cell = [&](int column) { return Trim(GridHelper().GetCellText(cache, column, row)); };
    cards.Show(card, cell(CacheSubject), cell(CacheContent));
    if (cards.Mode() == TemplateCards::TemplateSide) {
        cards.Content(card).Tag = cell(CacheSeq);
        cards.Subject(card).Tag = cell(CacheCategory);
    }
}

} // namespace

Statement TemplateQuery(std::int32_t category)
{
    return Statement(u"SELECT  TempLSeq,")
        .Own(u" TempLCd, TempLSubNm, TempLContent ")
        .Own(u" FROM SMSTempLSub AS P WHERE  1 = 1 ")
        .Own(u" AND TempLCd=")
        .Bare(QString::number(category))
        .Own(u" ORDER BY TempLSeq");
}

void LoadTemplates(Services& services, fpSpread& cache, std::int32_t category)
{
    ReportingErrors(services.db, [&] {
        WhileScreenBusy(services, [&] {
            services.db.Select(TemplateQuery(category), [&](const Recordset& templates) {
                cache.Cells().SetMaxRows(templates.RecordCount());
                cache.SetDataSource(std::make_shared<RecordsetCells>(services.db.ShareRecords()));
            });
        });
    });
}

void ShowTemplateCards(Services& services, const fpSpread& cache, TemplateCards& cards, int page)
{
    ReportingErrors(services.db, [&] {
        WhileScreenBusy(services, [&] {
            for (int card = 1; card <= CardsOfPage; ++card)
                cards.Show(card, QString(), QString());
            int card = 0;
            for (const int row : CardRows(page, cache.Cells().MaxRows()))
                ShowTemplate(cache, row, cards, ++card);
        });
    });
}

} // namespace tsms
