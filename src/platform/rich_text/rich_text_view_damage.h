#pragma once

#include "platform/rich_text/rich_text_view_change.h"

#include <QRegion>

#include <optional>
#include <vector>

namespace velmora {

class ViewGeometry;

/// Finds out what a change of the text or of the selection changes on the screen.
///
/// It remembers which lines the viewport shows, and compares them with those that it shows after
/// the change: a line that holds the same characters in the same place need not be painted again.
/// Owned by the view. Positions are those of the QTextDocument.
class DamageTracker final {
public:
    explicit DamageTracker(const ViewGeometry& geometry) : m_geometry(geometry) {}

    /// Takes the lines that the viewport shows now as the painted ones, and forgets noted changes.
    void rememberLines();

    /// Several notes add up.
    void noteChange(const TextChange& change);
    [[nodiscard]] bool hasNotedChange() const { return m_change.has_value(); }

    /// Region to paint again for the noted changes. The layout must be the new one.
    [[nodiscard]] QRegion changedLines() const;
    /// Region of the remembered lines that touch a stretch of the text, its ends included.
    [[nodiscard]] QRegion linesTouching(int start, int end) const;

private:
    struct ShownLine final {
        int start = 0;
        int length = 0;
        QRect rect;
        /// Left edge of the text, in reference units.
        double left = 0;
    };

    [[nodiscard]] std::vector<ShownLine> visibleLines() const;
    [[nodiscard]] bool isUnchanged(const ShownLine& line, const TextChange& change) const;

    const ViewGeometry& m_geometry;
    std::vector<ShownLine> m_shown;
    std::optional<TextChange> m_change;
};

} // namespace velmora
