#include "ui/elements_page.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "catalogue/brief_info.h"
#include "ui/panel_header.h"
#include "ui/qt_text.h"
#include "ui/ui_text.h"

namespace orvane {
namespace {

constexpr int kBodyMargin = 12;
constexpr int kFieldWidth = 168;
constexpr int kConditionWidth = 136;
constexpr int kValueWidth = 86;
constexpr int kConnectorWidth = 56;
constexpr std::size_t kLabelLineLength = 56;

QString trimmedNumber(const std::string& field) {
    return QString::fromStdString(field).trimmed();
}

// The newest additions in two lines: the second line carries what does not fit the
// first, and the whole ends with ",... " when it is cut.
std::array<QString, 2> labelLines(const BriefInfo& info) {
    const QString all = QString::fromStdString(lastAddedLabels(info, 2 * kLabelLineLength));
    if (all.size() <= static_cast<qsizetype>(kLabelLineLength)) return {all, QString()};
    qsizetype cut = all.lastIndexOf(QStringLiteral(", "), static_cast<qsizetype>(kLabelLineLength));
    if (cut <= 0) cut = static_cast<qsizetype>(kLabelLineLength) - 2;
    return {all.left(cut + 1), all.mid(cut + 2)};
}

void fillCombo(QComboBox* combo, Section section, int firstKey, int lastKey) {
    const int kept = combo->currentIndex();
    const QSignalBlocker quiet(combo);
    combo->clear();
    for (int key = firstKey; key <= lastKey; ++key) combo->addItem(qtText(section, key));
    combo->setCurrentIndex(kept < 0 ? 0 : std::min(kept, combo->count() - 1));
}

QComboBox* makeCombo(QWidget* parent, int id, int width) {
    auto* combo = new QComboBox(parent);
    setControlId(combo, id);
    combo->setFixedWidth(width);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return combo;
}

}  // namespace

ElementsPage::ElementsPage(AppState& state, QWidget* parent) : QScrollArea(parent), state_(state) {
    setObjectName("ElementsPage");
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);

    form_ = new QWidget;
    form_->setObjectName("ElementsPageForm");
    form_->setMinimumWidth(kFormWidth);
    form_->setAutoFillBackground(true);
    QPalette white = form_->palette();
    white.setColor(QPalette::Window, Qt::white);
    form_->setPalette(white);
    formLayout_ = new QVBoxLayout(form_);
    formLayout_->setContentsMargins(0, 0, 0, 0);
    formLayout_->setSpacing(0);
    for (std::size_t i = 0; i < kPanelCount; ++i) {
        QWidget* body = addPanel(i);
        switch (kPanels[i].kind) {
            case PanelKind::briefInfo: buildBriefInfo(body); break;
            case PanelKind::quickSearch: buildQuickSearch(body); break;
            case PanelKind::advancedSearch: buildAdvancedSearch(body); break;
            case PanelKind::filters: buildFilters(body); break;
            case PanelKind::outputDetails: buildOutputDetails(body); break;
            case PanelKind::setsOfElements: buildSets(body); break;
            case PanelKind::elements:
            case PanelKind::calculatedElements: buildColumnBoxes(body, kPanels[i].kind); break;
        }
    }
    formLayout_->addStretch(1);
    setWidget(form_);
    fillLists();
    refreshBriefInfo();
    for (std::size_t i = 0; i < kPanelCount; ++i) setPanelOpen(kPanels[i].kind, state_.*(kPanels[i].open) != 0);
}

QWidget* ElementsPage::addPanel(std::size_t index) {
    const PanelShape& shape = kPanels[index];
    Panel& panel = panels_[index];
    panel.kind = shape.kind;
    panel.header = new PanelHeader(shape.headerId, shape.titleKey, form_);
    panel.body = new QWidget(form_);
    panel.body->setObjectName("PanelBody");
    formLayout_->addWidget(panel.header);
    formLayout_->addWidget(panel.body);
    connect(panel.header, &QPushButton::clicked, this,
            [this, kind = shape.kind] { setPanelOpen(kind, !panelOpen(kind)); });
    return panel.body;
}

