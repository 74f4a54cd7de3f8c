#pragma once

#include "display/display_traits.h"
#include "display/script_preparation.h"
#include "platform/drawing/glyph_mask_cache.h"
#include "platform/drawing/scroll_surface.h"
#include "platform/drawing/surface.h"
#include "platform/rich_text/rich_text_box.h"

#include <cstdint>
#include <vector>

namespace velmora {

/// What the frames of one show are made from.
struct FrameSource final {
    /// The script; its document, read only.
    const RichTextBox* rtb2 = nullptr;
    const ShowTables* tables = nullptr;
    /// Zoom of the display.
    double FontScale = 1;
    /// Picture1's width in pixels.
    int WindowWidth = 0;
    /// Rows of text in the window.
    int textRows = 0;
    /// Alignment that holds for every line, whatever its paragraph's own.
    Alignment TextAlignment = Alignment::Left;
};

/// Makes the moving picture: the text area as a pure function of its top row.
///
/// A script line is rendered once, into the line surface, when its first row enters the window; a
/// step then costs the copying of its new rows into each output's ring. Owned by the display
/// window.
class FrameComposer final {
public:
    explicit FrameComposer(GlyphMaskCache& cache) : m_cache(cache) {}

    /// Starts a show. Drops the outputs.
    void begin(const FrameSource& source);
    /// Adds a picture to be kept. It is resized; all outputs show the same rows.
    void addOutput(ScrollSurface& surface, Orientation orientation);

    /// Brings the outputs to the picture whose first row is table row top, drawing only the rows
    /// that are not there yet. Rows before the text and past its end are blank.
    void showTop(std::int64_t top);

    /// Renders the lines of so many rows from a top row, so that their glyph masks are at hand.
    void warmUp(std::int64_t top, int rows);

private:
    struct Output final {
        ScrollSurface* surface = nullptr;
        Orientation orientation = Orientation::Plain;
    };

    void writeRow(std::int64_t tableRow);
    void renderLine(int line, int height);
    void drawStoryBreak(Rgb24 color);

    GlyphMaskCache& m_cache;
    FrameSource m_source;
    std::vector<Output> m_outputs;
    /// Picture2: one script line at a time, as wide as the window and as high as the line.
    Surface m_line;
    /// The same flipped; only kept where an output is mirrored.
    Surface m_mirroredLine;
    /// The line in m_line, 0-based; -1 for none.
    int m_lastLine = -1;
    QRgb m_background = 0xff000000;
    std::int64_t m_top = 0;
    /// Whether the outputs hold the picture of m_top.
    bool m_drawn = false;
    bool m_mirrors = false;
};

} // namespace velmora
