#pragma once
// The search and the record batches report to the window through SearchView. They
// run on a worker, and every widget belongs to the window thread, so this view hands
// each call over to the window thread and goes on without waiting for it. Called on
// the window thread itself (Export runs there), it calls straight through.
//
// Progress steps are not sent one by one: a search of a hundred thousand rows would
// post as many events. The steps are counted here, and one update at a time travels
// to the window, which shows the count as it stands when the update arrives.
#include <QObject>
#include <QPointer>
#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "records/search_run.h"

namespace orvane {

// What the window does for the view, always on the window thread.
class SearchViewSink {
public:
    virtual ~SearchViewSink() = default;

    virtual void setCatalogueCommandsEnabled(bool enabled) = 0;
    virtual void setStatus(const std::string& text) = 0;
    virtual void setRemainingTime(const std::string& text) = 0;
    virtual void showProgress(long long maximum) = 0;
    virtual void setProgress(long long value) = 0;
    virtual void hideProgress() = 0;
    virtual void showMessage(const std::string& title, const std::string& text, MessageIcon icon) = 0;
    // Modal OK and Cancel; true for OK.
    virtual bool askOkCancel(const std::string& title, const std::string& text) = 0;
    virtual void setBusy(bool busy) = 0;
    virtual void showError(const std::string& title, const std::string& text) = 0;
    // The worker's session holds a new result (or was emptied); the list takes it
    // over when the worker has ended.
    virtual void resultReplaced() = 0;
    virtual void setResultText(const std::string& text) = 0;
    virtual void setSelectionCommandsEnabled(bool enabled) = 0;
    virtual void focusList() = 0;
    virtual void refreshStatistics() = 0;
};

class QtSearchView : public SearchView {
public:
    // `context` lives on the window thread; calls that arrive after it is gone are
    // dropped. `sink` must live as long as `context`.
    QtSearchView(QObject* context, SearchViewSink& sink);
    ~QtSearchView() override;

    // Answered on the worker without asking the window: whether the list in force
    // was filled by a form, and what a rerun of the search does (on the worker).
    void setSearchListFilledByForm(bool filled) { filledByForm_ = filled; }
    void setRerun(std::function<void()> rerun) { rerun_ = std::move(rerun); }

    // Every question that waits for an answer gets Cancel, and later ones too, until
    // `acceptQuestions`. The window calls it when it goes away, before it waits for
    // the worker, so that the worker cannot wait for a window that is gone.
    void cancelQuestions();
    void acceptQuestions();

    void setCatalogueCommandsEnabled(bool enabled) override;
    void setStatus(std::string_view text) override;
    void setRemainingTime(std::string_view text) override;
    void showProgress(long long maximum) override;
    void stepProgress() override;
    void hideProgress() override;
    void showMessage(std::string_view title, std::string_view text, MessageIcon icon) override;
    bool askOkCancel(std::string_view title, std::string_view text) override;
    bool searchListFilledByForm() override { return filledByForm_; }
    void rerunSearch() override;
    void refreshStatistics() override;

    void setBusy(bool busy) override;
    void showError(std::string_view title, std::string_view text) override;
    void showResult(const std::vector<ColumnSlot>& columns, const SearchResult& result) override;
    void setResultText(std::string_view text) override;
    void clearList() override;
    void setSelectionCommandsEnabled(bool enabled) override;
    void focusList() override;

private:
    struct Question {
        std::mutex mutex;
        std::condition_variable answered;
        bool done = false;
        bool ok = false;
    };

    bool onWindowThread() const;
    // Runs `call` on the window thread: at once when already there, else later.
    void post(std::function<void(SearchViewSink&)> call);
    void answer(const std::shared_ptr<Question>& question, bool ok);

    QPointer<QObject> context_;
    SearchViewSink& sink_;
    std::atomic<bool> filledByForm_{false};
    std::function<void()> rerun_;

    std::atomic<long long> steps_{0};
    std::atomic<bool> stepPosted_{false};

    std::mutex questionsMutex_;
    std::vector<std::shared_ptr<Question>> questions_;
    bool questionsCancelled_ = false;
};

}  // namespace orvane
