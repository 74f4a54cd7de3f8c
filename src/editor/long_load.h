#pragma once

#include "platform/progress.h"

#include <cstdint>

namespace velmora {

class EditorHost;
class Session;
struct RichTextFragment;

/// Whether a text would take the editor more than a moment, so that somebody should watch.
bool takesLong(const RichTextFragment& text);

/// Watches the work of a load. After its first second it shows how far the work is, with a way to
/// cancel it, and lets the windows live; a load that is over sooner is never interrupted.
class LongLoad final {
public:
    LongLoad(Session& session, EditorHost& host);

    /// For a part of the work, between two shares of the whole. Not to outlive this.
    [[nodiscard]] Progress part(double from, double to);
    [[nodiscard]] bool isCancelled() const { return m_cancelled; }

private:
    bool goesOn(double share);

    Session& m_session;
    EditorHost& m_host;
    std::int64_t m_nextLook;
    bool m_cancelled = false;
};

} // namespace velmora
