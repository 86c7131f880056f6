// SPDX-License-Identifier: Apache-2.0
#include "commands.h"
#include "keyboard/key_finder.h"
#include "keyboard/keyboard_stage.h"
#include "text/diagnostics.h"

#include <stdexcept>
#include <string>

namespace vorpel::cli {

int renderPage(const RenderArguments& arguments) {
    wordengine::Diagnostics::setStream(nullptr);
    KeyboardStage stage(arguments.stage);
    if (arguments.page >= 0) stage.controller().setCurrentMode(arguments.page);
    if (stage.controller().keyboard().pages.size() <=
            static_cast<std::size_t>(stage.controller().currentMode()) ||
        stage.controller().plane().layout->modelToView().empty()) {
        throw std::runtime_error("there is no page " + std::to_string(arguments.page));
    }
    if (arguments.shift == "on") stage.controller().setShiftState(ShiftState::Enabled);
    if (arguments.shift == "locked") stage.controller().setShiftState(ShiftState::Locked);
    if (arguments.emojiPage >= 0) {
        stage.controller().launchEmoji();
        stage.controller().getSecondEmoction_Keyboardview().setCurrentIndex(arguments.emojiPage);
    }
    if (arguments.settings) stage.controller().toggleSettings(false);
    if (!arguments.press.empty()) {
        const Key* const key =
            findKey(stage.controller().plane(), stage.controller().currentMode(), arguments.press);
        if (!key) throw std::runtime_error("no key of the page shows or types \"" + arguments.press + "\"");
        stage.window().touchDown(1, stage.frameOf(*key).center());
        if (arguments.hold) stage.advance(AlternativesForwardingView::HOLD);
    }
    stage.savePicture(arguments.out);
    return 0;
}

}  // namespace vorpel::cli
