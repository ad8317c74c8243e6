#include "toolkit/fields/Controls.h"

#include "runtime/CellSource.h"
#include "runtime/RuntimeError.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/DatePicker.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/look/Pictures.h"
#include "toolkit/look/Theme.h"
#include "toolkit/look/Twips.h"

#include "support/Words.h"

#include <QAbstractItemView>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QPaintEvent>
#include <QStyleOptionComboBox>
#include <QTest>

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

long NumberRaisedBy(const std::function<void()>& body)
{
    try {
        body();
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return NoError;
}

void ApplyOurTheme()
{
    theme::ApplyTheme(*static_cast<QApplication*>(QCoreApplication::instance()));
}

TEST(Naming, AnElementOfAnArrayCarriesItsIndex)
{
    EXPECT_EQ(IndexedName(u"BtnFuncMain", 2), u"BtnFuncMain(2)"_q);
}

TEST(Naming, TheNameIsForToolsAndNotForThoseWhoListen)
{
    QWidget owner;
    const auto* control = Named(new QWidget(&owner), u"fpSpread"_q);
    EXPECT_EQ(control->objectName(), u"fpSpread"_q);
    EXPECT_EQ(control->accessibleName(), QString());
}

TEST(Naming, OfACaptionTheColonAndItsGapsAreNotSpoken)
{
    QWidget field;
    for (const auto& [caption, spoken] :
         {std::pair(u"성    명 :"_q, u"성명"_q), std::pair(u"예약 날짜"_q, u"예약 날짜"_q)}) {
        DescribeBy(field, caption);
        EXPECT_EQ(field.accessibleName(), spoken);
    }
}

TEST(Twips, AreFifteenToThePixel)
{
    EXPECT_EQ(FromTwips(3360), 224);
    EXPECT_EQ(FromTwips(7020), 468);
}

TEST(PushButton, IsClickedByMouseSpaceAndEnter)
{
    PushButton button(nullptr, u"BtnFunc(0)"_q, u"저장(F12)"_q);
    int clicks = 0;
    button.OnClick = [&] { ++clicks; };
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicks, 3);
}

TEST(PushButton, ShowsItsCaptionToTheLetter)
{
    PushButton button(nullptr, u"Btn"_q, u"A&B"_q);
    EXPECT_EQ(button.Caption(), u"A&B"_q);
    EXPECT_EQ(button.accessibleName(), u"A&B"_q);
    EXPECT_TRUE(button.shortcut().isEmpty());
    button.SetCaption(u"예약취소"_q);
    EXPECT_EQ(button.Caption(), u"예약취소"_q);
    EXPECT_EQ(button.text(), u"예약취소"_q);
}

TEST(PushButton, IsWideEnoughForItsWords)
{
    PushButton button(nullptr, u"Btn"_q, u"아주 긴 이름을 가진 단추입니다 (F12)"_q);
    EXPECT_GT(button.sizeHint().width(), button.fontMetrics().horizontalAdvance(button.Caption()));
    EXPECT_GT(button.sizeHint().height(), button.fontMetrics().height());
}

TEST(PushButton, ShowsPressedDisabledAndFocus)
{
    ApplyOurTheme();
    QWidget window;
    PushButton button(&window, u"Btn"_q, QString());
    PushButton other(&window, u"Other"_q, QString());
    button.setGeometry(10, 10, 100, 30);
    other.setGeometry(10, 50, 100, 30);
    window.resize(200, 100);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    other.setFocus();
    const QImage rest = button.grab().toImage();
    button.setFocus(Qt::TabFocusReason);
    EXPECT_NE(button.grab().toImage(), rest);
    other.setFocus();
    button.setDown(true);
    EXPECT_NE(button.grab().toImage(), rest);
    button.setDown(false);
    EXPECT_EQ(button.grab().toImage(), rest);
    button.setEnabled(false);
    EXPECT_NE(button.grab().toImage(), rest);
}

