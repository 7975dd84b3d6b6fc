#include "host/command/describe.h"
#include "host/command/get_object.h"
#include "host/command/host_commands.h"
#include "host/document/app.h"

namespace {

CommandResult RunWhat(CRhinoCommandContext& context) {
  CRhinoGetObject get(context);
  get.SetCommandPrompt("Select objects to describe");
  if (get.GetObjects(1, 0) != CRhinoGet::Result::object) return get.CommandResult();
  for (const CRhinoObject* object : get.Objects()) {
    RhinoApp().Print(DescribeObject(context.m_doc, *object));
  }
  return CommandResult::success;
}

CommandResult RunDocumentInfo(CRhinoCommandContext& context) {
  RhinoApp().Print(DescribeDocument(context.m_doc));
  return CommandResult::success;
}

}  // namespace

std::vector<HostCommand::Row> ReportCommands() {
  return {
      {"1ce17370-2677-4858-a498-b1353a31d4d3"_uuid, "What", "Describes objects.",
       "Takes the selected objects. When none is selected, type the name, id or serial number of\n"
       "each, and Enter at the end.\n",
       RunWhat},
      {"0dc46b7b-fa47-46a0-ae12-5400402e0296"_uuid, "DocumentInfo", "Describes the document.",
       "Asks for nothing.\n", RunDocumentInfo},
  };
}
