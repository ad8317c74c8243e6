#pragma once

#include "toolkit/windows/DialogForm.h"
#include "tsms-start/BackgroundWork.h"
#include "tsms-start/ConnectionTest.h"
#include "tsms-start/StartServices.h"

namespace tsms {

class fpSpread;
class MemoBox;

/// Tests a connection and shows the steps in a list with ticks, each as soon as it is known, and of the
/// chosen one below what is wrong and what to do. It begins when it comes up, and can be stopped or closed at
/// any time.
class TestDialog : public DialogForm
{
    Q_OBJECT

public:
    TestDialog(StartServices& services, const SavedConnection& connection, const QString& password,
               QWidget* owner);

    bool HasRefusedPassword() const { return tsms::HasRefusedPassword(steps_); }

protected:
    void OnFirstActivation() override;
    void OnButton(int index) override;

private:
    void BuildList();
    void BuildWords();
    void Run();
    void End(const std::exception_ptr& fault);
    void Stop();
    void ShowStopped();
    void ShowRunning(bool running);
    void ShowSteps(const QList<TestStep>& steps);
    void ShowWords();
    QString WordsOf(const TestStep& step) const;
    void ChooseFirstFault();

    StartServices& services_;
    SavedConnection connection_;
    QString password_;
    QList<TestStep> steps_;
    bool stopped_ = false; ///< before its end
    BackgroundWork work_{*this};
    fpSpread* list_ = nullptr;
    MemoBox* words_ = nullptr;
};

} // namespace tsms
