#include "support/program/Hands.h"

#include "toolkit/grid/fpSpread.h"
#include "toolkit/windows/Form.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QTimer>
#include <QtTest/QTest>

namespace tsms::test {

namespace {

constexpr int PatienceMs = 5000;

void SendKey(QWidget& field, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    QKeyEvent event(type, key, modifiers, text);
    QApplication::sendEvent(&field, &event);
}

class EventWatch final : public QObject
{
public:
    EventWatch(QWidget& form, QEvent::Type awaited, std::function<void()> look)
        : QObject(&form), awaited_(awaited), look_(std::move(look))
    {
        form.installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == awaited_)
            look_();
        return false;
    }

private:
    QEvent::Type awaited_;
    std::function<void()> look_;
};

QWidget& Receiver(QWidget& field)
{
    QWidget* focused = field.window()->focusWidget();
    return focused && field.isAncestorOf(focused) ? *focused : field;
}

/// The middle of a cell, which is brought on view.
QPoint PlaceOf(fpSpread& grid, int column, int row)
{
    const QModelIndex index = grid.model()->index(row - 1, column - 1);
    grid.scrollTo(index);
    return grid.visualRect(index).center();
}

} // namespace

void TypeText(QWidget& field, const QString& text)
{
    for (const QChar c : text) {
        if (c == u'\r')
            continue;
        const bool enter = c == u'\n';
        const int key = enter ? Qt::Key_Return : (c.unicode() < 0x80 ? c.toUpper().unicode() : 0);
        const QString word = enter ? QStringLiteral("\r") : QString(c);
        QWidget& receiver = Receiver(field);
        SendKey(receiver, QEvent::KeyPress, key, Qt::NoModifier, word);
        SendKey(Receiver(field), QEvent::KeyRelease, key, Qt::NoModifier, word);
    }
}

void PressKey(QWidget& field, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&Receiver(field), key, modifiers);
}

void PasteText(QWidget& field, const QString& text)
{
    QApplication::clipboard()->setText(text);
    QTest::keyClick(&Receiver(field), Qt::Key_V, Qt::ControlModifier);
}

void CommitText(QWidget& field, const QString& text)
{
    QInputMethodEvent preedit(text, {});
    QApplication::sendEvent(&Receiver(field), &preedit);
    QInputMethodEvent commit;
    commit.setCommitString(text);
    QApplication::sendEvent(&Receiver(field), &commit);
}

void ClickOn(QWidget& control)
{
    ASSERT_TRUE(control.isVisible()) << control.objectName().toStdString() << " is not on view";
    QTest::mouseClick(&control, Qt::LeftButton);
}

void ClickCell(fpSpread& grid, int column, int row)
{
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, Qt::NoModifier, PlaceOf(grid, column, row));
}

void DoubleClickCell(fpSpread& grid, int column, int row)
{
    const QPoint place = PlaceOf(grid, column, row);
    ClickCell(grid, column, row);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, Qt::NoModifier, place);
}

void TypeIntoCell(fpSpread& grid, int column, int row, const QString& text)
{
    ClickCell(grid, column, row);
    TypeText(grid, text);
    grid.CommitEdit();
}

void WhenShown(const QString& formName, std::function<void(QWidget& form)> act)
{
    auto* timer = new QTimer(qApp);
    auto waited = std::make_shared<QElapsedTimer>();
    waited->start();
    // A timer also ticks inside the work that a form does while it comes up; a person comes after it. The
    // event loop waits for more only when nothing is under way.
    auto seen = std::make_shared<bool>(false);
    auto atRest = std::make_shared<bool>(false);
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, timer,
                     [=] { *atRest = *seen; });
    QObject::connect(timer, &QTimer::timeout, timer, [=] {
        Form* form = Form::Find(formName);
        *seen = form && form->isVisible() && form->isActiveWindow();
        if (*seen && *atRest) {
            timer->stop();
            timer->deleteLater();
            act(*form);
        } else if (waited->elapsed() > PatienceMs) {
            timer->stop();
            timer->deleteLater();
            ADD_FAILURE() << formName.toStdString() << " was never shown";
        }
    });
    timer->start(5);
}

void WhenComing(QWidget& form, std::function<void()> look)
{
    new EventWatch(form, QEvent::Show, std::move(look)); // goes with the form
}

void WhenClosing(QWidget& form, std::function<void()> look)
{
    new EventWatch(form, QEvent::Close, std::move(look)); // goes with the form
}

void Settle()
{
    QApplication::processEvents();
}

} // namespace tsms::test
