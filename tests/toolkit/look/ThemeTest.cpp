#include "toolkit/look/Theme.h"
#include "toolkit/look/Fonts.h"

#include "support/Words.h"
#include "toolkit/look/Pictures.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QFileDialog>
#include <QFontDatabase>
#include <QLineEdit>
#include <QProxyStyle>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOption>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace tsms;
using namespace tsms::test;

namespace {

double Luminance(const QColor& color)
{
    const auto linear = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double Contrast(const QColor& a, const QColor& b)
{
    const double light = std::max(Luminance(a), Luminance(b));
    const double dark = std::min(Luminance(a), Luminance(b));
    return (light + 0.05) / (dark + 0.05);
}

TEST(Theme, WordsStandOutFromWhatTheyStandOn)
{
    using namespace theme;
    const std::pair<QColor, QColor> pairs[] = {{Text, Page},  {Text, Ground},     {Text, Phone},
                                               {Text, Focus}, {StripText, Strip}, {White, Accent},
                                               {Text, Strip}, {Accent, Page},     {Accent, ButtonFace},
                                               {Faint, Page}, {Text, ButtonFace}, {White, Warning}};
    for (const auto& [words, ground] : pairs)
        EXPECT_GE(Contrast(words, ground), 4.5) << words.name().toStdString() << ground.name().toStdString();
}

TEST(Theme, BordersAndMarksStandOutFromWhatTheyStandOn)
{
    using namespace theme;
    for (const QColor& line : {Frame, Accent})
        for (const QColor& ground : {Page, Ground, ButtonFace, Strip, Focus})
            EXPECT_GE(Contrast(line, ground), 3) << line.name().toStdString() << ground.name().toStdString();
    EXPECT_GE(Contrast(Handle, White), 3); // the arrow of a list
}

TEST(Theme, AFaceUnderTheMouseAndPressedLooksDifferent)
{
    for (const QColor& face : {theme::ButtonFace, theme::Accent, theme::Strip}) {
        EXPECT_NE(theme::Hovered(face), face);
        EXPECT_NE(theme::Pressed(face), face);
        EXPECT_NE(theme::Pressed(face), theme::Hovered(face));
    }
}

TEST(Theme, TheFontsAreTriedInOrder)
{
    const QStringList inOrder{u"굴림"_q,          u"Gulim"_q,       u"맑은 고딕"_q,
                              u"Malgun Gothic"_q, u"NanumGothic"_q, u"Noto Sans CJK KR"_q};
    const QStringList sorted{u"Dejavu Sans"_q,      u"Gulim"_q, u"Malgun Gothic"_q, u"NanumGothic"_q,
                             u"Noto Sans CJK KR"_q, u"굴림"_q,  u"맑은 고딕"_q};
    EXPECT_EQ(theme::FontFamilies(sorted), inOrder);
    EXPECT_EQ(theme::FontFamilies({u"Dejavu Sans"_q}), inOrder);
    EXPECT_EQ(theme::Font().pointSize(), 9);
}

TEST(Theme, AFontThatIsNotInstalledIsNotTried)
{
    EXPECT_EQ(theme::FontFamilies({u"NanumGothic"_q, u"Dejavu Sans"_q, u"gulim"_q}),
              (QStringList{u"Gulim"_q, u"NanumGothic"_q}));
    EXPECT_EQ(theme::Font().families(), theme::FontFamilies(QFontDatabase::families()));
}

TEST(Theme, ItIsAppliedWithoutAStyleSheet)
{
    auto& application = *static_cast<QApplication*>(QCoreApplication::instance());
    theme::ApplyTheme(application);
    EXPECT_EQ(application.styleSheet(), QString());
    EXPECT_EQ(QApplication::palette().color(QPalette::Base), theme::White);
    const auto* style = qobject_cast<QProxyStyle*>(QApplication::style());
    ASSERT_NE(style, nullptr);
    EXPECT_EQ(style->baseStyle()->name(), u"fusion"_q);
}

/// As near as the edge of a circle comes to its colour.
bool IsNear(const QColor& a, const QColor& b)
{
    return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue()) < 50;
}

class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget& control) { control.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }

    int paints = 0;
};

