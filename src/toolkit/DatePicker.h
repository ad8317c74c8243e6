#pragma once

#include <QDateEdit>

#include <functional>

class QCalendarWidget;

namespace tsms {

/// A date with a calendar that opens below it. Shown and read as YYYY-MM-DD whatever the locale.
class DatePicker : public QDateEdit
{
    Q_OBJECT

public:
    DatePicker(QWidget* parent, const QString& name);

    QString Value(); ///< "YYYY-MM-DD", of what the field shows
    void SetValue(QDate date);

    /// Also by F4 and Alt+Down.
    void OpenCalendar();
    bool IsCalendarOpen() const;

    std::function<void()> OnChange;
    /// A day was chosen in the calendar, which has closed by then; also the one that stood there already.
    std::function<void()> OnChoose;
    QString Tag;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void DressCalendar();
    void TellChoices(const QCalendarWidget& calendar);

    const QCalendarWidget* told_ = nullptr; // the calendar whose choices are told
};

} // namespace tsms
