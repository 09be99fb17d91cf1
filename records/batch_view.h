#pragma once
// What a record batch shows while it works: status texts, a progress bar, the
// estimate of the time left, questions and messages, and the refresh of the lists
// once the catalogue changed. The main window implements it (forwarding each call
// to its own thread without waiting); tests record the calls.
#include <string_view>

namespace orvane {

enum class MessageIcon { Information, Question, Warning };

class BatchView {
public:
    virtual ~BatchView() = default;

    // The commands, menu items and close box that could start another catalogue
    // worker: off while a batch runs, on again at its end.
    virtual void setCatalogueCommandsEnabled(bool enabled) = 0;

    // Part 1 of the status bar, and part 2 (where the time left is shown).
    virtual void setStatus(std::string_view text) = 0;
    virtual void setRemainingTime(std::string_view text) = 0;

    virtual void showProgress(long long maximum) = 0;
    virtual void stepProgress() = 0;
    virtual void hideProgress() = 0;

    // A message box with OK.
    virtual void showMessage(std::string_view title, std::string_view text, MessageIcon icon) = 0;
    // OK and Cancel with the question icon; true for OK.
    virtual bool askOkCancel(std::string_view title, std::string_view text) = 0;

    // After a change of the catalogue: run the last search again when the list was
    // filled by a form, and refresh the statistics of the start page.
    virtual bool searchListFilledByForm() = 0;
    virtual void rerunSearch() = 0;
    virtual void refreshStatistics() = 0;
};

// A batch run with nobody watching (tools, benchmarks, tests that set up a
// catalogue): it shows nothing and answers every question with OK.
class SilentBatchView : public BatchView {
public:
    void setCatalogueCommandsEnabled(bool) override {}
    void setStatus(std::string_view) override {}
    void setRemainingTime(std::string_view) override {}
    void showProgress(long long) override {}
    void stepProgress() override {}
    void hideProgress() override {}
    void showMessage(std::string_view, std::string_view, MessageIcon) override {}
    bool askOkCancel(std::string_view, std::string_view) override { return true; }
    bool searchListFilledByForm() override { return false; }
    void rerunSearch() override {}
    void refreshStatistics() override {}
};

}  // namespace orvane
