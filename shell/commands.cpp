// The dispatcher. The ranges, whose numbers carry a value, are asked first, then the flat table.
#include "shell/commands.h"

#include "core/messages.h"
#include "core/score.h"
#include "edit/current_symbol.h"
#include "midi/midi_setup.h"
#include "shell/command_list.h"
#include "shell/edit_commands.h"
#include "shell/exit.h"
#include "shell/files.h"
#include "shell/help.h"
#include "shell/modes.h"
#include "shell/options.h"
#include "shell/page_commands.h"
#include "shell/panels_shown.h"
#include "shell/paper.h"
#include "shell/play_commands.h"
#include "shell/play_marker.h"
#include "shell/play_options.h"
#include "shell/print.h"
#include "shell/record_command.h"
#include "shell/staffs_shown.h"
#include "shell/symbol_commands.h"
#include "shell/tab_commands.h"
#include "shell/text_commands.h"

namespace zarn
{
namespace
{
struct CommandRange
{
    int32_t lFirst;
    int32_t lLast;
    int32_t lBase; ///< the value is the number less this
    void (*pRun)(int32_t lValue);
};
constexpr CommandRange aRanges[] = {
    {COMMAND_VOLUME, COMMAND_VOLUME + 8, COMMAND_VOLUME, VolumeCommand},
    {COMMAND_INSTRUMENT, COMMAND_INSTRUMENT + 127, COMMAND_INSTRUMENT, [](int32_t l) { SymbolCommand(INSTRUMENT, l); }},
    {COMMAND_TRANSPOSE - 60, COMMAND_TRANSPOSE + 60, COMMAND_TRANSPOSE, [](int32_t l) { SymbolCommand(TRANSPOSE, l); }},
    {COMMAND_TRANSPOSEMARK - 60, COMMAND_TRANSPOSEMARK + 60, COMMAND_TRANSPOSEMARK, TransposeMarkCommand},
    {COMMAND_TRANSPOSEALL - 60, COMMAND_TRANSPOSEALL + 60, COMMAND_TRANSPOSEALL, TransposeAllCommand},
    {COMMAND_TEMPO, COMMAND_TEMPO + 315, COMMAND_TEMPO, [](int32_t l) { SymbolCommand(TEMPO, l); }},
    {COMMAND_PLAYSTAFF + 1, COMMAND_PLAYSTAFF + lHighestStaff, COMMAND_PLAYSTAFF, TogglePlayStaff},
    {COMMAND_SHOWSTAFF + 1, COMMAND_SHOWSTAFF + lHighestStaff, COMMAND_SHOWSTAFF, ShowOrHideStaff},
    {COMMAND_BARWEIGHT, COMMAND_BARWEIGHT + 63, COMMAND_BARWEIGHT, BarWeightCommand},
    {COMMAND_KEYKEEPINGTEXT - 6, COMMAND_KEYKEEPINGTEXT + 6, COMMAND_KEYKEEPINGTEXT, KeyKeepingTextCommand},
    {COMMAND_KEYKEEPINGPITCH - 6, COMMAND_KEYKEEPINGPITCH + 6, COMMAND_KEYKEEPINGPITCH, KeyKeepingPitchCommand},
    {COMMAND_FRET, COMMAND_FRET + lMostFret, COMMAND_FRET, FretCommand},
    {COMMAND_RECENT + 1, COMMAND_RECENT + lMostRecent, COMMAND_RECENT, RecentCommand},
    {COMMAND_FIRSTWEIGHT, COMMAND_MAXSTRETCH, 0, WeightCommand},
    {COMMAND_AVOIDOPENSTRINGS, COMMAND_AVOIDOPENSTRINGS, 0, WeightCommand},
};

struct CommandRow
{
    int32_t lCommand;
    void (*pRun)();
};
constexpr CommandRow aCommands[] = {
    {COMMAND_NEW, NewCommand},
    {COMMAND_OPEN, OpenCommand},
    {COMMAND_SAVE, SaveCommand},
    {COMMAND_SAVEAS, SaveAsCommand},
    {COMMAND_EXIT, ExitCommand},
    {COMMAND_PRINT, PrintCommand},
    {COMMAND_PRINTONE, [] { PrintScore(1); }},
    {COMMAND_PREVIEW, PreviewCommand},
    {COMMAND_SAVEPDF, SavePdfCommand},
    {COMMAND_WAITEACHPAGE, ToggleWaitEachPage},
    {COMMAND_APPEND, AppendCommand},
    {COMMAND_UNDO, UndoCommand},
    {COMMAND_CUT, CutCommand},
    {COMMAND_COPY, CopyCommand},
    {COMMAND_PASTE, PasteCommand},
    {COMMAND_MARKBEGIN, MarkBeginCommand},
    {COMMAND_MARKEND, MarkEndCommand},
    {COMMAND_CLEARMARK, ClearMarkCommand},
    {COMMAND_DUPLICATE, DuplicateCommand},
    {COMMAND_SLURMARK, SlurMarkCommand},
    {COMMAND_NOTE, [] { NoteCommand(384); }},
    {COMMAND_NOTE + 1, [] { NoteCommand(192); }},
    {COMMAND_NOTE + 2, [] { NoteCommand(96); }},
    {COMMAND_NOTE + 3, [] { NoteCommand(48); }},
    {COMMAND_NOTE + 4, [] { NoteCommand(24); }},
    {COMMAND_NOTE + 5, [] { NoteCommand(12); }},
    {COMMAND_DEMISEMIQUAVER, [] { NoteCommand(6); }},
    {COMMAND_GRACENOTE, [] { NoteCommand(0); }},
    {COMMAND_REST, [] { RestCommand(384); }},
    {COMMAND_REST + 1, [] { RestCommand(192); }},
    {COMMAND_REST + 2, [] { RestCommand(96); }},
    {COMMAND_REST + 3, [] { RestCommand(48); }},
    {COMMAND_REST + 4, [] { RestCommand(24); }},
    {COMMAND_REST + 5, [] { RestCommand(12); }},
    {COMMAND_DEMISEMIQUAVERREST, [] { RestCommand(6); }},
    {COMMAND_REPEATSTART, [] { SymbolCommand(REPEATSTART); }},
    {COMMAND_REPEATEND, [] { SymbolCommand(REPEATEND); }},
    {COMMAND_REPEATENDSTART, [] { SymbolCommand(REPEATENDSTART); }},
    {COMMAND_REPEATFIRST, [] { SymbolCommand(REPEATFIRST); }},
    {COMMAND_BAR, [] { SymbolCommand(BAR); }},
    {COMMAND_DOUBLEBAR, [] { SymbolCommand(DOUBLEBAR); }},
    {COMMAND_SHARP, [] { SymbolCommand(SHARP); }},
    {COMMAND_NATURAL, [] { SymbolCommand(NATURAL); }},
    {COMMAND_FLAT, [] { SymbolCommand(FLAT); }},
    {COMMAND_SPACE, SpaceCommand},
    {COMMAND_NEWLINE, [] { SymbolCommand(NEWLINE); }},
    {COMMAND_TIE, [] { SymbolCommand(TIE); }},
    {COMMAND_TREBLECLEF, [] { SymbolCommand(CLEF, 1); }},
    {COMMAND_ALTOCLEF, [] { SymbolCommand(CLEF, 2); }},
    {COMMAND_BASSCLEF, [] { SymbolCommand(CLEF, 3); }},
    {COMMAND_TENORCLEF, [] { SymbolCommand(CLEF, 4); }},
    {COMMAND_TIME12, [] { SymbolCommand(TIMESIG, 1, 2); }},
    {COMMAND_TIME12 + 1, [] { SymbolCommand(TIMESIG, 2, 2); }},
    {COMMAND_TIME12 + 2, [] { SymbolCommand(TIMESIG, 3, 2); }},
    {COMMAND_TIME12 + 3, [] { SymbolCommand(TIMESIG, 4, 2); }},
    {COMMAND_TIME24, [] { SymbolCommand(TIMESIG, 2, 4); }},
    {COMMAND_TIME24 + 1, [] { SymbolCommand(TIMESIG, 3, 4); }},
    {COMMAND_TIME24 + 2, [] { SymbolCommand(TIMESIG, 4, 4); }},
    {COMMAND_TIME24 + 3, [] { SymbolCommand(TIMESIG, 6, 4); }},
    {COMMAND_TIME24 + 4, [] { SymbolCommand(TIMESIG, 6, 8); }},
    {COMMAND_TIME24 + 5, [] { SymbolCommand(TIMESIG, 9, 8); }},
    {COMMAND_TIME24 + 6, [] { SymbolCommand(TIMESIG, 12, 8); }},
    {COMMAND_OTHERTIME, TimeSignatureCommand},
    {COMMAND_TITLE, [] { EnterText(WRITE_TITLE); }},
    {COMMAND_WORD, [] { EnterText(WRITE_LYRIC); }},
    {COMMAND_HARMONY, [] { EnterText(WRITE_HARMONY); }},
    {COMMAND_TEXT, [] { EnterText(WRITE_TEXT); }},
    {COMMAND_ANNOTATION, [] { EnterText(WRITE_ANNOTATION); }},
    {COMMAND_LYRICS, LyricsCommand},
    {COMMAND_EDITITEM, EditItemCommand},
    {COMMAND_EDITLYRICS, EditLyricsCommand},
    {COMMAND_DELETEITEM, DeleteItemCommand},
    {COMMAND_DOT, DotCommand},
    {COMMAND_TRIPLET, TripletCommand},
    {COMMAND_STACCATO, StaccatoCommand},
    {COMMAND_ORNAMENT, OrnamentCommand},
    {COMMAND_INSERTPOINT, InsertPointCommand},
    {COMMAND_ARPEGGIOSTART, [] { SymbolCommand(ARPEGSTART); }},
    {COMMAND_ARPEGGIOEND, [] { SymbolCommand(ARPEGEND); }},
    {COMMAND_UPBOW, [] { SymbolCommand(BOWING, 1); }},
    {COMMAND_DOWNBOW, [] { SymbolCommand(BOWING, 2); }},
    {COMMAND_INSTRUMENTNUMBER, InstrumentNumberCommand},
    {COMMAND_KEEPBARS, ToggleKeepBars},
    {COMMAND_PIANO, TogglePiano},
    {COMMAND_PALETTE, TogglePalette},
    {COMMAND_RECORD, RecordCommand},
    {COMMAND_PIANOCLOSED, PianoClosed},
    {COMMAND_PALETTECLOSED, PaletteClosed},
    {COMMAND_CLARINET, ToggleClarinet},
    {COMMAND_GUITAR, ToggleGuitar},
    {COMMAND_DOUBLESPEED, ToggleDoubleSpeed},
    {COMMAND_ENDLESSREPEAT, ToggleEndlessRepeat},
    {COMMAND_BARNDANCE, ToggleBarnDance},
    {COMMAND_DOTTEDCROTCHET, ToggleDottedCrotchet},
    {COMMAND_DOTTEDQUAVER, ToggleDottedQuaver},
    {COMMAND_SEMITONEROLLS, [] { ToggleOrnaments(ORNAMENT_SEMITONE); }},
    {COMMAND_BOWEDTRIPLETS, [] { ToggleOrnaments(ORNAMENT_BOWED); }},
    {COMMAND_DIATONICROLLS, [] { ToggleOrnaments(ORNAMENT_DIATONIC); }},
    {COMMAND_SHOWPLAYED, ToggleShowPlayed},
    {COMMAND_PLAYCHORDS, TogglePlayChords},
    {COMMAND_DEFAULTINSTRUMENT, AskDefaultInstrument},
    {COMMAND_EDITMODE, ToggleEditMode},
    {COMMAND_SHOWINVISIBLE, ToggleShowInvisible},
    {COMMAND_BEAMQUAVERS, ToggleBeamQuavers},
    {COMMAND_RIGHTJUSTIFIED, ToggleRightJustified},
    {COMMAND_ADJUSTALWAYS, ToggleAdjustAlways},
    {COMMAND_USECRLF, ToggleCrlf},
    {COMMAND_CHORDSBELOW, ToggleChordsBelow},
    {COMMAND_ARPEGGIOMARKS, ToggleArpeggioMarks},
    {COMMAND_STORESPACING, StoreSpacing},
    {COMMAND_FONTSCALE, AskFontScale},
    {COMMAND_LEGERSABOVE, AskLegersAbove},
    {COMMAND_LEGERSBELOW, AskLegersBelow},
    {COMMAND_SYSTEMGAP, AskSystemGap},
    {COMMAND_LEFTMARGIN, AskLeftMargin},
    {COMMAND_RIGHTMARGIN, AskRightMargin},
    {COMMAND_TOPMARGIN, AskTopMargin},
    {COMMAND_BOTTOMMARGIN, AskBottomMargin},
    {COMMAND_TUNING, TuningCommand},
    {COMMAND_OPTIMISEDTABLATURE, OptimisedTablatureCommand},
    {COMMAND_OPTIMISETABLATURE, OptimiseTablatureCommand},
    {COMMAND_SHOWTABLATURE, ShowTablatureCommand},
    {COMMAND_FULLADJUST, FullAdjustCommand},
    {COMMAND_MINIADJUST, MiniAdjustCommand},
    {COMMAND_REMOVESPURIOUS, RemoveSpuriousCommand},
    {COMMAND_REMOVENEWLINES, RemoveNewlinesCommand},
    {COMMAND_KEYBOARDMODE, EnterKeyboardMode},
    {COMMAND_MOUSEMODE, [] { EnterMouseMode(hwndMain); }},
    {COMMAND_HIDEPOINTER, HidePointerCommand},
    {COMMAND_SHOWPOINTER, ShowPointerCommand},
    {COMMAND_STRETCHHORIZ, StretchHorizCommand},
    {COMMAND_SQUEEZEHORIZ, SqueezeHorizCommand},
    {COMMAND_STRETCHVERT, StretchVertCommand},
    {COMMAND_SQUEEZEVERT, SqueezeVertCommand},
    {COMMAND_RESETSPACING, ResetSpacingCommand},
    {COMMAND_PLAY, PlayCommand},
    {COMMAND_UNDOMIDI, UndoMidi},
    {COMMAND_INITMIDI, InitMidi},
    {COMMAND_MIDITRACE, ToggleMidiTrace},
    {COMMAND_NEXTPROGRAM, [] { SoundNextProgram(1); }},
    {COMMAND_PREVIOUSPROGRAM, [] { SoundNextProgram(-1); }},
    {COMMAND_SOUNDPROGRAM, [] { SoundNextProgram(0); }},
    {COMMAND_NEXTCHANNEL, [] { SoundNextChannel(1); }},
    {COMMAND_PREVIOUSCHANNEL, [] { SoundNextChannel(-1); }},
    {COMMAND_DUMP, DumpCommand},
    {COMMAND_DEBUGLOGOFF, DebugLogOff},
    {COMMAND_DEBUGLOGON, DebugLogOn},
    {COMMAND_HELP, HelpCommand},
    {COMMAND_BRIEFINFO, BriefInfoCommand},
    {COMMAND_ALLCOMMANDS, AllCommandsCommand},
};

CommandRange const* FindRange(int32_t lCommand)
{
    for (CommandRange const& range : aRanges)
        if (lCommand >= range.lFirst && lCommand <= range.lLast)
            return &range;
    return nullptr;
}

CommandRow const* FindRow(int32_t lCommand)
{
    for (CommandRow const& row : aCommands)
        if (lCommand == row.lCommand)
            return &row;
    return nullptr;
}
} // namespace

void Command_Run(int32_t lCommand)
{
    if (CommandRange const* const pRange = FindRange(lCommand))
        pRange->pRun(lCommand - pRange->lBase);
    else if (CommandRow const* const pRow = FindRow(lCommand))
        pRow->pRun();
}

bool Command_Exists(int32_t lCommand) { return FindRange(lCommand) || FindRow(lCommand); }
} // namespace zarn
