#include "host/command/get_string.h"
#include "host/command/host_commands.h"
#include "host/document/app.h"
#include "host/system/text.h"

namespace {

CRhinoView* FindView(const std::vector<CRhinoView*>& views, std::string_view name) {
  for (CRhinoView* view : views) {
    if (host::EqualNoCase(view->Viewport().Name(), name)) return view;
  }
  return nullptr;
}

const ON_3dmView* FindNamedView(const CRhinoDoc& doc, std::string_view name) {
  for (const ON_3dmView& view : doc.Properties().Settings().m_named_views) {
    if (host::EqualNoCase(view.m_name, name)) return &view;
  }
  return nullptr;
}

std::vector<std::string> ViewNames(const CRhinoDoc& doc, const std::vector<CRhinoView*>& views) {
  std::vector<std::string> names;
  for (const CRhinoView* view : views) names.push_back(view->Viewport().Name());
  for (const ON_3dmView& view : doc.Properties().Settings().m_named_views) {
    names.push_back(view.m_name);
  }
  return names;
}

// False when there is no view of the name.
bool SetView(CRhinoDoc& doc, const std::vector<CRhinoView*>& views, std::string_view name) {
  if (CRhinoView* view = FindView(views, name)) {
    doc.SetActiveView(view);
    RhinoApp().Print("The active view is " + view->Viewport().Name() + ".\n");
    return true;
  }
  const ON_3dmView* named_view = FindNamedView(doc, name);
  CRhinoView* view = doc.ActiveView();
  if (named_view == nullptr || view == nullptr) return false;
  view->Viewport().SetFromNamedView(*named_view);
  view->Redraw();
  RhinoApp().Print(view->Viewport().Name() + " shows the named view " + named_view->m_name + ".\n");
  return true;
}

CommandResult RunSetView(CRhinoCommandContext& context) {
  std::vector<CRhinoView*> views;
  context.m_doc.GetViewList(views, true, true);
  CRhinoGetString get(context);
  get.SetCommandPrompt("View");
  get.SetWords(ViewNames(context.m_doc, views));
  for (;;) {
    if (get.GetString() != CRhinoGet::Result::string) return get.CommandResult();
    if (SetView(context.m_doc, views, get.String())) return CommandResult::success;
    if (!context.m_input.Refuse("There is no view '" + get.String() + "'.")) {
      return CommandResult::failure;
    }
  }
}

}  // namespace

std::vector<HostCommand::Row> ViewCommands() {
  return {
      {"69a121c8-9dba-41a4-baa2-315443cad822"_uuid, "SetView",
       "Chooses the view that commands work in.",
       "Asks for the name of a view, which becomes the active one, or of a named view, whose "
       "camera\n"
       "the active view takes. DocumentInfo lists both.\n",
       RunSetView},
  };
}
