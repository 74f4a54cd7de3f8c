#include "platform/desktop/unattended_services.h"

#include <cstdio>

namespace velmora {

MessageAnswer TerminalMessageBoxes::show(MessageIcon, const QString& title, const QString& text,
                                         MessageButtons buttons) {
    std::fprintf(stderr, "%s: %s\n", qPrintable(title), qPrintable(text.simplified()));
    switch (buttons) {
    case MessageButtons::Ok:
    case MessageButtons::OkCancel:
        return MessageAnswer::Ok;
    case MessageButtons::YesNo:
        return MessageAnswer::No;
    case MessageButtons::YesNoCancel:
        break;
    }
    return MessageAnswer::Cancel;
}

} // namespace velmora
