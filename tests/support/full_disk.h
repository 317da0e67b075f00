#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

// For as long as it stands, no file of this process grows beyond the given size:
// a write past it fails as on a full disk. It works for root too, where a folder
// made read-only still takes writes.
class cFullDisk
{
public:
    explicit cFullDisk(qint64 bytes)
    {
        getrlimit(RLIMIT_FSIZE, &before_);
        previousHandler_ = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = before_;
        limit.rlim_cur = rlim_t(bytes);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~cFullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, previousHandler_);
    }
    cFullDisk(const cFullDisk &) = delete;
    cFullDisk &operator=(const cFullDisk &) = delete;

private:
    rlimit before_{};
    void (*previousHandler_)(int) = nullptr;
};
