#include "toolkit/fields/HangulMode.h"

#include <QGuiApplication>
#include <QWidget>

#ifdef Q_OS_WIN
#include <qt_windows.h>

#include <imm.h>
// Macros from 16-bit Windows, which the files behind this one would meet.
#undef far
#undef near
#endif

namespace tsms {

namespace {

constexpr quint32 Hangul = 0x01;
constexpr quint32 FullWidth = 0x08;

} // namespace

quint32 WithHangul(quint32 conversion, bool hangul)
{
    return (conversion & ~(Hangul | FullWidth)) | (hangul ? Hangul : 0);
}

#ifdef Q_OS_WIN

namespace {

static_assert(Hangul == IME_CMODE_HANGUL && FullWidth == IME_CMODE_FULLSHAPE);

void SetHangul(HWND window, bool hangul)
{
    const HIMC method = ::ImmGetContext(window);
    DWORD conversion = 0;
    DWORD sentence = 0;
    if (::ImmGetConversionStatus(method, &conversion, &sentence))
        ::ImmSetConversionStatus(method, WithHangul(conversion, hangul), sentence);
    ::ImmReleaseContext(window, method);
}

} // namespace

void AskForHangul(QWidget& control, bool hangul)
{
    const bool isKorean = PRIMARYLANGID(LOWORD(::GetKeyboardLayout(0))) == LANG_KOREAN;
    if (!isKorean || QGuiApplication::platformName() != u"windows")
        return;
    // The toolkit lets a method into the window again when the focus is all there.
    const auto set = [&control, hangul] {
        if (control.hasFocus())
            SetHangul(reinterpret_cast<HWND>(control.window()->winId()), hangul);
    };
    QMetaObject::invokeMethod(&control, set, Qt::QueuedConnection);
}

#else

void AskForHangul(QWidget&, bool) {}

#endif

} // namespace tsms
