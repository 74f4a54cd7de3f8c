#include "platform/rich_text/long_words.h"

#include <QTextBoundaryFinder>

namespace velmora {

namespace {

/// After these a line always may break; about everything else the boundary finder is asked.
bool isBlank(QChar character) {
    return character == u' ' || character == u'\t' || character == QChar::LineSeparator;
}

} // namespace

LongWords::LongWords(const QString& text) {
    const int length = static_cast<int>(text.size());
    int begin = 0;
    for (int i = 0; i <= length; ++i) {
        if (i < length && !isBlank(text[i])) {
            continue;
        }
        if (i - begin > MaxWordLength) {
            addStretches(text, begin, i);
        }
        begin = i + 1;
    }
}

/// Text without blanks may still break, as Chinese does nearly everywhere.
void LongWords::addStretches(const QString& text, int begin, int end) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Line, text.constData() + begin, end - begin);
    int from = begin;
    while (from < end) {
        const auto boundary = finder.toNextBoundary();
        const int to = boundary < 0 ? end : begin + static_cast<int>(boundary);
        if (to - from > MaxWordLength) {
            m_stretches.push_back({from, to});
        }
        from = to;
    }
}

bool LongWords::holds(int position) {
    while (m_next < m_stretches.size() && m_stretches[m_next].end - MaxWordLength <= position) {
        ++m_next;
    }
    return m_next < m_stretches.size() && m_stretches[m_next].begin <= position;
}

} // namespace velmora
