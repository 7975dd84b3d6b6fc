#pragma once

#include "pages/material_page.h"
#include "property_fixture.h"

// The material page in a document of four objects: a and b have the material Oak, c and d that of
// their layer, which has none. Object a is selected.
class MaterialPageTest : public PropertyPageTest {
 protected:
  MaterialPageTest() {
    MakeMaterials();
    plugIn_.UserStrings().SetUserString("RhinoGamma", "1");
    Show({0});
  }

  // Selects objects and shows the page.
  void Show(std::initializer_list<std::size_t> indices) {
    Select(indices);
    Open(page_);
  }
  // Gives the material of the first selected object a shader, with a layout for its rows.
  void Shade(const std::string& call, const std::string& layout = "") {
    SetMaterialText(0, "OrvSurface", call);
    SetMaterialText(0, "OrvSurfaceLayout", layout);
    Open(page_);
  }
  std::string Change(std::string_view control, std::string_view value,
                     std::vector<std::string> answers = {}, Form form = Form::interactive) {
    return PropertyPageTest::Change(page_, control, value, std::move(answers), form);
  }
  std::string Shown(std::string_view id) const { return Value(page_, id); }
  std::string Text(std::size_t index, std::string_view key) {
    return MaterialText(index, key).value_or("none");
  }
  const ON_Material& Material(std::size_t index) { return Object(index).ObjectMaterial(); }

  orv::CMatDlg page_{plugIn_};
};
