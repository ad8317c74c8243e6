#pragma once

#include <QDateEdit>

#include <functional>

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
    QString Tag;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void DressCalendar();
};

} // namespace tsms
