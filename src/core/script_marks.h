#pragma once

#include "platform/drawing/hidden_marks.h"

#include <QStringView>

namespace velmora {

/// Parts two stories, on a line of its own; a bookmark as well, since it begins with one. The
/// markers themselves are defined where lines are drawn, which leaves them out.
inline constexpr QStringView StoryBreakMarker = u"^----";
static_assert(StoryBreakMarker[0] == BookmarkMarker);

} // namespace velmora
