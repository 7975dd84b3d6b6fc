#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "host/command/plugin.h"

// A command whose body the test gives.
class SampleCommand : public CRhinoCommand {
 public:
  using Body = std::function<CommandResult(CRhinoCommandContext&)>;
  SampleCommand(std::string name, Body body) : name_(std::move(name)), body_(std::move(body)) {}

  ON_UUID CommandUUID() const override { return {}; }
  std::string_view EnglishCommandName() const override { return name_; }
  std::string_view Description() const override { return "Is a sample."; }
  std::string_view Usage() const override { return "Asks for nothing much.\n"; }
  CommandResult RunCommand(CRhinoCommandContext& context) override { return body_(context); }

 private:
  std::string name_;
  Body body_;
};

// A plug-in that writes files ".smp" and tells what was called.
class SamplePlugIn : public CRhinoFileExportPlugIn {
 public:
  ON_UUID PlugInID() const override { return "00000000-0000-0000-0000-000000000001"_uuid; }
  bool CallWriteDocument(const CRhinoFileWriteOptions&) override { return false; }
  bool WriteDocument(CRhinoDoc&, ON_BinaryArchive&, const CRhinoFileWriteOptions&) override {
    return false;
  }
  bool ReadDocument(CRhinoDoc&, ON_BinaryArchive&, const CRhinoFileReadOptions&) override {
    return true;
  }
  std::string_view PlugInName() const override { return "Sample"; }
  std::string_view PlugInVersion() const override { return "1"; }
  std::span<CRhinoCommand* const> Commands() override { return m_commands; }
  bool OnLoadPlugIn() override {
    m_calls.push_back("load");
    if (m_throws) throw std::runtime_error("out of luck");
    return m_loads;
  }
  void OnUnloadPlugIn() override {
    m_calls.push_back("unload");
    if (m_throws) throw std::runtime_error("out of luck");
  }
  void AddFileType(std::vector<CRhinoFileType>& types) override {
    types.push_back({PlugInID(), "Samples (*.smp)", m_extension});
  }
  int WriteFile(std::string_view file_name, CRhinoDoc&,
                const CRhinoFileWriteOptions& options) override {
    m_calls.push_back("write " + std::string(file_name) + (options.Mode(0) ? " selected" : ""));
    if (m_throws) throw std::runtime_error("out of luck");
    if (m_on_write) m_on_write();
    return m_written;
  }

  std::vector<CRhinoCommand*> m_commands;
  std::vector<std::string> m_calls;
  std::function<void()> m_on_write;
  std::string m_extension = "smp";
  bool m_loads = true;
  bool m_throws = false;
  int m_written = 1;
};
