#pragma once

#include "platform/desktop/file_dialogs.h"

#include <QFileInfo>

#include <deque>
#include <functional>
#include <vector>

namespace velmora {

/// Records every request; answers from a queue, and as a cancelled dialog when that is empty. A
/// choice is what the user ended with: a question about replacing a file has been answered Yes. The
/// choice of save() has the default ending added where it has none.
class FakeFileDialogs final : public FileDialogs {
public:
    std::optional<FileDialogChoice> open(const FileDialogRequest& request) override {
        openRequests.push_back(request);
        return answer();
    }
    std::optional<FileDialogChoice> save(const FileDialogRequest& request) override {
        saveRequests.push_back(request);
        auto choice = answer();
        if (choice && QFileInfo(choice->path).suffix().isEmpty()) {
            choice->path += request.defaultExtension;
        }
        return choice;
    }
    void choose(const QString& path, int filterIndex = 1) {
        choices.push_back(FileDialogChoice{path, filterIndex});
    }

    std::vector<FileDialogRequest> openRequests;
    std::vector<FileDialogRequest> saveRequests;
    std::deque<std::optional<FileDialogChoice>> choices;
    /// Runs while a dialog is open: what the rest of the program does meanwhile.
    std::function<void()> whileOpen;

private:
    std::optional<FileDialogChoice> answer() {
        if (whileOpen) {
            whileOpen();
        }
        if (choices.empty()) {
            return std::nullopt;
        }
        const auto choice = choices.front();
        choices.pop_front();
        return choice;
    }
};

} // namespace velmora
