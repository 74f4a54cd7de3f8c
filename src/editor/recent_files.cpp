#include "editor/recent_files.h"

#include "platform/files/whole_file.h"
#include "platform/text_services/text_encoding.h"

#include <algorithm>
#include <utility>

namespace velmora {

namespace {

/// Far above what ten rows take; something else may bear the name.
constexpr qint64 MaxBytes = 1 << 20;

} // namespace

RecentFileTable::RecentFileTable(QString appFolder) : m_appFolder(std::move(appFolder)) {}

void RecentFileTable::read() {
    m_read = true;
    QByteArray bytes;
    if (!readWholeFile(m_appFolder + fileName(), MaxBytes, bytes)) {
        return;
    }
    QString text = decodeText(bytes);
    const QStringList lines =
        text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).split(u'\n');
    for (qsizetype i = 0; i + 1 < lines.size() && i / 2 < Rows; i += 2) {
        m_rows[static_cast<std::size_t>(i / 2)] = Row{lines[i], lines[i + 1]};
    }
}

void RecentFileTable::add(const QString& path) {
    if (!m_read) {
        read();
    }
    // A line end is legal in a path on some systems, and would shift the file's lines.
    if (path.isEmpty() || path.contains(u'\n') || path.contains(u'\r')) {
        return;
    }
    const auto filled = std::stable_partition(m_rows.begin(), m_rows.end(), [&](const Row& row) {
        return !row.path.isEmpty() && row.path != path;
    });
    std::fill(filled, m_rows.end(), Row{});
    std::rotate(m_rows.begin(), m_rows.end() - 1, m_rows.end());
    m_rows.front() = Row{path, path};
}

Outcome RecentFileTable::write(int entries) const {
    QString text;
    for (int i = 0; i < std::min(entries, Rows); ++i) {
        const Row& row = m_rows[static_cast<std::size_t>(i)];
        text += row.path + QStringLiteral("\r\n") + row.second + QStringLiteral("\r\n");
    }
    return writeWholeFile(m_appFolder + fileName(), encodeText(text));
}

QStringList RecentFileTable::paths() const {
    QStringList paths;
    for (const Row& row : m_rows) {
        if (!row.path.isEmpty()) {
            paths.append(row.path);
        }
    }
    return paths;
}

} // namespace velmora
