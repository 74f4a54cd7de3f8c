#include "display/frame_composer.h"

#include "core/script_marks.h"
#include "platform/drawing/color.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace velmora {

namespace {

bool isStoryBreak(const std::vector<StyledText>& runs) {
    QString start;
    for (const StyledText& run : runs) {
        start += run.text.left(StoryBreakMarker.size() - start.size());
        if (start.size() >= StoryBreakMarker.size()) {
            break;
        }
    }
    return start == StoryBreakMarker;
}

} // namespace

void FrameComposer::begin(const FrameSource& source) {
    m_source = source;
    m_outputs.clear();
    m_lastLine = -1;
    m_drawn = false;
    m_mirrors = false;
    m_background = toPixel(source.rtb2->BackColor());
}

void FrameComposer::addOutput(ScrollSurface& surface, Orientation orientation) {
    surface.resize(m_source.WindowWidth, m_source.textRows, m_background);
    m_outputs.push_back({&surface, orientation});
    m_mirrors = m_mirrors || orientation == Orientation::Mirrored;
    m_lastLine = -1;
    m_drawn = false;
}

void FrameComposer::showTop(std::int64_t top) {
    const std::int64_t rows = m_source.textRows;
    const std::int64_t moved = top - m_top;
    std::int64_t first = top;
    std::int64_t behind = top + rows;
    if (m_drawn && std::abs(moved) < rows) {
        first = moved > 0 ? m_top + rows : top;
        behind = moved > 0 ? top + rows : m_top;
    }
    for (const Output& output : m_outputs) {
        output.surface->setTop(top);
    }
    for (std::int64_t row = first; row < behind; ++row) {
        writeRow(row);
    }
    m_top = top;
    m_drawn = true;
}

void FrameComposer::warmUp(std::int64_t top, int rows) {
    for (std::int64_t row = top; row < top + rows;) {
        const ScanRow scan = m_source.tables->scanTable.at(row);
        if (scan.line > 0) {
            renderLine(scan.line - 1, scan.height);
        }
        row += std::max(1, scan.height - scan.rowInLine);
    }
}

void FrameComposer::writeRow(std::int64_t tableRow) {
    const ScanRow scan = m_source.tables->scanTable.at(tableRow);
    if (scan.line < 1) {
        for (const Output& output : m_outputs) {
            output.surface->clearRow(tableRow);
        }
        return;
    }
    if (scan.line - 1 != m_lastLine) {
        renderLine(scan.line - 1, scan.height);
    }
    for (const Output& output : m_outputs) {
        const bool plain = output.orientation == Orientation::Plain;
        output.surface->writeRow(tableRow, plain ? m_line : m_mirroredLine, 0, scan.rowInLine);
    }
}

void FrameComposer::renderLine(int line, int height) {
    m_lastLine = line;
    m_line.resize(m_source.WindowWidth, height);
    m_line.fill(m_background);
    const LineEntry& entry = m_source.tables->lineTable[static_cast<std::size_t>(line)];
    const std::vector<StyledText> runs = m_source.rtb2->styledText(entry.index, entry.length);
    if (isStoryBreak(runs)) {
        drawStoryBreak(runs.front().format.color);
    } else if (!runs.empty()) {
        PrintBox box;
        box.width = m_source.WindowWidth;
        box.rowHeight = height;
        box.zoom = m_source.FontScale;
        box.alignment = m_source.TextAlignment;
        // A centred line that ends in text with a background carries it on to the window's edge.
        box.extendBackground =
            box.alignment == Alignment::Centre && runs.back().format.backColor != 0;
        m_source.rtb2->printRange(m_line, entry.index, entry.length, box, m_cache);
    }
    if (m_mirrors) {
        // Flipped from the finished picture: text drawn through a mirroring painter differs.
        m_mirroredLine.resize(m_source.WindowWidth, height);
        m_mirroredLine.StretchBlt(m_source.WindowWidth, 0, -m_source.WindowWidth, height, m_line, 0,
                                  0, m_source.WindowWidth, height);
    }
}

/// A bar as wide as the window in the middle half of the line, rising from black to the mark's
/// colour and back.
void FrameComposer::drawStoryBreak(Rgb24 color) {
    const int height = m_line.height();
    const double quarter = height * 0.25;
    const QRgb full = toPixel(color);
    const auto shade = [&](double steps) {
        const auto channel = [&](int value) {
            return std::clamp(static_cast<int>(std::lround(value / quarter * steps)), 0, 255);
        };
        return qRgb(channel(qRed(full)), channel(qGreen(full)), channel(qBlue(full)));
    };
    const int from = static_cast<int>(quarter);
    const int middle = static_cast<int>(height * 0.5);
    const int to = static_cast<int>(height * 0.75);
    double steps = 0;
    for (int y = from; y <= middle; ++y) {
        m_line.fillRect(0, y, m_line.width(), 1, shade(++steps));
    }
    for (int y = middle; y <= to; ++y) {
        m_line.fillRect(0, y, m_line.width(), 1, shade(--steps));
    }
}

} // namespace velmora
