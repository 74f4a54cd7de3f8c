#include "core/app_folder.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(AppFolder, IsTheUsersConfigurationForAnInstalledProgram) {
    for (const char16_t* folder : {u"/usr/bin", u"/usr/local/bin/", u"/opt/velmora/bin"}) {
        EXPECT_EQ(appFolderFor(QString::fromUtf16(folder), u"/home/x/.config"_qs),
                  u"/home/x/.config/velmora/");
    }
    EXPECT_EQ(appFolderFor(u"/no/such/folder"_qs, u"/c/"_qs), u"/c/velmora/");
}

} // namespace
} // namespace velmora
