#include "gateway/CurlLibrary.h"

#include "gateway/SoapFault.h"
#include "runtime/LibraryRoutine.h"

namespace tsms {

namespace {

bool ResolveAll(QLibrary& library, CurlLibrary& into)
{
    return Resolve(library, "curl_global_init", into.GlobalInit) &&
           Resolve(library, "curl_easy_init", into.Init) &&
           Resolve(library, "curl_easy_cleanup", into.Cleanup) &&
           Resolve(library, "curl_easy_setopt", into.SetOption) &&
           Resolve(library, "curl_easy_getinfo", into.GetInfo) &&
           Resolve(library, "curl_easy_perform", into.Perform) &&
           Resolve(library, "curl_easy_strerror", into.Words) &&
           Resolve(library, "curl_slist_append", into.Append) &&
           Resolve(library, "curl_slist_free_all", into.FreeAll);
}

CurlLibrary Load()
{
    CurlLibrary loaded;
#ifdef Q_OS_WIN
    QLibrary library(QStringLiteral("libcurl"));
#else
    QLibrary library(QStringLiteral("curl"), 4); // of its binary interface, the same since 2006
#endif
    if (!library.load() || !ResolveAll(library, loaded) || loaded.GlobalInit(CURL_GLOBAL_DEFAULT) != CURLE_OK)
        throw LocalFault(QStringLiteral("통신 기능을 시작하지 못하였습니다."), library.errorString());
    return loaded;
}

} // namespace

const CurlLibrary& CurlLibrary::Get()
{
    static const CurlLibrary loaded = Load();
    return loaded;
}

} // namespace tsms
