#include "net/local_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <vector>

#include "net/http_fetch.h"

namespace orvane {
namespace {

std::string failure(const std::string& what, const std::string& path) {
    return what + " " + path + ": " + std::strerror(errno);
}

// Writes everything `in` holds; false with the reason.
bool copyBytes(int in, const std::string& from, int out, const std::string& temporary, std::string& detail) {
    std::vector<char> buffer(1 << 20);
    for (;;) {
        const ssize_t n = ::read(in, buffer.data(), buffer.size());
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) {
            detail = failure("cannot read", from);
            return false;
        }
        if (n == 0) return true;
        if (!WriteAllTo(out, buffer.data(), static_cast<std::size_t>(n), temporary, detail)) return false;
    }
}

}  // namespace

int CreateTemporaryBeside(const std::string& target, std::string& temporary, std::string& detail) {
    const std::string pattern = PartialPrefix(target) + "XXXXXX";
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    const int fd = ::mkstemp(name.data());
    if (fd < 0) {
        detail = failure("cannot create", pattern);
        return -1;
    }
    // Planetary files and server folders are read by every user.
    ::fchmod(fd, 0644);
    temporary = name.data();
    return fd;
}

bool WriteAllTo(int fd, const char* data, std::size_t size, const std::string& temporary, std::string& detail) {
    while (size > 0) {
        const ssize_t n = ::write(fd, data, size);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) {
            detail = failure("cannot write", temporary);
            return false;
        }
        data += n;
        size -= static_cast<std::size_t>(n);
    }
    return true;
}

bool SyncAndClose(int fd, const std::string& temporary, std::string& detail) {
    const bool synced = ::fsync(fd) == 0;
    if (!synced) detail = failure("cannot write", temporary);
    ::close(fd);
    return synced;
}

bool RenameInto(const std::string& temporary, const std::string& target, std::string& detail) {
    if (::rename(temporary.c_str(), target.c_str()) != 0) {
        detail = failure("cannot rename to", target);
        return false;
    }
    const std::string folder = std::filesystem::path(target).parent_path().string();
    const int dir = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (dir >= 0) {
        ::fsync(dir);
        ::close(dir);
    }
    return true;
}

bool WriteFileReplacing(const std::string& path, const std::string& bytes, std::string& detail) {
    std::string temporary;
    const int fd = CreateTemporaryBeside(path, temporary, detail);
    if (fd < 0) return false;
    const bool written = WriteAllTo(fd, bytes.data(), bytes.size(), temporary, detail);
    if (SyncAndClose(fd, temporary, detail) && written && RenameInto(temporary, path, detail)) return true;
    ::unlink(temporary.c_str());
    return false;
}

bool CopyFileReplacing(const std::string& from, const std::string& to, std::string& detail) {
    std::string temporary;
    const int fd = CreateTemporaryBeside(to, temporary, detail);
    if (fd < 0) return false;
    // A second name of the same file costs no space. The temporary name with one more
    // letter is as unique as the temporary name itself.
    const std::string secondName = temporary + "l";
    if (::link(from.c_str(), secondName.c_str()) == 0) {
        ::close(fd);
        ::unlink(temporary.c_str());
        if (RenameInto(secondName, to, detail)) return true;
        ::unlink(secondName.c_str());
        return false;
    }
    // Another file system: a copy of the bytes.
    const int in = ::open(from.c_str(), O_RDONLY);
    bool ok = in >= 0;
    if (!ok) detail = failure("cannot read", from);
    ok = ok && copyBytes(in, from, fd, temporary, detail);
    if (in >= 0) ::close(in);
    if (SyncAndClose(fd, temporary, detail) && ok && RenameInto(temporary, to, detail)) return true;
    ::unlink(temporary.c_str());
    return false;
}

}  // namespace orvane
