#pragma once
// The page Orbits: the work pane on the left, the splitter, the output pane on the
// right. Either pane can be hidden, never both; the splitter's place and the hidden
// states are kept in AppState.
#include <QWidget>

#include "ui/elements_output.h"

namespace orvane {

struct AppState;
class ElementsPage;
class SplitterApp;

class ElementsApp : public QWidget {
    Q_OBJECT
public:
    ElementsApp(AppState& state, QWidget* parent);

    ElementsPage* workPane() const { return workPane_; }
    ElementsOutput* outputPane() const { return output_; }
    SplitterApp* splitter() const { return splitter_; }

    // Places the panes by the splitter position and the hidden states of AppState.
    void relayout();

    // The right edge of the work pane as it stands.
    int workPaneRight() const;

signals:
    void layoutChanged();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    AppState& state_;
    ElementsPage* workPane_ = nullptr;
    SplitterApp* splitter_ = nullptr;
    ElementsOutput* output_ = nullptr;
};

// The pages Observations, Preliminary Orbit and Orbit Improvement.
class ObservationsApp : public QWidget {
    Q_OBJECT
public:
    explicit ObservationsApp(QWidget* parent);
};

}  // namespace orvane
