#include "ui/edit_page.h"

#include <QEvent>
#include <QFontMetrics>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextCursor>
#include <algorithm>
#include <array>

#include "records/field_rules.h"
#include "ui/ui_text.h"

namespace orvane {
namespace {

using F = Field;

constexpr int kInfoLimit = 5000;
constexpr int kInfoLines = 8;

// One line of the form: its label (section orvEdit), the edits left to right, the
// last of them the error where the column has one, and the unit behind them.
struct FormRow {
    int labelKey;
    std::array<Field, 4> fields;
    int fieldCount;
    int unitKey;  // 0: no unit
};

// The order of the table columns, except that the epoch stands behind the orbit type.
constexpr std::array<FormRow, 38> kRows{{
    {98, {F::comet}, 1, 0},
    {99, {F::name}, 1, 0},
    {100, {F::des}, 1, 0},
    {101, {F::olddes}, 1, 0},
    {102, {F::htype}, 1, 137},
    {103, {F::E_year, F::E_month, F::E_day}, 3, 0},
    {104, {F::hyear, F::hmonth, F::hday, F::hday_err}, 4, 0},
    {105, {F::q, F::q_err}, 2, 138},
    {106, {F::e, F::e_err}, 2, 0},
    {107, {F::P}, 1, 139},
    {108, {F::w, F::w_err}, 2, 140},
    {109, {F::Om, F::Om_err}, 2, 140},
    {110, {F::i, F::i_err}, 2, 140},
    {111, {F::A1, F::A1_err}, 2, 141},
    {112, {F::A2, F::A2_err}, 2, 141},
    {113, {F::A3, F::A3_err}, 2, 141},
    {114, {F::Astyle}, 1, 142},
    {115, {F::NGE_DT, F::NGE_DT_err}, 2, 143},
    {116, {F::DFoto, F::DFoto_err}, 2, 144},
    {117, {F::Obs}, 1, 0},
    {118, {F::F_year, F::F_month, F::F_day}, 3, 0},
    {119, {F::L_year, F::L_month, F::L_day}, 3, 0},
    {120, {F::hsystem}, 1, 0},
    {121, {F::hPlan}, 1, 0},
    {122, {F::SBP}, 1, 0},
    {123, {F::b_perturber}, 1, 145},
    {124, {F::f_perturber}, 1, 146},
    {125, {F::RMS}, 1, 147},
    {126, {F::hreference}, 1, 0},
    {127, {F::Producer}, 1, 0},
    {128, {F::Diameter, F::Diameter_err}, 2, 144},
    {129, {F::ARatio, F::ARatio_err}, 2, 148},
    {130, {F::RotP, F::RotP_err}, 2, 149},
    {131, {F::Albedo, F::Albedo_err}, 2, 0},
    {132, {F::M1, F::M1_err}, 2, 150},
    {133, {F::K1, F::K1_err}, 2, 0},
    {134, {F::M2, F::M2_err}, 2, 150},
    {135, {F::K2, F::K2_err}, 2, 0},
}};
constexpr int kInfoLabelKey = 136;

bool isYear(Field field) {
    return field == F::E_year || field == F::hyear || field == F::F_year || field == F::L_year;
}

bool isShortInteger(Field field) {
    return field == F::E_month || field == F::E_day || field == F::hmonth || field == F::F_month ||
           field == F::F_day || field == F::L_month || field == F::L_day;
}

bool isLongText(Field field) {
    return field == F::name || field == F::hsystem || field == F::SBP || field == F::hreference ||
           field == F::Producer;
}

// Room for this many digits or letters; a value of the field's full limit scrolls
// inside its edit.
int widthInCharacters(Field field) {
    if (isYear(field)) return 6;
    if (isShortInteger(field)) return 3;
    if (field == F::htype) return 2;
    if (field == F::Astyle) return 3;
    if (field == F::b_perturber) return 4;
    if (field == F::f_perturber) return 5;
    if (field == F::des || field == F::olddes) return 18;
    if (field == F::hday) return 11;
    if (isLongText(field)) return 42;
    const FieldRule* rule = ruleOf(field);
    if (rule != nullptr && rule->isError) return 13;
    return 16;
}

QString qText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString nameOf(Field field) { return qText(fieldName(field)); }

QString withCrLf(QString text) { return text.replace(QLatin1Char('\n'), QStringLiteral("\r\n")); }

// The long text takes pasted text only as far as its limit leaves room.
class InfoEdit : public QPlainTextEdit {
public:
    explicit InfoEdit(QWidget* parent) : QPlainTextEdit(parent) {}
    int limit = kInfoLimit;

protected:
    void insertFromMimeData(const QMimeData* source) override {
        if (source == nullptr || !source->hasText()) return;
        const qsizetype room =
            limit - (toPlainText().size() - textCursor().selectedText().size());
        if (room <= 0) return;
        insertPlainText(source->text().left(room));
    }
};

}  // namespace

EditPage::EditPage(QWidget* parent) : QScrollArea(parent), edits_(kFieldCount, nullptr) {
    setObjectName("EditPage");
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    form_ = new QWidget(this);
    form_->setObjectName("EditPageForm");
    form_->setAutoFillBackground(true);
    QPalette white = form_->palette();
    white.setColor(QPalette::Window, Qt::white);
    form_->setPalette(white);
    auto* grid = new QGridLayout(form_);
    grid->setContentsMargins(12, 12, 12, 12);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(6);
    buildRows(grid);
    setWidget(form_);
}

void EditPage::buildRows(QGridLayout* grid) {
    int line = 0;
    for (const FormRow& row : kRows) {
        auto* label = new QLabel(form_);
        bindText(label, Section::orvEdit, row.labelKey);
        grid->addWidget(label, line, 0, Qt::AlignLeft | Qt::AlignVCenter);
        auto* holder = new QWidget(form_);
        auto* box = new QHBoxLayout(holder);
        box->setContentsMargins(0, 0, 0, 0);
        box->setSpacing(6);
        for (int k = 0; k < row.fieldCount; ++k) box->addWidget(addLineEdit(row.fields[static_cast<std::size_t>(k)], holder));
        if (row.unitKey != 0) {
            auto* unit = new QLabel(holder);
            bindText(unit, Section::orvEdit, row.unitKey);
            box->addWidget(unit);
        }
        box->addStretch(1);
        grid->addWidget(holder, line, 1);
        ++line;
    }
    auto* label = new QLabel(form_);
    bindText(label, Section::orvEdit, kInfoLabelKey);
    grid->addWidget(label, line, 0, Qt::AlignLeft | Qt::AlignTop);
    auto* info = new InfoEdit(form_);
    info->setObjectName(nameOf(F::hinfo));
    info->setProperty("field", fieldIndex(F::hinfo));
    info->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    info->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    info->setFixedHeight(info->fontMetrics().lineSpacing() * kInfoLines + 12);
    info->installEventFilter(this);
    info_ = info;
    order_.push_back(F::hinfo);
    grid->addWidget(info_, line, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(line + 1, 1);
}

QLineEdit* EditPage::addLineEdit(Field field, QWidget* row) {
    auto* edit = new QLineEdit(row);
    edit->setObjectName(nameOf(field));
    edit->setProperty("field", fieldIndex(field));
    edit->setMaxLength(fieldLimit(field));
    const QFontMetrics metrics(edit->font());
    edit->setFixedWidth(metrics.horizontalAdvance(QLatin1Char('0')) * widthInCharacters(field) + 14);
    edit->installEventFilter(this);
    edits_[static_cast<std::size_t>(fieldIndex(field))] = edit;
    order_.push_back(field);
    return edit;
}

int EditPage::fieldLimit(Field field) {
    if (field == F::htype) return 1;
    if (field == F::Astyle) return 2;
    const FieldRule* rule = ruleOf(field);
    return rule != nullptr ? rule->limit : 0;
}

KeyFilter EditPage::keyFilterOf(Field field) {
    if (field == F::htype) return KeyFilter::orbitType;
    if (field == F::Astyle) return KeyFilter::ngStyle;
    const FieldRule* rule = ruleOf(field);
    if (rule == nullptr) return KeyFilter::text;
    switch (rule->kind) {
        case RuleKind::Integer: return isYear(field) ? KeyFilter::yearNumber : KeyFilter::wholeNumber;
        case RuleKind::Real: return KeyFilter::realNumber;
        case RuleKind::Text:
        case RuleKind::Choice: break;
    }
    return KeyFilter::text;
}

QWidget* EditPage::fieldEdit(Field field) const {
    if (field == F::hinfo) return info_;
    return lineEdit(field);
}

QLineEdit* EditPage::lineEdit(Field field) const {
    const int index = fieldIndex(field);
    if (index < 0 || static_cast<std::size_t>(index) >= edits_.size()) return nullptr;
    return edits_[static_cast<std::size_t>(index)];
}

void EditPage::fill(const OrbitRecord& record) {
    record_ = record;
    for (Field field : order_) {
        QLineEdit* edit = lineEdit(field);
        if (edit == nullptr) continue;
        const QString shown = qText(record.get(field));
        // A text longer than the limit is shown whole, as the record holds it; the
        // record checks name it, and typing stops at its length.
        edit->setMaxLength(std::max(fieldLimit(field), static_cast<int>(shown.size())));
        edit->setText(shown);
        edit->setCursorPosition(0);
    }
    const QString info = qText(record.get(F::hinfo));
    static_cast<InfoEdit*>(info_)->limit = std::max(kInfoLimit, static_cast<int>(info.size()));
    info_->setPlainText(info);
    filledInfo_ = info_->toPlainText();
    verticalScrollBar()->setValue(0);
}

OrbitRecord EditPage::read() const {
    OrbitRecord out = record_;
    for (Field field : order_) {
        const QLineEdit* edit = lineEdit(field);
        if (edit == nullptr) continue;
        const QString shown = edit->text();
        if (shown == qText(record_.get(field))) continue;
        out.set(field, shown.toStdString());
    }
    const QString info = info_->toPlainText();
    if (info != filledInfo_) out.set(F::hinfo, withCrLf(info).toStdString());
    return out;
}

void EditPage::focusField(Field field) {
    QWidget* edit = fieldEdit(field);
    if (edit == nullptr) return;
    edit->setFocus(Qt::OtherFocusReason);
    keepInView(edit);
}

int EditPage::scrollToShow(int fieldTop, int scroll, int pageHeight) {
    const int top = fieldTop - scroll;
    if (top < kTopMargin) return fieldTop - kTopMargin;
    if (top > pageHeight - kBottomMargin) return fieldTop - (pageHeight - kBottomMargin);
    return scroll;
}

void EditPage::keepInView(QWidget* edit) {
    if (edit == nullptr || !form_->isAncestorOf(edit)) return;
    QScrollBar* bar = verticalScrollBar();
    const int fieldTop = edit->mapTo(form_, QPoint(0, 0)).y();
    bar->setValue(scrollToShow(fieldTop, bar->value(), viewport()->height()));
}

void EditPage::retitle() { retitleTexts(this); }

bool EditPage::judgeKey(QWidget* edit, QKeyEvent* key) {
    const char32_t code = typedCharacter(*key);
    if (code == 0) return false;
    const Field field = fieldAt(edit->property("field").toInt());
    QString kept;
    if (auto* line = qobject_cast<QLineEdit*>(edit)) {
        kept = line->text();
        if (line->hasSelectedText()) kept.remove(line->selectionStart(), line->selectedText().size());
    }
    const KeyDecision decision = filterKey(keyFilterOf(field), code, kept);
    switch (decision.verdict) {
        case KeyVerdict::drop: return true;
        case KeyVerdict::refuse:
            if (refusalSound()) refusalSound()();
            return true;
        case KeyVerdict::take: break;
    }
    if (edit == info_ && code >= 32) {
        const qsizetype room = static_cast<InfoEdit*>(info_)->limit -
                               (info_->toPlainText().size() - info_->textCursor().selectedText().size());
        if (room <= 0) return true;
    }
    keepInView(edit);
    if (decision.character == code) return false;
    const QString replaced = QString::fromUcs4(&decision.character, 1);
    if (auto* line = qobject_cast<QLineEdit*>(edit)) line->insert(replaced);
    return true;
}

bool EditPage::eventFilter(QObject* watched, QEvent* event) {
    auto* edit = qobject_cast<QWidget*>(watched);
    if (edit != nullptr && edit->property("field").isValid()) {
        if (event->type() == QEvent::FocusIn) keepInView(edit);
        if (event->type() == QEvent::KeyPress) return judgeKey(edit, static_cast<QKeyEvent*>(event));
    }
    return QScrollArea::eventFilter(watched, event);
}

}  // namespace orvane
