#include "platform/files/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace fk {
namespace {

// Whether the open file is still the one the path names: a writer before
// us may have put a new file in its place while we waited.
bool StillNamedBy(int fd, const std::string& path) {
  struct stat opened {}, named {};
  return ::fstat(fd, &opened) == 0 && ::stat(path.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
         opened.st_ino == named.st_ino;
}

int LockedDescriptor(const std::string& path) {
  for (;;) {
    const int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (fd < 0) return -1;
    int locked;
    while ((locked = ::flock(fd, LOCK_EX)) != 0 && errno == EINTR) {
    }
    if (locked == 0 && StillNamedBy(fd, path)) return fd;
    ::close(fd);
    if (locked != 0) return -1;
  }
}

}  // namespace

FileLock::FileLock(const std::string& nativePath) : m_fd(LockedDescriptor(nativePath)) {}

FileLock::~FileLock() {
  if (m_fd >= 0) ::close(m_fd);  // closing the last descriptor ends the lock
}

}  // namespace fk
