#pragma once
// The key filters of the record form. Every edit of the form judges each character
// typed into it by one of these filters, as the old edit controls judged WM_CHAR:
// the control characters of select all, copy, backspace, paste and cut always pass,
// Enter is dropped without a sound, and anything else that the filter refuses beeps.
// Keys that type no character (arrows, Delete, Home, Tab ...) are not judged.
#include <QString>
#include <functional>

class QKeyEvent;

namespace orvane {

enum class KeyFilter {
    wholeNumber,  // digits
    yearNumber,   // digits and "-"
    realNumber,   // digits, one ".", one "E", "+" and "-"
    text,         // every character
    orbitType,    // C, D or P in either case, stored upper case
    ngStyle,      // I in either case, stored upper case
};

enum class KeyVerdict {
    take,    // the character goes into the edit (possibly changed, see KeyDecision)
    drop,    // swallowed without a sound
    refuse,  // swallowed with the refusal sound
};

struct KeyDecision {
    KeyVerdict verdict = KeyVerdict::refuse;
    char32_t character = 0;  // what goes into the edit when taken
};

// The control characters that every filter passes: 1 select all, 3 copy,
// 8 backspace, 22 paste, 24 cut.
bool isPassedControl(char32_t code);

// Judges `code` typed into an edit whose text, without the selection that the
// character would replace, is `kept`.
KeyDecision filterKey(KeyFilter filter, char32_t code, const QString& kept);

// The character that a key press types, as the edit control saw it: Ctrl+A to
// Ctrl+Z give 1 to 26, Backspace 8, Return and Enter 13. Keys that type nothing,
// and Tab and Esc, which move the focus or leave the window, give 0.
char32_t typedCharacter(const QKeyEvent& event);

// The sound of a refused key: QApplication::beep() unless a test put its own here.
std::function<void()>& refusalSound();

}  // namespace orvane
