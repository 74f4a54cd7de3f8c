#include "platform/rich_text/rtf_code_pages.h"

#include "platform/text_services/text_encoding.h"

#include <QByteArray>
#include <QStringDecoder>

#include <algorithm>
#include <iterator>

namespace velmora {

namespace {

struct CodePageName final {
    int number;
    /// As the converters of the machine's Unicode library know it.
    const char* converter;
};

constexpr CodePageName SingleByteNames[] = {
    {437, "IBM437"},        {708, "ISO-8859-6"},      {720, "IBM720"},
    {737, "IBM737"},        {775, "IBM775"},          {850, "IBM850"},
    {852, "IBM852"},        {855, "IBM855"},          {857, "IBM857"},
    {858, "IBM00858"},      {860, "IBM860"},          {861, "IBM861"},
    {862, "IBM862"},        {863, "IBM863"},          {864, "IBM864"},
    {865, "IBM865"},        {866, "IBM866"},          {869, "IBM869"},
    {874, "windows-874"},   {1250, "windows-1250"},   {1251, "windows-1251"},
    {1253, "windows-1253"}, {1254, "windows-1254"},   {1255, "windows-1255"},
    {1256, "windows-1256"}, {1257, "windows-1257"},   {1258, "windows-1258"},
    {10000, "macintosh"},   {10006, "x-mac-greek"},   {10007, "x-mac-cyrillic"},
    {10029, "x-mac-ce"},    {10081, "x-mac-turkish"}, {20866, "KOI8-R"},
    {21866, "KOI8-U"},      {28591, "ISO-8859-1"},    {28592, "ISO-8859-2"},
    {28595, "ISO-8859-5"},  {28597, "ISO-8859-7"},    {28599, "ISO-8859-9"},
    {28605, "ISO-8859-15"},
};

// The code pages of the older Macintosh systems differ from their neighbours here only in a few
// signs that no text uses.
constexpr CodePageName DoubleByteNames[] = {
    {932, "windows-932"},   {936, "windows-936"},   {949, "windows-949"},   {950, "windows-950"},
    {10001, "windows-932"}, {10002, "windows-950"}, {10003, "windows-949"}, {10008, "windows-936"},
};

constexpr int Utf8Number = 65001;

struct CharsetRow final {
    int charset;
    int codePage;
};

constexpr CharsetRow Charsets[] = {
    {0, 1252},   {77, 10000}, {78, 10001}, {79, 10003}, {80, 10008},  {81, 10002},
    {85, 10006}, {86, 10081}, {88, 10029}, {89, 10007}, {128, 932},   {129, 949},
    {134, 936},  {136, 950},  {161, 1253}, {162, 1254}, {163, 1258},  {177, 1255},
    {178, 1256}, {179, 1256}, {180, 1256}, {181, 1255}, {186, 1257},  {204, 1251},
    {222, 874},  {238, 1250}, {254, 437},  {255, 850},  {256, 10000},
};

template<std::size_t Count>
const char* converterOf(const CodePageName (&names)[Count], int number) {
    const auto* row = std::find_if(std::begin(names), std::end(names),
                                   [number](const CodePageName& n) { return n.number == number; });
    return row != std::end(names) ? row->converter : nullptr;
}

bool isListed(int number) {
    return number == Utf8Number || converterOf(DoubleByteNames, number) ||
           converterOf(SingleByteNames, number);
}

/// U+FFFD in place of what converters of old code pages say for a byte that they do not know.
char16_t known(QChar unit) {
    return unit == QChar(0x1A) ? char16_t(QChar::ReplacementCharacter) : unit.unicode();
}

} // namespace

char16_t windows1252(unsigned char byte) {
    const char16_t character = windows1252Character(byte);
    return character == byte ? char16_t{0} : character;
}

CodePage::CodePage(int number) : m_number(number) {
    if (number == Utf8Number) {
        m_kind = Kind::Utf8;
    } else if (const char* doubleByte = converterOf(DoubleByteNames, number)) {
        m_kind = Kind::DoubleByte;
        m_converterName = doubleByte;
        m_pairs.resize(0x10000);
    } else {
        m_converterName = converterOf(SingleByteNames, number);
    }
}

void CodePage::openConverter() {
    if (m_converterName) {
        m_converter = QStringDecoder(m_converterName, QStringConverter::Flag::Stateless);
        m_converterName = nullptr;
    }
}

char16_t CodePage::convert(QByteArrayView bytes) {
    openConverter();
    const QString text = m_converter.decode(bytes);
    return text.size() == 1 ? known(text.at(0)) : char16_t(QChar::ReplacementCharacter);
}

char16_t CodePage::single(unsigned char byte) {
    if (byte < 0x80) {
        return byte;
    }
    if (!m_upperKnown) {
        m_upperKnown = true;
        fillUpper();
    }
    return m_upper[byte - 0x80u];
}

void CodePage::fillUpper() {
    openConverter();
    for (std::size_t at = 0; at < m_upper.size(); ++at) {
        const auto byte = static_cast<unsigned char>(at + 0x80);
        const char text = static_cast<char>(byte);
        if (sequenceLength(byte) > 1 || m_kind == Kind::Utf8) {
            m_upper[at] = QChar::ReplacementCharacter;
        } else if (m_converter.isValid()) {
            m_upper[at] = convert(QByteArrayView(&text, 1));
        } else {
            m_upper[at] = byte >= 0xA0 ? byte : windows1252(byte);
        }
    }
}

int CodePage::sequenceLength(unsigned char first) const {
    if (m_kind == Kind::SingleByte || first < 0x80) {
        return 1;
    }
    if (m_kind == Kind::Utf8) {
        return first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC0 ? 2 : 1;
    }
    const bool japanese = m_number == 932 || m_number == 10001;
    const bool single =
        first == 0x80 || first == 0xFF || (japanese && first >= 0xA0 && first < 0xE0);
    return single ? 1 : 2;
}

bool CodePage::isTrail(unsigned char byte) const {
    if (m_kind == Kind::Utf8) {
        return (byte & 0xC0) == 0x80;
    }
    return byte >= 0x40 && byte != 0x7F && byte != 0xFF;
}

char16_t CodePage::pair(unsigned char first, unsigned char second) {
    char16_t& character = m_pairs[static_cast<std::size_t>(first) * 256 + second];
    if (character == 0) {
        const char bytes[] = {static_cast<char>(first), static_cast<char>(second)};
        character = convert(QByteArrayView(bytes, 2));
    }
    return character;
}

CodePage* CodePages::page(int number) {
    // Whatever is not known shares one page, so a file cannot ask for thousands of them.
    const int listed = isListed(number) ? number : Windows1252;
    std::unique_ptr<CodePage>& page = m_pages[listed];
    if (!page) {
        page = std::make_unique<CodePage>(listed);
    }
    return page.get();
}

int CodePages::ofCharset(int charset) {
    const auto* row = std::find_if(std::begin(Charsets), std::end(Charsets),
                                   [charset](const CharsetRow& r) { return r.charset == charset; });
    return row != std::end(Charsets) ? row->codePage : 0;
}

} // namespace velmora