QLabel* ElementsPage::addTitle(QVBoxLayout* layout, Section section) {
    auto* title = new QLabel(layout->parentWidget());
    bindText(title, section, 1);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    layout->addWidget(title);
    return title;
}

void ElementsPage::buildBriefInfo(QWidget* body) {
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(kBodyMargin, 8, kBodyMargin, 10);
    layout->setSpacing(2);
    for (int i = 0; i < kBriefInfoLines; ++i) {
        auto* line = new QLabel(body);
        setControlId(line, kFirstBriefInfoLine + i);
        line->setTextInteractionFlags(Qt::TextSelectableByMouse);
        briefLines_[static_cast<std::size_t>(i)] = line;
        layout->addWidget(line);
    }
}

void ElementsPage::buildQuickSearch(QWidget* body) {
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(kBodyMargin, 8, kBodyMargin, 10);
    addTitle(layout, Section::orvQuickSearch);
    auto* row = new QHBoxLayout;
    row->setSpacing(5);
    quickEdit_ = new QLineEdit(body);
    setControlId(quickEdit_, kQuickEdit);
    quickEdit_->setFixedWidth(kValueWidth + kConditionWidth + 5);
    quickCombo_ = makeCombo(body, kQuickCombo, kFieldWidth);
    row->addWidget(quickEdit_);
    row->addWidget(quickCombo_);
    row->addStretch(1);
    layout->addLayout(row);
    connect(quickEdit_, &QLineEdit::textChanged, this, &ElementsPage::onQuickFormChanged);
    connect(quickCombo_, &QComboBox::currentIndexChanged, this, &ElementsPage::onQuickFormChanged);
    watchForEnter(quickEdit_);
    watchForEnter(quickCombo_);
}

void ElementsPage::buildAdvancedSearch(QWidget* body) {
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(kBodyMargin, 8, kBodyMargin, 10);
    layout->setSpacing(5);
    addTitle(layout, Section::orvAdvSearch);
    for (std::size_t r = 0; r < rows_.size(); ++r) {
        AdvancedRow& row = rows_[r];
        auto* line = new QHBoxLayout;
        line->setSpacing(5);
        row.field = makeCombo(body, kAdvancedRows[r].field, kFieldWidth);
        row.condition = makeCombo(body, kAdvancedRows[r].condition, kConditionWidth);
        row.value = new QLineEdit(body);
        setControlId(row.value, kAdvancedRows[r].edit);
        row.value->setFixedWidth(kValueWidth);
        line->addWidget(row.field);
        line->addWidget(row.condition);
        line->addWidget(row.value);
        if (r + 1 < rows_.size()) {
            row.connector = makeCombo(body, kConnectorId, kConnectorWidth);
            line->addWidget(row.connector);
            connect(row.connector, &QComboBox::currentIndexChanged, this, &ElementsPage::onAdvancedFormChanged);
            watchForEnter(row.connector);
        }
        line->addStretch(1);
        layout->addLayout(line);
        connect(row.field, &QComboBox::currentIndexChanged, this, &ElementsPage::onAdvancedFormChanged);
        connect(row.condition, &QComboBox::currentIndexChanged, this, &ElementsPage::onAdvancedFormChanged);
        connect(row.value, &QLineEdit::textChanged, this, &ElementsPage::onAdvancedFormChanged);
        watchForEnter(row.field);
        watchForEnter(row.condition);
        watchForEnter(row.value);
    }
}

void ElementsPage::buildFilters(QWidget* body) {
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(kBodyMargin, 8, kBodyMargin, 10);
    addTitle(layout, Section::orvFilters);
    for (const FilterBox& shape : kFilterBoxes) {
        auto* box = new QCheckBox(body);
        setControlId(box, shape.id);
        bindText(box, Section::orvFilters, shape.key);
        box->setChecked(state_.*(shape.record) != 0);
        connect(box, &QCheckBox::toggled, this, [this, record = shape.record](bool on) { state_.*record = on ? 1 : 0; });
        layout->addWidget(box);
    }
}

