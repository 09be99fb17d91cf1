#pragma once
// The work pane of the page Orbits: a tall scrollable form of eight panels that says
// what to search and which columns to show. It fills the search form that the search
// reads, keeps the panels' open state and the ticks in AppState, and tells the frame
// when the form holds a request and when Enter asks for a search.
#include <QScrollArea>
#include <array>
#include <vector>

#include "records/search_form.h"
#include "ui/work_pane_tables.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QVBoxLayout;

namespace orvane {

class PanelHeader;

class ElementsPage : public QScrollArea {
    Q_OBJECT
public:
    // The form is never narrower than this; a narrower pane scrolls sideways.
    static constexpr int kFormWidth = 850;

    ElementsPage(AppState& state, QWidget* parent);

    // Quick state: the quick search edit holds text.
    bool quickState() const;
    // A row is complete when it has a field, a condition and a value.
    bool rowComplete(std::size_t row) const;
    // Advanced state: at least one row is complete.
    bool advancedState() const;
    // The form holds a request: the quick or the advanced state is 1.
    bool searchRequest() const { return quickState() || advancedState(); }

    // The forms and the ticks as the search reads them.
    SearchForm searchForm() const;

    // While a search runs, Enter starts none.
    void setSearchRunning(bool running) { searchRunning_ = running; }

    PanelHeader* header(PanelKind kind) const;
    QWidget* panelBody(PanelKind kind) const;
    void setPanelOpen(PanelKind kind, bool open);
    bool panelOpen(PanelKind kind) const;

    // The Brief Info lines from AppState::briefInfo.
    void refreshBriefInfo();

    // Texts again from the language table; lists rebuilt with their choice kept.
    void retitle();

signals:
    // The search states may have changed.
    void searchStateChanged();
    // Enter in an edit or a list of the forms asks for a search.
    void searchRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Panel {
        PanelKind kind;
        PanelHeader* header = nullptr;
        QWidget* body = nullptr;
    };
    struct AdvancedRow {
        QComboBox* field = nullptr;
        QComboBox* condition = nullptr;
        QLineEdit* value = nullptr;
        QComboBox* connector = nullptr;  // absent in the last row
    };

    QWidget* addPanel(std::size_t index);
    QLabel* addTitle(QVBoxLayout* layout, Section section);
    void buildBriefInfo(QWidget* body);
    void buildQuickSearch(QWidget* body);
    void buildAdvancedSearch(QWidget* body);
    void buildFilters(QWidget* body);
    void buildOutputDetails(QWidget* body);
    void buildSets(QWidget* body);
    void buildColumnBoxes(QWidget* body, PanelKind kind);
    void fillLists();
    void watchForEnter(QWidget* control);

    void onQuickFormChanged();
    void onAdvancedFormChanged();
    void onColumnBoxClicked(std::size_t column, bool ticked);
    void onSetBoxClicked(std::size_t set, bool ticked);

    AppState& state_;
    QWidget* form_ = nullptr;
    QVBoxLayout* formLayout_ = nullptr;
    std::array<Panel, kPanelCount> panels_{};
    std::array<QLabel*, kBriefInfoLines> briefLines_{};
    QLineEdit* quickEdit_ = nullptr;
    QComboBox* quickCombo_ = nullptr;
    std::array<AdvancedRow, kAdvancedRows.size()> rows_{};
    std::array<QCheckBox*, kColumnRecords> columnBoxes_{};
    std::array<QCheckBox*, kSetBoxes.size()> setBoxes_{};
    bool searchRunning_ = false;
};

}  // namespace orvane
