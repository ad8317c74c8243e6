#pragma once

#include "toolkit/fields/DateText.h"

#include <QLineEdit>

#include <functional>

class QCalendarWidget;

namespace tsms {

class PopupPanel;

/// A date with a calendar that opens below it. Shown as YYYY-MM-DD whatever the locale.
///
/// It is typed or pasted wholly wherever the caret stands, as it is shown or as eight digits, or by its
/// parts: a click and the arrow keys mark a part, which the next digits replace; the keys up and down, and
/// the wheel while the field has the focus, step it. What is typed counts when the focus leaves or the value
/// is asked for. If it is no date then, the field shows and means the one that stood there, and wears the
/// look of a refusal until a person or the program does something with it.
class DatePicker : public QLineEdit
{
    Q_OBJECT

public:
    DatePicker(QWidget* parent, const QString& name);

    QString Value(); ///< "YYYY-MM-DD", of what the field shows
    void SetValue(QDate date);

    void SelectPart(DatePart part);

    /// Also by F4 and Alt+Down.
    void OpenCalendar();
    bool IsCalendarOpen() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    /// The value has become another one.
    std::function<void()> OnChange;
    /// A day was chosen in the calendar, which has closed by then; also the one that stood there already.
    std::function<void()> OnChoose;
    QString Tag;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Show(QDate date);
    void Settle();
    void ForgetTyping();
    void SetRefused(bool refused);

    bool Command(const QKeyEvent& key);
    bool Walk(const QKeyEvent& key);
    void Type(QChar character);
    void ShowTyped(QDate date);
    void TypeDigit(QChar digit);
    void TypeSeparator();
    void Paste(const QString& text);
    void MoveTo(int part);
    void Step(int steps);
    DatePart PresentPart() const { return PartAt(text(), cursorPosition()); }

    void MakeCalendar();
    void DressTitle();
    void TitleCalendar(int year);
    void PlaceCalendar();
    void Choose(QDate date);

    QDate date_;
    QString typed_; // without a pause by another key or the mouse
    bool refused_ = false;
    bool arrived_ = false; // the part that is marked became so because the one before it is whole
    int wheel_ = 0;        // eighths of a degree, not yet a notch
    PopupPanel* popup_ = nullptr;
    QCalendarWidget* calendar_ = nullptr;
};

} // namespace tsms
