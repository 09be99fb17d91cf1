#pragma once
// The tab strip of the main window. It paints itself: a grey rounded frame round each
// tab, the titles in the small font, the current tab joined to its page, a line in the
// frame colour under the others, and the tab under the mouse set off by a lighter
// outline. While the mouse is over a tab the status bar tells where a click leads;
// when it leaves, the page's own status comes back.
#include <QTabBar>

namespace orvane {

class MyTab : public QTabBar {
    Q_OBJECT
public:
    explicit MyTab(QWidget* parent = nullptr);

    int hoveredTab() const { return hovered_; }

    // The panes of the page under the strip: the line under the strip is left open
    // over the part of the page that the current tab joins.
    void setPaneLayout(int workPaneRight, bool workPaneHidden, bool outputPaneHidden);

signals:
    // The text that the status bar shows while the mouse is over `index`.
    void hoverChanged(int index);
    void hoverLeft();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    QSize tabSizeHint(int index) const override;

private:
    int hovered_ = -1;
    int workPaneRight_ = 500;
    bool workPaneHidden_ = false;
    bool outputPaneHidden_ = false;
};

}  // namespace orvane
