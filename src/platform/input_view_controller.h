// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/device.h"

#include <string>

namespace vorpel::platform {

class TextDocumentProxy;
struct Platform;

/// What a keyboard asks of the program that shows it. Main thread only.
class InputHost {
public:
    virtual ~InputHost() = default;

    /// The field that has the focus.
    [[nodiscard]] virtual TextDocumentProxy& textDocumentProxy() = 0;
    [[nodiscard]] virtual InterfaceOrientation interfaceOrientation() const = 0;
    virtual void dismissKeyboard() = 0;

    /// To the next of the keyboards that the person has set up.
    virtual void advanceToNextInputMode() = 0;

    /// "en" or "ar".
    virtual void setPrimaryLanguage(const std::string& language) = 0;

    /// In points; the host gives the keyboard this height as soon as it can.
    virtual void setHeight(double height) = 0;
};

/// What the program that shows a keyboard tells it of. Every operation may be overridden; here they do
/// nothing. Main thread only.
class InputViewController {
public:
    /// The platform must outlive the controller.
    explicit InputViewController(Platform& platform) : platform_(platform) {}
    virtual ~InputViewController() = default;
    InputViewController(const InputViewController&) = delete;
    InputViewController& operator=(const InputViewController&) = delete;

    virtual void viewDidLoad() {}
    virtual void viewWillAppear() {}
    virtual void viewDidAppear() {}
    virtual void viewWillDisappear() {}

    /// The bounds of the view are set, for the first time or anew.
    virtual void viewDidLayoutSubviews() {}
    virtual void didRotate() {}
    virtual void traitCollectionDidChange() {}

    /// The field's text or cursor was changed by anybody but this keyboard.
    virtual void textWillChange() {}
    virtual void textDidChange() {}
    virtual void selectionWillChange() {}
    virtual void selectionDidChange() {}

protected:
    [[nodiscard]] Platform& platform() const { return platform_; }

private:
    Platform& platform_;
};

}  // namespace vorpel::platform
