#include "core/list_items.h"

#include "core/number_format.h"

namespace velmora {

namespace {

constexpr QChar Quote = u'"';

bool isLineEnd(QChar c) {
    return c == u'\r' || c == u'\n';
}

} // namespace

bool ListReader::atDelimiter() const {
    return atEnd() || m_text[m_at] == u',' || isLineEnd(m_text[m_at]);
}

void ListReader::skipBlanks() {
    while (!atEnd() && m_text[m_at] == u' ') {
        ++m_at;
    }
}

void ListReader::skipDelimiter() {
    if (atEnd() || !atDelimiter()) {
        return;
    }
    const bool carriageReturn = m_text[m_at] == u'\r';
    ++m_at;
    if (carriageReturn && !atEnd() && m_text[m_at] == u'\n') {
        ++m_at;
    }
}

std::optional<double> ListReader::nextNumber() {
    if (atEnd()) {
        return std::nullopt;
    }
    skipBlanks();
    const qsizetype begin = m_at;
    while (!atDelimiter() && m_text[m_at] != u' ') {
        ++m_at;
    }
    const QStringView item = m_text.sliced(begin, m_at - begin);
    skipBlanks();
    skipDelimiter();
    return item.isEmpty() ? 0.0 : readNumber(item);
}

std::optional<QString> ListReader::nextText() {
    if (atEnd()) {
        return std::nullopt;
    }
    skipBlanks();
    QString item;
    if (!atEnd() && m_text[m_at] == Quote) {
        item = quotedText();
    } else {
        const qsizetype begin = m_at;
        while (!atDelimiter()) {
            ++m_at;
        }
        item = m_text.sliced(begin, m_at - begin).toString();
    }
    skipDelimiter();
    return item;
}

QString ListReader::quotedText() {
    QString text;
    for (++m_at; !atEnd(); ++m_at) {
        if (m_text[m_at] == Quote) {
            ++m_at;
            if (atEnd() || m_text[m_at] != Quote) {
                break;
            }
        }
        text += m_text[m_at];
    }
    // What stands between the closing quote and the end of the item belongs to nothing.
    while (!atDelimiter()) {
        ++m_at;
    }
    return text;
}

QString textItem(const QString& text) {
    const bool plain = !text.contains(u',') && !text.contains(u'\r') && !text.contains(u'\n') &&
                       !text.startsWith(u' ') && !text.startsWith(Quote);
    if (plain) {
        return text;
    }
    QString quoted = text;
    return Quote + quoted.replace(Quote, QStringLiteral("\"\"")) + Quote;
}

} // namespace velmora
