#include "toolkit/look/Fonts.h"

#include "runtime/LibraryRoutine.h"

#include <QFontDatabase>

#include <algorithm>
#include <future>
#include <iterator>

namespace tsms::theme {

namespace {

/// Nothing to wait for unless somebody reads ahead.
std::future<void>& Reading()
{
    static std::future<void> reading;
    return reading;
}

QStringList InstalledFamilies()
{
    if (Reading().valid())
        Reading().get();
    return QFontDatabase::families();
}

} // namespace

void ReadFontsAhead()
{
#ifdef Q_OS_UNIX
    QLibrary fontconfig(QStringLiteral("fontconfig"), 1);
    int (*init)() = nullptr; // of any thread since fontconfig 2.10.91; the toolkit finds it done
    if (!Resolve(fontconfig, "FcInit", init))
        return;
    // Nothing of the toolkit on that thread: the first one that uses it is the main thread to it. Deferred to
    // the wait where the system gives no further thread.
    Reading() = std::async(std::launch::async | std::launch::deferred, [init] { init(); });
#endif
}

QStringList FontFamilies(const QStringList& installed)
{
    const QStringList families{QStringLiteral("굴림"),        QStringLiteral("Gulim"),
                               QStringLiteral("맑은 고딕"),   QStringLiteral("Malgun Gothic"),
                               QStringLiteral("NanumGothic"), QStringLiteral("Noto Sans CJK KR")};
    QStringList found;
    std::copy_if(families.begin(), families.end(), std::back_inserter(found),
                 [&](const QString& family) { return installed.contains(family, Qt::CaseInsensitive); });
    return found.isEmpty() ? families : found;
}

QFont Font()
{
    static const QStringList families = FontFamilies(InstalledFamilies());
    QFont font;
    font.setFamilies(families);
    font.setPointSize(9);
    return font;
}

} // namespace tsms::theme
