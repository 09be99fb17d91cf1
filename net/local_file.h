#pragma once
// Files replaced whole: written under a temporary name beside the target, synced,
// then renamed over it, so that a failure leaves the old file as it was. The
// temporary names are those of downloads (PartialPrefix), which the start-up knows.
#include <cstddef>
#include <string>

namespace orvane {

// `bytes` become the file at `path`; false with the reason in `detail`.
bool WriteFileReplacing(const std::string& path, const std::string& bytes, std::string& detail);

// A copy of `from` becomes the file at `to`: a second name of the same file where
// both lie on one file system, else a copy of its bytes.
bool CopyFileReplacing(const std::string& from, const std::string& to, std::string& detail);

// The steps, for writers that check a file before it takes its name.
// A new empty file beside `target`, open for writing, readable by all; -1 with the
// reason when none could be made.
int CreateTemporaryBeside(const std::string& target, std::string& temporary, std::string& detail);
bool WriteAllTo(int fd, const char* data, std::size_t size, const std::string& temporary, std::string& detail);
// Syncs and closes the file.
bool SyncAndClose(int fd, const std::string& temporary, std::string& detail);
// The temporary file takes the target's name, and the folder's entry is synced.
bool RenameInto(const std::string& temporary, const std::string& target, std::string& detail);

}  // namespace orvane
