#pragma once

#include <QString>

namespace velmora {

/// The folder of the program's own files, with a trailing "/".
/// The executable's folder, when it already holds the settings file or is one that the user may
/// write to and that is no system folder: so the program can be carried along with its settings.
/// Otherwise "velmora/" in the user's configuration folder. Both arguments are absolute folders;
/// nothing is created.
[[nodiscard]] QString appFolderFor(const QString& executableFolder, const QString& configFolder);

/// The same for this process; creates the folder in the user's configuration where that is the one.
[[nodiscard]] QString findAppFolder();

/// "Scripts/" in the AppFolder.
[[nodiscard]] QString scriptsFolderIn(const QString& appFolder);

} // namespace velmora
