#include "e2e/PictureBook.h"
#include "look/LayoutFaults.h"
#include "look/SpeechFaults.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>

using namespace tsms;
using namespace tsms::test;

namespace {

constexpr int LeastPlaces = 2; // the words and the button of the smallest box
constexpr int LeastWindows = 90;

/// Gives the keyboard back to the window behind a box that has closed, as a window manager does.
class WindowManager final : public QObject
{
public:
    WindowManager() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* box = event->type() == QEvent::Hide ? qobject_cast<QMessageBox*>(watched) : nullptr;
        if (box && box->parentWidget())
            QTimer::singleShot(0, box->parentWidget(), [behind = box->parentWidget()] {
                QWidget* next = QApplication::activeModalWidget(); // a dialog that opened meanwhile
                (next ? next : behind)->activateWindow();
            });
        return false;
    }
};

template <class Faults> void ExpectNone(const Faults& found, const QString& name, int leastLooked)
{
    EXPECT_EQ(found.faults.join(u'\n'), QString()) << name.toStdString();
    EXPECT_GE(found.looked, leastLooked) << name.toStdString(); // or the looking itself has failed
}

TEST(EveryWindowAndBox, IsWholeAndTellsAScreenReaderWhatItHolds)
{
    const WindowManager manager;
    const QTemporaryDir folder;
    int windows = 0;
    PictureBook book(
        [&windows](QWidget& window, const QString& name) {
            ++windows;
            ExpectNone(LayoutFaults(window), name, LeastPlaces);
            ExpectNone(SpeechFaults(window), name, 1);
        },
        folder.filePath(u"tsms/bin"_q));
    book.TurnAllPages();
    EXPECT_GE(windows, LeastWindows);
}

} // namespace
