#include "ui/key_filters.h"

#include <QApplication>
#include <QKeyEvent>

namespace orvane {
namespace {

constexpr char32_t kEnter = 13;
constexpr char32_t kLineFeed = 10;  // Ctrl+Enter

bool isDigit(char32_t code) { return code >= U'0' && code <= U'9'; }

KeyDecision take(char32_t code) { return {KeyVerdict::take, code}; }
KeyDecision refuse() { return {KeyVerdict::refuse, 0}; }

KeyDecision realNumberKey(char32_t code, const QString& kept) {
    if (isDigit(code) || code == U'+' || code == U'-') return take(code);
    if (code == U'.' && !kept.contains(QLatin1Char('.'))) return take(code);
    if (code == U'E' && !kept.contains(QLatin1Char('E'))) return take(code);
    return refuse();
}

char32_t upper(char32_t code) { return code >= U'a' && code <= U'z' ? code - (U'a' - U'A') : code; }

KeyDecision choiceKey(char32_t code, std::u32string_view allowed) {
    const char32_t up = upper(code);
    return allowed.find(up) != std::u32string_view::npos ? take(up) : refuse();
}

}  // namespace

bool isPassedControl(char32_t code) { return code == 1 || code == 3 || code == 8 || code == 22 || code == 24; }

KeyDecision filterKey(KeyFilter filter, char32_t code, const QString& kept) {
    if (isPassedControl(code)) return take(code);
    if (code == kEnter || code == kLineFeed) return {KeyVerdict::drop, 0};
    switch (filter) {
        case KeyFilter::wholeNumber: return isDigit(code) ? take(code) : refuse();
        case KeyFilter::yearNumber: return isDigit(code) || code == U'-' ? take(code) : refuse();
        case KeyFilter::realNumber: return realNumberKey(code, kept);
        case KeyFilter::text: return take(code);
        case KeyFilter::orbitType: return choiceKey(code, U"CDP");
        case KeyFilter::ngStyle: return choiceKey(code, U"I");
    }
    return refuse();
}

char32_t typedCharacter(const QKeyEvent& event) {
    const int key = event.key();
    switch (key) {
        case Qt::Key_Backspace: return 8;
        case Qt::Key_Return:
        case Qt::Key_Enter: return (event.modifiers() & Qt::ControlModifier) ? kLineFeed : kEnter;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Escape: return 0;
        default: break;
    }
    const Qt::KeyboardModifiers mods = event.modifiers();
    if ((mods & Qt::ControlModifier) && !(mods & Qt::AltModifier) && key >= Qt::Key_A && key <= Qt::Key_Z)
        return static_cast<char32_t>(key - Qt::Key_A + 1);
    const QString typed = event.text();
    if (typed.isEmpty()) return 0;
    const QList<uint> codes = typed.toUcs4();
    return codes.isEmpty() ? 0 : static_cast<char32_t>(codes.front());
}

std::function<void()>& refusalSound() {
    static std::function<void()> sound = [] { QApplication::beep(); };
    return sound;
}

}  // namespace orvane
