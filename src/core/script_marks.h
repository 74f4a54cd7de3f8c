#pragma once

#include <QChar>
#include <QStringView>

namespace velmora {

/// The markers of a script: plain characters in its text.
inline constexpr QChar BookmarkMarker = u'^';
inline constexpr QChar SelectiveBookmarkMarker = u'~';
/// Parts two stories, on a line of its own; a bookmark as well, since it begins with one.
inline constexpr QStringView StoryBreakMarker = u"^----";

} // namespace velmora
