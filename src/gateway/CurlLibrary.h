#pragma once

#include <curl/curl.h>

namespace tsms {

/// libcurl, loaded when the first message is about to go out. Linked in, it would bring two dozen libraries
/// of its own into memory before the first window is painted.
struct CurlLibrary
{
    decltype(&curl_global_init) GlobalInit = nullptr;
    decltype(&curl_easy_init) Init = nullptr;
    decltype(&curl_easy_cleanup) Cleanup = nullptr;
    decltype(&curl_easy_setopt) SetOption = nullptr;
    decltype(&curl_easy_getinfo) GetInfo = nullptr;
    decltype(&curl_easy_perform) Perform = nullptr;
    decltype(&curl_easy_strerror) Words = nullptr;
    decltype(&curl_slist_append) Append = nullptr;
    decltype(&curl_slist_free_all) FreeAll = nullptr;

    /// Loaded and started once, and never let go. Raises a SoapFault when it is not there.
    static const CurlLibrary& Get();
};

} // namespace tsms
