#pragma once

#include "platform/rich_text/rtf_code_pages.h"
#include "platform/rich_text/rtf_state.h"
#include "platform/rich_text/rtf_symbol_fonts.h"

#include <QHash>
#include <QString>

#include <vector>

namespace velmora {

/// A row of a document's font table.
struct RtfFont final {
    QString name;
    /// 0 where the font names none and the document's own code page holds.
    int codePage = 0;
    /// Of a symbol font by its charset. One that only has the name of a symbol font holds ordinary
    /// text; so what the writer writes, which names no charset, is read back as it was.
    SymbolSet symbols = SymbolSet::None;
};

/// The font table: filled from the words and the text of its destination, then asked by number.
class RtfFontTable final {
public:
    static constexpr int MaxFonts = 32'768;

    /// \f inside the table: the next row begins.
    void begin(int number);
    void setCharset(int charset);
    void setCodePage(int codePage);
    /// Text of the table: names, each ended by a semicolon.
    void append(QChar unit);
    /// Ends a row that has no semicolon.
    void finish();
    /// The code page in which the name of the row being read is written; 0 for the document's.
    [[nodiscard]] int nameCodePage() const;

    void setDefault(int number) { m_default = number; }
    /// Index of a font by its \f number; RtfCharacter::DefaultFont where the table has no such.
    [[nodiscard]] int find(int number) const;
    /// The same font where it is one for text, else the first of the table that is; the same where
    /// the table has none.
    [[nodiscard]] int textFont(int index) const;
    /// Of an index that find() gave. The default font is \deff's, else the first one, else one
    /// without a name.
    [[nodiscard]] const RtfFont& font(int index) const;

private:
    RtfFont m_row;
    int m_rowNumber = 0;
    int m_rowCharset = -1;
    int m_rowCodePage = 0;
    bool m_open = false;
    std::vector<RtfFont> m_fonts;
    QHash<int, int> m_indexes;
    int m_default = 0;
    /// Index of the first font that is no symbol font; -1 where there is none.
    int m_firstTextFont = -1;
    RtfFont m_none;
};

/// The colour table. Colour 0 is the automatic one where its row is empty, and comes out as black.
class RtfColorTable final {
public:
    static constexpr int MaxColors = 65'536;

    /// Component 0 is red, 1 green, 2 blue; values are limited to 0 to 255.
    void setComponent(int component, int value);
    /// A semicolon: the row is complete.
    void next();
    /// Black for a number that the table does not have.
    [[nodiscard]] Rgb24 color(int number) const;

private:
    Rgb24 m_row = Black;
    std::vector<Rgb24> m_colors;
};

/// The style sheet. A style's formats are what it gives itself on top of what it is based on.
class RtfStyleSheet final {
public:
    enum class Kind { Paragraph, Character };

    static constexpr int MaxStyles = 65'536;
    /// Longer chains of styles based on one another are cut; so are rings.
    static constexpr int MaxChain = 32;

    struct Style final {
        RtfFormats formats;
        int basedOn = NoStyle;
    };

    static constexpr int NoStyle = -1;
    /// A style that is based on this number is based on none.
    static constexpr int BasedOnNothing = 222;

    [[nodiscard]] bool isEmpty() const { return m_styles.isEmpty(); }
    void insert(Kind kind, int number, const Style& style);
    /// Works out what each style gives in the end; afterwards resolved() answers and no style is
    /// added, so that a file with many style sheets cannot make this costly.
    void resolve();
    /// Null for a style that does not exist.
    [[nodiscard]] const RtfFormats* resolved(Kind kind, int number) const;

private:
    [[nodiscard]] static int key(Kind kind, int number);
    [[nodiscard]] RtfFormats resolve(Kind kind, int number) const;

    QHash<int, Style> m_styles;
    QHash<int, RtfFormats> m_resolved;
    bool m_complete = false;
};

} // namespace velmora
