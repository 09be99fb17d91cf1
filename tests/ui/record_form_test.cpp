// The record form: its fields, labels and units in order, the limits of the edits,
// the three key filters with the orbit type and the style of the non-gravitational
// parameters, Enter and the control characters, keeping the field in view, and
// filling the form from a record and reading it back.
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>

#include <string>
#include <vector>

#include "records/els_format.h"
#include "records/orbit_record.h"
#include "support/temp_home.h"
#include "ui/edit_page.h"
#include "ui/key_filters.h"
#include "language/language_table.h"

using namespace orvane;

namespace {

// Counts the refusal sounds while it lives.
struct BeepCounter {
    int beeps = 0;
    std::function<void()> saved;
    BeepCounter() : saved(refusalSound()) { refusalSound() = [this] { ++beeps; }; }
    ~BeepCounter() { refusalSound() = saved; }
};

void typeText(QWidget* edit, const QString& keys) {
    for (QChar c : keys) QTest::keyClick(edit, c.toLatin1());
}

void ctrl(QWidget* edit, Qt::Key key) { QTest::keyClick(edit, key, Qt::ControlModifier); }

// 81P/Wild as the golden file of the task tests has it; every field that the ELS
// line does not carry is filled with a made-up value of the right kind.
OrbitRecord fullRecord() {
    const std::string els = testing::readFile(ORVANE_SOURCE_DIR "/tests/tasks/golden/comets.els");
    OrbitRecord record;
    readElsLine(els.substr(0, els.find('\n')), record);
    record.set(Field::id, "1207");
    record.set(Field::des, "1978 A2");
    record.set(Field::P, "6.40");
    record.set(Field::olddes, "1978 XI");
    record.set(Field::hday_err, "0.00021");
    record.set(Field::q_err, "0.0000012");
    record.set(Field::e_err, "0.00000034");
    record.set(Field::w_err, "0.00011");
    record.set(Field::Om_err, "0.00013");
    record.set(Field::i_err, "0.000009");
    record.set(Field::A1, "0.2093");
    record.set(Field::A1_err, "0.0102");
    record.set(Field::A2, "-0.002154");
    record.set(Field::A2_err, "0.00088");
    record.set(Field::A3, "0.0");
    record.set(Field::A3_err, "0.001");
    record.set(Field::Astyle, "II");
    record.set(Field::NGE_DT, "-32.5");
    record.set(Field::NGE_DT_err, "1.5");
    record.set(Field::DFoto, "120.0");
    record.set(Field::DFoto_err, "15");
    record.set(Field::Obs, "1523");
    record.set(Field::F_year, "1978");
    record.set(Field::F_month, "1");
    record.set(Field::F_day, "6");
    record.set(Field::L_year, "2024");
    record.set(Field::L_month, "6");
    record.set(Field::L_day, "30");
    record.set(Field::hsystem, "JPL DE405");
    record.set(Field::hPlan, "9");
    record.set(Field::b_perturber, "M-v");
    record.set(Field::f_perturber, "3E");
    record.set(Field::SBP, "SB431-N16");
    record.set(Field::RMS, ".45");
    record.set(Field::Producer, "Example Observatory");
    record.set(Field::Diameter, "4.0");
    record.set(Field::Diameter_err, "0.3");
    record.set(Field::ARatio, "1.65");
    record.set(Field::ARatio_err, "0.1");
    record.set(Field::RotP, "7.0");
    record.set(Field::RotP_err, "0.5");
    record.set(Field::Albedo, "0.04");
    record.set(Field::Albedo_err, "0.01");
    record.set(Field::M1, "6.5");
    record.set(Field::M1_err, "0.3");
    record.set(Field::K1, "15.0");
    record.set(Field::K1_err, "1.0");
    record.set(Field::M2, "13.5");
    record.set(Field::M2_err, "0.2");
    record.set(Field::K2, "5.0");
    record.set(Field::K2_err, "0.5");
    record.set(Field::htimeStamp, "2024-09-07 12:00:00");
    record.set(Field::hinfo, "Stardust flew by on 2004-01-02.\r\nSamples returned in 2006.");
    return record;
}

}  // namespace

class RecordFormTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { ResetLanguage(); }

    void fieldsStandInTheOrderOfTheTableWithTheEpochBehindTheOrbitType() {
        EditPage page;
        QCOMPARE(page.objectName(), QStringLiteral("EditPage"));
        std::vector<Field> expected{Field::comet, Field::name, Field::des, Field::olddes, Field::htype,
                                    Field::E_year, Field::E_month, Field::E_day};
        for (int f = fieldIndex(Field::hyear); f <= fieldIndex(Field::K2_err); ++f) expected.push_back(fieldAt(f));
        expected.push_back(Field::hinfo);
        QCOMPARE(page.formFields().size(), expected.size());
        for (std::size_t k = 0; k < expected.size(); ++k) {
            QCOMPARE(fieldIndex(page.formFields()[k]), fieldIndex(expected[k]));
            QWidget* edit = page.fieldEdit(expected[k]);
            QVERIFY(edit != nullptr);
            QCOMPARE(edit->objectName(), QString::fromStdString(std::string(fieldName(expected[k]))));
        }
        QVERIFY(page.fieldEdit(Field::id) == nullptr);
        QVERIFY(page.fieldEdit(Field::htimeStamp) == nullptr);

        // One label a line, keys 98 to 136, top to bottom.
        page.resize(900, 700);
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        QStringList labels;
        QList<QLabel*> all = page.widget()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
        std::sort(all.begin(), all.end(), [](QLabel* a, QLabel* b) { return a->y() < b->y(); });
        for (QLabel* label : all) labels << label->text();
        QCOMPARE(labels.size(), 39);
        QCOMPARE(labels.front(), QStringLiteral("Periodic comet number:"));
        QCOMPARE(labels[5], QStringLiteral("Year - Month - Day of the epoch:"));
        QCOMPARE(labels[6], QStringLiteral("Year - Month - Day of perihelion passage:"));
        QCOMPARE(labels[29], QStringLiteral("Person (or institution) who computed the orbit:"));
        QCOMPARE(labels.back(), QStringLiteral("Additional Info:"));
        for (QLabel* label : all) QVERIFY(label->width() >= label->sizeHint().width());

        // The edits of a line and its unit.
        auto unitBehind = [&](Field field) {
            QWidget* row = page.fieldEdit(field)->parentWidget();
            QList<QLabel*> units = row->findChildren<QLabel*>();
            return units.isEmpty() ? QString() : units.front()->text();
        };
        QCOMPARE(unitBehind(Field::htype), QStringLiteral("(C, P or D)"));
        QCOMPARE(unitBehind(Field::q), QStringLiteral("(AU)"));
        QCOMPARE(unitBehind(Field::P), QStringLiteral("(years)"));
        QCOMPARE(unitBehind(Field::i), QStringLiteral("(deg)"));
        QCOMPARE(unitBehind(Field::A2), QStringLiteral("(10e-8 AU/day^2)"));
        QCOMPARE(unitBehind(Field::Astyle), QStringLiteral("(I or II)"));
        QCOMPARE(unitBehind(Field::NGE_DT), QStringLiteral("(days)"));
        QCOMPARE(unitBehind(Field::Diameter), QStringLiteral("(km)"));
        QCOMPARE(unitBehind(Field::b_perturber), QStringLiteral("(blank if unperturbed)"));
        QCOMPARE(unitBehind(Field::f_perturber), QStringLiteral("(0000 if unperturbed)"));
        QCOMPARE(unitBehind(Field::RMS), QStringLiteral("(arcsec)"));
        QCOMPARE(unitBehind(Field::ARatio), QStringLiteral("(a/b)"));
        QCOMPARE(unitBehind(Field::RotP), QStringLiteral("(h)"));
        QCOMPARE(unitBehind(Field::M2), QStringLiteral("(mag)"));
        QCOMPARE(unitBehind(Field::e), QString());
        // The error stands beside its field, on the same line.
        QCOMPARE(page.fieldEdit(Field::q_err)->parentWidget(), page.fieldEdit(Field::q)->parentWidget());
        QVERIFY(page.fieldEdit(Field::q_err)->x() > page.fieldEdit(Field::q)->x());
        QCOMPARE(page.fieldEdit(Field::hday_err)->parentWidget(), page.fieldEdit(Field::hyear)->parentWidget());
        QVERIFY(page.fieldEdit(Field::P)->parentWidget()->findChildren<QLineEdit*>().size() == 1);

        // The long text: several lines with a vertical scroll bar.
        QCOMPARE(page.infoEdit()->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
        QVERIFY(page.infoEdit()->height() > 3 * page.fieldEdit(Field::q)->height());
        QCOMPARE(page.widget()->palette().color(QPalette::Window), QColor(Qt::white));
    }

    void editsHoldTheLimitsOfTheRecordChecks() {
        EditPage page;
        const std::vector<std::pair<Field, int>> limits{
            {Field::comet, 10},  {Field::name, 60},     {Field::des, 30},        {Field::olddes, 30},
            {Field::htype, 1},   {Field::E_year, 5},    {Field::E_month, 2},     {Field::E_day, 2},
            {Field::hyear, 5},   {Field::hmonth, 2},    {Field::hday, 15},       {Field::hday_err, 17},
            {Field::q, 15},      {Field::e, 14},        {Field::P, 6},           {Field::w, 16},
            {Field::Om, 16},     {Field::i, 16},        {Field::A1, 16},         {Field::Astyle, 2},
            {Field::NGE_DT, 17}, {Field::DFoto, 17},    {Field::Obs, 10},        {Field::F_year, 5},
            {Field::L_day, 2},   {Field::hsystem, 60},  {Field::hPlan, 10},      {Field::SBP, 60},
            {Field::b_perturber, 3}, {Field::f_perturber, 4}, {Field::RMS, 8},  {Field::hreference, 60},
            {Field::Producer, 60},   {Field::Diameter, 16},   {Field::Albedo, 14}, {Field::K2, 16},
            {Field::K2_err, 17},
        };
        for (const auto& [field, limit] : limits) {
            QCOMPARE(page.lineEdit(field)->maxLength(), limit);
            QCOMPARE(EditPage::fieldLimit(field), limit);
        }
        QCOMPARE(EditPage::fieldLimit(Field::hinfo), 5000);

        // Typing stops at the limit without a sound.
        BeepCounter counter;
        QLineEdit* p = page.lineEdit(Field::P);
        typeText(p, "1234567");
        QCOMPARE(p->text(), QStringLiteral("123456"));
        QCOMPARE(counter.beeps, 0);

        // The long text takes 5000 characters, typed or pasted.
        QPlainTextEdit* info = page.infoEdit();
        OrbitRecord record;
        record.set(Field::hinfo, std::string(4998, 'x'));
        page.fill(record);
        info->moveCursor(QTextCursor::End);
        typeText(info, "abc");
        QCOMPARE(info->toPlainText().size(), 5000);
        QVERIFY(info->toPlainText().endsWith(QStringLiteral("xab")));
        record.set(Field::hinfo, std::string(4990, 'x'));
        page.fill(record);
        info->moveCursor(QTextCursor::End);
        QApplication::clipboard()->setText(QStringLiteral("0123456789ABCDEF"));
        ctrl(info, Qt::Key_V);
        QCOMPARE(info->toPlainText().size(), 5000);
        QVERIFY(info->toPlainText().endsWith(QStringLiteral("x0123456789")));
    }

    void wholeNumbersTakeDigitsAndTheYearsAMinus() {
        EditPage page;
        BeepCounter counter;
        QLineEdit* comet = page.lineEdit(Field::comet);
        typeText(comet, "12a-3.");
        QCOMPARE(comet->text(), QStringLiteral("123"));
        QCOMPARE(counter.beeps, 3);
        for (Field year : {Field::hyear, Field::E_year, Field::F_year, Field::L_year}) {
            typeText(page.lineEdit(year), "-43");
            QCOMPARE(page.lineEdit(year)->text(), QStringLiteral("-43"));
        }
        QCOMPARE(counter.beeps, 3);
        for (Field field : {Field::E_month, Field::E_day, Field::hmonth, Field::F_month, Field::F_day,
                            Field::L_month, Field::L_day, Field::Obs, Field::hPlan, Field::comet}) {
            QVERIFY(EditPage::keyFilterOf(field) == KeyFilter::wholeNumber);
            const int before = counter.beeps;
            page.lineEdit(field)->clear();
            typeText(page.lineEdit(field), "-1");
            QCOMPARE(page.lineEdit(field)->text(), QStringLiteral("1"));
            QCOMPARE(counter.beeps, before + 1);
        }
    }

    void realNumbersTakeOnePointAndOneExponent() {
        EditPage page;
        BeepCounter counter;
        QLineEdit* q = page.lineEdit(Field::q);
        typeText(q, "1.2.3E5E+-");
        QCOMPARE(q->text(), QStringLiteral("1.23E5+-"));
        QCOMPARE(counter.beeps, 2);
        typeText(q, "e, x");
        QCOMPARE(q->text(), QStringLiteral("1.23E5+-"));
        QCOMPARE(counter.beeps, 6);
        // A point or an exponent that the key replaces may come again.
        q->setText(QStringLiteral("1.5"));
        q->selectAll();
        typeText(q, ".");
        QCOMPARE(q->text(), QStringLiteral("."));
        for (Field field : {Field::hday, Field::hday_err, Field::e, Field::P, Field::A3_err, Field::NGE_DT,
                            Field::DFoto_err, Field::RMS, Field::ARatio, Field::Albedo_err, Field::K1})
            QCOMPARE(EditPage::keyFilterOf(field), KeyFilter::realNumber);
    }

    void textsTakeEveryCharacter() {
        EditPage page;
        BeepCounter counter;
        for (Field field : {Field::name, Field::des, Field::olddes, Field::hsystem, Field::SBP, Field::b_perturber,
                            Field::f_perturber, Field::hreference, Field::Producer}) {
            QCOMPARE(EditPage::keyFilterOf(field), KeyFilter::text);
        }
        typeText(page.lineEdit(Field::name), "Hale-Bopp 1,2.E+x");
        QCOMPARE(page.lineEdit(Field::name)->text(), QStringLiteral("Hale-Bopp 1,2.E+x"));
        for (QChar c : QStringLiteral("Müller")) {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(c));
            QApplication::sendEvent(page.lineEdit(Field::Producer), &press);
        }
        QCOMPARE(page.lineEdit(Field::Producer)->text(), QStringLiteral("Müller"));
        QCOMPARE(counter.beeps, 0);
    }

    void orbitTypeAndStyleTakeTheirLettersInUpperCase() {
        EditPage page;
        BeepCounter counter;
        QLineEdit* type = page.lineEdit(Field::htype);
        typeText(type, "x");
        QCOMPARE(type->text(), QString());
        QCOMPARE(counter.beeps, 1);
        for (const char* letter : {"c", "C", "d", "D", "p", "P"}) {
            type->clear();
            typeText(type, letter);
            QCOMPARE(type->text(), QString::fromLatin1(letter).toUpper());
        }
        QCOMPARE(counter.beeps, 1);
        QLineEdit* style = page.lineEdit(Field::Astyle);
        typeText(style, "iI");
        QCOMPARE(style->text(), QStringLiteral("II"));
        typeText(style, "2");
        QCOMPARE(counter.beeps, 2);
        style->clear();
        typeText(style, "a");
        QCOMPARE(style->text(), QString());
        QCOMPARE(counter.beeps, 3);
    }

    void enterIsDroppedWithoutASound() {
        EditPage page;
        BeepCounter counter;
        for (Field field : {Field::comet, Field::hyear, Field::q, Field::name, Field::htype, Field::Astyle}) {
            page.lineEdit(field)->setText(QStringLiteral("1"));
            QTest::keyClick(page.lineEdit(field), Qt::Key_Return);
            QTest::keyClick(page.lineEdit(field), Qt::Key_Enter);
            QCOMPARE(page.lineEdit(field)->text(), QStringLiteral("1"));
        }
        page.infoEdit()->setPlainText(QStringLiteral("ab"));
        page.infoEdit()->moveCursor(QTextCursor::End);
        QTest::keyClick(page.infoEdit(), Qt::Key_Return);
        QCOMPARE(page.infoEdit()->toPlainText(), QStringLiteral("ab"));
        QCOMPARE(counter.beeps, 0);
        for (KeyFilter filter : {KeyFilter::wholeNumber, KeyFilter::yearNumber, KeyFilter::realNumber,
                                 KeyFilter::text, KeyFilter::orbitType, KeyFilter::ngStyle})
            QVERIFY(filterKey(filter, 13, QString()).verdict == KeyVerdict::drop);
    }

    void selectAllCopyBackspacePasteAndCutPass() {
        for (KeyFilter filter : {KeyFilter::wholeNumber, KeyFilter::yearNumber, KeyFilter::realNumber,
                                 KeyFilter::text, KeyFilter::orbitType, KeyFilter::ngStyle}) {
            for (char32_t code : {1u, 3u, 8u, 22u, 24u}) {
                const KeyDecision decision = filterKey(filter, code, QStringLiteral("1.5E"));
                QVERIFY(decision.verdict == KeyVerdict::take);
                QCOMPARE(static_cast<unsigned>(decision.character), static_cast<unsigned>(code));
            }
            if (filter != KeyFilter::text) QVERIFY(filterKey(filter, 26, QString()).verdict == KeyVerdict::refuse);
        }

        EditPage page;
        BeepCounter counter;
        QLineEdit* q = page.lineEdit(Field::q);
        typeText(q, "1.5");
        ctrl(q, Qt::Key_A);
        QCOMPARE(q->selectedText(), QStringLiteral("1.5"));
        ctrl(q, Qt::Key_C);
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("1.5"));
        ctrl(q, Qt::Key_X);
        QCOMPARE(q->text(), QString());
        ctrl(q, Qt::Key_V);
        QCOMPARE(q->text(), QStringLiteral("1.5"));
        QTest::keyClick(q, Qt::Key_Backspace);
        QCOMPARE(q->text(), QStringLiteral("1."));
        QCOMPARE(counter.beeps, 0);
        // Undo is not among them in a number.
        ctrl(q, Qt::Key_Z);
        QCOMPARE(q->text(), QStringLiteral("1."));
        QCOMPARE(counter.beeps, 1);
    }

    void theScrollRuleKeepsTenPixelsAboveAndThirtyBelow() {
        // Above the top edge: scrolled back so that the top stands 10 pixels below it.
        QCOMPARE(EditPage::scrollToShow(100, 95, 400), 90);
        QCOMPARE(EditPage::scrollToShow(100, 300, 400), 90);
        QCOMPARE(EditPage::scrollToShow(100, 91, 400), 90);
        QCOMPARE(EditPage::scrollToShow(100, 90, 400), 90);  // exactly 10: stays
        // Too near the bottom edge: up until the top stands 30 pixels above it.
        QCOMPARE(EditPage::scrollToShow(500, 0, 400), 130);
        QCOMPARE(EditPage::scrollToShow(371, 0, 400), 1);
        QCOMPARE(EditPage::scrollToShow(370, 0, 400), 0);  // exactly 30: stays
        // Well inside: no scroll.
        QCOMPARE(EditPage::scrollToShow(200, 100, 400), 100);

        EditPage page;
        page.resize(700, 300);
        page.show();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        QScrollBar* bar = page.verticalScrollBar();
        const int height = page.viewport()->height();
        const auto topOf = [&](Field field) {
            return page.fieldEdit(field)->mapTo(page.widget(), QPoint(0, 0)).y();
        };
        page.focusField(Field::hinfo);
        QVERIFY(page.infoEdit()->hasFocus());
        QCOMPARE(bar->value(), topOf(Field::hinfo) - (height - 30));
        page.focusField(Field::q);
        QCOMPARE(bar->value(), topOf(Field::q) - 10);
        // A key taken brings its field back into view.
        bar->setValue(0);
        QTest::keyClick(page.lineEdit(Field::K2), '5');
        QCOMPARE(bar->value(), topOf(Field::K2) - (height - 30));
        // A refused key does not.
        bar->setValue(0);
        BeepCounter counter;
        QTest::keyClick(page.lineEdit(Field::K1), 'x');
        QCOMPARE(bar->value(), 0);
        // Getting the focus by Tab does it as well.
        page.lineEdit(Field::comet)->setFocus();
        bar->setValue(bar->maximum());
        QTest::keyClick(page.lineEdit(Field::comet), Qt::Key_Tab);
        QVERIFY(page.lineEdit(Field::name)->hasFocus());
        QCOMPARE(bar->value(), std::max(0, topOf(Field::name) - 10));
    }

    void aRecordGoesThroughTheFormUnchanged() {
        const OrbitRecord record = fullRecord();
        QCOMPARE(QString::fromStdString(std::string(record.get(Field::name))), QStringLiteral("Wild"));
        QCOMPARE(QString::fromStdString(std::string(record.get(Field::comet))), QStringLiteral("0081"));
        QStringList blanks;
        for (int f = fieldIndex(Field::comet); f <= fieldIndex(Field::K2_err); ++f)
            if (record.blank(fieldAt(f))) blanks << QString::fromStdString(std::string(fieldName(fieldAt(f))));
        QCOMPARE(blanks, QStringList());

        EditPage page;
        page.fill(record);
        QCOMPARE(page.lineEdit(Field::q)->text(), QStringLiteral("1.597163"));
        QCOMPARE(page.lineEdit(Field::hmonth)->text(), QStringLiteral("12"));
        QCOMPARE(page.lineEdit(Field::E_year)->text(), QStringLiteral("2024"));
        QCOMPARE(page.lineEdit(Field::Astyle)->text(), QStringLiteral("II"));
        QCOMPARE(page.infoEdit()->toPlainText(),
                 QStringLiteral("Stardust flew by on 2004-01-02.\nSamples returned in 2006."));
        QVERIFY(page.read() == record);

        // A changed field, a cleared one, and a new line in the long text.
        page.lineEdit(Field::q)->setText(QStringLiteral("1.5972"));
        page.lineEdit(Field::M2_err)->clear();
        page.infoEdit()->setPlainText(QStringLiteral("one\ntwo"));
        OrbitRecord expected = record;
        expected.set(Field::q, "1.5972");
        expected.set(Field::M2_err, "");
        expected.set(Field::hinfo, "one\r\ntwo");
        QVERIFY(page.read() == expected);
        QVERIFY(page.read().blank(Field::M2_err));

        // Blanks stay blank; the id and the time stamp stay as they were.
        OrbitRecord blank;
        blank.set(Field::id, "77");
        page.fill(blank);
        for (Field field : page.formFields())
            if (field != Field::hinfo) QCOMPARE(page.lineEdit(field)->text(), QString());
        QVERIFY(page.read() == blank);
        page.lineEdit(Field::name)->setText(QStringLiteral("   "));
        QVERIFY(page.read().blank(Field::name));
    }

    void aTextBeyondItsLimitIsShownAndKeptWhole() {
        OrbitRecord record;
        const std::string longName(70, 'N');
        record.set(Field::name, longName);
        record.set(Field::hinfo, "first\nsecond");  // a bare line feed, untouched
        EditPage page;
        page.fill(record);
        QCOMPARE(page.lineEdit(Field::name)->text().size(), 70);
        QVERIFY(page.read() == record);
        BeepCounter counter;
        page.lineEdit(Field::name)->end(false);
        typeText(page.lineEdit(Field::name), "x");
        QCOMPARE(page.lineEdit(Field::name)->text().size(), 70);
        // The next record has the usual limit again.
        page.fill(OrbitRecord());
        QCOMPARE(page.lineEdit(Field::name)->maxLength(), 60);
    }
};

QTEST_MAIN(RecordFormTest)
#include "record_form_test.moc"
