// A full disk for the test process: a file size limit, so that writes past
// it fail as on a full disk (EFBIG), with the signal that would end the
// process ignored.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

// Room for `bytes` in any one file while the object lives.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &m_old);
    m_oldAction = signal(SIGXFSZ, SIG_IGN);
    rlimit small = m_old;
    small.rlim_cur = bytes;
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &m_old);
    signal(SIGXFSZ, m_oldAction);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit m_old{};
  sighandler_t m_oldAction = SIG_DFL;
};
