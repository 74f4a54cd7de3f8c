#include "platform/drawing/glyph_mask_cache.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <list>
#include <unordered_map>
#include <utility>
#include <vector>

namespace velmora {

namespace {

/// Masks above this share of the cache would throw out everything else; they are not made.
constexpr std::int64_t LargestShare = 8;
/// A script has a few fonts in a few sizes. Whoever runs through many more than that (every size of
/// a list) starts again with an empty cache, which costs a few milliseconds.
constexpr std::size_t MaxFaces = 256;
/// A node of the list and of the index, and the picture's header.
constexpr std::int64_t EntryBytes = 256;

/// The tables of an OpenType font by which it draws glyphs in colours of their own.
bool hasColourGlyphs(const QRawFont& font) {
    static constexpr std::array Tables{"CBDT", "COLR", "sbix", "SVG "};
    return std::any_of(Tables.begin(), Tables.end(),
                       [&font](const char* name) { return !font.fontTable(name).isEmpty(); });
}

/// Fills the glyph's outline.
GlyphMask outlineMask(const QPainterPath& outline) {
    GlyphMask mask;
    const QRect box = outline.boundingRect().toAlignedRect();
    mask.offset = box.topLeft();
    mask.coverage = QImage(box.size(), QImage::Format_Alpha8);
    mask.coverage.fill(Qt::transparent);
    QPainter painter(&mask.coverage);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-box.topLeft());
    painter.fillPath(outline, Qt::black);
    return mask;
}

/// A null picture's glyph is blank, or cannot be had as a mask.
GlyphMask glyphMask(const QRawFont& font, std::uint32_t glyph) {
    GlyphMask mask;
    const QRectF box = font.boundingRect(glyph);
    mask.offset = box.topLeft().toPoint();
    mask.coverage = font.alphaMapForGlyph(glyph, QRawFont::PixelAntialiasing)
                        .convertToFormat(QImage::Format_Alpha8);
    // The font engine does not tell where its mask lies. The glyph's box does, but for letters that
    // it slants itself, in want of an italic face: there the box is too wide.
    if (box.size() == QSizeF(mask.coverage.size()))
        return mask;
    const QPainterPath outline = font.pathForGlyph(glyph);
    if (!outline.isEmpty())
        return outlineMask(outline);
    mask.drawable = mask.coverage.isNull();
    return mask;
}

} // namespace

class GlyphMaskCache::Private final {
public:
    explicit Private(std::int64_t limit) : m_limit(limit) {}

    const GlyphMask& mask(const QRawFont& font, double pixelSize, std::uint32_t glyph);

    std::int64_t used = 0;
    std::int64_t made = 0;

private:
    /// A font of the layout, which stays alive as long as its masks, at a size of the display.
    struct Face final {
        QRawFont font;
        double pixelSize = 0;
        bool inColours = false;
    };
    struct Entry final {
        std::uint64_t key = 0;
        GlyphMask mask;
        std::int64_t bytes = 0;
    };

    std::size_t findFace(const QRawFont& font, double pixelSize);
    [[nodiscard]] GlyphMask make(const Face& face, std::uint32_t glyph) const;
    void makeRoom(std::int64_t bytes);

    std::int64_t m_limit;
    std::vector<Face> m_faces;
    std::size_t m_lastFace = 0;
    /// Most recently used first.
    std::list<Entry> m_entries;
    std::unordered_map<std::uint64_t, std::list<Entry>::iterator> m_index;
};

const GlyphMask& GlyphMaskCache::Private::mask(const QRawFont& font, double pixelSize,
                                               std::uint32_t glyph) {
    const std::size_t face = findFace(font, pixelSize);
    const std::uint64_t key = std::uint64_t{face} << 32 | glyph;
    if (const auto found = m_index.find(key); found != m_index.end()) {
        m_entries.splice(m_entries.begin(), m_entries, found->second);
        return m_entries.front().mask;
    }
    Entry entry{key, make(m_faces[face], glyph), 0};
    entry.bytes = EntryBytes + entry.mask.coverage.sizeInBytes();
    ++made;
    makeRoom(entry.bytes);
    used += entry.bytes;
    m_entries.push_front(std::move(entry));
    m_index.emplace(key, m_entries.begin());
    return m_entries.front().mask;
}

std::size_t GlyphMaskCache::Private::findFace(const QRawFont& font, double pixelSize) {
    const auto same = [&](const Face& face) {
        return face.pixelSize == pixelSize && face.font == font;
    };
    if (m_lastFace < m_faces.size() && same(m_faces[m_lastFace]))
        return m_lastFace;
    const auto found = std::find_if(m_faces.begin(), m_faces.end(), same);
    m_lastFace = static_cast<std::size_t>(found - m_faces.begin());
    if (found != m_faces.end())
        return m_lastFace;
    if (m_faces.size() == MaxFaces) {
        makeRoom(m_limit);
        m_faces.clear();
    }
    m_faces.push_back({font, pixelSize, hasColourGlyphs(font)});
    m_lastFace = m_faces.size() - 1;
    return m_lastFace;
}

GlyphMask GlyphMaskCache::Private::make(const Face& face, std::uint32_t glyph) const {
    // A font of its own for each mask: a font keeps all masks that it ever made, beside ours.
    QRawFont font = face.font;
    font.setPixelSize(face.pixelSize);
    const QSizeF box = font.boundingRect(glyph).size();
    const double bytes = box.width() * box.height() + EntryBytes;
    const std::int64_t largest = m_limit / LargestShare;
    GlyphMask mask;
    mask.drawable = !face.inColours && bytes <= static_cast<double>(largest);
    return mask.drawable ? glyphMask(font, glyph) : mask;
}

void GlyphMaskCache::Private::makeRoom(std::int64_t bytes) {
    while (!m_entries.empty() && used + bytes > m_limit) {
        used -= m_entries.back().bytes;
        m_index.erase(m_entries.back().key);
        m_entries.pop_back();
    }
}

GlyphMaskCache::GlyphMaskCache(std::int64_t limitBytes)
    : d(std::make_unique<Private>(limitBytes)) {}

GlyphMaskCache::~GlyphMaskCache() = default;

const GlyphMask& GlyphMaskCache::mask(const QRawFont& font, double pixelSize, std::uint32_t glyph) {
    return d->mask(font, pixelSize, glyph);
}

std::int64_t GlyphMaskCache::bytes() const {
    return d->used;
}

std::int64_t GlyphMaskCache::masksMade() const {
    return d->made;
}

} // namespace velmora
