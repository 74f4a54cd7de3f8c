#pragma once

#include "platform/drawing/reference_units.h"
#include "platform/progress.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextLayout>

#include <vector>

namespace velmora {

/// A display line: where it lies in the document, and on which height.
struct LinePlace final {
    QTextBlock block;
    /// Invalid only where the document has no such line.
    QTextLine line;
    /// From 0, over the whole document.
    int number = -1;
    /// Top and natural height in reference units, document coordinates.
    double top = 0;
    double height = 0;

    [[nodiscard]] bool isValid() const { return line.isValid(); }
    /// Position of the line's first character in the QTextDocument.
    [[nodiscard]] int start() const { return block.position() + line.textStart(); }
};

/// The layout of a script in reference units.
///
/// Owned by its QTextDocument. Breaks depend on the text, its fonts and the wrap width alone, never
/// on a screen or a zoom: whoever draws scales by a painter or by arithmetic. The layout is lazy:
/// a change only marks paragraphs, the next question lays them out. Every paragraph has a
/// QTextLayout of its own (QTextBlock::layout()), whose lines stand at their place inside the
/// paragraph; heights and tops of paragraphs are kept here in double, so that no text is too high.
///
/// Natural height of a line = ascent + descent + leading of its highest font. Trailing blanks hang
/// over the right edge and do not count for the alignment.
class DocumentLayout final : public QAbstractTextDocumentLayout {
    Q_OBJECT
public:
    explicit DocumentLayout(QTextDocument* document);

    /// In reference units, at least MinWrapWidth. Changing it marks everything.
    [[nodiscard]] double wrapWidth() const { return m_wrapWidth; }
    void setWrapWidth(double units);
    static constexpr double MinWrapWidth = 6;

    /// Lays out what is marked. Every question below does it by itself.
    void ensureLaidOut() const;
    /// The same while somebody watches; what remains is left for later where that one stops it.
    void layOut(const Progress& goesOn) const;

    /// At least 1.
    [[nodiscard]] int lineCount() const;
    [[nodiscard]] LinePlace lineAt(int number) const;
    /// The line that holds the character at a position of the QTextDocument; a position at a soft
    /// break belongs to the following line.
    [[nodiscard]] LinePlace lineOfPosition(int documentPosition) const;
    /// The line at a height in reference units; the first above, the last below the document.
    [[nodiscard]] LinePlace lineAtHeight(double units) const;
    /// The same, given its paragraph and the number inside of it: cheap in a walk over all lines.
    [[nodiscard]] LinePlace lineOfBlock(const QTextBlock& block, int lineInBlock) const;

    [[nodiscard]] double blockTop(const QTextBlock& block) const;
    /// By the paragraph's number, 0 to the count of paragraphs, which gives the document's height.
    [[nodiscard]] double topOfBlock(int blockNumber) const;
    [[nodiscard]] double blockHeight(const QTextBlock& block) const;
    [[nodiscard]] double height() const;

    // QAbstractTextDocumentLayout, in reference units
    void draw(QPainter* painter, const PaintContext& context) override;
    int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame* frame) const override;
    QRectF blockBoundingRect(const QTextBlock& block) const override;

protected:
    void documentChanged(int from, int charsRemoved, int charsAdded) override;

private:
    void markAll() const;
    /// Returns the paragraph's height.
    double layOutBlock(QTextBlock block) const;

    double m_wrapWidth = 1920;
    /// Heights of all paragraphs; below 0 stands for a marked one.
    mutable std::vector<double> m_heights;
    /// m_tops[i] is the top of paragraph i, right up to index m_topsValid.
    mutable std::vector<double> m_tops;
    mutable int m_topsValid = 0;
    /// All marked paragraphs lie in m_firstMarked .. m_lastMarked; none if that is empty.
    mutable int m_firstMarked = 0;
    mutable int m_lastMarked = -1;
};

} // namespace velmora
