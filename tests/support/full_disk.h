#pragma once

#include <sys/mount.h>
#include <sys/resource.h>

#include <QString>

#include <csignal>

namespace velmora {

/// While it lives no file of this process grows beyond so many bytes: the write that would, fails
/// in the same place as on a full disk.
class FileSizeLimit final {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit m_before{};
    void (*m_handler)(int) = nullptr;
};

/// A disk in memory of so many bytes, mounted over a folder. mounted() is false without the right.
class SmallDisk final {
public:
    SmallDisk(const QString& folder, int bytes) : m_folder(folder.toUtf8()) {
        m_mounted = mount("tmpfs", m_folder.constData(), "tmpfs", 0,
                          qPrintable(QStringLiteral("size=%1").arg(bytes))) == 0;
    }
    ~SmallDisk() {
        if (m_mounted) {
            umount2(m_folder.constData(), MNT_DETACH);
        }
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    [[nodiscard]] bool mounted() const { return m_mounted; }

private:
    QByteArray m_folder;
    bool m_mounted = false;
};

} // namespace velmora