class StyledControls : public ::testing::Test
{
protected:
    StyledControls() { theme::ApplyTheme(*static_cast<QApplication*>(QCoreApplication::instance())); }

    static QColor ColorAt(QWidget& widget, QPoint place) { return widget.grab().toImage().pixelColor(place); }
};

TEST_F(StyledControls, APasswordIsShownAsStars)
{
    QLineEdit line;
    line.setEchoMode(QLineEdit::Password);
    line.setText(u"secret"_q);
    EXPECT_EQ(line.displayText(), u"******"_q);
}

TEST_F(StyledControls, TheSignsOfBoxesAreOurOwnAndCrispAtTwiceTheSize)
{
    const QStyle& style = *QApplication::style();
    for (const auto sign : {QStyle::SP_MessageBoxCritical, QStyle::SP_MessageBoxQuestion,
                            QStyle::SP_MessageBoxWarning, QStyle::SP_MessageBoxInformation}) {
        const QPixmap picture = style.standardIcon(sign).pixmap(QSize(36, 36), 2.0);
        EXPECT_EQ(picture.size(), QSize(72, 72));
        EXPECT_EQ(picture.toImage().pixelColor(36, 14).alpha(), 255);
        EXPECT_EQ(picture.toImage().pixelColor(0, 0).alpha(), 0);
    }
}

TEST_F(StyledControls, TheDefaultButtonOfABoxHasTheAccentAndTheOthersThePlainFace)
{
    QDialog dialog;
    QPushButton yes(u"예"_q, &dialog);
    QPushButton no(u"아니요"_q, &dialog);
    yes.setDefault(true);
    no.setAutoDefault(false);
    yes.resize(80, 28);
    no.resize(80, 28);
    EXPECT_EQ(ColorAt(yes, {10, 14}), theme::Accent);
    EXPECT_EQ(ColorAt(no, {10, 14}), theme::ButtonFace);
    no.setDown(true);
    EXPECT_EQ(ColorAt(no, {10, 14}).rgb(), theme::Pressed(theme::ButtonFace).rgb());
    yes.setEnabled(false);
    EXPECT_EQ(ColorAt(yes, {10, 14}), theme::Ground);
}

/// What stands in one row, in a window whose other control has the focus at first.
class Family : public StyledControls
{
protected:
    Family()
    {
        for (int entry : {1, 2})
            list.addItem(QString::number(entry));
        int y = 10;
        for (QWidget* control : All()) {
            control->setGeometry(10, y, 120, control->sizeHint().height());
            y += 40;
        }
        window.resize(200, 400);
        window.show();
        window.activateWindow();
    }
    void SetUp() override { ASSERT_TRUE(QTest::qWaitForWindowActive(&window)); }

    QList<QWidget*> All() { return {&other, &button, &line, &list, &date, &check, &radio}; }
    QList<QWidget*> Boxes() { return {&button, &line, &list, &date}; }
    QList<QWidget*> WithRing() { return {&button, &list, &check, &radio}; }

    QImage PictureWithFocus(QWidget& control, Qt::FocusReason reason)
    {
        other.setFocus(reason);
        control.setFocus(reason);
        QCoreApplication::processEvents();
        return control.grab().toImage();
    }
    QImage PictureWithout(QWidget& control)
    {
        other.setFocus();
        QCoreApplication::processEvents();
        return control.grab().toImage();
    }

    QWidget window;
    QPushButton other{&window};
    QPushButton button{u"발송"_q, &window};
    QLineEdit line{&window};
    QComboBox list{&window};
    QDateEdit date{&window};
    QCheckBox check{u"예약발송"_q, &window};
    QRadioButton radio{u"전체"_q, &window};
};

TEST_F(Family, HasOneHeight)
{
    date.setCalendarPopup(true);
    for (QWidget* control : Boxes())
        EXPECT_EQ(control->sizeHint().height(), theme::ControlHeight(control->fontMetrics()))
            << control->metaObject()->className();
}

