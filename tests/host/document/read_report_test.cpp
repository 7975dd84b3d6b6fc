#include "host/document/read_report.h"

#include <gtest/gtest.h>

namespace {

TEST(ReadReport, IsEmptyForAFileThatWasReadWhole) {
  EXPECT_EQ(ReadReport(ONX_Model()), "");
}

TEST(ReadReport, TellsInOneLineWhatWasNotRead) {
  ONX_Model model;
  model.m_unread = {{"brep", 12}, {"NURBS curve", 3}, {"hatch pattern", 1}};
  EXPECT_EQ(ReadReport(model), "Not read: 12 breps, 3 NURBS curves, 1 hatch pattern.\n");
}

TEST(ReadReport, NamesAnUnknownKindByItsClass) {
  ONX_Model model;
  const std::string name = "class 4ed7d4d4-e947-11d3-bfe5-0010830122f0";
  model.m_unread = {{name, 2}, {name, 1}};
  EXPECT_EQ(ReadReport(model), "Not read: 2 records of " + name + ", 1 record of " + name + ".\n");
}

TEST(ReadReport, HasALineForEachProblem) {
  ONX_Model model;
  model.m_unread = {{"SubD", 1}};
  model.m_problems = {"first", "100% wrong"};
  EXPECT_EQ(ReadReport(model), "Not read: 1 SubD.\nfirst\n100% wrong\n");
}

TEST(ReadReport, CountsTheProblemsBeyondTen) {
  ONX_Model model;
  model.m_problems.assign(10, "bad");
  std::string ten;
  for (int i = 0; i < 10; ++i) ten += "bad\n";
  EXPECT_EQ(ReadReport(model), ten);
  model.m_problems.resize(1010);
  EXPECT_EQ(ReadReport(model), ten + "... and 1000 more\n");
}

TEST(ReadReport, PluralsAreEnglish) {
  EXPECT_EQ(Plural("mesh"), "meshes");
  EXPECT_EQ(Plural("text dot"), "text dots");
  EXPECT_EQ(Plural("box"), "boxes");
  EXPECT_EQ(Plural("geometry"), "geometries");
  EXPECT_EQ(Plural("ray"), "rays");
  EXPECT_EQ(Plural("hatch"), "hatches");
  EXPECT_EQ(Plural("surface of revolution"), "surfaces of revolution");
}

}  // namespace
