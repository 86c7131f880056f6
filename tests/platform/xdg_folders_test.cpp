// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/xdg_folders.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace vorpel::platform {
namespace {

/// Sets a variable, or takes it away, and puts it back as it was.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name) {
        if (const char* const before = std::getenv(name)) before_ = before;
        set(value);
    }
    ~Variable() { set(before_ ? before_->c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    void set(const char* value) const {
        if (value) {
            ::setenv(name_, value, 1);
        } else {
            ::unsetenv(name_);
        }
    }
    const char* name_;
    std::optional<std::string> before_;
};

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
        {"~/x", "/home/a", "/home/a/.config/vorpel", "/home/a/.local/share/vorpel"},
        {nullptr, nullptr, std::nullopt, std::nullopt},
        {nullptr, "", std::nullopt, std::nullopt},
        {"x", "home/a", std::nullopt, std::nullopt},
    };
    for (const Row& row : rows) {
        const Variable configuration("XDG_CONFIG_HOME", row.xdg);
        const Variable data("XDG_DATA_HOME", row.xdg);
        const Variable home("HOME", row.home);
        EXPECT_EQ(xdgConfigurationFolder("vorpel"), row.configuration);
        EXPECT_EQ(xdgDataFolder("vorpel"), row.data);
    }
}

}  // namespace
}  // namespace vorpel::platform
