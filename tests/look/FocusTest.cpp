#include "support/program/Program.h"

#include <gtest/gtest.h>

#include <QImage>

using namespace tsms;
using namespace tsms::test;

namespace {

/// A control with what stands close around it, where a field has its border and a card its phone.
QImage PictureOf(QWidget& control)
{
    constexpr QMargins Around(12, 40, 12, 16);
    QWidget& window = *control.window();
    const QRect place(control.mapTo(&window, QPoint()), control.size());
    return window.grab(place.marginsAdded(Around).intersected(window.rect())).toImage();
}

QList<QWidget*> Stops(const QWidget& surface)
{
    QList<QWidget*> stops;
    for (QWidget* control : surface.findChildren<QWidget*>())
        if (control->focusPolicy() & Qt::TabFocus && control->isVisible() && control->isEnabled() &&
            !control->focusProxy())
            stops += control;
    return stops;
}

class VisibleFocus : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(program.Start()); }

    /// Each stop of the Tab key on that surface looks otherwise when it has the focus than when the window
    /// has it itself.
    void ExpectSigns(QWidget& surface, int leastStops)
    {
        const QList<QWidget*> stops = Stops(surface);
        EXPECT_GE(stops.size(), leastStops);
        for (QWidget* stop : stops) {
            surface.window()->setFocus(Qt::OtherFocusReason);
            Settle();
            const QImage without = PictureOf(*stop);
            stop->setFocus(Qt::TabFocusReason);
            Settle();
            EXPECT_TRUE(stop->hasFocus()) << stop->objectName().toStdString();
            EXPECT_NE(PictureOf(*stop), without) << stop->objectName().toStdString();
        }
    }
    void ExpectSignsInDialog(const QString& form, const QString& button, int leastStops)
    {
        WhenShown(form, [this, leastStops](QWidget& dialog) {
            ExpectSigns(dialog, leastStops);
            PressKey(dialog, Qt::Key_Escape);
        });
        program.Click(button);
    }

    Program program;
};

TEST_F(VisibleFocus, OnTheComposePage)
{
    ExpectSigns(*program.form, 18);
}

TEST_F(VisibleFocus, OnTheHistoryPage)
{
    program.Click(u"BtnToolbarDis(1)"_q);
    ExpectSigns(*program.form, 18);
}

TEST_F(VisibleFocus, OnTheChargePage)
{
    program.Click(u"BtnToolbarDis(2)"_q);
    ExpectSigns(*program.form, 14);
}

TEST_F(VisibleFocus, OnTheTemplatePageAndInItsPopups)
{
    program.Click(u"BtnToolbarDis(3)"_q);
    ExpectSigns(*program.form, 19);
    for (const auto& [popup, stops] : {std::pair(0, 2), std::pair(1, 3)}) {
        program.Click(u"BtnFuncDocEdit(%1)"_q.arg(popup));
        ExpectSigns(program.Control(u"PlDocEdit(%1)"_q.arg(popup)), stops);
    }
}

TEST_F(VisibleFocus, InTheSettings)
{
    ExpectSignsInDialog(u"dlgSMSSetup"_q, u"BtnToolbarDis(4)"_q, 9);
}

TEST_F(VisibleFocus, InTheChargeDialog)
{
    program.Click(u"BtnToolbarDis(2)"_q);
    ExpectSignsInDialog(u"dlgSMSCharge"_q, u"BtnChargeFunc(0)"_q, 7);
}

TEST_F(VisibleFocus, InTheImportDialog)
{
    ExpectSignsInDialog(u"MakeSMSExcel"_q, u"BtnFuncMain(1)"_q, 4);
}

TEST_F(VisibleFocus, InTheAddressBookAndItsDialogs)
{
    WhenShown(u"dlgSMSGroupSelect"_q, [this](QWidget& book) {
        ExpectSigns(book, 10);
        for (const auto& [form, button] : {std::pair(u"dlgSMSGroupMst"_q, u"BtnAdd(1)"_q),
                                           std::pair(u"dlgSMSGroupSub"_q, u"BtnAdd(0)"_q)}) {
            WhenShown(form, [this](QWidget& dialog) {
                ExpectSigns(dialog, 3);
                PressKey(dialog, Qt::Key_Escape);
            });
            ClickOn(program.On<QWidget>(book, button));
        }
        PressKey(book, Qt::Key_Escape);
    });
    program.Click(u"BtnFuncMain(0)"_q);
}

TEST_F(VisibleFocus, InTheDispatchDialog)
{
    program.Write(u"안녕하세요"_q);
    program.List({{u"김하늘"_q, u"010-0000-0001"_q}});
    WhenShown(u"MakeSMSTransport"_q, [this](QWidget& dialog) {
        ClickOn(program.On<QWidget>(dialog, u"ChkTime"_q));
        ExpectSigns(dialog, 6);
        PressKey(dialog, Qt::Key_Escape);
    });
    program.Click(u"BtnSend(0)"_q);
}

} // namespace
