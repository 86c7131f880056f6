// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/bundle.h"
#include "platform/device.h"
#include "platform/emoji_coverage.h"
#include "platform/input_view_controller.h"
#include "platform/notification_center.h"
#include "platform/operation_queue.h"
#include "platform/run_loop.h"
#include "platform/screen.h"
#include "platform/system_sound.h"
#include "platform/text_checker.h"
#include "platform/text_document_proxy.h"
#include "platform/user_defaults.h"
#include "platform/work_queue.h"

#include <functional>
#include <memory>

namespace vorpel::platform {

/// All that a keyboard asks of where it runs, handed to it when it is made. Nothing here is owned; all of it
/// must outlive the keyboard.
struct Platform {
    InputHost& host;
    RunLoop& runLoop;
    NotificationCenter& notificationCenter;
    UserDefaults& userDefaults;
    const Bundle& bundle;
    const Screen& screen;
    const Device& device;
    WorkQueue& globalQueue;
    std::function<std::unique_ptr<OperationQueue>()> makeOperationQueue;
    TextChecker* textChecker = nullptr;            ///< may be null: nothing is learnt
    SystemSound* systemSound = nullptr;            ///< may be null: the keys make no sound
    const EmojiCoverage* emojiCoverage = nullptr;  ///< may be null: every emoji is offered
};

}  // namespace vorpel::platform
