#include "host/document/doc.h"

#include <utility>

#include "host/document/annotation_object.h"
#include "host/document/app.h"
#include "host/document/block_contents.h"
#include "host/document/clipping_plane_object.h"
#include "host/document/default_views.h"
#include "host/document/instance_object.h"
#include "host/document/new_id.h"

namespace {

std::unique_ptr<CRhinoObject> NewObject(CRhinoDoc& doc, unsigned serial_number,
                                        ONX_ModelObject object) {
  if (ON_ClippingPlaneSurface::Cast(object.m_geometry.get()) != nullptr) {
    return std::make_unique<CRhinoClippingPlaneObject>(doc, serial_number, std::move(object));
  }
  if (ON_InstanceRef::Cast(object.m_geometry.get()) != nullptr) {
    return std::make_unique<CRhinoInstanceObject>(doc, serial_number, std::move(object));
  }
  if (ON_Annotation::Cast(object.m_geometry.get()) != nullptr) {
    return std::make_unique<CRhinoAnnotationObject>(doc, serial_number, std::move(object));
  }
  return std::make_unique<CRhinoObject>(doc, serial_number, std::move(object));
}

}  // namespace

CRhinoDoc::CRhinoDoc() {
  MakeViews({});
}

CRhinoDoc::~CRhinoDoc() = default;

void CRhinoDoc::SetModel(ONX_Model model, std::string path) {
  path_ = std::move(path);
  source_ = std::move(model.m_source);
  file_version_ = model.m_3dm_file_version;
  written_by_library_ = model.m_3dm_opennurbs_version;
  file_properties_ = std::move(model.m_properties);
  properties_.settings_ = std::move(model.m_settings);
  undo_.Clear();
  m_layer_table = CRhinoLayerTable(std::move(model.m_layer_table), this);
  m_material_table = CRhinoMaterialTable(std::move(model.m_material_table), this);
  m_group_table = CRhinoGroupTable(std::move(model.m_group_table));
  m_linetype_table = CRhinoLinetypeTable(std::move(model.m_linetype_table), this);
  m_dimstyle_table = CRhinoDimStyleTable(std::move(model.m_dimstyle_table));
  m_instance_definition_table = CRhinoInstanceDefinitionTable(std::move(model.m_idef_table));
  m_user_strings = std::move(model.m_document_user_strings);
  source_user_strings_ = m_user_strings;
  plugin_data_ = std::move(model.m_userdata_table);
  unread_ = std::move(model.m_unread);
  problems_ = std::move(model.m_problems);

  by_id_.clear();
  by_serial_number_.clear();
  objects_.clear();
  lights_.clear();
  selected_count_ = 0;
  AddObjects(std::move(model.m_object_table), std::move(model.m_light_table));
  MarkDefinitionMembers();
  MakeViews(properties_.settings_);
  source_counts_ = source_ != nullptr ? TableCounts() : SourceCounts();
}

CRhinoDoc::SourceCounts CRhinoDoc::TableCounts() const {
  return {m_material_table.Count(), m_layer_table.Count(),    m_linetype_table.Count(),
          m_group_table.Count(),    m_dimstyle_table.Count(), m_instance_definition_table.Count()};
}

IdMap<ON_UUID> CRhinoDoc::AddObjects(std::vector<ONX_ModelObject> objects,
                                     std::vector<ONX_ModelLight> lights) {
  ++content_number_;
  ForgetWhatIsShown();
  const std::size_t count = by_id_.size() + objects.size() + lights.size();
  by_id_.reserve(count);
  by_serial_number_.reserve(count);
  objects_.reserve(objects_.size() + objects.size());
  lights_.reserve(lights_.size() + lights.size());

  IdMap<ON_UUID> newIds;
  const std::size_t first = objects_.size();
  for (ONX_ModelObject& object : objects) {
    const ON_UUID stored = object.m_attributes.m_uuid;
    const auto owner = by_id_.find(stored);
    const CRhinoObject* const ownerBefore = owner == by_id_.end() ? nullptr : owner->second;
    const ON_UUID& id = AddObject(objects_, std::move(object));
    const bool isOwnedBefore =
        ownerBefore != nullptr && ownerBefore->serial_number_ < objects_[first]->serial_number_;
    if (isOwnedBefore) newIds.emplace(stored, id);
  }
  for (ONX_ModelLight& light : lights) {
    ONX_ModelObject object;
    object.m_attributes = std::move(light.m_attributes);
    if (light.m_light != nullptr) {
      auto own = std::make_shared<ON_Light>(*light.m_light);
      own->m_light_index = m_light_table.Count();
      object.m_geometry = std::move(own);
    }
    object.m_object_type = static_cast<unsigned>(ON_ObjectType::light);
    object.m_span = light.m_span;
    AddObject(lights_, std::move(object));
  }
  return newIds;
}

