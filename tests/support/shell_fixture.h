/// The whole program on a scripted host, for one test.
#pragma once
#include "abc/abc_index.h"
#include "abc/abc_reader.h"
#include "core/messages.h"
#include "core/pitch.h"
#include "core/text.h"
#include "edit/delete.h"
#include "edit/mark.h"
#include "layout/right_justify.h"
#include "render/font.h"
#include "render/geometry.h"
#include "shell/commands.h"
#include "shell/door.h"
#include "shell/file_names.h"
#include "shell/modes.h"
#include "shell/print.h"
#include "shell/startup.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace zarn::test
{
/// A program that has not started yet, with a folder of its own for files. Its listings go nowhere.
struct Shell : testing::Test
{
    Shell()
    {
        Score_DestroyLists(); // start-up makes them
        szFileName.clear();
        szAbcFile.clear();
        szAbcTune.clear();
        lTuneNumber = -1;
        fAbcTuneOpen = false;
        bAbcListing = false;
        bRightJustified = false;
        bShowArpeggio = true;
        lFontScale = -1;
        fMouseMode = 1;
        fWaitEachPage = 0;
        bEditMode = false;
        fClarinetTranspose = fGuitarTranspose = false;
        elSavedCurrent = RoomyElement();
        lUndoState = UNDO_ADD;
        process.user.lNowMs = 1000;
        pFolder = std::filesystem::temp_directory_path() /
                  ("zarn-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()) + "-" +
                   std::to_string(reinterpret_cast<uintptr_t>(this)));
        std::filesystem::create_directories(pFolder);
    }

    ~Shell() override
    {
        ShutDown();
        Score_CreateLists(); // the process frees them once more
        pDebugLogSink = nullptr;
        cbDiskLeft = -1;
        bAbcListing = true;
        bRightJustified = false;
        bShowArpeggio = true;
        lFontScale = -1;
        std::filesystem::remove_all(pFolder);
    }

    /// Starts with an empty score and no question; a repeated start on this machine.
    void Start()
    {
        process.settings.values["First start done"] = 1;
        ASSERT_TRUE(StartUp(""));
        Update(); // the question how to begin is cancelled
        process.user.shown.clear();
    }
    /// What the message loop does when nothing comes in.
    void Update() { process.user.pWindow->RunLoop(); }

    void Command(int32_t lCommand) { Send(EventKind::COMMAND, lCommand); }
    void Send(EventKind kind, int32_t lNumber = 0, int32_t x = 0, int32_t y = 0)
    {
        Event event;
        event.kind = kind;
        event.lNumber = lNumber;
        event.x = x;
        event.y = y;
        door.Receive(event);
    }
    /// A key by its name, as a host tells it.
    void Press(std::string const& sName, bool fShift = false, bool fCtrl = false, bool fAlt = false)
    {
        Event event;
        event.kind = EventKind::KEY;
        event.sText = sName;
        event.fShift = fShift;
        event.fCtrl = fCtrl;
        event.fAlt = fAlt;
        door.Receive(event);
    }
    /// The pointer goes there, and a button down and up.
    void Click(POINT place, bool bRight = false)
    {
        Window().SetPointer(place);
        Send(EventKind::MOVE, 0, place.x, place.y);
        Send(bRight ? EventKind::RIGHTDOWN : EventKind::LEFTDOWN, 0, place.x, place.y);
        Send(bRight ? EventKind::RIGHTUP : EventKind::LEFTUP, 0, place.x, place.y);
        Update();
    }
    void Drop(std::string const& szName)
    {
        Event event;
        event.kind = EventKind::OPEN;
        event.sText = szName;
        door.Receive(event);
    }

    void Answers(Answer::Kind kind) { process.user.answers.push_back({.kind = kind}); }
    void AnswersText(std::string const& sText)
    {
        process.user.answers.push_back({.kind = Answer::TEXT, .sText = sText});
    }
    void AnswersNumber(int32_t lNumber)
    {
        process.user.answers.push_back({.kind = Answer::NUMBER, .lNumber = lNumber});
    }
    /// The dialog of a new tune: its fields, "clef=2 key=7", or nothing for treble, C and 4/4.
    void AnswersNewTune(std::string const& sFields = "")
    {
        process.user.answers.push_back({.kind = Answer::FORM, .sText = sFields.empty() ? "ok" : sFields + " ok"});
    }
    void AnswersRow(int32_t lRow) { process.user.answers.push_back({.kind = Answer::ROW, .lNumber = lRow}); }

    [[nodiscard]] HeadlessWindow& Window() { return *process.user.pWindow; }
    [[nodiscard]] std::string Title() { return Window().Title(); }
    [[nodiscard]] bool Checked(int32_t lCommand) { return Window().IsChecked(lCommand); }
    [[nodiscard]] std::vector<std::string> Messages() const { return process.user.Messages(); }

    [[nodiscard]] std::string Path(std::string const& szName) const { return (pFolder / szName).string(); }
    std::string MakeFile(std::string const& szName, std::string const& sBytes) const
    {
        std::ofstream(Path(szName), std::ios::binary) << sBytes;
        return Path(szName);
    }
    [[nodiscard]] static std::string Bytes(std::string const& szPath)
    {
        std::ifstream file(szPath, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    ScriptedProcess process;
    ShellDoor door;
    std::filesystem::path pFolder;
};

constexpr char const* sTwoTunes = "X:1\nT:The First\nM:4/4\nL:1/4\nK:C\nCDEF|GABc|\n\n"
                                  "X:2\nT:The Second\nM:3/4\nL:1/4\nK:G\nGAB|\n\n";
} // namespace zarn::test
