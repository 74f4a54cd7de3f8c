#pragma once

#include "platform/files/file_stamp.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace velmora {

struct FileDialogChoice final {
    /// Absolute.
    QString path;
    /// 1-based index of the filter that was in force at the end.
    int filterIndex = 1;
};

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
    /// For save(): the path that will really be written for a choice, where the program changes it;
    /// empty for the chosen path itself. The question whether to replace a file is about this one.
    std::function<QString(const FileDialogChoice&)> writtenPath = {};
    /// For save(): the one file that is replaced without a question; empty for none.
    QString ownFile = {};
    /// As ownFile was left; where it is not so any more, replacing it is asked too.
    FileStamp ownFileStamp = {};
};

/// The platform's file dialogs. No value means cancelled.
class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    /// Accepts only files that exist.
    virtual std::optional<FileDialogChoice> open(const FileDialogRequest& request) = 0;
    /// Asks before a file is replaced; No leads back to the dialog.
    virtual std::optional<FileDialogChoice> save(const FileDialogRequest& request) = 0;
};

} // namespace velmora
