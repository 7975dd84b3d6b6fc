#include "jobs/file_picker.h"

#include <gmock/gmock.h>

#include "host/document/doc.h"
#include "support/temp_folder.h"
#include "support/typed_input.h"

namespace orv {
namespace {

using testing::ElementsAre;

constexpr FilePicker kPicker{"Write Archive", "RIB Files (*.rib);*.rib;All Files;*.*;"};

// A picker with a file "old ä.rib" in a folder of its own.
class FilePickerTest : public testing::Test {
 protected:
  FilePickerTest() { WriteFileContent(folder_.File("old ä.rib"), "old"); }

  bool Open(std::vector<std::string> answers) { return Pick(PickFileToOpen, std::move(answers)); }
  bool Save(std::vector<std::string> answers) { return Pick(PickFileToSave, std::move(answers)); }
  // The name, without its folder, that comes of what is typed.
  std::string SavedName(std::string typed) {
    start_ = FolderText();
    file_.clear();
    EXPECT_TRUE(Save({std::move(typed)}));
    return file_.starts_with(start_) ? file_.substr(start_.size()) : file_;
  }

  std::string FolderText() const { return folder_.Path().string() + "/"; }

  TempFolder folder_;
  FilePicker picker_ = kPicker;
  std::string start_;
  std::string file_;
  std::vector<std::string> prompts_;

 private:
  template <class Picking>
  bool Pick(Picking picking, std::vector<std::string> answers) {
    CRhinoDoc doc;
    TypedInput input(std::move(answers));
    CRhinoCommandContext context(doc, input, true);
    const bool picked = picking(context, picker_, start_, file_);
    prompts_ = input.Prompts();
    return picked;
  }
};

TEST(FileFilters, AreSplitAtSemicolons) {
  const auto filters = FileFiltersFromText("RIB Files (*.rib);*.rib; All Files;*.*;");
  ASSERT_EQ(filters.size(), 2u);
  EXPECT_EQ(filters[0].Description, "RIB Files (*.rib)");
  EXPECT_EQ(filters[0].Pattern, "*.rib");
  EXPECT_EQ(filters[1].Description, " All Files");
  EXPECT_EQ(filters[1].Pattern, "*.*");
}

TEST(FileFilters, WhatIsNotWholeIsDropped) {
  EXPECT_TRUE(FileFiltersFromText("").empty());
  EXPECT_TRUE(FileFiltersFromText("RIB Files;").empty());
  EXPECT_TRUE(FileFiltersFromText("RIB Files;*.rib").empty());
}

TEST(FileFilters, RowIsThatOfTheExtension) {
  const auto filters = FileFiltersFromText("All;*.*;A;*.a;Rib;*.rib;Odd;*;Nothing;;");
  EXPECT_EQ(FileFilterIndex(filters, "C:\\x\\a.rib"), 3);
  EXPECT_EQ(FileFilterIndex(filters, "a.RIB"), 3);
  EXPECT_EQ(FileFilterIndex(filters, "x.a"), 2);
  EXPECT_EQ(FileFilterIndex(filters, "a.tif"), 1);
  EXPECT_EQ(FileFilterIndex(filters, "name"), 1);
  EXPECT_EQ(FileFilterIndex(filters, ""), 1);
}

TEST_F(FilePickerTest, GivesTheNameAndItsFolder) {
  start_ = FolderText();
  EXPECT_TRUE(Open({"old ä.rib"}));
  EXPECT_EQ(file_, FolderText() + "old ä.rib");
  EXPECT_EQ(start_, FolderText());
  EXPECT_THAT(prompts_, ElementsAre("Write Archive (in " + FolderText() + "): "));
}

TEST_F(FilePickerTest, FolderFollowsTheName) {
  EXPECT_TRUE(Open({folder_.File("old ä.rib")}));
  EXPECT_EQ(start_, FolderText());
}

TEST_F(FilePickerTest, RefusalLeavesBothTexts) {
  start_ = "somewhere";
  file_ = "something.rib";
  EXPECT_FALSE(Open({"!"}));
  EXPECT_FALSE(Save({"!"}));
  EXPECT_EQ(start_, "somewhere");
  EXPECT_EQ(file_, "something.rib");
}

TEST_F(FilePickerTest, ProposesTheNameOfAFileThatExists) {
  file_ = folder_.File("old ä.rib");
  EXPECT_TRUE(Open({"Enter"}));
  EXPECT_EQ(file_, folder_.File("old ä.rib"));
  EXPECT_THAT(prompts_, ElementsAre("Write Archive (in " + FolderText() + ") <" + file_ + ">: "));
}

TEST_F(FilePickerTest, DropsTheNameOfAFileThatDoesNotExist) {
  file_ = folder_.File("none.rib");
  EXPECT_FALSE(Save({"!"}));
  EXPECT_THAT(prompts_, ElementsAre("Write Archive (in " + FolderText() + "): "));
}

TEST_F(FilePickerTest, SavedNameGetsTheFiltersExtension) {
  EXPECT_EQ(SavedName("new"), "new.rib");
  EXPECT_EQ(SavedName("new.rib"), "new.rib");
  EXPECT_EQ(SavedName("new.RIB"), "new.rib");
}

TEST_F(FilePickerTest, FiltersExtensionReplacesAnother) {
  EXPECT_EQ(SavedName("a.txt"), "a.rib");
  EXPECT_EQ(SavedName("scene v1.2"), "scene v1.rib");
  EXPECT_EQ(SavedName("a.rib.gz"), "a.rib.rib");
  EXPECT_EQ(SavedName("a."), "a.rib");
}

TEST_F(FilePickerTest, ExtensionOfAnotherRowStays) {
  picker_.Filter = "RIB Files;*.rib;All Files;*.*;Settings;*.ors;";
  EXPECT_EQ(SavedName("a.ors"), "a.ors");
  EXPECT_EQ(SavedName("a.txt"), "a.rib");
}

TEST_F(FilePickerTest, AsksBeforeAFileIsReplaced) {
  start_ = FolderText();
  EXPECT_FALSE(Save({"old ä", "Enter", "No", "!"}));
  EXPECT_EQ(file_, "");
  const std::string name = FolderText() + "old ä.rib";
  EXPECT_TRUE(Save({"old ä", "Enter", "Yes"}));
  EXPECT_EQ(file_, name);
  EXPECT_THAT(prompts_, ElementsAre("Write Archive (in " + FolderText() + "): ",
                                    "Write Archive (in " + FolderText() + ") <" + name + ">: ",
                                    name + " exists. Replace it? <No> ( Yes  No ): "));
}

TEST_F(FilePickerTest, SavedNameKeepsItsExtensionWithAllFiles) {
  picker_.Filter = "All Files;*.*;RIB Files;*.rib;";
  EXPECT_EQ(SavedName("new.txt"), "new.txt");
  EXPECT_EQ(SavedName("new"), "new");
}

TEST_F(FilePickerTest, SavedNameStaysWithoutFilters) {
  picker_.Filter = "";
  EXPECT_EQ(SavedName("new.txt"), "new.txt");
}

TEST_F(FilePickerTest, SavedFileNeedsAFolderAndAName) {
  start_ = FolderText();
  EXPECT_TRUE(Save({"newfolder/", "newfolder/a", ".rib", "a"}));
  EXPECT_EQ(file_, FolderText() + "a.rib");
}

}  // namespace
}  // namespace orv
