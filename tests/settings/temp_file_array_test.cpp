// The session's file records: what filing, parts and rebuilding do to the
// files on disk, and what the records' end deletes.
#include "settings/temp_file_array.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/session_fixture.h"

namespace {

namespace fs = std::filesystem;

TEST(TempFileArray, FilesPartsAndRebuildsComposites) {
  ScopedFolder folder;
  const std::string first = folder.Write("first part.ogb", "Image = \"one.jpg\"\n");
  const std::string second = folder.Write("second.ogb", "Image = \"two.jpg\"\n");
  const std::string composite = folder.Path() + "/Composite.ogb";
  CTempFileArray files;
  files.m_bDeleteOnDestroy = 0;

  // A known part is not added again; a file filed as temporary stays so.
  EXPECT_EQ((std::vector{files.AddFilePart(composite, first, 1), files.AddFilePart(composite, second, 1),
                         files.AddFilePart(composite, first, 1), files.AddFile(composite, 0)}),
            (std::vector{0, 1, 0, 0}));
  EXPECT_EQ(files[0].m_bTemporary, 1);
  EXPECT_EQ(files[0].m_Parts.size(), 2u);

  int index = 5;
  EXPECT_EQ(files.FindFile("COMPOSITE.OGB", &index, 1).m_strFile, composite);
  EXPECT_EQ(index, 0);
  EXPECT_FALSE(files.FindFile("COMPOSITE.OGB", &index, 0).m_bNamed) << "the whole path is compared";
  EXPECT_EQ(index, -1);

  ASSERT_EQ(files.RebuildFile(composite), 1);
  EXPECT_EQ(ReadFile(composite), "Image = \"one.jpg\"\r\nImage = \"two.jpg\"\r\n");
  fs::remove(composite);
  EXPECT_EQ(files.RebuildFile(composite), 1);
  EXPECT_FALSE(fs::exists(composite)) << "a clean record is not written again";

  std::vector<std::string> images;
  EXPECT_EQ(files[0].GetImageNames(images), 2);
  EXPECT_EQ(images, (std::vector<std::string>{"one.jpg", "two.jpg"}));
  EXPECT_EQ(files[0].GetPartTitle(0), "first part");

  EXPECT_EQ(files.MarkFileUnused(composite), 0);
  EXPECT_FALSE(files[0].AnyPartUsed());
  files.RebuildFile(composite);
  EXPECT_EQ(ReadFile(composite), "") << "no used part leaves an empty file";
  EXPECT_THROW(files[0].IsPartUsed(2), std::invalid_argument);
}

// What the end of the records deletes: for each temporary record its
// images (next to the record, or at their own path), its file and its parts.
TEST(TempFileArray, TheEndDeletesWhatStayedTemporaryWhenAllowed) {
  for (const int deleteOnDestroy : {1, 0}) {
    ScopedFolder folder;
    const ScopedVariable drive("FORMKIT_DRIVE_Q", folder.Path());
    fs::create_directories(folder.Path() + "/far");
    const std::vector<std::string> temporary = {
        folder.Write("part.ogb", "Image = \"near.jpg\"\nImage = \"Q:\\far\\far.jpg\"\n"), folder.Write("near.jpg", "x"),
        folder.Write("far/far.jpg", "x"), folder.Path() + "/composite.ogb", folder.Write("plain.dxf", "0\nEOF\n")};
    const std::string kept = folder.Write("kept.ogb", "");
    {
      CTempFileArray files;
      files.m_bDeleteOnDestroy = deleteOnDestroy;
      files.AddFilePart(temporary[3], temporary[0], 1);
      files.RebuildFile(temporary[3]);
      files.AddFile(temporary[4], 1);
      files.AddFile(kept, 0);
    }
    for (const std::string& file : temporary)
      EXPECT_EQ(fs::exists(file), deleteOnDestroy == 0) << file << " with the flag " << deleteOnDestroy;
    EXPECT_TRUE(fs::exists(kept));
  }
}

}  // namespace
