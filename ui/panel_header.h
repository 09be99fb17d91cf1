#pragma once
// The header of a panel of the work pane: a button as wide as the pane that paints a
// band of colour steps with the panel's title, follows the mouse, and opens or closes
// its panel on a click. Its tip names what a click does ("Hide ...", "Show ...").
#include <QPushButton>

namespace orvane {

class PanelHeader : public QPushButton {
    Q_OBJECT
public:
    static constexpr int kHeight = 24;

    // `titleKey` is the title's key in the start page section; the Hide and Show tips
    // are the two keys after it.
    PanelHeader(int controlId, int titleKey, QWidget* parent);

    int titleKey() const { return titleKey_; }
    bool isOpen() const { return open_; }
    void setOpen(bool open);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    int titleKey_;
    bool open_ = true;
    bool hovered_ = false;
};

}  // namespace orvane
