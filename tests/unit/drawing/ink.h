#pragma once

#include "platform/drawing/print_box.h"
#include "platform/drawing/reference_units.h"
#include "platform/drawing/surface.h"
#include "platform/rich_text/document_layout.h"
#include "platform/rich_text/rich_text_box.h"

#include <QImage>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <string_view>
#include <vector>

namespace velmora {

/// How much light white text on black sheds in a picture, and where it stands.
struct Ink final {
    /// In pixels of full coverage.
    double amount = 0;
    /// Columns and rows with ink: first and last + 1; empty where there is none.
    int left = 0;
    int right = 0;
    int top = 0;
    int bottom = 0;
    /// Its middle.
    double x = 0;
    double y = 0;
    /// Amount in each column of the picture.
    std::vector<double> columns;
};

/// How unlike two pictures' columns are, their first ones with ink put upon each other: 0 for the
/// same, 2 for letters at quite other places.
inline double unlikeness(const Ink& one, const Ink& other) {
    const auto column = [](const Ink& ink, int x) {
        const int at = ink.left + x;
        return at < ink.right ? ink.columns[static_cast<std::size_t>(at)] : 0;
    };
    double difference = 0;
    for (int x = 0; x < std::max(one.right - one.left, other.right - other.left); ++x)
        difference += std::abs(column(one, x) - column(other, x));
    return difference / one.amount;
}

inline Ink inkOf(const QImage& picture) {
    Ink ink{0, picture.width(), 0, picture.height(), 0, 0, 0, {}};
    ink.columns.resize(static_cast<std::size_t>(picture.width()));
    double sumX = 0;
    double sumY = 0;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const int light = qGreen(row[x]);
            if (light == 0)
                continue;
            ink.amount += light / 255.0;
            ink.columns[static_cast<std::size_t>(x)] += light / 255.0;
            sumX += (x + 0.5) * light / 255;
            sumY += (y + 0.5) * light / 255;
            ink.left = std::min(ink.left, x);
            ink.right = std::max(ink.right, x + 1);
            ink.top = std::min(ink.top, y);
            ink.bottom = std::max(ink.bottom, y + 1);
        }
    }
    if (ink.amount > 0) {
        ink.x = sumX / ink.amount;
        ink.y = sumY / ink.amount;
    }
    return ink;
}

/// Empty pixels around what the text engine draws.
inline constexpr int Room = 150;

/// A line of a box as the text engine draws it, white on black, its origin at (Room, Room).
inline Ink drawnByTheTextEngine(const RichTextBox& box, int line, double zoom) {
    const LinePlace place = box.layout().lineAt(line);
    const double scale = zoom / UnitsPerPixel;
    QImage image(static_cast<int>(box.wrapWidth() * zoom) + 2 * Room,
                 static_cast<int>(place.height * scale) + 2 * Room, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.translate(Room, Room);
    painter.scale(scale, scale);
    place.line.draw(&painter, -place.line.position());
    return inkOf(image);
}

/// White text; styles holds any of "b", "i", "u", "s".
inline StyledText styled(const QString& text, const QString& fontName, int halfPoints,
                         const char* styles = "") {
    const std::string_view wanted(styles);
    const auto has = [&](char style) { return wanted.find(style) != std::string_view::npos; };
    return {text, {fontName, halfPoints, White, 0, has('b'), has('i'), has('u'), has('s')}};
}

/// A paragraph of such runs.
inline void appendParagraph(RichTextFragment& fragment, const std::vector<StyledText>& runs,
                            const ParagraphFormat& format = {}) {
    Paragraph paragraph;
    paragraph.format = format;
    for (const StyledText& run : runs) {
        paragraph.endFormat = static_cast<int>(fragment.formats.size());
        paragraph.runs.push_back({static_cast<int>(run.text.size()), paragraph.endFormat});
        paragraph.text += run.text;
        fragment.formats.push_back(run.format);
    }
    fragment.paragraphs.push_back(paragraph);
}

} // namespace velmora
