#pragma once

#include "core/editor_host.h"

#include <QStringList>

#include <functional>
#include <vector>

namespace velmora {

/// Records what the show, the load and the save ask of the main window.
class FakeEditorHost final : public EditorHost {
public:
    void sendZoom() override { ++zoomsSent; }
    void focusEditor() override { ++focusGiven; }
    [[nodiscard]] int firstVisibleLine() const override { return firstLine; }
    void scrollLineToTop(int line) override { linesToTop.push_back(line); }
    void setEditorActive(bool active) override { activity.push_back(active); }
    [[nodiscard]] QString comboFontName() const override { return fontName; }
    [[nodiscard]] double comboFontSize() const override { return fontSize; }
    void showProgress(const QString& text) override {
        progress.push_back(text);
        if (onProgress) {
            onProgress(text);
        }
    }
    [[nodiscard]] bool showProgressShare(double share) override {
        shares.push_back(share);
        return share < cancelAt;
    }
    void showNotice(const QString& text) override { notices.push_back(text); }

    [[nodiscard]] bool progressIsUp() const {
        return !progress.isEmpty() && !progress.last().isEmpty();
    }

    int zoomsSent = 0;
    int focusGiven = 0;
    int firstLine = 0;
    std::vector<int> linesToTop;
    std::vector<bool> activity;
    QString fontName = u"Liberation Sans"_qs;
    double fontSize = 26;
    QStringList progress;
    /// What a long load showed of its progress, and where it is cancelled.
    std::vector<double> shares;
    double cancelAt = 2;
    QStringList notices;
    /// Runs inside showProgress, with its text.
    std::function<void(const QString&)> onProgress;
};

} // namespace velmora