TEST(PushButton, IsDrawnByItsLookWhileItCanBeUsed)
{
    PushButton button(nullptr, u"Btn"_q, u"a"_q);
    ApplyOurTheme();
    const auto face = [&] { return button.grab().toImage().pixelColor(6, button.height() / 2); };
    button.resize(80, 28);
    EXPECT_EQ(face(), theme::ButtonFace);
    button.SetLook(PushButton::Look::Primary);
    EXPECT_EQ(face(), theme::Accent);
    button.SetLook(PushButton::Look::Chosen);
    EXPECT_EQ(face(), theme::Strip);
    button.setEnabled(false);
    EXPECT_EQ(face(), theme::Ground);
    button.SetLook(PushButton::Look::Primary); // the accent is never on what cannot be used
    EXPECT_EQ(face(), theme::Ground);
}

TEST(PictureButton, HasNoCaptionAndIsClicked)
{
    PictureButton button(nullptr, u"BtnToolbarDis(0)"_q, u"toolbar-compose"_q, u"문자전송"_q,
                         PictureButton::Look::Idle);
    int clicks = 0;
    button.OnClick = [&] { ++clicks; };
    button.resize(button.sizeHint());
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(button.text(), QString());
    EXPECT_EQ(button.accessibleName(), u"문자전송"_q);
    EXPECT_EQ(button.toolTip(), QString());
}

TEST(PictureButton, OnATitleStripIsNoStopOfTheTabKey)
{
    const PictureButton closing(nullptr, u"BtnTopFunc(1)"_q, u"window-close"_q, u"닫기"_q,
                                PictureButton::Look::Closing);
    EXPECT_EQ(closing.focusPolicy(), Qt::NoFocus);
}

TEST(PictureButton, OnATitleStripShowsItsWordsInTheToolTipAlone)
{
    PictureButton silent(nullptr, u"BtnTopFunc(1)"_q, u"window-close"_q, QString(),
                         PictureButton::Look::Closing);
    PictureButton closing(nullptr, u"BtnTopFunc(1)"_q, u"window-close"_q, u"닫기"_q,
                          PictureButton::Look::Closing);
    EXPECT_EQ(closing.toolTip(), u"닫기"_q);
    EXPECT_EQ(closing.sizeHint(), silent.sizeHint());
    EXPECT_EQ(closing.grab().toImage(), silent.grab().toImage());
}

TEST(PictureButton, WithAFrameIsAStopOfTheTabKeyAndAsHighAsAPushButton)
{
    ApplyOurTheme();
    const PictureButton framed(nullptr, u"BtnAdd(0)"_q, u"book-member"_q, u"구성원 등록"_q,
                               PictureButton::Look::Framed);
    const PushButton beside(nullptr, u"Btn"_q, u"추가"_q);
    EXPECT_EQ(framed.focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(framed.sizeHint().height(), beside.sizeHint().height());
}

TEST(PictureButton, WithAFrameShowsThatItIsPressedOrCannotBeUsed)
{
    PictureButton button(nullptr, u"BtnAdd(0)"_q, u"book-member"_q, u"구성원 등록"_q,
                         PictureButton::Look::Framed);
    button.resize(button.sizeHint());
    const QImage rest = button.grab().toImage();
    button.setDown(true);
    EXPECT_NE(button.grab().toImage(), rest);
    button.setDown(false);
    EXPECT_EQ(button.grab().toImage(), rest);
    button.setEnabled(false);
    EXPECT_NE(button.grab().toImage(), rest);
}

TEST(Label, ShowsALineBreakAndKeepsItsCaption)
{
    Label label(nullptr, u"Label1"_q, u"a\r\nb"_q);
    EXPECT_EQ(label.Caption(), u"a\r\nb"_q);
    EXPECT_EQ(label.text(), u"a\nb"_q);
    label.SetCaption(u"<b>plain</b>"_q);
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
}

TEST(Label, SaysWhatAFieldIs)
{
    QWidget field;
    Label label(nullptr, u"Label1"_q, u"그룹 명칭 :"_q);
    label.Describes(field);
    EXPECT_EQ(label.buddy(), &field);
    EXPECT_EQ(field.accessibleName(), u"그룹명칭"_q);
}

TEST(Label, RefreshPaintsAtOnce)
{
    class Counting : public Label
    {
    public:
        using Label::Label;
        int paints = 0;

    protected:
        void paintEvent(QPaintEvent* event) override
        {
            ++paints;
            Label::paintEvent(event);
        }
    };
    Counting label(nullptr, u"lblStatus"_q, u"0"_q);
    label.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&label));
    const int before = label.paints;
    label.SetCaption(u"1"_q);
    label.Refresh();
    EXPECT_GT(label.paints, before);
}

