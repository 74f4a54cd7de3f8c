#include "platform/rich_text/rtf_omissions.h"

#include "platform/rich_text/rtf_control_words.h"
#include "platform/rich_text/rtf_tokenizer.h"

#include <vector>

namespace velmora {

namespace {

/// Looks for words and pictures in a group that is not read.
class Search final {
public:
    /// Whether text counts outside of text boxes: in a shape it names the shape's properties.
    explicit Search(bool textCounts) { m_textCounts.push_back(textCounts); }

    void follow(const RtfToken& token) {
        switch (token.kind) {
        case RtfTokenKind::GroupStart:
            m_textCounts.push_back(m_textCounts.back());
            break;
        case RtfTokenKind::GroupEnd:
            if (m_textCounts.size() > 1) {
                m_textCounts.pop_back();
            }
            break;
        case RtfTokenKind::Word:
            word(token.text);
            break;
        case RtfTokenKind::Symbol:
            m_textCounts.back() = m_textCounts.back() && token.byte != '*';
            break;
        case RtfTokenKind::Text:
            m_words = m_words || (m_textCounts.back() &&
                                  token.text.find_first_not_of(" \t") != std::string_view::npos);
            break;
        case RtfTokenKind::Hex:
        case RtfTokenKind::HighBytes:
            m_words = m_words || m_textCounts.back();
            break;
        case RtfTokenKind::Binary:
        case RtfTokenKind::End:
            break;
        }
    }

    [[nodiscard]] bool hasWords() const { return m_words; }
    [[nodiscard]] bool hasPicture() const { return m_picture; }

private:
    void word(std::string_view name) {
        if (name == "shptxt" || name == "dptxbxtext") {
            m_textCounts.back() = true;
        } else if (name == "u") {
            m_words = m_words || m_textCounts.back();
        } else if (const RtfControlWord* row = findRtfControlWord(name);
                   row && row->handler == &RtfInterpreter::skip) {
            m_textCounts.back() = false;
            m_picture = m_picture || name == "pict";
        }
    }

    std::vector<bool> m_textCounts;
    bool m_words = false;
    bool m_picture = false;
};

Search searched(QByteArrayView group, bool textCounts) {
    Search search(textCounts);
    RtfTokenizer tokens(group);
    for (RtfToken token = tokens.next(); token.kind != RtfTokenKind::End && !search.hasWords();
         token = tokens.next()) {
        search.follow(token);
    }
    return search;
}

} // namespace

void countOmission(RtfOmissions& omissions, RtfOmission kind, QByteArrayView group) {
    const auto countFilled = [group](int& counter) {
        const Search found = searched(group, true);
        counter += found.hasWords() || found.hasPicture() ? 1 : 0;
    };
    switch (kind) {
    case RtfOmission::None:
        break;
    case RtfOmission::HeaderOrFooter:
        countFilled(omissions.headersAndFooters);
        break;
    case RtfOmission::Footnote:
        countFilled(omissions.footnotes);
        break;
    case RtfOmission::Comment:
        countFilled(omissions.comments);
        break;
    case RtfOmission::Picture:
        ++omissions.pictures;
        break;
    case RtfOmission::Object:
        ++omissions.objects;
        break;
    case RtfOmission::Shape: {
        const Search found = searched(group, false);
        omissions.textBoxes += found.hasWords() ? 1 : 0;
        omissions.pictures += !found.hasWords() && found.hasPicture() ? 1 : 0;
        break;
    }
    }
}

} // namespace velmora
