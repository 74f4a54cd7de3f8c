#pragma once

#include "platform/rich_text/rtf_fragment_builder.h"
#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_state.h"
#include "platform/rich_text/rtf_tables.h"
#include "platform/rich_text/rtf_tokenizer.h"

#include <string>
#include <vector>

namespace velmora {

/// Reads one document: follows tokens, groups and destinations, and sends what is text to the
/// builder. Control words go through the table of rtf_control_words.h, whose handlers are the
/// public members below; nobody else calls them.
class RtfInterpreter final {
public:
    explicit RtfInterpreter(QByteArrayView rtf) : m_tokenizer(rtf), m_builder(rtf.size()) {}

    /// Once only.
    [[nodiscard]] RtfReadResult read(const Progress& goesOn);

    /// Groups nested deeper than this are skipped.
    static constexpr std::size_t MaxDepth = 100'000;
    static constexpr qsizetype MaxInstructionUnits = 4096;
    /// So many skipped groups without a closing brace are left again; each costs a look at the
    /// whole rest of the file.
    static constexpr int MaxUnclosedSkips = 64;

    // Handlers: the token, and the value of the control word's row in the table.

    // Text
    void character(const RtfToken& token, int unit);
    void unicode(const RtfToken& token, int);
    void setUnicodeSkip(const RtfToken& token, int);
    void lineEnd(const RtfToken& token, int);
    /// A line end only where the line has text.
    void breakLine(const RtfToken& token, int);
    void cellEnd(const RtfToken& token, int);
    void rowEnd(const RtfToken& token, int);

    // Formats
    template<bool RtfCharacter::*Member, RtfProperty Property>
    void toggle(const RtfToken& token, int) {
        m_group.formats.character.*Member = isOn(token);
        given(Property);
    }
    void endUnderline(const RtfToken& token, int);
    void setDeleted(const RtfToken& token, int);
    void plain(const RtfToken& token, int);
    void setFont(const RtfToken& token, int);
    void setSize(const RtfToken& token, int);
    void setColor(const RtfToken& token, int);
    void setHighlight(const RtfToken& token, int);
    void setShading(const RtfToken& token, int);
    void resetParagraph(const RtfToken& token, int);
    void align(const RtfToken& token, int alignment);
    void setDirection(const RtfToken& token, int direction);
    void setLeftOffset(const RtfToken& token, int);
    void setFirstLineOffset(const RtfToken& token, int);

    // The document and its tables
    void setDocumentCodePage(const RtfToken& token, int codePage);
    void setAnsiCodePage(const RtfToken& token, int);
    void setDefaultFont(const RtfToken& token, int);
    void setFontCharset(const RtfToken& token, int);
    void setFontCodePage(const RtfToken& token, int);
    /// Component 0 is red, 1 green, 2 blue.
    void setColorComponent(const RtfToken& token, int component);
    void style(const RtfToken& token, int kind);
    /// Styles of tables and sections, which have no place in a script.
    void otherStyle(const RtfToken& token, int);
    void setBasedOn(const RtfToken& token, int);

    // Destinations
    void enter(const RtfToken& token, int destination);
    void skip(const RtfToken& token, int omission);
    void enterObjectResult(const RtfToken& token, int);
    /// A file's name, in a group of its own; the sign behind the group stands for its picture.
    void skipAttachment(const RtfToken& token, int);
    void enterUnicodeAlternative(const RtfToken& token, int);
    void enterLabel(const RtfToken& token, int);
    void beginField(const RtfToken& token, int);
    void enterFieldResult(const RtfToken& token, int);

private:
    [[nodiscard]] static bool isOn(const RtfToken& token) {
        return !token.hasParameter || token.parameter != 0;
    }
    void given(RtfProperty property) {
        m_group.formats.given |= property;
        m_formatStale = true;
    }
    void rememberTextFont();

