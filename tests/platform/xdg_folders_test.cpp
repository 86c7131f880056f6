// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/xdg_folders.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace vorpel::platform {
namespace {

/// For the rest of the program, in which nothing else asks for these.
void setVariable(const char* name, const char* value) {
    value ? ::setenv(name, value, 1) : ::unsetenv(name);
}

TEST(XdgFolders, FollowTheRules) {
    struct Row {
        const char* xdg;
        const char* home;
        std::optional<std::string> configuration, data;
    };
    const std::vector<Row> rows = {
        {"/etc/x", "/home/a", "/etc/x/vorpel", "/etc/x/vorpel"},
        {"/etc/x/", nullptr, "/etc/x/vorpel", "/etc/x/vorpel"},
        {nullptr, "/home/a", "/home/a/.config/vorpel", "/home/a/.local/share/vorpel"},
        {"", "/home/a", "/home/a/.config/vorpel", "/home/a/.local/share/vorpel"},
        {"x/y", "/home/a", "/home/a/.config/vorpel", "/home/a/.local/share/vorpel"},
        {nullptr, nullptr, std::nullopt, std::nullopt},
        {"x", "home/a", std::nullopt, std::nullopt},
    };
    for (const Row& row : rows) {
        setVariable("XDG_CONFIG_HOME", row.xdg);
        setVariable("XDG_DATA_HOME", row.xdg);
        setVariable("HOME", row.home);
        EXPECT_EQ(xdgConfigurationFolder("vorpel"), row.configuration);
        EXPECT_EQ(xdgDataFolder("vorpel"), row.data);
    }
}

}  // namespace
}  // namespace vorpel::platform
