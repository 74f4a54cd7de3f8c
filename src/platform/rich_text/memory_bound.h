#pragma once

#include "platform/outcome.h"

#include <QString>

namespace velmora {

/// How much memory the text of a file may take up in a control, and an estimate of how much it
/// does, which errs on the high side. The figures are those of a text document with its layout;
/// bench/giant_bench.cpp measures them.
class MemoryBound final {
public:
    explicit MemoryBound(qint64 fileBytes) : m_most(TimesTheFile * fileBytes + Extra) {}

    void addParagraphs(qint64 count) { m_bytes += count * BytesPerParagraph; }
    void addRun() { m_bytes += BytesPerRun; }
    void addUnits(qint64 count) { m_bytes += count * BytesPerUnit; }
    void addFormat() { m_bytes += BytesPerFormat; }

    [[nodiscard]] bool isExceeded() const { return m_bytes > m_most; }
    /// What there is to say of it.
    [[nodiscard]] Outcome failure() const {
        return Outcome::failure(
            QStringLiteral("It is too large for a script: it would take up more than %1 MB of "
                           "memory.")
                .arg(m_most / MegaByte));
    }

    static constexpr qint64 TimesTheFile = 6;
    static constexpr qint64 MegaByte = 1'000'000;
    static constexpr qint64 Extra = 100 * MegaByte;
    static constexpr qint64 BytesPerParagraph = 620;
    static constexpr qint64 BytesPerRun = 40;
    /// Twice for the text, and its part of a line.
    static constexpr qint64 BytesPerUnit = 7;
    static constexpr qint64 BytesPerFormat = 2'500;

private:
    qint64 m_most;
    qint64 m_bytes = 0;
};

} // namespace velmora
