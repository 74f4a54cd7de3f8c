#pragma once

#include "controllers/show_actions.h"
#include "core/session.h"

#include <vector>

namespace velmora {

/// What devices did to a show.
class RecordedActions final : public ShowActions {
public:
    explicit RecordedActions(Session& session) : m_session(session) {}

    void Picture1_KeyDown(int& keyCode, int&) override { keys.push_back(keyCode); }
    void setSpeed(double scrollSpeed) override { m_session.settings.ScrollSpeed = scrollSpeed; }

    std::vector<int> keys;

private:
    Session& m_session;
};

} // namespace velmora
