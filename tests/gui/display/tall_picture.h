#pragma once

#include "display/script_preparation.h"
#include "platform/drawing/color.h"
#include "platform/drawing/glyph_mask_cache.h"
#include "platform/drawing/line_printer.h"
#include "platform/drawing/reference_units.h"
#include "platform/drawing/surface.h"
#include "platform/drawing/text_format.h"
#include "platform/rich_text/rich_text_box.h"

#include <QImage>
#include <QTextLayout>

#include <cmath>

namespace velmora {

/// The whole script as one tall picture, line below line, drawn without the frame composer: what a
/// show's window must be a part of at every moment.
class TallPicture final {
public:
    TallPicture(const RichTextBox& script, const ShowTables& tables, int width, double zoom,
                Alignment alignment)
        : m_background(toPixel(script.BackColor())) {
        GlyphMaskCache cache;
        const int rows = static_cast<int>(tables.scanTable.rowCount());
        m_picture = QImage(width, std::max(1, rows), QImage::Format_RGB32);
        m_picture.fill(m_background);
        int top = static_cast<int>(tables.scanTable.firstRowOfLine(0));
        for (int line = 0; line < tables.scanTable.lineCount(); ++line) {
            const int next = static_cast<int>(tables.scanTable.firstRowOfLine(line + 1));
            drawLine(script, tables.lineTable[static_cast<std::size_t>(line)], top, next - top,
                     zoom, alignment, cache);
            top = next;
        }
    }

    /// The window whose first row is top; rows outside the script are background.
    [[nodiscard]] QImage window(std::int64_t top, int rows) const {
        QImage window(m_picture.width(), rows, QImage::Format_RGB32);
        window.fill(m_background);
        for (int row = 0; row < rows; ++row) {
            const std::int64_t from = top + row;
            if (from >= 0 && from < m_picture.height()) {
                std::copy_n(m_picture.constScanLine(static_cast<int>(from)), m_picture.width() * 4,
                            window.scanLine(row));
            }
        }
        return window;
    }
    [[nodiscard]] const QImage& image() const { return m_picture; }

private:
    void drawLine(const RichTextBox& script, const LineEntry& entry, int top, int height,
                  double zoom, Alignment alignment, GlyphMaskCache& cache) {
        if (height <= 0 || entry.length == 0) {
            return;
        }
        Surface surface(m_picture.width(), height);
        surface.fill(m_background);
        auto runs = script.styledText(entry.index, entry.length);
        const QString text = script.Text().mid(entry.index, entry.length);
        if (text.startsWith(u"^----"_qs)) {
            drawBreak(surface, toPixel(runs.front().format.color));
        } else {
            if (runs.front().format.backColor != 0) {
                drawBackground(surface, runs.front(), zoom, alignment);
                runs.front().format.backColor = 0;
            }
            PrintBox box;
            box.width = m_picture.width();
            box.rowHeight = height;
            box.zoom = zoom;
            box.alignment = alignment;
            box.rightToLeft = text.isRightToLeft();
            printLine(surface, runs, box, cache);
        }
        for (int row = 0; row < height; ++row) {
            std::copy_n(surface.image().constScanLine(row), m_picture.width() * 4,
                        m_picture.scanLine(top + row));
        }
    }

    /// As wide as the text engine has the text; where it is centred it goes on to the edge.
    static void drawBackground(Surface& surface, const StyledText& run, double zoom,
                               Alignment alignment) {
        QTextLayout layout(run.text);
        layout.setFormats({{0, static_cast<int>(run.text.size()), toTextFormat(run.format)}});
        layout.beginLayout();
        QTextLine line = layout.createLine();
        line.setLineWidth(1e5);
        layout.endLayout();
        const double length = line.naturalTextWidth() * zoom / UnitsPerPixel;
        const double room = surface.width() - (alignment == Alignment::Right ? 12 : 0) - length;
        const double shares[] = {0, 1, 0.5}; // Left, right, centred.
        const double left = room * shares[static_cast<int>(alignment)];
        const double right = alignment == Alignment::Centre ? surface.width() : left + length;
        surface.fillRect(qRound(left), 0, qRound(right) - qRound(left), surface.height(),
                         toPixel(run.format.backColor));
    }

    /// Rising over the second quarter of the line, falling over the third.
    static void drawBreak(Surface& surface, QRgb color) {
        const double height = surface.height();
        const double steps = height * 0.25;
        const int middle = static_cast<int>(height * 0.5);
        for (int y = static_cast<int>(height * 0.25); y <= static_cast<int>(height * 0.75); ++y) {
            const int rising = middle - static_cast<int>(height * 0.25) + 1;
            const double step =
                y < middle ? y - static_cast<int>(height * 0.25) + 1 : rising - (y - middle) - 1;
            const auto channel = [&](int value) {
                return std::clamp(static_cast<int>(std::lround(value / steps * step)), 0, 255);
            };
            surface.fillRect(
                0, y, surface.width(), 1,
                qRgb(channel(qRed(color)), channel(qGreen(color)), channel(qBlue(color))));
        }
    }

    QRgb m_background;
    QImage m_picture;
};

} // namespace velmora
