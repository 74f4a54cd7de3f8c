#pragma once

#include <QString>

namespace velmora {

enum class MessageIcon { Information, Question, Warning, Critical };
enum class MessageButtons { Ok, OkCancel, YesNo, YesNoCancel };
/// Numbered as ExitAnswer keeps it; closing a box by its frame or by Escape is Cancel (No in a
/// Yes/No box, Ok in a box with Ok alone).
enum class MessageAnswer : int { None = 0, Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// Modal message boxes.
class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    virtual MessageAnswer show(MessageIcon icon, const QString& title, const QString& text,
                               MessageButtons buttons) = 0;
};

} // namespace velmora
