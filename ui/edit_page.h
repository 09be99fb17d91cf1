#pragma once
// The record form of the record window: a white, scrolled column of labels, one
// edit for each field of an orbit record, a second one beside it for the field's
// error where the column has one, and the unit behind them; the long text of the
// record last. Each edit holds at most the characters that the record checks allow
// and judges each typed character by its key filter; the field that has the focus,
// or takes a key, is kept in view.
#include <QScrollArea>
#include <vector>

#include "records/orbit_record.h"
#include "ui/key_filters.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QGridLayout;

namespace orvane {

class EditPage : public QScrollArea {
    Q_OBJECT
public:
    // A field stands at least this far below the top edge of the page ...
    static constexpr int kTopMargin = 10;
    // ... and its top at least this far above the bottom edge.
    static constexpr int kBottomMargin = 30;

    explicit EditPage(QWidget* parent = nullptr);

    // Shows the fields of `record`, exactly as they stand.
    void fill(const OrbitRecord& record);
    // The record last filled in, with every field of the form taken from its edit:
    // a field that was not changed keeps the exact text of the record, a blank edit
    // gives a blank field. Fields outside the form (id, time stamp ...) stay as filled.
    OrbitRecord read() const;

    // The edit of a field: a QLineEdit, or the multi-line edit of `hinfo`; null for
    // fields that the form does not show.
    QWidget* fieldEdit(Field field) const;
    QLineEdit* lineEdit(Field field) const;
    QPlainTextEdit* infoEdit() const { return info_; }
    // The fields that the form shows, in its order.
    const std::vector<Field>& formFields() const { return order_; }

    // The characters that the edit of `field` takes, and its key filter.
    static int fieldLimit(Field field);
    static KeyFilter keyFilterOf(Field field);

    // Gives the edit of `field` the focus (which brings it into view).
    void focusField(Field field);

    // The scroll position that keeps a field in view: `fieldTop` in form
    // coordinates, the page scrolled to `scroll`, its visible height `pageHeight`.
    static int scrollToShow(int fieldTop, int scroll, int pageHeight);
    // Scrolls the page by that rule for `edit`.
    void keepInView(QWidget* edit);

    // Labels and units again from the language table.
    void retitle();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildRows(QGridLayout* grid);
    QLineEdit* addLineEdit(Field field, QWidget* row);
    bool judgeKey(QWidget* edit, QKeyEvent* key);

    QWidget* form_ = nullptr;
    std::vector<QLineEdit*> edits_;  // by field index; null where the form has none
    QPlainTextEdit* info_ = nullptr;
    std::vector<Field> order_;
    OrbitRecord record_;
    QString filledInfo_;  // the long text as the edit showed it after filling
};

}  // namespace orvane
