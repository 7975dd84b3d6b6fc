#pragma once

#include <memory>
#include <string>
#include <string_view>

class CRhinoFileExportPlugIn;

// The numbers of the kit that a module is built with. A module with other ones is refused.
inline constexpr int kRhinoPlugInSdkVersion = 200909025;
inline constexpr int kRhinoPlugInSdkServiceRelease = 201008125;

// A loaded plug-in module. Its end closes the module; by then its plug-in is registered nowhere.
class PlugInModule {
 public:
  // Opens the module, checks its ten exports and the two numbers. Null when the module is refused;
  // `error` says why.
  static std::unique_ptr<PlugInModule> Load(std::string_view path, std::string& error);

  CRhinoFileExportPlugIn& PlugIn() { return *plug_in_; }

 private:
  struct Close {
    void operator()(void* handle) const;
  };
  using Handle = std::unique_ptr<void, Close>;

  PlugInModule(Handle handle, CRhinoFileExportPlugIn& plug_in)
      : handle_(std::move(handle)), plug_in_(&plug_in) {}

  Handle handle_;
  CRhinoFileExportPlugIn* plug_in_;
};
