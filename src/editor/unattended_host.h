#pragma once

#include "core/editor_host.h"

namespace velmora {

class Session;

/// The main window's stand-in where there is none: unattended runs. Its font is that of the
/// settings; notices go to stderr, or nowhere where nothing is shown that they could be about.
class UnattendedHost final : public EditorHost {
public:
    enum class Notices { ToTerminal, Nowhere };

    explicit UnattendedHost(Session& session, Notices notices = Notices::ToTerminal)
        : m_session(session), m_notices(notices) {}

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
    Notices m_notices;
    int m_firstLine = 0;
};

} // namespace velmora
