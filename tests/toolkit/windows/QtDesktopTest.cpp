#include "toolkit/windows/QtDesktop.h"

#include "session/Session.h"
#include "toolkit/look/Fonts.h"
#include "toolkit/windows/Form.h"

#include "support/ScriptedDesktop.h"
#include "support/Words.h"
#include "toolkit/windows/UrlCatcher.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTranslator>
#include <QTreeView>
#include <QUrl>
#include <QWindow>

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

/// Runs `look` inside the loop of the dialog that is about to open.
template <class Dialog> void Meanwhile(const std::function<void(Dialog&)>& look)
{
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, look] {
        if (auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget())) {
            timer->stop(); // it would look at the next dialog, too, before it is deleted
            timer->deleteLater();
            look(*dialog);
        }
    });
    timer->start(1);
}

struct StyleRow
{
    MsgBoxStyle style;
    QMessageBox::Icon icon;
    QMessageBox::StandardButtons buttons;
};

class MessageBoxStyles : public testing::TestWithParam<StyleRow>
{
};

TEST_P(MessageBoxStyles, ShowTheirSignAndButtons)
{
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons;
    Meanwhile<QMessageBox>([&](QMessageBox& box) {
        icon = box.icon();
        buttons = box.standardButtons();
        box.reject();
    });
    QtDesktop desktop;
    desktop.MsgBox(u"text"_q, GetParam().style, u"title"_q);
    EXPECT_EQ(icon, GetParam().icon);
    EXPECT_EQ(buttons, GetParam().buttons);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, MessageBoxStyles,
    testing::Values(StyleRow{MsgBoxPlain, QMessageBox::NoIcon, QMessageBox::Ok},
                    StyleRow{MsgBoxCritical, QMessageBox::Critical, QMessageBox::Ok},
                    StyleRow{MsgBoxCriticalYesNo, QMessageBox::Critical, QMessageBox::Yes | QMessageBox::No},
                    StyleRow{MsgBoxQuestion, QMessageBox::Question, QMessageBox::Yes | QMessageBox::No},
                    StyleRow{MsgBoxExclamation, QMessageBox::Warning, QMessageBox::Ok},
                    StyleRow{MsgBoxInformation, QMessageBox::Information, QMessageBox::Ok}));

TEST(QtDesktop, AMessageBoxShowsTitleAndWordsAsPlainText)
{
    QString title;
    QString text;
    auto format = Qt::RichText;
    QString ok;
    Meanwhile<QMessageBox>([&](QMessageBox& box) {
        title = box.windowTitle();
        text = box.text();
        format = box.textFormat();
        ok = box.button(QMessageBox::Ok)->text();
        box.accept();
    });
    QtDesktop desktop;
    EXPECT_EQ(desktop.MsgBox(u"a <b>\r\n\r\nb"_q, MsgBoxInformation, u"창 최대화"_q), AnswerOK);
    EXPECT_EQ(title, u"창 최대화"_q);
    EXPECT_EQ(text, u"a <b>\n\nb"_q);
    EXPECT_EQ(format, Qt::PlainText);
    EXPECT_EQ(ok, u"확인"_q);
}

TEST(QtDesktop, AMessageBoxHasTheProgramsFontThoughNoWindowHasAskedForItYet)
{
    const QFont before = QApplication::font();
    QApplication::setFont(QFont(u"DejaVu Serif"_q, 20));
    QFont font;
    Meanwhile<QMessageBox>([&](QMessageBox& box) {
        font = box.font();
        box.accept();
    });
    QtDesktop().MsgBox(u"text"_q, MsgBoxCritical, u"title"_q);
    QApplication::setFont(before);
    EXPECT_EQ(font.families(), theme::Font().families());
    EXPECT_EQ(font.pointSize(), 9);
}

/// What a box shows of a text. Its button must be on the screen.
QString ShownOf(const QString& text)
{
    QString shown;
    Meanwhile<QMessageBox>([&](QMessageBox& box) {
        shown = box.text();
        const QAbstractButton* ok = box.button(QMessageBox::Ok);
        const QRect place(ok->mapToGlobal(QPoint()), ok->size());
        EXPECT_TRUE(box.screen()->availableGeometry().contains(place))
            << place.x() << ' ' << place.y() << " in a box of " << box.width() << " x " << box.height();
        EXPECT_LE(box.width(), box.screen()->availableGeometry().width());
        box.accept();
    });
    QtDesktop desktop;
    desktop.MsgBox(text, MsgBoxCritical, u"오류"_q);
    return shown;
}

QString Lines(int count)
{
    return QStringList(count, u"줄"_q).join(u"\r\n"_q);
}

TEST(QtDesktop, AMessageOfAThousandCharactersOrTwentyFiveLinesIsShownWhole)
{
    const QString word(1000, u'W');
    EXPECT_EQ(ShownOf(word), word);
    EXPECT_EQ(ShownOf(Lines(25)), Lines(25).remove(u'\r'));
}

