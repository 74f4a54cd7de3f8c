#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace velmora {

/// What a file dialog is opened with. Filters are "Name (*.EXT)" texts in the order of their index.
struct FileDialogRequest final {
    QString title;
    QStringList filters;
    /// 1-based.
    int filterIndex = 1;
    /// With its dot; added to a name without an extension.
    QString defaultExtension;
    QString folder;
    /// Offered name; may be a full path.
    QString fileName;
};

struct FileDialogChoice final {
    /// Absolute.
    QString path;
    /// 1-based index of the filter that was in force at the end.
    int filterIndex = 1;
};

/// The platform's file dialogs. No value means cancelled.
class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    /// Accepts only files that exist.
    virtual std::optional<FileDialogChoice> open(const FileDialogRequest& request) = 0;
    virtual std::optional<FileDialogChoice> save(const FileDialogRequest& request) = 0;
};

} // namespace velmora