void ElementsPage::buildOutputDetails(QWidget* body) {
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(kBodyMargin, 8, kBodyMargin, 10);
    addTitle(layout, Section::orvOutDetails);
    auto* box = new QCheckBox(body);
    setControlId(box, kShowErrorsBox);
    bindText(box, Section::orvOutDetails, 2);
    box->setChecked(state_.showErrors != 0);
    connect(box, &QCheckBox::toggled, this, [this](bool on) { state_.showErrors = on ? 1 : 0; });
    layout->addWidget(box);
}

void ElementsPage::buildSets(QWidget* body) {
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(kBodyMargin, 8, kBodyMargin, 10);
    addTitle(layout, Section::orvSets);
    for (std::size_t s = 0; s < kSetBoxes.size(); ++s) {
        auto* box = new QCheckBox(body);
        setControlId(box, kSetBoxes[s].id);
        bindText(box, Section::orvSets, kSetBoxes[s].key);
        box->setChecked(state_.*(kSetBoxes[s].record) != 0);
        connect(box, &QCheckBox::clicked, this, [this, s](bool on) { onSetBoxClicked(s, on); });
        setBoxes_[s] = box;
        layout->addWidget(box);
    }
}

void ElementsPage::buildColumnBoxes(QWidget* body, PanelKind kind) {
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(kBodyMargin, 8, kBodyMargin, 10);
    layout->setSpacing(1);
    const bool calculated = kind == PanelKind::calculatedElements;
    addTitle(layout, calculated ? Section::orvCalcElements : Section::orvElements);
    // Boxes are made in their creation order (which is also the order of the focus
    // chain) and placed in the order of the columns.
    const std::span<const std::size_t> order = calculated ? calculatedBoxOrder() : elementsCreationOrder();
    for (std::size_t column : order) {
        const ColumnBox shape = columnBox(column);
        auto* box = new QCheckBox(body);
        setControlId(box, shape.id);
        bindText(box, shape.section, shape.key);
        box->setChecked(state_.columnShown[column] != 0);
        connect(box, &QCheckBox::clicked, this, [this, column](bool on) { onColumnBoxClicked(column, on); });
        columnBoxes_[column] = box;
    }
    if (calculated) {
        for (std::size_t column : order) layout->addWidget(columnBoxes_[column]);
    } else {
        for (std::size_t column = 0; column < order.size(); ++column) layout->addWidget(columnBoxes_[column]);
    }
}

void ElementsPage::fillLists() {
    fillCombo(quickCombo_, Section::orvQuickSearch, 2, 6);
    for (AdvancedRow& row : rows_) {
        fillCombo(row.field, Section::orvAdvSearch, kFirstFieldKey, kLastFieldKey);
        fillCombo(row.condition, Section::orvAdvSearch, kFirstConditionKey, kLastConditionKey);
        if (row.connector) fillCombo(row.connector, Section::orvAdvSearch, kAndKey, kOrKey);
    }
}

void ElementsPage::watchForEnter(QWidget* control) { control->installEventFilter(this); }

bool ElementsPage::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            const bool modeSet = state_.advancedSearchActive != 0 || state_.quickSearchActive != 0;
            if (modeSet && searchRequest() && !searchRunning_) emit searchRequested();
            return true;
        }
    }
    return QScrollArea::eventFilter(watched, event);
}

bool ElementsPage::quickState() const { return !quickEdit_->text().isEmpty(); }

bool ElementsPage::rowComplete(std::size_t r) const {
    if (r >= rows_.size()) return false;
    const AdvancedRow& row = rows_[r];
    return row.field->currentIndex() > 0 && row.condition->currentIndex() > 0 && !row.value->text().isEmpty();
}

bool ElementsPage::advancedState() const {
    for (std::size_t r = 0; r < rows_.size(); ++r)
        if (rowComplete(r)) return true;
    return false;
}

