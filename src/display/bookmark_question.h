#pragma once

#include "display/display_traits.h"

#include <vector>

class QWidget;

namespace velmora {

class Session;

/// When a show is over: asks whether the bookmarks that the operator added, as 0-based lines in the
/// order of their adding, shall go into the script, and puts their marks there on Yes. A mirrored
/// window asks with a picture, since its operator reads the screen in a mirror. Returns where the
/// character at a position of rtb1 stands then: the marks may have broken the lines anew.
int offerBookmarks(Session& session, const std::vector<int>& inserted, Orientation face,
                   QWidget* window, int position);

} // namespace velmora
