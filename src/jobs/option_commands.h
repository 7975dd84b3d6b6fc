#pragma once

#include "jobs/option_table.h"
#include "jobs/orv_command.h"

namespace orv {

// The dialogs for maps and for the cache of global illumination.
extern const FileQuestion kReflectionMapQuestion;
extern const FileQuestion kGiMapQuestion;
extern const FileQuestion kGiCacheQuestion;

// The base of the commands that edit the document's render settings with a table of options and
// store them when they were accepted.
class COrvOptionsCommand : public COrvCommand {
 public:
  CommandResult RunCommand(CRhinoCommandContext& context) override;

 protected:
  // The table and the texts outlive the command.
  COrvOptionsCommand(CSceneOutPlugIn& plugIn, const ON_UUID& id, std::string_view name,
                     std::string_view description, std::string_view usage, const OptionTable& table)
      : COrvCommand(plugIn, id, name, description, usage), table_(table) {}

 private:
  const OptionTable& table_;
};

// OrvOptions: what every export and render works with.
class CCommandOrvOptions : public COrvOptionsCommand {
 public:
  explicit CCommandOrvOptions(CSceneOutPlugIn& plugIn);
};

// OrvTrace: ray tracing and what reflections see behind the scene.
class CCommandOrvTrace : public COrvOptionsCommand {
 public:
  explicit CCommandOrvTrace(CSceneOutPlugIn& plugIn);
};

// OrvOutline: the ink lines.
class CCommandOrvOutline : public COrvOptionsCommand {
 public:
  explicit CCommandOrvOutline(CSceneOutPlugIn& plugIn);
};

// OrvGI: global illumination, its cache and its background.
class CCommandOrvGI : public COrvOptionsCommand {
 public:
  explicit CCommandOrvGI(CSceneOutPlugIn& plugIn);
};

}  // namespace orv
