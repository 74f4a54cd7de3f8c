#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace velmora {

/// Reads the items of a list of values, one after the other, as the settings file holds them.
///
/// An item ends at a comma or a line end, a number also at a blank; blanks in front of it are
/// skipped. So a line is one item unless a comma parts it, and an empty line is an empty item.
/// A text in double quotes may hold commas, line ends and, doubled, quotes.
class ListReader final {
public:
    explicit ListReader(QStringView text) : m_text(text) {}

    /// The next item as a number, 0 when it is empty. No value at the end of the list, or when the
    /// item is no number.
    std::optional<double> nextNumber();
    /// The next item as text. No value at the end of the list.
    std::optional<QString> nextText();

private:
    [[nodiscard]] bool atEnd() const { return m_at >= m_text.size(); }
    [[nodiscard]] bool atDelimiter() const;
    void skipBlanks();
    /// Steps over one comma or one line end, if one is next.
    void skipDelimiter();
    QString quotedText();

    QStringView m_text;
    qsizetype m_at = 0;
};

/// The text as an item that ListReader::nextText reads back: in double quotes where it has to be,
/// else as it stands.
[[nodiscard]] QString textItem(const QString& text);

} // namespace velmora
