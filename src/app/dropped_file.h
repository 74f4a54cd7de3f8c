#pragma once

#include <QString>

class QMimeData;

namespace velmora {

/// Path of the first file of this machine among what is dragged; empty for none.
[[nodiscard]] QString firstLocalFile(const QMimeData& data);

} // namespace velmora
