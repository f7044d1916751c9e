// Recovery copies: while a character has unsaved changes, its document is written now and then
// to the state folder, so that a crash or a kill loses only the work since the last write. A
// copy's name holds the number of the process that wrote it; at the next start the copies whose
// writer is no longer running are offered back.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace zeph {

class CharacterSheet;
class Platform;

// A copy that a process left behind, and the file its character was bound to ("" for none).
struct LeftBehindCopy {
    std::string copyPath;
    std::string boundPath;
};

// Gives the sheet a copy of its own in the state folder, "recovery-<process>-<n>.xml".
void AssignRecoveryCopy(CharacterSheet& sheet);
// Writes the copy (atomically) while the sheet has unsaved changes, and removes it once saved.
// Silent: a write that fails is tried again the next time.
void UpdateRecoveryCopy(CharacterSheet& sheet);
// After a save, and at a close that goes on: nothing is left to recover.
void RemoveRecoveryCopy(CharacterSheet& sheet);

// The copies in `folder` whose writer is no longer running. Meant for the start, before this
// process wrote any: a copy under its own number was left by an earlier process of that number.
std::vector<LeftBehindCopy> FindLeftBehindCopies(const std::string& folder);
// Fills a new sheet from a copy, bound as it was and marked unsaved so that the user saves it;
// its own copy is written at once, so the one left behind may go.
void ReopenLeftBehindCopy(CharacterSheet& sheet, const LeftBehindCopy& copy);
// Asks once, and only when the state folder holds copies left behind, whether to reopen them;
// Reopen hands each to `reopen`. Either way they are removed afterwards.
void OfferLeftBehindWork(Platform& platform,
                         const std::function<void(const LeftBehindCopy&)>& reopen);

}  // namespace zeph
