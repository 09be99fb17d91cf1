#pragma once
// The bar between the work pane and the output pane. Dragging it shows a dark bar
// that follows the mouse inside the page; releasing it moves the panes there.
#include <QWidget>

namespace orvane {

class SplitterApp : public QWidget {
    Q_OBJECT
public:
    static constexpr int kWidth = 5;

    explicit SplitterApp(QWidget* parent);

signals:
    // The left edge of the bar after a drag, in the parent's coordinates.
    void moved(int left);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int clampedLeft(int parentX) const;

    QWidget* ghost_ = nullptr;  // the bar that follows the mouse during a drag
    int grabOffset_ = 0;
    bool dragging_ = false;
};

}  // namespace orvane
