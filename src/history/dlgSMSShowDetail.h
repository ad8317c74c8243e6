#pragma once

#include "store/engine/Statement.h"
#include "toolkit/windows/DialogForm.h"

#include <QDate>

#include <array>
#include <cstdint>
#include <functional>

namespace tsms {

class Recordset;
struct Services;

/// One sent message in full, and the cancellation of it while it is reserved. The labels are all that the
/// dialog remembers.
class dlgSMSShowDetail : public DialogForm
{
    Q_OBJECT

public:
    /// `searchAgain` is run behind a cancellation.
    dlgSMSShowDetail(Services& services, std::function<void()> searchAgain, QWidget* owner = nullptr);

    /// Fills the dialog, before it is shown, with the message `key` of the log table of the year `period`.
    /// Where there is none the labels stay empty; a failure has shown its box. Does nothing while Busy.
    void Sp_SMSDeTail(std::int32_t key, const QString& period);

protected:
    void OnButton(int index) override;
    /// Ctrl+C copies the words that are selected, wherever the focus is.
    bool KeyDown(int key, Qt::KeyboardModifiers shift) override;

private:
    void BuildFields(QVBoxLayout& column);
    QWidget* BuildPhone();

    void Fill(const Recordset& row);
    void BtnCancelClick();
    bool Cancel();

    Services& services_;
    std::function<void()> searchAgain_;
    std::array<Label*, 5> values_{}; // LblSendSMS
    Label* content_ = nullptr;       // LblTmpContent
};

/// The query of one message.
Statement DetailStatement(std::int32_t key, const QString& period);

/// The word shown for the status word of that query: "전송성공" becomes "예약중" or "전송완료", any other
/// stays. Raises 13 where `sendTime` does not begin with a day.
QString ShownStatus(const QString& word, const QString& sendTime, QDate today);

} // namespace tsms
