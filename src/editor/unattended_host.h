#pragma once

#include "core/editor_host.h"

namespace velmora {

class Session;

/// The main window's stand-in where there is none: unattended runs. Its font is that of the
/// settings; notices go to stderr.
class UnattendedHost final : public EditorHost {
public:
    explicit UnattendedHost(Session& session) : m_session(session) {}

    void sendZoom() override;
    void focusEditor() override {}
    [[nodiscard]] int firstVisibleLine() const override { return m_firstLine; }
    void scrollLineToTop(int line) override { m_firstLine = line; }
    void setEditorActive(bool) override {}
    [[nodiscard]] QString comboFontName() const override;
    [[nodiscard]] double comboFontSize() const override;
    void showProgress(const QString&) override {}
    void showNotice(const QString& text) override;

private:
    Session& m_session;
    int m_firstLine = 0;
};

} // namespace velmora
