// An exclusive lock on a file while it is read, changed and put back, so
// that two processes changing the same file one after the other lose
// nothing. The lock is on the file that the path names when the lock is
// taken: a process that waited while the file was replaced by a new one
// takes the lock again on the new one.
#pragma once

#include <string>

namespace fk {

class FileLock {
 public:
  // Waits for the lock on the file at `nativePath`, creating an empty file
  // when there is none (never a folder). Check Held() afterwards.
  explicit FileLock(const std::string& nativePath);
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  ~FileLock();

  bool Held() const { return m_fd >= 0; }

 private:
  int m_fd = -1;
};

}  // namespace fk
