// GetPictureSize: the platform's loader first, the raster library for what
// it can't read, and untouched outputs on every failure.
#include <gtest/gtest.h>

#include <tuple>

#include "exchange/test_pictures.h"
#include "formkit/formkit.h"
#include "support/formkit_library.h"
#include "support/session_fixture.h"

namespace {

TEST(PictureSizeTest, PicturesOfBothLibrariesGiveTheirSize) {
  ScopedFolder folder;
  folder.Write("Maps/Dot.PNG", kPng1x1);
  const std::tuple<std::string, int, int> pictures[] = {
      {folder.Write("photo.png", kPng5x3), 5, 3},
      {folder.Write("dem.asc", kAsciiGrid4x2), 4, 2},       // a grid only the raster library reads
      {folder.Path() + "\\MAPS\\DOT.png", 1, 1}};         // the path written the system's way
  for (const auto& [path, wide, high] : pictures) {
    int32_t width = 0, height = 0;
    EXPECT_EQ(GetPictureSize(path.c_str(), &width, &height), 1) << path;
    EXPECT_EQ(width * 100 + height, wide * 100 + high) << path;
  }
}

TEST(PictureSizeTest, MissingEmptyAndCorruptFilesGiveZeroAndLeaveTheOutputs) {
  ScopedFolder folder;
  const std::string files[] = {folder.Path() + "/missing.png", folder.Write("empty.png", ""),
                               folder.Write("corrupt.png", "\x89PNG but nothing a decoder can read"),
                               folder.Write("notes.txt", "not a picture at all\n"), folder.Path()};
  for (const std::string& file : files) {
    int32_t width = -7, height = -9;
    EXPECT_EQ(GetPictureSize(file.c_str(), &width, &height), 0) << file;
    EXPECT_EQ(width, -7) << file;
    EXPECT_EQ(height, -9) << file;
  }
  int32_t width = 0;
  EXPECT_EQ(GetPictureSize(folder.Write("a.png", kPng1x1).c_str(), &width, nullptr), 0);
  EXPECT_EQ(GetPictureSize(nullptr, &width, &width), 0);
}

TEST(PictureSizeTest, ALibraryWhoseDecodersCantBeLoadedKnowsNoPictureAndGoesOn) {
  ScopedFolder folder;
  const FormkitLibrary copy;  // in the temporary folder, with no decoder library beside it
  int32_t width = -7, height = -9;
  EXPECT_EQ(FORMKIT_EXPORT(copy, GetPictureSize)(folder.Write("dem.asc", kAsciiGrid4x2).c_str(), &width, &height), 0);
  EXPECT_EQ(width, -7);
  EXPECT_EQ(FORMKIT_EXPORT(copy, GetRSSRegistry)(), 7) << "the other exports answer";
}

}  // namespace
