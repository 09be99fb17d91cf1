#include "ui/qt_search_view.h"

#include <QMetaObject>
#include <QThread>

namespace orvane {

QtSearchView::QtSearchView(QObject* context, SearchViewSink& sink) : context_(context), sink_(sink) {}

QtSearchView::~QtSearchView() { cancelQuestions(); }

bool QtSearchView::onWindowThread() const {
    return context_ && QThread::currentThread() == context_->thread();
}

void QtSearchView::post(std::function<void(SearchViewSink&)> call) {
    if (!context_) return;
    if (onWindowThread()) {
        call(sink_);
        return;
    }
    SearchViewSink* sink = &sink_;
    QMetaObject::invokeMethod(
        context_.data(), [sink, call = std::move(call)] { call(*sink); }, Qt::QueuedConnection);
}

void QtSearchView::setCatalogueCommandsEnabled(bool enabled) {
    post([enabled](SearchViewSink& s) { s.setCatalogueCommandsEnabled(enabled); });
}

void QtSearchView::setStatus(std::string_view text) {
    post([text = std::string(text)](SearchViewSink& s) { s.setStatus(text); });
}

void QtSearchView::setRemainingTime(std::string_view text) {
    post([text = std::string(text)](SearchViewSink& s) { s.setRemainingTime(text); });
}

void QtSearchView::showProgress(long long maximum) {
    steps_ = 0;
    post([maximum](SearchViewSink& s) { s.showProgress(maximum); });
}

void QtSearchView::stepProgress() {
    ++steps_;
    if (stepPosted_.exchange(true)) return;
    post([this](SearchViewSink& s) {
        stepPosted_ = false;
        s.setProgress(steps_.load());
    });
}

void QtSearchView::hideProgress() {
    post([](SearchViewSink& s) { s.hideProgress(); });
}

void QtSearchView::showMessage(std::string_view title, std::string_view text, MessageIcon icon) {
    post([title = std::string(title), text = std::string(text), icon](SearchViewSink& s) {
        s.showMessage(title, text, icon);
    });
}

// A question is the one call that waits: the batch cannot go on before the user has
// answered. The worker waits for the window, never the other way round, and when the
// window goes away while a question waits, the answer is Cancel, so a batch that
// nobody confirmed writes nothing.
bool QtSearchView::askOkCancel(std::string_view title, std::string_view text) {
    if (onWindowThread()) return sink_.askOkCancel(std::string(title), std::string(text));
    auto question = std::make_shared<Question>();
    {
        const std::lock_guard lock(questionsMutex_);
        if (questionsCancelled_ || !context_) return false;
        questions_.push_back(question);
    }
    post([this, question, title = std::string(title), text = std::string(text)](SearchViewSink& s) {
        answer(question, s.askOkCancel(title, text));
    });
    std::unique_lock wait(question->mutex);
    question->answered.wait(wait, [&] { return question->done; });
    const bool ok = question->ok;
    wait.unlock();
    const std::lock_guard lock(questionsMutex_);
    std::erase(questions_, question);
    return ok;
}

void QtSearchView::answer(const std::shared_ptr<Question>& question, bool ok) {
    const std::lock_guard lock(question->mutex);
    if (question->done) return;
    question->done = true;
    question->ok = ok;
    question->answered.notify_all();
}

void QtSearchView::cancelQuestions() {
    std::vector<std::shared_ptr<Question>> waiting;
    {
        const std::lock_guard lock(questionsMutex_);
        questionsCancelled_ = true;
        waiting = questions_;
    }
    for (const auto& question : waiting) answer(question, false);
}

void QtSearchView::acceptQuestions() {
    const std::lock_guard lock(questionsMutex_);
    questionsCancelled_ = false;
}

void QtSearchView::rerunSearch() {
    if (rerun_) rerun_();
}

void QtSearchView::refreshStatistics() {
    post([](SearchViewSink& s) { s.refreshStatistics(); });
}

void QtSearchView::setBusy(bool busy) {
    post([busy](SearchViewSink& s) { s.setBusy(busy); });
}

void QtSearchView::showError(std::string_view title, std::string_view text) {
    post([title = std::string(title), text = std::string(text)](SearchViewSink& s) { s.showError(title, text); });
}

// The rows stay in the worker's session: the window takes the session over when the
// worker has ended, so no row is copied and the list never reads an array that the
// worker is still changing.
void QtSearchView::showResult(const std::vector<ColumnSlot>&, const SearchResult&) {
    post([](SearchViewSink& s) { s.resultReplaced(); });
}

void QtSearchView::setResultText(std::string_view text) {
    post([text = std::string(text)](SearchViewSink& s) { s.setResultText(text); });
}

void QtSearchView::clearList() {
    post([](SearchViewSink& s) { s.resultReplaced(); });
}

void QtSearchView::setSelectionCommandsEnabled(bool enabled) {
    post([enabled](SearchViewSink& s) { s.setSelectionCommandsEnabled(enabled); });
}

void QtSearchView::focusList() {
    post([](SearchViewSink& s) { s.focusList(); });
}

}  // namespace orvane
