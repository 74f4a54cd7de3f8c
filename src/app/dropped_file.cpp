#include "app/dropped_file.h"

#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace velmora {

QString firstLocalFile(const QMimeData& data) {
    const auto urls = data.urls();
    for (const QUrl& url : urls) {
        if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isFile()) {
            return url.toLocalFile();
        }
    }
    return {};
}

} // namespace velmora
