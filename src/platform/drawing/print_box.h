#pragma once

#include "platform/drawing/text_format.h"

#include <QString>

#include <limits>

namespace velmora {

/// One stretch of a line in one format, as the drawing of a line needs it.
struct StyledText final {
    QString text;
    CharacterFormat format;
};

/// Where and how RichTextBox::printRange draws. All lengths are pixels of the target surface.
struct PrintBox final {
    /// Left text starts here.
    double left = 0;
    /// Centred text is centred on left + width / 2, right text ends at left + width - rightGap.
    double width = 0;
    double rightGap = 12;
    /// Row pitch: the height that the line has on the display, above 0.
    int rowHeight = 0;
    /// Pixels on the display for one 96-dpi pixel of the document.
    double zoom = 1;
    Alignment alignment = Alignment::Left;
    /// The background colour of the line's last run goes on from the text's end to the surface's
    /// right edge.
    bool extendBackground = false;
    /// Reading order of the line's paragraph; printRange takes it from the document.
    bool rightToLeft = false;
    /// Width of the line's column in reference units. Where blanks at the line's end reach beyond,
    /// all of them hang over, and show neither strokes nor a background. printRange takes it from
    /// the document: 0 for a line that was broken, which is where its blanks hang over.
    double roomForBlanks = std::numeric_limits<double>::infinity();
};

} // namespace velmora
