#include <array>
#include <map>

#include "host/command/describe.h"
#include "host/document/doc.h"
#include "host/document/read_report.h"
#include "host/system/number_text.h"
#include "host/system/text.h"

namespace {

std::string UnitName(const ON_3dmUnitsAndTolerances& units) {
  constexpr std::array<std::string_view, 26> kNames = {
      "no units",       "microns",       "millimeters",    "centimeters",
      "meters",         "kilometers",    "microinches",    "mils",
      "inches",         "feet",          "miles",          "custom units",
      "angstroms",      "nanometers",    "decimeters",     "dekameters",
      "hectometers",    "megameters",    "gigameters",     "yards",
      "printer points", "printer picas", "nautical miles", "astronomical units",
      "light years",    "parsecs"};
  const auto index = static_cast<std::size_t>(units.m_unit_system);
  if (units.m_unit_system == ON_UnitSystem::custom && !units.m_custom_unit_name.empty()) {
    return units.m_custom_unit_name;
  }
  return index < kNames.size() ? std::string(kNames[index]) : "unknown units";
}

// 50, 60 and so on are versions 5, 6 and so on.
int VersionNumber(int file_version) {
  return file_version >= 10 ? file_version / 10 : file_version;
}

void AddLine(std::string& text, std::string_view label, const std::string& value) {
  if (!value.empty()) text += std::string(label) + ": " + value + "\n";
}

std::string DateText(const std::array<int, 6>& time) {
  if (time[0] == 0) return {};
  return host::Format("%04d-%02d-%02d %02d:%02d:%02d", time[0], time[1], time[2], time[3], time[4],
                      time[5]);
}

// "12 meshes, 1 light".
std::string ObjectCounts(const CRhinoDoc& doc) {
  std::map<std::string, int> counts;
  for (const auto& object : doc.Objects()) ++counts[object->ShortDescription()];
  for (const auto& light : doc.Lights()) {
    if (!light->IsDeleted()) ++counts[light->ShortDescription()];
  }
  std::string text;
  for (const auto& [name, count] : counts) {
    if (!text.empty()) text += ", ";
    text += std::to_string(count) + " " + (count == 1 ? name : Plural(name));
  }
  return text.empty() ? "none" : text;
}

std::string ViewNames(const CRhinoDoc& doc) {
  std::vector<CRhinoView*> views;
  doc.GetViewList(views, true, true);
  std::string text;
  for (const CRhinoView* view : views) {
    if (!text.empty()) text += ", ";
    text += view->Viewport().Name();
    if (view == doc.ActiveView()) text += " (active)";
  }
  return text;
}

std::string NamedViewNames(const CRhinoDoc& doc) {
  std::string text;
  for (const ON_3dmView& view : doc.Properties().Settings().m_named_views) {
    if (!text.empty()) text += ", ";
    text += view.m_name;
  }
  return text;
}

std::string LayerNames(const CRhinoDoc& doc) {
  std::string text;
  for (int i = 0; i < doc.m_layer_table.Count(); ++i) {
    if (!text.empty()) text += ", ";
    text += doc.m_layer_table.FullPath(i);
    if (!doc.m_layer_table.IsLayerVisible(i)) text += " (off)";
  }
  return text;
}

}  // namespace

std::string DescribeDocument(const CRhinoDoc& doc) {
  const ON_3dmProperties& properties = doc.FileProperties();
  const ON_3dmUnitsAndTolerances& units = doc.Properties().ModelUnitsAndTolerances();
  std::string text;
  AddLine(text, "Document", doc.PathName().empty() ? "new" : doc.PathName());
  if (doc.FileVersion() > 0) {
    AddLine(text, "File version", std::to_string(VersionNumber(doc.FileVersion())));
  }
  AddLine(text, "Application", properties.m_application_name);
  AddLine(text, "Created", DateText(properties.m_create_time));
  AddLine(text, "Created by", properties.m_created_by);
  AddLine(text, "Last edited", DateText(properties.m_last_edit_time));
  AddLine(text, "Last edited by", properties.m_last_edited_by);
  AddLine(text, "Units",
          UnitName(units) + ", tolerance " + host::FormatG(units.m_absolute_tolerance));
  AddLine(text, "Objects", ObjectCounts(doc));
  AddLine(text, "Selected", std::to_string(doc.SelectedCount()));
  AddLine(text, "Materials", std::to_string(doc.m_material_table.Count()));
  AddLine(text, "Layers", LayerNames(doc));
  AddLine(text, "Views", ViewNames(doc));
  AddLine(text, "Named views", NamedViewNames(doc));
  for (const std::string& problem : doc.Problems()) AddLine(text, "Problem", problem);
  return text;
}
