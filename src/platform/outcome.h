#pragma once

#include <QString>

#include <utility>

namespace velmora {

/// The result of an operation that can fail for a reason that the user should read.
/// A failure always carries a reason: a sentence without the file's name, which the caller adds.
class [[nodiscard]] Outcome final {
public:
    static Outcome success() { return Outcome(QString(), true); }
    static Outcome failure(QString reason) { return Outcome(std::move(reason), false); }

    explicit operator bool() const { return m_ok; }
    /// Empty on success.
    const QString& reason() const { return m_reason; }

private:
    Outcome(QString reason, bool ok) : m_reason(std::move(reason)), m_ok(ok) {}

    QString m_reason;
    bool m_ok;
};

} // namespace velmora