TEST_F(Family, HasOneBorderWithRoundCorners)
{
    date.setCalendarPopup(true);
    for (QWidget* control : Boxes()) {
        const QImage picture = PictureWithout(*control);
        const QPoint low(picture.width() - 1, picture.height() - 1);
        for (const QPoint& edge : {QPoint(0, low.y() / 2), QPoint(low.x(), low.y() / 2),
                                   QPoint(low.x() / 2, 0), QPoint(low.x() / 2, low.y())})
            EXPECT_EQ(picture.pixelColor(edge), theme::Frame) << control->metaObject()->className();
        for (const QPoint& corner : {QPoint(0, 0), low})
            EXPECT_GT(picture.pixelColor(corner).lightness(), theme::Line.lightness())
                << control->metaObject()->className();
    }
}

TEST_F(Family, AFrameIsClosedOnAllSidesAtAnyScaling)
{
    QScrollArea area;
    area.setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    for (const double scale : {1.0, 1.25, 1.5, 2.0})
        for (int side = 100; side < 104; ++side) {
            const int last = qRound(side * scale) - 1;
            QImage picture(last + 1, last + 1, QImage::Format_RGB32);
            picture.setDevicePixelRatio(scale);
            picture.fill(Qt::white);
            area.resize(side, side);
            area.render(&picture);
            const QColor frame = area.palette().color(QPalette::WindowText);
            for (const QPoint edge :
                 {QPoint(0, last / 2), QPoint(last, last / 2), QPoint(last / 2, 0), QPoint(last / 2, last)})
                EXPECT_EQ(picture.pixelColor(edge), frame)
                    << side << " at " << scale << ": " << edge.x() << ' ' << edge.y();
        }
}

TEST_F(Family, ADateThatIsWrittenLeavesTheBorderFree)
{
    date.setCalendarPopup(true);
    const QImage focused = PictureWithFocus(date, Qt::TabFocusReason);
    for (int x = 10; x < date.width() - 10; ++x)
        for (int y : {0, 1, date.height() - 2, date.height() - 1})
            ASSERT_EQ(focused.pixelColor(x, y), theme::Accent) << x << ' ' << y;
}

TEST_F(Family, APickerIsOfIt)
{
    QFileDialog picker;
    picker.setOption(QFileDialog::DontUseNativeDialog);
    picker.show();
    const auto fields = picker.findChildren<QWidget*>();
    int met = 0;
    for (QWidget* field : fields) {
        const bool framed = qobject_cast<QLineEdit*>(field) && static_cast<QLineEdit*>(field)->hasFrame();
        if (!framed && !qobject_cast<QComboBox*>(field) && !qobject_cast<QPushButton*>(field))
            continue;
        ++met;
        EXPECT_EQ(field->sizeHint().height(), theme::ControlHeight(field->fontMetrics()))
            << field->objectName().toStdString();
        if (const auto* command = qobject_cast<QPushButton*>(field)) {
            EXPECT_TRUE(command->icon().isNull()) << command->text().toStdString();
        }
    }
    EXPECT_GE(met, 5); // the folder, the name, the kind and two buttons
}

TEST_F(Family, TheSignOfAMarkStandsOutAndIsTheOneOfTheGrids)
{
    for (QAbstractButton* mark :
         {static_cast<QAbstractButton*>(&check), static_cast<QAbstractButton*>(&radio)}) {
        const auto hasColor = [&](const QColor& color) {
            const QImage picture = PictureWithout(*mark);
            for (int y = 0; y < picture.height(); ++y)
                for (int x = 0; x < 24; ++x)
                    if (IsNear(picture.pixelColor(x, y), color))
                        return true;
            return false;
        };
        EXPECT_TRUE(hasColor(theme::Frame)) << mark->text().toStdString();
        EXPECT_FALSE(hasColor(theme::Accent)) << mark->text().toStdString();
        mark->setChecked(true);
        EXPECT_TRUE(hasColor(theme::Accent));
        mark->setEnabled(false);
        EXPECT_FALSE(hasColor(theme::Accent));
    }
    const QImage cell = CheckPictures().at(CheckEmpty).pixmap(16, 16).toImage();
    EXPECT_EQ(cell.pixelColor(1, 8), theme::Frame);
}

