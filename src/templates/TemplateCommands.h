#pragma once

#include <functional>

namespace tsms {

class ComboBox;
class MemoBox;
class TextBox;
class TemplateCards;
struct Services;

/// The editor of a template, as its page holds it. The key of the template under edit is the Tag of the body,
/// empty for one that is not yet stored.
struct TemplateFields
{
    MemoBox& body;
    TextBox& subject;
    ComboBox& category;          ///< that a save writes
    std::function<void()> clear; ///< empties both fields and their Tags and gives the body the focus
};

/// The commands of the template page, each with its questions and boxes. None looks at Busy.
class TemplateCommands
{
public:
    /// `reload` shows the stored templates anew, after a change.
    TemplateCommands(Services& services, TemplateFields fields, std::function<void()> reload);

    /// What is written next is a new template. The category stays.
    void New();

    /// Stores the editor's template, new or changed, when the operator agrees. Raises 381 when there is no
    /// category to choose from.
    void Save();

    /// Removes the template under edit, when the operator agrees. Does nothing for one that is not stored.
    void Delete();

    /// Brings the template of a card into the editor; an empty card begins a new one. The category becomes
    /// the one that the cards are of.
    void Take(TemplateCards& cards, int card);

private:
    void ForgetHistory();
    bool IsNew() const;
    bool HasBody();
    bool HasSubject();
    bool Store(bool isNew);
    bool AskDelete();

    Services& services_;
    TemplateFields fields_;
    std::function<void()> reload_;
};

} // namespace tsms
