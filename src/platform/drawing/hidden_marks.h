#pragma once

#include <QChar>

namespace velmora {

/// Characters that stand in a script's text for its operator alone: a drawn line closes up over
/// them.
inline constexpr QChar BookmarkMarker = u'^';
inline constexpr QChar SelectiveBookmarkMarker = u'~';

} // namespace velmora
