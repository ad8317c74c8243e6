#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

namespace tsms::test {

/// Files of this process can have no more than that many bytes while this lives.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(qint64 bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit limit{static_cast<rlim_t>(bytes), former_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, signal_);
    }

private:
    rlimit former_{};
    void (*signal_)(int);
};

} // namespace tsms::test
