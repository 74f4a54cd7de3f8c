#include "core/app_folder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace velmora {
namespace {

TEST(AppFolder, IsTheProgramsOwnFolderWhereTheUserMayKeepFiles) {
    const QTemporaryDir own;
    EXPECT_EQ(appFolderFor(own.path(), QStringLiteral("/config")),
              own.path() + QStringLiteral("/"));
    EXPECT_EQ(scriptsFolderIn(own.path() + QStringLiteral("/")),
              own.path() + QStringLiteral("/Scripts/"));
}

TEST(AppFolder, IsTheUsersConfigurationForAnInstalledProgram) {
    for (const char16_t* folder : {u"/usr/bin", u"/usr/local/bin/", u"/opt/velmora/bin"}) {
        EXPECT_EQ(appFolderFor(QString::fromUtf16(folder), QStringLiteral("/home/x/.config")),
                  u"/home/x/.config/velmora/");
    }
    EXPECT_EQ(appFolderFor(QStringLiteral("/no/such/folder"), QStringLiteral("/c/")),
              u"/c/velmora/");
}

} // namespace
} // namespace velmora
