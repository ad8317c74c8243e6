#pragma once

#include "toolkit/Controls.h"

#include <array>
#include <functional>

class QHBoxLayout;

namespace tsms {

class CardLabel;
class ComboBox;
struct Services;

/// Eight templates as small phones, with their category and their page. It stands on the compose page and on
/// the template page, with names of its own on each.
class TemplateCards : public Panel
{
    Q_OBJECT

public:
    enum Side : int { ComposeSide = 0, TemplateSide = 1 }; ///< the mode number of the operations

    static constexpr int Cards = 8;
    static constexpr int Pages = 10;

    TemplateCards(Services& services, Side side, QWidget* parent);

    /// What the page that owns the cards does. Page buttons can be used once `showPage` is given.
    struct Handlers
    {
        std::function<void(int page)> showPage; ///< the page has become the current one; not while Busy
        std::function<void(int card)> takeCard; ///< a click on the body of card 1 to 8
        std::function<void()> chooseCategory;   ///< a click on the category list
    };
    void Serve(Handlers handlers);

    Label& Subject(int card); ///< LblTmpSubject, LblTmpSubjectEdit: 1 to 8
    Label& Content(int card); ///< LblTmpContent, LblTmpContentEdit: 1 to 8
    ComboBox& Category() { return *category_; }

    /// The current page: the Tag of the panel of page buttons.
    int Page() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* BuildCard(int card);
    void BuildHead(QHBoxLayout& row);
    void BuildPageButtons();
    void BtnPageCountClick(int page);
    void ShowPressed(int page);

    Services& services_;
    Side side_;
    Handlers handlers_;
    ComboBox* category_ = nullptr;
    Panel* pageCount_ = nullptr;
    std::array<CardLabel*, Cards> subjects_{};
    std::array<CardLabel*, Cards> contents_{};
    std::array<PushButton*, Pages> pages_{};
};

} // namespace tsms
