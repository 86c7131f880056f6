// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/alternatives/alternatives_forwarding_view.h"
#include "keyboard/alternatives/alternatives_table.h"
#include "keyboard/session/text_record.h"
#include "keyboard/session/typing_options.h"
#include "keyboard/session/vp_keyboard_view_controller.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vorpel {

/// The keyboard that hosts embed. Main thread only.
///
/// It has the wide set on a phone that is held sideways and is wide enough for the set's extra keys, and
/// lays a new width out from scratch. A letter typed while shift is held ends the shift gesture, and so does
/// a finger that leaves the shift key. Only two taps on shift itself lock it.
///
/// It keeps a record of the text before the cursor, as fields answer late or not at all, and replaces no
/// word of which it is not sure. What else it does better is up to its options.
class VorpelKeyboardViewController : public VPKeyboardViewController, private AlternativesSource {
public:
    /// Below this width, in points, the wide set's extra keys find no room.
    static constexpr double LEAST_WIDE_WIDTH = 606;

    static std::unique_ptr<VorpelKeyboardViewController> create(platform::Platform& platform,
                                                                const TypingOptions& options = {});

    [[nodiscard]] const TypingOptions& options() const { return options_; }

    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewDidLayoutSubviews() override;
    void keyPressedHelper(ui::Control& sender) override;
    void setupKeys() override;
    void shiftDoubleTapped(ui::Control& sender) override;
    void setShiftState(ShiftState state) override;

    void textDidChange() override;
    void selectionDidChange() override;
    void shiftTheCursorLeft() override;
    void shiftTheCursorRight() override;

    void keyPressed(const Key& key, double firstDate, ui::Point position) override;
    void handleAutoPeriod(const Key& key) override;
    void backspaceDown(ui::Control& sender) override;
    void wordTapped(const std::string& word, int tag) override;
    void emoctionSelectedSE(const std::string& emoji) override;
    void switchSettingsStateWithValues(bool on, const std::string& currWord, const std::string& prevWord,
                                       ui::Point touchPoint) override;
    void checkTheCurrentWord(ui::Point touchPoint) override;
    void autoCorrectWord() override;
    void deleteAndEnterWord(const std::string& word, const std::string& correctword) override;
    void insertWordForFont(const std::string& word) override;
    [[nodiscard]] std::string getCurrentWord() const override;

protected:
    explicit VorpelKeyboardViewController(platform::Platform& platform, const TypingOptions& options = {})
        : VPKeyboardViewController(platform), options_(options), alternatives_(platform.bundle) {}

    std::unique_ptr<ForwardingView> makeForwardingView() override;
    void selectPageForField() override;
    void inputChanged() override;
    void insertText(const std::string& text) override;
    void deleteBackward() override;
    [[nodiscard]] std::optional<std::string> textBeforeInput() const override;

    [[nodiscard]] WordServiceFactory makeWordServiceFactory() override;
    [[nodiscard]] WordSplitting wordSplitting() const override;
    [[nodiscard]] LabelPlan labelPlan() const override;
    [[nodiscard]] WordCase wordCaseOf(const std::string& word) const override;
    [[nodiscard]] std::vector<std::optional<KeyOffset>> keyOffsetsFor(const std::string& word) const override;
    [[nodiscard]] bool keepsEveryLetter() const override { return true; }
    [[nodiscard]] bool mayCorrect(const std::string& word) const override;
    void showAnswer(const std::string& word, LabelTitles titles) override;

private:
    /// Whose the blank before the cursor is.
    enum class Blank { Typed, Correction, Suggestion };

    struct Correction {
        std::string typed;
        std::string entered;  ///< with what the key added
    };

    struct KeptWord {
        std::string word;
        std::string textBefore;
    };

    // Alternatives of a held key.
    [[nodiscard]] std::optional<AlternativesOffer> offerOf(const KeyboardKey& key) override;
    void enterAlternative(const std::string& text) override;
    void followOffer();

    void readField();
    void cursorMoved(int characters);
    void replaceKeptLetters(const std::string& letters, const std::string& word);
    void beginElsewhere();
    void forgetCorrection();
    [[nodiscard]] bool hasSelection() const;
    [[nodiscard]] bool isSureOf(const std::string& word) const;
    [[nodiscard]] bool replacesBlank(const Key& key, Blank blank);
    void finishCorrection(const Key& key);
    bool undoCorrection();
    [[nodiscard]] std::optional<KeyOffset> offsetOf(const Key& key, ui::Point position) const;

    TypingOptions options_;
    AlternativesTable alternatives_;
    TextRecord record_;
    std::optional<KeyOffset> pressedOffset_;    // of the letter that is being entered
    std::string correctedWord_;                 // what the pending correction is for
    std::optional<Correction> lastCorrection_;  // nothing has happened since
    std::vector<KeptWord> keptWords_;           // whose corrections were taken back
    Blank blank_ = Blank::Typed;
    bool isCorrecting_ = false;
    bool isTyping_ = false;  // the field is being written to
    double laidOutWidth_ = 0;
    const Key* lastDown_ = nullptr;
    const Key* downBefore_ = nullptr;  // compared only: its model may be gone
};

}  // namespace vorpel
