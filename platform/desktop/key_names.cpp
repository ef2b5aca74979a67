// Letters and signs go by the character that the layout makes of the key; the digits of the main row by the key's own
// place, since SHIFT turns them into signs that differ from country to country.
#include "platform/desktop/key_names.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <string_view>

namespace zarn
{
namespace
{
struct NamedKey
{
    int lKey;
    char const* sName;
};
constexpr NamedKey aNamedKeys[] = {
    {Qt::Key_Left, "left"},     {Qt::Key_Right, "right"},         {Qt::Key_Up, "up"},
    {Qt::Key_Down, "down"},     {Qt::Key_Home, "home"},           {Qt::Key_End, "end"},
    {Qt::Key_PageUp, "pageup"}, {Qt::Key_PageDown, "pagedown"},   {Qt::Key_Return, "enter"},
    {Qt::Key_Enter, "enter"},   {Qt::Key_Escape, "esc"},          {Qt::Key_Space, "space"},
    {Qt::Key_Delete, "delete"}, {Qt::Key_Backspace, "backspace"}, {Qt::Key_Tab, "tab"},
    {Qt::Key_Backtab, "tab"},
};
constexpr int lFunctionKeys = 12;

constexpr std::string_view sDigits = "1234567890";        // the main row from left to right
constexpr std::string_view sShiftedDigits = "!@#$%^&*()"; // the same keys on a US keyboard

/// The main row's digit, by where the key lies; empty for other keys and where the system doesn't tell.
std::string MainRowDigit(QKeyEvent const& key)
{
#if defined(_WIN32)
    constexpr quint32 lFirst = 2;
#else
    constexpr quint32 lFirst = 10; // X11's and Wayland's keycodes
#endif
    quint32 const lScanCode = key.nativeScanCode();
    if (lScanCode >= lFirst && lScanCode < lFirst + sDigits.size() && !key.modifiers().testFlag(Qt::KeypadModifier))
        return {sDigits[lScanCode - lFirst]};
    if (lScanCode != 0 || !key.modifiers().testFlag(Qt::ShiftModifier) || key.key() > '~')
        return {};
    size_t const lPlace = sShiftedDigits.find(static_cast<char>(key.key()));
    return lPlace == sShiftedDigits.npos ? std::string() : std::string{sDigits[lPlace]};
}

std::string Name(QKeyEvent const& key)
{
    int const lKey = key.key();
    for (NamedKey const& row : aNamedKeys)
        if (row.lKey == lKey)
            return row.sName;
    if (lKey >= Qt::Key_F1 && lKey < Qt::Key_F1 + lFunctionKeys)
        return "f" + std::to_string(lKey - Qt::Key_F1 + 1);
    if (std::string const sDigit = MainRowDigit(key); !sDigit.empty())
        return sDigit;
    if (lKey < Qt::Key_Exclam || lKey > Qt::Key_AsciiTilde)
        return {};
    char const c = static_cast<char>(lKey);
    return {c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c};
}
} // namespace

std::optional<Event> Key_Event(QKeyEvent const& key)
{
    Event event{.kind = EventKind::KEY};
    event.sText = Name(key);
    if (event.sText.empty())
        return {};
    event.fShift = key.modifiers().testFlag(Qt::ShiftModifier);
    event.fCtrl = key.modifiers().testFlag(Qt::ControlModifier);
    event.fAlt = key.modifiers().testFlag(Qt::AltModifier);
    // The right-hand ALT of many layouts says CTRL and ALT, and yet only makes a sign.
    if (event.fCtrl && event.fAlt && !key.text().isEmpty() && key.text().at(0).isPrint())
        event.fCtrl = event.fAlt = false;
    return event;
}
} // namespace zarn
