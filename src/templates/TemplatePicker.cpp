#include "templates/TemplatePicker.h"

#include "services/Services.h"
#include "session/Session.h"
#include "store/WithDatabase.h"
#include "templates/ModAllStep.h"
#include "templates/ModFuncPublic.h"
#include "templates/TemplateCards.h"
#include "toolkit/fields/ComboBox.h"

namespace tsms {

TemplatePicker::TemplatePicker(Services& services, fpSpread& cache, TemplateCards& cards,
                               std::function<void(int card)> take)
    : services_(services), cache_(cache), cards_(cards)
{
    cards_.Serve({[this](int page) { ShowPage(page); }, std::move(take), [this] { ChooseCategory(); }});
}

void TemplatePicker::Enter(ComboBox* further)
{
    WithDatabase(services_.db, [&] {
        FillTemplateCombo(services_, cards_.Category());
        if (further)
            FillTemplateCombo(services_, *further);
        LoadTemplates(services_, cache_, ChosenCategory());
        ShowPage(0); // the current page stays what it was: meant
    });
}

void TemplatePicker::ChooseCategory()
{
    if (services_.session.IsBusy())
        return;
    WithDatabase(services_.db, [this] {
        LoadTemplates(services_, cache_, ChosenCategory());
        ShowPage(cards_.Page());
    });
}

/// 0 when there is nothing to choose from: a page without categories is no error, it has no cards.
std::int32_t TemplatePicker::ChosenCategory() const
{
    return cards_.Category().ListIndex() < 0 ? 0 : cards_.Category().SelectedData();
}

void TemplatePicker::ShowPage(int page)
{
    ShowTemplateCards(services_, cache_, cards_, page);
}

} // namespace tsms
