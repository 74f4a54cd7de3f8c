#pragma once

#include <QString>

namespace velmora {

/// Keeps the machine awake and its displays lit while a show runs.
class SleepInhibitor {
public:
    virtual ~SleepInhibitor() = default;
    /// Screen saver, blanking and sleep are held back from now on. reason is for the user, in the
    /// desktop's own windows. Returns at once; where the desktop has no such service nothing
    /// happens. A second call changes nothing.
    virtual void inhibit(const QString& reason) = 0;
    /// Undoes it, at once too. The end of the process does the same, whatever ended it.
    virtual void release() = 0;
};

} // namespace velmora
