#pragma once

#include "platform/outcome.h"

#include <QString>
#include <QStringList>

#include <array>

namespace velmora {

/// RecentFileTable: the scripts loaded last, newest first, and the file that keeps them. Owned by
/// the main window.
class RecentFileTable final {
public:
    /// Entries written after a load, and after an append, which shortens the list on disk.
    static constexpr int EntriesAfterInsert = 10;
    static constexpr int EntriesAfterAppend = 5;

    explicit RecentFileTable(QString appFolder);

    /// Fills the table from the file. Rows that a short file does not reach stay as they are; one
    /// that is missing changes nothing.
    void read();
    /// Puts a path on top, where it stands once: paths that differ in case are two. Reads the file
    /// first if that was never done, so that the first load of a run keeps the list.
    void add(const QString& path);
    /// Replaces the file by the first rows of the table, with empty lines for empty rows.
    Outcome write(int entries) const;
    /// The paths of the filled rows.
    [[nodiscard]] QStringList paths() const;

    [[nodiscard]] static QString fileName() { return QStringLiteral("files.ini"); }

private:
    static constexpr int Rows = 10;

    struct Row final {
        QString path;
        /// The file has two lines for a row. Nothing reads the second; it is kept.
        QString second;
    };

    QString m_appFolder;
    std::array<Row, Rows> m_rows;
    bool m_read = false;
};

} // namespace velmora