void ElementsPage::onQuickFormChanged() {
    state_.quickSearchActive = 1;
    state_.advancedSearchActive = 0;
    emit searchStateChanged();
}

void ElementsPage::onAdvancedFormChanged() {
    state_.advancedSearchActive = 1;
    state_.quickSearchActive = 0;
    emit searchStateChanged();
}

void ElementsPage::onColumnBoxClicked(std::size_t column, bool ticked) { state_.columnShown[column] = ticked ? 1 : 0; }

void ElementsPage::onSetBoxClicked(std::size_t set, bool ticked) {
    state_.*(kSetBoxes[set].record) = ticked ? 1 : 0;
    for (std::size_t column : kSetBoxes[set].columns) {
        state_.columnShown[column] = ticked ? 1 : 0;
        columnBoxes_[column]->setChecked(ticked);
    }
}

SearchForm ElementsPage::searchForm() const {
    SearchForm form;
    form.advancedSearchActive = state_.advancedSearchActive;
    form.quickSearchActive = state_.quickSearchActive;
    for (std::size_t r = 0; r < rows_.size(); ++r) {
        const AdvancedRow& row = rows_[r];
        AdvancedSearchRow& out = form.rows[r];
        out.inUse = rowComplete(r) ? 1 : 0;
        out.field = row.field->currentIndex();
        out.op = row.condition->currentIndex();
        out.value = row.value->text().toStdString();
        out.connector = row.connector ? row.connector->currentIndex() : kConnectorAnd;
    }
    form.quick.field = quickCombo_->currentIndex();
    form.quick.value = quickEdit_->text().toStdString();
    form.filters.periodicOnly = state_.filterPeriodicOnly;
    form.filters.lastAppearance = state_.filterLastAppearance;
    form.filters.myRecords = state_.filterMyRecords;
    form.filters.lastUpdate = state_.filterLastUpdate;
    for (std::size_t c = 0; c < form.columnShown.size(); ++c) form.columnShown[c] = state_.columnShown[c];
    form.showErrors = state_.showErrors;
    return form;
}

PanelHeader* ElementsPage::header(PanelKind kind) const { return panels_[static_cast<std::size_t>(kind)].header; }

QWidget* ElementsPage::panelBody(PanelKind kind) const { return panels_[static_cast<std::size_t>(kind)].body; }

bool ElementsPage::panelOpen(PanelKind kind) const { return header(kind)->isOpen(); }

void ElementsPage::setPanelOpen(PanelKind kind, bool open) {
    const std::size_t index = static_cast<std::size_t>(kind);
    state_.*(kPanels[index].open) = open ? 1 : 0;
    panels_[index].header->setOpen(open);
    panels_[index].body->setVisible(open);
}

void ElementsPage::refreshBriefInfo() {
    const BriefInfo& info = state_.briefInfo;
    auto key = [](int k) { return qtText(Section::orvBriefInfo, k); };
    const std::array<QString, 2> labels = labelLines(info);
    const std::array<QString, kBriefInfoLines> lines{
        key(1),
        trimmedNumber(info.statistics[kRecordCount]) + ' ' + key(2) + ' ' +
            trimmedNumber(info.statistics[kCometCount]) + ' ' + key(3),
        key(4) + ' ' + trimmedNumber(info.statistics[kNumberedCount]),
        key(5) + ' ' + trimmedNumber(info.statistics[kUnnumberedCount]),
        key(6) + ' ' + trimmedNumber(info.statistics[kUserRecordCount]),
        key(7),
        labels[0],
        labels[1],
    };
    for (std::size_t i = 0; i < lines.size(); ++i) {
        briefLines_[i]->setText(lines[i]);
        // The lines of the newest additions take no room while they are empty.
        briefLines_[i]->setVisible(!lines[i].isEmpty());
    }
}

void ElementsPage::retitle() {
    retitleTexts(this);
    fillLists();
    refreshBriefInfo();
}

}  // namespace orvane
