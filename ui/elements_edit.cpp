#include "ui/elements_edit.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "records/record_texts.h"
#include "records/update_statement.h"
#include "records/validation.h"
#include "ui/edit_page.h"
#include "ui/qt_text.h"
#include "ui/ui_text.h"

namespace orvane {
namespace {

// Keys of section orvEdit.
enum EditKey : int {
    kEditRecord = 1,
    kOf = 2,
    kPrevious = 3,
    kNext = 4,
    kReset = 5,
    kApply = 6,
    kClose = 7,
    kAddNewRecord = 8,
    kAddMore = 9,
    kRemove = 10,
    kOptions = 11,
    kSaveAs = 12,
    kAdditionalInfo = 13,
    kHistoryOf = 14,
    kApparition = 15,
    kFirstSuffix = 25,  // "st", then "nd", "rd", "th"
    kTextFilesFilter = 68,
    kAllFilesFilter = 69,
    kEditOne = 72,
    kEditMany = 73,
    kEditRecords = 74,
    kEditTitle = 75,
    kAddOne = 76,
    kAddMany = 77,
    kAddRecords = 78,
    kAddTitle = 79,
    kNoName = 88,
    kImportHint = 89,
    kMessageTitle = 64,
    kDash = 153,
};

QString editText(int key) { return qtText(Section::orvEdit, key); }

QString qText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

RecordTexts currentRecordTexts() {
    return loadRecordTexts([](std::string_view section, int key) -> std::string {
        for (std::size_t k = 0; k < kSectionShapes.size(); ++k)
            if (kSectionShapes[k].name == section) return text(static_cast<Section>(k), key);
        return {};
    });
}

// The question before a batch goes to the catalogue, for one record or several.
QString confirmationText(RecordWindowAction action, std::size_t count) {
    const bool edit = action == RecordWindowAction::edit;
    if (count == 1) return editText(edit ? kEditOne : kAddOne);
    return editText(edit ? kEditMany : kAddMany) + QLatin1Char(' ') + QString::number(count) + QLatin1Char(' ') +
           editText(edit ? kEditRecords : kAddRecords);
}

bool defaultMessage(QWidget* parent, const RecordMessage& box) {
    QString shown = box.text;
    shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    QMessageBox dialog(box.icon, box.title, shown,
                       box.question ? QMessageBox::Ok | QMessageBox::Cancel : QMessageBox::Ok, parent);
    return dialog.exec() == QMessageBox::Ok;
}

}  // namespace

QString ordinalSuffix(int number) {
    const int lastTwo = number % 100;
    const int last = number % 10;
    int offset = 3;  // "th"
    if (lastTwo < 11 || lastTwo > 13) {
        if (last == 1) offset = 0;
        if (last == 2) offset = 1;
        if (last == 3) offset = 2;
    }
    return editText(kFirstSuffix + offset);
}

ElementsEdit::ElementsEdit(RecordMode mode, RecordArray records, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::Dialog), mode_(mode) {
    setObjectName("ElementsEdit");
    setWindowModality(Qt::ApplicationModal);
    records.records.resize(std::min(records.count, records.records.size()));
    records.count = records.records.size();
    if (records.count == 0) records.reset(1);
    if (mode_ == RecordMode::duplicateRecord)
        for (OrbitRecord& record : records.records) record.set(Field::id, "");
    opened_ = records;
    records_ = std::move(records);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    if (mode_ == RecordMode::additionalInfo) {
        infoText_ = new QPlainTextEdit(this);
        infoText_->setObjectName("InfoText");
        infoText_->setReadOnly(true);
        infoText_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        layout->addWidget(infoText_, 1);
    } else {
        page_ = new EditPage(this);
        layout->addWidget(page_, 1);
        connect(page_->lineEdit(Field::name), &QLineEdit::textChanged, this,
                [this] { setWindowTitle(titleText()); });
    }
    buildButtons();
    resize(820, 640);
    showRecord(0);
}

ElementsEdit::~ElementsEdit() = default;

QPushButton* ElementsEdit::addButton(int key, const char* name, void (ElementsEdit::*slot)()) {
    auto* button = new QPushButton(this);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    bindText(button, Section::orvEdit, key);
    if (slot != nullptr) connect(button, &QPushButton::clicked, this, slot);
    buttons_.push_back(button);
    return button;
}

void ElementsEdit::buildButtons() {
    switch (mode_) {
        case RecordMode::editRecord:
            previous_ = addButton(kPrevious, "Previous", &ElementsEdit::showPrevious);
            next_ = addButton(kNext, "Next", &ElementsEdit::showNext);
            addButton(kReset, "Reset", &ElementsEdit::reset);
            addButton(kApply, "Apply", &ElementsEdit::runApply);
            break;
        case RecordMode::newRecord:
        case RecordMode::duplicateRecord:
            addButton(kAddMore, "AddMore", &ElementsEdit::addMore);
            remove_ = addButton(kRemove, "Remove", &ElementsEdit::removeCurrent);
            addButton(kReset, "Reset", &ElementsEdit::reset);
            addButton(kApply, "Apply", &ElementsEdit::runApply);
            break;
        case RecordMode::additionalInfo:
            previous_ = addButton(kPrevious, "Previous", &ElementsEdit::showPrevious);
            next_ = addButton(kNext, "Next", &ElementsEdit::showNext);
            addButton(kOptions, "Options", &ElementsEdit::openOptions);
            addButton(kSaveAs, "SaveAs", &ElementsEdit::runSaveAs);
            break;
    }
    QPushButton* close = addButton(kClose, "Close", nullptr);
    connect(close, &QPushButton::clicked, this, &QWidget::close);

    auto* row = new QHBoxLayout;
    row->addStretch(1);
    for (QPushButton* button : buttons_) {
        button->setMinimumWidth(96);
        row->addWidget(button);
    }
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

QPushButton* ElementsEdit::button(int position) const {
    return position >= 0 && position < buttons_.size() ? buttons_[position] : nullptr;
}

RecordArray ElementsEdit::batch() const {
    RecordArray out = records_;
    if (page_ != nullptr) out.records[current_] = page_->read();
    return out;
}

void ElementsEdit::storeShown() {
    if (page_ != nullptr) records_.records[current_] = page_->read();
}

void ElementsEdit::showRecord(std::size_t index) {
    current_ = std::min(index, records_.count - 1);
    if (page_ != nullptr) page_->fill(records_.records[current_]);
    if (infoText_ != nullptr) infoText_->setPlainText(infoBlock(current_));
    updateButtons();
    setWindowTitle(titleText());
}

void ElementsEdit::updateButtons() {
    if (previous_ != nullptr) previous_->setEnabled(current_ > 0);
    if (next_ != nullptr) next_->setEnabled(current_ + 1 < records_.count);
    if (remove_ != nullptr) remove_->setEnabled(records_.count > 1);
}

QString ElementsEdit::titleText() const {
    int modeKey = kAddNewRecord;
    if (mode_ == RecordMode::editRecord) modeKey = kEditRecord;
    if (mode_ == RecordMode::additionalInfo) modeKey = kAdditionalInfo;
    QString title = editText(modeKey);
    if (records_.count > 1) {
        title += QLatin1Char(' ') + QString::number(current_ + 1) + QLatin1Char(' ') + editText(kOf) +
                 QLatin1Char(' ') + QString::number(records_.count);
    }
    QString name = page_ != nullptr ? page_->lineEdit(Field::name)->text()
                                    : qText(records_.records[current_].get(Field::name));
    name = name.trimmed();
    if (name.isEmpty()) name = editText(kNoName);
    return title + QLatin1Char(' ') + editText(kDash) + QLatin1Char(' ') + name;
}

// The heading "History of 2nd apparision:" and the record's long text. The panel's
// cut at 6000 characters never comes into play here: the long text of a record
// holds at most 5010 characters and the heading a few hundred.
QString ElementsEdit::infoBlock(std::size_t index) const {
    const int ordinal = static_cast<int>(index) + 1;
    const QString heading = editText(kHistoryOf) + QLatin1Char(' ') + QString::number(ordinal) +
                            ordinalSuffix(ordinal) + QLatin1Char(' ') + editText(kApparition) +
                            QLatin1Char(':');
    std::string_view info = records_.records[index].get(Field::hinfo);
    if (records_.records[index].blank(Field::hinfo)) info = kDefaultInfo;
    QString body = qText(info);
    body.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return heading + QStringLiteral("\n\n") + body;
}

void ElementsEdit::showPrevious() {
    if (current_ == 0) return;
    storeShown();
    showRecord(current_ - 1);
}

void ElementsEdit::showNext() {
    if (current_ + 1 >= records_.count) return;
    storeShown();
    showRecord(current_ + 1);
}

// Add more > walks on through the records that the batch already has and adds a
// blank one behind the last.
void ElementsEdit::addMore() {
    storeShown();
    if (current_ + 1 < records_.count) {
        showRecord(current_ + 1);
        return;
    }
    records_.records.emplace_back();
    records_.count = records_.records.size();
    showRecord(records_.count - 1);
    if (records_.count == kImportHintCount)
        message({editText(kMessageTitle), editText(kImportHint), QMessageBox::Information, false});
}

void ElementsEdit::removeCurrent() {
    if (records_.count <= 1) return;
    records_.records.erase(records_.records.begin() + static_cast<std::ptrdiff_t>(current_));
    records_.count = records_.records.size();
    showRecord(current_ == 0 ? 0 : current_ - 1);
}

void ElementsEdit::reset() {
    records_ = opened_;
    showRecord(current_);
}

bool ElementsEdit::apply() {
    if (page_ == nullptr) return false;
    storeShown();
    RecordArray checked = records_;
    const RecordTexts texts = currentRecordTexts();
    const ValidationResult result = validateRecords(checked, texts);
    if (result.faultKind != 0) {
        message({qText(texts.messageTitle), qText(validationMessageText(result, texts, checked.count > 1)),
                 QMessageBox::Warning, false});
        showRecord(result.faultRecord - 1);
        page_->focusField(result.focusField);
        return false;
    }
    const RecordWindowAction action =
        mode_ == RecordMode::editRecord ? RecordWindowAction::edit : RecordWindowAction::add;
    const QString title = editText(action == RecordWindowAction::edit ? kEditTitle : kAddTitle);
    if (!message({title, confirmationText(action, checked.count), QMessageBox::Question, true})) return false;
    if (batchHandler_) batchHandler_(action, std::move(checked));
    close();
    return true;
}

void ElementsEdit::openOptions() {
    if (optionsHandler_) optionsHandler_();
}

bool ElementsEdit::saveInfo() {
    const QString filter = editText(kTextFilesFilter) + QStringLiteral(";;") + editText(kAllFilesFilter);
    const QString title = editText(kAdditionalInfo);
    const QString path = saveFileHook_ ? saveFileHook_(title, filter)
                                       : QFileDialog::getSaveFileName(this, title, QString(), filter);
    if (path.isEmpty()) return false;
    QString all;
    for (std::size_t k = 0; k < records_.count; ++k) all += infoBlock(k) + QStringLiteral("\n\n");
    all.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    const QByteArray bytes = all.toUtf8();
    std::ofstream out(std::filesystem::path(path.toStdString()), std::ios::binary | std::ios::trunc);
    out.write(bytes.constData(), static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(out);
}

bool ElementsEdit::message(const RecordMessage& box) {
    if (messageHook_) return messageHook_(box);
    return defaultMessage(this, box);
}

void ElementsEdit::retitle() {
    retitleTexts(this);
    if (infoText_ != nullptr) infoText_->setPlainText(infoBlock(current_));
    setWindowTitle(titleText());
}

void ElementsEdit::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    emit closed();
}

}  // namespace orvane
