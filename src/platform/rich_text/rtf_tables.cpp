#include "platform/rich_text/rtf_tables.h"

#include "platform/rich_text/rtf_font_name.h"

#include <algorithm>

namespace velmora {

namespace {

struct Family final {
    QString name;
    int codePage = 0;
};

/// Old systems list one family once for each script that it has, with the script behind its name;
/// on today's machines only the family itself is known. The name alone tells the code page where
/// nothing else does.
Family familyOf(const QString& name, int codePage, bool nameDecides) {
    struct Row final {
        const char16_t* suffix;
        int codePage;
    };
    static constexpr Row rows[] = {
        {u" CE", 1250},       {u" CYR", 1251},      {u" Greek", 1253},        {u" TUR", 1254},
        {u" (Hebrew)", 1255}, {u" (Arabic)", 1256}, {u" Baltic", 1257},       {u" Cyr", 1251},
        {u" Tur", 1254},      {u" (Thai)", 874},    {u" (Vietnamese)", 1258},
    };
    for (const Row& row : rows) {
        const QStringView suffix(row.suffix);
        if ((nameDecides || codePage == row.codePage) && name.size() > suffix.size() &&
            name.endsWith(suffix)) {
            return {name.chopped(suffix.size()), row.codePage};
        }
    }
    return {name, codePage};
}

} // namespace

void RtfFontTable::begin(int number) {
    finish();
    m_row = {};
    m_rowNumber = number;
    m_rowCharset = -1;
    m_rowCodePage = 0;
    m_open = true;
}

void RtfFontTable::setCharset(int charset) {
    m_rowCharset = charset;
}

void RtfFontTable::setCodePage(int codePage) {
    m_rowCodePage = codePage;
}

void RtfFontTable::append(QChar unit) {
    if (unit == u';') {
        finish();
    } else if (m_open && m_row.name.size() < MaxFontNameUnits) {
        m_row.name.append(unit);
    }
}

int RtfFontTable::nameCodePage() const {
    return m_rowCodePage != 0 ? m_rowCodePage : CodePages::ofCharset(m_rowCharset);
}

void RtfFontTable::finish() {
    if (!m_open) {
        return;
    }
    m_open = false;
    if (m_fonts.size() >= MaxFonts) {
        return;
    }
    const bool nothingGiven = m_rowCharset < 0 && m_rowCodePage == 0;
    const Family family = familyOf(rtfFontName(m_row.name), nameCodePage(), nothingGiven);
    m_row.codePage = family.codePage;
    m_row.name = family.name;
    if (m_rowCharset == CodePages::SymbolCharset) {
        m_row.symbols = symbolSetOfFont(m_row.name);
    }
    if (m_firstTextFont < 0 && m_row.symbols == SymbolSet::None) {
        m_firstTextFont = static_cast<int>(m_fonts.size());
    }
    m_indexes.insert(m_rowNumber, static_cast<int>(m_fonts.size()));
    m_fonts.push_back(m_row);
}

int RtfFontTable::find(int number) const {
    return m_indexes.value(number, RtfCharacter::DefaultFont);
}

int RtfFontTable::textFont(int index) const {
    const bool text = font(index).symbols == SymbolSet::None;
    return text || m_firstTextFont < 0 ? index : m_firstTextFont;
}

const RtfFont& RtfFontTable::font(int index) const {
    if (index == RtfCharacter::DefaultFont) {
        index = m_indexes.value(m_default, 0);
    }
    return static_cast<std::size_t>(index) < m_fonts.size()
               ? m_fonts[static_cast<std::size_t>(index)]
               : m_none;
}

void RtfColorTable::setComponent(int component, int value) {
    const int shift = 8 * component;
    const Rgb24 limited = static_cast<Rgb24>(std::clamp(value, 0, 255));
    m_row = (m_row & ~(0xFFu << shift)) | limited << shift;
}

void RtfColorTable::next() {
    if (m_colors.size() < MaxColors) {
        m_colors.push_back(m_row);
    }
    m_row = Black;
}

Rgb24 RtfColorTable::color(int number) const {
    return number >= 0 && static_cast<std::size_t>(number) < m_colors.size()
               ? m_colors[static_cast<std::size_t>(number)]
               : Black;
}

int RtfStyleSheet::key(Kind kind, int number) {
    return std::clamp(number, 0, MaxStyles) * 2 + (kind == Kind::Character ? 1 : 0);
}

void RtfStyleSheet::insert(Kind kind, int number, const Style& style) {
    if (!m_complete && number >= 0 && number < MaxStyles) {
        m_styles.insert(key(kind, number), style);
    }
}

RtfFormats RtfStyleSheet::resolve(Kind kind, int number) const {
    std::vector<const Style*> chain;
    while (chain.size() < MaxChain && number >= 0 && number < MaxStyles &&
           (number != BasedOnNothing || chain.empty())) {
        const auto style = m_styles.constFind(key(kind, number));
        if (style == m_styles.constEnd()) {
            break;
        }
        chain.push_back(&*style);
        number = style->basedOn;
    }
    RtfFormats formats;
    std::for_each(chain.rbegin(), chain.rend(),
                  [&formats](const Style* style) { formats.apply(style->formats); });
    return formats;
}

void RtfStyleSheet::resolve() {
    if (m_complete || m_styles.isEmpty()) {
        return;
    }
    m_complete = true;
    for (auto style = m_styles.cbegin(); style != m_styles.cend(); ++style) {
        const Kind kind = style.key() % 2 == 0 ? Kind::Paragraph : Kind::Character;
        m_resolved.insert(style.key(), resolve(kind, style.key() / 2));
    }
}

const RtfFormats* RtfStyleSheet::resolved(Kind kind, int number) const {
    const auto style = m_resolved.constFind(key(kind, number));
    return style != m_resolved.constEnd() && number >= 0 && number < MaxStyles ? &*style : nullptr;
}

} // namespace velmora