TEST(QtDesktop, OfALongerMessageTheBeginningIsShown)
{
    EXPECT_EQ(ShownOf(QString(100'000, u'W')), QString(1000, u'W') + u'…');
    EXPECT_EQ(ShownOf(QString(25'000, u'가') + u" 나"_q), QString(1000, u'가') + u'…');
    EXPECT_EQ(ShownOf(Lines(2000)), Lines(25).remove(u'\r') + u'…');
    EXPECT_EQ(ShownOf(Lines(2000).remove(u'\n')), Lines(25).remove(u'\n') + u'…');
    EXPECT_EQ(ShownOf(u'a' + QString(u"😀"_q).repeated(500)), u'a' + QString(u"😀"_q).repeated(499) + u'…');
}

TEST(QtDesktop, ALongMessageOfManyLinesLeavesItsButtonOnTheScreen)
{
    const QString text = Lines(24) + u"\r\n"_q + QString(925, u'가');
    EXPECT_FALSE(ShownOf(text).isEmpty());
}

TEST(QtDesktop, AWordWiderThanTheBoxIsBroken)
{
    for (const QString& word : {QString(1000, u'W'), u"짧은 말과 "_q + QString(900, u'가')}) {
        QSize room;
        QSize needed;
        Meanwhile<QMessageBox>([&](QMessageBox& box) {
            const auto* label = box.findChild<QLabel*>(u"qt_msgbox_label"_q);
            ASSERT_NE(label, nullptr);
            room = label->size();
            needed = label->fontMetrics().size(Qt::TextSingleLine, label->text());
            box.accept();
        });
        QtDesktop desktop;
        desktop.MsgBox(word, MsgBoxPlain, u"a"_q);
        EXPECT_GE(room.width() * room.height(), needed.width() * needed.height());
    }
}

TEST(QtDesktop, AQuestionAnswersWhatWasClicked)
{
    QtDesktop desktop;
    QString yes;
    QString no;
    Meanwhile<QMessageBox>([&](QMessageBox& box) {
        yes = box.button(QMessageBox::Yes)->text();
        no = box.button(QMessageBox::No)->text();
        box.button(QMessageBox::Yes)->click();
    });
    EXPECT_EQ(desktop.MsgBox(u"?"_q, MsgBoxQuestion, u"?"_q), AnswerYes);
    EXPECT_EQ(yes, u"예"_q);
    EXPECT_EQ(no, u"아니요"_q);
    Meanwhile<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
    EXPECT_EQ(desktop.MsgBox(u"?"_q, MsgBoxQuestion, u"?"_q), AnswerNo);
    Meanwhile<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(desktop.MsgBox(u"?"_q, MsgBoxCriticalYesNo, u"?"_q), AnswerNo);
}

TEST(QtDesktop, AMessageBoxStandsBeforeTheActiveWindow)
{
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const QWidget* owner = nullptr;
    Meanwhile<QMessageBox>([&](QMessageBox& box) {
        owner = box.parentWidget();
        box.accept();
    });
    QtDesktop desktop;
    desktop.MsgBox(u"a"_q, MsgBoxPlain, u"b"_q);
    EXPECT_EQ(owner, &window);
}

TEST(QtDesktop, WithoutAnActiveWindowABoxStandsBeforeTheFormThatWasLoadedLastAndIsOnView)
{
    Session session;
    ScriptedDesktop unused;
    Form main(session, unused, u"frmMain"_q, Form::Kind::Main);
    Form onView(session, unused, u"frmOnView"_q, Form::Kind::Main);
    const Form hidden(session, unused, u"frmHidden"_q, Form::Kind::Main);
    main.setAttribute(Qt::WA_ShowWithoutActivating);
    onView.setAttribute(Qt::WA_ShowWithoutActivating);
    main.show();
    onView.show();
    QWindow another; // no window of the toolkit: while it has the keyboard, none of those is active
    another.show();
    another.requestActivate();
    QApplication::processEvents();
    ASSERT_EQ(QApplication::activeWindow(), nullptr);
    const QWidget* owner = nullptr;
    Meanwhile<QMessageBox>([&](QMessageBox& box) {
        owner = box.parentWidget();
        box.accept();
    });
    QtDesktop desktop;
    desktop.MsgBox(u"a"_q, MsgBoxPlain, u"b"_q);
    EXPECT_EQ(owner, &onView);
}

TEST(QtDesktop, ABoxOrAPickerDimsTheWindowBelowAsLongAsItIsOnView)
{
    QWidget window;
    window.resize(300, 200);
    window.show();
    const auto brightness = [&window] { return window.grab().toImage().pixelColor(150, 100).lightness(); };
    const int before = brightness();
    QtDesktop desktop;
    const std::function<void()> openings[] = {[&] { desktop.MsgBox(u"a"_q, MsgBoxPlain, u"b"_q); },
                                              [&] { desktop.PickFile(u"a"_q, u"b|*.xls"_q); },
                                              [&] { desktop.PickFolder(u"a"_q); }};
    for (const auto& open : openings) {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        int meanwhile = before;
        Meanwhile<QDialog>([&](QDialog& dialog) {
            meanwhile = brightness();
            dialog.reject();
        });
        open();
        EXPECT_LT(meanwhile, before - 20);
        EXPECT_EQ(brightness(), before);
    }
}

/// How many pixels of a box's label the text takes, and how many it has.
struct Room
{
    int labelWidth = 0;
    int lines = 0;
    int lineWidth = 0; ///< of the whole text, on one line
};

Room RoomOf(const QString& text)
{
    Room room;
    Meanwhile<QMessageBox>([&](QMessageBox& box) {
        const auto* label = box.findChild<QLabel*>(u"qt_msgbox_label"_q);
        ASSERT_NE(label, nullptr);
        room.labelWidth = label->width();
        room.lines = label->heightForWidth(label->width()) / label->fontMetrics().lineSpacing();
        room.lineWidth = label->fontMetrics().horizontalAdvance(text);
        box.accept();
    });
    QtDesktop desktop;
    desktop.MsgBox(text, MsgBoxCritical, u"a"_q);
    return room;
}

/// A text of short words, up to so many pixels wide.
QString Words(int width)
{
    const QFontMetrics metrics(QApplication::font());
    QString words = u"가나"_q;
    while (metrics.horizontalAdvance(words + u" 다라"_q) <= width)
        words += u" 다라"_q;
    return words;
}

TEST(QtDesktop, ALineOfSixHundredPixelsIsNotWrapped)
{
    const Room room = RoomOf(Words(600));
    EXPECT_EQ(room.lines, 1);
    EXPECT_GE(room.labelWidth, room.lineWidth);
}

TEST(QtDesktop, AWiderTextIsWrappedIntoLinesOfLikeLength)
{
    const Room room = RoomOf(Words(680));
    EXPECT_EQ(room.lines, 2);
    EXPECT_LE(room.labelWidth, 480);
}

TEST(QtDesktop, TheHourglassIsNeverStacked)
{
    QtDesktop desktop;
    desktop.SetMousePointer(MousePointer::Hourglass);
    desktop.SetMousePointer(MousePointer::Hourglass);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    desktop.SetMousePointer(MousePointer::Default);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    desktop.SetMousePointer(MousePointer::Default);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(QtDesktop, PagesAndDocumentsGoToTheUsersPrograms)
{
    UrlCatcher catcher;
    QDesktopServices::setUrlHandler(QStringLiteral("http"), &catcher, "Catch");
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &catcher, "Catch");
    QtDesktop desktop;
    desktop.OpenPage(QString());
    desktop.OpenPage(u"http://sms.example.kr/charge?a=1"_q);
    desktop.OpenPage(u"www.example.kr"_q);
    desktop.OpenPage(u"file:///etc/hosts"_q);
    desktop.OpenPage(u"/etc/hosts"_q);
    desktop.OpenDocument(u"/tmp/보고서.xls"_q);
    QDesktopServices::unsetUrlHandler(QStringLiteral("http"));
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    EXPECT_EQ(catcher.urls,
              (QList<QUrl>{QUrl(u"http://sms.example.kr/charge?a=1"_q), QUrl(u"http://www.example.kr"_q),
                           QUrl::fromLocalFile(u"/tmp/보고서.xls"_q)}));
}

TEST(QtDesktop, AFileIsPickedByItsFilter)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.xls"_q);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    QString title;
    QStringList filters;
    Meanwhile<QFileDialog>([&](QFileDialog& picker) {
        title = picker.windowTitle();
        filters = picker.nameFilters();
        picker.setDirectory(folder.path());
        picker.selectFile(path);
        QMetaObject::invokeMethod(&picker, "accept");
    });
    QtDesktop desktop;
    EXPECT_EQ(desktop.PickFile(u"파일 선택"_q, u"엑셀파일(*.xls)|*.xls"_q), path);
    EXPECT_EQ(title, u"파일 선택"_q);
    EXPECT_EQ(filters, QStringList{u"엑셀파일 (*.xls)"_q});
}

TEST(QtDesktop, APickerOfAFileMakesRenamesAndRemovesNothing)
{
    QtDesktop desktop;
    Meanwhile<QFileDialog>([](QFileDialog& picker) {
        EXPECT_FALSE(picker.findChild<QWidget*>(u"newFolderButton"_q)->isEnabled());
        EXPECT_FALSE(picker.findChild<QAction*>(u"qt_rename_action"_q)->isEnabled());
        EXPECT_FALSE(picker.findChild<QAction*>(u"qt_delete_action"_q)->isEnabled());
        picker.reject();
    });
    desktop.PickFile(u"a"_q, u"b|*.c"_q);
}

TEST(QtDesktop, ACancelledPickerAnswersNothing)
{
    QtDesktop desktop;
    Meanwhile<QFileDialog>([](QFileDialog& picker) { picker.reject(); });
    EXPECT_EQ(desktop.PickFile(u"a"_q, u"b|*.c"_q), QString());
    Meanwhile<QFileDialog>([](QFileDialog& picker) { picker.reject(); });
    EXPECT_EQ(desktop.PickFolder(u"a"_q), QString());
}

TEST(QtDesktop, AFolderIsPicked)
{
    const QTemporaryDir folder;
    Meanwhile<QFileDialog>([&](QFileDialog& picker) {
        picker.setDirectory(folder.path());
        picker.selectFile(folder.path());
        QMetaObject::invokeMethod(&picker, "accept");
    });
    QtDesktop desktop;
    EXPECT_EQ(desktop.PickFolder(u"폴더를 선택하십시오."_q), folder.path());
}

TEST(QtDesktop, APickerOpensWhereTheLastOneOfItsKindWasLeft)
{
    const QTemporaryDir files;
    const QTemporaryDir folders;
    const QString path = files.filePath(u"a.xls"_q);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    const auto choose = [](const QString& chosen) {
        Meanwhile<QFileDialog>([chosen](QFileDialog& picker) {
            picker.setDirectory(QFileInfo(chosen).path());
            picker.selectFile(chosen);
            QMetaObject::invokeMethod(&picker, "accept");
        });
    };
    QString begins;
    const auto look = [&begins] {
        Meanwhile<QFileDialog>([&begins](QFileDialog& picker) {
            begins = picker.directory().path();
            picker.reject();
        });
    };
    QtDesktop desktop;
    choose(path);
    desktop.PickFile(u"a"_q, u"b|*.xls"_q);
    choose(folders.path());
    desktop.PickFolder(u"a"_q);
    for (int time = 0; time < 2; ++time) { // a picker that is cancelled changes nothing
        look();
        desktop.PickFile(u"a"_q, u"b|*.xls"_q);
        EXPECT_EQ(begins, files.path());
        look();
        desktop.PickFolder(u"a"_q);
        EXPECT_EQ(begins, folders.path());
    }
}

/// What a person reads in a picker, but for names of files and folders.
QStringList WordsOf(const QFileDialog& picker)
{
    QStringList words;
    for (const QLabel* label : picker.findChildren<QLabel*>())
        words += label->text();
    for (const QAbstractButton* button : picker.findChildren<QAbstractButton*>())
        words << button->text() << button->toolTip();
    for (const QHeaderView* header : picker.findChildren<QHeaderView*>())
        for (int i = 0; i < header->count(); ++i)
            words += header->model()->headerData(i, header->orientation()).toString();
    return words;
}

TEST(QtDesktop, APickerSpeaksKoreanAndShowsWholeDates)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"a"_q));
    QStringList foreign;
    int words = 0;
    int missing = -1000;
    constexpr int DateColumn = 3;
    QTranslator translator; // as the program has it
    ASSERT_TRUE(translator.load(QLocale(QLocale::Korean, QLocale::SouthKorea), u"qtbase"_q, u"_"_q,
                                QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
    QApplication::installTranslator(&translator);
    const auto look = [&](QFileDialog& picker) {
        picker.setDirectory(folder.path());
        QTest::qWait(100);
        const QStringList shown = WordsOf(picker);
        words += static_cast<int>(shown.size());
        foreign += shown.filter(QRegularExpression(QStringLiteral("[A-Za-z]{2}")));
        auto* table = picker.findChild<QTreeView*>();
        const QString date = table->model()->index(0, DateColumn, table->rootIndex()).data().toString();
        EXPECT_TRUE(QDateTime::fromString(date, u"yyyy-MM-dd HH:mm"_q).isValid()) << date.toStdString();
        EXPECT_EQ(table->model()->index(0, DateColumn - 1, table->rootIndex()).data().toString(), u"폴더"_q);
        missing =
            std::max(missing, table->fontMetrics().horizontalAdvance(date) - table->columnWidth(DateColumn));
        EXPECT_LE(table->header()->length(), table->viewport()->width());
        picker.reject();
    };
    QtDesktop desktop;
    Meanwhile<QFileDialog>(look);
    desktop.PickFile(u"파일"_q, u"엑셀|*.xls"_q);
    Meanwhile<QFileDialog>(look);
    desktop.PickFolder(u"폴더"_q);
    EXPECT_EQ(foreign, QStringList());
    EXPECT_GE(words, 20);
    EXPECT_LE(missing, 0);
}

} // namespace
