#pragma once

#include "toolkit/windows/DialogForm.h"
#include "tsms-start/ConnectionTest.h"
#include "tsms-start/StartServices.h"

namespace tsms {

class fpSpread;
class MemoBox;

/// Tests a connection and shows the steps in a list with ticks, and of the chosen one below what is wrong and
/// what to do. It begins when it comes up.
class TestDialog : public DialogForm
{
    Q_OBJECT

public:
    TestDialog(StartServices& services, const SavedConnection& connection, const QString& password,
               QWidget* owner);

    bool HasRefusedPassword() const { return test_.HasRefusedPassword(); }

protected:
    void OnFirstActivation() override;
    void OnButton(int index) override;

private:
    void BuildList();
    void BuildWords();
    void Run();
    void ShowSteps();
    void ShowWords();
    void ChooseFirstFault();

    ConnectionTest test_;
    fpSpread* list_ = nullptr;
    MemoBox* words_ = nullptr;
};

} // namespace tsms
