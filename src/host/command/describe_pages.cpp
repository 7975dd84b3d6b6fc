#include "host/command/describe_pages.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "host/system/text.h"

namespace {

using Json = nlohmann::ordered_json;

std::string Padded(const std::string& text, std::size_t width) {
  const std::size_t length = host::CodePointCount(text);
  return text + std::string(width - std::min(width, length) + 2, ' ');
}

// "  (one of Off, Ambient)", or nothing.
std::string ChoicesText(const CRhinoControl& control) {
  if (control.Choices.empty()) return {};
  std::string text;
  for (const std::string& choice : control.Choices) {
    text += (text.empty() ? "" : ", ") + std::string(host::Trimmed(choice));
  }
  return (control.Kind == CRhinoControlKind::list ? "  (one of " : "  (such as ") + text + ")";
}

std::string_view KindName(CRhinoControlKind kind) {
  switch (kind) {
    case CRhinoControlKind::text:
      return "text";
    case CRhinoControlKind::edit:
      return "edit";
    case CRhinoControlKind::list:
      return "list";
    case CRhinoControlKind::combo:
      return "combo";
    case CRhinoControlKind::check:
      return "check";
    case CRhinoControlKind::three_state:
      return "three-state";
    case CRhinoControlKind::color:
      return "color";
    case CRhinoControlKind::path:
      return "path";
    case CRhinoControlKind::button:
      return "button";
  }
  return "";
}

Json JsonOf(const CRhinoControl& control) {
  return {{"id", control.Id},
          {"label", control.Label},
          {"kind", KindName(control.Kind)},
          {"value", control.Value},
          {"choices", control.Choices},
          {"shown", control.IsShown},
          {"enabled", control.IsEnabled}};
}

Json JsonOf(const PropertyPages::List& pages, CRhinoDoc& doc) {
  Json list = Json::array();
  for (const auto& page : pages) {
    const bool offered = page->IsOffered(doc);
    Json controls = Json::array();
    if (offered) {
      page->Open(doc);
      for (const CRhinoControl& control : page->Controls()) controls.push_back(JsonOf(control));
    }
    list.push_back({{"title", page->Title()}, {"offered", offered}, {"controls", controls}});
  }
  return list;
}

}  // namespace

std::string DescribePage(const CRhinoDialogPage& page) {
  const std::vector<CRhinoControl> controls = page.Controls();
  std::size_t ids = 0;
  std::size_t labels = 0;
  for (const CRhinoControl& control : controls) {
    ids = std::max(ids, host::CodePointCount(control.Id));
    labels = std::max(labels, host::CodePointCount(control.Label));
  }
  std::string text = std::string(page.Title()) + '\n';
  for (const CRhinoControl& control : controls) {
    std::string line =
        "  " + Padded(control.Id, ids) + Padded(control.Label, labels) + control.Value;
    if (control.Kind == CRhinoControlKind::button) line += "(button)";
    line += ChoicesText(control);
    if (!control.IsShown) line += "  [hidden]";
    if (!control.IsEnabled) line += "  [disabled]";
    std::replace_if(line.begin(), line.end(), host::IsControl, ' ');
    text += line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
  }
  return text;
}

std::string DescribePagesAsJson(const PropertyPages& pages, CRhinoDoc& doc) {
  const Json all = {{"document", JsonOf(pages.Document, doc)},
                    {"objects", JsonOf(pages.Objects, doc)}};
  constexpr int kIndent = 2;
  return all.dump(kIndent, ' ', false, Json::error_handler_t::replace) + '\n';
}
