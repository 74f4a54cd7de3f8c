#include "platform/files/disk_sync.h"

#include <cerrno>
#include <unistd.h>

#include <QString>

namespace velmora {

Outcome syncToDisk(int descriptor) {
    int result = 0;
    do {
        result = fdatasync(descriptor);
    } while (result != 0 && errno == EINTR);
    return result == 0 ? Outcome::success() : Outcome::failure(qt_error_string(errno));
}

} // namespace velmora
