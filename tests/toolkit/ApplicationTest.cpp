#include "toolkit/Application.h"

#include "runtime/RuntimeError.h"

#include "support/ScriptedDesktop.h"
#include "support/Words.h"

#include <QEvent>

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

class Thrower : public QObject
{
public:
    int received = 0;

    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        ++received;
        throw RuntimeError(91, u"없음"_q);
    }
};

Application& TheApplication()
{
    return *static_cast<Application*>(QCoreApplication::instance());
}

TEST(Application, AnErrorThatLeftAnEventHandlerShowsOneBoxAndTheProgramGoesOn)
{
    ScriptedDesktop desktop;
    TheApplication().SetDesktop(desktop);
    Thrower thrower;
    for (int i = 1; i <= 2; ++i) {
        desktop.Expect({u"프로그램 오류"_q, u"오류번호 : 91\r\n오류내용 : 없음"_q, MsgBoxCritical});
        QCoreApplication::postEvent(&thrower, new QEvent(QEvent::User));
        QCoreApplication::processEvents();
        EXPECT_EQ(thrower.received, i);
        EXPECT_EQ(desktop.boxes.size(), i);
    }
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const Application application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
