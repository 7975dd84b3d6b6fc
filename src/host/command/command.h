#pragma once

#include <string>
#include <string_view>

#include "host/geometry/on_uuid.h"

class CRhinoDoc;
class InputSource;

class CRhinoCommand;

// What a command gives back. The program's exit status is the worst one.
enum class CommandResult : int { success = 0, cancel = 1, nothing = 2, failure = 3 };

// What a command runs in.
class CRhinoCommandContext {
 public:
  CRhinoCommandContext(CRhinoDoc& doc, InputSource& input, bool interactive)
      : m_doc(doc), m_input(input), interactive_(interactive) {}

  // False when the command was given in its scripted form ("-Name") or by a script: it then asks
  // with prompts instead of dialogs.
  bool IsInteractive() const { return interactive_; }

  CRhinoDoc& m_doc;
  InputSource& m_input;

 private:
  bool interactive_;
};

// A named operation of the host or of a plug-in.
class CRhinoCommand {
 public:
  virtual ~CRhinoCommand() = default;
  CRhinoCommand(const CRhinoCommand&) = delete;
  CRhinoCommand& operator=(const CRhinoCommand&) = delete;

  virtual ON_UUID CommandUUID() const = 0;
  virtual std::string_view EnglishCommandName() const = 0;
  // One line for Help.
  virtual std::string_view Description() const = 0;
  // What Help tells of the command alone: its options, and what is typed at its prompts. Lines that
  // end in a line feed; empty when there is nothing to tell.
  virtual std::string_view Usage() const { return {}; }
  // Whether all that the command changes is one record for Undo.
  virtual bool RecordsUndo() const { return true; }
  virtual CommandResult RunCommand(CRhinoCommandContext& context) = 0;

 protected:
  CRhinoCommand() = default;
};
