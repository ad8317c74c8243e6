#include "e2e/PictureDesk.h"

#include "toolkit/windows/Form.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QtTest/QTest>

namespace tsms::test {

namespace {

QMessageBox::StandardButton ButtonOf(MsgBoxAnswer answer)
{
    switch (answer) {
    case AnswerYes:
        return QMessageBox::Yes;
    case AnswerNo:
        return QMessageBox::No;
    case AnswerOK:
        break;
    }
    return QMessageBox::Ok;
}

bool IsWindowOnView()
{
    const QList<Form*>& forms = Form::Loaded();
    return std::any_of(forms.begin(), forms.end(), [](const Form* form) { return form->isVisible(); });
}

/// A box belongs to the window it stands before, as soon as there is one, and stands in its middle.
void ExpectInPlace(const QMessageBox& box, const QString& name)
{
    EXPECT_EQ(box.parentWidget() != nullptr, IsWindowOnView()) << name.toStdString();
    // Without frames: that of a window which just came up is told late, and wrongly until then.
    const QRect around =
        box.parentWidget() ? box.parentWidget()->window()->geometry() : box.screen()->availableGeometry();
    const auto off = [&] { return box.geometry().center() - around.center(); };
    constexpr int Tolerance = 60; // half a frame, whose size is guessed before there is one
    const auto inPlace = [&] { return qAbs(off().x()) <= Tolerance && qAbs(off().y()) <= Tolerance; };
    EXPECT_TRUE(QTest::qWaitFor(inPlace, 2000))
        << name.toStdString() << " stands off its middle by " << off().x() << ", " << off().y();
}

} // namespace

void PictureDesk::Await(const QString& name, MsgBoxAnswer answer, std::function<void()> meanwhile)
{
    awaited_.push_back({name, answer, std::move(meanwhile)});
}

void PictureDesk::ExpectNoneLeft()
{
    for (const Awaited& left : awaited_)
        ADD_FAILURE() << "this box did not come: " << left.name.toStdString();
    awaited_.clear();
}

MsgBoxAnswer PictureDesk::MsgBox(const QString& text, MsgBoxStyle style, const QString& title)
{
    if (awaited_.empty()) {
        ADD_FAILURE() << "nobody awaits this box: " << title.toStdString() << " | " << text.toStdString();
        return AnswerOK;
    }
    const Awaited awaited = std::move(awaited_.front());
    awaited_.pop_front();
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [this, &look, &awaited] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return;
        look.stop();
        Attend(*box, awaited);
    });
    look.start(10);
    return desk_.MsgBox(text, style, title);
}

void PictureDesk::Attend(QMessageBox& box, const Awaited& awaited)
{
    if (!awaited.name.isEmpty()) {
        // The window may be active before its button has the focus, and the ring around it.
        EXPECT_TRUE(QTest::qWaitFor([&] { return box.isAncestorOf(QApplication::focusWidget()); }))
            << awaited.name.toStdString();
        ExpectInPlace(box, awaited.name);
        take_(box, awaited.name);
    }
    if (awaited.meanwhile)
        awaited.meanwhile();
    QAbstractButton* button = box.button(ButtonOf(awaited.answer));
    EXPECT_TRUE(button) << awaited.name.toStdString() << " has no such button";
    if (button)
        button->click();
    else
        box.close();
}

} // namespace tsms::test
