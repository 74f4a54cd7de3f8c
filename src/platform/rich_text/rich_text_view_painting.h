#pragma once

#include <QColor>
#include <QRect>

#include <optional>

class QPainter;
class QPalette;
class QTextDocument;

namespace velmora {

class ViewGeometry;

/// Colours of selected text. The palette's own, unless its highlight could hardly be told from the
/// background; then black on white or white on black, whichever stands out.
struct SelectionColors final {
    QColor background;
    QColor text;
};
[[nodiscard]] SelectionColors selectionColors(const QPalette& palette, const QColor& background);

/// Black or white, whichever stands out better.
[[nodiscard]] QColor contrastingColor(const QColor& background);

/// What is to be painted, beside the text and its place.
struct PaintState final {
    QColor background;
    SelectionColors selection;
    /// Positions of the document; equal for an empty selection.
    int selectionStart = 0;
    int selectionEnd = 0;
    /// Viewport pixels; nothing where it is not to be seen.
    std::optional<QRect> caret;
    QColor caretColor;
};

/// Paints the part of the text that lies in clip (viewport pixels), background included. The
/// painter is the viewport's; it is scaled to the zoom, the layout stays as it is.
void paintText(QPainter& painter, const QTextDocument& document, const ViewGeometry& geometry,
               const PaintState& state, const QRect& clip);

} // namespace velmora
