#include "toolkit/DatePicker.h"

#include "toolkit/Guarded.h"
#include "toolkit/Naming.h"
#include "toolkit/Pictures.h"
#include "toolkit/Theme.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QToolButton>

namespace tsms {

DatePicker::DatePicker(QWidget* parent, const QString& name) : QDateEdit(parent)
{
    SetName(*this, name);
    setLocale(QLocale::c()); // so that no locale brings digits of its own
    setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
    setCalendarPopup(true);
    setDate(QDate::currentDate());
    connect(this, &QDateEdit::dateChanged, this, [this] { RaiseEvent(*this, OnChange); });
}

QString DatePicker::Value()
{
    interpretText(); // a part that is still being typed counts as it will stand when the focus leaves
    return date().toString(QStringLiteral("yyyy-MM-dd"));
}

void DatePicker::SetValue(QDate date)
{
    setDate(date);
}

void DatePicker::DressCalendar()
{
    QCalendarWidget* calendar = calendarWidget();
    calendar->setLocale(QLocale(QLocale::Korean, QLocale::SouthKorea));
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    const auto setPicture = [&](const QString& name, const QString& picture) {
        if (auto* button = calendar->findChild<QToolButton*>(name))
            button->setIcon(PictureIcon(picture));
    };
    setPicture(QStringLiteral("qt_calendar_prevmonth"), QStringLiteral("arrow-left"));
    setPicture(QStringLiteral("qt_calendar_nextmonth"), QStringLiteral("arrow-right"));
    TellChoices(*calendar);
}

void DatePicker::TellChoices(const QCalendarWidget& calendar)
{
    if (told_ == &calendar)
        return;
    told_ = &calendar;
    const auto tell = [this] { RaiseEvent(*this, OnChoose); };
    connect(&calendar, &QCalendarWidget::clicked, this, tell);   // by the mouse
    connect(&calendar, &QCalendarWidget::activated, this, tell); // by a key
}

void DatePicker::mousePressEvent(QMouseEvent* event)
{
    DressCalendar();
    QDateEdit::mousePressEvent(event);
}

bool DatePicker::IsCalendarOpen() const
{
    const QWidget* calendar = findChild<QCalendarWidget*>();
    return calendar && calendar->isVisible();
}

void DatePicker::OpenCalendar()
{
    DressCalendar();
    // The control has no other way to open its calendar than a press on its arrow.
    QStyleOptionComboBox arrow;
    arrow.initFrom(this);
    const QRect place = style()->subControlRect(QStyle::CC_ComboBox, &arrow, QStyle::SC_ComboBoxArrow, this);
    QMouseEvent press(QEvent::MouseButtonPress, place.center(), mapToGlobal(place.center()), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QDateEdit::mousePressEvent(&press);
}

void DatePicker::keyPressEvent(QKeyEvent* event)
{
    const bool altDown = event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier);
    if (event->key() == Qt::Key_F4 || altDown)
        OpenCalendar();
    else
        QDateEdit::keyPressEvent(event);
}

void DatePicker::paintEvent(QPaintEvent* event)
{
    QDateEdit::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    theme::DrawFocusRing(painter, rect(), 3);
}

void DatePicker::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QDateEdit::wheelEvent(event);
    else
        event->ignore();
}

} // namespace tsms
