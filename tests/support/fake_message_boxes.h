#pragma once

#include "platform/desktop/message_boxes.h"

#include <deque>
#include <functional>
#include <vector>

namespace velmora {

/// Records every box; answers from a queue, and as a box closed by its frame when that is empty.
class FakeMessageBoxes final : public MessageBoxes {
public:
    struct Box final {
        MessageIcon icon = MessageIcon::Information;
        QString title;
        QString text;
        MessageButtons buttons = MessageButtons::Ok;
    };

    MessageAnswer show(MessageIcon icon, const QString& title, const QString& text,
                       MessageButtons buttons) override {
        boxes.push_back({icon, title, text, buttons});
        if (whileOpen) {
            whileOpen();
        }
        if (!answers.empty()) {
            const MessageAnswer answer = answers.front();
            answers.pop_front();
            return answer;
        }
        switch (buttons) {
        case MessageButtons::Ok:
            return MessageAnswer::Ok;
        case MessageButtons::YesNo:
            return MessageAnswer::No;
        case MessageButtons::OkCancel:
        case MessageButtons::YesNoCancel:
            break;
        }
        return MessageAnswer::Cancel;
    }

    std::vector<Box> boxes;
    std::deque<MessageAnswer> answers;
    /// Runs while a box is open: what the rest of the program does meanwhile.
    std::function<void()> whileOpen;
};

} // namespace velmora