TEST_F(Family, ShowsARingBehindAKeyAndNoneBehindTheMouse)
{
    for (QWidget* control : WithRing()) {
        const QImage rest = PictureWithout(*control);
        for (const auto reason : {Qt::TabFocusReason, Qt::BacktabFocusReason, Qt::ShortcutFocusReason})
            EXPECT_NE(PictureWithFocus(*control, reason), rest) << control->metaObject()->className();
        EXPECT_EQ(PictureWithFocus(*control, Qt::MouseFocusReason), rest)
            << control->metaObject()->className();
    }
}

TEST_F(Family, AFieldShowsItsFocusBehindTheMouseToo)
{
    EXPECT_NE(PictureWithFocus(line, Qt::MouseFocusReason), PictureWithout(line));
    EXPECT_EQ(PictureWithFocus(line, Qt::MouseFocusReason).pixelColor(0, line.height() / 2), theme::Accent);
}

TEST_F(Family, APressOfTheMouseTakesTheRingAndAKeyBringsIt)
{
    const QImage ringed = PictureWithFocus(button, Qt::TabFocusReason);
    QTest::mouseClick(&window, Qt::LeftButton, {}, {190, 390});
    EXPECT_NE(button.grab().toImage(), ringed);
    QTest::keyPress(&button, Qt::Key_Shift);
    EXPECT_NE(button.grab().toImage(), ringed);
    QTest::keyPress(&button, Qt::Key_F1);
    EXPECT_EQ(button.grab().toImage(), ringed);
}

TEST_F(Family, AFocusThatTheProgramMovesShowsAsTheLastOneDid)
{
    const QImage rest = PictureWithout(button);
    QTest::keyPress(&other, Qt::Key_F1);
    EXPECT_NE(PictureWithFocus(button, Qt::OtherFocusReason), rest);
    QTest::mouseClick(&window, Qt::LeftButton, {}, {190, 390});
    EXPECT_EQ(PictureWithFocus(button, Qt::OtherFocusReason), rest);
}

TEST_F(Family, TheRingComesAndGoesWithoutFurtherDoing)
{
    button.setFocus(Qt::TabFocusReason);
    QCoreApplication::processEvents();
    PaintCounter counter(button);
    QTest::mouseClick(&window, Qt::LeftButton, {}, {190, 390});
    QCoreApplication::processEvents();
    EXPECT_EQ(counter.paints, 1);
    QTest::keyPress(&button, Qt::Key_F1);
    QTest::keyPress(&button, Qt::Key_F1);
    QCoreApplication::processEvents();
    EXPECT_EQ(counter.paints, 2);
}

TEST_F(StyledControls, TheHandleOfAScrollBarIsDarkerThanItsTrough)
{
    for (const Qt::Orientation orientation : {Qt::Vertical, Qt::Horizontal}) {
        QScrollBar bar(orientation);
        bar.setRange(0, 100);
        bar.setPageStep(100);
        const bool upright = orientation == Qt::Vertical;
        const int across = bar.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
        bar.resize(upright ? QSize(across, 200) : QSize(200, across));
        const auto at = [&](int along) {
            return ColorAt(bar, upright ? QPoint(across / 2, along) : QPoint(along, across / 2));
        };
        EXPECT_EQ(at(50), theme::Handle);
        EXPECT_EQ(at(150), theme::Ground);
        bar.setValue(100);
        EXPECT_EQ(at(50), theme::Ground);
        EXPECT_EQ(at(150), theme::Handle);
    }
    EXPECT_GE(Contrast(theme::Handle, theme::Ground), 3);
}

TEST_F(StyledControls, AScrollBarWithNothingToScrollHasNoHandle)
{
    QScrollBar bar(Qt::Vertical);
    bar.setRange(0, 0);
    bar.resize(14, 200);
    EXPECT_EQ(ColorAt(bar, {7, 100}), theme::Ground);
}

} // namespace
