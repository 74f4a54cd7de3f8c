#pragma once

#include <functional>
#include <memory>

class QMimeData;

namespace velmora {

class RichTextBox;
struct RichTextFragment;

/// Changes what other programs get of a text.
using OutgoingLook = std::function<void(RichTextFragment&)>;

/// The selection as RTF and as plain text, lines ended by LF; nullptr if the selection is empty.
/// The RTF that other programs know has the look; under a name of our own it is as it stands.
[[nodiscard]] std::unique_ptr<QMimeData> selectionMimeData(const RichTextBox& box,
                                                           const OutgoingLook& look);

/// Whether insertMimeData would find text. Files are no text: they are the owner's to open.
[[nodiscard]] bool hasText(const QMimeData& data);

/// Replaces the box's selection by the RTF if there is any that can be read, else by the plain
/// text. Returns whether there was anything to insert.
bool insertMimeData(RichTextBox& box, const QMimeData& data);

} // namespace velmora
