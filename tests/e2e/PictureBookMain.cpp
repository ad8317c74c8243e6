// Takes a picture of every window and every message box of the program and of tsms-start, in the states that
// a person sees:
//   picture-book <folder>
// The same program gives the same pictures. Ends with 1 when something did not come up as it should.
#include "e2e/PictureBook.h"
#include "e2e/StartBook.h"
#include "toolkit/look/Theme.h"
#include "toolkit/windows/Application.h"

#include <gtest/gtest.h>

#include <QCursor>
#include <QDir>
#include <QFile>
#include <QImage>

using namespace tsms;
using namespace tsms::test;

namespace {

/// Pictures in a folder, with a page that shows them all.
class Album
{
public:
    explicit Album(const QString& folder) : folder_(folder) {}

    void Save(QWidget& window, const QString& name)
    {
        const QImage picture = window.grab().toImage().convertToFormat(QImage::Format_RGB888);
        constexpr int PackWell = 0; // the quality of a PNG is how little it is packed
        EXPECT_TRUE(picture.save(folder_.filePath(name + u".png"_q), "PNG", PackWell)) << name.toStdString();
        index_ += u"| ![%1](%1.png) | %2 | %1 |"_q.arg(name, window.windowTitle());
    }

    /// With the titles that a window manager adds.
    void SaveIndex()
    {
        QFile file(folder_.filePath(u"README.md"_q));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(
            u"# Windows and boxes\n\nMade by `scripts/pictures`, which tells how to make them at other "
            u"scalings.\n\n"
            "| Picture | Title | Name |\n|---|---|---|\n"_q.toUtf8());
        file.write(index_.join(u'\n').toUtf8() + '\n');
    }

private:
    QDir folder_;
    QStringList index_;
};

/// A typed text always shows its caret, and no control lies under the mouse.
void HoldStill()
{
    QApplication::setCursorFlashTime(0);
    QCursor::setPos(0, 0);
}

} // namespace

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    Application application(argc, argv);
    Application::setQuitOnLastWindowClosed(false);
    theme::ApplyTheme(application);
    if (argc != 2) {
        qWarning("usage: picture-book <folder>");
        return 2;
    }
    HoldStill();
    Album album(QString::fromLocal8Bit(argv[1]));
    const PictureDesk::TakePicture take = [&album](QWidget& window, const QString& name) {
        album.Save(window, name);
    };
    PictureBook book(take, QDir::temp().filePath(u"tsms/bin"_q)); // always the same, since a picture shows it
    book.TurnAllPages();
    StartBook(take).TurnAllPages();
    album.SaveIndex();
    return ::testing::UnitTest::GetInstance()->Failed() ? 1 : 0;
}
