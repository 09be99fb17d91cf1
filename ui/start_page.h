#pragma once
// The Start Page: a banner with the catalogue's heading, a greeting, and the Brief Info
// text of the catalogue's statistics in a rich text view. `refresh` sets the text
// again from AppState::briefInfo after each change of the table.
#include <QImage>
#include <QTextBrowser>
#include <QWidget>

namespace orvane {

struct AppState;

// The rich text that holds the statistics.
class StartPageOutput : public QTextBrowser {
    Q_OBJECT
public:
    explicit StartPageOutput(QWidget* parent);
};

// Paints the banner and the band with "Hello", and places the text under them.
class StartPagePage : public QWidget {
    Q_OBJECT
public:
    static constexpr int kBannerWidth = 996;
    static constexpr int kBannerHeight = 99;

    explicit StartPagePage(QWidget* parent);

    StartPageOutput* output() const { return output_; }

    // Top of the statistics text: the measured height of "Hello" plus 124.
    int outputTop() const;

    // The banner picture, drawn once.
    static QImage bannerImage();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QFont helloFont() const;

    StartPageOutput* output_ = nullptr;
    QImage banner_;
};

class StartPageApp : public QWidget {
    Q_OBJECT
public:
    StartPageApp(AppState& state, QWidget* parent);

    StartPagePage* page() const { return page_; }
    StartPageOutput* output() const { return page_->output(); }

    // The statistics text from AppState::briefInfo and the texts of the language table.
    void refresh();
    void retitle();

    // The text as the rich view shows it, plain.
    QString statisticsText() const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    AppState& state_;
    StartPagePage* page_ = nullptr;
};

}  // namespace orvane
