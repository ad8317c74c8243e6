#pragma once

#include <cstdint>
#include <functional>

namespace tsms {

class ComboBox;
class fpSpread;
class TemplateCards;
struct Services;

/// Works the cards of one page: its categories, its pages, and what a card gives. The hidden grid behind the
/// cards belongs to both pages, so each shows what the other has loaded until a category is loaded anew.
class TemplatePicker
{
public:
    /// `take` gets the number of the card that was chosen, 1 to 8, also while Busy is set.
    TemplatePicker(Services& services, fpSpread& cache, TemplateCards& cards,
                   std::function<void(int card)> take);

    /// What belongs to an entry to the page: reads the categories (into `further` as well, if given) and
    /// shows the first page of the first category. The page button and the current page stay as they were.
    void Enter(ComboBox* further = nullptr);

    /// The click on the category list: shows the chosen category on the current page. Not while Busy.
    void ChooseCategory();

private:
    std::int32_t ChosenCategory() const;
    void ShowPage(int page);

    Services& services_;
    fpSpread& cache_;
    TemplateCards& cards_;
};

} // namespace tsms
