#pragma once

#include "platform/desktop/file_dialogs.h"

namespace velmora {

class MessageBoxes;

/// File dialogs of Qt. On Linux always Qt's own, never the desktop's: these would pull a second
/// toolkit with its threads into the process that runs the show.
/// Filters match whatever the case of a file's ending. A folder that does not exist opens the
/// user's documents instead.
class WidgetFileDialogs final : public FileDialogs {
public:
    /// The boxes ask whether a file may be replaced; they must outlive this object.
    explicit WidgetFileDialogs(MessageBoxes& boxes) : m_boxes(boxes) {}

    std::optional<FileDialogChoice> open(const FileDialogRequest& request) override;
    std::optional<FileDialogChoice> save(const FileDialogRequest& request) override;

private:
    [[nodiscard]] bool mayReplace(const FileDialogRequest& request, const FileDialogChoice& choice);

    MessageBoxes& m_boxes;
};

/// "Name (*.EXT, *.EXT2)" as Qt's file dialog takes it: the same label, with patterns that match
/// the ending in any case, and "*.*" as every file.
[[nodiscard]] QString dialogFilter(const QString& filter);

} // namespace velmora
