#pragma once
// The record window (class ElementsEdit) in its record modes: editing records,
// adding new ones, duplicating records as new ones, and reading their additional
// info. It works on its own copy of the records; Apply checks the whole batch,
// asks, and hands it to the caller, which runs it on a worker. The window runs no
// batch itself.
#include <QMessageBox>
#include <QString>
#include <QWidget>
#include <functional>

#include "records/orbit_record.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace orvane {

class EditPage;

enum class RecordMode { editRecord, newRecord, duplicateRecord, additionalInfo };

// What the caller does with the batch that Apply hands over.
enum class RecordWindowAction { add, edit };
using RecordBatchHandler = std::function<void(RecordWindowAction, RecordArray)>;

// A message box that the window wants to show. `question` boxes have OK and
// Cancel; the others OK alone.
struct RecordMessage {
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::Information;
    bool question = false;
};
// Shows the box; true for OK. The window's default shows a QMessageBox.
using RecordMessageHook = std::function<bool(const RecordMessage&)>;

// "st", "nd", "rd" or "th" for an ordinal number, from section orvEdit.
QString ordinalSuffix(int number);

class ElementsEdit : public QWidget {
    Q_OBJECT
public:
    // Add more > brings the batch to this many records with a hint toward Import.
    static constexpr std::size_t kImportHintCount = 50;

    // `records`: the records to edit, to duplicate or to read; for a new record the
    // window starts from one blank record when none is given.
    ElementsEdit(RecordMode mode, RecordArray records, QWidget* parent = nullptr);
    ~ElementsEdit() override;

    // Called by Apply with the checked batch; the window closes right after, so the
    // handler may start a worker but must not delete the window (deleteLater is fine).
    void setBatchHandler(RecordBatchHandler handler) { batchHandler_ = std::move(handler); }
    void setMessageHook(RecordMessageHook hook) { messageHook_ = std::move(hook); }
    // Options of the info mode: the caller opens the options window.
    void setOptionsHandler(std::function<void()> handler) { optionsHandler_ = std::move(handler); }
    // Save As of the info mode: the file that the user chose, empty to cancel.
    using SaveFileHook = std::function<QString(const QString& title, const QString& filter)>;
    void setSaveFileHook(SaveFileHook hook) { saveFileHook_ = std::move(hook); }

    RecordMode mode() const { return mode_; }
    // The batch as the window holds it, the shown record with the form's text.
    RecordArray batch() const;
    std::size_t recordCount() const { return records_.count; }
    std::size_t currentIndex() const { return current_; }

    EditPage* page() const { return page_; }
    QPlainTextEdit* infoText() const { return infoText_; }
    // The five buttons left to right.
    QPushButton* button(int position) const;

    // The buttons' work, callable by tests as by the user.
    void showPrevious();
    void showNext();
    void addMore();
    void removeCurrent();
    void reset();
    // Checks, asks and hands over the batch; true when it was handed over.
    bool apply();
    void openOptions();
    // Writes the additional info of every record to a text file.
    bool saveInfo();

    // The title line: the mode, the place of the record among several, the name.
    QString titleText() const;
    // Every text again from the language table.
    void retitle();

signals:
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QPushButton* addButton(int key, const char* name, void (ElementsEdit::*slot)());
    void buildButtons();
    void storeShown();
    void showRecord(std::size_t index);
    void updateButtons();
    QString infoBlock(std::size_t index) const;
    bool message(const RecordMessage& box);
    void runApply() { apply(); }
    void runSaveAs() { saveInfo(); }

    RecordMode mode_;
    RecordArray opened_;   // the records as the window was opened with them
    RecordArray records_;  // the records as the user changed them
    std::size_t current_ = 0;
    EditPage* page_ = nullptr;
    QPlainTextEdit* infoText_ = nullptr;
    QList<QPushButton*> buttons_;
    QPushButton* previous_ = nullptr;
    QPushButton* next_ = nullptr;
    QPushButton* remove_ = nullptr;
    RecordBatchHandler batchHandler_;
    RecordMessageHook messageHook_;
    std::function<void()> optionsHandler_;
    SaveFileHook saveFileHook_;
};

}  // namespace orvane
