// A file that two programs write must not lose what the other one wrote without a word.
#include "shell/file_on_disk.h"

#include "core/messages.h"
#include "core/text.h"

namespace zarn
{
void FileOnDisk_Note(std::string const& szName) { FileOnDisk_Note(szName, File_StampOf(szName)); }

void FileOnDisk_Note(std::string const& szName, std::optional<FileStamp> const& stamp) { knownFile = {szName, stamp}; }

bool FileOnDisk_MayReplace(std::string const& szName)
{
    if (szName != knownFile.szName)
        return true;
    std::optional<FileStamp> const now = File_StampOf(szName);
    if (!now || now == knownFile.stamp)
        return true;
    return AskYesNo(
               Format("Another program has changed the file\n'%s'\nsince it was opened or saved here.\n\nSave over "
                      "those changes?",
                      szName.c_str()),
               0) != 0;
}
} // namespace zarn
