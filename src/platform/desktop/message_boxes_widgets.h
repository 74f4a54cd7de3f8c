#pragma once

#include "platform/desktop/message_boxes.h"

namespace velmora {

/// Message boxes of the desktop, modal over the active window. Texts are shown as they are: a path
/// that looks like markup stays a path.
class WidgetMessageBoxes final : public MessageBoxes {
public:
    MessageAnswer show(MessageIcon icon, const QString& title, const QString& text,
                       MessageButtons buttons) override;
};

} // namespace velmora
