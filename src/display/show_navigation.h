#pragma once

#include "display/frame_composer.h"

#include <cstdint>

namespace velmora {

class Session;
class Presenter;

/// Where the window stands in the script, and every change of it that is not a step.
/// The picture is a pure function of the top row, and the top row one of ScrollRow and the
/// direction.
class ShowNavigation final {
public:
    /// textRows: rows of text in the window.
    ShowNavigation(Session& session, const ShowTables& tables, FrameComposer& composer,
                   int textRows);

    /// Table row at the top of the window.
    [[nodiscard]] std::int64_t topRow() const;
    /// 1-based line at the top of the window; 0 where none is.
    [[nodiscard]] int topLine() const;
    /// ShowTopLine for the return to the editor: the line at the top, 0 where the whole script
    /// fits.
    [[nodiscard]] double returnLine() const;

    /// Redraws the window from a 0-based line on, as far up as the script's end allows.
    void reposition(int line);
    /// Counts repositions, so that a waiting loop notices one.
    [[nodiscard]] int repositions() const { return m_repositions; }

private:
    Session& m_session;
    const ShowTables& m_tables;
    FrameComposer& m_composer;
    int m_textRows;
    int m_repositions = 0;
};

} // namespace velmora