TEST(Panel, IsClickedOnlyWithAListener)
{
    QWidget window;
    Panel panel(&window, u"PicTmpContent(0)"_q);
    panel.resize(50, 50);
    QTest::mouseClick(&panel, Qt::LeftButton); // nobody listens: nothing happens
    int clicks = 0;
    panel.OnClick = [&] { ++clicks; };
    QTest::mouseClick(&panel, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST(PopupPanel, OpensBeforeAllElseAtItsPlace)
{
    QWidget window;
    window.resize(300, 200);
    PopupPanel popup(&window, u"PlDocEdit(0)"_q);
    popup.setMinimumSize(50, 40);
    QWidget later(&window);
    window.show();
    EXPECT_FALSE(popup.isVisible());
    popup.Open(QPoint(20, 30));
    EXPECT_TRUE(popup.isVisible());
    EXPECT_EQ(popup.pos(), QPoint(20, 30));
    EXPECT_EQ(window.children().last(), &popup);
    popup.Open(QPoint(290, 190));
    EXPECT_TRUE(window.rect().contains(popup.geometry()));
}

TEST(PopupPanel, TheTabKeyStaysInIt)
{
    QWidget window;
    PushButton before(&window, u"BtnFuncDoc(0)"_q, u"신규"_q);
    PopupPanel popup(&window, u"PlDocEdit(1)"_q);
    PushButton first(&popup, u"BtnAutoChangeChr(0)"_q, u"[받는사람]"_q);
    PushButton dead(&popup, u"BtnAutoChangeChr(1)"_q, u"[보내는사람]"_q);
    dead.setEnabled(false);
    PushButton last(&popup, u"BtnDocEdit(1)"_q, u"닫기"_q);
    PushButton behind(&window, u"BtnFuncDoc(1)"_q, u"저장"_q);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    popup.Open(QPoint(0, 0));
    last.setFocus();
    QTest::keyClick(&last, Qt::Key_Tab);
    EXPECT_TRUE(first.hasFocus());
    QTest::keyClick(&first, Qt::Key_Backtab);
    EXPECT_TRUE(last.hasFocus());
    QTest::keyClick(&last, Qt::Key_Backtab);
    EXPECT_TRUE(first.hasFocus());
}

struct ProgressRow
{
    int max;
    int value;
    double share;
};

class ProgressTable : public testing::TestWithParam<ProgressRow>
{
};

TEST_P(ProgressTable, TheBarIsFilledByItsShare)
{
    ProgressBar bar(nullptr, u"PB"_q);
    bar.SetMax(GetParam().max);
    bar.SetValue(GetParam().value);
    EXPECT_EQ(bar.Max(), GetParam().max);
    EXPECT_EQ(bar.Value(), GetParam().value);
    bar.resize(200, 14);
    const QImage image = bar.grab().toImage();
    int filled = 0;
    for (int x = 0; x < 200; ++x)
        if (image.pixelColor(QPoint(x, 7) * bar.devicePixelRatio()) == theme::Accent)
            ++filled;
    EXPECT_NEAR(filled, GetParam().share * 196, 4);
}

INSTANTIATE_TEST_SUITE_P(Rows, ProgressTable,
                         testing::Values(ProgressRow{100, 0, 0}, ProgressRow{100, 50, 0.5},
                                         ProgressRow{4, 4, 1}, ProgressRow{4, 20, 1}, // past its maximum
                                         ProgressRow{0, 0, 0}, ProgressRow{0, 3, 1},  // nothing to do at all
                                         ProgressRow{10, -1, 0}));

TEST(ProgressBar, PassesOnTheStepsThatFillAnotherPixel)
{
    ProgressBar bar(nullptr, u"PB"_q);
    bar.resize(200, 14);
    bar.SetMax(32'000);
    bar.SetValue(0);
    int heard = 0;
    QObject::connect(&bar, &QProgressBar::valueChanged, [&] { ++heard; });
    for (int value = 1; value <= 32'000; ++value)
        bar.SetValue(value);
    EXPECT_EQ(heard, 200 * bar.devicePixelRatioF());
    EXPECT_EQ(bar.value(), 32'000);
}

/// What of a widget was drawn since it was last asked.
class DrawnRegion : public QObject
{
public:
    explicit DrawnRegion(QWidget& widget) { widget.installEventFilter(this); }
    QRegion Take() { return std::exchange(drawn_, {}); }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            drawn_ += static_cast<QPaintEvent*>(event)->region();
        return false;
    }

private:
    QRegion drawn_;
};

TEST(ProgressBar, AStepDrawsAllThatItChangesAndNotTheWholeBar)
{
    ProgressBar bar(nullptr, u"PB"_q);
    bar.resize(200, 14);
    bar.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&bar));
    const auto whole = [&bar] {
        QImage image(bar.size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        bar.render(&image);
        return image;
    };
    QImage screen = whole();
    DrawnRegion region(bar);
    for (const int value : {1, 2, 3, 10, 11, 13, 50, 51, 90, 99, 100, 97, 60, 5, 1, 0}) {
        bar.SetValue(value);
        QApplication::processEvents();
        const QRegion drawn = region.Take();
        ASSERT_FALSE(drawn.isEmpty()) << value;
        bar.render(&screen, drawn.boundingRect().topLeft(), drawn);
        EXPECT_EQ(screen, whole()) << value;
        region.Take();
        if (value == 51) {
            EXPECT_LT(drawn.boundingRect().width(), 40);
        }
    }
}

TEST(CheckBox, TellsEachChangeAlsoOneByTheProgram)
{
    CheckBox box(nullptr, u"ChkTime"_q, u"예약발송"_q);
    int clicks = 0;
    box.OnClick = [&] { ++clicks; };
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_TRUE(box.Value());
    box.SetValue(false);
    box.SetValue(false);
    EXPECT_EQ(clicks, 2);
}

TEST(RadioButton, TellsWhenItIsChosen)
{
    QWidget window;
    RadioButton first(&window, u"OptSendStatus(0)"_q, u"전체"_q);
    RadioButton second(&window, u"OptSendStatus(1)"_q, u"성공"_q);
    QStringList told;
    first.OnClick = [&] { told += first.objectName(); };
    second.OnClick = [&] { told += second.objectName(); };
    first.SetValue(true);
    second.click();
    EXPECT_EQ(told, (QStringList{u"OptSendStatus(0)"_q, u"OptSendStatus(1)"_q}));
    EXPECT_FALSE(first.Value());
}

template <class Control> void ExpectVisibleFocus(Control& control)
{
    ApplyOurTheme();
    QWidget window;
    QPushButton other(&window);
    control.setParent(&window);
    control.move(0, 40);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    other.setFocus();
    const QImage rest = control.grab().toImage();
    control.setFocus(Qt::TabFocusReason);
    EXPECT_NE(control.grab().toImage(), rest);
    control.setFocus(Qt::MouseFocusReason);
    control.setParent(nullptr);
}

TEST(KeyboardFocus, IsSeenOnEveryControl)
{
    PushButton button(nullptr, u"a"_q, u"a"_q);
    ExpectVisibleFocus(button);
    for (const auto look : {PictureButton::Look::Idle, PictureButton::Look::Framed}) {
        PictureButton picture(nullptr, u"a"_q, u"toolbar-compose"_q, u"a"_q, look);
        ExpectVisibleFocus(picture);
    }
    CheckBox check(nullptr, u"a"_q, u"a"_q);
    ExpectVisibleFocus(check);
    RadioButton radio(nullptr, u"a"_q, u"a"_q);
    ExpectVisibleFocus(radio);
    ComboBox combo(nullptr, u"a"_q);
    ExpectVisibleFocus(combo);
    DatePicker picker(nullptr, u"a"_q);
    ExpectVisibleFocus(picker);
}

/// A panel that counts how often its border is painted.
class BorderCounter : public FieldPanel
{
public:
    using FieldPanel::FieldPanel;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        paints += event->region().contains(QPoint(0, height() / 2));
        FieldPanel::paintEvent(event);
    }
};

TEST(FieldPanel, DrawsItsBorderAnewWhenTheWindowLeavesAndReturns)
{
    QPalette oneLook; // so that nothing else draws it anew
    for (int role = 0; role < QPalette::NColorRoles; ++role)
        oneLook.setColor(QPalette::All, QPalette::ColorRole(role), Qt::gray);
    QWidget window;
    QWidget other;
    window.setPalette(oneLook);
    BorderCounter panel(&window, u"PLtxtBack(0)"_q);
    const auto paintsOnActivating = [&](QWidget& one) {
        panel.paints = 0;
        one.show();
        one.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&one));
        QCoreApplication::processEvents();
        return panel.paints;
    };
    paintsOnActivating(window);
    EXPECT_GT(paintsOnActivating(other), 0);
    EXPECT_GT(paintsOnActivating(window), 0);
}