    [[nodiscard]] bool readHeader();
    void follow(const RtfToken& token);
    /// Whether the token is the sign of the attachment whose group ended before it, and no more;
    /// the sign goes from one that is more.
    [[nodiscard]] bool isAttachmentSign(RtfToken& token);
    /// Whether the token is the star of a group whose text is not shown, without its backslash.
    [[nodiscard]] bool isBareStar(const RtfToken& token) const;
    /// Whether the token stands for a character that a \u before it has replaced.
    [[nodiscard]] bool isReplaced(RtfToken& token);

    void openGroup();
    void closeGroup();
    /// What the end of a group means for the destination that began in it.
    void endDestination(const RtfGroup& closed);
    void endStyle(const RtfGroup& closed);
    void endFieldInstruction();

    /// Paragraphs in a table of the header mean that its closing brace is missing: without this,
    /// one lost brace would swallow the whole script.
    void leaveUnclosedTable(bool evenStyleSheet);
    /// Passes over the rest of the group. Where that takes the last braces of the document along,
    /// its own brace is missing: then it ends where paragraphs begin, and the script is kept.
    void skipGroup();

    void word(const RtfToken& token);
    void symbol(unsigned char byte);
    void asciiText(std::string_view text);
    void bodyText(std::string_view text);
    /// Bytes that stand in the file as they are. Behind a mark of UTF-8 an editor has saved the
    /// file anew, and these are UTF-8 whatever the fonts say.
    void highBytes(std::string_view bytes);
    void byte(unsigned char byte);
    void decode(unsigned char byte);
    void put(char16_t unit);
    /// A byte in a symbol font: its sign where Unicode has it, in the font of the text around it,
    /// for the symbol font is on few machines and has other pictures at the sign's own number.
    void putSign(unsigned char byte);
    void dropHalfCharacter();

    [[nodiscard]] bool inBody() const { return m_group.destination == RtfDestination::Body; }
    [[nodiscard]] bool isHidden() const {
        return m_group.formats.character.hidden || m_group.formats.character.deleted;
    }
    [[nodiscard]] CodePage* codePage(int number);
    [[nodiscard]] CharacterFormat formatIn(const QString& fontName) const;
    /// Brings the builder and m_run up to the formats in effect.
    void refreshFormat();

    RtfTokenizer m_tokenizer;
    RtfOmissions m_omissions;
    RtfFragmentBuilder m_builder;
    CodePages m_codePages;
    RtfFontTable m_fonts;
    RtfColorTable m_colors;
    RtfStyleSheet m_styles;

    RtfGroup m_group;
    std::vector<RtfGroup> m_outerGroups;
    bool m_finished = false;
    /// Closing braces without a group, from here to the end; -1 until it matters.
    int m_strayClosings = -1;

    bool m_utf8Mark = false;
    int m_documentCodePage = CodePages::Windows1252;
    bool m_ansiCodePageGiven = false;

    /// Nothing but \* has come since the brace that opened the group: only there does a word say
    /// what its group is for. Elsewhere it is a stray one, and what follows it is text.
    bool m_atGroupStart = false;
    bool m_ignorable = false;
    int m_unclosedSkips = 0;
    int m_unitsToSkip = 0;
    bool m_attachmentBefore = false;

    /// What the current font means for the text, kept while the formats stay.
    struct Run final {
        RtfCharacter character;
        CodePage* codePage = nullptr;
        SymbolSet symbols = SymbolSet::None;
        int textFont = RtfCharacter::DefaultFont;

        [[nodiscard]] bool hasSigns() const {
            return symbols != SymbolSet::None && symbols != SymbolSet::Unknown;
        }
    };
    Run m_run;
    bool m_formatStale = true;

    /// Bytes of a character whose end has not come yet.
    std::string m_halfCharacter;
    CodePage* m_halfCharacterPage = nullptr;

    struct StyleRow final {
        RtfStyleSheet::Kind kind = RtfStyleSheet::Kind::Paragraph;
        int number = 0;
        int basedOn = RtfStyleSheet::NoStyle;
        bool numbered = false;
        bool ofText = true;
    };
    StyleRow m_style;

    QString m_instruction;
    bool m_resultReplaced = false;
};

} // namespace velmora
