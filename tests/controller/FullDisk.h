#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

/// While it lives no file of the process grows beyond the size; a full disk from SQLite's view.
class FullDisk
{
public:
    explicit FullDisk(rlim_t size)
    {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{size, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    Q_DISABLE_COPY(FullDisk)

private:
    rlimit m_before{};
    void (*m_handler)(int) = nullptr;
};
