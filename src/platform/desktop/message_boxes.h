#pragma once

#include <QString>

namespace velmora {

enum class MessageIcon { Information, Question, Warning, Critical };
enum class MessageButtons { Ok, OkCancel, YesNo, YesNoCancel };
/// Numbered as ExitAnswer keeps it.
enum class MessageAnswer : int { None = 0, Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// Modal message boxes.
///
/// What answers a box that nobody answers is each implementation's own: where a user sees it,
/// closing it by its frame or by Escape is Cancel, No in a Yes/No box and Ok in a box with Ok
/// alone. Enter answers with the first button, but a warning that asks Yes or No with No. In a run
/// without a user an OK/Cancel box is answered Ok, so that the work goes on, and the others as if
/// they were closed.
class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    virtual MessageAnswer show(MessageIcon icon, const QString& title, const QString& text,
                               MessageButtons buttons) = 0;
};

} // namespace velmora
