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

    void addParagraphs(qint64 count) { m_bytes += static_cast<double>(count) * BytesPerParagraph; }
    void addRun() { m_bytes += BytesPerRun; }
    void addFormat() { m_bytes += BytesPerFormat; }
    void addUnits(qint64 count, int halfPoints) {
        m_bytes += static_cast<double>(count) *
                   (BytesPerUnit + BytesOfLinesPerUnitAndHalfPoint * halfPoints);
    }

    [[nodiscard]] bool isExceeded() const { return m_bytes > static_cast<double>(m_most); }
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
    static constexpr double BytesPerParagraph = 600;
    static constexpr double BytesPerRun = 40;
    static constexpr double BytesPerUnit = 2;
    /// The larger the letters, the fewer of them share a line, which is kept too.
    static constexpr double BytesOfLinesPerUnitAndHalfPoint = 0.09;
    static constexpr double BytesPerFormat = 2'500;

private:
    qint64 m_most;
    /// What a control takes up that holds nearly nothing, fonts included.
    double m_bytes = 10.0 * MegaByte;
};

} // namespace velmora
