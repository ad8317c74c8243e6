#pragma once

#include "templates/CardRows.h"
#include "toolkit/fields/Controls.h"

#include <array>
#include <functional>

class QHBoxLayout;

namespace tsms {

class CardBody;
class CardLabel;
class ComboBox;
class PhonePanel;
struct Services;

/// Eight templates as small phones, with their category and their page. It stands on the compose page and on
/// the template page, with names of its own on each. For the Tab key the cards are one stop and the
/// buttons of the pages another; the arrow keys walk from card to card and from button to button, Enter and
/// the space bar choose.
class TemplateCards : public Panel
{
    Q_OBJECT

public:
    enum Side : int { ComposeSide = 0, TemplateSide = 1 }; ///< the mode number of the operations

    static constexpr int Cards = CardsOfPage;
    static constexpr int Pages = 10;

    TemplateCards(Services& services, Side side, QWidget* parent);

    /// What whoever works the cards does.
    struct Handlers
    {
        std::function<void(int page)> showPage; ///< the page has become the current one; not while Busy
        std::function<void(int card)> takeCard; ///< card 1 to 8 was chosen
        std::function<void()> chooseCategory;   ///< a click on the category list
    };
    void Serve(Handlers handlers);

    Side Mode() const { return side_; }

    /// Writes the captions of card 1 to 8. Without a body it looks empty.
    void Show(int card, const QString& subject, const QString& content);

    Label& Subject(int card); ///< LblTmpSubject, LblTmpSubjectEdit: 1 to 8
    Label& Content(int card); ///< LblTmpContent, LblTmpContentEdit: 1 to 8
    ComboBox& Category() { return *category_; }

    /// The current page: the Tag of the panel of page buttons.
    int Page() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* BuildCard(int card);
    void BuildBody(int card, PhonePanel& phone);
    void BuildHead(QHBoxLayout& row);
    void BuildPageButtons();
    void BtnPageCountClick(int page);
    void ShowPressed(int page);
    void WalkFrom(int card, int key);
    void StopTabAt(int card);
    bool PageButtonEvent(int page, const QEvent& event);
    void StopTabAtPage(int page);

    Services& services_;
    Side side_;
    Handlers handlers_;
    ComboBox* category_ = nullptr;
    Panel* pageCount_ = nullptr;
    std::array<CardLabel*, Cards> subjects_{};
    std::array<CardBody*, Cards> contents_{};
    std::array<PhonePanel*, Cards> phones_{};
    std::array<PushButton*, Pages> pages_{};
};

} // namespace tsms
