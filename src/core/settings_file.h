#pragma once

#include "core/settings.h"
#include "platform/outcome.h"

#include <QString>

namespace velmora {

/// The settings file: 46 values in a fixed order, one a line, without keys.
/// Owned by the application, which loads it once at start and saves it once at exit.
class SettingsFile final {
public:
    enum class LoadResult {
        /// There is no file: defaults.
        FirstRun,
        Read,
        /// The file could not be read to its end: defaults, but for the caption port's fields that
        /// had been read.
        Damaged
    };

    /// screenPixelsHigh is that of display 1, from which a default follows.
    SettingsFile(QString appFolder, double screenPixelsHigh);

    /// Fills settings whatever the file is like, limits them and derives what follows from them.
    LoadResult load(Settings& settings);

    /// Replaces the file. One that load() found damaged is kept beside it with ".damaged" added to
    /// its name, before anything is written. A failure leaves the file as it was.
    Outcome save(const Settings& settings);

    [[nodiscard]] QString path() const;
    [[nodiscard]] static QString fileName() { return QStringLiteral("velmora.ini"); }

private:
    void keepDamagedFile() const;

    QString m_appFolder;
    double m_screenPixelsHigh = 0;
    bool m_damaged = false;
};

/// The settings of a first run, limited and derived.
[[nodiscard]] Settings defaultSettings(const QString& appFolder, double screenPixelsHigh);

/// Derives RowStep and SpeedControllerInUse from what they depend on.
void deriveSettings(Settings& settings);

/// Brings what a file may hold wrongly into range and derives RowStep and SpeedControllerInUse.
/// MirrorMode, ScrollSpeed and ArrowPosition stay: their users limit them.
void limitSettings(Settings& settings);

} // namespace velmora
