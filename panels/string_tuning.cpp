// The dialog of the instrument. Its two buttons only fill the fields in; nothing is taken over before OK.
#include "panels/string_tuning.h"

#include "core/settings.h"
#include "core/text.h"
#include "panels/number_text.h"
#include "tab/tuning.h"

#include <algorithm>

namespace zarn
{
namespace
{
constexpr int32_t cbField = 20; ///< longest text of a field
constexpr char const* szStretchSetting = "Max stretch";
constexpr int32_t lUsualStretch = 175;

/// What the fields are filled with.
struct Instrument
{
    int32_t lStrings = 0;
    int32_t lTopPitch = 0;
    DialogIntervals intervals{};
    int32_t lStretch = 0;
};
constexpr Instrument guitar{6, 76, {5, 4, 5, 5, 5, 0, 0, 0}, 175};
/// On the short neck the same hand spans twice as much of the string.
constexpr Instrument mandolin{4, 76, {7, 7, 7, 0, 0, 0, 0, 0}, 350};

struct Field
{
    int32_t lId;
    char const* szLabel;
    char const* szName;
    int32_t Instrument::*plValue; ///< null for an interval
};
constexpr Field aField[] = {
    {lTuningStrings, "Number of strings (current maximum is 6)", "strings", &Instrument::lStrings},
    {lTuningTopPitch, "MIDI Pitch of treble string in semitones (middle C=60)", "top", &Instrument::lTopPitch},
    {lTuningInterval, "Semitones down to string 2", "interval2", nullptr},
    {lTuningInterval + 1, "Additional semitones down to string 3", "interval3", nullptr},
    {lTuningInterval + 2, "Additional semitones down to string 4", "interval4", nullptr},
    {lTuningInterval + 3, "Additional semitones down to string 5", "interval5", nullptr},
    {lTuningInterval + 4, "Additional semitones down to string 6", "interval6", nullptr},
    {lTuningInterval + 5, "Additional semitones down to string 7 (not yet)", "interval7", nullptr},
    {lTuningInterval + 6, "Additional semitones down to string 8 (not yet)", "interval8", nullptr},
    {lTuningInterval + 7, "Additional semitones down to string 9 (not yet)", "interval9", nullptr},
    {lTuningStretch, "Max stretch (nut to bridge=1000)", "stretch", &Instrument::lStretch}};

std::string Text(Instrument const& instrument, Field const& field)
{
    size_t const nInterval = static_cast<size_t>(field.lId - lTuningInterval);
    return Format("%d", field.plValue ? instrument.*field.plValue : instrument.intervals[nInterval]);
}

FormControl Edit(Instrument const& instrument, Field const& field)
{
    FormControl edit{FormControl::EDIT, field.lId, field.szLabel, Text(instrument, field)};
    edit.lLimit = cbField;
    edit.sName = field.szName;
    return edit;
}

FormControl FillButton(Instrument const& instrument, int32_t lId, char const* szLabel, char const* szName)
{
    FormControl button{FormControl::FILL_BUTTON, lId, szLabel};
    button.sName = szName;
    for (Field const& field : aField)
        button.aFills.push_back({field.lId, Text(instrument, field)});
    return button;
}

Form TuningForm(Instrument const& instrument)
{
    Form form{lTuningForm, "String tuning", "form", {}};
    for (Field const& field : aField)
        form.aControls.push_back(Edit(instrument, field));
    form.aControls.push_back(FillButton(guitar, lTuningGuitar, "Guitar", "guitar"));
    form.aControls.push_back(FillButton(mandolin, lTuningMandolin, "Mandolin", "mandolin"));
    form.aControls.push_back({FormControl::DEFAULT_BUTTON, IDOK, "OK"});
    form.aControls.push_back({FormControl::BUTTON, IDCANCEL, "Cancel"});
    return form;
}
} // namespace

int32_t StringTuningDialog(HWND hwnd, int32_t* plStrings, int32_t* plTopPitch, DialogIntervals* pIntervals)
{
    Instrument shown{*plStrings, *plTopPitch, {}, lUsualStretch};
    LoadSetting(&shown.lStretch, szStretchSetting);
    for (int32_t l = 0; l < std::min(*plStrings, lTuningIntervals); ++l)
        shown.intervals[static_cast<size_t>(l)] = (*pIntervals)[static_cast<size_t>(l)];
    Form form = TuningForm(shown);
    if (DialogBoxParamA(hwnd, form) != IDOK)
        return 0;
    auto const number = [&form](int32_t lId) { return AtoiLoose(form.Find(lId)->sText); };
    *plStrings = number(lTuningStrings);
    *plTopPitch = number(lTuningTopPitch);
    for (int32_t l = 0; l < lTuningIntervals; ++l)
        (*pIntervals)[static_cast<size_t>(l)] = l < *plStrings ? number(lTuningInterval + l) : 0;
    lMaxStretch = number(lTuningStretch);
    SaveSetting(lMaxStretch, szStretchSetting);
    return 1;
}
} // namespace zarn
