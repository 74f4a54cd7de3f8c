#pragma once

#include <memory>

class QMimeData;

namespace velmora {

class RichTextBox;

/// The selection as RTF and as plain text, lines ended by LF; nullptr if the selection is empty.
[[nodiscard]] std::unique_ptr<QMimeData> selectionMimeData(const RichTextBox& box);

/// Whether insertMimeData would find text. Files are no text: they are the owner's to open.
[[nodiscard]] bool hasText(const QMimeData& data);

/// Replaces the box's selection by the RTF if there is any that can be read, else by the plain
/// text. Returns whether there was anything to insert.
bool insertMimeData(RichTextBox& box, const QMimeData& data);

} // namespace velmora
