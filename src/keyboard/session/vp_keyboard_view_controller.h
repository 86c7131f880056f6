// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/banner/vp_suggestions_banner.h"
#include "keyboard/controller/keyboard_view_controller.h"
#include "keyboard/emoji/vp_emoticon_keyboard_view.h"
#include "keyboard/session/sentence_words.h"
#include "keyboard/session/suggestion_labels.h"
#include "keyboard/session/text_input_view.h"
#include "keyboard/session/typing_policy.h"
#include "keyboard/session/word_commit_delegate.h"
#include "keyboard/session/word_service_slot.h"
#include "platform/notification_center.h"
#include "platform/operation_queue.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vorpel {

/// A keyboard with a word service: it asks for words at every key, shows them in the bar, puts corrections
/// in, and tells the host of finished words. Sentences are split on the global queue and the word service is
/// asked on a serial queue of its own; everything else runs on the main thread, which waits for neither. A
/// service that is slow, missing or failing costs its words and nothing else.
class VPKeyboardViewController : public KeyboardViewController,
                                 public VPSuggestionsBannerDelegate,
                                 public VPEmoticonKeyboardViewDelegate {
public:
    static std::unique_ptr<VPKeyboardViewController> create(platform::Platform& platform);

    /// Waits for a request that runs.
    ~VPKeyboardViewController() override;

    /// The delegate stays the host's and must stay until another takes its place; null for none.
    void setCallBackDelegate(VorpelWordCommitDelegate* delegate) override;

    // Life cycle.

    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewDidAppear() override;
    void viewWillDisappear() override;
    void viewDidLayoutSubviews() override;
    void traitCollectionDidChange() override;
    virtual void setupInitialState();
    void keyFramesValuesChanged() override;
    virtual void setUpSpellChecker();
    virtual void removeSpellChecker();
    void ArabicClicked() override;
    void EnglishClicked() override;
    void openKeyboard(ui::View* textView) override;
    void restoreInput() override;
    void openCustom(ui::View& viewForCustom) override;
    void dismissCustom() override;
    void textDidChange() override;
    [[nodiscard]] bool shouldAutoCapitalize() const override;

    // Bar.

    std::unique_ptr<ExtraView> createBanner() override;
    void setBanner(ui::View& view) override;
    [[nodiscard]] VPSuggestionsBanner* suggestionsBanner() const;
    void wordTapped(const std::string& word, int tag) override;
    void toggleSettingsView(bool shown) override;
    void toggleSettings(bool hide) override;

    // Keys.

    void keyPressed(const Key& key, double firstDate, ui::Point position) override;
    void handleAutoPeriod(const Key& key) override;
    void backspaceDown(ui::Control& sender) override;
    void backspaceRepeatCallback() override;
    void showPopup(ui::Control& sender) override;

    // The emoji keyboard, in place of the keys.

    void launchEmojiKeyboard() override { launchEmoji(); }
    virtual void emojiClicked(ui::Control* /*sender*/) { launchEmoji(); }
    virtual void launchEmoji();
    void emoctionSelectedSE(const std::string& emoji) override;
    void dismissTheEmoction() override;
    void backspaceDownEmoction() override;
    void backspaceUpEmoction() override;

    /// Made when it is first asked for.
    VPEmoticonKeyboardView& getSecondEmoction_Keyboardview();
    [[nodiscard]] bool emojiOnShow() const;

    // Words.

    /// From every key; `touchPoint` in the view of the keys, NO_TOUCH in both where no letter was touched.
    virtual void checkTheCurrentWord(ui::Point touchPoint);
    virtual void switchSettingsStateWithValues(bool on, const std::string& currWord,
                                               const std::string& prevWord, ui::Point touchPoint);
    virtual void predictWordsFor(const std::string& word, const std::string& prevWord, ui::Point touchPoint);
    virtual void suggestWordsFor(const std::string& word, const std::string& prevWord, ui::Point touchPoint);
    virtual void setBannerWordButtonColors(bool autoCorrect);
    virtual void autoCorrectWord();
    virtual void deleteAndEnterWord(const std::string& word, const std::string& correctword);
    [[nodiscard]] virtual std::string getCurrentWord() const;

    /// The word and a blank.
    virtual void insertWordForFont(const std::string& word);

    void updateSearchString();
    [[nodiscard]] std::string searchText() const;
    void resetTheUpdateAndSearchString() override { searchString = {}; }

    /// The second label is to replace the current word at its end.
    [[nodiscard]] bool correctionPending() const { return autoCorrectCurrentSession; }

    /// What may be done with what is typed now.
    [[nodiscard]] TypingPolicy typingPolicy() const;

protected:
    explicit VPKeyboardViewController(platform::Platform& platform);
    void setUp() override;

    // How a subclass reads words. The factory is called on the serial queue, perhaps while the keyboard is
    // being destroyed: it holds on to nothing of it.
    [[nodiscard]] virtual WordServiceFactory makeWordServiceFactory();
    [[nodiscard]] virtual WordSplitting wordSplitting() const { return WordSplitting::Listed; }
    [[nodiscard]] virtual LabelPlan labelPlan() const { return LabelPlan::Fixed; }
    [[nodiscard]] virtual WordCase wordCaseOf(const std::string& word) const { return caseOf(word); }
    [[nodiscard]] virtual std::vector<std::optional<KeyOffset>> keyOffsetsFor(const std::string& word) const;

    /// Whether the word may be replaced unasked where it stands.
    [[nodiscard]] virtual bool mayCorrect(const std::string& /*word*/) const { return true; }

    /// The answer for a word has come: its labels are to be shown.
    virtual void showAnswer(const std::string& word, LabelTitles titles);

    /// No word is in view, no correction pending, and no answer on its way comes on show.
    void clearWords();

    /// As `clearWords`, and nothing is asked about sentences that are still being split.
    void forgetWords();

    // Where the output goes: the keyboard's own field while that has the input, else the host's.
    void enterText(const std::string& text);
    void deleteCharacter();
    [[nodiscard]] std::optional<std::string> sentence() const;

    static constexpr ui::Point NO_TOUCH_POINT{NO_TOUCH, NO_TOUCH};

    bool backspaceTapped = false;
    bool autoCorrectCurrentSession = false;
    bool appNotYetOpened = false;
    bool KTextInputMode = false;
    VorpelWordCommitDelegate* inputDelegate = nullptr;
    std::string searchString;

    /// The keyboard's own field; null when there is none, or it was destroyed.
    [[nodiscard]] TextInputView* currentActiveInputView() const;

    /// Another field takes the input from now on, or the same one anew.
    virtual void inputChanged();

    /// No answer to what was asked so far comes on show.
    void dropAnswers() { cleared_ = requests_; }

    /// Whether the letters of a word are kept for the host where the field says nothing of its text.
    [[nodiscard]] virtual bool keepsEveryLetter() const { return false; }

    void readInputMode();
    [[nodiscard]] bool keysAreHidden() const override;
    void updateAppearance() override;

private:
    struct Life {};

    void observeEmojiKey();
    void closeEmoji();
    void closeEmojiWithoutKey();
    void takeInputView(ui::View* textView);
    void deleteForBackspace();
    void keepLetters(const std::string& output);
    void commitKeptWord(bool atSeparatorOnly);
    void pressOther(const std::string& output, ui::Point position);
    void takeSplitSentence(unsigned check, const std::optional<std::string>& sentence,
                           const SentenceWords& words, ui::Point touchPoint);
    void addRequest(std::function<void()> operation);
    void showPredictions(const std::vector<std::string>& words);
    void clearShortTitles();
    template <typename Block>
    void onMainThread(Block block) const;

    std::shared_ptr<WordServiceSlot> indicSpellChecker_;  // its service, on the serial queue alone
    TextInputView* inputView_ = nullptr;
    std::unique_ptr<ui::ViewWatch> inputViewWatch_;
    std::shared_ptr<Life> life_ = std::make_shared<Life>();
    platform::NotificationCenter::Observation emojiObservation_;
    unsigned checks_ = 0;     // sentences handed out to be split
    unsigned lastCheck_ = 0;  // the latest that came back
    unsigned requests_ = 0;   // made of the word service
    unsigned cleared_ = 0;    // the last request whose answer is not wanted any more
    std::unique_ptr<platform::OperationQueue> serialQueue_;
    std::unique_ptr<VPEmoticonKeyboardView> second_emoction_;
};

}  // namespace vorpel
