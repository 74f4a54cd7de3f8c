#include "core/app_folder.h"

#include "core/settings_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <array>

namespace velmora {

namespace {

QString withSlash(const QString& folder) {
    const QString path = QDir::fromNativeSeparators(folder);
    return path.endsWith(u'/') ? path : path + u'/';
}

/// Folders of installed programs: there an administrator may write, but settings do not belong.
bool isSystemFolder(const QString& folderWithSlash) {
    static constexpr std::array roots = {
        u"/bin/", u"/sbin/",           u"/usr/",      u"/opt/", u"/lib/", u"/snap/", u"/app/",
        u"/nix/", u"C:/Program Files", u"C:/Windows/"};
    return std::any_of(roots.begin(), roots.end(), [&](const char16_t* root) {
        return folderWithSlash.startsWith(QStringView(root), Qt::CaseInsensitive);
    });
}

} // namespace

QString appFolderFor(const QString& executableFolder, const QString& configFolder) {
    const QString own = withSlash(executableFolder);
    if (QFileInfo::exists(own + SettingsFile::fileName())) {
        return own;
    }
    if (QFileInfo(own).isWritable() && !isSystemFolder(own)) {
        return own;
    }
    return withSlash(configFolder) + QStringLiteral("velmora/");
}

QString findAppFolder() {
    const QString folder =
        appFolderFor(QCoreApplication::applicationDirPath(),
                     QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
    // A failure shows when the settings are written; until then everything works.
    QDir().mkpath(folder);
    if (folder != withSlash(QCoreApplication::applicationDirPath())) {
        // It holds the copy of an unsaved script, which is nobody else's.
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    return folder;
}

QString scriptsFolderIn(const QString& appFolder) {
    return appFolder + QStringLiteral("Scripts/");
}

} // namespace velmora
