#include "settings/preference_block.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

constexpr std::uint16_t kMagic = 0xD1D2;
constexpr std::uint16_t kDirectoryRecord = 11;

// The bytes of a file read the way a file is read: reads move on and may
// come up short at the end; a seek may go past the end, but not before the
// start.
class ByteStream {
 public:
  explicit ByteStream(std::string_view bytes) : m_bytes(bytes) {}

  // How many of the `count` bytes could be read into `out`.
  std::size_t Read(void* out, std::size_t count) {
    const std::size_t available = m_position < m_bytes.size() ? m_bytes.size() - m_position : 0;
    const std::size_t taken = std::min(count, available);
    if (taken) std::memcpy(out, m_bytes.data() + m_position, taken);
    m_position += taken;
    return taken;
  }
  bool ReadWord(std::uint16_t& word) {
    unsigned char bytes[2];
    if (Read(bytes, sizeof bytes) != sizeof bytes) return false;
    word = static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
    return true;
  }
  std::int64_t Tell() const { return static_cast<std::int64_t>(m_position); }
  bool Seek(std::int64_t position) {
    if (position < 0) return false;
    m_position = static_cast<std::size_t>(position);
    return true;
  }

 private:
  std::string_view m_bytes;
  std::size_t m_position = 0;
};

// One record: the directory record is read into the block; every record
// ends where its length, taken as signed, says.
bool ReadRecord(ByteStream& in, PreferenceBlock& block) {
  std::uint16_t type = 0, length = 0;
  if (!in.ReadWord(type) || !in.ReadWord(length)) return false;
  const std::int64_t start = in.Tell();
  if (type == kDirectoryRecord) {
    const std::size_t wanted = std::min<std::size_t>(length, block.size());
    if (in.Read(block.data(), wanted) != wanted) return false;
  }
  return in.Seek(start + static_cast<std::int16_t>(length));
}

}  // namespace

bool ReadPreferenceBlock(std::string_view file, PreferenceBlock& block) {
  block.fill(0);
  ByteStream in(file);
  std::uint16_t magic = 0, count = 0;
  if (!in.ReadWord(magic) || magic != kMagic || !in.ReadWord(count)) return false;
  const int records = static_cast<std::int16_t>(count);
  if (records < 1) return false;
  for (int i = 0; i < records; ++i)
    if (!ReadRecord(in, block)) return false;
  return true;
}
