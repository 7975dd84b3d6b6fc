#pragma once

#include "jobs/orv_command.h"

namespace orv {

// OrvIprStart: exports the document for the interactive renderer and starts a session with it.
class CCommandOrvIprStart : public COrvCommand {
 public:
  explicit CCommandOrvIprStart(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

// OrvIprEnd: ends the session.
class CCommandOrvIprEnd : public COrvCommand {
 public:
  explicit CCommandOrvIprEnd(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

// OrvIprUpdateSelected: sends the state of objects and lights to the session.
class CCommandOrvIprUpdateSelected : public COrvCommand {
 public:
  explicit CCommandOrvIprUpdateSelected(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

// OrvIprUpdateView: sends the camera of the view that the session shows.
class CCommandOrvIprUpdateView : public COrvCommand {
 public:
  explicit CCommandOrvIprUpdateView(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

}  // namespace orv
