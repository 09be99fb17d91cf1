#pragma once
// The output pane of the page Orbits: the result list, filling the pane.
#include <QWidget>

namespace orvane {

class MyListView;

class ElementsOutput : public QWidget {
    Q_OBJECT
public:
    explicit ElementsOutput(QWidget* parent);

    MyListView* list() const { return list_; }

private:
    MyListView* list_ = nullptr;
};

}  // namespace orvane
