/// What the user answers to a question, as a record and as words.
///
/// The words are the journal's: `yes`, `no`, `cancel`, `ok`, `first`, `second`, `text TEXT`, `number N`, `row N` and
/// `form NAME=VALUE ... ok`. In TEXT a line break is written \n or \r and a backslash ahead of such a letter twice.
#pragma once
#include "platform/commdlg.h"
#include "platform/user.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zarn
{
/// One answer, to be given or as it was given.
struct Answer
{
    enum Kind
    {
        YES,
        NO,
        CANCEL,
        OK,
        FIRST,
        SECOND,
        TEXT,
        NUMBER,
        ROW,
        FORM
    } kind = OK;
    std::string sText = {}; ///< TEXT: the text; FORM: NAME=VALUE ... and the button: ok, cancel, or its name
    int32_t lNumber = 0;    ///< NUMBER; ROW: from 0
    friend bool operator==(Answer const&, Answer const&) = default;
};

/// "text Allegro". One line, whatever the text holds.
[[nodiscard]] std::string Answer_Format(Answer const& answer);
/// Nothing when the words aren't an answer.
[[nodiscard]] std::optional<Answer> Answer_Parse(std::string_view sWords);

/// The text with its line breaks and ambiguous backslashes written out, and back.
[[nodiscard]] std::string Text_Escape(std::string_view sText);
[[nodiscard]] std::string Text_Unescape(std::string_view sText);
/// The text as one line: each run of line breaks is a blank.
[[nodiscard]] std::string Text_OneLine(std::string_view sText);

/// The button of a message box that an answer presses; 0 when the box hasn't got it.
[[nodiscard]] int32_t Box_Take(uint32_t lFlags, Answer const& answer);
/// The answer that a button of a message box stands for.
[[nodiscard]] Answer Box_Answer(int32_t lId);

/// Fills the dialog in as the answer says; gives the id of the button that ends it. 0 when the answer doesn't fit: it
/// is of another kind, names a field that isn't there, or a row that isn't; the dialog is then as it was.
[[nodiscard]] int32_t Form_Take(Form& form, Answer const& answer);
/// The answer that a dialog was given, from its fields as they stand and the button that ended it.
[[nodiscard]] Answer Form_Answer(Form const& form, int32_t lButton);
} // namespace zarn