class ComboBoxTest : public testing::Test
{
protected:
    void Fill()
    {
        combo.AddItem(u"a"_q, 10);
        combo.AddItem(u"b"_q, 20);
        combo.AddItem(u"c"_q, 30);
    }

    ComboBox combo{nullptr, u"CbGroup"_q};
};

TEST_F(ComboBoxTest, ANewListHasNothingSelected)
{
    Fill();
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), QString());
    EXPECT_EQ(combo.ListCount(), 3);
}

TEST_F(ComboBoxTest, OneOfAGivenWidthKeepsItWhateverItsEntries)
{
    ComboBox list(nullptr, u"CbGroup"_q, 120);
    list.AddItem(QString(200, u'가'));
    EXPECT_EQ(list.minimumWidth(), 120);
    EXPECT_EQ(list.maximumWidth(), 120);
}

TEST_F(ComboBoxTest, OneOfAGivenWidthHasNoViewOfItsEntriesBeforeItOpens)
{
    ComboBox list(nullptr, u"CbGroup"_q, 120);
    EXPECT_FALSE(list.findChild<QAbstractItemView*>()); // a newer toolkit makes one when an entry is chosen
    list.AddItem(u"가"_q);
    list.show();
    list.showPopup();
    EXPECT_TRUE(list.findChild<QAbstractItemView*>());
}

