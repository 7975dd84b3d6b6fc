#pragma once

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include "host/document/doc.h"
#include "pages/document_pages.h"
#include "support/temp_folder.h"
#include "support/typed_input.h"

// The pages of a plug-in of the test's own, in a document of its own.
class PageTest : public testing::Test {
 protected:
  PageTest() { plugIn_.UserStrings().SetUserString("RibName", "scene.rib"); }

  template <class Page>
  std::unique_ptr<Page> Opened() {
    auto page = std::make_unique<Page>(plugIn_);
    page->Open(doc_);
    return page;
  }
  // The control of an id; the test fails when the page has none.
  static CRhinoControl Control(const CRhinoDialogPage& page, const std::string& id) {
    const std::vector<CRhinoControl> controls = page.Controls();
    const int index = FindControl(controls, id);
    EXPECT_GE(index, 0) << id;
    return index < 0 ? CRhinoControl{} : controls[static_cast<std::size_t>(index)];
  }
  static std::string Value(const CRhinoDialogPage& page, const std::string& id) {
    return Control(page, id).Value;
  }

  // Changes a control; what a person answers to the prompts that come of it.
  std::string Change(CRhinoDialogPage& page, const std::string& control, const std::string& value,
                     std::vector<std::string> answers = {}) {
    TypedInput input(std::move(answers));
    CRhinoCommandContext context(doc_, input, true);
    std::string problem = page.Change(context, control, value);
    prompts_ = input.Prompts();
    EXPECT_TRUE(input.IsUsedUp());
    return problem;
  }
  // Opens a page, changes a control and accepts the page.
  template <class Page>
  void Store(const std::string& control, const std::string& value) {
    const auto page = Opened<Page>();
    EXPECT_EQ(Change(*page, control, value), "") << control;
    page->Accept(doc_);
  }

  // The stored setting; empty when there is none.
  std::string Setting(std::string_view key) const {
    return std::string(plugIn_.UserStrings().GetUserString(key).value_or(""));
  }
  void SetSetting(std::string_view key, std::string_view text) {
    plugIn_.UserStrings().SetUserString(key, text);
  }
  std::vector<std::string> Keys() const {
    std::vector<std::string> keys;
    for (const auto& entry : plugIn_.UserStrings().m_e) keys.push_back(entry.m_key);
    return keys;
  }

  TempFolder folder_;
  CRhinoDoc doc_;
  orv::CSceneOutPlugIn plugIn_;
  std::vector<std::string> prompts_;
};
