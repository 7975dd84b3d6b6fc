#pragma once

#include <string_view>

#include "host/command/command.h"
#include "jobs/plugin.h"

namespace orv {

// The base of the plug-in's commands: what a command is called, and the plug-in it works with.
class COrvCommand : public CRhinoCommand {
 public:
  ON_UUID CommandUUID() const override { return id_; }
  std::string_view EnglishCommandName() const override { return name_; }
  std::string_view Description() const override { return description_; }
  std::string_view Usage() const override { return usage_; }

 protected:
  // The texts outlive the command.
  COrvCommand(CSceneOutPlugIn& plugIn, const ON_UUID& id, std::string_view name,
              std::string_view description, std::string_view usage)
      : plug_in_(plugIn), id_(id), name_(name), description_(description), usage_(usage) {}

  CSceneOutPlugIn& PlugIn() const { return plug_in_; }

 private:
  CSceneOutPlugIn& plug_in_;
  ON_UUID id_;
  std::string_view name_;
  std::string_view description_;
  std::string_view usage_;
};

}  // namespace orv
