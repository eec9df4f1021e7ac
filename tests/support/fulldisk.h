// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TEST_FULLDISK_H
#define NVR_TEST_FULLDISK_H

#include <csignal>

#include <sys/resource.h>

/**
 * Lets files grow to at most limit bytes while alive, like a disk that is
 * full beyond that: a write past the limit fails with EFBIG instead of the
 * process being stopped by SIGXFSZ. Tests run as root, so this works where
 * file permissions would not.
 */
class FullDisk
{
public:
    explicit FullDisk(rlim_t limit)
    {
        getrlimit(RLIMIT_FSIZE, &m_saved);
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limited = m_saved;
        limited.rlim_cur = limit;
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_saved);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit m_saved{};
    void (*m_handler)(int) = nullptr;
};

#endif
