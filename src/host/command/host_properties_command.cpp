#include "host/command/command_option.h"
#include "host/command/describe_pages.h"
#include "host/command/get_string.h"
#include "host/command/host_commands.h"
#include "host/document/app.h"

namespace {

PropertyPages PagesOf(const CommandRegistry& registry) {
  PropertyPages pages;
  for (CRhinoFileExportPlugIn* plug_in : registry.PlugIns()) {
    plug_in->AddPagesToDocumentPropertiesDialog(pages.Document);
    plug_in->AddPagesToObjectPropertiesDialog(pages.Objects);
  }
  return pages;
}

std::vector<CRhinoDialogPage*> AllPages(const PropertyPages& pages) {
  std::vector<CRhinoDialogPage*> all;
  for (const auto& page : pages.Document) all.push_back(page.get());
  for (const auto& page : pages.Objects) all.push_back(page.get());
  return all;
}

// The page with the title, or an unambiguous beginning of one, in any case; null.
CRhinoDialogPage* FindPage(const std::vector<CRhinoDialogPage*>& pages,
                           const std::vector<std::string>& titles, std::string_view name) {
  const int index = FindName(titles, name, true);
  return index < 0 ? nullptr : pages[static_cast<std::size_t>(index)];
}

CommandResult ListPages(const std::vector<CRhinoDialogPage*>& pages, CRhinoDoc& doc) {
  for (CRhinoDialogPage* page : pages) {
    if (!page->IsOffered(doc)) continue;
    page->Open(doc);
    RhinoApp().Print(DescribePage(*page));
  }
  return CommandResult::success;
}

// Why nothing can be done with the page of that name; empty when nothing speaks against it.
std::string PageObjection(const CRhinoDialogPage* page, const std::string& name,
                          const std::vector<std::string>& titles, CRhinoDoc& doc) {
  if (page == nullptr) {
    return "There is no page '" + name + "'" + (titles.empty() ? "" : "; expected ") +
           OneOf(titles) + ".";
  }
  if (page->IsOffered(doc)) return {};
  return std::string(page->Title()) + " needs objects of its kind in the selection.";
}

// Why a user can't change the control of that name; empty when nothing speaks against it.
std::string ControlObjection(const CRhinoDialogPage& page, const std::string& name) {
  const std::vector<CRhinoControl> controls = page.Controls();
  const int index = FindControl(controls, name);
  const std::string title(page.Title());
  if (index < 0) {
    return title + " has no control '" + name + "'; Properties \"" + title + "\" lists them.";
  }
  const CRhinoControl& control = controls[static_cast<std::size_t>(index)];
  if (!control.IsShown) return control.Id + " of " + title + " is hidden at present.";
  if (!control.IsEnabled) return control.Id + " of " + title + " is disabled at present.";
  if (control.Kind == CRhinoControlKind::text) return control.Id + " can only be read.";
  return {};
}

std::vector<std::string> ValueWords(const CRhinoControl& control) {
  if (control.Kind == CRhinoControlKind::check) return {"Yes", "No"};
  if (control.Kind == CRhinoControlKind::three_state) return {"Yes", "No", "Mixed"};
  return control.Choices;
}

// Asks for the control's value until the page takes it; then the page is accepted. Enter presses a
// button, and changes nothing else.
CommandResult ChangeControl(CRhinoCommandContext& context, CRhinoDialogPage& page,
                            const CRhinoControl& control) {
  CRhinoGetString get(context);
  get.SetCommandPrompt(control.Label.empty() ? control.Id : control.Label);
  get.SetWords(ValueWords(control));
  if (control.Kind == CRhinoControlKind::path) get.TakePath();
  get.SetCommandPromptDefault(control.Value);
  get.AcceptNothing();
  for (;;) {
    const CRhinoGet::Result result = get.GetString();
    const bool is_enter = result == CRhinoGet::Result::nothing;
    if (is_enter && control.Kind != CRhinoControlKind::button) return CommandResult::success;
    if (!is_enter && result != CRhinoGet::Result::string) return get.CommandResult();
    const std::string problem = page.Change(context, control.Id, get.String());
    if (problem.empty()) break;
    if (!context.m_input.Refuse(problem)) return CommandResult::failure;
  }
  page.Accept(context.m_doc);
  return CommandResult::success;
}

CommandResult EditPage(CRhinoCommandContext& context, CRhinoDialogPage& page) {
  page.Open(context.m_doc);
  const std::vector<CRhinoControl> controls = page.Controls();
  std::vector<std::string> names;
  for (const CRhinoControl& control : controls) names.push_back(control.Id);
  for (const CRhinoControl& control : controls) names.push_back(control.Label);
  CRhinoGetString get(context);
  get.SetCommandPrompt("Control (Enter lists the page)");
  get.AcceptNothing();
  get.SetWords(std::move(names));
  get.SetCheck([&page](const std::string& name) { return ControlObjection(page, name); });
  const CRhinoGet::Result result = get.GetString();
  if (result == CRhinoGet::Result::nothing) {
    RhinoApp().Print(DescribePage(page));
    return CommandResult::success;
  }
  if (result != CRhinoGet::Result::string) return get.CommandResult();
  const int index = FindControl(controls, get.String());
  return ChangeControl(context, page, controls[static_cast<std::size_t>(index)]);
}

CommandResult RunProperties(const CommandRegistry& registry, CRhinoCommandContext& context) {
  const PropertyPages pages = PagesOf(registry);
  const std::vector<CRhinoDialogPage*> all = AllPages(pages);
  std::vector<std::string> titles;
  for (const CRhinoDialogPage* page : all) titles.emplace_back(page->Title());
  CRhinoGetString get(context);
  get.SetCommandPrompt("Page (Enter lists all)");
  get.AcceptNothing();
  get.AddCommandOption("Json");
  get.SetWords(titles);
  get.SetCheck([&](const std::string& name) {
    return PageObjection(FindPage(all, titles, name), name, titles, context.m_doc);
  });
  switch (get.GetString()) {
    case CRhinoGet::Result::nothing:
      return ListPages(all, context.m_doc);
    case CRhinoGet::Result::option:
      RhinoApp().Print(DescribePagesAsJson(pages, context.m_doc));
      return CommandResult::success;
    case CRhinoGet::Result::string:
      return EditPage(context, *FindPage(all, titles, get.String()));
    default:
      return get.CommandResult();
  }
}

}  // namespace

std::vector<HostCommand::Row> PropertiesCommands(const CommandRegistry& registry) {
  return {
      {"b7c2ce08-54a5-4f0e-92b9-5bb3a2f1d6c4"_uuid, "Properties",
       "Lists the pages of properties, or changes a control of one.",
       "Asks for a page, a control of it by its name or label, and the control's value. Enter\n"
       "instead of the page lists all pages, Enter instead of the control lists the page.\n"
       "A check is Yes or No, a colour 255,128,0 or #ff8000. A file is its name, or ... to be "
       "asked\n"
       "for it. A button that needs nothing takes Enter. Json prints all pages as JSON.\n",
       [&registry](CRhinoCommandContext& context) { return RunProperties(registry, context); },
       // Pages make records of their own.
       false},
  };
}