TEST_F(ComboBoxTest, TellsThatItOpens)
{
    int opened = 0;
    combo.OnDropDown = [&] { ++opened; };
    combo.AddItem(u"가"_q);
    combo.show();
    EXPECT_EQ(opened, 0);
    QTest::mouseClick(&combo, Qt::LeftButton);
    EXPECT_EQ(opened, 1);
}

TEST_F(ComboBoxTest, ATextLongerThanItsListEndsInASign)
{
    combo.resize(90, 24);
    combo.AddItem(QString(100, u'가'));
    combo.SetListIndex(0);
    const QImage cut = combo.grab().toImage();
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    const int room = combo.style()
                         ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo)
                         .width();
    QString whole = u"…"_q; // the longest such text that is shown whole
    while (combo.fontMetrics().horizontalAdvance(u"가"_q + whole) <= room - 2)
        whole.prepend(u'가');
    combo.setItemText(0, whole);
    EXPECT_EQ(combo.grab().toImage(), cut);
}

TEST_F(ComboBoxTest, AnIndexPastTheEndTakesTheLastEntry)
{
    Fill();
    combo.SetListIndex(16);
    EXPECT_EQ(combo.ListIndex(), 2);
    EXPECT_EQ(combo.Text(), u"c"_q);
}

TEST_F(ComboBoxTest, MinusOneSelectsNothing)
{
    Fill();
    combo.SetListIndex(1);
    combo.SetListIndex(-1);
    EXPECT_EQ(combo.ListIndex(), -1);
}

