// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <utility>

namespace vorpel::platform {

enum class UserInterfaceIdiom { Phone = 0, Pad = 1 };

enum class InterfaceOrientation { Portrait, Landscape };

/// What the keyboard runs on. Main thread only.
class Device {
public:
    virtual ~Device() = default;
    [[nodiscard]] virtual UserInterfaceIdiom userInterfaceIdiom() const = 0;

    /// What its maker calls it.
    [[nodiscard]] virtual std::string modelName() const = 0;

    /// Of the system that runs on it, as far as the keyboard has to know: the first, where nothing is said.
    [[nodiscard]] virtual std::string systemVersion() const { return "1.0"; }
};

/// A device as its host describes it.
class PlainDevice final : public Device {
public:
    explicit PlainDevice(UserInterfaceIdiom idiom = UserInterfaceIdiom::Phone, std::string modelName = "")
        : idiom_(idiom), modelName_(std::move(modelName)) {}

    [[nodiscard]] UserInterfaceIdiom userInterfaceIdiom() const override { return idiom_; }
    [[nodiscard]] std::string modelName() const override { return modelName_; }

private:
    UserInterfaceIdiom idiom_;
    std::string modelName_;
};

}  // namespace vorpel::platform
