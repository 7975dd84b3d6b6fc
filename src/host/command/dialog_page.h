#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/command/command.h"

class CRhinoDoc;

// A control of a dialog's page.
enum class CRhinoControlKind {
  text,         // something to read
  edit,         // a text
  list,         // one of the choices
  combo,        // a text, for which the choices are suggestions
  check,        // "Yes" or "No"
  three_state,  // "Yes", "No" or "Mixed"
  color,        // "255,128,0"
  path,         // a file's name, chosen in a dialog or typed
  button,       // does something; what it asks for is its value
};

// A control as a front shows it.
struct CRhinoControl {
  // The name under which the control is always found: a key or a field, as "GiBgMapIntensity".
  std::string Id;
  // What stands beside it: "Intensity:". Several controls of a page may share one.
  std::string Label;
  CRhinoControlKind Kind = CRhinoControlKind::text;
  std::string Value;
  std::vector<std::string> Choices;
  bool IsShown = true;
  bool IsEnabled = true;
};

// A page of options apart from any toolkit: what a front shows, and what its user can do.
class CRhinoDialogPage {
 public:
  virtual ~CRhinoDialogPage() = default;
  CRhinoDialogPage(const CRhinoDialogPage&) = delete;
  CRhinoDialogPage& operator=(const CRhinoDialogPage&) = delete;

  // "Orv Main".
  virtual std::string_view Title() const = 0;
  // Whether there is anything to show: a page of objects needs some in the selection.
  virtual bool IsOffered(CRhinoDoc& doc) const = 0;
  // Reads what the page shows.
  virtual void Open(CRhinoDoc& doc) = 0;
  virtual std::vector<CRhinoControl> Controls() const = 0;
  // The user gives a control a value, as its kind spells it; a control is named by its id or its
  // label, in any case, of which one that is shown is meant first. Points and files that a button
  // wants are asked for in the context when the value doesn't tell them. What was wrong with it;
  // empty when nothing was.
  virtual std::string Change(CRhinoCommandContext& context, std::string_view control,
                             std::string_view value) = 0;
  // Stores what the page shows, where a change doesn't do so at once.
  virtual void Accept(CRhinoDoc& doc) = 0;

 protected:
  CRhinoDialogPage() = default;
};

// The control of a name, as CRhinoDialogPage::Change takes it; -1 when there is none.
int FindControl(const std::vector<CRhinoControl>& controls, std::string_view name);