TEST_F(ComboBoxTest, OnAnEmptyListNothingIsSelected)
{
    combo.SetListIndex(0);
    EXPECT_EQ(combo.ListIndex(), -1);
}

TEST_F(ComboBoxTest, ReadingTheDataOfNoEntryRaises381)
{
    EXPECT_EQ(NumberRaisedBy([&] { combo.SelectedData(); }), 381);
    Fill();
    EXPECT_EQ(NumberRaisedBy([&] { combo.ItemData(-1); }), 381);
    EXPECT_EQ(NumberRaisedBy([&] { combo.ItemData(3); }), 381);
    EXPECT_EQ(combo.ItemData(2), 30);
    combo.SetListIndex(1);
    EXPECT_EQ(combo.SelectedData(), 20);
}

TEST_F(ComboBoxTest, AnEntryCanStandBeforeTheOthers)
{
    Fill();
    combo.SetListIndex(1);
    combo.InsertItem(0, u"first"_q, 1);
    EXPECT_EQ(combo.List(0), u"first"_q);
    EXPECT_EQ(combo.Text(), u"b"_q);
    EXPECT_EQ(NumberRaisedBy([&] { combo.InsertItem(9, u"x"_q); }), 5);
}

/// The rows of a query of numbers and texts.
class NumberedTexts final : public CellSource
{
public:
    int Rows() const override { return 3; }
    int Cols() const override { return 2; }
    QString Text(int col, int row) const override
    {
        const QStringList numbers{u"7"_q, u" 2 "_q, u"5"_q};
        return col == 1 ? numbers[row - 1] : u"text %1"_q.arg(row);
    }
};

TEST_F(ComboBoxTest, RowsAreAddedInTheirOrderWithTheAskedOneBeforeTheOthers)
{
    combo.AddItem(u"all"_q);
    combo.AddRows(NumberedTexts());
    EXPECT_EQ(combo.List(1), u"text 1"_q);
    EXPECT_EQ(combo.ItemData(2), 2);
    combo.Clear();
    combo.AddRows(NumberedTexts(), u"2"_q);
    EXPECT_EQ(combo.List(0), u"text 2"_q);
    EXPECT_EQ(combo.List(1), u"text 1"_q);
    EXPECT_EQ(combo.ListCount(), 3);
}

TEST_F(ComboBoxTest, ClearLeavesAnEmptyList)
{
    Fill();
    combo.SetListIndex(1);
    combo.Clear();
    EXPECT_EQ(combo.ListCount(), 0);
    EXPECT_EQ(combo.ListIndex(), -1);
}

TEST_F(ComboBoxTest, AChoiceByThePersonAndByTheProgramIsToldAsAClick)
{
    Fill();
    int clicks = 0;
    combo.OnClick = [&] { ++clicks; };
    combo.SetListIndex(0);
    EXPECT_EQ(clicks, 1);
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(combo.ListIndex(), 1);
    combo.SetListIndex(1);
    EXPECT_EQ(clicks, 2);
    combo.AddItem(u"d"_q);
    EXPECT_EQ(clicks, 2);
}

TEST_F(ComboBoxTest, AKeyIsOfferedBeforeItActsAndMayBeSwallowed)
{
    Fill();
    combo.SetListIndex(0);
    QList<int> offered;
    combo.OnKeyPress = [&](char16_t& key) {
        offered += key;
        if (key == u'b')
            key = 0;
    };
    QTest::keyClick(&combo, Qt::Key_Return);
    QTest::keyClick(&combo, Qt::Key_B);
    EXPECT_EQ(combo.ListIndex(), 0);
    QTest::keyClick(&combo, Qt::Key_C);
    EXPECT_EQ(combo.ListIndex(), 2);
    EXPECT_EQ(offered, QList<int>({'\r', 'b', 'c'}));
}

