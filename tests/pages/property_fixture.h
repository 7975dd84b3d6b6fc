#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/command/dialog_page.h"
#include "shader_fixture.h"

// Pages of properties in a document with objects, and with lights where a test wants them.
class PropertyPageTest : public ShaderCommandTest {
 protected:
  // Replaces the document by one of three lights, of which the second is blue, and two meshes.
  void MakeLights();
  CRhinoObject& Light(std::size_t index) { return *doc_.Lights()[index]; }
  // A text of a light; nothing when it has none.
  std::optional<std::string> LightText(std::size_t index, std::string_view key);

  // Opens the page for the selection.
  void Open(CRhinoDialogPage& page) { page.Open(doc_); }
  // Gives a control a value, with the answers to what is asked, none of which may be left over.
  // What was wrong with it.
  std::string Change(CRhinoDialogPage& page, std::string_view control, std::string_view value,
                     std::vector<std::string> answers = {}, Form form = Form::interactive);
  // The control of the id; the test fails when there is none.
  static CRhinoControl Control(const CRhinoDialogPage& page, std::string_view id);
  static std::string Value(const CRhinoDialogPage& page, std::string_view id) {
    return Control(page, id).Value;
  }
  // Each control as "id: label, kind" and, behind ": ", its choices with "|" between them.
  static std::vector<std::string> Described(const std::vector<CRhinoControl>& controls);

  // What Undo would take next; empty when there is nothing.
  std::string UndoCaption() const { return doc_.UndoCaption().value_or(""); }
};