const ON_UUID& CRhinoDoc::AddObject(ObjectList& list, ONX_ModelObject object) {
  const unsigned serialNumber = RhinoApp().NewRuntimeSerialNumber();
  ON_UUID& id = object.m_attributes.m_uuid;
  const auto isTaken = [this](const ON_UUID& candidate) { return by_id_.contains(candidate); };
  if (id.IsNil() || isTaken(id)) id = NewId(serialNumber, isTaken);
  CRhinoObject& added = *list.emplace_back(NewObject(*this, serialNumber, std::move(object)));
  by_id_.emplace(added.attributes_.m_uuid, &added);
  by_serial_number_.emplace(serialNumber, &added);
  return added.attributes_.m_uuid;
}

void CRhinoDoc::MarkDefinitionMembers() {
  for (const ON_InstanceDefinition& definition : m_instance_definition_table) {
    for (const ON_UUID& id : definition.m_object_ids) {
      if (CRhinoObject* object = LookupObject(id)) object->listed_in_definition_ = true;
    }
  }
  ForgetWhatIsShown();
}

void CRhinoDoc::ForgetWhatIsShown() {
  visible_box_.reset();
  blocks_.reset();
}

const BlockContents& CRhinoDoc::Blocks() const {
  if (blocks_ == nullptr) blocks_ = std::make_unique<BlockContents>(*this);
  return *blocks_;
}

CRhinoObject* CRhinoDoc::LookupObject(const ON_UUID& id) const {
  const auto found = by_id_.find(id);
  return found == by_id_.end() || found->second->IsDeleted() ? nullptr : found->second;
}

CRhinoObject* CRhinoDoc::LookupObject(unsigned runtime_serial_number) const {
  const auto found = by_serial_number_.find(runtime_serial_number);
  const bool isThere = found != by_serial_number_.end() && !found->second->IsDeleted();
  return isThere ? found->second : nullptr;
}

ON_BoundingBox CRhinoDoc::BoundingBox() const {
  if (!visible_box_) {
    visible_box_.emplace();
    for (const auto& object : objects_) {
      if (object->IsVisible()) visible_box_->Include(object->BoundingBox());
    }
  }
  return *visible_box_;
}

void CRhinoDoc::GetViewList(std::vector<CRhinoView*>& list, bool model_views,
                            bool page_views) const {
  list.clear();
  for (const auto& view : views_) {
    if (view->IsPage() ? page_views : model_views) list.push_back(view.get());
  }
}

void CRhinoDoc::MakeViews(const ON_3dmSettings& settings) {
  const ON_BoundingBox box = BoundingBox();
  views_.clear();
  IdSet ids;
  const auto isTaken = [&ids](const ON_UUID& id) { return ids.contains(id); };
  for (ON_3dmView view : settings.m_views.empty() ? DefaultViews(box) : settings.m_views) {
    CompleteView(view, box);
    ON_UUID& id = view.m_vp.m_id;
    if (id.IsNil() || isTaken(id)) id = NewId(static_cast<std::uint32_t>(views_.size()), isTaken);
    ids.insert(id);
    views_.push_back(std::make_unique<CRhinoView>(std::move(view)));
  }
  active_view_ = ChooseActiveView(settings.m_active_view_id);
}

CRhinoView* CRhinoDoc::ChooseActiveView(const ON_UUID& named_id) const {
  CRhinoView* maximized = nullptr;
  CRhinoView* perspective = nullptr;
  for (const auto& view : views_) {
    const CRhinoViewport& viewport = view->Viewport();
    if (!named_id.IsNil() && viewport.ViewportId() == named_id) return view.get();
    if (view->IsPage()) continue;
    if (maximized == nullptr && viewport.View().m_maximized) maximized = view.get();
    if (perspective == nullptr && viewport.VP().Projection() == ON_Viewport::View::perspective) {
      perspective = view.get();
    }
  }
  if (maximized != nullptr) return maximized;
  return perspective != nullptr ? perspective : views_.front().get();
}