TEST(ComboBox, ATextThatDoesNotFitEndsWithASignOfIt)
{
    struct Drawn : ComboBox
    {
        using ComboBox::ComboBox;
        QString Words() const
        {
            QStyleOptionComboBox option;
            initStyleOption(&option);
            return option.currentText;
        }
    };
    Drawn combo(nullptr, u"CbGroup"_q);
    combo.AddItem(QString(u"가"_q).repeated(20));
    combo.SetListIndex(0);
    combo.resize(400, 24);
    EXPECT_EQ(combo.Words(), combo.Text());
    combo.resize(100, 24);
    EXPECT_TRUE(combo.Words().endsWith(u'…')) << combo.Words().toStdString();
    EXPECT_EQ(combo.Text().size(), 20);
}

TEST_F(ComboBoxTest, KeysWithoutACharacterAreNotOffered)
{
    Fill();
    combo.SetListIndex(0);
    combo.OnKeyPress = [](char16_t&) { FAIL(); };
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_EQ(combo.ListIndex(), 1);
}

/// As the desk sends it: through the window, to what lies under the mouse.
void TurnWheelOver(QWidget& control)
{
    const QPointF place(control.mapTo(control.window(), control.rect().center()));
    QWheelEvent wheel(place, control.window()->mapToGlobal(place), {}, QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&wheel); // else it would bring no focus in any case
    qApp->notify(control.window()->windowHandle(), &wheel);
}

class WheelTest : public testing::Test
{
protected:
    void Show(QWidget& control)
    {
        auto* other = new QLineEdit(&window);
        other->setGeometry(0, 60, 100, 20);
        control.setGeometry(0, 0, 140, 30);
        window.resize(200, 100);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        other->setFocus();
    }
    QWidget window;
};

TEST_F(WheelTest, OverAListWithoutTheFocusChangesNothingAndTakesNoFocus)
{
    ComboBox combo(&window, u"a"_q);
    for (const QString& entry : {u"a"_q, u"b"_q})
        combo.AddItem(entry);
    combo.SetListIndex(0);
    Show(combo);
    TurnWheelOver(combo);
    EXPECT_EQ(combo.ListIndex(), 0);
    EXPECT_FALSE(combo.hasFocus());
    combo.setFocus();
    TurnWheelOver(combo);
    EXPECT_EQ(combo.ListIndex(), 1);
}

TEST_F(WheelTest, OverADateWithoutTheFocusChangesNothingAndTakesNoFocus)
{
    DatePicker picker(&window, u"a"_q);
    picker.SetValue(QDate(2012, 5, 31));
    Show(picker);
    TurnWheelOver(picker);
    EXPECT_EQ(picker.Value(), u"2012-05-31"_q);
    EXPECT_FALSE(picker.hasFocus());
    picker.setFocus();
    picker.SelectPart(DatePart::Day);
    TurnWheelOver(picker);
    EXPECT_EQ(picker.Value(), u"2012-05-30"_q);
}

TEST(Pictures, AllExistAndDrawSomething)
{
    for (const char* name :
         {"program", "check-empty", "check-ticked", "check-locked", "radio-empty", "radio-chosen",
          "window-minimise", "window-maximise", "window-close", "toolbar-compose", "toolbar-history",
          "toolbar-charge", "toolbar-template", "toolbar-settings"}) {
        QImage image(24, 24, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        const QImage blank = image;
        QPainter painter(&image);
        DrawPicture(painter, QRectF(0, 0, 24, 24), QString::fromLatin1(name));
        painter.end();
        EXPECT_NE(image, blank) << name;
    }
}

TEST(Pictures, AreCrispAtTwiceTheSize)
{
    const QIcon icon = CheckPictures().at(CheckTicked);
    EXPECT_EQ(icon.pixmap(QSize(16, 16), 2.0).size(), QSize(32, 32));
}

TEST(Pictures, TheMarksAreThreeAndTwo)
{
    EXPECT_EQ(CheckPictures().size(), 3);
    EXPECT_EQ(PlainCheckPictures().size(), 2);
}

} // namespace
