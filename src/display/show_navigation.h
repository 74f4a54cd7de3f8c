#pragma once

#include "display/frame_composer.h"
#include "display/show_bookmarks.h"

#include <cstdint>

namespace velmora {

class Session;
class Presenter;
class ShowScreen;

/// Where the window stands in the script, and every change of it that is not a step.
/// The picture is a pure function of the top row, and the top row one of ScrollRow and the
/// direction. Lines are 0-based, as Vscroll1 has them, unless they say otherwise.
class ShowNavigation final {
public:
    /// What it works with; all outlive it. textRows: rows of text in the window.
    struct Parts final {
        Session& session;
        const ShowTables& tables;
        FrameComposer& composer;
        ShowScreen& screen;
        Presenter& presenter;
        int textRows;
    };
    explicit ShowNavigation(const Parts& parts);

    /// Table row at the top of the window.
    [[nodiscard]] std::int64_t topRow() const;
    /// 1-based line at the top of the window; 0 where none is.
    [[nodiscard]] int topLine() const;
    /// ShowTopLine for the return to the editor: the 1-based line at the top, 0 where the whole
    /// script fits.
    [[nodiscard]] double returnLine() const;
    /// Where a line stands in the window: its first row, below 0 where it is further up, and the
    /// number of its rows.
    struct RowsOfLine final {
        int first = 0;
        int count = 0;
    };
    [[nodiscard]] RowsOfLine rowsOfLine(int line) const;
    /// Lines of the show; Vscroll1's Max.
    [[nodiscard]] int lineCount() const;

    /// What became of a step. Skipped: the row is one of the blank ones inside the script, which
    /// are passed without a picture. Limit: the script ends here.
    enum class Advance { Taken, Skipped, Limit };
    /// Takes ScrollRow on by SignedRowStep. At a limit the overshoot is undone: the picture stays a
    /// function of ScrollRow.
    Advance advance();

    /// The line at which the show starts, 0 for the beginning.
    [[nodiscard]] double startLine() const;
    /// The first picture of a pass: the script's beginning, or a line further down.
    void showStart(double startLine);
    /// Redraws the window from a line on, as far up as the script's end allows.
    void reposition(int line);
    /// The same by an operator's act: Vscroll1 follows, and the picture goes to the screen at once.
    void jumpTo(int line);
    /// The line at the window's top, as Vscroll1 would have it.
    [[nodiscard]] int currentLine() const;
    /// Sets Vscroll1 to the line that is really at the window's top; a relative act starts there.
    int takeTopLine();
    /// A step of the shuttle ring: by so many lines, up to an end.
    void stepLines(int lines);
    void jumpToSelectiveBookmark(int digit);
    /// Acts on BookmarkJump, if there is a request.
    void serveBookmarkJump();
    /// Back to a picture that was left: its top row and direction, exactly.
    void restore(std::int64_t scrollRow, int scrollDirection);

    [[nodiscard]] ShowBookmarks& bookmarks() { return m_bookmarks; }
    /// Counts repositions, so that a waiting loop notices one.
    [[nodiscard]] int repositions() const { return m_repositions; }

private:
    /// The script's end stands in the window from the start on.
    void noteReachedEnd();

    Session& m_session;
    Parts m_parts;
    ShowBookmarks m_bookmarks;
    int m_repositions = 0;
};

} // namespace velmora
