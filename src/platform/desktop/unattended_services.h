#pragma once

#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/message_boxes.h"
#include "platform/desktop/sleep_inhibitor.h"

namespace velmora {

/// Message boxes of a run that nobody watches: the text goes to stderr, and the work goes on. OK
/// where it is offered; else what closing the box answers, which never changes or replaces
/// anything.
class TerminalMessageBoxes final : public MessageBoxes {
public:
    MessageAnswer show(MessageIcon icon, const QString& title, const QString& text,
                       MessageButtons buttons) override;
};

/// File dialogs of such a run: always cancelled.
class NoFileDialogs final : public FileDialogs {
public:
    std::optional<FileDialogChoice> open(const FileDialogRequest&) override { return std::nullopt; }
    std::optional<FileDialogChoice> save(const FileDialogRequest&) override { return std::nullopt; }
};

/// A machine that may fall asleep: nobody watches.
class NoSleepInhibitor final : public SleepInhibitor {
public:
    void inhibit(const QString&) override {}
    void release() override {}
};

} // namespace velmora
